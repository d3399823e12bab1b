// Products of word arrays, by schoolbook.
#include "gmp/bn/bignum.h"
#include "gmp/bn/fixed_product.h"

using namespace vor;
using namespace vor::bn;

namespace {

// b in blocks of as many words as a strip of the kernel has; an >= bn.
void mul_basecase(word* r, const word* a, int an, const word* b, int bn) {
    int n = bn < limb::kMostColumns ? bn : limb::kMostColumns;
    limb::mul_columns(r, a, an, b, n);
    for (int j = n; j < bn; j += n) {
        n = bn - j < limb::kMostColumns ? bn - j : limb::kMostColumns;
        Set_BNU(0, r + j + an, n);
        limb::addmul_columns(r + j, a, an, b + j, n);
    }
}

} // namespace

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

// The lengths at which most products arrive, the leaves of the recursive multiplication among them,
// go without the bookkeeping of columns.
void cpMul_BNU_FullSize(const word* a, int an, const word* b, int bn, word* r) {
    if (an < bn) return cpMul_BNU_FullSize(b, bn, a, an, r);
    if (bn == 0) return Set_BNU(0, r, an);
    if (bn == 1) {
        r[an] = limb::mul_1(r, a, an, b[0]);
        return;
    }
    if (an == bn) {
        if (an == 2) return limb::mul_fixed<2>(r, a, b);
        if (an == 4) return limb::mul_fixed<4>(r, a, b);
        if (an == 8) return limb::mul_fixed<8>(r, a, b);
        if (an == 16) return limb::mul_fixed<16>(r, a, b);
    }
    mul_basecase(r, a, an, b, bn);
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
        if (add_1(r + j + an, room - j - an, carry) != 0) return 0;
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
}

#define FIXED(N)                                                                                   \
    extern "C" TavStatus tavsMul_BNU##N(const word* a, const word* b, word* r) {                   \
        if (any_null(a, b, r)) return tavStsNullPtrErr;                                            \
        cpMul_BNU##N(a, b, r);                                                                     \
        return tavStsNoErr;                                                                        \
    }                                                                                              \
    extern "C" TavStatus tavsSqr_BNU##N(const word* a, word* r) {                                  \
        if (any_null(a, r)) return tavStsNullPtrErr;                                               \
        cpSqr_BNU##N(a, r);                                                                        \
        return tavStsNoErr;                                                                        \
    }
FIXED(4)
FIXED(8)
