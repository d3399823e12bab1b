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

// v = floor((2^96 - 1) / (d1, d0)) - 2^32 for a d1 with its top bit set (the same, algorithm 6).
inline word inverse_of(word d1, word d0) {
    word v = inverse_of(d1), p = d1 * v + d0;
    if (p < d0) {
        --v;
        if (p >= d1) {
            --v;
            p -= d1;
        }
        p -= d1;
    }
    const dword t = dword{v} * d0;
    const word high = static_cast<word>(t >> 32);
    p += high;
    if (p < high) {
        --v;
        if ((dword{p} << 32 | static_cast<word>(t)) >= (dword{d1} << 32 | d0)) --v;
    }
    return v;
}

// (n2, n1, n0) by d = (d1, d0), with (n2, n1) < d and v the inverse of d; the remainder into *rest (the
// same, algorithm 5).
inline word divide_3_by_2(word n2, word n1, word n0, dword d, word v, dword* rest) {
    const word d1 = static_cast<word>(d >> 32), d0 = static_cast<word>(d);
    const dword estimate = dword{n2} * v + (dword{n2} << 32 | n1);
    word q = static_cast<word>(estimate >> 32);
    dword r = (dword{n1 - q * d1} << 32 | n0) - dword{q} * d0 - d;
    ++q;
    if (static_cast<word>(r >> 32) >= static_cast<word>(estimate)) {
        --q;
        r += d;
    }
    if (__builtin_expect(r >= d, 0)) {
        ++q;
        r -= d;
    }
    *rest = r;
    return q;
}

} // namespace vor::limb
