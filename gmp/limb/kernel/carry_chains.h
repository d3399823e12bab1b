// The carry chains under all integer arithmetic. The returned limb completes the result; contracts as in
// limb.h. r may be an operand.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

#pragma GCC visibility push(hidden)
extern "C" {
word vor_limb_add_n(word* r, const word* a, const word* b, int n); // r = a + b, carry
word vor_limb_sub_n(word* r, const word* a, const word* b, int n); // r = a - b, borrow
word vor_limb_mul_1(word* r, const word* a, int n, word w);        // r = a * w, high limb
word vor_limb_addmul_1(word* r, const word* a, int n, word w);     // r += a * w, carry limb
word vor_limb_submul_1(word* r, const word* a, int n, word w);     // r -= a * w, borrow limb
}
#pragma GCC visibility pop

inline constexpr auto add_n = vor_limb_add_n;
inline constexpr auto sub_n = vor_limb_sub_n;
inline constexpr auto mul_1 = vor_limb_mul_1;
inline constexpr auto addmul_1 = vor_limb_addmul_1;
inline constexpr auto submul_1 = vor_limb_submul_1;

} // namespace vor::limb
