// Products of long limb arrays by real Fourier transforms.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

// r[0 .. an + bn) = a * b, r apart from both, an and bn at least 1. False, and r is as it was, if the
// memory for it cannot be had or the transform is refused.
[[nodiscard]] bool fourier_product(word* r, const word* a, int an, const word* b, int bn);

} // namespace vor::limb
