// Division of limb arrays with a short quotient, found from the top limbs.
//
// Notation: nn and dn are the limbs of n and d, qn = nn - dn, B = 2^32. A divisor is normalised when
// its top bit is set; operands are shifted left by so many bits as that takes.
#include "gmp/integer.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kTruncationFloor = 3; // limbs of d below the truncated part that correction needs

// r = a << bits with the bits that come in from the limb below a; the limb that leaves the top.
limb_t shift_up(limb_t* r, const limb_t* a, int n, unsigned bits) {
    const limb_t out = limb::lshift(r, a, n, bits);
    r[0] |= static_cast<limb_t>(dlimb_t{a[-1]} << bits >> 32);
    return out;
}

} // namespace

// The quotient of k limbs is that of the top 2k limbs of n by the top k limbs of d, or a little less:
// truncating d makes it too large. With the shifted d = D B^m + d', the remainder N of the truncated
// division and f = d' / B^m < 1, the quotient q is right if q f <= N + (what was cut from n) / B^m.
// From the top limbs alone, with e the top limb of d': q f is between hi B^(k - 1) and
// (hi + 2) B^(k - 1) for k = 1, (hi + 3) B^(k - 1) for any k, where hi = floor(q[k - 1] e / B).
// q[k] is written: q has qn + 2 limbs.
VOR_GMP(int, mpl_divq_sq, MPL_DIVQ_SQ, vor_gmp_mpl_divq_sq,
        (unsigned* q, const unsigned* n, int nn, const unsigned* d, int dn), (q, n, nn, d, dn)) {
    const int qn = nn - dn;
    if (qn > kShortQuotient || dn - qn < kTruncationFloor) {
        Limbs<0> rest(nn);
        q[qn] = vor_gmp_mpl_divqr_long(q, rest, n, nn, d, dn);
        return qn + (q[qn] != 0);
    }
    const unsigned sd = static_cast<unsigned>(__builtin_clz(d[dn - 1]));
    const int u = static_cast<unsigned>(__builtin_clz(n[nn - 1])) <= sd;
    const int k = qn + u;
    if (k == 0) {
        q[0] = 0;
        return 0;
    }
    const int cut = dn - k;
    Limbs<3 * (kShortQuotient + 1)> top(3 * k);
    limb_t *const N = top, *const D = N + 2 * k;
    const limb_t out = shift_up(N, n + cut, 2 * k - u, sd);
    if (u) N[2 * k - 1] = out;
    shift_up(D, d + cut, k, sd);
    const limb_t e = static_cast<limb_t>((dlimb_t{d[cut - 1]} << 32 | d[cut - 2]) << sd >> 32);
    vor_gmp_mpl_divqr_long(q, N, N, 2 * k, D, k);
    q[k] = 0;
    for (;;) {
        const limb_t hi = static_cast<limb_t>(dlimb_t{q[k - 1]} * e >> 32);
        if (hi <= N[k - 1]) {
            if (N[k - 1] - hi > static_cast<limb_t>(k)) break;
            Limbs<kLocal> product(uint64_t{1} * dn + k);
            limb::multiply(product, d, dn, q, k);
            if (limb::normal_size(product + nn, dn + k - nn) > 0 ||
                limb::compare(product, n, nn) > 0)
                limb::decrement(q, k, 1);
            break;
        }
        limb::decrement(q, k, 1);
        if (limb::add_n(N, N, D, k)) break;
    }
    return k - (q[k - 1] == 0);
}

VOR_GMP(int, mpl_divqr_sq, MPL_DIVQR_SQ, vor_gmp_mpl_divqr_sq,
        (unsigned* q, int* qsize, unsigned* n, int nn, const unsigned* d, int dn),
        (q, qsize, n, nn, d, dn)) {
    *qsize = vor_gmp_mpl_divq_sq(q, n, nn, d, dn);
    for (int i = 0; i < *qsize; ++i)
        limb::decrement(n + dn + i, nn - dn - i, limb::submul_1(n + i, d, dn, q[i]));
    return limb::normal_size(n, nn);
}
