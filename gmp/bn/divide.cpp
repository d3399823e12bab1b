// Division of word arrays: a = q * b + r by schoolbook, in place, with no memory but the caller's.
#include "gmp/bn/bignum.h"
#include "gmp/limb/kernel/divide_2_by_1.h"

using namespace vor;
using namespace vor::bn;
using limb::divide_2_by_1;
using limb::QuotientRemainder;

extern "C" {
void cpDiv_BNU(word* a, int an, word* b, int bn, word* q, int* qn, int* rn) {
    an = trimmed(a, an);
    bn = trimmed(b, bn);
    if (an < bn) {
        *rn = an;
        if (q) q[0] = 0, *qn = 1;
        return;
    }
    const int top = an - bn;
    if (bn == 1) {
        a[0] = limb::divide_1(q, a, an, b[0]);
        *rn = 1;
    } else {
        const unsigned shift = static_cast<unsigned>(NLZ32u(b[bn - 1]));
        a[an] = limb::lshift(a, a, an, shift);
        limb::lshift(b, b, bn, shift);
        const word digit = limb::divide_schoolbook(q, a, an, b, bn);
        if (q) q[top] = digit;
        limb::rshift(a, a, bn, shift);
        limb::rshift(b, b, bn, shift);
        *rn = trimmed(a, bn);
    }
    if (q) *qn = trimmed(q, top + 1);
}

vor_dword cpDiv64u32u(word lo, word hi, word d) {
    const QuotientRemainder result = divide_2_by_1(hi, lo, d);
    return dword{result.remainder} << 32 | result.quotient;
}

TavStatus tavsDiv_64u32u(word lo, word hi, word d, word* q, word* r) {
    if (any_null(q, r)) return tavStsNullPtrErr;
    if (d == 0) return tavStsDivByZeroErr;
    if (d <= hi) return tavStsOutOfRangeErr;
    const QuotientRemainder result = divide_2_by_1(hi, lo, d);
    *q = result.quotient;
    *r = result.remainder;
    return tavStsNoErr;
}
}
