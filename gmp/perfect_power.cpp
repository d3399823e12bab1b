// Whether a number is a square, or a power of any number.
//
// Powers: the small primes are taken out first, and the exponent divides how often each stands there;
// mostly the first one found settles it. What is left is a power of a number above 1000.
#include "gmp/primes.h"
#include "gmp/root.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// Whether n > 0 may be a square as its residues tell: 12 of 64 are squares modulo 64, and of all residues
// modulo 3 * 5 * 7 * 11 * 13 * 17 one in 43.
bool may_be_square(const vor_mpz* n) {
    constexpr uint64_t kSquares = 0x0202021202030213;
    if (!(kSquares >> n->_mp_d[0] % 64 & 1)) return false;
    constexpr limb_t kPrimesTaken[] = {3, 5, 7, 11, 13, 17};
    constexpr limb_t kResidues[] = {0x3, 0x13, 0x17, 0x23b, 0x161b, 0x1a317}; // that are squares
    const limb_t rest = limb::divide_1(nullptr, n->_mp_d, limbs_of(n), 255255);
    for (int i = 0; i < 6; ++i)
        if (!(kResidues[i] >> rest % kPrimesTaken[i] & 1)) return false;
    return true;
}

unsigned gcd(unsigned a, unsigned b) {
    while (b) {
        const unsigned rest = a % b;
        a = b;
        b = rest;
    }
    return a;
}

bool is_prime(unsigned k) {
    for (unsigned p = 2; p * p <= k; ++p)
        if (k % p == 0) return false;
    return true;
}

bool odd_part_allowed(unsigned k, bool minus) {
    return !minus || k % 2;
}

// Whether n > 0, without prime factors below 1000, is a power with a prime exponent that divides
// `exponent`, or with any if that is 0; 1 is.
bool is_power(const vor_mpz* n, unsigned exponent, bool minus) {
    if (vor_gmp___gmpz_cmp_ui(n, 1) == 0) return true;
    Temporary root;
    const uint64_t most = bit_length(n) / 9 + 1; // a base is above 2^9
    for (unsigned k = 2; k <= most && (exponent == 0 || k <= exponent); ++k) {
        if (exponent % k != 0 || !odd_part_allowed(k, minus) || !is_prime(k)) continue;
        if (k == 2 ? may_be_square(n) && integer_sqrt(root, n) : integer_root(root, n, k))
            return true;
    }
    return false;
}

// Without the factors 2 of a negative exponent, which is no exponent of it.
unsigned usable(unsigned exponent, bool minus) {
    while (minus && exponent && exponent % 2 == 0) exponent /= 2;
    return exponent;
}

} // namespace

VOR_GMP(int, __gmpz_perfect_square_p, __GMPZ_PERFECT_SQUARE_P, vor_gmp___gmpz_perfect_square_p,
        (const vor_mpz* x), (x)) {
    if (value_size(x) == 0) return 1;
    if (negative(x) || !may_be_square(x)) return 0;
    Temporary root;
    return integer_sqrt(root, x);
}

VOR_GMP(int, __gmpz_perfect_power_p, __GMPZ_PERFECT_POWER_P, vor_gmp___gmpz_perfect_power_p,
        (const vor_mpz* x), (x)) {
    const bool minus = negative(x);
    if (vor_gmp___gmpz_cmpabs_ui(x, 1) <= 0) return 1;
    Temporary rest;
    vor_gmp___gmpz_abs(rest, x);
    unsigned exponent = vor_gmp___gmpz_remove(rest, rest, WordValue(2));
    if (usable(exponent, minus) == 1) return 0;
    for (int i = 0; i < kSmallPrimes;) {
        const PrimeBatch batch(i);
        const limb_t residue = limb::divide_1(nullptr, rest->_mp_d, limbs_of(rest), batch.product);
        for (; i < batch.end; ++i) {
            const limb_t p = kPrimes.prime[i];
            if (residue % p != 0) continue;
            exponent = gcd(exponent, vor_gmp___gmpz_remove(rest, rest, WordValue(p)));
            if (usable(exponent, minus) == 1) return 0;
        }
    }
    return is_power(rest, exponent, minus);
}
