// copy: y := x. With n < 1 nothing is read or written.
//
// Unit steps stream: stores go past the caches, and a fence behind the last one lets every later load
// see them. Elements are moved as 32-bit words there, so their bits stay what they are, and vectors of
// all types end up in one kernel. Other steps go through the x87 stack.
#include "blas/level1/engines.h"
#include "blas/level1/words.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using namespace vor;

// A block is fetched whole before it is copied, so that reads and writes reach the memory in long
// runs of one kind. One page: a block never needs more than two translations.
constexpr int kBlock = 4096 / sizeof(word);
constexpr int kStep = 32 / sizeof(word);

template <bool AlignedX>
inline void stream_step(const word* x, word* y) {
    const __m128 low = load_words<AlignedX>(x);
    const __m128 high = load_words<AlignedX>(x + kStep / 2);
    _mm_stream_ps(reinterpret_cast<float*>(y), low);
    _mm_stream_ps(reinterpret_cast<float*>(y + kStep / 2), high);
}

// y is a multiple of 32 bytes. Whole steps only; gives the number of words done.
template <bool AlignedX>
size_t stream(size_t words, const word* x, word* y) {
    size_t i = 0;
    for (; i + kBlock <= words; i += kBlock) {
        for (int k = 0; k < kBlock; k += kStep) prefetch_once(x + i + k);
        for (int k = 0; k < kBlock; k += kStep) stream_step<AlignedX>(x + i + k, y + i + k);
    }
    for (; i + kStep <= words; i += kStep) {
        prefetch_once(x + i, 128);
        stream_step<AlignedX>(x + i, y + i);
    }
    return i;
}

void copy_words(size_t words, const word* x, word* y) {
    for (; words > 0 && reinterpret_cast<uintptr_t>(y) % 32 != 0; --words) *y++ = *x++;
    size_t i = is_aligned16(x) ? stream<true>(words, x, y) : stream<false>(words, x, y);
    for (; i < words; ++i) y[i] = x[i];
}

template <class T>
void copy_strided(int n, const T* x, int incx, T* y, int incy) {
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    in_rounds<4>(
        n, [&] { prefetch_once(x + 4 * incx), prefetch_once(y + 4 * incy); },
        [&] {
            pop(pushed(*x), *y);
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
    _mm_sfence();
}

} // namespace

#define COPY(p, P, T)                                                                              \
    VOR_ENGINE void vor_blas_##p##copy PARAMS_COPY(T) {                                            \
        copy(*n, x, *incx, y, *incy);                                                              \
    }                                                                                              \
    VOR_ENTRY(void, p##copy, P##COPY, vor_blas_##p##copy, PARAMS_COPY(T), ARGS_COPY)
COPY(s, S, float)
COPY(d, D, double)
COPY(c, C, vor::cfloat)
COPY(z, Z, vor::cdouble)
