// Products by columns, for a factor of up to 32 limbs.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

inline constexpr int kMostColumns = 32;

#pragma GCC visibility push(hidden)
extern "C" {
// r[0 .. an + bn) = a * b, and r += a * b where the top bn limbs of r are 0. an >= bn,
// 1 <= bn <= kMostColumns, no overlap.
void vor_limb_mul_columns(word* r, const word* a, int an, const word* b, int bn);
void vor_limb_addmul_columns(word* r, const word* a, int an, const word* b, int bn);
}
#pragma GCC visibility pop

inline constexpr auto mul_columns = vor_limb_mul_columns;
inline constexpr auto addmul_columns = vor_limb_addmul_columns;

} // namespace vor::limb
