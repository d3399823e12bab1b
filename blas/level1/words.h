// Vectors as 32-bit words, and single elements through the x87 stack: for routines that move elements
// and do not calculate.
#pragma once

#include "blas/level1/vector.h"

namespace vor {

// Reads and writes the bits of any element.
using word = uint32_t __attribute__((may_alias));

template <class T>
inline constexpr int words_in = sizeof(T) / sizeof(word);

// Four words each, moved as they are.
template <bool Aligned>
inline __m128 load_words(const word* p) {
    return load<Aligned>(reinterpret_cast<const float*>(p));
}

// A complex element through the x87 stack.
inline cextended pushed(const cfloat& x) {
    return {pushed(x.re), pushed(x.im)};
}
inline cextended pushed(const cdouble& x) {
    return {pushed(x.re), pushed(x.im)};
}

template <class T>
inline void pop(extended value, T& x) {
    x = static_cast<T>(value);
}
template <class T>
inline void pop(const cextended& value, T& x) {
    pop(value.re, x.re);
    pop(value.im, x.im);
}

} // namespace vor
