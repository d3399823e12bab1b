// Whether a number is a square, or a power of any number.
#include "gmp/primes.h"
#include "gmp/root.h"

using namespace vor::gmp;

namespace {

// Whether n > 0 may be a square as its residues tell: of 64 numbers 12 are squares modulo 64.
bool may_be_square(const vor_mpz* n) {
    constexpr uint64_t kSquares = 0x0202021202030213;
    return kSquares >> n->_mp_d[0] % 64 & 1;
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
    const vor_mpz n{x->_mp_alloc, value_size(x), x->_mp_d};
    if (vor_gmp___gmpz_cmp_ui(&n, 1) <= 0) return 1;
    const uint64_t bits = bit_length(&n);
    Temporary root;
    for (unsigned k = negative(x) ? 3 : 2; k < bits; k += 1 + k % 2) // 2 and the odd ones
        if (integer_root(root, &n, k)) return 1;
    return 0;
}
