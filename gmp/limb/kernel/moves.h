// Copies and fills of limb arrays, four limbs at a time.
#pragma once

#include "gmp/limb/word.h"

#include <xmmintrin.h>

namespace vor::limb {

inline __m128 load_four(const word* p) {
    return _mm_loadu_ps(reinterpret_cast<const float*>(p));
}

inline void store_four(word* p, __m128 four) {
    _mm_storeu_ps(reinterpret_cast<float*>(p), four);
}

// Ascending: r may begin below a.
inline void copy(word* r, const word* a, int n) {
    int i = 0;
    for (; i < n - 3; i += 4) store_four(r + i, load_four(a + i));
    for (; i < n; ++i) r[i] = a[i];
}

// Descending: r may begin above a.
inline void copy_down(word* r, const word* a, int n) {
    for (; n > 3; n -= 4) store_four(r + n - 4, load_four(a + n - 4));
    while (--n >= 0) r[n] = a[n];
}

// r = the complement of a: ascending.
inline void complement(word* r, const word* a, int n) {
    const word ones[4] = {~word{0}, ~word{0}, ~word{0}, ~word{0}};
    const __m128 all = load_four(ones);
    int i = 0;
    for (; i < n - 3; i += 4) store_four(r + i, _mm_xor_ps(load_four(a + i), all));
    for (; i < n; ++i) r[i] = ~a[i];
}

inline void fill(word* r, int n, word w) {
    for (int i = 0; i < n; ++i) r[i] = w;
}

} // namespace vor::limb
