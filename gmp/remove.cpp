// All factors f of a number. r may be an operand.
#include "gmp/integer.h"
#include "gmp/limb/kernel/divide_2_by_1.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kMostSquares = 32;

// Takes f^(2^i), i = 0, 1, ... as long as they divide r, then the powers back down: every step leaves half
// the factors to be found. Their number.
unsigned take(vor_mpz* r, const vor_mpz* f, int squares) {
    Temporary q, rest;
    vor_gmp___gmpz_tdiv_qr(q, rest, r, f);
    if (rest->_mp_size != 0) return 0;
    vor_gmp___gmpz_swap(r, q);
    unsigned count = 1;
    if (squares < kMostSquares && 2 * limbs_of(f) <= limbs_of(r) + 1) {
        Temporary square;
        vor_gmp___gmpz_mul(square, f, f);
        count += 2 * take(r, square, squares + 1);
    }
    vor_gmp___gmpz_tdiv_qr(q, rest, r, f);
    if (rest->_mp_size != 0) return count;
    vor_gmp___gmpz_swap(r, q);
    return count + 1;
}

} // namespace

VOR_GMP(unsigned, __gmpz_remove, __GMPZ_REMOVE, vor_gmp___gmpz_remove,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    if (value_size(b) == 0) limb::divide_by_zero();
    Temporary rest, factor;
    vor_gmp___gmpz_set(rest, a);
    vor_gmp___gmpz_set(factor, b);
    unsigned count = 0;
    if (rest->_mp_size != 0 && vor_gmp___gmpz_cmpabs_ui(factor, 1) != 0) {
        if (vor_gmp___gmpz_cmpabs_ui(factor, 2) == 0) {
            count = vor_gmp___gmpz_scan1(rest, 0);
            vor_gmp___gmpz_tdiv_q_2exp(rest, rest, count);
            if (negative(factor) && count % 2) vor_gmp___gmpz_neg(rest, rest);
        } else {
            count = take(rest, factor, 0);
        }
    }
    vor_gmp___gmpz_set(r, rest);
    return count;
}
