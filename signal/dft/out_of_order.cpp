// The out-of-order stage drivers: decimation in frequency forward, its mirror inverse, no reordering
// pass in between. Forward, the leaf runs over the whole array, then the stages from the last record
// to the first; the results stand in digit-reversed order, which the inverse takes. Blocks from the
// sweep limit on run one stage and then finish each of their sub-blocks.
#include "signal/dft/engines.h"
#include "signal/dft/kernels.h"
#include "signal/dft/out_of_order_stage.h"

namespace vor::dft {
namespace {

template <class T, Direction D>
class OutOfOrder {
public:
    using C = complex_t<T>;

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
        const TableRadix<T> table{r, ctx_.remainder().tabDirFactor, scratch_};
        with_radix<3, 5>(table, [&](auto radix) { out_leaf<D>(radix, x, destination_, v); });
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
    [[gnu::noinline]] void stage(int k, int first, int blocks) const {
        const DftFactorRec<T>& record = ctx_.fact[k];
        const C* const x = D == Direction::backward && k == 0 ? source_ : destination_;
        const TableRadix<T> table{record.factor, record.tabDirFactor, scratch_};
        with_radix<2, 3, 4, 5>(table, [&](auto radix) {
            out_stages<D>(radix, x, destination_, record.prodBefore, first, blocks,
                          record.tabTwiddle);
        });
    }

    const Context<T>& ctx_;
    const C* source_;
    C* destination_;
    void* scratch_;
};

} // namespace

template <Direction D, class T>
void out_of_order(const Context<T>& ctx, const complex_t<T>* x, complex_t<T>* y, void* work) {
    OutOfOrder<T, D>(ctx, x, y, work).run();
}

} // namespace vor::dft

#define OUT_OF_ORDER(name, D, T, C)                                                                \
    template void vor::dft::out_of_order<vor::Direction::D>(const Context<T>&, const C*, C*,       \
                                                            void*);                                \
    extern "C" void name(const DftCtx* object, const C* source, C* destination, void* work) {      \
        using namespace vor::dft;                                                                  \
        out_of_order<vor::Direction::D>(context_of<T>(object), source, destination, work);         \
    }
OUT_OF_ORDER(tavs_cDftFwd_OutOrd_32fc, forward, float, VOR_SCOMPLEX)
OUT_OF_ORDER(tavs_cDftInv_OutOrd_32fc, backward, float, VOR_SCOMPLEX)
OUT_OF_ORDER(tavs_cDftFwd_OutOrd_64fc, forward, double, VOR_DCOMPLEX)
OUT_OF_ORDER(tavs_cDftInv_OutOrd_64fc, backward, double, VOR_DCOMPLEX)
