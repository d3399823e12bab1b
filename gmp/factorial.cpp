// n! by its odd part: the product over i of the odd numbers up to n / 2^i, each of these products made
// from the last one (Borwein, Journal of Algorithms 6, 1985, tells more of the kind).
#include "gmp/product_tree.h"

using namespace vor::gmp;

namespace {

// r = the product of the odd numbers from `first`, odd, to `last`.
void odd_product(vor_mpz* r, unsigned first, unsigned last) {
    const uint64_t count = last < first ? 0 : uint64_t{last - first} / 2 + 1;
    product_tree(r, 0, count, [first](uint64_t i) { return first + 2 * static_cast<limb_t>(i); });
}

} // namespace

VOR_GMP(void, __gmpz_fac_ui, __GMPZ_FAC_UI, vor_gmp___gmpz_fac_ui, (vor_mpz * x, unsigned v),
        (x, v)) {
    const unsigned n = v;
    Temporary odd, factor;
    vor_gmp___gmpz_set_ui(odd, 1);
    vor_gmp___gmpz_set_ui(x, 1);
    unsigned next = 3;
    for (int i = 30; i >= 0; --i) {
        const unsigned m = n >> i;
        if (m < 3) continue;
        odd_product(factor, next, m);
        next = (m + 1) | 1;
        vor_gmp___gmpz_mul(odd, odd, factor);
        vor_gmp___gmpz_mul(x, x, odd);
    }
    // n minus its ones is the exponent of 2 (Legendre).
    vor_gmp___gmpz_mul_2exp(x, x, n - vor_gmp___gmpz_popcount(WordValue(n)));
}
