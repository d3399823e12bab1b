// Division of limb arrays by schoolbook.
#include "gmp/integer.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

// Limbs 0 to nn - dn - 1 of the quotient into q, unless that is null; the one above is the result.
// r may be n.
VOR_GMP(unsigned, mpl_divqr_long, MPL_DIVQR_LONG, vor_gmp_mpl_divqr_long,
        (unsigned* q, unsigned* r, const unsigned* n, int nn, const unsigned* d, int dn),
        (q, r, n, nn, d, dn)) {
    if (dn == 1) {
        r[0] = limb::divide_1(q, n, nn, d[0]);
        return q ? q[nn - 1] : 0;
    }
    const unsigned s = static_cast<unsigned>(__builtin_clz(d[dn - 1]));
    Limbs<kLocal + 1> w(uint64_t{1} + nn);
    w[nn] = limb::lshift(w, n, nn, s);
    Limbs<kLocal> shifted(s ? dn : 0);
    if (s) limb::lshift(shifted, d, dn, s);
    const limb_t top = limb::divide_schoolbook(q, w, nn, s ? shifted : d, dn);
    limb::rshift(r, w, dn, s);
    return q || nn > 2 ? top : 0; // without q, a single limb of quotient is not told
}
