// Products by schoolbook.
#include "gmp/limb/kernel/columns.h"
#include "gmp/limb/kernel/fixed_product.h"
#include "gmp/limb/limb.h"

namespace vor::limb {

namespace {

// b in blocks of as many limbs as a strip of the kernel has; an >= bn.
void mul_blocks(word* r, const word* a, int an, const word* b, int bn) {
    int n = bn < kMostColumns ? bn : kMostColumns;
    mul_columns(r, a, an, b, n);
    for (int j = n; j < bn; j += n) {
        n = bn - j < kMostColumns ? bn - j : kMostColumns;
        clear(r + j + an, n);
        addmul_columns(r + j, a, an, b + j, n);
    }
}

constexpr int kMostMixed = 16; // words whose mixed products are formed without a loop

void mixed_products_of(word* r, const word* a, int n) {
    using Mixed = void (*)(word*, const word*);
    static constexpr Mixed kMixed[] = {mixed_products<2>,  mixed_products<3>,  mixed_products<4>,
                                       mixed_products<5>,  mixed_products<6>,  mixed_products<7>,
                                       mixed_products<8>,  mixed_products<9>,  mixed_products<10>,
                                       mixed_products<11>, mixed_products<12>, mixed_products<13>,
                                       mixed_products<14>, mixed_products<15>, mixed_products<16>};
    if (n < 2) return clear(r, 2 * n);
    kMixed[n - 2](r, a);
}

} // namespace

// The lengths at which most products arrive, the leaves of the recursive multiplication among them,
// go without the bookkeeping of columns.
void mul_basecase(word* r, const word* a, int an, const word* b, int bn) {
    if (an < bn) return mul_basecase(r, b, bn, a, an);
    if (bn == 0) return clear(r, an);
    if (bn == 1) {
        r[an] = mul_1(r, a, an, b[0]);
        return;
    }
    if (an == bn) {
        if (an == 2) return mul_fixed<2>(r, a, b);
        if (an == 4) return mul_fixed<4>(r, a, b);
        if (an == 8) return mul_fixed<8>(r, a, b);
        if (an == 16) return mul_fixed<16>(r, a, b);
    }
    mul_blocks(r, a, an, b, bn);
}

// In two parts, a = (a0, a1) with a0 of as many limbs as one part takes: the mixed products of each part
// and a0 a1 are each formed once, then doubled.
void square_basecase(word* r, const word* a, int n) {
    if (n <= 4) return mul_basecase(r, a, n, a, n);
    if (n <= kMostMixed) {
        mixed_products_of(r, a, n);
        return double_and_add_squares(r, a, n);
    }
    const int m = n - kMostMixed;
    const word* const a1 = a + kMostMixed;
    word product[2 * kMostMixed];
    mul_basecase(product, a, kMostMixed, a1, m);
    mixed_products_of(r, a, kMostMixed);
    mixed_products_of(r + 2 * kMostMixed, a1, m);
    const word carry = add_n(r + kMostMixed, r + kMostMixed, product, n);
    increment(r + kMostMixed + n, m, carry);
    double_and_add_squares(r, a, n);
}

} // namespace vor::limb
