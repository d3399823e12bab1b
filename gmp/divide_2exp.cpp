// Division by 2^d, a shift and a cut of the magnitude. A result may be the operand.
#include "gmp/integer.h"

using namespace vor::gmp;

namespace {

// q = |n| >> k. From the lowest limb up: q may be n.
void high_part(vor_mpz* q, const vor_mpz* n, unsigned k, const char* function) {
    const int whole = static_cast<int>(k / 32), size = limbs_of(n) - whole;
    if (size <= 0) {
        q->_mp_size = 0;
        return;
    }
    limb_t* const limbs = grow(q, size, function);
    const limb_t* const from = n->_mp_d + whole;
    for (int i = 0; i < size; ++i) {
        const limb_t above = i + 1 < size ? from[i + 1] : 0;
        limbs[i] = static_cast<limb_t>((dlimb_t{above} << 32 | from[i]) >> k % 32);
    }
    finish(q, size, false);
    clear_above(q, size);
}

// r = |n| mod 2^k
void low_part(vor_mpz* r, const vor_mpz* n, unsigned k, const char* function) {
    const int whole = static_cast<int>(k / 32);
    if (limbs_of(n) <= whole) return vor_gmp___gmpz_abs(r, n);
    const int size = whole + (k % 32 != 0);
    limb_t* const limbs = grow(r, size, function);
    if (r != n) copy_limbs(limbs, n->_mp_d, size);
    if (k % 32) limbs[whole] &= (limb_t{1} << k % 32) - 1;
    finish(r, size, false);
    clear_above(r, size);
}

// |r| = 2^k - |r|, for 0 < |r| < 2^k
void complement(vor_mpz* r, unsigned k, const char* function) {
    const int whole = static_cast<int>(k / 32), n = limbs_of(r);
    const int size = whole + (k % 32 != 0);
    limb_t* const limbs = grow(r, size, function);
    clear_limbs(limbs + n, size - n);
    limb_t carry = 1;
    for (int i = 0; i < size; ++i) carry = __builtin_add_overflow(~limbs[i], carry, &limbs[i]);
    if (k % 32) limbs[whole] &= (limb_t{1} << k % 32) - 1;
    finish(r, size, false);
}

// The quotient, one further from zero if n has the sign `away` and bits are cut.
void quotient(vor_mpz* q, const vor_mpz* n, unsigned k, bool away, const char* function) {
    const bool minus = negative(n);
    const bool more = away && !vor_gmp___gmpz_divisible_2exp_p(n, k);
    high_part(q, n, k, function);
    if (more) vor_gmp___gmpz_add_ui(q, q, 1);
    q->_mp_size = with_sign(limbs_of(q), minus);
}

void remainder(vor_mpz* r, const vor_mpz* n, unsigned k, bool away, const char* function) {
    bool minus = negative(n);
    low_part(r, n, k, function);
    if (away && r->_mp_size != 0) {
        complement(r, k, function);
        minus = !minus;
    }
    r->_mp_size = with_sign(limbs_of(r), minus);
}

} // namespace

VOR_ENGINE void vor_gmp_vor_gmp_divqr_2exp PARAMS_QRNV {
    if (r == n) { // the part that is cut off first takes its limbs while they are there
        high_part(q, n, d, __builtin_FUNCTION());
        return low_part(r, n, d, __builtin_FUNCTION());
    }
    low_part(r, n, d, __builtin_FUNCTION());
    high_part(q, n, d, __builtin_FUNCTION());
}

#define FAMILY(letter, away)                                                                       \
    VOR_ENGINE void vor_gmp___gmpz_##letter##div_q_2exp PARAMS_DIV_Q_WORD {                        \
        quotient(q, n, d, away, __builtin_FUNCTION());                                             \
    }                                                                                              \
    VOR_ENGINE void vor_gmp___gmpz_##letter##div_r_2exp PARAMS_DIV_R_WORD {                        \
        remainder(r, n, d, away, __builtin_FUNCTION());                                            \
    }
FAMILY(t, false)
FAMILY(f, negative(n))
FAMILY(c, !negative(n))
