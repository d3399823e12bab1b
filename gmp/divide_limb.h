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
// Computers 60, 2011, algorithm 4): the first estimate is at most one too large or one too small,
// and the fraction of the estimate tells that it is too large without a second product.
inline bn::QuotientRemainder divide_preinv(limb_t nh, limb_t nl, limb_t d, limb_t v) {
    const dlimb_t estimate = dlimb_t{nh} * v + (dlimb_t{nh} << 32 | nl);
    limb_t q = static_cast<limb_t>(estimate >> 32) + 1;
    limb_t rest = nl - q * d;
    const limb_t too_large = 0 - limb_t{rest > static_cast<limb_t>(estimate)};
    q += too_large;
    rest += too_large & d;
    if (__builtin_expect(rest >= d, 0)) {
        rest -= d;
        ++q;
    }
    return {q, rest};
}

// q = floor(|n| / d); the remainder. d is not 0, q may be n, or null.
inline limb_t divide_magnitude(vor_mpz* q, const vor_mpz* n, limb_t d, const char* function) {
    const int ns = value_size(n);
    if (!q) return ns ? vor_gmp_mpn_mod_1(n->_mp_d, ns, d) : 0;
    limb_t* const limbs = grow(q, ns, function);
    const limb_t rest = ns ? vor_gmp_mpn_divmod_1(limbs, n->_mp_d, ns, d) : 0;
    finish(q, ns, false);
    return rest;
}

// Divides as by zero on the processor: SIGFPE.
[[noreturn]] inline void divide_by_zero() {
    limb_t quotient, rest;
    for (;;) asm volatile("divl %[d]" : "=a"(quotient), "=d"(rest) : "0"(1), "1"(0), [d] "r"(0));
}

} // namespace vor::gmp
