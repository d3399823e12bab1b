// Division of a magnitude by a word.
#pragma once

#include "gmp/integer.h"
#include "gmp/limb/kernel/divide_2_by_1.h"

namespace vor::gmp {

// q = floor(|n| / d); the remainder. d is not 0, q may be n, or null.
inline limb_t divide_magnitude(vor_mpz* q, const vor_mpz* n, limb_t d) {
    const int ns = value_size(n);
    limb_t* const limbs = q ? grow(q, ns) : nullptr;
    const limb_t rest = limb::divide_1(limbs, n->_mp_d, ns, d);
    if (q) finish(q, ns, false);
    return rest;
}

} // namespace vor::gmp
