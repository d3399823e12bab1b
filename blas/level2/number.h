// The arithmetic of Level 2: the types in which sums run, and moves between them and the elements.
//
//   wide_t<T>   80-bit extended for every element type, on the x87 unit
//   work_t<T>   extended for double; single precision, rounded at every operation, for float
#pragma once

#include "serv/element.h"
#include "serv/x87.h"

#include <type_traits>

namespace vor {

// A complex number with parts of type R.
template <class R>
struct Pair {
    R re, im;
};

template <class R>
constexpr Pair<R> operator+(Pair<R> x, Pair<R> y) {
    return {x.re + y.re, x.im + y.im};
}
template <class R>
constexpr Pair<R> operator-(Pair<R> x, Pair<R> y) {
    return {x.re - y.re, x.im - y.im};
}
template <class R>
constexpr Pair<R> operator*(Pair<R> x, Pair<R> y) {
    return {x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
}
template <class R>
constexpr Pair<R> operator*(Pair<R> x, std::type_identity_t<R> y) {
    return {x.re * y, x.im * y};
}
template <class V>
constexpr V& operator+=(V& x, V y) {
    return x = x + y;
}

template <class T>
using wide_t = std::conditional_t<is_complex<T>, Pair<long double>, long double>;
template <class T>
using work_real_t = std::conditional_t<std::is_same_v<real_t<T>, float>, float, long double>;
template <class T>
using work_t = std::conditional_t<is_complex<T>, Pair<work_real_t<T>>, work_real_t<T>>;

// An element as a number of type V.
template <class V, class T>
constexpr V number(T x) {
    if constexpr (is_complex<T>) {
        return {x.re, x.im};
    } else {
        return V{x};
    }
}

// The same for one factor of a product whose other one stays.
template <class V, class T>
V factor(const T& x) {
    if constexpr (is_complex<T>) {
        using R = decltype(V::re);
        return {factor<R>(x.re), factor<R>(x.im)};
    } else if constexpr (std::is_same_v<V, long double>) {
        return loaded(x);
    } else {
        return x;
    }
}

// a * x or conj(a) * x
template <bool conjugate, class R>
constexpr Pair<R> product(Pair<R> a, Pair<R> x) {
    if constexpr (conjugate)
        return {a.re * x.re + a.im * x.im, a.re * x.im - a.im * x.re};
    else
        return a * x;
}
template <bool conjugate, class R>
requires std::is_floating_point_v<R>
constexpr R product(R a, R x) {
    return a * x;
}

// A number rounded to an element.
template <class T, class V>
constexpr T element(V x) {
    if constexpr (is_complex<T>)
        return {static_cast<real_t<T>>(x.re), static_cast<real_t<T>>(x.im)};
    else
        return static_cast<T>(x);
}

template <class T>
constexpr bool is_one(T x) {
    if constexpr (is_complex<T>)
        return x.re == 1 && x.im == 0;
    else
        return x == 1;
}

template <class T>
constexpr T conjugated(T x) {
    if constexpr (is_complex<T>)
        return {x.re, -x.im};
    else
        return x;
}

} // namespace vor
