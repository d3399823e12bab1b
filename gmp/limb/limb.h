// The limb floor: what all integer arithmetic does to arrays of unsigned 32-bit limbs, the least
// significant first. Each operation stands here once.
//
// Unless an operation says otherwise: n is at least 0, and an operation on no limbs writes nothing and
// returns 0. r may be the same array as an operand of its own length; otherwise arrays do not
// overlap. The returned limb completes the result, so that nothing is lost.
#pragma once

#include "gmp/limb/kernel/carry_chains.h"
#include "gmp/limb/kernel/moves.h"
#include "gmp/limb/kernel/shift.h"
#include "gmp/limb/word.h"

namespace vor::limb {

// ---- Moves and sizes -----------------------------------------------------------------------------

inline void clear(word* r, int n) {
    fill(r, n, 0);
}

// n without zero limbs on top, may be 0.
inline int normal_size(const word* a, int n) {
    while (n > 0 && a[n - 1] == 0) --n;
    return n;
}

// 1, 0, -1 for a above, equal to, below b.
inline int compare(const word* a, const word* b, int n) {
    for (; n > 4; n -= 4)
        if ((a[n - 1] ^ b[n - 1]) | (a[n - 2] ^ b[n - 2]) | (a[n - 3] ^ b[n - 3]) |
            (a[n - 4] ^ b[n - 4]))
            break;
    while (--n >= 0)
        if (a[n] != b[n]) return a[n] > b[n] ? 1 : -1;
    return 0;
}

// The same for arrays without zeros on top.
inline int compare(const word* a, int an, const word* b, int bn) {
    if (an != bn) return an > bn ? 1 : -1;
    return compare(a, b, an);
}

// ---- Sums (see also carry_chains.h: add_n, sub_n) -----------------------------------------------------

// r = a + w, all n limbs written; the carry. n = 0: w.
inline word add_1(word* r, const word* a, int n, word w) {
    int i = 0;
    for (; i < n && w; ++i) w = __builtin_add_overflow(a[i], w, &r[i]);
    if (r != a) copy(r + i, a + i, n - i);
    return w;
}

// r = a - w, all n limbs written; the borrow. n = 0: w.
inline word sub_1(word* r, const word* a, int n, word w) {
    int i = 0;
    for (; i < n && w; ++i) w = __builtin_sub_overflow(a[i], w, &r[i]);
    if (r != a) copy(r + i, a + i, n - i);
    return w;
}

// r += w, as far as the carry goes; what falls off. n = 0: w.
inline word increment(word* r, int n, word w) {
    for (int i = 0; i < n && w; ++i) w = __builtin_add_overflow(r[i], w, &r[i]);
    return w;
}

// r -= w, as far as the borrow goes; what falls off. n = 0: w.
inline word decrement(word* r, int n, word w) {
    for (int i = 0; i < n && w; ++i) w = __builtin_sub_overflow(r[i], w, &r[i]);
    return w;
}

// r[0 .. an) = a + b, an >= bn; the carry.
inline word add(word* r, const word* a, int an, const word* b, int bn) {
    return add_1(r + bn, a + bn, an - bn, add_n(r, a, b, bn));
}

// r[0 .. an) = a - b, an >= bn; the borrow.
inline word sub(word* r, const word* a, int an, const word* b, int bn) {
    return sub_1(r + bn, a + bn, an - bn, sub_n(r, a, b, bn));
}

// r = -a over n limbs; 1 if a is not 0.
inline word negate(word* r, const word* a, int n) {
    int i = 0;
    for (; i < n && a[i] == 0; ++i) r[i] = 0;
    if (i >= n) return 0;
    r[i] = 0 - a[i];
    ++i;
    complement(r + i, a + i, n - i);
    return 1;
}

// ---- Products ------------------------------------------------------------------------------------

#pragma GCC visibility push(hidden)
// r[0 .. an + bn) = a * b by schoolbook, for any lengths.
void mul_basecase(word* r, const word* a, int an, const word* b, int bn);
// r[0 .. an + bn) = a * b by the method that the lengths call for. The two operands may be one array.
void multiply(word* r, const word* a, int an, const word* b, int bn);
// r[0 .. 2n) = a * b.
void multiply_n(word* r, const word* a, const word* b, int n);
// The same by Karatsuba's method down to schoolbook.
void multiply_karatsuba(word* r, const word* a, const word* b, int n);
// The same with four parts a factor, n >= 64; b may be a.
void multiply_toom4(word* r, const word* a, const word* b, int n);
// r[0 .. 2n) = a * a: by schoolbook, n < kKaratsubaSquare; by Karatsuba's method down to it; by the method
// that the length calls for.
void square_basecase(word* r, const word* a, int n);
void square_karatsuba(word* r, const word* a, int n);
void square(word* r, const word* a, int n);

// ---- Quotients -------------------------------------------------------------------------------------

// q = floor(a / d) over n limbs, unless q is null; the remainder. d is not 0; q may be a.
word divide_1(word* q, const word* a, int n, word d);
// q = floor(a / b), an - bn + 1 limbs, r = a mod b, bn limbs; either may be null. an >= bn >= 1, the
// top limb of b is not 0. q and r may overlap a, but neither each other nor b.
void divide(word* q, word* r, const word* a, int an, const word* b, int bn);
// The schoolbook step of it, in place: w, nn + 1 limbs, by the normalised e, dn >= 2 limbs, where the
// upper dn limbs of w are below e or w[nn] is 0. The low nn - dn limbs of the quotient into q, unless
// q is null, the one above as the result, the remainder in the low dn limbs of w.
word divide_schoolbook(word* q, word* w, int nn, const word* e, int dn);
#pragma GCC visibility pop

} // namespace vor::limb
