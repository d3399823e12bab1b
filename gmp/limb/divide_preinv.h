// Quotients of two and three limbs by a normalised divisor, with a precomputed inverse in place of the
// processor's division.
#pragma once

#include "gmp/limb/kernel/divide_2_by_1.h"

namespace vor::limb {

// v = floor((2^64 - 1) / d) - 2^32 for a d with its top bit set.
inline word inverse_of(word d) {
    if (d == word{1} << 31) return ~word{0};
    return divide_2_by_1(0 - d, 0, d).quotient;
}

// (nh, nl) by d, with nh < d and v the inverse of d (Moeller and Granlund, IEEE Transactions on
// Computers 60, 2011, algorithm 4): the first estimate is at most one too large or one too small,
// and the fraction of the estimate tells that it is too large without a second product.
inline QuotientRemainder divide_preinv(word nh, word nl, word d, word v) {
    const dword estimate = dword{nh} * v + (dword{nh} << 32 | nl);
    word q = static_cast<word>(estimate >> 32) + 1;
    word rest = nl - q * d;
    const word too_large = 0 - word{rest > static_cast<word>(estimate)};
    q += too_large;
    rest += too_large & d;
    if (__builtin_expect(rest >= d, 0)) {
        rest -= d;
        ++q;
    }
    return {q, rest};
}

// The quotient limb of three limbs by two, (t2, t1) <= (d1, d0), v the inverse of d1: exact for these
// limbs, and so for longer operands at most one too large.
inline word quotient_3_by_2(word t2, word t1, word t0, word d1, word d0, word v) {
    dword q;
    word rest;
    if (t2 < d1) {
        const QuotientRemainder step = divide_preinv(t2, t1, d1, v);
        q = step.quotient;
        rest = step.remainder;
    } else { // t2 = d1: the first estimate does not fit a limb, and is too large
        const bool one_more = t1 >= d1;
        q = (dword{1} << 32) + one_more;
        rest = one_more ? t1 - d1 : t1;
    }
    dword product = static_cast<word>(q) * dword{d0};
    while (q >> 32 || product > (dword{rest} << 32 | t0)) {
        --q;
        if (__builtin_add_overflow(rest, d1, &rest)) break;
        product = static_cast<word>(q) * dword{d0};
    }
    return static_cast<word>(q);
}

} // namespace vor::limb
