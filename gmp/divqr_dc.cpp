// Division of limb arrays by recursion on blocks (Burnikel and Ziegler, MPI Saarbruecken, research report
// MPI-I-98-1-022, 1998): two halves of a quotient, each from a division by the upper half of the divisor
// and a product with the lower.
#include "gmp/integer.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kBlock = 8; // limbs of a block of the divisor, at least; below twice as many
constexpr int kSmallestRecursive = 4 * kBlock;

} // namespace

VOR_GMP(void, vor_gmp_div_n4_d2, VOR_GMP_DIV_N4_D2, vor_gmp_vor_gmp_div_n4_d2,
        (unsigned* q, unsigned* a, const unsigned* b, int n), (q, a, b, n)) {
    if (n % 2 == 0 && 2 * n > kBaseDivisor) {
        vor_gmp_vor_gmp_div_n3_d2(q + n, a + n, b, n);
        vor_gmp_vor_gmp_div_n3_d2(q, a, b, n);
        return;
    }
    vor_gmp_mpl_divqr_long(q, a, a, 4 * n, b, 2 * n);
}

VOR_GMP(void, vor_gmp_div_n3_d2, VOR_GMP_DIV_N3_D2, vor_gmp_vor_gmp_div_n3_d2,
        (unsigned* q, unsigned* a, const unsigned* b, int n), (q, a, b, n)) {
    limb_t carry = 0; // what the remainder has above its 2n limbs
    if (limb::compare(a + 2 * n, b + n, n) < 0) {
        vor_gmp_vor_gmp_div_n4_d2(q, a + n, b + n, n / 2);
    } else { // the upper halves are equal: the largest quotient
        limb::fill(q, n, ~limb_t{0});
        limb::sub_n(a + 2 * n, a + 2 * n, b + n, n);
        carry = limb::add_n(a + n, a + n, b + n, n);
    }
    Limbs<kLocal> product(uint64_t{2} * n);
    limb::multiply_n(product, q, b, n);
    const limb_t borrow = limb::sub_n(a, a, product, 2 * n);
    if (borrow <= carry) return;
    do limb::decrement(q, n, 1);
    while (limb::add_n(a, a, b, 2 * n) == 0);
}

// The divisor is padded at the bottom to t limbs, m blocks of 8 to 15 limbs with m a power of two, and
// normalised; the dividend is divided by t limbs of quotient at a time.
VOR_GMP(void, mpl_divqr_dc, MPL_DIVQR_DC, vor_gmp_mpl_divqr_dc,
        (unsigned* q, int* qsize, unsigned* r, int* rsize, const unsigned* n, int nn,
         const unsigned* d, int dn),
        (q, qsize, r, rsize, n, nn, d, dn)) {
    int m = 2;
    if (dn >= kSmallestRecursive)
        for (m = 4; dn >= 2 * kBlock * m;) m *= 2;
    const int t = m * ((dn - 1) / m + 1);
    const int padding = t - dn;
    const unsigned s = static_cast<unsigned>(__builtin_clz(d[dn - 1]));
    const int u = static_cast<unsigned>(__builtin_clz(n[nn - 1])) < s;
    const int length = nn + padding + u; // of the shifted dividend
    int blocks = 2, whole = 2 * t;
    for (; whole < length; whole += t) ++blocks;
    const bool small_top = whole != length && t + length - whole < kBlock;

    Limbs<0> scratch(uint64_t{2} * whole + t);
    limb::clear(scratch, 2 * whole + t);
    limb_t *const A = scratch, *const D = A + whole, *const Q = D + t;
    const limb_t out = limb::lshift(A + padding, n, nn, s);
    if (u) A[padding + nn] = out;
    limb::lshift(D + padding, d, dn, s);

    limb_t* const top = A + whole - t;
    const bool one_above = limb::compare(top, D, t) >= 0;
    if (one_above) limb::sub_n(top, top, D, t);
    int j = blocks - 2;
    if (small_top) {
        int ignored;
        vor_gmp_mpl_divqr_sq(Q + j * t, &ignored, A + j * t, t + length - whole + t, D, t);
        --j;
    }
    for (; j >= 0; --j) vor_gmp_vor_gmp_div_n4_d2(Q + j * t, A + j * t, D, t / 2);

    if (q) {
        const int qn = nn - dn;
        limb::copy(q, Q, qn + 1);
        if (one_above) q[(blocks - 1) * t] = 1; // = qn then
        *qsize = qn + (q[qn] != 0);
    }
    limb::rshift(r, A + padding, dn, s);
    *rsize = limb::normal_size(r, dn);
}
