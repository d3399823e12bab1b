// Hints that a line of the cache is wanted soon. They do not fault: p may point anywhere. Inlined in
// any case: the compiler drops calls of a function that only prefetches, since it counts as without effect.
#pragma once

#include <xmmintrin.h>

namespace vor {
inline namespace arith {

// The line `bytes` behind p, into all caches.
template <class T>
[[gnu::always_inline]] inline void prefetch(const T* p, int bytes = 0) {
    _mm_prefetch(reinterpret_cast<const char*>(p) + bytes, _MM_HINT_T0);
}
// Data that will not be used again.
template <class T>
[[gnu::always_inline]] inline void prefetch_once(const T* p, int bytes = 0) {
    _mm_prefetch(reinterpret_cast<const char*>(p) + bytes, _MM_HINT_NTA);
}

} // namespace arith
} // namespace vor
