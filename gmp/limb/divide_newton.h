// Division of long limb arrays by an inverse.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

#pragma GCC visibility push(hidden)
// x, n + 1 limbs, within some units of B^2n / e, for a normalised e of n limbs. False without memory for
// transforms.
[[nodiscard]] bool inverse(word* x, const word* e, int n);
// The quotient of w, 2n limbs of which the upper n are below e, by e: n limbs into q, the remainder into
// the low n limbs of w. False, and w is as it was, without memory for transforms.
[[nodiscard]] bool divide_by_inverse(word* q, word* w, const word* e, int n, const word* x);
#pragma GCC visibility pop

} // namespace vor::limb
