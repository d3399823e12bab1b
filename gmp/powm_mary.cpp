// Powers modulo any m, with any sign of base and exponent. The odd part q of m and the power of two are
// two moduli, joined by the Chinese remainder theorem (Knuth, 4.3.2): with r = a^e mod q,
//
//     a^e mod q 2^k = r + q ((a^e - r) / q mod 2^k)
//
// r may be an operand.
#include "gmp/integer.h"
#include "gmp/limb/kernel/divide_2_by_1.h"
#include "gmp/powm.h"

using namespace vor;
using namespace vor::gmp;

namespace vor::gmp {

void power_modulo(vor_mpz* r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* m,
                  OddPower odd_power) {
    Temporary q, base, power;
    const unsigned k = vor_gmp___gmpz_scan1(m, 0);
    vor_gmp___gmpz_tdiv_q_2exp(q, m, k);
    vor_gmp___gmpz_abs(q, q);
    if (vor_gmp___gmpz_cmp_ui(q, 1) == 0) return vor_gmp_mpl_powm_exp2(r, a, e, k);
    vor_gmp___gmpz_mod(base, a, q);
    odd_power(power, base, e, q);
    if (k > 0) {
        Temporary even, inverse;
        vor_gmp_mpl_powm_exp2(even, a, e, k);
        vor_gmp_mpl_modinv_exp2(inverse, q, k);
        vor_gmp___gmpz_sub(even, even, power);
        vor_gmp___gmpz_mul(even, even, inverse);
        vor_gmp___gmpz_fdiv_r_2exp(even, even, k);
        vor_gmp___gmpz_addmul(power, q, even);
    }
    vor_gmp___gmpz_set(r, power);
}

} // namespace vor::gmp

VOR_GMP(void, mpz_powm_mary, MPZ_POWM_MARY, vor_gmp_mpz_powm_mary,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* m), (r, a, e, m)) {
    if (value_size(m) == 0) limb::divide_by_zero();
    Temporary base;
    if (vor_gmp___gmpz_sgn(e) == 0)
        return vor_gmp___gmpz_set_ui(r, vor_gmp___gmpz_cmpabs_ui(m, 1) != 0);
    if (!negative(e))
        vor_gmp___gmpz_mod(base, a, m);
    else if (!vor_gmp___gmpz_invert(base, a, m))
        return;
    vor_mpz magnitude = *e;
    magnitude._mp_size = limbs_of(e);
    power_modulo(r, base, &magnitude, m, odd_power_by_windows);
}
