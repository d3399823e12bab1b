// Single bits of infinite two's complement: set, clear, test, search, count.
//
// With l the lowest set bit of the magnitude, a negative number has zeros below l, a one at l, and the
// complement of the magnitude above: the complement of |x| - 1. A record may hold more than 2^32 bits:
// bit numbers are kept in 64 bits inside.
#include "serv/bits.h"
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr unsigned kNone = 0xFFFFFFFF;

// A bit number as a result: what does not fit is as far away as none.
unsigned told(uint64_t bit) {
    return bit < kNone ? static_cast<unsigned>(bit) : kNone;
}

limb_t limb_at(const vor_mpz* x, unsigned i) {
    return i / 32 < static_cast<unsigned>(limbs_of(x)) ? x->_mp_d[i / 32] : 0;
}

bool magnitude_bit(const vor_mpz* x, unsigned i) {
    return limb_at(x, i) >> i % 32 & 1;
}

unsigned ones(limb_t x) {
    x -= x >> 1 & 0x55555555;
    x = (x & 0x33333333) + (x >> 2 & 0x33333333);
    return ((x + (x >> 4)) & 0x0f0f0f0f) * 0x01010101 >> 24;
}

// The first one at or after bit i of the limbs, or of their complement if `flip` is all ones; none: the
// bit behind them, or i if that is further.
uint64_t scan(const limb_t* limbs, int n, uint64_t i, limb_t flip) {
    int k = static_cast<int>(i / 32);
    if (k >= n) return i;
    limb_t x = (limbs[k] ^ flip) & ~limb_t{0} << i % 32;
    while (x == 0) {
        if (++k == n) return uint64_t{32} * static_cast<unsigned>(n);
        x = limbs[k] ^ flip;
    }
    return uint64_t{32} * static_cast<unsigned>(k) + static_cast<unsigned>(trailing_zeros(x));
}

uint64_t scan1(const limb_t* limbs, int n, uint64_t i) {
    return scan(limbs, n, i, 0);
}

uint64_t scan0(const limb_t* limbs, int n, uint64_t i) {
    return scan(limbs, n, i, ~limb_t{0});
}

unsigned first_one(const limb_t* limbs, int n, uint64_t i) {
    const uint64_t bit = scan1(limbs, n, i);
    return bit < uint64_t{32} * static_cast<unsigned>(n) ? told(bit) : kNone;
}

// The n limbs of x, with bit i of theirs set or not; zeros come in above as far as that takes.
limb_t* reach(vor_mpz* x, int i, int room) {
    const int n = limbs_of(x);
    limb_t* const d = grow(x, room);
    if (i >= n) limb::clear(d + n, i + 1 - n); // what stands above the value is not part of it
    return d;
}

void set_magnitude_bit(vor_mpz* x, unsigned bit) {
    const int i = static_cast<int>(bit / 32), n = limbs_of(x);
    reach(x, i, i + 1)[i] |= limb_t{1} << bit % 32;
    finish(x, i >= n ? i + 1 : n, false);
}

void clear_magnitude_bit(vor_mpz* x, unsigned bit) {
    const int i = static_cast<int>(bit / 32), n = limbs_of(x);
    if (i < n) x->_mp_d[i] &= ~(limb_t{1} << bit % 32);
    finish(x, n, false);
}

// Of a negative x: a one of x is a zero of |x| - 1. |x| does not grow.
void set_negative_bit(vor_mpz* x, unsigned bit) {
    const int i = static_cast<int>(bit / 32), n = limbs_of(x);
    limb_t* const d = x->_mp_d;
    if (i >= n) return;
    limb::decrement(d, n, 1);
    d[i] &= ~(limb_t{1} << bit % 32);
    limb::increment(d, n, 1);
    finish(x, n, true);
}

// All room is taken before a limb is written.
void clear_negative_bit(vor_mpz* x, unsigned bit) {
    const int i = static_cast<int>(bit / 32), n = limbs_of(x), longer = i >= n ? i + 1 : n;
    limb_t* const d = reach(x, i, longer + 1);
    limb::decrement(d, n, 1);
    d[i] |= limb_t{1} << bit % 32;
    d[longer] = limb::increment(d, longer, 1);
    finish(x, longer + 1, true);
}

} // namespace

VOR_GMP(unsigned, vor_gmp_scan1, VOR_GMP_SCAN1, vor_gmp_vor_gmp_scan1,
        (const unsigned* limbs, int n, unsigned i), (limbs, n, i)) {
    return first_one(limbs, n, i);
}

VOR_GMP(unsigned, vor_gmp_scan0, VOR_GMP_SCAN0, vor_gmp_vor_gmp_scan0,
        (const unsigned* limbs, int n, unsigned i), (limbs, n, i)) {
    return told(scan0(limbs, n, i));
}

VOR_GMP(void, __gmpz_setbit, __GMPZ_SETBIT, vor_gmp___gmpz_setbit, (vor_mpz * x, unsigned v),
        (x, v)) {
    negative(x) ? set_negative_bit(x, v) : set_magnitude_bit(x, v);
}

VOR_GMP(void, __gmpz_clrbit, __GMPZ_CLRBIT, vor_gmp___gmpz_clrbit, (vor_mpz * x, unsigned v),
        (x, v)) {
    negative(x) ? clear_negative_bit(x, v) : clear_magnitude_bit(x, v);
}

VOR_GMP(int, __gmpz_tstbit, __GMPZ_TSTBIT, vor_gmp___gmpz_tstbit, (const vor_mpz* x, unsigned v),
        (x, v)) {
    if (!negative(x)) return magnitude_bit(x, v);
    const uint64_t l = lowest_bit(x);
    return v < l ? 0 : v == l ? 1 : !magnitude_bit(x, v);
}

VOR_GMP(unsigned, __gmpz_scan1, __GMPZ_SCAN1, vor_gmp___gmpz_scan1, (const vor_mpz* x, unsigned v),
        (x, v)) {
    const int n = value_size(x);
    if (n == 0) return kNone;
    const uint64_t l = lowest_bit(x);
    if (v <= l) return told(l);
    return negative(x) ? told(scan0(x->_mp_d, n, v)) : first_one(x->_mp_d, n, v);
}

VOR_GMP(unsigned, __gmpz_scan0, __GMPZ_SCAN0, vor_gmp___gmpz_scan0, (const vor_mpz* x, unsigned v),
        (x, v)) {
    const int n = value_size(x);
    if (n == 0) return v;
    const uint64_t l = lowest_bit(x);
    if (v < l) return v;
    if (!negative(x)) return told(scan0(x->_mp_d, n, v));
    return first_one(x->_mp_d, n, v > l ? v : l + 1);
}

VOR_GMP(unsigned, __gmpz_popcount, __GMPZ_POPCOUNT, vor_gmp___gmpz_popcount, (const vor_mpz* x),
        (x)) {
    if (negative(x)) return kNone;
    unsigned count = 0;
    for (int k = 0; k < limbs_of(x); ++k) count += ones(x->_mp_d[k]);
    return count;
}

VOR_GMP(unsigned, __gmpz_hamdist, __GMPZ_HAMDIST, vor_gmp___gmpz_hamdist,
        (const vor_mpz* a, const vor_mpz* b), (a, b)) {
    if (negative(a) != negative(b)) return kNone;
    Temporary difference;
    vor_gmp___gmpz_xor(difference, a, b);
    return vor_gmp___gmpz_popcount(difference);
}
