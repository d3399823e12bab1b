// The radix-4 butterfly on four complex numbers at a time.
#pragma once

#include "arith/lanes.h"

namespace vor::fft {

// Radix-4 butterfly of four groups in bit-reversed order: group 1 belongs to the sequence of offset 2.
// multiplied(i) gives group i times its twiddle, store(k, X) takes result k. In this order of the
// operations nothing but one value leaves the registers.
template <bool inverse, class Multiplied, class Store>
inline void butterfly(Multiplied multiplied, Store store) {
    const Four c = multiplied(2), d = multiplied(3);
    const Four t = held(c + d), v = held(c - d);
    const Four b = multiplied(1), a = multiplied(0);
    const Four s = a + b, u = a - b;
    store(0, s + t);
    store(2, s - t);
    store(1, plus_turned<inverse>(u, v));
    store(3, minus_turned<inverse>(u, v));
}

} // namespace vor::fft
