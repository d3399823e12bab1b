// Divisibility and congruence: 1 or 0. A zero divisor is seen before a temporary is made: the handler of
// the signal may leave by a jump.
#include "gmp/divide_limb.h"

using namespace vor::gmp;

VOR_ENGINE int vor_gmp___gmpz_divisible_p PARAMS_AB {
    if (value_size(b) == 0) divide_by_zero();
    Temporary rest;
    vor_gmp_vor_gmp_div_r(rest, a, b);
    return rest->_mp_size == 0;
}

VOR_ENGINE int vor_gmp___gmpz_divisible_ui_p PARAMS_DIV_WORD {
    return vor_gmp___gmpz_fdiv_ui(n, d) == 0;
}

// By 2^d: no bit below d is set.
VOR_ENGINE int vor_gmp___gmpz_divisible_2exp_p PARAMS_DIV_WORD {
    return value_size(n) == 0 || vor_gmp_vor_gmp_scan1(n->_mp_d, limbs_of(n), 0) >= d;
}

VOR_ENGINE int vor_gmp___gmpz_congruent_p PARAMS_ABD {
    if (value_size(d) == 0) divide_by_zero();
    Temporary difference;
    vor_gmp___gmpz_sub(difference, a, b);
    return vor_gmp___gmpz_divisible_p(difference, d);
}

VOR_ENGINE int vor_gmp___gmpz_congruent_ui_p PARAMS_AVV {
    if (d == 0) divide_by_zero();
    Temporary difference;
    vor_gmp___gmpz_sub_ui(difference, a, c);
    return vor_gmp___gmpz_divisible_ui_p(difference, d);
}

VOR_ENGINE int vor_gmp___gmpz_congruent_2exp_p PARAMS_ABV {
    Temporary difference;
    vor_gmp___gmpz_sub(difference, a, b);
    return vor_gmp___gmpz_divisible_2exp_p(difference, v);
}
