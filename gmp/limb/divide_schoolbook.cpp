// Division by one quotient limb at a time (Knuth, 4.3.1, algorithm D), estimated from three limbs by
// two: at most one too large.
#include "gmp/limb/divide_preinv.h"
#include "gmp/limb/limb.h"

namespace vor::limb {

word divide_schoolbook(word* q, word* w, int nn, const word* e, int dn) {
    const word d1 = e[dn - 1], d0 = e[dn - 2], v = inverse_of(d1);
    word top = 0;
    for (int j = nn - dn; j >= 0; --j) {
        word* const part = w + j;
        word digit = quotient_3_by_2(part[dn], part[dn - 1], part[dn - 2], d1, d0, v);
        if (digit && submul_1(part, e, dn, digit) != part[dn]) {
            add_n(part, part, e, dn);
            --digit;
        }
        part[dn] = 0;
        if (j == nn - dn)
            top = digit;
        else if (q)
            q[j] = digit;
    }
    return top;
}

} // namespace vor::limb
