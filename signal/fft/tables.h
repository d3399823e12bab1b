// Tables of an FFT object. All twiddles are read out of one base table of sines by the symmetry of
// the circle, none is computed by recurrence.
#pragma once

#include "signal/fft/context.h"

namespace vor::fft {

// x with its `bits` low bits in reverse order; the others must be 0.
constexpr unsigned reverse_bits(unsigned x, int bits) {
    x = (x >> 1 & 0x55555555) | (x & 0x55555555) << 1;
    x = (x >> 2 & 0x33333333) | (x & 0x33333333) << 2;
    x = (x >> 4 & 0x0f0f0f0f) | (x & 0x0f0f0f0f) << 4;
    return bits ? __builtin_bswap32(x) >> (32 - bits) : 0;
}

// Gives `object`, of the kind and order that stand in it, the tables of a complex engine of order m,
// bufSize, and for a real kind the recombination tables. False if memory fails: what was built by
// then belongs to the object.
template <class R>
bool build_tables(Context<R>& object, int m, bool real);

} // namespace vor::fft
