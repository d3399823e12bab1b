// The six kinds of DFT object, each with the FFT calls that serve its powers of two.
#pragma once

#include "signal/dft/context.h"

namespace vor::dft {

#define VOR_DFT_KIND(Kind, T, identity, kind, real, out_of_order)                                  \
    struct Kind {                                                                                  \
        using Real = T;                                                                            \
        static constexpr unsigned kIdentity = identity;                                            \
        static constexpr bool kReal = real, kOutOfOrder = out_of_order;                            \
        static constexpr auto fft_init = tavsFFTInitAlloc_##kind;                                  \
        static constexpr auto fft_free = tavsFFTFree_##kind;                                       \
        static constexpr auto fft_buffer = tavsFFTGetBufSize_##kind;                               \
    };
VOR_DFT_KIND(Complex32, float, 13, C_32fc, false, false)
VOR_DFT_KIND(Real32, float, 15, R_32f, true, false)
VOR_DFT_KIND(Complex64, double, 16, C_64fc, false, false)
VOR_DFT_KIND(Real64, double, 18, R_64f, true, false)
VOR_DFT_KIND(OutOfOrder32, float, 0x4C4D535E, C_32fc, false, true)
VOR_DFT_KIND(OutOfOrder64, double, 0x4C4D535F, C_64fc, false, true)

} // namespace vor::dft
