// The six kinds of DFT object.
#pragma once

#include "signal/dft/context.h"
#include "signal/routines.h"

namespace vor::dft {

// E: the elements that the transforms take.
template <class E, unsigned identity, bool out_of_order = false>
struct Kind {
    using Real = real_t<E>;
    using Fft = signal::Routines<E>; // serves its powers of two
    static constexpr unsigned kIdentity = identity;
    static constexpr bool kReal = !is_complex<E>, kOutOfOrder = out_of_order;
};
using Complex32 = Kind<cfloat, 13>;
using Real32 = Kind<float, 15>;
using Complex64 = Kind<cdouble, 16>;
using Real64 = Kind<double, 18>;
using OutOfOrder32 = Kind<cfloat, 0x4C4D535E, true>;
using OutOfOrder64 = Kind<cdouble, 0x4C4D535F, true>;

} // namespace vor::dft
