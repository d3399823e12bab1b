// Out-of-order complex stages and leaves. All v columns of block b, f v elements at b f v, share one
// set of twiddles w_m, those of the block's digit-reversed index:
//
//     forward:  a_m = w_m x[m v + j],   y = transform of length f of a
//     inverse:  y_m = conj(w_m) times element m of the inverse transform of length f of x
//
// Each stage works at the places it reads, so it may run in place, and the inverse undoes the
// forward one, up to a factor f. A leaf has no twiddles and takes the whole array as one block.
#include "signal/dft/column.h"
#include "signal/dft/kernels.h"

namespace vor::dft {
namespace {

template <int F, Direction D, Complex C>
VOR_INLINE inline void out_column(const C* x, C* y, int v, const C* w) {
    if constexpr (D == Direction::forward) {
        column<F, D, true>(x, y, v, v, w);
        return;
    }
    C a[F];
#pragma GCC unroll 5
    for (int m = 0; m < F; ++m) a[m] = x[m * v];
    butterfly<F, D>(a);
    y[0] = a[0];
#pragma GCC unroll 4
    for (int m = 1; m < F; ++m) y[m * v] = twiddled<D>(a[m], w[m - 1]);
}

template <int F, Direction D, Complex C>
VOR_INLINE inline void out_stage(const C* x, C* y, int v, int first, int blocks, const C* twiddle) {
    const C* w = twiddle + first * (F - 1);
    const C* const end = w + blocks * (F - 1);
    x += first * F * v;
    y += first * F * v;
    if (v == 1) {
        for (; w != end; w += F - 1, x += F, y += F) out_column<F, D>(x, y, 1, w);
        return;
    }
    for (; w != end; w += F - 1, x += F * v, y += F * v)
        for (int j = 0; j < v; ++j) out_column<F, D>(x + j, y + j, v, w);
}

template <Direction D, bool kTwiddled, class T, Complex C = complex_t<T>>
VOR_INLINE inline void out_columns(TableRadix<T> radix, const C* x, C* y, int v, const C* w) {
    for (int j = 0; j < v; ++j) {
        column<D, kTwiddled && D == Direction::forward>(radix, x + j, y + j, v, v, w);
        if constexpr (kTwiddled && D == Direction::inverse)
            for (int m = 1; m < radix.f; ++m) y[m * v + j] = twiddled<D>(y[m * v + j], w[m]);
    }
}

template <Direction D, class T, Complex C = complex_t<T>>
VOR_INLINE inline void table_out_stage(const C* x, C* y, TableRadix<T> radix, int v, int block,
                                       const C* twiddle) {
    const int start = block * radix.f * v;
    if (block == 0)
        out_columns<D, false>(radix, x, y, v, twiddle);
    else
        out_columns<D, true>(radix, x + start, y + start, v, twiddle + block * radix.f);
}

template <int R, Direction D, Complex C>
VOR_INLINE inline void out_leaf(const C* x, C* y, int v) {
    for (int j = 0; j < v; ++j)
        column<R, D, false>(x + j, y + j, v, v, static_cast<const C*>(nullptr));
}

} // namespace
} // namespace vor::dft

#define STAGE(F, Dir, D, suffix, C)                                                                \
    extern "C" void tavs_cDftOutOrd##Dir##_Fact##F##_##suffix(                                     \
        const C* source, C* destination, int v, int first, int blocks, const C* twiddle) {         \
        vor::dft::out_stage<F, vor::dft::Direction::D>(source, destination, v, first, blocks,      \
                                                       twiddle);                                   \
    }
#define LEAF(R, Dir, D, suffix, C)                                                                 \
    extern "C" void tavs_cDftOutOrd##Dir##_Prime##R##_##suffix(const C* source, C* destination,    \
                                                               int v) {                            \
        vor::dft::out_leaf<R, vor::dft::Direction::D>(source, destination, v);                     \
    }
#define KERNELS(Dir, D, suffix, T, C)                                                              \
    STAGE(2, Dir, D, suffix, C)                                                                    \
    STAGE(3, Dir, D, suffix, C)                                                                    \
    STAGE(4, Dir, D, suffix, C)                                                                    \
    STAGE(5, Dir, D, suffix, C)                                                                    \
    extern "C" void tavs_cDftOutOrd##Dir##_Fact_##suffix(const C* source, C* destination, int f,   \
                                                         int v, int block, const C* table,         \
                                                         const C* twiddle, void* scratch) {        \
        const vor::dft::TableRadix<T> radix{f, table, scratch};                                    \
        vor::dft::table_out_stage<vor::dft::Direction::D>(source, destination, radix, v, block,    \
                                                          twiddle);                                \
    }                                                                                              \
    LEAF(3, Dir, D, suffix, C)                                                                     \
    LEAF(5, Dir, D, suffix, C)                                                                     \
    extern "C" void tavs_cDftOutOrd##Dir##_Prime_##suffix(const C* source, C* destination, int r,  \
                                                          int v, const C* table, void* scratch) {  \
        const vor::dft::TableRadix<T> radix{r, table, scratch};                                    \
        vor::dft::out_columns<vor::dft::Direction::D, false>(radix, source, destination, v,        \
                                                             static_cast<const C*>(nullptr));      \
    }
KERNELS(Fwd, forward, 32fc, float, vor::cfloat)
KERNELS(Inv, inverse, 32fc, float, vor::cfloat)
KERNELS(Fwd, forward, 64fc, double, vor::cdouble)
KERNELS(Inv, inverse, 64fc, double, vor::cdouble)
