// Quotient and remainder of magnitudes, by the method that the sizes call for. Results may be
// operands; the two results are different records.
#include "gmp/divide.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

struct Sizes {
    int quotient, rest;
};

// A quotient of few limbs by a divisor of ds, on a copy of n, since q may be n. q or r may be null.
Sizes divide_short(limb_t* q, limb_t* r, const vor_mpz* n, const limb_t* d, int ds) {
    const int ns = limbs_of(n);
    limb_t unwanted[kShortQuotient + 2];
    if (!q) q = unwanted;
    Limbs<kLocal> rest(ns);
    limb::copy(rest, n->_mp_d, ns);
    if (!r) return {vor_gmp_mpl_divq_sq(q, rest, ns, d, ds), 0};
    Sizes sizes;
    sizes.rest = vor_gmp_mpl_divqr_sq(q, &sizes.quotient, rest, ns, d, ds);
    limb::copy(r, rest, sizes.rest);
    return sizes;
}

// q or r may be null.
void divide(vor_mpz* q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d) {
    const int ns = value_size(n), ds = value_size(d);
    if (ds == 0) limb::divide_by_zero();
    if (ds == 1) {
        const limb_t rest = divide_magnitude(q, n, d->_mp_d[0]);
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
    limb_t* const quotient = q ? grow(q, uint64_t{2} + qn) : nullptr;
    if (r) grow(r, ds);
    Limbs<kLocal> divisor_copy(q == d ? ds : 0); // a quotient is written on the way
    const limb_t* divisor = d->_mp_d;
    if (q == d) {
        limb::copy(divisor_copy, divisor, ds);
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
        Limbs<kLocal> unwanted(r ? 0 : ds);
        vor_gmp_mpl_divqr_dc(quotient, &sizes.quotient, rest ? rest : unwanted, &sizes.rest,
                             n->_mp_d, ns, divisor, ds);
    } else {
        sizes = divide_short(quotient, rest, n, divisor, ds);
    }
    if (q) finish(q, sizes.quotient, false);
    if (r) finish(r, sizes.rest, false);
}

} // namespace

VOR_GMP(void, vor_gmp_div_qr, VOR_GMP_DIV_QR, vor_gmp_vor_gmp_div_qr,
        (vor_mpz * q, vor_mpz* r, const vor_mpz* n, const vor_mpz* d), (q, r, n, d)) {
    divide(q, r, n, d);
}

VOR_GMP(void, vor_gmp_div_q, VOR_GMP_DIV_Q, vor_gmp_vor_gmp_div_q,
        (vor_mpz * q, const vor_mpz* n, const vor_mpz* d), (q, n, d)) {
    divide(q, nullptr, n, d);
}

VOR_GMP(void, vor_gmp_div_r, VOR_GMP_DIV_R, vor_gmp_vor_gmp_div_r,
        (vor_mpz * r, const vor_mpz* n, const vor_mpz* d), (r, n, d)) {
    divide(nullptr, r, n, d);
}
