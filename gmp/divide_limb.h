// Division by one limb with a precomputed inverse in place of the processor's division.
#pragma once

#include "gmp/bn/divide_word.h"
#include "gmp/integer.h"

namespace vor::gmp {

// v = floor((2^64 - 1) / d) - 2^32 for a d with its top bit set.
inline limb_t inverse_of(limb_t d) {
    if (d == limb_t{1} << 31) return ~limb_t{0};
    return bn::divide_2_by_1(0 - d, 0, d).quotient;
}

// (nh, nl) by d, with nh < d and v the inverse of d (Moeller and Granlund, IEEE Transactions on
// Computers 60, 2011, tell this family of methods). q = nh + floor(nh v / 2^32) is at most the
// quotient and at least the quotient - 2.
inline bn::QuotientRemainder divide_preinv(limb_t nh, limb_t nl, limb_t d, limb_t v) {
    limb_t q = static_cast<limb_t>(dlimb_t{nh} * v >> 32) + nh;
    dlimb_t rest = (dlimb_t{nh} << 32 | nl) - dlimb_t{q} * d;
    while (rest >= d) {
        rest -= d;
        ++q;
    }
    return {q, static_cast<limb_t>(rest)};
}

// Divides as by zero on the processor: SIGFPE.
[[noreturn]] inline void divide_by_zero() {
    limb_t quotient, rest;
    for (;;) asm volatile("divl %[d]" : "=a"(quotient), "=d"(rest) : "0"(1), "1"(0), [d] "r"(0));
}

} // namespace vor::gmp
