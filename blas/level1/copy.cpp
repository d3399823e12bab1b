// copy: y := x. With n < 1 nothing is read or written.
//
// Unit steps stream: stores go past the caches, and a fence behind the last one lets every later load
// see them. Elements are moved as 32-bit words there, so their bits stay what they are, and vectors of
// all types end up in one kernel. Other steps go through the x87 stack.
#include "blas/kernel/word_lanes.h"
#include "blas/level1/entry.h"
#include "blas/level1/vector.h"

namespace vor::blas {
namespace {

void copy_words(size_t words, const word* x, word* y) {
    for (; words > 0 && reinterpret_cast<uintptr_t>(y) % 32 != 0; --words) *y++ = *x++;
    size_t i = aligned(x) ? stream<true>(words, x, y) : stream<false>(words, x, y);
    for (; i < words; ++i) y[i] = x[i];
}

template <class T>
void copy_strided(int n, const T* x, int incx, T* y, int incy) {
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    in_rounds<4>(
        n, [&] { prefetch_once(x + 4 * incx), prefetch_once(y + 4 * incy); },
        [&] {
            *y = element<T>(factor<wide_t<T>>(*x));
            x += incx;
            y += incy;
        });
}

template <class T>
void copy(int n, const T* x, int incx, T* y, int incy) {
    if (n < 1) return;
    const bool reaches_boundary = reinterpret_cast<uintptr_t>(y) % sizeof(word) == 0;
    if (incx == 1 && incy == 1 && reaches_boundary)
        copy_words(size_t(n) * words_in<T>, reinterpret_cast<const word*>(x),
                   reinterpret_cast<word*>(y));
    else
        copy_strided(n, x, incx, y, incy);
    finish_stream();
}

} // namespace

#define COPY(name, NAME, engine, T)                                                                \
    LEVEL1(void, name, NAME, engine, PARAMS_COPY(T), ARGS_COPY, copy(*n, x, *incx, y, *incy))
COPY(scopy, SCOPY, vor_blas_scopy, float)
COPY(dcopy, DCOPY, vor_blas_dcopy, double)
COPY(ccopy, CCOPY, vor_blas_ccopy, cfloat)
COPY(zcopy, ZCOPY, vor_blas_zcopy, cdouble)

} // namespace vor::blas
