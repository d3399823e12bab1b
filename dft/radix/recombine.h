// Recombination between the complex transform of n/2 pairs of reals and the spectrum of n reals in CCS, in
// place in n + 2 words; n is a power of two, 1 leaves everything as it is. Table: coefficients.h.
#pragma once

#include "signal/recombine.h"

namespace vor::dfti::radix {

template <Direction D, class C, class R>
void recombine_pairs(C* z, int n, const R* table) {
    // The table has no entry 0, and none is used.
    const auto* entries = reinterpret_cast<const C*>(table) - 1;
    if (n >= 4) signal::recombine<D, signal::Roots::halves>(z, z, n / 2, entries);
}

template <class R>
void recombine_forward(R* r, int n, const R* table) {
    if (n == 1) return;
    recombine_pairs<Direction::forward>(reinterpret_cast<complex_t<R>*>(r), n, table);
    const R even = r[0], odd = r[1];
    r[n] = even - odd;
    r[n + 1] = 0;
    r[0] = even + odd;
    r[1] = 0;
}

template <class R>
void recombine_backward(R* r, int n, const R* table) {
    if (n == 1) return;
    recombine_pairs<Direction::backward>(reinterpret_cast<complex_t<R>*>(r), n, table);
    const R first = r[0], last = r[n];
    r[0] = (first + last) / 2;
    r[1] = (first - last) / 2;
}

} // namespace vor::dfti::radix
