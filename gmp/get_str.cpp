// The digits of an integer. Bases that are powers of two: bits by bits. Others: a long number is divided
// by a power of the base of half its length, and both parts go the same way (Knuth, 4.4; Brent and
// Zimmermann, Modern Computer Arithmetic, 1.7), by Barrett's products with an inverse where a power divides
// more than once (Menezes, van Oorschot and Vanstone, Handbook of Applied Cryptography, 14.42); a short one
// gives up a limb of digits with each division by a limb.
#include "gmp/bytes.h"
#include "gmp/radix.h"

#include <string.h>

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr char kDigits[] = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr int kQuadratic = 20; // groups up to which division by limbs is faster
// Limbs of a divisor from which two products are faster than a division (measured: a division of
// twice as many limbs takes 0.95 to 0.99 times as long up to 1000 limbs, 1.6 times at 2000).
constexpr int kBarrett = 1200;
constexpr int kShort = 16;                  // limbs whose text is written on the stack
constexpr int kLocalText = 32 * kShort + 2; // bytes of it, with sign and NUL

// The last `count` digits of a group; kBase is the base, or 0 for one that only the caller knows.
template <limb_t kBase>
void write_group(char* end, int count, limb_t group, limb_t any_base) {
    const limb_t base = kBase ? kBase : any_base;
    for (; count > 0; --count) {
        *--end = kDigits[group % base];
        group /= base;
    }
}

// Exactly `count` digits of the n limbs x, which are destroyed, zeros in front.
void write_short(char* out, unsigned count, limb_t* x, int n, const Radix& radix) {
    const auto group_of = radix.base == 10 ? write_group<10> : write_group<0>;
    while (count > 0) {
        const limb_t group = limb::divide_1(x, x, n, radix.power);
        n = limb::normal_size(x, n);
        const unsigned digits = static_cast<unsigned>(radix.digits);
        const unsigned here = count < digits ? count : digits;
        group_of(out + count, static_cast<int>(here), group, radix.base);
        count -= here;
    }
}

class Digits {
public:
    Digits(const Radix& radix, int groups) : radix_(radix), powers_(radix, groups, kQuadratic) {
        powers_.invert(kBarrett);
    }

    // The same; scratch has n + 8 limbs for each level.
    void write(char* out, unsigned count, limb_t* x, int n, limb_t* scratch, int level = 0) const {
        level = powers_.cutting(level, radix_.groups(count));
        if (level == powers_.levels()) return write_short(out, count, x, n, radix_);
        const Power& power = powers_[level];
        const unsigned low = static_cast<unsigned>(power.exponent * radix_.digits);
        limb_t *const high = scratch, *const numerator = x + power.zeros;
        const int nn = n - power.zeros;
        int high_size = 0;
        if (nn >= power.n) {
            high_size = nn - power.n + 1;
            divide(high, numerator, nn, power);
            high_size = limb::normal_size(high, high_size);
            n = limb::normal_size(x, power.zeros + power.n);
        }
        write(out, count - low, high, high_size, scratch + high_size, level + 1);
        write(out + (count - low), low, x, n, scratch, level + 1);
    }

private:
    // q = x / power, the remainder in place of x, nn <= 2 n limbs.
    static void divide(limb_t* q, limb_t* x, int nn, const Power& power) {
        const int n = power.n, qn = nn - n + 1;
        if (!power.inverse || nn > 2 * n || qn < kBarrett)
            return limb::divide(q, x, x, nn, power.limbs, n);
        // The quotient of the leading parts is at most two too small.
        Limbs<0> product(uint64_t{2} * static_cast<unsigned>(n) + 4);
        limb::multiply(product, power.inverse, n + 1, x + n - 1, qn);
        limb::copy(q, product + n + 1, qn);
        limb::multiply(product, power.limbs, n, q, qn > n ? n : qn); // q is below the power
        limb::sub_n(x, x, product, n + 1);
        while (x[n] != 0 || limb::compare(x, power.limbs, n) >= 0) {
            limb::sub(x, x, n + 1, power.limbs, n);
            limb::increment(q, qn, 1);
        }
    }

    const Radix radix_;
    Powers powers_;
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

void write_digits(char* out, unsigned count, unsigned base, const vor_mpz* x) {
    const int n = value_size(x);
    if (const int width = bits_of_digit(base)) return write_bits(out, count, x->_mp_d, n, width);
    const Radix radix(base);
    const int groups = radix.groups(count);
    if (groups <= kQuadratic) {
        limb_t copy[kQuadratic + 1];
        limb::copy(copy, x->_mp_d, n);
        return write_short(out, count, copy, n, radix);
    }
    Limbs<0> copy(uint64_t{3} * static_cast<unsigned>(n) + 300);
    limb::copy(copy, x->_mp_d, n);
    Digits(radix, groups).write(out, count, copy, n, copy + n);
}

// The text with its sign, in a buffer of count + 2 bytes; there may be fewer digits than count.
char* write_text(char* buffer, unsigned count, unsigned base, const vor_mpz* x) {
    char* const digits = buffer + 1;
    write_digits(digits, count, base, x);
    digits[count] = '\0';
    char* first = digits;
    while (*first == '0' && first[1]) ++first;
    if (!negative(x)) return first;
    first[-1] = '-';
    return first - 1;
}

char* to_caller(char* str, const char* text) {
    const size_t bytes = strlen(text) + 1;
    if (!str) str = static_cast<char*>(allocate_bytes(bytes));
    memcpy(str, text, bytes);
    return str;
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
    if (const int n = value_size(x); n <= kShort) {
        // A limb has at most one digit more than its group, or 32 bits.
        const unsigned most = b < 4 ? 32 : static_cast<unsigned>(Radix(b).digits) + 1;
        char local[kLocalText];
        return to_caller(str, write_text(local, n > 0 ? most * static_cast<unsigned>(n) : 1, b, x));
    }
    const unsigned count = vor_gmp___gmpz_sizeinbase(x, static_cast<int>(b));
    const Bytes buffer(uint64_t{count} + 2);
    return to_caller(str, write_text(buffer.text(), count, b, x));
}
