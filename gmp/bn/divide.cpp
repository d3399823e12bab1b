// Division of word arrays: a = q * b + r by one quotient word at a time, estimated from the top two
// words of a and the top word of the normalised b, refined by the next word of both, and then at
// most one too large (Knuth, 4.3.1, theorem B and exercise 19).
#include "gmp/bn/divide_word.h"

using namespace vor;
using namespace vor::bn;

namespace {

// The remainder of a by d, from the top word down; q may be null.
word divide_by_word(const word* a, int n, word d, word* q) {
    word remainder = 0;
    for (int i = n - 1; i >= 0; --i) {
        const QuotientRemainder step = divide_2_by_1(remainder, a[i], d);
        remainder = step.remainder;
        if (q) q[i] = step.quotient;
    }
    return remainder;
}

// floor((a2, a1) / b1), refined by (b0, a0): at most one above floor((a2, a1, a0) / (b1, b0)), and
// below 2^32. b1 has its top bit set; (a2, a1) < (b1, b0) as a part of a remainder.
word estimate(word a2, word a1, word a0, word b1, word b0) {
    dword quotient, rest;
    if (a2 < b1) {
        const QuotientRemainder top = divide_2_by_1(a2, a1, b1);
        quotient = top.quotient;
        rest = top.remainder;
    } else { // a2 = b1
        quotient = dword{1} << 32;
        rest = a1;
    }
    while (quotient >> 32 || quotient * b0 > (rest << 32 | a0)) {
        --quotient;
        rest += b1;
        if (rest >> 32) break;
    }
    return static_cast<word>(quotient);
}

// a[0 .. bn] -= q * b, with the quotient word that leaves 0 <= a < b; that word.
word subtract_multiple(word* a, const word* b, int bn, word q) {
    const word borrow = limb::submul_1(a, b, bn, q);
    if (!__builtin_sub_overflow(a[bn], borrow, &a[bn])) return q;
    a[bn] += limb::add_n(a, a, b, bn);
    return q - 1;
}

} // namespace

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
        a[0] = divide_by_word(a, an, b[0], q);
        *rn = 1;
    } else {
        const unsigned shift = static_cast<unsigned>(NLZ32u(b[bn - 1]));
        a[an] = 0;
        LSL_BNU(a, a, an, shift);
        LSL_BNU(b, b, bn, shift);
        for (int j = top; j >= 0; --j) {
            const word guess =
                estimate(a[j + bn], a[j + bn - 1], a[j + bn - 2], b[bn - 1], b[bn - 2]);
            const word digit = subtract_multiple(a + j, b, bn, guess);
            if (q) q[j] = digit;
        }
        LSR_BNU(a, a, bn, shift);
        LSR_BNU(b, b, bn, shift);
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
