// Quotient and remainder of magnitudes, by the method that the sizes call for. Results may be
// operands; the two results are different records.
#include "gmp/divide.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

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
    // One limb more than the quotient has: rounding may carry into it.
    limb_t* const quotient = q ? grow(q, uint64_t{2} + qn) : nullptr;
    limb_t* const rest = r ? grow(r, ds) : nullptr;
    Limbs<kLocal> divisor_copy(q == d || r == d ? ds : 0); // results are written on the way
    const limb_t* divisor = d->_mp_d;
    if (q == d || r == d) {
        limb::copy(divisor_copy, divisor, ds);
        divisor = divisor_copy;
    }
    limb::divide(quotient, rest, n->_mp_d, ns, divisor, ds);
    if (q) finish(q, qn + 1, false);
    if (r) finish(r, ds, false);
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
