// Vectors as 32-bit words, moved 16 bytes at a time by copy and swap, which do not calculate: the bits stay
// what they are, and vectors of all types end up in one kernel.
#pragma once

#include "arith/lanes.h"
#include "arith/prefetch.h"

#include <stddef.h>

namespace vor::blas {

// Reads and writes the bits of any element.
using word = uint32_t __attribute__((may_alias));

template <class T>
inline constexpr int words_in = sizeof(T) / sizeof(word);

// Four words.
template <bool Aligned>
inline __m128 load_words(const word* p) {
    return load<Aligned>(reinterpret_cast<const float*>(p));
}

// A block is fetched whole before it is copied, so that reads and writes reach the memory in long
// runs of one kind. One page: a block never needs more than two translations.
inline constexpr int kStreamBlock = 4096 / sizeof(word);
inline constexpr int kStreamStep = 32 / sizeof(word);

template <bool AlignedX>
inline void stream_step(const word* x, word* y) {
    const __m128 low = load_words<AlignedX>(x);
    const __m128 high = load_words<AlignedX>(x + kStreamStep / 2);
    _mm_stream_ps(reinterpret_cast<float*>(y), low);
    _mm_stream_ps(reinterpret_cast<float*>(y + kStreamStep / 2), high);
}

// y is a multiple of 32 bytes. Whole steps only; gives the number of words done.
template <bool AlignedX>
size_t stream(size_t words, const word* x, word* y) {
    size_t i = 0;
    for (; i + kStreamBlock <= words; i += kStreamBlock) {
        for (int k = 0; k < kStreamBlock; k += kStreamStep) prefetch_once(x + i + k);
        for (int k = 0; k < kStreamBlock; k += kStreamStep)
            stream_step<AlignedX>(x + i + k, y + i + k);
    }
    for (; i + kStreamStep <= words; i += kStreamStep) {
        prefetch_once(x + i, 128);
        stream_step<AlignedX>(x + i, y + i);
    }
    return i;
}

// Behind the last store of a stream: every later load sees what was stored.
inline void finish_stream() {
    _mm_sfence();
}

// y is a multiple of 32 bytes. Whole rounds only; gives the number of words done.
template <bool AlignedX>
size_t swap_vectors(size_t words, word* x, word* y) {
    constexpr int kRound = 64 / sizeof(word);
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

} // namespace vor::blas
