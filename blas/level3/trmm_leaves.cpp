// The leaves of dtrmm and ztrmm on the x87 unit: contract in trmm_leaves.h.
//
// Left: equations in groups of four (z: two), then singly. A group's own triangle comes first, summed
// from 0; alpha * sum is stored. Then the sums over the unknowns behind the group, from 0 again, and
// b := alpha * sum + b. Right: right sides in the same groups; alpha * b (times the diagonal) plus
// alpha * sum over the unknowns behind. All sums ascend in the order of the walk, extended; each store
// rounds.
#include "blas/level3/trmm_leaves.h"
#include "blas/level3/leaf_sums.h"
#include "serv/entry.h"

namespace {

using vor::cdouble;
using vor::kLeafOrder;
using vor::kSlot;
using vor::Leaf;
using vor::plus;
using vor::real_t;
using vor::times;
using vor::Wide;

// G equations from i on for the right side x. corner[g][h]: coefficient of unknown i + h in equation
// i + g; slots: those of the unknowns behind the group.
template <int G, class T>
[[gnu::noinline]] void multiply_group(const Leaf<T>& leaf, const Wide<T>& alpha, int i,
                                      const T (*corner)[G], const real_t<T>* slots, T* x) {
    x += i;
    Wide<T> sum[G] = {};
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) {
#pragma GCC unroll 4
        for (int h = g; h < G; ++h) {
            const bool one = h == g && leaf.unit;
            const Wide<T> xh = vor::widen(x[h]);
            sum[g] = plus(sum[g], one ? xh : times(vor::widen(corner[g][h]), xh));
        }
        x[g] = vor::narrow<T>(times(alpha, sum[g]));
    }
    const int behind = leaf.order - (i + G);
    if (behind == 0) return;
    vor::dots<G>(sum, behind, slots, x + G);
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) x[g] = vor::narrow<T>(plus(times(alpha, sum[g]), vor::widen(x[g])));
}

template <class T>
void multiply_left(const Leaf<T>& leaf, const Wide<T>& alpha) {
    real_t<T> slots[kLeafOrder * kSlot<T>];
    vor::by_columns(leaf, [&](auto x, int count) {
        vor::in_tiles<T>(leaf.order, [&](auto group, int i) {
            T corner[group][group];
            for (int g = 0; g < group; ++g)
                for (int h = leaf.unit ? g + 1 : g; h < group; ++h)
                    corner[g][h] = leaf.coefficient(i + g, i + h);
            vor::pack_equations<group>(leaf, i, i + group, leaf.order - (i + group), slots);
            for (int turn = 0; turn < count; ++turn)
                multiply_group<group>(leaf, alpha, i, corner, slots, x[turn]);
        });
    });
}

// Equation i for the G right sides in slots; coefficients: those of the unknowns behind it.
template <int G, class T>
[[gnu::noinline]] void multiply_sides(const Leaf<T>& leaf, const Wide<T>& alpha, int i,
                                      const T* coefficients, real_t<T>* slots) {
    const int behind = leaf.order - (i + 1);
    slots += i * kSlot<T>;
    Wide<T> sum[G];
    vor::dots<G>(sum, behind, slots + kSlot<T>, coefficients);
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) {
        Wide<T> own = times(alpha, vor::widen(vor::get<T>(slots, g)));
        if (!leaf.unit) own = times(own, vor::widen(leaf.coefficient(i, i)));
        vor::put(slots, g, vor::narrow<T>(behind > 0 ? plus(own, times(alpha, sum[g])) : own));
    }
}

template <class T>
void multiply_right(const Leaf<T>& leaf, const Wide<T>& alpha) {
    T coefficients[kLeafOrder];
    vor::by_slots(leaf, [&](auto& x, int count) {
        for (int i = 0; i < leaf.order; ++i) {
            leaf.pack_row(i, i + 1, leaf.order - (i + 1), coefficients);
            vor::in_tiles<T>(count, [&](auto sides, int turn) {
                multiply_sides<sides>(leaf, alpha, i, coefficients, x.at(turn));
            });
        }
    });
}

} // namespace

#define LEAF(name, T, side, trans, multiply)                                                       \
    VOR_ENGINE void vor_blas_##name PARAMS_TRMM_LEAF(T) {                                          \
        const vor::Triangular<T> p{                                                                \
            side, *uploflag ? "U" : "L", trans, *diagflag ? "U" : "N", *m, *n, a, *lda, b, *ldb};  \
        multiply(Leaf<T>(p, !p.lower_system()), vor::widen(*alpha));                               \
    }
LEAF(dtrmln, double, "L", "N", multiply_left)
LEAF(dtrmlt, double, "L", "T", multiply_left)
LEAF(dtrmrn, double, "R", "N", multiply_right)
LEAF(dtrmrt, double, "R", "T", multiply_right)
LEAF(ztrmln, cdouble, "L", "N", multiply_left)
LEAF(ztrmlt, cdouble, "L", "T", multiply_left)
LEAF(ztrmlc, cdouble, "L", "C", multiply_left)
LEAF(ztrmrn, cdouble, "R", "N", multiply_right)
LEAF(ztrmrt, cdouble, "R", "T", multiply_right)
LEAF(ztrmrc, cdouble, "R", "C", multiply_right)
