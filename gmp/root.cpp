// Integer roots. Square roots by Zimmermann's recursion: half of the digits, a division for the others.
// Other roots by Newton's iteration from above, at a precision that doubles (Brent and Zimmermann, Modern
// Computer Arithmetic, 1.5). Results may be the operand.
#include "gmp/root.h"
#include "gmp/integer.h"
#include "gmp/limb/kernel/divide_2_by_1.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// floor(sqrt(n)) for n >= 2^62, from the top bit down.
limb_t square_root(uint64_t n, uint64_t* rest) {
    limb_t s = static_cast<limb_t>(__builtin_sqrtl(static_cast<long double>(n)));
    // The root of a number of 64 bits, rounded to nearest, may be 2^32, and one too large.
    if (static_cast<long double>(s) * s > static_cast<long double>(n)) --s;
    *rest = n - uint64_t{s} * s;
    return s;
}

uint64_t low_two(const vor_mpz* x) {
    return uint64_t{x->_mp_d[1]} << 32 | x->_mp_d[0];
}

void set_two(vor_mpz* x, uint64_t v) {
    x->_mp_d[0] = static_cast<limb_t>(v);
    x->_mp_d[1] = static_cast<limb_t>(v >> 32);
    finish(x, 2, false);
}

// s and rest of n, which has 2 h limbs, the top one 2^30 or above.
void normalised_root(vor_mpz* s, vor_mpz* rest, const vor_mpz* n) {
    if (limbs_of(n) == 2) {
        uint64_t r;
        vor_gmp___gmpz_set_ui(s, square_root(low_two(n), &r));
        return set_two(rest, r);
    }
    // n = (high, a1, a0) in digits of l limbs, high of twice h - l limbs.
    const int h = limbs_of(n) / 2, l = h / 2;
    const unsigned digit = 32 * static_cast<unsigned>(l);
    const auto part = [n](int from, int count) {
        return vor_mpz{count, limb::normal_size(n->_mp_d + from, count), n->_mp_d + from};
    };
    const vor_mpz high = part(2 * l, 2 * (h - l)), a1 = part(l, l), a0 = part(0, l);
    Temporary q(uint64_t{2} + l), u;
    normalised_root(s, rest, &high);
    vor_gmp___gmpz_mul_2exp(rest, rest, digit);
    vor_gmp___gmpz_add(rest, rest, &a1);
    vor_gmp___gmpz_mul_2exp(u, s, 1);
    vor_gmp___gmpz_tdiv_qr(q, rest, rest, u);
    vor_gmp___gmpz_mul_2exp(s, s, digit);
    vor_gmp___gmpz_add(s, s, q);
    vor_gmp___gmpz_mul_2exp(rest, rest, digit);
    vor_gmp___gmpz_add(rest, rest, &a0);
    vor_gmp___gmpz_mul(u, q, q);
    vor_gmp___gmpz_sub(rest, rest, u);
    if (!negative(rest)) return;
    // One too large: rest += 2 s - 1.
    vor_gmp___gmpz_addmul_ui(rest, s, 2);
    vor_gmp___gmpz_sub_ui(rest, rest, 1);
    vor_gmp___gmpz_sub_ui(s, s, 1);
}

} // namespace

namespace vor::gmp {

bool integer_sqrt(vor_mpz* s, const vor_mpz* n) {
    const uint64_t bits = bit_length(n);
    if (bits == 0) {
        s->_mp_size = 0;
        return true;
    }
    // An even shift to whole pairs of limbs.
    const unsigned shift = static_cast<unsigned>((0 - bits) % 64) & ~1u;
    Temporary shifted, root, rest;
    vor_gmp___gmpz_mul_2exp(shifted, n, shift);
    vor_gmp___gmpz_abs(shifted, shifted);
    normalised_root(root, rest, shifted);
    vor_gmp___gmpz_tdiv_q_2exp(s, root, shift / 2);
    return rest->_mp_size == 0;
}

// Bits of a root that are found one by one, with k-th powers: Newton's iteration is slow as long as its
// relative error is above 1 / k.
static uint64_t bits_by_search(unsigned k) {
    return 5u + static_cast<unsigned>(31 - __builtin_clz(k));
}

static void search(vor_mpz* r, const vor_mpz* n, unsigned k, uint64_t bits) {
    Temporary power;
    r->_mp_size = 0;
    for (uint64_t i = bits; i-- > 0;) {
        vor_gmp___gmpz_setbit(r, static_cast<unsigned>(i));
        vor_gmp___gmpz_pow_ui(power, r, k);
        if (vor_gmp___gmpz_cmp(power, n) > 0) vor_gmp___gmpz_clrbit(r, static_cast<unsigned>(i));
    }
}

// r above or at the root before, at the root behind: r' = ((k - 1) r + n / r^(k - 1)) / k is not below
// the root, and below r as long as r is above it. Whether r^k = n.
static bool newton(vor_mpz* r, const vor_mpz* n, unsigned k) {
    Temporary power, quotient, rest;
    for (;;) {
        vor_gmp___gmpz_pow_ui(power, r, k - 1);
        vor_gmp___gmpz_tdiv_qr(quotient, rest, n, power);
        const int order = vor_gmp___gmpz_cmp(quotient, r);
        if (order >= 0) return order == 0 && rest->_mp_size == 0;
        vor_gmp___gmpz_addmul_ui(quotient, r, k - 1);
        vor_gmp___gmpz_tdiv_q_ui(r, quotient, k);
    }
}

static bool higher_root(vor_mpz* r, const vor_mpz* n, unsigned k) {
    const uint64_t bits = (bit_length(n) - 1) / k + 1; // of the root
    if (bits <= bits_by_search(k)) {
        search(r, n, k, bits);
    } else {
        // The root of n without its low digits, one unit of the last one above.
        const uint64_t found = bits / 2 + bits_by_search(k) / 2 + 1;
        const uint64_t cut = bits > found ? bits - found : bits / 2;
        Temporary high;
        vor_gmp___gmpz_tdiv_q_2exp(high, n, static_cast<unsigned>(cut * k));
        higher_root(r, high, k);
        vor_gmp___gmpz_add_ui(r, r, 1);
        vor_gmp___gmpz_mul_2exp(r, r, static_cast<unsigned>(cut));
    }
    return newton(r, n, k);
}

bool integer_root(vor_mpz* r, const vor_mpz* n, unsigned k) {
    if (k == 1) {
        vor_gmp___gmpz_set(r, n);
        return true;
    }
    if (k == 2) return integer_sqrt(r, n);
    if (bit_length(n) <= k) { // below 2^k
        const bool exact = vor_gmp___gmpz_cmp_ui(n, 1) <= 0;
        vor_gmp___gmpz_set_ui(r, value_size(n) != 0);
        return exact;
    }
    Temporary root;
    const bool exact = higher_root(root, n, k);
    vor_gmp___gmpz_set(r, root);
    return exact;
}

} // namespace vor::gmp

VOR_GMP(int, __gmpz_root, __GMPZ_ROOT, vor_gmp___gmpz_root,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    const unsigned k = v;
    if (k == 0) limb::divide_by_zero();
    const bool minus = negative(a);
    if (minus && k % 2 == 0) {
        r->_mp_size = 0;
        return 0;
    }
    vor_mpz magnitude = *a;
    magnitude._mp_size = value_size(a);
    const bool exact = integer_root(r, &magnitude, k);
    if (!minus) return exact;
    if (!exact) vor_gmp___gmpz_add_ui(r, r, 1); // downward
    vor_gmp___gmpz_neg(r, r);
    return exact;
}

VOR_GMP(void, __gmpz_sqrt, __GMPZ_SQRT, vor_gmp___gmpz_sqrt, (vor_mpz * r, const vor_mpz* a),
        (r, a)) {
    vor_gmp___gmpz_root(r, a, 2);
}

VOR_GMP(void, __gmpz_sqrtrem, __GMPZ_SQRTREM, vor_gmp___gmpz_sqrtrem,
        (vor_mpz * s, vor_mpz* rest, const vor_mpz* n), (s, rest, n)) {
    Temporary root, square;
    vor_gmp___gmpz_root(root, n, 2);
    vor_gmp___gmpz_mul(square, root, root);
    vor_gmp___gmpz_sub(rest, n, square);
    vor_gmp___gmpz_set(s, root);
}
