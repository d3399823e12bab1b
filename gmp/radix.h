// What text in a base needs: how many digits a limb holds, and the powers by which long numbers are cut
// into halves.
#pragma once

#include "gmp/integer.h"

namespace vor::gmp {

constexpr unsigned kLargestBase = 36;

inline bool is_base(unsigned base) {
    return base >= 2 && base <= kLargestBase;
}

// Bits of a digit of a base that is a power of two, else 0.
inline int bits_of_digit(unsigned base) {
    return (base & (base - 1)) == 0 ? 31 - __builtin_clz(base) : 0;
}

// A group of digits is what a limb holds: base^digits = power < 2^32.
struct Radix {
    explicit Radix(unsigned b) : base(b), digits(1), power(b) {
        while (dlimb_t{power} * base >> 32 == 0) {
            power *= base;
            ++digits;
        }
    }
    int groups(unsigned text_digits) const {
        return static_cast<int>((text_digits + static_cast<unsigned>(digits) - 1) /
                                static_cast<unsigned>(digits));
    }

    limb_t base;
    int digits;
    limb_t power;
};

// A power of the base: n limbs without zeros at either end, above `zeros` zero limbs.
struct Power {
    int exponent; // of radix.power
    int zeros, n;
    limb_t* limbs;
    // floor(B^(2n) / limbs), n + 1 limbs, where division by products pays, else null.
    limb_t* inverse;
};

// The powers power^e for e = ceil(groups / 2), ceil(e / 2), ... down to the first one not above
// `smallest`: one squaring each, from the bottom up. Level 0 is the largest.
class Powers {
public:
    Powers(const Radix& radix, int groups, int smallest);
    ~Powers();
    Powers(const Powers&) = delete;
    Powers& operator=(const Powers&) = delete;

    // Inverses of the powers from level 1 on (the largest divides once) of `shortest` limbs and more.
    void invert(int shortest);

    // The first level from `level` on whose power cuts a number of so many groups; levels() if none does.
    int cutting(int level, int groups) const {
        while (level < levels_ && power_[level].exponent >= groups) ++level;
        return level;
    }
    int levels() const { return levels_; }
    const Power& operator[](int level) const { return power_[level]; }

private:
    static constexpr int kMostLevels = 32;
    void raise(Power* p, const Radix& radix);
    void square(Power* p, const Power& root, const Radix& radix);

    int levels_ = 0;
    Power power_[kMostLevels];
};

} // namespace vor::gmp
