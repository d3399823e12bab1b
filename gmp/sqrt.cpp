// Square roots by Zimmermann's recursion (Karatsuba Square Root, INRIA report 3805, 1999): half of the
// digits, a division for the others, a square for what is left.
#include "gmp/root.h"
#include "gmp/thresholds.h"

#include <math.h>

using namespace vor;
using namespace vor::gmp;

namespace {

// floor(sqrt(n)) for n >= 2^62; n - s^2 has 33 bits.
limb_t root_of_two(uint64_t n, uint64_t* rest) {
    // The extended root is off by less than one, the double one by no more than that.
    const double estimate = sqrt(static_cast<double>(n));
    limb_t s = estimate >= 4294967295.0 ? ~limb_t{0} : static_cast<limb_t>(estimate);
    while (uint64_t{s} * s > n) --s;
    while (s < ~limb_t{0} && (uint64_t{s} + 1) * (uint64_t{s} + 1) <= n) ++s;
    *rest = n - uint64_t{s} * s;
    return s;
}

// s = floor(sqrt(n)) of the 2h limbs at n, the top one 2^30 or above; n - s^2 replaces the low h limbs
// of n, with the result as its top bit. scratch: h + 2 limbs.
//
// With l = h / 2, s' the root of the upper limbs and r' what it leaves: (q, u) = (r' B^l + a1) by 2 s',
// s = s' B^l + q, the rest u B^l + a0 - q^2, and if that is negative, s is one too large.
limb_t root(limb_t* s, limb_t* n, int h, limb_t* scratch) {
    if (h == 1) {
        uint64_t rest;
        s[0] = root_of_two(uint64_t{n[1]} << 32 | n[0], &rest);
        n[0] = static_cast<limb_t>(rest);
        return static_cast<limb_t>(rest >> 32);
    }
    const int l = h / 2, m = h - l; // limbs of q and of s'
    limb_t* const upper = s + l;
    const limb_t above = root(upper, n + 2 * l, m, scratch);
    // By s', then by 2: r' <= 2 s', so that at most two units of B^l go in front.
    if (above) limb::sub_n(n + 2 * l, n + 2 * l, upper, m);
    limb_t* const q = scratch;
    limb::divide(q, n + l, n + l, h, upper, m);
    const limb_t top = q[l] + above;
    const bool odd = q[0] % 2;
    limb::rshift(s, q, l, 1);
    s[l - 1] |= top << 31;
    int carry = odd ? static_cast<int>(limb::add_n(n + l, n + l, upper, m)) : 0;
    if (top / 2) { // q = B^l: its other limbs are 0
        limb::increment(upper, m, 1);
        carry -= static_cast<int>(limb::decrement(n + 2 * l, h - 2 * l, 1));
    } else {
        limb::square(scratch, s, l);
        carry -= static_cast<int>(limb::sub(n, n, h, scratch, 2 * l));
    }
    if (carry >= 0) return static_cast<limb_t>(carry);
    limb::decrement(s, h, 1);
    carry += static_cast<int>(limb::addmul_1(n, s, h, 2));
    carry += static_cast<int>(limb::increment(n, h, 1));
    return static_cast<limb_t>(carry);
}

} // namespace

namespace vor::gmp {

bool integer_sqrt(vor_mpz* s, const vor_mpz* n) {
    const int size = value_size(n);
    if (size == 0) {
        s->_mp_size = 0;
        return true;
    }
    // Shifted by an even number of bits to whole pairs of limbs.
    const int h = size / 2 + size % 2;
    const unsigned bits = static_cast<unsigned>(__builtin_clz(n->_mp_d[size - 1])) & ~1u;
    const int pad = size % 2;
    Limbs<kLocal> work(uint64_t{4} * static_cast<unsigned>(h) + 2);
    limb_t *const shifted = work, *const result = work + 2 * h, *const scratch = result + h;
    shifted[0] = 0;
    limb::lshift(shifted + pad, n->_mp_d, size, bits);
    const limb_t top = root(result, shifted, h, scratch);
    const bool exact = top == 0 && limb::normal_size(shifted, h) == 0;
    limb_t* const limbs = grow(s, static_cast<int>(h));
    const unsigned down = bits / 2 + 16 * static_cast<unsigned>(pad);
    limb::rshift(limbs, result, h, down);
    finish(s, h, false);
    return exact;
}

} // namespace vor::gmp
