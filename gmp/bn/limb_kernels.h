// The carry chains under all integer arithmetic: arrays of unsigned 32-bit words, the least
// significant first.
//
// n is at least 0, and with n = 0 the result is 0. r may be the same array as an operand of its own
// length, otherwise arrays do not overlap. The callee's arithmetic is exact: the returned word
// completes the result.
#pragma once

#include <stdint.h>

namespace vor::limb {

using word = uint32_t;
using dword = uint64_t;

#pragma GCC visibility push(hidden)
extern "C" {
word vor_limb_add_n(word* r, const word* a, const word* b, int n); // r = a + b, carry
word vor_limb_sub_n(word* r, const word* a, const word* b, int n); // r = a - b, borrow
word vor_limb_mul_1(word* r, const word* a, int n, word w);        // r = a * w, high word
word vor_limb_addmul_1(word* r, const word* a, int n, word w);     // r += a * w, carry word
word vor_limb_submul_1(word* r, const word* a, int n, word w);     // r -= a * w, borrow word
// r[0 .. an + bn) = a * b, and r += a * b where the top bn words of r are 0. an >= bn,
// 1 <= bn <= kMostColumns, no overlap.
void vor_limb_mul_columns(word* r, const word* a, int an, const word* b, int bn);
void vor_limb_addmul_columns(word* r, const word* a, int an, const word* b, int bn);
}
#pragma GCC visibility pop

inline constexpr auto add_n = vor_limb_add_n;
inline constexpr auto sub_n = vor_limb_sub_n;
inline constexpr auto mul_1 = vor_limb_mul_1;
inline constexpr auto addmul_1 = vor_limb_addmul_1;
inline constexpr auto submul_1 = vor_limb_submul_1;
inline constexpr auto mul_columns = vor_limb_mul_columns;
inline constexpr auto addmul_columns = vor_limb_addmul_columns;

inline constexpr int kMostColumns = 32;

} // namespace vor::limb
