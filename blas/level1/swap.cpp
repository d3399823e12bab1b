// swap: x and y exchange their elements. With n < 1 nothing is read or written.
//
// Unit steps exchange 32-bit words in 16-byte vectors; other steps go through the x87 stack.
#include "blas/kernel/word_lanes.h"
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

inline void swap_word(word* x, word* y) {
    const word kept = *x;
    *x = *y;
    *y = kept;
}

void swap_words(size_t words, word* x, word* y) {
    for (; words > 0 && reinterpret_cast<uintptr_t>(y) % 32 != 0; --words) swap_word(x++, y++);
    size_t i = aligned(x) ? swap_vectors<true>(words, x, y) : swap_vectors<false>(words, x, y);
    for (; i < words; ++i) swap_word(x + i, y + i);
}

template <class T>
void swap_strided(int n, T* x, int incx, T* y, int incy) {
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    in_rounds<4>(
        n, [&] { prefetch_once(x + 4 * incx), prefetch_once(y + 4 * incy); },
        [&] {
            const auto kept = factor<wide_t<T>>(*x);
            *x = element<T>(factor<wide_t<T>>(*y));
            *y = element<T>(kept);
            x += incx;
            y += incy;
        });
}

template <class T>
void swap(int n, T* x, int incx, T* y, int incy) {
    const bool reaches_boundary = reinterpret_cast<uintptr_t>(y) % sizeof(word) == 0;
    if (n < 1) return;
    if (incx != 1 || incy != 1 || !reaches_boundary) return swap_strided(n, x, incx, y, incy);
    swap_words(size_t(n) * words_in<T>, reinterpret_cast<word*>(x), reinterpret_cast<word*>(y));
}

} // namespace

#define SWAP(name, NAME, engine, T)                                                                \
    LEVEL1(void, name, NAME, engine, PARAMS_SWAP(T), ARGS_SWAP, swap(*n, x, *incx, y, *incy))
SWAP(sswap, SSWAP, vor_blas_sswap, float)
SWAP(dswap, DSWAP, vor_blas_dswap, double)
SWAP(cswap, CSWAP, vor_blas_cswap, cfloat)
SWAP(zswap, ZSWAP, vor_blas_zswap, cdouble)

} // namespace vor::blas
