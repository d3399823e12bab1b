// The in-order stage drivers: decimation in time, natural order in, natural order out.
//
// Record i splits a block of length f r into f sub-blocks. A block below the sweep limit runs its
// leaves, then all its stages one after the other over the whole block; a longer one finishes its
// sub-blocks one by one and then runs its own stage. The stages work in place in the destination, or
// in the work buffer if source and destination are the same array; record 0 writes the destination.
#include "signal/dft/engines.h"
#include "signal/dft/kernels.h"
#include "signal/dft/leaf.h"
#include "signal/dft/stage.h"

namespace vor::dft {
namespace {

template <class T, Direction D>
class InOrder {
public:
    using C = complex_t<T>;

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
        const TableRadix<T> table{last.rest, ctx_.remainder().tabDirFactor, scratch_};
        with_radix<3, 5>(table, [&](auto radix) {
            dft::leaf<D>(radix, x, last.prodBefore, y, last.factor, last.nBlocks, ctx_.tabPerm);
        });
    }

    [[gnu::noinline]] void stage(int i, C* x) const {
        const DftFactorRec<T>& record = ctx_.fact[i];
        const TableRadix<T> table{record.factor, record.tabDirFactor, scratch_};
        const C* const source = x;
        C* const y = i == 0 ? destination_ : x;
        with_radix<2, 3, 4, 5>(table, [&](auto radix) {
            dft::stage<D>(radix, source, y, record.rest, record.nBlocks, record.tabTwiddle);
        });
    }

    const Context<T>& ctx_;
    C* destination_;
    C* scratch_;
};

} // namespace

template <Direction D, class T>
void in_order(const Context<T>& ctx, const complex_t<T>* x, complex_t<T>* y, void* work) {
    auto* const buffer = static_cast<complex_t<T>*>(work);
    const InOrder<T, D> driver(ctx, y,
                               signal::align_up(buffer + ctx.fact[0].factor * ctx.fact[0].rest));
    driver.run(0, x, x == y ? buffer : y);
}

} // namespace vor::dft

#define IN_ORDER(name, D, T, C)                                                                    \
    template void vor::dft::in_order<vor::Direction::D>(const Context<T>&, const C*, C*, void*);   \
    extern "C" void name(const DftCtx* object, const C* source, C* destination, void* work) {      \
        using namespace vor::dft;                                                                  \
        in_order<vor::Direction::D>(context_of<T>(object), source, destination, work);             \
    }
IN_ORDER(tavs_cDftFwd_PrimeFact_32fc, forward, float, VOR_SCOMPLEX)
IN_ORDER(tavs_cDftInv_PrimeFact_32fc, backward, float, VOR_SCOMPLEX)
IN_ORDER(tavs_cDftFwd_PrimeFact_64fc, forward, double, VOR_DCOMPLEX)
IN_ORDER(tavs_cDftInv_PrimeFact_64fc, backward, double, VOR_DCOMPLEX)
