// Integers to and from doubles: the 53 bits of a significand and a power of two.
#include "gmp/integer.h"

#include <string.h>

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kFractionBits = 52, kBias = 1023, kTopExponent = 0x7ff;
constexpr uint64_t kHiddenBit = uint64_t{1} << kFractionBits;

double assemble(bool minus, int exponent_field, uint64_t fraction) {
    const uint64_t bits =
        uint64_t{minus} << 63 | static_cast<uint64_t>(exponent_field) << kFractionBits | fraction;
    double d;
    memcpy(&d, &bits, sizeof d);
    return d;
}

// The leading 64 bits of the n limbs, n > 0; the top one is set.
uint64_t leading_bits(const limb_t* p, int n) {
    const int s = __builtin_clz(p[n - 1]);
    const limb_t second = n > 1 ? p[n - 2] : 0, third = n > 2 ? p[n - 3] : 0;
    const uint64_t two = uint64_t{p[n - 1]} << 32 | second;
    return two << s | uint64_t{third} << s >> 32;
}

// x = d * 2^exponent with d in [1/2, 1): the fraction of d, cut off, and the exponent. x is not 0.
uint64_t fraction_of(const vor_mpz* x, int n, int64_t* exponent) {
    *exponent = int64_t{32} * n - __builtin_clz(x->_mp_d[n - 1]);
    return leading_bits(x->_mp_d, n) >> (63 - kFractionBits) & (kHiddenBit - 1);
}

uint64_t significand(unsigned hi, unsigned lo) {
    return (uint64_t{hi} << 32 | lo) & (2 * kHiddenBit - 1);
}

// r = m * 2^shift
void set_shifted(vor_mpz* r, uint64_t m, unsigned shift, bool minus) {
    const uint64_t upper = m >> 1 >> (31 - shift % 32); // what leaves the lowest limb
    const limb_t parts[] = {static_cast<limb_t>(m << shift % 32), static_cast<limb_t>(upper),
                            static_cast<limb_t>(upper >> 32)};
    const int whole = static_cast<int>(shift / 32), size = whole + limb::normal_size(parts, 3);
    limb_t* const limbs = grow(r, size);
    limb::clear(limbs, whole);
    limb::copy(limbs + whole, parts, size - whole);
    finish(r, size, minus);
}

} // namespace

VOR_GMP(double, __gmpz_get_d_2exp, __GMPZ_GET_D_2EXP, vor_gmp___gmpz_get_d_2exp,
        (int* exponent, const vor_mpz* x), (exponent, x)) {
    const int n = value_size(x);
    *exponent = 0;
    if (n == 0) return 0.0;
    int64_t e;
    const uint64_t fraction = fraction_of(x, n, &e);
    *exponent = static_cast<int>(e);
    return assemble(negative(x), kBias - 1, fraction);
}

VOR_GMP(double, __gmpz_get_d, __GMPZ_GET_D, vor_gmp___gmpz_get_d, (const vor_mpz* x), (x)) {
    const int n = value_size(x);
    if (n == 0) return 0.0;
    int64_t e;
    const uint64_t fraction = fraction_of(x, n, &e);
    const int64_t field = e + kBias - 1;
    if (field >= kTopExponent) return assemble(negative(x), kTopExponent, 0);
    return assemble(negative(x), static_cast<int>(field), fraction);
}

VOR_GMP(void, __gmpz_set_d, __GMPZ_SET_D, vor_gmp___gmpz_set_d, (vor_mpz * r, double d), (r, d)) {
    uint64_t bits;
    memcpy(&bits, &d, sizeof bits);
    const int field = static_cast<int>(bits >> kFractionBits & kTopExponent);
    const bool minus = bits >> 63;
    if (field == kTopExponent) return;
    const int shift = field - kBias - kFractionBits; // |d| = m * 2^shift
    if (shift < -kFractionBits - 1) {                // |d| < 1/2
        r->_mp_size = 0;
        return;
    }
    uint64_t m = (bits & (kHiddenBit - 1)) | kHiddenBit;
    if (shift >= 0) return set_shifted(r, m, static_cast<unsigned>(shift), minus);
    const uint64_t half = uint64_t{1} << (-shift - 1), rest = m & (2 * half - 1);
    m >>= -shift;
    m += rest > half || (rest == half && m % 2);
    set_shifted(r, m, 0, minus);
}

VOR_GMP(void, __gmpz_init_set_d, __GMPZ_INIT_SET_D, vor_gmp___gmpz_init_set_d,
        (vor_mpz * r, double d), (r, d)) {
    vor_gmp___gmpz_init(r);
    vor_gmp___gmpz_set_d(r, d);
}

VOR_GMP_MIXED(unsigned, _impGetFloatBit, _impgetfloatbit, _IMPGETFLOATBIT, vor_gmp__impgetfloatbit,
              (unsigned hi, unsigned lo, int i), (hi, lo, i)) {
    if (i < 0 || i > kFractionBits) return 0;
    return significand(hi, lo) >> (kFractionBits - i) & 1;
}

VOR_GMP_MIXED(unsigned, _impGetFloatTail, _impgetfloattail, _IMPGETFLOATTAIL,
              vor_gmp__impgetfloattail, (unsigned hi, unsigned lo, int i), (hi, lo, i)) {
    if (i > kFractionBits) return 0;
    const uint64_t below = i < 0 ? 2 * kHiddenBit - 1 : (kHiddenBit >> i) - 1;
    return (significand(hi, lo) & below) != 0;
}
