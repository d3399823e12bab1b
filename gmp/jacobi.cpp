// The symbols of Jacobi and Kronecker, by quadratic reciprocity (Cohen, A Course in Computational
// Algebraic Number Theory, algorithm 1.4.10).
//
// For odd b > 0: (2/b) = -1 for b = 3, 5 mod 8; (-1/b) = -1 for b = 3 mod 4; (a/b) = (b/a) for odd a > 0,
// but for a = b = 3 mod 4, where it is -(b/a).
#include "gmp/euclid.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// All below take low limbs.
bool two_is_negative(limb_t b) {
    return b % 8 == 3 || b % 8 == 5;
}

bool exchange_is_negative(limb_t a, limb_t b) {
    return a % 4 == 3 && b % 4 == 3;
}

// (a/b) for odd b
int jacobi_words(limb_t a, limb_t b) {
    bool minus = false;
    while (a) {
        const int c = trailing_zeros(a);
        a >>= c;
        minus ^= c % 2 && two_is_negative(b);
        if (a < b) {
            minus ^= exchange_is_negative(a, b);
            const limb_t exchanged = a;
            a = b;
            b = exchanged;
        }
        a %= b;
    }
    if (b != 1) return 0;
    return minus ? -1 : 1;
}

limb_t low_limb(const vor_mpz* x) {
    return x->_mp_d[0];
}

// Takes the factors of two from x; whether their number is odd.
bool take_twos(vor_mpz* x) {
    const unsigned c = vor_gmp___gmpz_scan1(x, 0);
    if (c) vor_gmp___gmpz_tdiv_q_2exp(x, x, c);
    return c % 2;
}

// (y/x) for odd x > 0 and y > 0
int jacobi_odd(const vor_mpz* y, const vor_mpz* x) {
    const int yn = limbs_of(y), xn = limbs_of(x), n = xn > yn ? xn : yn;
    if (n == 1) return jacobi_words(low_limb(y), low_limb(x));
    Limbs<kLocal> copies(uint64_t{2} * n);
    limb::copy(copies, y->_mp_d, yn);
    limb::copy(copies + n, x->_mp_d, xn);
    return jacobi_limbs(copies, yn, copies + n, xn);
}

} // namespace

VOR_GMP(int, mpn_jacobi_base, MPN_JACOBI_BASE, vor_gmp_mpn_jacobi_base, (unsigned a, unsigned b),
        (a, b)) {
    return a == 0 ? 0 : jacobi_words(a, b);
}

VOR_GMP(int, __gmpz_jacobi, __GMPZ_JACOBI, vor_gmp___gmpz_jacobi,
        (const vor_mpz* a, const vor_mpz* b), (a, b)) {
    const int an = value_size(a), bn = value_size(b);
    if (bn == 0) return vor_gmp___gmpz_cmpabs_ui(a, 1) == 0;
    if (an == 0) return vor_gmp___gmpz_cmpabs_ui(b, 1) == 0;
    if (low_limb(a) % 2 == 0 && low_limb(b) % 2 == 0) return 0;
    bool minus = negative(a) && negative(b);
    Temporary x;
    vor_gmp___gmpz_abs(x, b);
    minus ^= take_twos(x) && two_is_negative(low_limb(a));
    minus ^= negative(a) && low_limb(x) % 4 == 3;
    const int symbol = jacobi_odd(a, x);
    return minus ? -symbol : symbol;
}

VOR_GMP(int, __gmpz_kronecker_si, __GMPZ_KRONECKER_SI, vor_gmp___gmpz_kronecker_si,
        (const vor_mpz* x, int i), (x, i)) {
    return vor_gmp___gmpz_jacobi(x, WordValue(i < 0 ? 0 - static_cast<limb_t>(i) : i, i < 0));
}

VOR_GMP(int, __gmpz_kronecker_ui, __GMPZ_KRONECKER_UI, vor_gmp___gmpz_kronecker_ui,
        (const vor_mpz* x, unsigned v), (x, v)) {
    return vor_gmp___gmpz_jacobi(x, WordValue(v));
}

VOR_GMP(int, __gmpz_si_kronecker, __GMPZ_SI_KRONECKER, vor_gmp___gmpz_si_kronecker,
        (int i, const vor_mpz* x), (i, x)) {
    return vor_gmp___gmpz_jacobi(WordValue(i < 0 ? 0 - static_cast<limb_t>(i) : i, i < 0), x);
}

VOR_GMP(int, __gmpz_ui_kronecker, __GMPZ_UI_KRONECKER, vor_gmp___gmpz_ui_kronecker,
        (unsigned v, const vor_mpz* x), (v, x)) {
    return vor_gmp___gmpz_jacobi(WordValue(v), x);
}
