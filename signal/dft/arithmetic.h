// Complex arithmetic of the DFT kernels.
#pragma once

#include "arith/lanes.h"
#include "signal/direction.h"

namespace vor::dft {

// a times w, or times the conjugate of w in the backward direction.
template <Direction D, Parted C>
inline C twiddled(C a, C w) {
    if constexpr (D == Direction::forward)
        return a * w;
    else
        return {a.re * w.re + a.im * w.im, a.im * w.re - a.re * w.im};
}

} // namespace vor::dft
