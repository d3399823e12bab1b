// Binomial coefficients: the product of the d numbers up to n by d!, with d the smaller of k and n - k.
#include "gmp/product_tree.h"

using namespace vor::gmp;

namespace {

// r = (n - first) ... (n - end + 1)
void falling_product(vor_mpz* r, const vor_mpz* n, unsigned first, unsigned end) {
    if (end - first == 1) return vor_gmp___gmpz_sub_ui(r, n, first);
    const unsigned middle = first + (end - first) / 2;
    Temporary lower;
    falling_product(r, n, first, middle);
    falling_product(lower, n, middle, end);
    vor_gmp___gmpz_mul(r, r, lower);
}

// r = n over d for 0 < d <= n
void divide_by_factorial(vor_mpz* r, const vor_mpz* n, unsigned d) {
    Temporary product, factorial;
    if (limbs_of(n) == 1) {
        const limb_t top = n->_mp_d[0];
        product_tree(product, 0, d, [top](uint64_t i) { return top - static_cast<limb_t>(i); });
    } else {
        falling_product(product, n, 0, d);
    }
    vor_gmp___gmpz_fac_ui(factorial, d);
    vor_gmp___gmpz_divexact(r, product, factorial);
}

} // namespace

VOR_GMP(void, __gmpz_bin_ui, __GMPZ_BIN_UI, vor_gmp___gmpz_bin_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    const unsigned k = v;
    const bool reflected = negative(a);
    if (k == 0) return vor_gmp___gmpz_set_ui(r, 1);
    Temporary n, other;
    if (reflected) {
        vor_gmp___gmpz_ui_sub(n, k - 1, a);
    } else {
        vor_gmp___gmpz_set(n, a);
    }
    const int order = vor_gmp___gmpz_cmp_ui(n, k);
    if (order < 0) return vor_gmp___gmpz_set_ui(r, 0);
    if (order == 0) {
        vor_gmp___gmpz_set_ui(r, 1);
    } else {
        vor_gmp___gmpz_sub_ui(other, n, k);
        const bool complement = vor_gmp___gmpz_cmp_ui(other, k) < 0;
        divide_by_factorial(r, n, complement ? vor_gmp___gmpz_get_ui(other) : k);
    }
    if (reflected && k % 2) vor_gmp___gmpz_neg(r, r);
}

VOR_GMP(void, __gmpz_bin_uiui, __GMPZ_BIN_UIUI, vor_gmp___gmpz_bin_uiui,
        (vor_mpz * r, unsigned v, unsigned e), (r, v, e)) {
    vor_gmp___gmpz_bin_ui(r, WordValue(v), e);
}
