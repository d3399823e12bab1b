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

} // namespace vor::limb
