// Quotient and remainder of magnitudes, by the method that the sizes call for. Results may be
// operands; the two results are different records.
#include "gmp/divide_limb.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kLocal = 256; // limbs of scratch on the stack

struct Sizes {
    int quotient, rest;
};

// A quotient of few limbs by a divisor of ds, on a copy of n, since q may be n. q or r may be null.
Sizes divide_short(limb_t* q, limb_t* r, const vor_mpz* n, const limb_t* d, int ds,
                   const char* function) {
    const int ns = limbs_of(n);
    limb_t unwanted[kShortQuotient + 2];
    if (!q) q = unwanted;
    Limbs<kLocal> rest(ns, function);
    copy_limbs(rest, n->_mp_d, ns);
    if (!r) return {vor_gmp_mpl_divq_sq(q, rest, ns, d, ds), 0};
    Sizes sizes;
    sizes.rest = vor_gmp_mpl_divqr_sq(q, &sizes.quotient, rest, ns, d, ds);
    copy_limbs(r, rest, sizes.rest);
    return sizes;
}

// q or r may be null.
void divide(vor_mpz* q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d, const char* function) {
    const int ns = value_size(n), ds = value_size(d);
    if (ds == 0) divide_by_zero();
    if (ds == 1) {
        const limb_t rest = divide_magnitude(q, n, d->_mp_d[0], function);
        if (r) vor_gmp___gmpz_set_ui(r, rest);
        return;
    }
    if (vor_gmp___gmpz_cmpabs(n, d) < 0) {
        if (r) vor_gmp___gmpz_abs(r, n);
        if (q) q->_mp_size = 0;
        return;
    }
    const int qn = ns - ds;
    // The method for short quotients writes one limb above the quotient's qn + 1.
    limb_t* const quotient = q ? grow(q, uint64_t{2} + qn, function) : nullptr;
    if (r) grow(r, ds, function);
    Limbs<kLocal> divisor_copy(q == d ? ds : 0, function); // a quotient is written on the way
    const limb_t* divisor = d->_mp_d;
    if (q == d) {
        copy_limbs(divisor_copy, divisor, ds);
        divisor = divisor_copy;
    }
    limb_t* const rest = r ? r->_mp_d : nullptr;
    Sizes sizes{qn + 1, ds};
    if (ds <= kSchoolbookDivisor) {
        limb_t unwanted[kSchoolbookDivisor];
        const limb_t top =
            vor_gmp_mpl_divqr_long(quotient, rest ? rest : unwanted, n->_mp_d, ns, divisor, ds);
        if (q) quotient[qn] = top;
    } else if (qn > kShortQuotient) {
        Limbs<kLocal> unwanted(r ? 0 : ds, function);
        vor_gmp_mpl_divqr_dc(quotient, &sizes.quotient, rest ? rest : unwanted, &sizes.rest,
                             n->_mp_d, ns, divisor, ds);
    } else {
        sizes = divide_short(quotient, rest, n, divisor, ds, function);
    }
    if (q) finish(q, sizes.quotient, false);
    if (r) finish(r, sizes.rest, false);
}

} // namespace

VOR_ENGINE void vor_gmp_vor_gmp_div_qr PARAMS_QRND {
    divide(q, r, n, d, __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp_vor_gmp_div_q PARAMS_DIV_Q {
    divide(q, nullptr, n, d, __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp_vor_gmp_div_r PARAMS_DIV_R {
    divide(nullptr, r, n, d, __builtin_FUNCTION());
}
