// Divisibility and congruence: 1 or 0. A zero divisor is seen before a temporary is made: the handler of
// the signal may leave by a jump.
#include "gmp/divide.h"

using namespace vor;
using namespace vor::gmp;

VOR_GMP(int, __gmpz_divisible_p, __GMPZ_DIVISIBLE_P, vor_gmp___gmpz_divisible_p,
        (const vor_mpz* a, const vor_mpz* b), (a, b)) {
    if (value_size(b) == 0) limb::divide_by_zero();
    Temporary rest;
    vor_gmp_vor_gmp_div_r(rest, a, b);
    return rest->_mp_size == 0;
}

VOR_GMP(int, __gmpz_divisible_ui_p, __GMPZ_DIVISIBLE_UI_P, vor_gmp___gmpz_divisible_ui_p,
        (const vor_mpz* n, unsigned d), (n, d)) {
    return vor_gmp___gmpz_fdiv_ui(n, d) == 0;
}

// By 2^d: no bit below d is set.
VOR_GMP(int, __gmpz_divisible_2exp_p, __GMPZ_DIVISIBLE_2EXP_P, vor_gmp___gmpz_divisible_2exp_p,
        (const vor_mpz* n, unsigned d), (n, d)) {
    return value_size(n) == 0 || lowest_bit(n) >= d;
}

VOR_GMP(int, __gmpz_congruent_p, __GMPZ_CONGRUENT_P, vor_gmp___gmpz_congruent_p,
        (const vor_mpz* a, const vor_mpz* b, const vor_mpz* d), (a, b, d)) {
    if (value_size(d) == 0) limb::divide_by_zero();
    Temporary difference;
    vor_gmp___gmpz_sub(difference, a, b);
    return vor_gmp___gmpz_divisible_p(difference, d);
}

VOR_GMP(int, __gmpz_congruent_ui_p, __GMPZ_CONGRUENT_UI_P, vor_gmp___gmpz_congruent_ui_p,
        (const vor_mpz* a, unsigned c, unsigned d), (a, c, d)) {
    if (d == 0) limb::divide_by_zero();
    Temporary difference;
    vor_gmp___gmpz_sub_ui(difference, a, c);
    return vor_gmp___gmpz_divisible_ui_p(difference, d);
}

VOR_GMP(int, __gmpz_congruent_2exp_p, __GMPZ_CONGRUENT_2EXP_P, vor_gmp___gmpz_congruent_2exp_p,
        (const vor_mpz* a, const vor_mpz* b, unsigned v), (a, b, v)) {
    Temporary difference;
    vor_gmp___gmpz_sub(difference, a, b);
    return vor_gmp___gmpz_divisible_2exp_p(difference, v);
}
