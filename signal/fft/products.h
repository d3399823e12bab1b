// Products of complex numbers one by one.
#pragma once

#include "arith/number.h"

namespace vor::fft {

// y[i] := x[i] y[i], or x[i] conj(y[i]).
template <bool conjugate, class C>
inline void multiply_each(const C* x, C* y, int count) {
    for (int i = 0; i < count; ++i) y[i] = product<conjugate>(y[i], x[i]);
}

} // namespace vor::fft
