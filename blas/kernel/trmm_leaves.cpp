// The leaves of dtrmm and ztrmm on the x87 unit: contract in trmm_leaves.h.
//
// Left: equations in groups of four (z: two), then singly. A group's own triangle comes first, summed
// from 0; alpha * sum is stored. Then the sums over the unknowns behind the group, from 0 again, and
// b := alpha * sum + b. Right: right sides in the same groups; alpha * b (times the diagonal) plus
// alpha * sum over the unknowns behind. All sums ascend in the order of the walk, extended; each store
// rounds.
#include "blas/kernel/trmm_leaves.h"
#include "blas/kernel/leaf_sums.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

// G equations from i on for the right side x. corner[g][h]: coefficient of unknown i + h in equation
// i + g; slots: those of the unknowns behind the group.
template <int G, class T>
[[gnu::noinline]] void multiply_group(const Leaf<T>& leaf, const wide_t<T>& alpha, int i,
                                      const T (*corner)[G], const real_t<T>* slots, T* x) {
    x += i;
    wide_t<T> sum[G] = {};
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) {
#pragma GCC unroll 4
        for (int h = g; h < G; ++h) {
            const bool one = h == g && leaf.unit;
            const wide_t<T> xh = widen(x[h]);
            sum[g] += one ? xh : widen(corner[g][h]) * xh;
        }
        x[g] = element<T>(alpha * sum[g]);
    }
    const int behind = leaf.order - (i + G);
    if (behind == 0) return;
    dots<G>(sum, behind, slots, x + G);
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) x[g] = element<T>(alpha * sum[g] + widen(x[g]));
}

template <class T>
void multiply_left(const Leaf<T>& leaf, const wide_t<T>& alpha) {
    real_t<T> slots[kLeafOrder * Slot<T>::kSize];
    in_turns(leaf, [&](auto x, int count) {
        in_tiles<T>(leaf.order, [&](auto group, int i) {
            T corner[group][group];
            for (int g = 0; g < group; ++g)
                for (int h = leaf.unit ? g + 1 : g; h < group; ++h)
                    corner[g][h] = leaf.coefficient(i + g, i + h);
            pack_equations<group>(leaf, i, i + group, leaf.order - (i + group), slots);
            for (int turn = 0; turn < count; ++turn)
                multiply_group<group>(leaf, alpha, i, corner, slots, x[turn]);
        });
    });
}

// Equation i for the G right sides in slots; coefficients: those of the unknowns behind it.
template <int G, class T>
[[gnu::noinline]] void multiply_sides(const Leaf<T>& leaf, const wide_t<T>& alpha, int i,
                                      const T* coefficients, real_t<T>* slots) {
    const int behind = leaf.order - (i + 1);
    slots += i * Slot<T>::kSize;
    wide_t<T> sum[G];
    dots<G>(sum, behind, slots + Slot<T>::kSize, coefficients);
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) {
        wide_t<T> own = alpha * widen(Slot<T>::get(slots, g));
        if (!leaf.unit) own = own * widen(leaf.coefficient(i, i));
        Slot<T>::put(slots, g, element<T>(behind > 0 ? own + alpha * sum[g] : own));
    }
}

template <class T>
void multiply_right(const Leaf<T>& leaf, const wide_t<T>& alpha) {
    T coefficients[kLeafOrder];
    in_turns_of_slots(leaf, [&](auto& x, int count) {
        for (int i = 0; i < leaf.order; ++i) {
            leaf.pack_row(i, i + 1, leaf.order - (i + 1), coefficients);
            in_tiles<T>(count, [&](auto sides, int turn) {
                multiply_sides<sides>(leaf, alpha, i, coefficients, x.at(turn));
            });
        }
    });
}

} // namespace

#define LEAF(name, T, side, trans, multiply)                                                       \
    VOR_ENGINE void name PARAMS_TRMM_LEAF(T) {                                                     \
        const auto p = TRIANGULAR_PROBLEM_OF_LEAF(T, side, trans);                                 \
        multiply(Leaf<T>(p, !p.lower_system()), widen(*alpha));                                    \
    }
LEAF(vor_blas_dtrmln, double, "L", "N", multiply_left)
LEAF(vor_blas_dtrmlt, double, "L", "T", multiply_left)
LEAF(vor_blas_dtrmrn, double, "R", "N", multiply_right)
LEAF(vor_blas_dtrmrt, double, "R", "T", multiply_right)
LEAF(vor_blas_ztrmln, cdouble, "L", "N", multiply_left)
LEAF(vor_blas_ztrmlt, cdouble, "L", "T", multiply_left)
LEAF(vor_blas_ztrmlc, cdouble, "L", "C", multiply_left)
LEAF(vor_blas_ztrmrn, cdouble, "R", "N", multiply_right)
LEAF(vor_blas_ztrmrt, cdouble, "R", "T", multiply_right)
LEAF(vor_blas_ztrmrc, cdouble, "R", "C", multiply_right)

} // namespace vor::blas
