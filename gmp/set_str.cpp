// An integer from its digits. Bases that are powers of two: bits by bits. Others: halves of a long text
// are read first, and joined by a product with a power of the base (Knuth, 4.4); a short one a limb of
// digits at a time.
#include "gmp/radix.h"
#include "gmp/thresholds.h"

#include <string.h>

using namespace vor;
using namespace vor::gmp;

namespace {

// Groups up to which products by limbs are faster (measured: halves cost 1.16 times as much at 61, as
// much at 105).
constexpr int kQuadratic = 105;

int digit_value(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'A' && c <= 'Z') return c - 'A' + 10;
    if (c >= 'a' && c <= 'z') return c - 'a' + 10;
    return -1;
}

class Reader {
public:
    Reader(const Radix& radix, int groups) : radix_(radix), powers_(radix, groups, kQuadratic) {}

    // r = the value of so many digits, in room for their groups and one limb more; its size. scratch has
    // two limbs for each group, and 8 for each level.
    int read(limb_t* r, const char* text, unsigned count, limb_t* scratch, int level = 0) const {
        const int groups = radix_.groups(count);
        level = powers_.cutting(level, groups);
        if (level == powers_.levels()) return read_short(r, text, count);
        const Power& power = powers_[level];
        const unsigned low = static_cast<unsigned>(power.exponent * radix_.digits);
        limb_t* const high = scratch;
        limb_t* const product = high + (groups - power.exponent + 1);
        const int hn = read(high, text, count - low, product, level + 1);
        const int n = read(r, text + (count - low), low, product, level + 1);
        if (hn == 0) return n;
        if (hn >= power.n)
            limb::multiply(product, high, hn, power.limbs, power.n);
        else
            limb::multiply(product, power.limbs, power.n, high, hn);
        // The lower part is below the power: its limbs above the zeros are at most power.n.
        const int above = power.zeros + power.n;
        limb::clear(r + n, above - n);
        limb::add(r + power.zeros, product, hn + power.n, r + power.zeros, power.n);
        return limb::normal_size(r, above + hn);
    }

private:
    int read_short(limb_t* r, const char* text, unsigned count) const {
        int n = 0;
        const unsigned digits = static_cast<unsigned>(radix_.digits);
        for (unsigned first = count % digits ? count % digits : digits; count > 0; first = digits) {
            limb_t group = 0;
            for (unsigned i = 0; i < first; ++i)
                group = group * radix_.base + static_cast<limb_t>(digit_value(*text++));
            count -= first;
            const limb_t carry = limb::mul_1(r, r, n, radix_.power);
            r[n] = carry + limb::increment(r, n, group);
            n += r[n] != 0;
        }
        return n;
    }

    const Radix radix_;
    const Powers powers_;
};

void read_digits(vor_mpz* r, const char* text, unsigned count, const Radix& radix) {
    const int groups = radix.groups(count);
    limb_t* const limbs = grow(r, uint64_t{2} + static_cast<unsigned>(groups));
    Limbs<kLocal> scratch(groups <= kQuadratic ? 0
                                               : uint64_t{2} * static_cast<unsigned>(groups) + 300);
    r->_mp_size = Reader(radix, groups).read(limbs, text, count, scratch);
}

void read_bits(vor_mpz* r, const char* text, unsigned count, int width) {
    const int n = bits_to_limbs(uint64_t{count} * static_cast<unsigned>(width));
    limb_t* const limbs = grow(r, n);
    limb_t* next = limbs;
    dlimb_t held = 0;
    int held_bits = 0;
    for (const char* end = text + count; end > text;) {
        held |= dlimb_t{static_cast<limb_t>(digit_value(*--end))} << held_bits;
        held_bits += width;
        if (held_bits < 32) continue;
        *next++ = static_cast<limb_t>(held);
        held >>= 32;
        held_bits -= 32;
    }
    if (held_bits > 0) *next = static_cast<limb_t>(held);
    finish(r, n, false);
}

// Takes what tells the base from the text.
unsigned base_of(const char** text, const char* end) {
    const char* const p = *text;
    if (end - p < 2 || *p != '0') return 10;
    const bool hexadecimal = p[1] == 'x' || p[1] == 'X';
    *text += hexadecimal ? 2 : 1;
    return hexadecimal ? 16 : 8;
}

} // namespace

VOR_GMP_MIXED(int, _impGetDigitValue, _impgetdigitvalue, _IMPGETDIGITVALUE,
              vor_gmp__impgetdigitvalue, (int c), (c)) {
    return c >= 0 && c < 128 ? digit_value(static_cast<char>(c)) : -1;
}

VOR_GMP(int, __gmpz_set_str, __GMPZ_SET_STR, vor_gmp___gmpz_set_str,
        (vor_mpz * r, const char* s, int base), (r, s, base)) {
    if (base != 0 && (base < 0 || !is_base(static_cast<unsigned>(base)))) return -1;
    const char* text = s + strspn(s, " ");
    const char* end = text + strlen(text);
    while (end > text && end[-1] == ' ') --end;
    if (text == end) return -1;
    const bool minus = *text == '-';
    if (minus || *text == '+') ++text;
    const unsigned b = base ? static_cast<unsigned>(base) : base_of(&text, end);

    // After a bad digit the value is that of the digits behind it.
    const char* first = end;
    while (first > text && static_cast<unsigned>(digit_value(first[-1])) < b) --first;
    const bool bad = first > text;
    while (first < end && *first == '0') ++first;
    const unsigned count = static_cast<unsigned>(end - first);
    if (count == 0) {
        r->_mp_size = 0;
    } else if (const int width = bits_of_digit(b)) {
        read_bits(r, first, count, width);
    } else {
        read_digits(r, first, count, Radix(b));
    }
    if (bad) return -1;
    if (minus) r->_mp_size = -r->_mp_size;
    return 0;
}

VOR_GMP(int, __gmpz_init_set_str, __GMPZ_INIT_SET_STR, vor_gmp___gmpz_init_set_str,
        (vor_mpz * r, const char* s, int base), (r, s, base)) {
    vor_gmp___gmpz_init(r);
    return vor_gmp___gmpz_set_str(r, s, base);
}
