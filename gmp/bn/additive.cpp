// Sums and differences of word arrays.
#include "gmp/bn/bignum.h"

using namespace vor;
using namespace vor::bn;

extern "C" {
void cpAdd_BNU(const word* a, const word* b, word* r, int n, word* carry) {
    *carry = limb::add_n(r, a, b, n);
}

void cpSub_BNU(const word* a, const word* b, word* r, int n, word* borrow) {
    *borrow = limb::sub_n(r, a, b, n);
}

int cpAdd_BNUs(const word* a, int an, const word* b, int bn, word* r, int* rn, int room) {
    if (an < bn) return cpAdd_BNUs(b, bn, a, an, r, rn, room);
    *rn = an;
    if (limb::add(r, a, an, b, bn) == 0) return 1;
    if (an == room) return 0;
    r[(*rn)++] = 1;
    return 1;
}

void cpSub_BNUs(const word* a, int an, const word* b, int bn, word* r, int* rn, word* sgn) {
    *sgn = cpCompare_BNUs(a, an, b, bn) >= 0;
    if (!*sgn) {
        const word* const larger = b;
        const int n = bn;
        b = a;
        bn = an;
        a = larger;
        an = n;
    }
    limb::sub(r, a, an, b, bn);
    *rn = trimmed(r, an);
}

TavStatus tavsAdd_BNU(const word* a, const word* b, word* r, int n, word* carry) {
    if (any_null(a, b, r, carry)) return tavStsNullPtrErr;
    if (n < 1) return tavStsLengthErr;
    cpAdd_BNU(a, b, r, n, carry);
    return tavStsNoErr;
}

TavStatus tavsSub_BNU(const word* a, const word* b, word* r, int n, word* borrow) {
    if (any_null(a, b, r, borrow)) return tavStsNullPtrErr;
    if (n < 1) return tavStsLengthErr;
    cpSub_BNU(a, b, r, n, borrow);
    return tavStsNoErr;
}
}
