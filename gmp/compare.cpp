// Comparisons: 1, -1 or 0.
#include "gmp/integer.h"

#include <string.h>

using namespace vor;
using namespace vor::gmp;

namespace {

int compare_magnitudes(const vor_mpz* a, const vor_mpz* b) {
    return limb::compare(a->_mp_d, value_size(a), b->_mp_d, value_size(b));
}

int compare(const vor_mpz* a, const vor_mpz* b) {
    const int an = signed_size(a), bn = signed_size(b);
    if (an != bn) return an > bn ? 1 : -1;
    return an < 0 ? limb::compare(b->_mp_d, a->_mp_d, -an) : limb::compare(a->_mp_d, b->_mp_d, an);
}

// A double of 53 significant bits, as fraction * 2^(exponent - 1075) in the fields of its format.
struct Fields {
    uint64_t fraction; // with the leading 1
    int exponent;
    bool minus, normal;

    explicit Fields(double d) {
        uint64_t bits;
        memcpy(&bits, &d, sizeof bits);
        exponent = static_cast<int>(bits >> 52 & 0x7ff);
        fraction = (bits & ((uint64_t{1} << 52) - 1)) | uint64_t{1} << 52;
        minus = bits >> 63;
        normal = exponent != 0 && exponent != 0x7ff;
    }
};

// The integral part of |d| as limbs, and whether a fraction remains.
struct IntegralPart {
    static constexpr int kLimbs = 32; // the largest double is below 2^1024
    limb_t limbs[kLimbs] = {};
    bool fraction;

    explicit IntegralPart(const Fields& d) {
        const int shift = d.exponent - 1075;
        if (shift >= 0) {
            const int i = shift / 32;
            const dlimb_t low = dlimb_t{static_cast<limb_t>(d.fraction)} << shift % 32;
            const dlimb_t high = dlimb_t{static_cast<limb_t>(d.fraction >> 32)} << shift % 32;
            const dlimb_t upper = high + (low >> 32);
            limbs[i] = static_cast<limb_t>(low);
            limbs[i + 1] = static_cast<limb_t>(upper);
            if (upper >> 32) limbs[i + 2] = static_cast<limb_t>(upper >> 32);
            fraction = false;
            return;
        }
        const uint64_t integral = shift > -53 ? d.fraction >> -shift : 0;
        limbs[0] = static_cast<limb_t>(integral);
        limbs[1] = static_cast<limb_t>(integral >> 32);
        fraction = shift <= -53 || integral << -shift != d.fraction;
    }
};

// |a| against |d|, for a normal d.
int compare_magnitude(const vor_mpz* a, const Fields& d) {
    const IntegralPart part(d);
    const int order = limb::compare(a->_mp_d, value_size(a), part.limbs,
                                    limb::normal_size(part.limbs, IntegralPart::kLimbs));
    return order != 0 ? order : part.fraction ? -1 : 0;
}

// Zeros, subnormal numbers, infinities and NaN count as 0.
int compare_double(int sign_a, const vor_mpz* a, const Fields& d) {
    const int sign_d = !d.normal ? 0 : d.minus ? -1 : 1;
    if (sign_d == 0) return sign_a;
    if (sign_a != sign_d) return sign_a > sign_d ? 1 : -1;
    return sign_a * compare_magnitude(a, d);
}

} // namespace

VOR_GMP(int, __gmpz_cmp, __GMPZ_CMP, vor_gmp___gmpz_cmp, (const vor_mpz* a, const vor_mpz* b),
        (a, b)) {
    return compare(a, b);
}

VOR_GMP(int, __gmpz_cmpabs, __GMPZ_CMPABS, vor_gmp___gmpz_cmpabs,
        (const vor_mpz* a, const vor_mpz* b), (a, b)) {
    return compare_magnitudes(a, b);
}

VOR_GMP(int, __gmpz_cmp_ui, __GMPZ_CMP_UI, vor_gmp___gmpz_cmp_ui, (const vor_mpz* x, unsigned v),
        (x, v)) {
    return compare(x, WordValue(v));
}

VOR_GMP(int, __gmpz_cmp_si, __GMPZ_CMP_SI, vor_gmp___gmpz_cmp_si, (const vor_mpz* x, int i),
        (x, i)) {
    return compare(x, WordValue(i < 0 ? 0 - static_cast<limb_t>(i) : i, i < 0));
}

VOR_GMP(int, __gmpz_cmpabs_ui, __GMPZ_CMPABS_UI, vor_gmp___gmpz_cmpabs_ui,
        (const vor_mpz* x, unsigned v), (x, v)) {
    return compare_magnitudes(x, WordValue(v));
}

VOR_GMP(int, __gmpz_cmp_d, __GMPZ_CMP_D, vor_gmp___gmpz_cmp_d, (const vor_mpz* x, double d),
        (x, d)) {
    return compare_double(vor_gmp___gmpz_sgn(x), x, Fields(d));
}

VOR_GMP(int, __gmpz_cmpabs_d, __GMPZ_CMPABS_D, vor_gmp___gmpz_cmpabs_d,
        (const vor_mpz* x, double d), (x, d)) {
    const int sign = vor_gmp___gmpz_sgn(x);
    return compare_double(sign * sign, x, Fields(__builtin_fabs(d)));
}
