// The odd primes below 1000, and products of them that fit a limb.
#pragma once

#include "gmp/integer.h"

namespace vor::gmp {

constexpr int kSmallPrimes = 167;
constexpr limb_t kSmallPrimesEnd = 1000;

struct SmallPrimes {
    limb_t prime[kSmallPrimes]; // 3, 5, ..., 997

    constexpr SmallPrimes() : prime{} {
        int n = 0;
        for (limb_t p = 3; p < kSmallPrimesEnd; p += 2) {
            bool divided = false;
            for (int i = 0; i < n && !divided; ++i) divided = p % prime[i] == 0;
            if (!divided) prime[n++] = p;
        }
    }
};

inline constexpr SmallPrimes kPrimes;

// Consecutive primes from `first` on, multiplied as long as the product fits a limb.
struct PrimeBatch {
    limb_t product = 1;
    int first, end;

    explicit PrimeBatch(int from) : first(from), end(from) {
        while (end < kSmallPrimes && dlimb_t{product} * kPrimes.prime[end] >> 32 == 0)
            product *= kPrimes.prime[end++];
    }
};

} // namespace vor::gmp
