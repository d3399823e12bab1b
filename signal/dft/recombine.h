// Recombination of even real lengths N = 2n: between the spectrum in Perm order, n complex elements, and
// the transform of the n complex numbers (x[2m], x[2m+1]).
#pragma once

#include "signal/recombine.h"

namespace vor::dft {

// Source and destination may be the same.
template <Direction D, Parted C>
void recombine(const C* x, C* z, int n, const C* table) {
    using signal::Roots;
    z[0] = {x[0].re + x[0].im, x[0].re - x[0].im};
    signal::recombine<D, D == Direction::forward ? Roots::halves : Roots::whole>(x, z, n, table);
}

} // namespace vor::dft
