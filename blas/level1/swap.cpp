// swap: x and y exchange their elements. With n < 1 nothing is read or written.
//
// Unit steps exchange 32-bit words in 16-byte vectors; other steps go through the x87 stack.
#include "blas/level1/engines.h"
#include "blas/level1/words.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using namespace vor;

constexpr int kRound = 64 / sizeof(word);

inline void swap_word(word* x, word* y) {
    const word kept = *x;
    *x = *y;
    *y = kept;
}

// y is a multiple of 32 bytes. Whole rounds only; gives the number of words done.
template <bool AlignedX>
size_t swap_vectors(size_t words, word* x, word* y) {
    size_t i = 0;
    for (; i + kRound <= words; i += kRound) {
        prefetch_once(x + i, 128), prefetch_once(x + i, 160);
        prefetch_once(y + i, 128), prefetch_once(y + i, 160);
#pragma GCC unroll 4
        for (size_t k = i; k < i + kRound; k += 4) {
            const __m128 kept = load_words<AlignedX>(x + k);
            store<AlignedX>(reinterpret_cast<float*>(x + k), load_words<true>(y + k));
            store<true>(reinterpret_cast<float*>(y + k), kept);
        }
    }
    return i;
}

void swap_words(size_t words, word* x, word* y) {
    for (; words > 0 && reinterpret_cast<uintptr_t>(y) % 32 != 0; --words) swap_word(x++, y++);
    size_t i = is_aligned16(x) ? swap_vectors<true>(words, x, y) : swap_vectors<false>(words, x, y);
    for (; i < words; ++i) swap_word(x + i, y + i);
}

template <class T>
void swap_strided(int n, T* x, int incx, T* y, int incy) {
    x = walk_start(x, n, incx);
    y = walk_start(y, n, incy);
    in_rounds<4>(
        n, [&] { prefetch_once(x + 4 * incx), prefetch_once(y + 4 * incy); },
        [&] {
            const auto kept = pushed(*x);
            pop(pushed(*y), *x);
            pop(kept, *y);
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

#define SWAP(p, P, T)                                                                              \
    VOR_ENGINE void vor_blas_##p##swap PARAMS_SWAP(T) {                                            \
        swap(*n, x, *incx, y, *incy);                                                              \
    }                                                                                              \
    VOR_ENTRY(void, p##swap, P##SWAP, vor_blas_##p##swap, PARAMS_SWAP(T), ARGS_SWAP)
SWAP(s, S, float)
SWAP(d, D, double)
SWAP(c, C, vor::cfloat)
SWAP(z, Z, vor::cdouble)
