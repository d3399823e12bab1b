// Powers and inverses modulo 2^k, where a cut takes the place of a division, and repeated squares. r may
// be an operand.
#include "gmp/integer.h"
#include "gmp/limb/kernel/divide_2_by_1.h"

using namespace vor;
using namespace vor::gmp;

// From the top bit of the exponent down (Knuth, 4.6.3).
VOR_GMP(void, mpl_powm_exp2, MPL_POWM_EXP2, vor_gmp_mpl_powm_exp2,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* e, unsigned k), (r, a, e, k)) {
    Temporary base, power;
    vor_gmp___gmpz_tdiv_r_2exp(base, a, k);
    vor_gmp___gmpz_set_ui(power, 1);
    for (uint64_t i = bit_length(e); i-- > 0;) {
        vor_gmp___gmpz_mul(power, power, power);
        vor_gmp___gmpz_tdiv_r_2exp(power, power, k);
        if (!(e->_mp_d[i / 32] >> i % 32 & 1)) continue;
        vor_gmp___gmpz_mul(power, power, base);
        vor_gmp___gmpz_tdiv_r_2exp(power, power, k);
    }
    vor_gmp___gmpz_tdiv_r_2exp(r, power, k);
}

// Newton's iteration x (2 - q x), which doubles the bits that are right (Brent and Zimmermann, Modern
// Computer Arithmetic, 2.5). q is its own inverse modulo 8.
VOR_GMP(void, mpl_modinv_exp2, MPL_MODINV_EXP2, vor_gmp_mpl_modinv_exp2,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    const unsigned k = v;
    if (k < 2) return vor_gmp___gmpz_set_ui(r, 1);
    Temporary x, product;
    vor_gmp___gmpz_fdiv_r_2exp(x, a, k < 3 ? k : 3);
    for (uint64_t bits = 3; bits < k;) {
        bits = 2 * bits < k ? 2 * bits : k;
        const unsigned cut = static_cast<unsigned>(bits);
        vor_gmp___gmpz_fdiv_r_2exp(product, a, cut);
        vor_gmp___gmpz_mul(product, product, x);
        vor_gmp___gmpz_ui_sub(product, 2, product);
        vor_gmp___gmpz_mul(x, x, product);
        vor_gmp___gmpz_fdiv_r_2exp(x, x, cut);
    }
    vor_gmp___gmpz_swap(r, x);
}

VOR_GMP_MIXED(void, _impPow2Exp, _imppow2exp, _IMPPOW2EXP, vor_gmp__imppow2exp,
              (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    vor_gmp___gmpz_set(r, a);
    for (unsigned i = 0; i < v; ++i) vor_gmp___gmpz_mul(r, r, r);
}

VOR_GMP_MIXED(void, _impPowm2Exp, _imppowm2exp, _IMPPOWM2EXP, vor_gmp__imppowm2exp,
              (vor_mpz * r, const vor_mpz* a, unsigned e, const vor_mpz* m), (r, a, e, m)) {
    if (value_size(m) == 0) limb::divide_by_zero(); // before there is anything to lose
    Temporary power;
    vor_gmp___gmpz_mod(power, a, m);
    for (unsigned i = 0; i < e; ++i) {
        vor_gmp___gmpz_mul(power, power, power);
        vor_gmp___gmpz_mod(power, power, m);
    }
    vor_gmp___gmpz_swap(r, power);
}
