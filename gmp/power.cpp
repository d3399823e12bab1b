// Powers by squaring, from the lowest bit of the exponent up (Knuth, 4.6.3, algorithm A).
#include "gmp/integer.h"

using namespace vor::gmp;

VOR_GMP(void, __gmpz_pow_ui, __GMPZ_POW_UI, vor_gmp___gmpz_pow_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    if (v == 0) return vor_gmp___gmpz_set_ui(r, 1);
    if (v == 1) return vor_gmp___gmpz_set(r, a);
    Temporary square, result; // square = a^(2^i)
    vor_gmp___gmpz_set(square, a);
    for (; v % 2 == 0; v /= 2) vor_gmp___gmpz_mul(square, square, square);
    vor_gmp___gmpz_set(result, square);
    while (v /= 2) {
        vor_gmp___gmpz_mul(square, square, square);
        if (v % 2) vor_gmp___gmpz_mul(result, result, square);
    }
    vor_gmp___gmpz_swap(r, result);
}

VOR_GMP(void, __gmpz_ui_pow_ui, __GMPZ_UI_POW_UI, vor_gmp___gmpz_ui_pow_ui,
        (vor_mpz * r, unsigned v, unsigned e), (r, v, e)) {
    vor_gmp___gmpz_pow_ui(r, WordValue(v), e);
}
