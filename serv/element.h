// Element types of the numerical families and the little arithmetic that all of them share.
#pragma once

#include "vor_types.h"

#include <type_traits>

namespace vor {

using cfloat = VOR_SCOMPLEX;  // type letter c
using cdouble = VOR_DCOMPLEX; // type letter z

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

template <class T>
constexpr bool is_zero(T x) {
    if constexpr (is_complex<T>)
        return x.re == 0 && x.im == 0;
    else
        return x == 0;
}

} // namespace vor
