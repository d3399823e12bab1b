// The rounding families: toward zero (t), minus infinity (f), plus infinity (c).
//
// All start from the magnitudes |n| = q |d| + r. Where the exact quotient lies beyond, away from
// zero, and r is not 0, the magnitudes become q + 1 and |d| - r, and the remainder changes sides.
#include "gmp/divide.h"

using namespace vor;
using namespace vor::gmp;

namespace {

enum class Rounding { truncate, floor, ceiling };

// Does an inexact quotient of this sign round away from zero?
bool away_from_zero(Rounding rounding, bool quotient_minus) {
    if (rounding == Rounding::truncate) return false;
    return quotient_minus == (rounding == Rounding::floor);
}

// q + 1 after a division with a remainder: the room that the division took holds the carry. (By a word
// above 1 there is none; by more limbs the quotient had one limb of room above its own.)
void increment_magnitude(vor_mpz* q) {
    const int n = limbs_of(q);
    const limb_t carry = limb::increment(q->_mp_d, n, 1);
    if (carry) q->_mp_d[n] = carry;
    q->_mp_size = n + static_cast<int>(carry);
}

// q may be null. d is none of the results. All room is taken before a limb is written.
void round_away(vor_mpz* q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d) {
    const bool n_minus = negative(n), q_minus = n_minus != negative(d);
    const int ds = value_size(d);
    grow(r, ds);
    if (q)
        vor_gmp_vor_gmp_div_qr(q, r, n, d);
    else
        vor_gmp_vor_gmp_div_r(r, n, d);
    if (r->_mp_size != 0) {
        if (q) increment_magnitude(q);
        limb::sub(r->_mp_d, d->_mp_d, ds, r->_mp_d, limbs_of(r));
        finish(r, ds, !n_minus);
    }
    if (q) set_sign(q, q_minus);
}

// One of q and r may be null.
void divide(vor_mpz* q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d, Rounding rounding) {
    if (value_size(d) == 0) limb::divide_by_zero();
    const bool n_minus = negative(n), q_minus = n_minus != negative(d);
    if (!away_from_zero(rounding, q_minus)) {
        if (!r)
            vor_gmp_vor_gmp_div_q(q, n, d);
        else if (!q)
            vor_gmp_vor_gmp_div_r(r, n, d);
        else
            vor_gmp_vor_gmp_div_qr(q, r, n, d);
        if (q) set_sign(q, q_minus);
        if (r) set_sign(r, n_minus);
        return;
    }
    if (!r) {
        Temporary rest;
        return divide(q, rest, n, d, rounding);
    }
    if (q == d || r == d) {
        Temporary divisor;
        vor_gmp___gmpz_set(divisor, d);
        return round_away(q, r, n, divisor);
    }
    round_away(q, r, n, d);
}

struct WordRemainder {
    limb_t magnitude;
    bool minus;

    limb_t store(vor_mpz* r) const {
        vor_gmp___gmpz_set_ui(r, magnitude);
        set_sign(r, minus);
        return magnitude;
    }
};

// By a word; q may be null.
WordRemainder divide_word(vor_mpz* q, const vor_mpz* n, limb_t d, Rounding rounding) {
    if (d == 0) limb::divide_by_zero();
    const bool minus = negative(n);
    const limb_t rest = divide_magnitude(q, n, d);
    const bool away = rest != 0 && away_from_zero(rounding, minus);
    if (q) {
        if (away) increment_magnitude(q);
        set_sign(q, minus);
    }
    return away ? WordRemainder{d - rest, !minus} : WordRemainder{rest, minus};
}

} // namespace

#define DIVIDE_QR(lower, UPPER, engine, rounding)                                                  \
    VOR_GMP(void, lower, UPPER, engine,                                                            \
            (vor_mpz * q, vor_mpz * r, const vor_mpz* n, const vor_mpz* d), (q, r, n, d)) {        \
        divide(q, r, n, d, rounding);                                                              \
    }
DIVIDE_QR(__gmpz_tdiv_qr, __GMPZ_TDIV_QR, vor_gmp___gmpz_tdiv_qr, Rounding::truncate)
DIVIDE_QR(__gmpz_fdiv_qr, __GMPZ_FDIV_QR, vor_gmp___gmpz_fdiv_qr, Rounding::floor)
DIVIDE_QR(__gmpz_cdiv_qr, __GMPZ_CDIV_QR, vor_gmp___gmpz_cdiv_qr, Rounding::ceiling)

#define DIVIDE_Q(lower, UPPER, engine, rounding)                                                   \
    VOR_GMP(void, lower, UPPER, engine, (vor_mpz * q, const vor_mpz* n, const vor_mpz* d),         \
            (q, n, d)) {                                                                           \
        divide(q, nullptr, n, d, rounding);                                                        \
    }
DIVIDE_Q(__gmpz_tdiv_q, __GMPZ_TDIV_Q, vor_gmp___gmpz_tdiv_q, Rounding::truncate)
DIVIDE_Q(__gmpz_fdiv_q, __GMPZ_FDIV_Q, vor_gmp___gmpz_fdiv_q, Rounding::floor)
DIVIDE_Q(__gmpz_cdiv_q, __GMPZ_CDIV_Q, vor_gmp___gmpz_cdiv_q, Rounding::ceiling)

#define DIVIDE_R(lower, UPPER, engine, rounding)                                                   \
    VOR_GMP(void, lower, UPPER, engine, (vor_mpz * r, const vor_mpz* n, const vor_mpz* d),         \
            (r, n, d)) {                                                                           \
        divide(nullptr, r, n, d, rounding);                                                        \
    }
DIVIDE_R(__gmpz_tdiv_r, __GMPZ_TDIV_R, vor_gmp___gmpz_tdiv_r, Rounding::truncate)
DIVIDE_R(__gmpz_fdiv_r, __GMPZ_FDIV_R, vor_gmp___gmpz_fdiv_r, Rounding::floor)
DIVIDE_R(__gmpz_cdiv_r, __GMPZ_CDIV_R, vor_gmp___gmpz_cdiv_r, Rounding::ceiling)

#define DIVIDE_QR_UI(lower, UPPER, engine, rounding)                                               \
    VOR_GMP(unsigned, lower, UPPER, engine,                                                        \
            (vor_mpz * q, vor_mpz * r, const vor_mpz* n, unsigned d), (q, r, n, d)) {              \
        return divide_word(q, n, d, rounding).store(r);                                            \
    }
DIVIDE_QR_UI(__gmpz_tdiv_qr_ui, __GMPZ_TDIV_QR_UI, vor_gmp___gmpz_tdiv_qr_ui, Rounding::truncate)
DIVIDE_QR_UI(__gmpz_fdiv_qr_ui, __GMPZ_FDIV_QR_UI, vor_gmp___gmpz_fdiv_qr_ui, Rounding::floor)
DIVIDE_QR_UI(__gmpz_cdiv_qr_ui, __GMPZ_CDIV_QR_UI, vor_gmp___gmpz_cdiv_qr_ui, Rounding::ceiling)

#define DIVIDE_Q_UI(lower, UPPER, engine, rounding)                                                \
    VOR_GMP(unsigned, lower, UPPER, engine, (vor_mpz * q, const vor_mpz* n, unsigned d),           \
            (q, n, d)) {                                                                           \
        return divide_word(q, n, d, rounding).magnitude;                                           \
    }
DIVIDE_Q_UI(__gmpz_tdiv_q_ui, __GMPZ_TDIV_Q_UI, vor_gmp___gmpz_tdiv_q_ui, Rounding::truncate)
DIVIDE_Q_UI(__gmpz_fdiv_q_ui, __GMPZ_FDIV_Q_UI, vor_gmp___gmpz_fdiv_q_ui, Rounding::floor)
DIVIDE_Q_UI(__gmpz_cdiv_q_ui, __GMPZ_CDIV_Q_UI, vor_gmp___gmpz_cdiv_q_ui, Rounding::ceiling)

#define DIVIDE_R_UI(lower, UPPER, engine, rounding)                                                \
    VOR_GMP(unsigned, lower, UPPER, engine, (vor_mpz * r, const vor_mpz* n, unsigned d),           \
            (r, n, d)) {                                                                           \
        return divide_word(nullptr, n, d, rounding).store(r);                                      \
    }
DIVIDE_R_UI(__gmpz_tdiv_r_ui, __GMPZ_TDIV_R_UI, vor_gmp___gmpz_tdiv_r_ui, Rounding::truncate)
DIVIDE_R_UI(__gmpz_fdiv_r_ui, __GMPZ_FDIV_R_UI, vor_gmp___gmpz_fdiv_r_ui, Rounding::floor)
DIVIDE_R_UI(__gmpz_cdiv_r_ui, __GMPZ_CDIV_R_UI, vor_gmp___gmpz_cdiv_r_ui, Rounding::ceiling)

#define DIVIDE_UI(lower, UPPER, engine, rounding)                                                  \
    VOR_GMP(unsigned, lower, UPPER, engine, (const vor_mpz* n, unsigned d), (n, d)) {              \
        return divide_word(nullptr, n, d, rounding).magnitude;                                     \
    }
DIVIDE_UI(__gmpz_tdiv_ui, __GMPZ_TDIV_UI, vor_gmp___gmpz_tdiv_ui, Rounding::truncate)
DIVIDE_UI(__gmpz_fdiv_ui, __GMPZ_FDIV_UI, vor_gmp___gmpz_fdiv_ui, Rounding::floor)
DIVIDE_UI(__gmpz_cdiv_ui, __GMPZ_CDIV_UI, vor_gmp___gmpz_cdiv_ui, Rounding::ceiling)

// 0 <= r < |d|
VOR_GMP(void, __gmpz_mod, __GMPZ_MOD, vor_gmp___gmpz_mod,
        (vor_mpz * r, const vor_mpz* n, const vor_mpz* d), (r, n, d)) {
    divide(nullptr, r, n, d, negative(d) ? Rounding::ceiling : Rounding::floor);
}

VOR_GMP(unsigned, __gmpz_mod_ui, __GMPZ_MOD_UI, vor_gmp___gmpz_mod_ui,
        (vor_mpz * r, const vor_mpz* n, unsigned d), (r, n, d)) {
    return vor_gmp___gmpz_fdiv_r_ui(r, n, d);
}

VOR_GMP(void, __gmpz_divexact, __GMPZ_DIVEXACT, vor_gmp___gmpz_divexact,
        (vor_mpz * q, const vor_mpz* n, const vor_mpz* d), (q, n, d)) {
    vor_gmp___gmpz_tdiv_q(q, n, d);
}

VOR_GMP(void, __gmpz_divexact_ui, __GMPZ_DIVEXACT_UI, vor_gmp___gmpz_divexact_ui,
        (vor_mpz * q, const vor_mpz* n, unsigned d), (q, n, d)) {
    vor_gmp___gmpz_fdiv_q_ui(q, n, d);
}
