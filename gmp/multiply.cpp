// The product of limb arrays by a ladder of methods: schoolbook, Karatsuba's, Fourier transforms.
#include "gmp/bn/fixed_product.h"
#include "gmp/fourier.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kLocalHalf = 64; // limbs of the longest half whose scratch lives on the stack

// s = x1 + x0, with x = (x0, x1) of l and m limbs, m = l or l + 1; the carry.
limb_t sum_of_halves(limb_t* s, const limb_t* x, int l, int m) {
    limb_t carry = limb::add_n(s, x + l, x, l);
    if (m > l) carry = __builtin_add_overflow(x[l + l], carry, &s[l]);
    return carry;
}

// p -= x, p of np limbs, x of nx; the borrow.
limb_t subtract(limb_t* p, int np, const limb_t* x, int nx) {
    return bn::sub_1(p + nx, np - nx, limb::sub_n(p, p, x, nx));
}

// With a = a0 + a1 B^l, b = b0 + b1 B^l (Karatsuba and Ofman, Doklady Akademii Nauk SSSR 145, 1962):
//     a b = a0 b0 + (S T - a0 b0 - a1 b1) B^l + a1 b1 B^(2l),   S = a0 + a1, T = b0 + b1
// S and T have m limbs and a carry each; `high` counts what S T and the differences have in limb 2m.
void multiply(limb_t* r, const limb_t* a, const limb_t* b, int n);

void karatsuba(limb_t* r, const limb_t* a, const limb_t* b, int n, limb_t* scratch) {
    const int l = n / 2, m = n - l;
    limb_t *const s = scratch, *const t = s + m, *const p = t + m;
    const limb_t ca = sum_of_halves(s, a, l, m), cb = sum_of_halves(t, b, l, m);
    limb_t high = ca & cb;
    multiply(p, s, t, m);
    if (ca) high += limb::add_n(p + m, p + m, t, m);
    if (cb) high += limb::add_n(p + m, p + m, s, m);
    multiply(r, a, b, l);
    multiply(r + 2 * l, a + l, b + l, m);
    high -= subtract(p, 2 * m, r, 2 * l);
    high -= subtract(p, 2 * m, r + 2 * l, 2 * m);
    high += limb::add_n(r + l, r + l, p, 2 * m);
    // For n = 3 and such the middle term ends below the top of r, and fits: high is 0 there.
    if (high) vor_gmp_mpn_incr_u(r + l + 2 * m, high);
}

void multiply(limb_t* r, const limb_t* a, const limb_t* b, int n) {
    if (n == kSchoolbookLength) return limb::mul_fixed<kSchoolbookLength>(r, a, b);
    if (n < kSchoolbookLength) return cpMul_BNU_FullSize(a, n, b, n, r);
    const int half = n - n / 2;
    Limbs<4 * kLocalHalf> scratch(uint64_t{4} * half, "vor_gmp_mul_n_kara");
    karatsuba(r, a, b, n, scratch);
}

} // namespace

VOR_ENGINE void vor_gmp_vor_gmp_mul_n_kara PARAMS_KARATSUBA {
    if (n > 0) multiply(r, a, b, n);
}

VOR_ENGINE void vor_gmp___gmpn_mul_n PARAMS_LIMBS2 {
    if (n <= 0) return;
    if (n < kFourierLength || !fourier_product(r, a, n, b, n)) multiply(r, a, b, n);
}

// Without transforms the ladder serves, which comes back here with equal lengths only.
VOR_ENGINE void vor_gmp_vor_gmp_mul_dft PARAMS_FOURIER {
    const int longer = an > bn ? an : bn, shorter = an > bn ? bn : an;
    clear_limbs(r, 2 * longer);
    if (shorter <= 0 || fourier_product(r, a, an, b, bn)) return;
    if (an == bn) return multiply(r, a, b, an);
    if (an > bn)
        vor_gmp___gmpn_mul(r, a, an, b, bn);
    else
        vor_gmp___gmpn_mul(r, b, bn, a, an);
}

// A longer operand is cut into pieces as long as the shorter one. The products of the even pieces
// do not overlap and go into r, those of the odd ones into scratch; one addition joins them.
VOR_ENGINE void vor_gmp___gmpn_mul PARAMS_PRODUCT {
    if (bn == 0) return clear_limbs(r, an);
    if (an + bn <= kSchoolbookSum) return cpMul_BNU_FullSize(a, an, b, bn, r);
    if (an == bn) return vor_gmp___gmpn_mul_n(r, a, b, an);
    const int whole = (an - 1) / bn; // pieces
    const int rest = an - whole * bn;
    Limbs<0> odd(an);
    for (int j = 0; j < whole; ++j) {
        limb_t* const place = j % 2 == 0 ? r + j * bn : odd + (j - 1) * bn;
        vor_gmp___gmpn_mul_n(place, a + j * bn, b, bn);
    }
    limb_t* const last = whole % 2 == 0 ? r + whole * bn : odd + (whole - 1) * bn;
    vor_gmp___gmpn_mul(last, b, bn, a + whole * bn, rest);
    const limb_t carry = limb::add_n(r + bn, r + bn, odd, whole * bn);
    vor_gmp___gmpn_add_1(r + (whole + 1) * bn, last + bn, rest, carry);
}
