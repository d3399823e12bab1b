// The exported products of limb arrays: names over the limb floor.
#include "gmp/integer.h"
#include "gmp/limb/fourier.h"

using namespace vor;
using namespace vor::gmp;

VOR_GMP(void, vor_gmp_mul_n_kara, VOR_GMP_MUL_N_KARA, vor_gmp_vor_gmp_mul_n_kara,
        (const unsigned* a, const unsigned* b, unsigned* r, int n), (a, b, r, n)) {
    if (n > 0) limb::multiply_karatsuba(r, a, b, n);
}

VOR_GMP(void, __gmpn_mul_n, __GMPN_MUL_N, vor_gmp___gmpn_mul_n,
        (unsigned* r, const unsigned* a, const unsigned* b, int n), (r, a, b, n)) {
    if (n > 0) limb::multiply_n(r, a, b, n);
}

VOR_GMP(void, __gmpn_mul, __GMPN_MUL, vor_gmp___gmpn_mul,
        (unsigned* r, const unsigned* a, int an, const unsigned* b, int bn), (r, a, an, b, bn)) {
    limb::multiply(r, a, an, b, bn);
}

// Without transforms the ladder serves, which comes back here with equal lengths only.
VOR_GMP(void, vor_gmp_mul_dft, VOR_GMP_MUL_DFT, vor_gmp_vor_gmp_mul_dft,
        (const unsigned* a, int an, const unsigned* b, int bn, unsigned* r), (a, an, b, bn, r)) {
    const int longer = an > bn ? an : bn, shorter = an > bn ? bn : an;
    limb::clear(r, 2 * longer);
    if (shorter <= 0 || limb::fourier_product(r, a, an, b, bn)) return;
    limb::multiply(r, a, an, b, bn);
}
