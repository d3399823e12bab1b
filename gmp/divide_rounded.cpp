// The rounding families: toward zero (t), minus infinity (f), plus infinity (c).
//
// All start from the magnitudes |n| = q |d| + r. Where the exact quotient lies beyond, away from
// zero, and r is not 0, the magnitudes become q + 1 and |d| - r, and the remainder changes sides.
#include "gmp/divide_limb.h"

using namespace vor::gmp;

namespace {

enum class Rounding { truncate, floor, ceiling };

// Does an inexact quotient of this sign round away from zero?
bool away_from_zero(Rounding rounding, bool quotient_minus) {
    if (rounding == Rounding::truncate) return false;
    return quotient_minus == (rounding == Rounding::floor);
}

void increment_magnitude(vor_mpz* q, const char* function) {
    const int n = limbs_of(q);
    limb_t* const limbs = grow(q, uint64_t{1} + n, function);
    limbs[n] = vor_gmp___gmpn_add_1(limbs, limbs, n, 1);
    finish(q, n + 1, false);
}

void set_sign(vor_mpz* x, bool minus) {
    x->_mp_size = with_sign(limbs_of(x), minus);
}

// q may be null. d is none of the results.
void round_away(vor_mpz* q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d, const char* function) {
    const bool n_minus = negative(n), q_minus = n_minus != negative(d);
    if (q)
        vor_gmp_vor_gmp_div_qr(q, r, n, d);
    else
        vor_gmp_vor_gmp_div_r(r, n, d);
    if (r->_mp_size != 0) {
        if (q) increment_magnitude(q, function);
        const int ds = value_size(d);
        int rest_size;
        limb_t ignored;
        cpSub_BNUs(d->_mp_d, ds, r->_mp_d, limbs_of(r), grow(r, ds, function), &rest_size,
                   &ignored);
        r->_mp_size = with_sign(rest_size, !n_minus);
    }
    if (q) set_sign(q, q_minus);
}

// One of q and r may be null.
void divide(vor_mpz* q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d, Rounding rounding,
            const char* function) {
    if (value_size(d) == 0) divide_by_zero();
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
        Temporary rest(kMinimumLimbs, function);
        return divide(q, rest, n, d, rounding, function);
    }
    if (q == d || r == d) {
        Temporary divisor(kMinimumLimbs, function);
        vor_gmp___gmpz_set(divisor, d);
        return round_away(q, r, n, divisor, function);
    }
    round_away(q, r, n, d, function);
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
WordRemainder divide_word(vor_mpz* q, const vor_mpz* n, limb_t d, Rounding rounding,
                          const char* function = __builtin_FUNCTION()) {
    if (d == 0) divide_by_zero();
    const bool minus = negative(n);
    const limb_t rest = divide_magnitude(q, n, d, function);
    const bool away = rest != 0 && away_from_zero(rounding, minus);
    if (q) {
        if (away) increment_magnitude(q, function);
        set_sign(q, minus);
    }
    return away ? WordRemainder{d - rest, !minus} : WordRemainder{rest, minus};
}

} // namespace

#define FAMILY(letter, rounding)                                                                   \
    VOR_ENGINE void vor_gmp___gmpz_##letter##div_qr PARAMS_QRND {                                  \
        divide(q, r, n, d, rounding, __builtin_FUNCTION());                                        \
    }                                                                                              \
    VOR_ENGINE void vor_gmp___gmpz_##letter##div_q PARAMS_DIV_Q {                                  \
        divide(q, nullptr, n, d, rounding, __builtin_FUNCTION());                                  \
    }                                                                                              \
    VOR_ENGINE void vor_gmp___gmpz_##letter##div_r PARAMS_DIV_R {                                  \
        divide(nullptr, r, n, d, rounding, __builtin_FUNCTION());                                  \
    }                                                                                              \
    VOR_ENGINE unsigned vor_gmp___gmpz_##letter##div_qr_ui PARAMS_QRNV {                           \
        return divide_word(q, n, d, rounding).store(r);                                            \
    }                                                                                              \
    VOR_ENGINE unsigned vor_gmp___gmpz_##letter##div_q_ui PARAMS_DIV_Q_WORD {                      \
        return divide_word(q, n, d, rounding).magnitude;                                           \
    }                                                                                              \
    VOR_ENGINE unsigned vor_gmp___gmpz_##letter##div_r_ui PARAMS_DIV_R_WORD {                      \
        return divide_word(nullptr, n, d, rounding).store(r);                                      \
    }                                                                                              \
    VOR_ENGINE unsigned vor_gmp___gmpz_##letter##div_ui PARAMS_DIV_WORD {                          \
        return divide_word(nullptr, n, d, rounding).magnitude;                                     \
    }
FAMILY(t, Rounding::truncate)
FAMILY(f, Rounding::floor)
FAMILY(c, Rounding::ceiling)

// 0 <= r < |d|
VOR_ENGINE void vor_gmp___gmpz_mod PARAMS_DIV_R {
    divide(nullptr, r, n, d, negative(d) ? Rounding::ceiling : Rounding::floor,
           __builtin_FUNCTION());
}

VOR_ENGINE unsigned vor_gmp___gmpz_mod_ui PARAMS_DIV_R_WORD {
    return vor_gmp___gmpz_fdiv_r_ui(r, n, d);
}

VOR_ENGINE void vor_gmp___gmpz_divexact PARAMS_DIV_Q {
    vor_gmp___gmpz_tdiv_q(q, n, d);
}

VOR_ENGINE void vor_gmp___gmpz_divexact_ui PARAMS_DIV_Q_WORD {
    vor_gmp___gmpz_fdiv_q_ui(q, n, d);
}
