// The stage drivers of real transforms of odd length, on half-complex data.
//
// They walk the plan as the complex in-order driver does. Real stages cannot run in place, so the
// data alternate between two arrays, chosen by the parity of the stage. Forward, the second array
// beside the work buffer is the destination, where the last stage lands; in place it is a further
// part of the work buffer, since the leaves still read the source. Inverse, the order is reversed and
// the leaves scatter over the whole destination, so both arrays are parts of the work buffer.
#include "signal/dft/engines.h"
#include "signal/dft/kernels.h"
#include "signal/dft/real_leaf.h"
#include "signal/dft/real_stage.h"

namespace vor::dft {
namespace {

template <class T, Direction D>
class RealInOrder {
public:
    RealInOrder(const Context<T>& ctx, const T* source, T* destination, void* work)
        : ctx_(ctx), source_(source), destination_(destination) {
        const int n = ctx.lenDft;
        T* const buffer = static_cast<T*>(work);
        constexpr bool kForward = D == Direction::forward;
        arrays_[1] = buffer;
        arrays_[0] = kForward && source != destination ? destination : buffer + n;
        scratch_ = signal::align_up(buffer + 2 * n);
    }

    // Record i and all later ones: the block at `block`, whose reals begin at `start` and follow
    // with the stride of the record.
    void run(int i, int start, int block) const {
        const DftFactorRec<T>& record = ctx_.fact[i];
        if constexpr (D == Direction::backward) {
            if (!swept(i)) stage(i, block);
        }
        if (swept(i)) {
            sweep(i, start, block);
        } else {
            for (int j = 0; j < record.factor; ++j)
                run(i + 1, start + j * record.prodBefore, block + j * record.rest);
        }
        if constexpr (D == Direction::forward) {
            if (!swept(i)) stage(i, block);
        }
    }

private:
    bool swept(int i) const {
        const DftFactorRec<T>& record = ctx_.fact[i];
        return i == ctx_.lastFactor || record.factor * record.rest < kSweepLimit<T>;
    }

    void sweep(int i, int start, int block) const {
        if constexpr (D == Direction::forward) {
            leaf(source_ + start, array(ctx_.lastFactor + 1) + block);
            for (int k = ctx_.lastFactor; k >= i; --k) stage(k, block);
        } else {
            for (int k = i; k <= ctx_.lastFactor; ++k) stage(k, block);
            leaf(array(ctx_.lastFactor + 1) + block, destination_ + start);
        }
    }

    T* array(int i) const { return arrays_[i % 2]; }

    // x strided and y packed forward, the other way round inverse.
    void leaf(const T* x, T* y) const {
        const DftFactorRec<T>& last = ctx_.last();
        const TableRadix<T> table{last.rest, ctx_.remainder().tabDirFactor, scratch_};
        with_radix<3, 5>(table, [&](auto radix) {
            real_leaf<D>(radix, x, last.prodBefore, y, last.factor, last.nBlocks, ctx_.tabPerm);
        });
    }

    // Forward, stage i reads array i + 1 and writes array i, stage 0 the destination; inverse, it
    // reads array i, stage 0 the source, and writes array i + 1.
    [[gnu::noinline]] void stage(int i, int block) const {
        constexpr bool kForward = D == Direction::forward;
        const T* const whole = i == 0 ? source_ : array(i);
        T* const target = i == 0 ? destination_ : array(i);
        const T* const x = (kForward ? array(i + 1) : whole) + block;
        T* const y = (kForward ? target : array(i + 1)) + block;
        const DftFactorRec<T>& record = ctx_.fact[i];
        const TableRadix<T> table{record.factor, record.tabDirFactor, scratch_};
        with_radix<3, 5>(table, [&](auto radix) {
            real_stage<D>(radix, x, y, record.rest, record.nBlocks, record.tabTwiddle);
        });
    }

    const Context<T>& ctx_;
    const T* source_;
    T* destination_;
    T* arrays_[2];
    T* scratch_;
};

} // namespace

template <Direction D, class T>
void real_in_order(const Context<T>& ctx, const T* x, T* y, void* work) {
    RealInOrder<T, D>(ctx, x, y, work).run(0, 0, 0);
}

} // namespace vor::dft

#define REAL_IN_ORDER(name, D, T)                                                                  \
    template void vor::dft::real_in_order<vor::Direction::D>(const Context<T>&, const T*, T*,      \
                                                             void*);                               \
    extern "C" void name(const DftCtx* object, const T* source, T* destination, void* work) {      \
        using namespace vor::dft;                                                                  \
        real_in_order<vor::Direction::D>(context_of<T>(object), source, destination, work);        \
    }
REAL_IN_ORDER(tavs_rDftFwd_PrimeFact_32f, forward, float)
REAL_IN_ORDER(tavs_rDftInv_PrimeFact_32f, backward, float)
REAL_IN_ORDER(tavs_rDftFwd_PrimeFact_64f, forward, double)
REAL_IN_ORDER(tavs_rDftInv_PrimeFact_64f, backward, double)
