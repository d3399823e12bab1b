// Products of equal lengths from seven values (Toom, Soviet Mathematics Doklady 3, 1963; the values at 0,
// 1, -1, 2, -2, 1/2 and infinity). With a(x) = a0 + a1 x + a2 x^2 + a3 x^3, four parts of k limbs of which
// the top one may be shorter, and b alike, the product at x = B^k is c(x) = c0 + ... + c6 x^6. All c are
// at least 0 and below 4 B^2k:
//
//     E1 = (c(1) + c(-1)) / 2 = c0 + c2 + c4 + c6         O1 = (c(1) - c(-1)) / 2 = c1 + c3 + c5
//     E2 = (c(2) + c(-2)) / 2 = c0 + 4 c2 + 16 c4 + 64 c6 O2 = (c(2) - c(-2)) / 4 = c1 + 4 c3 + 16 c5
//     H  = (64 c(1/2) - c6 - 4 c4 - 16 c2 - 64 c0) / 2 = 16 c1 + 4 c3 + c5
//     (H + O2 - 8 O1) / 9 = c1 + c5,  (H - O2) / 15 = c1 - c5
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "gmp/thresholds.h"

namespace vor::limb {

namespace {

// The values of one operand, k + 1 limbs each.
struct Values {
    word *one, *minus_one, *two, *minus_two, *half;
    bool minus_one_negative, minus_two_negative;
};

// r = |x - y| over n limbs; true if x < y.
bool difference(word* r, const word* x, const word* y, int n) {
    const bool negative = compare(x, y, n) < 0;
    sub_n(r, negative ? y : x, negative ? x : y, n);
    return negative;
}

// r = a + 2^bits b, an limbs and bn <= an, and one limb for the carry. r may be a.
void add_shifted(word* r, const word* a, int an, const word* b, int bn, unsigned bits) {
    copy(r, a, an);
    r[an] = increment(r + bn, an - bn, addmul_1(r, b, bn, word{1} << bits));
}

// top limbs of a3; scratch of 2 (k + 1) limbs
Values evaluate(word* memory, const word* a, int k, int top, word* scratch) {
    const int n = k + 1;
    const word *const a0 = a, *const a1 = a0 + k, *const a2 = a1 + k, *const a3 = a2 + k;
    word *const even = scratch, *const odd = even + n;
    Values v{memory, memory + n, memory + 2 * n, memory + 3 * n, memory + 4 * n, false, false};
    add_shifted(even, a0, k, a2, k, 0);
    add_shifted(odd, a1, k, a3, top, 0);
    add_n(v.one, even, odd, n);
    v.minus_one_negative = difference(v.minus_one, even, odd, n);
    add_shifted(even, a0, k, a2, k, 2);
    add_shifted(odd, a1, k, a3, top, 2);
    lshift(odd, odd, n, 1);
    add_n(v.two, even, odd, n);
    v.minus_two_negative = difference(v.minus_two, even, odd, n);
    // ((2 a0 + a1) 2 + a2) 2 + a3
    v.half[k] = lshift(v.half, a0, k, 1);
    v.half[k] += add_n(v.half, v.half, a1, k);
    lshift(v.half, v.half, n, 1);
    v.half[k] += add_n(v.half, v.half, a2, k);
    lshift(v.half, v.half, n, 1);
    increment(v.half + top, n - top, add_n(v.half, v.half, a3, top));
    return v;
}

// r, 2 k + 2 limbs, = x y for x, y of k limbs and a small one.
void multiply_values(word* r, const word* x, const word* y, int k) {
    multiply_n(r, x, y, k);
    r[2 * k] = x[k] * y[k];
    r[2 * k + 1] = 0;
    if (x[k]) increment(r + 2 * k, 2, addmul_1(r + k, y, k, x[k]));
    if (y[k]) increment(r + 2 * k, 2, addmul_1(r + k, x, k, y[k]));
}

// x = (x + y) / 2, y = (x - y) / 2 over n limbs.
void halve(word* x, word* y, int n) {
    sub_n(y, x, y, n);
    rshift(y, y, n, 1);
    sub_n(x, x, y, n);
}

// x = x / d over n limbs for an odd d that divides x, by its inverse modulo B: from the lowest limb up
// (Jebelean, Journal of Symbolic Computation 15, 1993).
void divide_exactly(word* x, int n, word d, word inverse) {
    word borrow = 0;
    for (int i = 0; i < n; ++i) {
        word low;
        const word under = __builtin_sub_overflow(x[i], borrow, &low);
        x[i] = low * inverse;
        borrow = static_cast<word>(dword{x[i]} * d >> 32) + under;
    }
}

// x -= 2^bits y, x of n limbs.
void subtract_shifted(word* x, int n, const word* y, int yn, unsigned bits) {
    yn = normal_size(y, yn);
    decrement(x + yn, n - yn, submul_1(x, y, yn, word{1} << bits));
}

// r[at ..) += x, r of n limbs.
void add_at(word* r, int n, int at, const word* x, int xn) {
    xn = normal_size(x, xn);
    increment(r + at + xn, n - at - xn, add_n(r + at, r + at, x, xn));
}

} // namespace

void multiply_toom4(word* r, const word* a, const word* b, int n) {
    const int k = (n + 3) / 4, top = n - 3 * k, m = 2 * (k + 1);
    Limbs<0> memory(uint64_t{10} * m);
    word* const products = memory;
    word *const c1 = products, *const c_1 = c1 + m, *const c2 = c_1 + m, *const c_2 = c2 + m,
                *const h = c_2 + m, *const values = h + m, *const scratch = c1;
    const Values x = evaluate(values, a, k, top, scratch);
    const Values y = a == b ? x : evaluate(values + 5 * (k + 1), b, k, top, scratch);
    multiply_values(c1, x.one, y.one, k);
    multiply_values(c_1, x.minus_one, y.minus_one, k);
    multiply_values(c2, x.two, y.two, k);
    multiply_values(c_2, x.minus_two, y.minus_two, k);
    multiply_values(h, x.half, y.half, k);
    word *const v0 = r, *const v6 = r + 6 * k; // in their places
    multiply_n(v0, a, b, k);
    multiply_n(v6, a + 3 * k, b + 3 * k, top);

    halve(c1, c_1, m);
    halve(c2, c_2, m);
    const bool swap_1 = x.minus_one_negative != y.minus_one_negative;
    const bool swap_2 = x.minus_two_negative != y.minus_two_negative;
    word *const e1 = swap_1 ? c_1 : c1, *const o1 = swap_1 ? c1 : c_1;
    word *const e2 = swap_2 ? c_2 : c2, *const o2 = swap_2 ? c2 : c_2;
    rshift(o2, o2, m, 1);
    subtract_shifted(e1, m, v0, 2 * k, 0); // c2 + c4
    subtract_shifted(e1, m, v6, 2 * top, 0);
    subtract_shifted(e2, m, v0, 2 * k, 0);
    subtract_shifted(e2, m, v6, 2 * top, 6);
    rshift(e2, e2, m, 2); // c2 + 4 c4
    sub_n(e2, e2, e1, m);
    divide_exactly(e2, m, 3, 0xaaaaaaab); // c4
    sub_n(e1, e1, e2, m);                 // c2
    subtract_shifted(h, m, v6, 2 * top, 0);
    subtract_shifted(h, m, e2, m, 2);
    subtract_shifted(h, m, e1, m, 4);
    subtract_shifted(h, m, v0, 2 * k, 6);
    rshift(h, h, m, 1);
    // Modulo B^m, where differences may be negative.
    word *const sum = values, *const twice = sum + m;
    add_n(sum, h, o2, m);
    sub_n(h, h, o2, m);
    divide_exactly(h, m, 15, 0xeeeeeeef); // c1 - c5
    lshift(twice, o1, m, 3);
    sub_n(sum, sum, twice, m);
    divide_exactly(sum, m, 9, 0x38e38e39); // c1 + c5
    sub_n(o1, o1, sum, m);                 // c3
    add_n(h, h, sum, m);
    rshift(h, h, m, 1);    // c1
    sub_n(sum, sum, h, m); // c5

    copy(r + 2 * k, e1, 2 * k);
    copy(r + 4 * k, e2, 2 * k);
    add_at(r, 2 * n, 4 * k, e1 + 2 * k, 2);
    add_at(r, 2 * n, 6 * k, e2 + 2 * k, 2);
    add_at(r, 2 * n, k, h, m);
    add_at(r, 2 * n, 3 * k, o1, m);
    add_at(r, 2 * n, 5 * k, sum, m);
}

} // namespace vor::limb
