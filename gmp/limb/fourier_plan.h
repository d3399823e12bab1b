// The digits of a product by transforms, and the proof that it comes out exact.
//
// Digits have w bits and lie between -2^(w-1) and 2^(w-1), the top one excepted, which takes what is
// left. A coefficient of the convolution is an integer; it is exact as long as the transforms are off
// by less than 1/2. The bound on their error (docs/numerics.md), for p passes,
//
//     |error| <= |x| |y| (3 p 1.75 + 3) 2^-53,     |x| the Euclidean length of the digits,
//
// is kept below 0.45: evaluated with the digits at hand, for the widest digits that promise to do.
#pragma once

#include "gmp/limb/kernel/transform.h"

namespace vor::limb {

// ceil(32 limbs / width), without a division of 64 bits.
inline int64_t digits_in(int limbs, int width) {
    return int64_t{32} * (limbs / width) + (32 * (limbs % width) + width - 1) / width;
}

// The square root of x, or a little more.
inline long double root_above(uint64_t x) {
    return __builtin_sqrtl(static_cast<long double>(x)) * (1 + 0x1p-60L);
}

// The transform that the digits of a product need, and the proof that it is exact.
struct FourierPlan {
    static constexpr int kWidestDigit = 20;
    static constexpr int kNarrowestDigit = 8; // proved for all that the longest transform admits
    static constexpr long double kErrorLimit = 0.45L;

    int an, bn;      // limbs of the factors
    int modulus = 0; // not 0: the least limbs of a modulus B^n + 1 for which the product is wanted
    int width = 0, m = 0;

    int64_t digits(int limbs) const { return digits_in(limbs, width); }
    // Does a product of digits with the product `norms` of Euclidean lengths come out exact?
    bool proved(long double norms) const {
        const long double error =
            3 * Transform::passes_of(m) * Transform::kPassError + 3 * 0x1p-53L;
        return norms * error < kErrorLimit;
    }
    // The limbs that all real numbers of the transform hold: the convolution is one modulo B^limbs + 1.
    int limbs() const { return m / 16 * width; }
    // The largest product of Euclidean lengths of any operands of these lengths: the top digit is up to
    // twice as large as the others.
    long double largest() const {
        const long double most = static_cast<long double>(int64_t{1} << (width - 1));
        return most * most * root_above(static_cast<uint64_t>(digits(an) + 3)) *
               root_above(static_cast<uint64_t>(digits(bn) + 3));
    }
    // The widest digits below `bound` that may do: the norms of random digits are a third of the largest;
    // for less than a quarter they are not worth a look. False if the transform would be too long.
    bool choose(int bound) {
        for (width = bound - 1; width >= kNarrowestDigit; --width) {
            const int64_t points = (modulus ? digits(modulus) + 1 : digits(an) + digits(bn)) / 2;
            if (points > Transform::kLongest) return false;
            m = Transform::length_for(static_cast<int>(points));
            if (proved(largest() / 4)) return true;
        }
        return false;
    }
};

} // namespace vor::limb
