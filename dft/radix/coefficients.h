// The coefficient area of a transform of n = 2^k points: what a caller's wsave or a record's table holds.
//
//   word 0, word 1   n, 0
//   data             from the first 32-byte boundary above the area's start
//     k = 3                  four copies of cos(pi/4), in words 4 to 7
//     plain stages           (single precision, k from 11 to 15) for each L = n, n/2, .., 1024 the values
//                            W^m, m from 0 to L/2 - 1, in four-lane form, W = exp(-2 pi i / L)
//     twisted stages         (k above 15, double precision k above 9) the twiddles V, V^2, V^3 of block b for
//                            all b below n/4: V is exp(-2 pi i m / n), m the reverse of the k - 2 bits of b
//   list             of the bit reversal, n complex numbers behind the start of the data
//
// A block's twiddles do not depend on the stage: block b of any stage has those of position b. Single
// precision keeps them for four blocks at a time, each of the three in four-lane form.
//
// Shorter transforms have their tables in the program: single precision up to 2^10 the staged table of plain
// stages, double precision up to 2^9 the twisted one.
#pragma once

#include "arith/number.h"

#include <stdint.h>

namespace vor::dfti::radix {

template <class R>
inline constexpr bool kSingle = sizeof(R) == sizeof(float);

// Transforms up to this order run as one leaf, with tables of the program.
template <class R>
inline constexpr int kLeafOrder = kSingle<R> ? 10 : 9;
// Leaves inside a group.
inline constexpr int kGroupLeafOrder = 9;
// A group stays in the second-level cache from its first stage to its last.
template <class R>
inline constexpr int kGroupOrder = kSingle<R> ? 15 : 13;

// The data of an area, at the first 32-byte boundary above its start.
template <class R>
R* data_of(R* area) {
    constexpr uintptr_t kBoundary = 32;
    return reinterpret_cast<R*>((reinterpret_cast<uintptr_t>(area) & ~(kBoundary - 1)) + kBoundary);
}
template <class R>
const R* data_of(const R* area) {
    return data_of(const_cast<R*>(area));
}
template <class R>
int* list_of(R* data, int n) {
    return reinterpret_cast<int*>(data + 2 * n);
}
template <class R>
const int* list_of(const R* data, int n) {
    return list_of(const_cast<R*>(data), n);
}

// Where twiddle i (0 to 2) of block b stands in a twisted table: the real part; the imaginary part is
// kImaginary words behind it.
template <class R>
constexpr int twisted_place(int b, int i) {
    return kSingle<R> ? 24 * (b / 4) + 8 * i + b % 4 : 6 * b + 2 * i;
}
template <class R>
inline constexpr int kImaginary = kSingle<R> ? 4 : 1;

#pragma GCC visibility push(hidden)

// The twisted table of 2^9 points, hence of all shorter lengths, in double precision.
const double* program_twisted();
// The staged table in single precision, for L = 2^order, order from 4 to 10, and L/4, L/16, .. behind it: for
// k = 0, 4, .. below L/4, W^(k+j), W^(2(k+j)), W^(3(k+j)), j from 0 to 3, each in four-lane form.
const float* program_staged(int order);

// Fills the area of 2^k points.
template <class R>
void fill_coefficients(R* area, int k);
// The list of the bit reversal of n points, 32 and up. Others have none.
void fill_reversal(int* list, int n);
// The recombination table of n real values, 2 and up: entry i, from 1 to n/4 - 1, stands at words
// 2 (i - 1) and up and is (cos(2 pi i / n) / 2, (1 - sin(2 pi i / n)) / 2); word n/2 - 1 is n/2.
template <class R>
void fill_recombination(R* area, int n);

#pragma GCC visibility pop

} // namespace vor::dfti::radix
