// The exported quotients of limbs by one limb: names over the limb floor.
#include "gmp/integer.h"
#include "gmp/limb/divide_preinv.h"

using namespace vor;
using limb::dword;
using limb::word;

namespace {

// The quotient limb of three limbs by two, (t2, t1) <= (d1, d0), v the inverse of d1: exact for these
// limbs, and so for longer operands at most one too large.
word quotient_3_by_2(word t2, word t1, word t0, word d1, word d0, word v) {
    dword q;
    word rest;
    if (t2 < d1) {
        const limb::QuotientRemainder step = limb::divide_preinv(t2, t1, d1, v);
        q = step.quotient;
        rest = step.remainder;
    } else { // t2 = d1: the first estimate does not fit a limb, and is too large
        const bool one_more = t1 >= d1;
        q = (dword{1} << 32) + one_more;
        rest = one_more ? t1 - d1 : t1;
    }
    dword product = static_cast<word>(q) * dword{d0};
    while (q >> 32 || product > (dword{rest} << 32 | t0)) {
        --q;
        if (__builtin_add_overflow(rest, d1, &rest)) break;
        product = static_cast<word>(q) * dword{d0};
    }
    return static_cast<word>(q);
}

} // namespace

VOR_GMP(unsigned, mpn_divmod_1, MPN_DIVMOD_1, vor_gmp_mpn_divmod_1,
        (unsigned* q, const unsigned* n, int nn, unsigned d), (q, n, nn, d)) {
    if (d == 0) limb::divide_by_zero();
    return limb::divide_1(q, n, nn, d);
}

VOR_GMP(unsigned, mpn_mod_1, MPN_MOD_1, vor_gmp_mpn_mod_1, (const unsigned* n, int nn, unsigned d),
        (n, nn, d)) {
    if (d == 0) limb::divide_by_zero();
    return limb::divide_1(nullptr, n, nn, d);
}

VOR_GMP(unsigned, mpl_udiv_qqrnnd, MPL_UDIV_QQRNND, vor_gmp_mpl_udiv_qqrnnd,
        (unsigned nh, unsigned nl, unsigned d), (nh, nl, d)) {
    return limb::divide_2_by_1(nh < d ? nh : nh % d, nl, d).quotient;
}

VOR_GMP(unsigned, vor_gmp_udiv_qrnnd_preinv, VOR_GMP_UDIV_QRNND_PREINV,
        vor_gmp_vor_gmp_udiv_qrnnd_preinv,
        (unsigned* r, unsigned nh, unsigned nl, unsigned d, unsigned v), (r, nh, nl, d, v)) {
    const limb::QuotientRemainder step = limb::divide_preinv(nh, nl, d, v);
    *r = step.remainder;
    return step.quotient;
}

VOR_GMP(unsigned, mpl_divq_3_by_2, MPL_DIVQ_3_BY_2, vor_gmp_mpl_divq_3_by_2,
        (const unsigned* p, unsigned d1, unsigned d0, unsigned v), (p, d1, d0, v)) {
    return quotient_3_by_2(p[0], p[-1], p[-2], d1, d0, v);
}
