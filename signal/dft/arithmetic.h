// Complex arithmetic of the DFT kernels, and the direction of a transform.
#pragma once

#include "serv/element.h"
#include "signal/fft/lanes.h"

namespace vor {

template <>
struct RealOf<fft::Four> {
    using type = float;
};

namespace dft {

// Forward: W = exp(-2 pi i / n). The tables hold W; the inverse conjugates what it reads.
enum class Direction { forward, inverse };

template <class T>
struct ComplexOf;
template <>
struct ComplexOf<float> {
    using type = cfloat;
};
template <>
struct ComplexOf<double> {
    using type = cdouble;
};
// The complex type of a real or complex element.
template <class E>
using complex_t = typename ComplexOf<real_t<E>>::type;

using fft::Four; // one value of four columns each

template <class C>
concept Complex = is_complex<C> || std::is_same_v<C, Four>;

template <Complex C>
inline C operator+(C a, C b) {
    return {a.re + b.re, a.im + b.im};
}

template <Complex C>
inline C operator-(C a, C b) {
    return {a.re - b.re, a.im - b.im};
}

template <Complex C>
inline C operator*(real_t<C> factor, C a) {
    return {factor * a.re, factor * a.im};
}

template <Complex C>
inline C operator*(C a, C b) {
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}

template <Complex C>
inline C conj(C a) {
    return {a.re, -a.im};
}

// a times w, or times the conjugate of w in the inverse direction.
template <Direction D, Complex C>
inline C twiddled(C a, C w) {
    if constexpr (D == Direction::forward)
        return a * w;
    else
        return {a.re * w.re + a.im * w.im, a.im * w.re - a.re * w.im};
}

} // namespace dft
} // namespace vor
