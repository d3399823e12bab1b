// Quotient and remainder of limb arrays: by one limb, by schoolbook, and for long quotients by recursion
// (Burnikel and Ziegler, MPI Saarbruecken, research report MPI-I-98-1-022, 1998), for longer ones by an
// inverse.
//
// Everything below `divide` works in place on a numerator w of dn + k limbs and a normalised divisor e
// of dn limbs, with the upper dn limbs of w below e: the quotient has k limbs, and the remainder ends in
// the low dn limbs of w.
#include "gmp/limb/divide_newton.h"
#include "gmp/limb/limb.h"
#include "gmp/limb/scratch.h"
#include "gmp/thresholds.h"

namespace vor::limb {

using namespace vor::gmp; // thresholds

namespace {

void divide_in_place(word* q, word* w, int k, const word* e, int dn, word* product);

// k < dn: the quotient of the upper 2k limbs of w by the upper k limbs of e is that of w by e, or at most
// two too large, as the product with the rest of e tells.
void divide_truncated(word* q, word* w, int k, const word* e, int dn, word* product) {
    const int cut = dn - k;
    word* const top = w + cut;
    word above = 0; // what the remainder has above its dn limbs
    if (compare(top + k, e + cut, k) < 0) {
        divide_in_place(q, top, k, e + cut, k, product);
    } else { // the upper k limbs are equal: the largest quotient
        fill(q, k, ~word{0});
        above = add_n(top, top, e + cut, k);
    }
    multiply(product, e, cut, q, k);
    above -= sub_n(w, w, product, dn);
    while (above) {
        decrement(q, k, 1);
        above += add_n(w, w, e, dn);
    }
}

// k = dn, in two halves.
void divide_halves(word* q, word* w, const word* e, int dn, word* product) {
    const int half = dn / 2;
    divide_truncated(q + half, w + half, dn - half, e, dn, product);
    divide_truncated(q, w, half, e, dn, product);
}

// k >= dn: dn limbs of quotient at a time, by one inverse. False, and w is as it was, without memory.
bool divide_newton(word* q, word* w, int k, const word* e, int dn, word* product) {
    Limbs<0> x(uint64_t{1} + dn);
    if (!inverse(x, e, dn)) return false;
    for (int rest = k; rest > 0;) {
        const int piece = rest % dn ? rest % dn : dn;
        rest -= piece;
        word *const digits = q + rest, *const part = w + rest;
        if (piece < dn)
            divide_in_place(digits, part, piece, e, dn, product);
        else if (!divide_by_inverse(digits, part, e, dn, x))
            divide_halves(digits, part, e, dn, product);
    }
    return true;
}

// `product` is scratch of dn limbs.
void divide_in_place(word* q, word* w, int k, const word* e, int dn, word* product) {
    if (dn < kRecursiveDivisor || k < kRecursiveQuotient) {
        if (k > 0) q[k - 1] = divide_schoolbook(q, w, dn + k - 1, e, dn);
        return;
    }
    if (k < dn) return divide_truncated(q, w, k, e, dn, product);
    if (k >= dn && dn >= kNewtonDivisor && divide_newton(q, w, k, e, dn, product)) return;
    if (k == dn) return divide_halves(q, w, e, dn, product);
    for (int rest = k; rest > 0;) {
        const int piece = rest % dn ? rest % dn : dn;
        rest -= piece;
        divide_in_place(q + rest, w + rest, piece, e, dn, product);
    }
}

} // namespace

void divide(word* q, word* r, const word* a, int an, const word* b, int bn) {
    if (bn == 1) {
        const word rest = divide_1(q, a, an, b[0]);
        if (r) r[0] = rest;
        return;
    }
    const int k = an - bn + 1;
    const unsigned s = static_cast<unsigned>(__builtin_clz(b[bn - 1]));
    const bool recursive = bn >= kRecursiveDivisor && k >= kRecursiveQuotient;
    const int e_room = s ? bn : 0, q_room = q ? 0 : k, product_room = recursive ? bn : 0;
    Limbs<2 * kLocal> scratch(uint64_t{1} + an + e_room + q_room + product_room);
    word *const w = scratch, *const shifted = w + an + 1, *const unwanted = shifted + e_room;
    w[an] = 0;
    if (s) {
        w[an] = lshift(w, a, an, s);
        lshift(shifted, b, bn, s);
    } else {
        copy(w, a, an);
    }
    divide_in_place(q ? q : unwanted, w, k, s ? shifted : b, bn, unwanted + q_room);
    if (r) rshift(r, w, bn, s);
}

} // namespace vor::limb
