// Element types of the numerical families and the questions that all of them ask of an element.
//
// The namespace is inline: what stands on this floor is at home in every room of the library.
#pragma once

#include "vor_types.h"

#include <type_traits>

namespace vor {
inline namespace arith {

using cfloat = VOR_SCOMPLEX;  // type letter c
using cdouble = VOR_DCOMPLEX; // type letter z

// 64 significant bits, and an exponent range that holds the product of any two doubles.
using extended = long double;

template <class T>
inline constexpr bool is_complex = std::is_same_v<T, cfloat> || std::is_same_v<T, cdouble>;

template <class T>
struct RealOf {
    using type = T;
};
template <>
struct RealOf<cfloat> {
    using type = float;
};
template <>
struct RealOf<cdouble> {
    using type = double;
};
// The real type of the parts of T; T itself if it is real.
template <class T>
using real_t = typename RealOf<T>::type;

// The complex type whose parts are those of a real or complex element.
template <class T>
using complex_t = std::conditional_t<std::is_same_v<real_t<T>, float>, cfloat, cdouble>;

template <class T>
constexpr bool is_zero(T x) {
    if constexpr (is_complex<T>)
        return x.re == 0 && x.im == 0;
    else
        return x == 0;
}

// The same by the bits, the sign excluded: a subnormal number is none, also where the processor takes it for
// one.
template <class T>
inline bool has_zero_bits(const T& x) {
    if constexpr (is_complex<T>) {
        return has_zero_bits(x.re) && has_zero_bits(x.im);
    } else {
        using Word [[gnu::may_alias]] = unsigned;
        const Word* const words = reinterpret_cast<const Word*>(&x);
        unsigned any = words[sizeof(T) / sizeof(Word) - 1] << 1;
        if constexpr (sizeof(T) == 8) any |= words[0];
        return any == 0;
    }
}

template <class T>
constexpr bool is_one(T x) {
    if constexpr (is_complex<T>)
        return x.re == 1 && x.im == 0;
    else
        return x == 1;
}

// The element with real part x and, if it is complex, no imaginary one.
template <class T>
constexpr T real_element(real_t<T> x) {
    if constexpr (is_complex<T>)
        return {x, 0};
    else
        return x;
}

template <class T>
constexpr T conjugated(T x) {
    if constexpr (is_complex<T>)
        return {x.re, -x.im};
    else
        return x;
}

} // namespace arith
} // namespace vor
