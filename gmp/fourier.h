// Products of long limb arrays by real Fourier transforms.
#pragma once

#include "gmp/integer.h"

namespace vor::gmp {

// r[0 .. an + bn) = a * b, r apart from both, an and bn at least 1. False, and r is as it was, if the
// memory for it cannot be had or the transform is refused.
[[nodiscard]] bool fourier_product(limb_t* r, const limb_t* a, int an, const limb_t* b, int bn);

} // namespace vor::gmp
