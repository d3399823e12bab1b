// Products of word arrays, by schoolbook.
#include "gmp/bn/bignum.h"
#include "gmp/limb/kernel/fixed_product.h"

using namespace vor;
using namespace vor::bn;

extern "C" {
void cpMulDgt_BNU(const word* a, word* r, int n, word w, word* carry) {
    *carry = limb::mul_1(r, a, n, w);
}

void cpAddMulDgt_BNU(const word* a, word* r, int n, word w, word* carry) {
    *carry = limb::addmul_1(r, a, n, w);
}

void cpSubMulDgt_BNU(const word* a, word* r, int n, word w, word* borrow) {
    *borrow = limb::submul_1(r, a, n, w);
}

void cpMul_BNU4(const word* a, const word* b, word* r) {
    limb::mul_fixed<4>(r, a, b);
}

void cpMul_BNU8(const word* a, const word* b, word* r) {
    limb::mul_fixed<8>(r, a, b);
}

void cpSqr_BNU4(const word* a, word* r) {
    limb::sqr_fixed<4>(r, a);
}

void cpSqr_BNU8(const word* a, word* r) {
    limb::sqr_fixed<8>(r, a);
}

void cpMul_BNU_FullSize(const word* a, int an, const word* b, int bn, word* r) {
    limb::mul_basecase(r, a, an, b, bn);
}

// Where the room ends below the top word, that word is formed apart: the last row by itself.
int cpMul_BNUs(const word* a, int an, const word* b, int bn, word* r, int* rn) {
    if (*rn >= an + bn) {
        cpMul_BNU_FullSize(a, an, b, bn, r);
        *rn = trimmed(r, an + bn);
        return 1;
    }
    if (bn > 1) {
        cpMul_BNU_FullSize(a, an, b, bn - 1, r);
    } else {
        Set_BNU(0, r, an);
    }
    if (limb::addmul_1(r + bn - 1, a, an, b[bn - 1]) != 0) return 0;
    *rn = trimmed(r, an + bn - 1);
    return 1;
}

int cpMAC_BNU(const word* a, int an, const word* b, int bn, word* r, int* rn, int room) {
    if (Tst_BNU(a, an) == 0 || Tst_BNU(b, bn) == 0) return 1;
    if (an + bn - 1 > room) return 0;
    Set_BNU(0, r + *rn, room - *rn);
    for (int j = 0; j < bn; ++j) {
        const word carry = limb::addmul_1(r + j, a, an, b[j]);
        if (limb::increment(r + j + an, room - j - an, carry) != 0) return 0;
    }
    *rn = trimmed(r, room);
    return 1;
}

TavStatus tavsMulOne_BNU(const word* a, word* r, int n, word w, word* carry) {
    if (any_null(a, r, carry)) return tavStsNullPtrErr;
    if (n < 1) return tavStsLengthErr;
    cpMulDgt_BNU(a, r, n, w, carry);
    return tavStsNoErr;
}

TavStatus tavsMACOne_BNU_I(const word* a, word* r, int n, word w, word* carry) {
    if (any_null(a, r, carry)) return tavStsNullPtrErr;
    if (n < 1) return tavStsLengthErr;
    cpAddMulDgt_BNU(a, r, n, w, carry);
    return tavStsNoErr;
}

TavStatus tavsSqr_32u64u(const word* a, int n, word* r) {
    if (any_null(a, r)) return tavStsNullPtrErr;
    if (n < 1) return tavStsLengthErr;
    for (int i = 0; i < n; ++i) {
        const dword square = dword{a[i]} * a[i];
        r[2 * i] = static_cast<word>(square);
        r[2 * i + 1] = static_cast<word>(square >> 32);
    }
    return tavStsNoErr;
}

TavStatus tavsMul_BNU4(const word* a, const word* b, word* r) {
    if (any_null(a, b, r)) return tavStsNullPtrErr;
    cpMul_BNU4(a, b, r);
    return tavStsNoErr;
}

TavStatus tavsMul_BNU8(const word* a, const word* b, word* r) {
    if (any_null(a, b, r)) return tavStsNullPtrErr;
    cpMul_BNU8(a, b, r);
    return tavStsNoErr;
}

TavStatus tavsSqr_BNU4(const word* a, word* r) {
    if (any_null(a, r)) return tavStsNullPtrErr;
    cpSqr_BNU4(a, r);
    return tavStsNoErr;
}

TavStatus tavsSqr_BNU8(const word* a, word* r) {
    if (any_null(a, r)) return tavStsNullPtrErr;
    cpSqr_BNU8(a, r);
    return tavStsNoErr;
}
}
