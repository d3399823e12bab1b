// Quotient and remainder of magnitudes, by the method that the sizes call for. Results may be
// operands; the two results are different records.
#include "gmp/divide_limb.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kLocal = 256; // limbs of scratch on the stack

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
    int quotient_size = qn + 1, rest_size = ds;
    if (ds <= kSchoolbookDivisor) {
        limb_t unwanted[kSchoolbookDivisor];
        const limb_t top =
            vor_gmp_mpl_divqr_long(quotient, r ? r->_mp_d : unwanted, n->_mp_d, ns, divisor, ds);
        if (q) quotient[qn] = top;
    } else if (qn > kShortQuotient) {
        Limbs<kLocal> unwanted(r ? 0 : ds, function);
        vor_gmp_mpl_divqr_dc(quotient, &quotient_size, r ? r->_mp_d : unwanted, &rest_size,
                             n->_mp_d, ns, divisor, ds);
    } else {
        limb_t unwanted[kShortQuotient + 2];
        Limbs<kLocal> rest(ns, function);
        copy_limbs(rest, n->_mp_d, ns);
        limb_t* const digits = q ? quotient : unwanted;
        if (r) {
            rest_size = vor_gmp_mpl_divqr_sq(digits, &quotient_size, rest, ns, divisor, ds);
            copy_limbs(r->_mp_d, rest, rest_size);
        } else {
            quotient_size = vor_gmp_mpl_divq_sq(digits, rest, ns, divisor, ds);
        }
    }
    if (q) finish(q, quotient_size, false);
    if (r) finish(r, rest_size, false);
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
