// Products of long limb arrays by Fourier transforms.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

#pragma GCC visibility push(hidden)
// r[0 .. an + bn) = a * b, r apart from both, an and bn at least 1. False, and r is as it was, if the
// memory for it cannot be had.
[[nodiscard]] bool fourier_product(word* r, const word* a, int an, const word* b, int bn);

// r = a * b modulo B^n + 1, n + 1 limbs that hold at most B^n, for an n of at least `least` (an and bn at
// most that, least at least 256); that n, below 3/2 least + 64, or 0 as above.
[[nodiscard]] int fourier_product_modulo(word* r, const word* a, int an, const word* b, int bn,
                                         int least);
#pragma GCC visibility pop

} // namespace vor::limb
