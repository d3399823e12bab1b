// The leaves of dtrmm and ztrmm on the x87 unit: contract in trmm_leaves.h.
//
// Left: equations in groups of four (z: two), then singly. A group's own triangle comes first, summed
// from 0; alpha * sum is stored. Then the sums over the unknowns behind the group, from 0 again, and
// b := alpha * sum + b. Right: right sides in the same groups; alpha * b (times the diagonal) plus
// alpha * sum over the unknowns behind. All sums ascend in the order of the walk, extended; each store
// rounds.
#include "blas/level3/trmm_leaves.h"
#include "blas/level3/triangle_leaf.h"
#include "serv/entry.h"

namespace {

using vor::cdouble;
using vor::kLiveSums;
using vor::Leaf;
using vor::plus;
using vor::times;
using vor::Wide;

// G equations from i on, for the right side at b.
template <int G, bool Conj, class T>
inline void multiply_group(const Leaf<T>& leaf, Wide<T> alpha, int i, T* b) {
    Wide<T> sum[G] = {};
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g)
#pragma GCC unroll 4
        for (int h = g; h < G; ++h) {
            const Wide<T> x = vor::widen(b[(i + h) * leaf.step]);
            const bool one = h == g && leaf.unit;
            const auto term = [&] {
                return times(vor::wide_coefficient<Conj>(*leaf.coefficient(i + g, i + h)), x);
            };
            sum[g] = plus(sum[g], one ? x : term());
        }
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) b[(i + g) * leaf.step] = vor::narrow<T>(times(alpha, sum[g]));

    const int behind = leaf.order - (i + G);
    if (behind == 0) return;
    Wide<T> rest[G] = {};
    vor::add_dots<Conj, false, G>(rest, behind, leaf.coefficient(i, i + G), leaf.row, leaf.column,
                                  b + (i + G) * leaf.step, leaf.step);
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) {
        T& result = b[(i + g) * leaf.step];
        result = vor::narrow<T>(plus(times(alpha, rest[g]), vor::widen(result)));
    }
}

template <bool Conj, class T>
void multiply_left(const Leaf<T>& leaf, Wide<T> alpha) {
    constexpr int G = kLiveSums<T>;
    for (int q = 0; q < leaf.others; ++q) {
        T* const b = leaf.side(q);
        int i = 0;
        for (; i + G <= leaf.order; i += G) multiply_group<G, Conj>(leaf, alpha, i, b);
        for (; i < leaf.order; ++i) multiply_group<1, Conj>(leaf, alpha, i, b);
    }
}

// G right sides from q on.
template <int G, bool Conj, class T>
inline void multiply_sides(const Leaf<T>& leaf, Wide<T> alpha, int q) {
    T* b = leaf.side(q);
    for (int i = 0; i < leaf.order; ++i, b += leaf.step) {
        Wide<T> sum[G] = {};
        const int behind = leaf.order - (i + 1);
        if (behind > 0)
            vor::add_dots<false, Conj, G>(sum, behind, b + leaf.step, leaf.next, leaf.step,
                                          leaf.coefficient(i, i + 1), leaf.column);
#pragma GCC unroll 4
        for (int g = 0; g < G; ++g) {
            T& result = b[g * leaf.next];
            Wide<T> own = times(alpha, vor::widen(result));
            if (!leaf.unit) own = times(own, vor::wide_coefficient<Conj>(*leaf.coefficient(i, i)));
            result = vor::narrow<T>(behind > 0 ? plus(own, times(alpha, sum[g])) : own);
        }
    }
}

template <bool Conj, class T>
void multiply_right(const Leaf<T>& leaf, Wide<T> alpha) {
    constexpr int G = kLiveSums<T>;
    int q = 0;
    for (; q + G <= leaf.others; q += G) multiply_sides<G, Conj>(leaf, alpha, q);
    for (; q < leaf.others; ++q) multiply_sides<1, Conj>(leaf, alpha, q);
}

} // namespace

#define LEAF(name, T, side, trans, multiply)                                                       \
    VOR_ENGINE void vor_blas_##name PARAMS_TRMM_LEAF(T) {                                          \
        const vor::Triangular<T> p{                                                                \
            side, *uploflag ? "U" : "L", trans, *diagflag ? "U" : "N", *m, *n, a, *lda, b, *ldb};  \
        multiply(Leaf<T>(p, !p.lower_system()), vor::widen(*alpha));                               \
    }
LEAF(dtrmln, double, "L", "N", multiply_left<false>)
LEAF(dtrmlt, double, "L", "T", multiply_left<false>)
LEAF(dtrmrn, double, "R", "N", multiply_right<false>)
LEAF(dtrmrt, double, "R", "T", multiply_right<false>)
LEAF(ztrmln, cdouble, "L", "N", multiply_left<false>)
LEAF(ztrmlt, cdouble, "L", "T", multiply_left<false>)
LEAF(ztrmlc, cdouble, "L", "C", multiply_left<true>)
LEAF(ztrmrn, cdouble, "R", "N", multiply_right<false>)
LEAF(ztrmrt, cdouble, "R", "T", multiply_right<false>)
LEAF(ztrmrc, cdouble, "R", "C", multiply_right<true>)
