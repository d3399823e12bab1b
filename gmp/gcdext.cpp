// The greatest common divisor g = s a + t b with its cofactors: s is the inverse of a/g modulo |b/g|, or
// the sign of a if g = |a|; t follows from s. Results may be operands.
#include "gmp/euclid.h"

using namespace vor::gmp;

namespace {

// Of a, b != 0 and a residue rest = |a| mod |b| != 0: g, and s for |a| in place of a.
void divisor_and_cofactor(vor_mpz* g, vor_mpz* s, const vor_mpz* rest, const vor_mpz* b) {
    const int bn = limbs_of(b), rn = limbs_of(rest);
    limb_t* const gcd = grow(g, rn);
    limb_t* const u = grow(s, uint64_t{2} + bn);
    const Cofactor sizes = gcd_with_cofactor(gcd, u, rest->_mp_d, rn, b->_mp_d, bn);
    g->_mp_size = sizes.gcd_size;
    s->_mp_size = sizes.size;
}

// t = (g - s a) / b
void other_cofactor(vor_mpz* t, const vor_mpz* g, const vor_mpz* s, const vor_mpz* a,
                    const vor_mpz* b) {
    vor_gmp___gmpz_mul(t, s, a);
    vor_gmp___gmpz_sub(t, g, t);
    vor_gmp___gmpz_divexact(t, t, b);
}

} // namespace

VOR_GMP(void, __gmpz_gcdext, __GMPZ_GCDEXT, vor_gmp___gmpz_gcdext,
        (vor_mpz * g, vor_mpz* s, vor_mpz* t, const vor_mpz* a, const vor_mpz* b),
        (g, s, t, a, b)) {
    Temporary divisor, cofactor, other;
    const int an = value_size(a), bn = value_size(b);
    if (bn == 0) { // g = |a|
        vor_gmp___gmpz_abs(divisor, a);
        vor_gmp___gmpz_set_si(cofactor, vor_gmp___gmpz_sgn(a));
    } else {
        Temporary rest;
        if (an > 0) vor_gmp_vor_gmp_div_r(rest, a, b);
        if (rest->_mp_size == 0) { // g = |b|, which is |a| or not
            vor_gmp___gmpz_abs(divisor, b);
            if (vor_gmp___gmpz_cmpabs(a, b) == 0)
                vor_gmp___gmpz_set_si(cofactor, vor_gmp___gmpz_sgn(a));
            else if (t)
                vor_gmp___gmpz_set_si(other, vor_gmp___gmpz_sgn(b));
        } else {
            divisor_and_cofactor(divisor, cofactor, rest, b);
            if (vor_gmp___gmpz_cmpabs(divisor, a) == 0) { // s = 1 for |a| then
                vor_gmp___gmpz_set_si(cofactor, vor_gmp___gmpz_sgn(a));
            } else {
                if (negative(a)) { // s = |b / g| - s, for s is not 0
                    Temporary modulus;
                    vor_gmp___gmpz_divexact(modulus, b, divisor);
                    vor_gmp___gmpz_abs(modulus, modulus);
                    vor_gmp___gmpz_sub(cofactor, modulus, cofactor);
                }
                if (t) other_cofactor(other, divisor, cofactor, a, b);
            }
        }
    }
    vor_gmp___gmpz_swap(g, divisor);
    vor_gmp___gmpz_swap(s, cofactor);
    if (t) vor_gmp___gmpz_swap(t, other);
}
