// Division by one quotient limb at a time (Knuth, 4.3.1, algorithm D), estimated from three limbs by
// two, which also gives the upper two limbs of what is left: at most one too large.
#include "gmp/limb/divide_preinv.h"
#include "gmp/limb/limb.h"

namespace vor::limb {

word divide_schoolbook(word* q, word* w, int nn, const word* e, int dn) {
    const int low = dn - 2; // limbs below those that the estimate sees
    const word d1 = e[dn - 1], d0 = e[dn - 2], v = inverse_of(d1, d0);
    const dword d = dword{d1} << 32 | d0;
    word top = 0;
    for (int j = nn - dn; j >= 0; --j) {
        word* const part = w + j;
        word digit;
        if (part[dn] == d1 && part[dn - 1] == d0) { // the largest digit
            digit = ~word{0};
            submul_1(part, e, dn, digit);
        } else {
            dword rest;
            digit = divide_3_by_2(part[dn], part[dn - 1], part[dn - 2], d, v, &rest);
            const word borrow = digit ? submul_1(part, e, low, digit) : 0;
            if (__builtin_sub_overflow(rest, borrow, &rest)) {
                rest += d + add_n(part, part, e, low);
                --digit;
            }
            part[dn - 1] = static_cast<word>(rest >> 32);
            part[dn - 2] = static_cast<word>(rest);
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
