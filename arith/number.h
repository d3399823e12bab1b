// Numbers: complex arithmetic, written once for elements, for extended precision and for lanes; the types
// in which sums run; the moves between them and the elements.
//
//   wide_t<T>   80-bit extended for every element type, on the x87 unit
//   work_t<T>   extended for double; single precision, rounded at every operation, for float
//
// Parts of type double and long double live on the x87 stack: an operation rounds to 64 bits, and a result
// is rounded to its type where it is stored.
#pragma once

#include "arith/element.h"
#include "arith/x87.h"

namespace vor {
inline namespace arith {

// |x| in the precision that x has on the unit that calculates with it.
inline float magnitude(float x) {
    return __builtin_fabsf(x);
}
inline extended magnitude(double x) {
    return __builtin_fabsl(x);
}
inline extended magnitude(extended x) {
    return __builtin_fabsl(x);
}

// A complex number with parts of type R.
template <class R>
struct Complex {
    R re, im;
};
using cextended = Complex<extended>;

template <class R>
struct RealOf<Complex<R>> {
    using type = R;
};

// What has a real and an imaginary part: complex elements, Complex<R>, four of them in lanes.
template <class C>
concept Parted = requires(C x) {
    x.re;
    x.im;
};

template <Parted C>
constexpr C operator+(C x, C y) {
    return {x.re + y.re, x.im + y.im};
}
template <Parted C>
constexpr C operator-(C x, C y) {
    return {x.re - y.re, x.im - y.im};
}
template <Parted C>
constexpr C operator*(C x, C y) {
    return {x.re * y.re - x.im * y.im, x.re * y.im + x.im * y.re};
}
template <Parted C>
constexpr C operator*(C x, std::type_identity_t<real_t<C>> factor) {
    return {x.re * factor, x.im * factor};
}
template <Parted C>
constexpr C operator*(std::type_identity_t<real_t<C>> factor, C x) {
    return {factor * x.re, factor * x.im};
}
template <Parted C>
constexpr C& operator+=(C& x, C y) {
    return x = x + y;
}

template <Parted C>
constexpr C conj(C x) {
    return {x.re, -x.im};
}

// a * x or conj(a) * x
template <bool conjugate, Parted C>
constexpr C product(C a, C x) {
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

template <class T>
using wide_t = std::conditional_t<is_complex<T>, cextended, extended>;
template <class T>
using work_real_t = std::conditional_t<std::is_same_v<real_t<T>, float>, float, extended>;
template <class T>
using work_t = std::conditional_t<is_complex<T>, Complex<work_real_t<T>>, work_real_t<T>>;

// An element as a number of type V.
template <class V, class T>
constexpr V number(T x) {
    if constexpr (is_complex<T>) {
        return {x.re, x.im};
    } else {
        return V{x};
    }
}
template <class T>
constexpr wide_t<T> widen(T x) {
    return number<wide_t<T>>(x);
}

// The same for one factor of a product whose other one stays.
template <class V, class T>
V factor(const T& x) {
    if constexpr (is_complex<T>) {
        using R = decltype(V::re);
        return {factor<R>(x.re), factor<R>(x.im)};
    } else if constexpr (std::is_same_v<V, extended>) {
        return loaded(x);
    } else {
        return x;
    }
}

// A number rounded to an element.
template <class T, class V>
constexpr T element(V x) {
    if constexpr (is_complex<T>)
        return {static_cast<real_t<T>>(x.re), static_cast<real_t<T>>(x.im)};
    else
        return static_cast<T>(x);
}

// A number rounded to another kind of number.
template <class V, class W>
constexpr V rounded(W x) {
    if constexpr (Parted<V>) {
        using R = real_t<V>;
        return {static_cast<R>(x.re), static_cast<R>(x.im)};
    } else {
        return static_cast<V>(x);
    }
}

} // namespace arith
} // namespace vor
