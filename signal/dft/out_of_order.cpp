// The out-of-order stage drivers: decimation in frequency forward, its mirror inverse, no reordering
// pass in between. Forward, the leaf runs over the whole array, then the stages from the last record
// to the first; the results stand in digit-reversed order, which the inverse takes. Blocks from the
// sweep limit on run one stage and then finish each of their sub-blocks.
#include "signal/dft/kernels.h"

namespace vor::dft {
namespace {

template <class T, Direction D>
class OutOfOrder {
public:
    using C = complex_t<T>;
    using K = Directed<T, D>;

    OutOfOrder(const Context<T>& ctx, const C* source, C* destination, void* work)
        : ctx_(ctx), source_(source), destination_(destination), scratch_(work) {}

    void run() const {
        const int r = ctx_.remainder().factor, v = ctx_.last().prodBefore * ctx_.last().factor;
        if constexpr (D == Direction::forward) leaf(source_, r, v);
        if (r * v >= kSweepLimit<T> && ctx_.lastFactor >= 2)
            for (int j = 0; j < r; ++j) step(v, j, ctx_.lastFactor);
        else
            sweep(ctx_.lastFactor, [&](int k) { stage(k, 0, ctx_.fact[k].rest); });
        if constexpr (D == Direction::backward) leaf(destination_, r, v);
    }

private:
    void leaf(const C* x, int r, int v) const {
        if (r == 3) return K::out_leaf3(x, destination_, v);
        if (r == 5) return K::out_leaf5(x, destination_, v);
        K::out_leaf(x, destination_, r, v, ctx_.remainder().tabDirFactor, scratch_);
    }

    // Block b of length v at the level of record k, and all that is inside it.
    void step(int v, int b, int k) const {
        const auto level = [&](int i) { stage(i, b * ctx_.fact[i].nBlocks, ctx_.fact[i].nBlocks); };
        if (v < kSweepLimit<T> || k < 2) return sweep(k, level);
        const int f = ctx_.fact[k].factor;
        if constexpr (D == Direction::forward) level(k);
        for (int j = 0; j < f; ++j) step(v / f, j + f * b, k - 1);
        if constexpr (D == Direction::backward) level(k);
    }

    // The records from `top` down to 0, or up from 0 in the inverse.
    template <class Level>
    void sweep(int top, Level level) const {
        for (int i = 0; i <= top; ++i) level(D == Direction::forward ? top - i : i);
    }

    // Blocks `first` to `first + blocks - 1` of record k. The first stage of the inverse reads the
    // source.
    void stage(int k, int first, int blocks) const {
        const DftFactorRec<T>& record = ctx_.fact[k];
        const C* const x = D == Direction::backward && k == 0 ? source_ : destination_;
        C* const y = destination_;
        const int f = record.factor, v = record.prodBefore;
        switch (f) {
        case 2:
            return K::out_stage2(x, y, v, first, blocks, record.tabTwiddle);
        case 3:
            return K::out_stage3(x, y, v, first, blocks, record.tabTwiddle);
        case 4:
            return K::out_stage4(x, y, v, first, blocks, record.tabTwiddle);
        case 5:
            return K::out_stage5(x, y, v, first, blocks, record.tabTwiddle);
        default:
            for (int b = first; b < first + blocks; ++b)
                K::out_stage(x, y, f, v, b, record.tabDirFactor, record.tabTwiddle, scratch_);
        }
    }

    const Context<T>& ctx_;
    const C* source_;
    C* destination_;
    void* scratch_;
};

} // namespace
} // namespace vor::dft

#define OUT_OF_ORDER(Dir, D, suffix, T, C)                                                         \
    extern "C" void tavs_cDft##Dir##_OutOrd_##suffix(const DftCtx* object, const C* source,        \
                                                     C* destination, void* work) {                 \
        using namespace vor::dft;                                                                  \
        OutOfOrder<T, vor::Direction::D>(context_of<T>(object), source, destination, work).run();  \
    }
OUT_OF_ORDER(Fwd, forward, 32fc, float, vor::cfloat)
OUT_OF_ORDER(Inv, backward, 32fc, float, vor::cfloat)
OUT_OF_ORDER(Fwd, forward, 64fc, double, vor::cdouble)
OUT_OF_ORDER(Inv, backward, 64fc, double, vor::cdouble)
