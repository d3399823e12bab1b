// Single bits of infinite two's complement: set, clear, test, search, count.
//
// With l the lowest set bit of the magnitude, a negative number has zeros below l, a one at l, and the
// complement of the magnitude above.
#include "serv/bits.h"
#include "gmp/integer.h"

using namespace vor::gmp;

namespace {

constexpr unsigned kNone = 0xFFFFFFFF;

limb_t limb_at(const vor_mpz* x, unsigned i) {
    return i / 32 < static_cast<unsigned>(limbs_of(x)) ? x->_mp_d[i / 32] : 0;
}

bool magnitude_bit(const vor_mpz* x, unsigned i) {
    return limb_at(x, i) >> i % 32 & 1;
}

unsigned lowest_bit(const vor_mpz* x) {
    return vor_gmp_vor_gmp_scan1(x->_mp_d, limbs_of(x), 0);
}

unsigned ones(limb_t x) {
    x -= x >> 1 & 0x55555555;
    x = (x & 0x33333333) + (x >> 2 & 0x33333333);
    return ((x + (x >> 4)) & 0x0f0f0f0f) * 0x01010101 >> 24;
}

// The first one at or after bit i of the limbs, or of their complement if `flip` is all ones.
unsigned scan(const limb_t* limbs, int n, unsigned i, limb_t flip, unsigned none) {
    int k = static_cast<int>(i / 32);
    if (k >= n) return none;
    limb_t x = (limbs[k] ^ flip) & ~limb_t{0} << i % 32;
    while (x == 0) {
        if (++k == n) return none;
        x = limbs[k] ^ flip;
    }
    return 32 * static_cast<unsigned>(k) + static_cast<unsigned>(vor::trailing_zeros(x));
}

} // namespace

VOR_ENGINE unsigned vor_gmp_vor_gmp_scan1 PARAMS_SCAN {
    return scan(limbs, n, i, 0, kNone);
}

VOR_ENGINE unsigned vor_gmp_vor_gmp_scan0 PARAMS_SCAN {
    const unsigned end = 32 * static_cast<unsigned>(n);
    return scan(limbs, n, i, ~limb_t{0}, i > end ? i : end);
}

VOR_ENGINE void vor_gmp___gmpz_setbit PARAMS_XV {
    if (negative(x)) {
        vor_gmp___gmpz_com(x, x);
        vor_gmp___gmpz_clrbit(x, v);
        return vor_gmp___gmpz_com(x, x);
    }
    const int i = static_cast<int>(v / 32), n = limbs_of(x);
    limb_t* const d = grow(x, uint64_t{1} + i);
    if (i >= n) clear_limbs(d + n, i + 1 - n); // what stands above the value is not part of it
    d[i] |= limb_t{1} << v % 32;
    finish(x, i >= n ? i + 1 : n, false);
}

VOR_ENGINE void vor_gmp___gmpz_clrbit PARAMS_XV {
    if (negative(x)) {
        vor_gmp___gmpz_com(x, x);
        vor_gmp___gmpz_setbit(x, v);
        return vor_gmp___gmpz_com(x, x);
    }
    const int i = static_cast<int>(v / 32), n = limbs_of(x);
    if (i < n) x->_mp_d[i] &= ~(limb_t{1} << v % 32);
    finish(x, n, false);
}

VOR_ENGINE int vor_gmp___gmpz_tstbit PARAMS_CXV {
    if (!negative(x)) return magnitude_bit(x, v);
    const unsigned l = lowest_bit(x);
    return v < l ? 0 : v == l ? 1 : !magnitude_bit(x, v);
}

VOR_ENGINE unsigned vor_gmp___gmpz_scan1 PARAMS_CXV {
    const int n = value_size(x);
    if (n == 0) return kNone;
    const unsigned l = lowest_bit(x);
    if (v <= l) return l;
    return negative(x) ? vor_gmp_vor_gmp_scan0(x->_mp_d, n, v)
                       : vor_gmp_vor_gmp_scan1(x->_mp_d, n, v);
}

VOR_ENGINE unsigned vor_gmp___gmpz_scan0 PARAMS_CXV {
    const int n = value_size(x);
    if (n == 0) return v;
    const unsigned l = lowest_bit(x);
    if (v < l) return v;
    if (!negative(x)) return vor_gmp_vor_gmp_scan0(x->_mp_d, n, v);
    return vor_gmp_vor_gmp_scan1(x->_mp_d, n, v > l ? v : l + 1);
}

VOR_ENGINE unsigned vor_gmp___gmpz_popcount PARAMS_CX {
    if (negative(x)) return kNone;
    unsigned count = 0;
    for (int k = 0; k < limbs_of(x); ++k) count += ones(x->_mp_d[k]);
    return count;
}

VOR_ENGINE unsigned vor_gmp___gmpz_hamdist PARAMS_AB {
    if (negative(a) != negative(b)) return kNone;
    Temporary difference;
    vor_gmp___gmpz_xor(difference, a, b);
    return vor_gmp___gmpz_popcount(difference);
}
