// The digits of an integer. Bases that are powers of two: bits by bits. Others: a long number is divided
// by a power of the base of half its length, and both parts go the same way (Knuth, 4.4; Brent and
// Zimmermann, Modern Computer Arithmetic, 1.7); a short one gives up a limb of digits with each division
// by a limb.
#include "gmp/bytes.h"

#include "gmp/radix.h"
#include <string.h>

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr char kDigits[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr int kQuadratic = 30; // groups up to which division by limbs is faster

class Digits {
public:
    Digits(const Radix& radix, int groups) : radix_(radix), powers_(radix, groups, kQuadratic) {}

    // Exactly so many digits of x, which is destroyed, zeros in front.
    void write(char* out, unsigned count, vor_mpz* x, int level = 0) const {
        const int groups = radix_.groups(count);
        level = powers_.cutting(level, groups);
        if (level == powers_.levels()) return write_short(out, count, x);
        const unsigned low = static_cast<unsigned>(powers_.exponent(level) * radix_.digits);
        {
            Temporary high;
            vor_gmp_vor_gmp_div_qr(high, x, x, powers_[level]);
            write(out, count - low, high, level + 1);
        }
        write(out + (count - low), low, x, level + 1);
    }

private:
    void write_short(char* out, unsigned count, vor_mpz* x) const {
        int n = limbs_of(x);
        limb_t* const limbs = x->_mp_d;
        for (char* end = out + count; end > out;) {
            limb_t group = n > 0 ? limb::divide_1(limbs, limbs, n, radix_.power) : 0;
            n = limb::normal_size(limbs, n);
            for (int i = 0; i < radix_.digits && end > out; ++i) {
                *--end = kDigits[group % radix_.base];
                group /= radix_.base;
            }
        }
    }

    const Radix radix_;
    const Powers powers_;
};

// Digits of `width` bits, the last one lowest.
void write_bits(char* out, unsigned count, const limb_t* limbs, int n, int width) {
    dlimb_t held = 0;
    int held_bits = 0, i = 0;
    for (char* end = out + count; end > out;) {
        if (held_bits < width) {
            held |= dlimb_t{i < n ? limbs[i] : 0} << held_bits;
            held_bits += 32;
            ++i;
        }
        *--end = kDigits[held & ((1u << width) - 1)];
        held >>= width;
        held_bits -= width;
    }
}

// `count` digits of |x|; the size in a base may be one too large, and then the first is zero.
void write_digits(char* out, unsigned count, unsigned base, const vor_mpz* x) {
    if (const int width = bits_of_digit(base))
        return write_bits(out, count, x->_mp_d, limbs_of(x), width);
    const Radix radix(base);
    Temporary rest;
    vor_gmp___gmpz_abs(rest, x);
    Digits(radix, radix.groups(count)).write(out, count, rest);
}

} // namespace

VOR_GMP(char*, vor_gmp_get_hexstr, VOR_GMP_GET_HEXSTR, vor_gmp_vor_gmp_get_hexstr,
        (char* str, const vor_mpz* x), (str, x)) {
    const unsigned count = vor_gmp___gmpz_sizeinbase(x, 16);
    const bool minus = negative(x);
    if (!str) str = static_cast<char*>(allocate_bytes(uint64_t{count} + 1 + minus));
    if (minus) str[0] = '-';
    write_bits(str + minus, count, x->_mp_d, limbs_of(x), 4);
    str[minus + count] = '\0';
    return str;
}

VOR_GMP(char*, __gmpz_get_str, __GMPZ_GET_STR, vor_gmp___gmpz_get_str,
        (char* str, int base, const vor_mpz* x), (str, base, x)) {
    unsigned b = base < 0 ? 0 - static_cast<unsigned>(base) : static_cast<unsigned>(base);
    if (b == 0) b = 10;
    if (!is_base(b)) return nullptr;
    if (b == 16) return vor_gmp_vor_gmp_get_hexstr(str, x);
    const unsigned count = vor_gmp___gmpz_sizeinbase(x, static_cast<int>(b));
    const bool minus = negative(x);
    Bytes work(uint64_t{count} + 2);
    char* const digits = work.text() + 1;
    write_digits(digits, count, b, x);
    digits[count] = '\0';
    char* const first = digits + (count > 1 && digits[0] == '0');
    char* const text = first - minus;
    if (minus) *text = '-';
    const unsigned bytes = static_cast<unsigned>(digits + count + 1 - text);
    if (!str) str = static_cast<char*>(allocate_bytes(bytes));
    memcpy(str, text, bytes);
    return str;
}
