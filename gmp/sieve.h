// The odd primes up to a bound, by the sieve of Eratosthenes over odd numbers, a byte for each.
#pragma once

#include "gmp/bytes.h"

#include <string.h>

namespace vor::gmp {

class Sieve {
public:
    // The primes up to n.
    explicit Sieve(limb_t n) : composite_(uint64_t{n} / 2 + 1) {
        memset(composite_.get(), 0, composite_.size());
        for (limb_t p = 3; dlimb_t{p} * p <= n; p += 2) {
            if (composite_.get()[p / 2]) continue;
            for (dlimb_t i = dlimb_t{p} * p / 2; i < composite_.size(); i += p)
                composite_.get()[static_cast<limb_t>(i)] = 1;
        }
    }

    // Calls f with every odd prime up to n, ascending; n is not above the bound.
    template <class F>
    void each(limb_t n, F f) const {
        for (limb_t i = 1; i <= (n - 1) / 2; ++i)
            if (!composite_.get()[i]) f(2 * i + 1);
    }

private:
    Bytes composite_;
};

} // namespace vor::gmp
