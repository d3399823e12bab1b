// Greatest common divisors and least common multiples. Results may be operands.
#include "gmp/euclid.h"
#include "gmp/thresholds.h"
#include "vor_bignum.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// gcd(|a|, v) for v > 0
limb_t gcd_with_word(const vor_mpz* a, limb_t v) {
    const int n = value_size(a);
    return n == 0 ? v : cpGCD32u(v, limb::divide_1(nullptr, a->_mp_d, n, v));
}

void lcm(vor_mpz* r, const vor_mpz* a, const vor_mpz* b, const vor_mpz* divisor) {
    Temporary part;
    vor_gmp___gmpz_divexact(part, a, divisor);
    vor_gmp___gmpz_mul(r, part, b);
    vor_gmp___gmpz_abs(r, r);
}

} // namespace

VOR_GMP(void, __gmpz_gcd, __GMPZ_GCD, vor_gmp___gmpz_gcd,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    const int an = value_size(a), bn = value_size(b);
    if (an == 0) return vor_gmp___gmpz_abs(r, b);
    if (bn == 0) return vor_gmp___gmpz_abs(r, a);
    if (an == 1 || bn == 1) {
        const vor_mpz *const word = an == 1 ? a : b, *const other = an == 1 ? b : a;
        return vor_gmp___gmpz_set_ui(r, gcd_with_word(other, word->_mp_d[0]));
    }
    const int n = an > bn ? an : bn;
    Limbs<kLocal> copies(uint64_t{2} * n);
    limb_t *const x = copies, *const y = x + n;
    limb::copy(x, a->_mp_d, an);
    limb::copy(y, b->_mp_d, bn);
    limb_t* const g = grow(r, an < bn ? an : bn);
    r->_mp_size = gcd_limbs(g, x, an, y, bn);
}

VOR_GMP(unsigned, __gmpz_gcd_ui, __GMPZ_GCD_UI, vor_gmp___gmpz_gcd_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    if (v == 0) {
        if (r) vor_gmp___gmpz_abs(r, a);
        const int n = value_size(a);
        return n == 1 ? a->_mp_d[0] : 0;
    }
    const limb_t g = gcd_with_word(a, v);
    if (r) vor_gmp___gmpz_set_ui(r, g);
    return g;
}

VOR_GMP(void, __gmpz_lcm, __GMPZ_LCM, vor_gmp___gmpz_lcm,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    if (value_size(a) == 0 || value_size(b) == 0) {
        r->_mp_size = 0;
        return;
    }
    Temporary divisor;
    vor_gmp___gmpz_gcd(divisor, a, b);
    lcm(r, a, b, divisor);
}

VOR_GMP(void, __gmpz_lcm_ui, __GMPZ_LCM_UI, vor_gmp___gmpz_lcm_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    vor_gmp___gmpz_lcm(r, a, WordValue(v));
}
