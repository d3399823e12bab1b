// Products of equal lengths by Karatsuba's method (Karatsuba and Ofman, Doklady Akademii Nauk SSSR 145,
// 1962).
#include "gmp/limb/kernel/fixed_product.h"
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "gmp/thresholds.h"

namespace vor::limb {

namespace {

constexpr int kLocalHalf = 64; // limbs of the longest half whose scratch lives on the stack

// s = x1 + x0, with x = (x0, x1) of l and m limbs, m = l or l + 1; the carry.
word sum_of_halves(word* s, const word* x, int l, int m) {
    word carry = add_n(s, x + l, x, l);
    if (m > l) carry = __builtin_add_overflow(x[l + l], carry, &s[l]);
    return carry;
}

// p -= x, p of np limbs, x of nx; the borrow.
word subtract(word* p, int np, const word* x, int nx) {
    return decrement(p + nx, np - nx, sub_n(p, p, x, nx));
}

// With a = a0 + a1 B^l, b = b0 + b1 B^l:
//     a b = a0 b0 + (S T - a0 b0 - a1 b1) B^l + a1 b1 B^(2l),   S = a0 + a1, T = b0 + b1
// S and T have m limbs and a carry each; `high` counts what S T and the differences have in limb 2m.
void by_halves(word* r, const word* a, const word* b, int n, word* scratch) {
    const int l = n / 2, m = n - l;
    word *const s = scratch, *const t = s + m, *const p = t + m;
    const word ca = sum_of_halves(s, a, l, m), cb = sum_of_halves(t, b, l, m);
    word high = ca & cb;
    multiply_n(p, s, t, m);
    if (ca) high += add_n(p + m, p + m, t, m);
    if (cb) high += add_n(p + m, p + m, s, m);
    multiply_n(r, a, b, l);
    multiply_n(r + 2 * l, a + l, b + l, m);
    high -= subtract(p, 2 * m, r, 2 * l);
    high -= subtract(p, 2 * m, r + 2 * l, 2 * m);
    high += add_n(r + l, r + l, p, 2 * m);
    // Added even if it is 0, which no processor foresees. It ends within r, as the product does.
    word* const above = r + l + 2 * m;
    if (__builtin_add_overflow(*above, high, above)) increment(above + 1, l - 1, 1);
}

// a^2 = a0^2 + (a0^2 + a1^2 - (a1 - a0)^2) B^l + a1^2 B^(2l), a1 - a0 as a magnitude.
void square_by_halves(word* r, const word* a, int n, word* scratch) {
    const int l = n / 2, m = n - l;
    word *const d = scratch, *const p = d + m;
    const word* const a1 = a + l;
    if ((m > l && a1[l]) || compare(a1, a, l) >= 0)
        sub(d, a1, m, a, l);
    else
        sub(d, a, l, a1, l), clear(d + l, m - l);
    square(p, d, m);
    square(r, a, l);
    square(r + 2 * l, a1, m);
    // The middle term, 2m limbs and one above.
    word high = 0 - sub_n(p, r + 2 * l, p, 2 * m);
    high += increment(p + 2 * l, 2 * (m - l), add_n(p, p, r, 2 * l));
    high += add_n(r + l, r + l, p, 2 * m);
    word* const above = r + l + 2 * m;
    if (__builtin_add_overflow(*above, high, above)) increment(above + 1, l - 1, 1);
}

} // namespace

void square_karatsuba(word* r, const word* a, int n) {
    if (n < gmp::kKaratsubaSquare) return square_basecase(r, a, n);
    const int half = n - n / 2;
    Limbs<3 * kLocalHalf> scratch(uint64_t{3} * half);
    square_by_halves(r, a, n, scratch);
}

void multiply_karatsuba(word* r, const word* a, const word* b, int n) {
    using gmp::kSchoolbookLength;
    if (n == kSchoolbookLength) return mul_fixed<kSchoolbookLength>(r, a, b);
    if (n < kSchoolbookLength) return mul_basecase(r, a, n, b, n);
    const int half = n - n / 2;
    Limbs<4 * kLocalHalf> scratch(uint64_t{4} * half);
    by_halves(r, a, b, n, scratch);
}

} // namespace vor::limb
