// The in-order stage drivers: decimation in time, natural order in, natural order out.
//
// Record i splits a block of length f r into f sub-blocks. A block below the sweep limit runs its
// leaves, then all its stages one after the other over the whole block; a longer one finishes its
// sub-blocks one by one and then runs its own stage. The stages work in place in the destination, or
// in the work buffer if source and destination are the same array; record 0 writes the destination.
#include "signal/dft/kernels.h"

namespace vor::dft {
namespace {

template <class T, Direction D>
class InOrder {
public:
    using C = complex_t<T>;
    using K = Directed<T, D>;

    InOrder(const Context<T>& ctx, C* destination, C* scratch)
        : ctx_(ctx), destination_(destination), scratch_(scratch) {}

    // Record i and all later ones, from the input at `x` into the block at `y`.
    void run(int i, const C* x, C* y) const {
        const DftFactorRec<T>& record = ctx_.fact[i];
        if (i == ctx_.lastFactor || record.factor * record.rest < kSweepLimit<T>) {
            leaf(x, y);
            for (int k = ctx_.lastFactor; k >= i; --k) stage(k, y);
            return;
        }
        for (int j = 0; j < record.factor; ++j)
            run(i + 1, x + j * record.prodBefore, y + j * record.rest);
        stage(i, y);
    }

private:
    void leaf(const C* x, C* y) const {
        const DftFactorRec<T>& last = ctx_.last();
        const int c = last.factor, p = last.prodBefore, r = last.rest;
        if (r == 3) return K::leaf3(x, p, y, c, last.nBlocks, ctx_.tabPerm);
        if (r == 5) return K::leaf5(x, p, y, c, last.nBlocks, ctx_.tabPerm);
        for (int b = 0; b < last.nBlocks; ++b)
            K::leaf(x + ctx_.tabPerm[b], p, y + b * c * r, r, c, ctx_.remainder().tabDirFactor,
                    scratch_);
    }

    void stage(int i, C* x) const {
        const DftFactorRec<T>& record = ctx_.fact[i];
        const int f = record.factor, r = record.rest, blocks = record.nBlocks;
        C* const y = i == 0 ? destination_ : x;
        switch (f) {
        case 2:
            return K::stage2(x, y, r, blocks, record.tabTwiddle);
        case 3:
            return K::stage3(x, y, r, blocks, record.tabTwiddle);
        case 4:
            return K::stage4(x, y, r, blocks, record.tabTwiddle);
        case 5:
            return K::stage5(x, y, r, blocks, record.tabTwiddle);
        default:
            for (int b = 0; b < blocks; ++b)
                K::stage(x + b * f * r, y + b * f * r, f, r, record.tabDirFactor, record.tabTwiddle,
                         scratch_);
        }
    }

    const Context<T>& ctx_;
    C* destination_;
    C* scratch_;
};

template <Direction D, class T, class C = complex_t<T>>
void in_order(const Context<T>& ctx, const C* source, C* destination, void* work) {
    C* const buffer = static_cast<C*>(work);
    const InOrder<T, D> driver(ctx, destination,
                               signal::align_up(buffer + ctx.fact[0].factor * ctx.fact[0].rest));
    driver.run(0, source, source == destination ? buffer : destination);
}

} // namespace
} // namespace vor::dft

#define IN_ORDER(Dir, D, suffix, T, C)                                                             \
    extern "C" void tavs_cDft##Dir##_PrimeFact_##suffix(const DftCtx* object, const C* source,     \
                                                        C* destination, void* work) {              \
        vor::dft::in_order<vor::Direction::D>(vor::dft::context_of<T>(object), source,             \
                                              destination, work);                                  \
    }
IN_ORDER(Fwd, forward, 32fc, float, vor::cfloat)
IN_ORDER(Inv, backward, 32fc, float, vor::cfloat)
IN_ORDER(Fwd, forward, 64fc, double, vor::cdouble)
IN_ORDER(Inv, backward, 64fc, double, vor::cdouble)
