// Division by 2^d, a shift and a cut of the magnitude. A result may be the operand.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// Limbs that hold k bits.
int limbs_for(unsigned k) {
    return static_cast<int>(k / 32 + (k % 32 != 0));
}

// q = |n| >> k. From the lowest limb up: q may be n.
void high_part(vor_mpz* q, const vor_mpz* n, unsigned k) {
    const int whole = static_cast<int>(k / 32), size = limbs_of(n) - whole;
    if (size <= 0) {
        q->_mp_size = 0;
        return;
    }
    limb_t* const limbs = grow(q, size);
    limb::rshift(limbs, n->_mp_d + whole, size, k % 32);
    finish(q, size, false);
    clear_above(q, size);
}

// r = |n| mod 2^k
void low_part(vor_mpz* r, const vor_mpz* n, unsigned k) {
    const int whole = static_cast<int>(k / 32);
    if (limbs_of(n) <= whole) return vor_gmp___gmpz_abs(r, n);
    const int size = limbs_for(k);
    limb_t* const limbs = grow(r, size);
    if (r != n) limb::copy(limbs, n->_mp_d, size);
    if (k % 32) limbs[whole] &= (limb_t{1} << k % 32) - 1;
    finish(r, size, false);
    clear_above(r, size);
}

// |r| = 2^k - |r|, for 0 < |r| < 2^k, in a record with room for k bits.
void complement(vor_mpz* r, unsigned k) {
    const int whole = static_cast<int>(k / 32), n = limbs_of(r), size = limbs_for(k);
    limb_t* const limbs = r->_mp_d;
    limb::clear(limbs + n, size - n);
    limb::negate(limbs, limbs, size);
    if (k % 32) limbs[whole] &= (limb_t{1} << k % 32) - 1;
    finish(r, size, false);
}

// Is the result moved away from zero: n has the sign `away`, and bits are cut?
bool moved(const vor_mpz* n, unsigned k, bool away) {
    return away && !vor_gmp___gmpz_divisible_2exp_p(n, k);
}

// The quotient, one further from zero if n has the sign `away` and bits are cut. All room is taken
// before a limb is written: n may be q.
void quotient(vor_mpz* q, const vor_mpz* n, unsigned k, bool away) {
    const bool minus = negative(n), more = moved(n, k, away);
    const int size = limbs_of(n) - static_cast<int>(k / 32);
    if (more && size > 0) grow(q, uint64_t{1} + size);
    high_part(q, n, k);
    if (more) vor_gmp___gmpz_add_ui(q, q, 1);
    set_sign(q, minus);
}

void remainder(vor_mpz* r, const vor_mpz* n, unsigned k, bool away) {
    bool minus = negative(n);
    const bool more = moved(n, k, away);
    if (more) grow(r, limbs_for(k));
    low_part(r, n, k);
    if (more) {
        complement(r, k);
        minus = !minus;
    }
    set_sign(r, minus);
}

} // namespace

VOR_GMP(void, vor_gmp_divqr_2exp, VOR_GMP_DIVQR_2EXP, vor_gmp_vor_gmp_divqr_2exp,
        (vor_mpz * q, vor_mpz* r, const vor_mpz* n, unsigned d), (q, r, n, d)) {
    if (r == n) { // the part that is cut off first takes its limbs while they are there
        high_part(q, n, d);
        return low_part(r, n, d);
    }
    low_part(r, n, d);
    high_part(q, n, d);
}

#define QUOTIENT(lower, UPPER, engine, away)                                                       \
    VOR_GMP(void, lower, UPPER, engine, (vor_mpz * q, const vor_mpz* n, unsigned d), (q, n, d)) {  \
        quotient(q, n, d, away);                                                                   \
    }
#define REMAINDER(lower, UPPER, engine, away)                                                      \
    VOR_GMP(void, lower, UPPER, engine, (vor_mpz * r, const vor_mpz* n, unsigned d), (r, n, d)) {  \
        remainder(r, n, d, away);                                                                  \
    }
QUOTIENT(__gmpz_tdiv_q_2exp, __GMPZ_TDIV_Q_2EXP, vor_gmp___gmpz_tdiv_q_2exp, false)
REMAINDER(__gmpz_tdiv_r_2exp, __GMPZ_TDIV_R_2EXP, vor_gmp___gmpz_tdiv_r_2exp, false)
QUOTIENT(__gmpz_fdiv_q_2exp, __GMPZ_FDIV_Q_2EXP, vor_gmp___gmpz_fdiv_q_2exp, negative(n))
REMAINDER(__gmpz_fdiv_r_2exp, __GMPZ_FDIV_R_2EXP, vor_gmp___gmpz_fdiv_r_2exp, negative(n))
QUOTIENT(__gmpz_cdiv_q_2exp, __GMPZ_CDIV_Q_2EXP, vor_gmp___gmpz_cdiv_q_2exp, !negative(n))
REMAINDER(__gmpz_cdiv_r_2exp, __GMPZ_CDIV_R_2EXP, vor_gmp___gmpz_cdiv_r_2exp, !negative(n))
