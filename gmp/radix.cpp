#include "gmp/radix.h"

namespace vor::gmp {

Powers::Powers(const Radix& radix, int groups, int smallest) {
    for (int e = groups; e > smallest && levels_ < kMostLevels;) {
        e = e / 2 + e % 2;
        exponent_[levels_++] = e;
    }
    for (int i = levels_ - 1; i >= 0; --i) {
        vor_mpz* const p = &power_[i];
        *p = {0, 0, nullptr};
        move_limbs(p, uint64_t{kMinimumLimbs} + static_cast<unsigned>(exponent_[i]), 0);
        if (i == levels_ - 1) {
            vor_gmp___gmpz_ui_pow_ui(p, radix.power, static_cast<unsigned>(exponent_[i]));
            continue;
        }
        vor_gmp___gmpz_mul(p, &power_[i + 1], &power_[i + 1]);
        if (exponent_[i] % 2) vor_gmp___gmpz_divexact_ui(p, p, radix.power);
    }
}

} // namespace vor::gmp
