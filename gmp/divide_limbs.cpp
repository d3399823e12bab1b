// Division of limb arrays: schoolbook, with a short quotient, and by recursion on blocks.
//
// Notation: nn and dn are the limbs of n and d, qn = nn - dn, B = 2^32. A divisor is normalised when
// its top bit is set; operands are shifted left by so many bits as that takes.
#include "gmp/divide_limb.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kLocal = 256;         // limbs of scratch on the stack
constexpr int kTruncationFloor = 3; // limbs of d below the truncated part that correction needs
constexpr int kBlock = 8; // limbs of a block of the divisor, at least; below twice as many
constexpr int kSmallestRecursive = 4 * kBlock;

// r = a << bits, with bits below 32; the limb that leaves the top. Downward: r may be above a.
limb_t shift_up(limb_t* r, const limb_t* a, int n, unsigned bits, limb_t below = 0) {
    const limb_t out = static_cast<limb_t>(dlimb_t{a[n - 1]} << bits >> 32);
    for (int i = n - 1; i >= 0; --i) {
        const limb_t low = i > 0 ? a[i - 1] : below;
        r[i] = static_cast<limb_t>((dlimb_t{a[i]} << 32 | low) << bits >> 32);
    }
    return out;
}

// r = a >> bits over n limbs.
void shift_down(limb_t* r, const limb_t* a, int n, unsigned bits) {
    for (int i = 0; i < n; ++i) {
        const limb_t high = i + 1 < n ? a[i + 1] : 0;
        r[i] = static_cast<limb_t>((dlimb_t{high} << 32 | a[i]) >> bits);
    }
}

// The quotient limb of three limbs by two, (t2, t1, t0) < (d1, d0, 0): exact for these limbs, and so
// for longer operands at most one too large.
limb_t quotient_3_by_2(limb_t t2, limb_t t1, limb_t t0, limb_t d1, limb_t d0, limb_t v) {
    dlimb_t q;
    limb_t rest;
    if (t2 < d1) {
        const bn::QuotientRemainder step = divide_preinv(t2, t1, d1, v);
        q = step.quotient;
        rest = step.remainder;
    } else { // t2 = d1: the first estimate does not fit a limb, and is too large
        const bool one_more = t1 >= d1;
        q = (dlimb_t{1} << 32) + one_more;
        rest = one_more ? t1 - d1 : t1;
    }
    dlimb_t product = static_cast<limb_t>(q) * dlimb_t{d0};
    while (q >> 32 || product > (dlimb_t{rest} << 32 | t0)) {
        --q;
        if (__builtin_add_overflow(rest, d1, &rest)) break;
        product = static_cast<limb_t>(q) * dlimb_t{d0};
    }
    return static_cast<limb_t>(q);
}

// w, nn + 1 limbs, by the normalised e, dn >= 2 limbs: limbs 0 to qn - 1 of the quotient into q, if
// that is not null, limb qn as the result, the remainder in the low limbs of w.
limb_t divide_normalised(limb_t* q, limb_t* w, int nn, const limb_t* e, int dn) {
    const limb_t d1 = e[dn - 1], d0 = e[dn - 2], v = inverse_of(d1);
    limb_t top = 0;
    for (int j = nn - dn; j >= 0; --j) {
        limb_t* const part = w + j;
        limb_t digit = quotient_3_by_2(part[dn], part[dn - 1], part[dn - 2], d1, d0, v);
        if (limb::submul_1(part, e, dn, digit) != part[dn]) {
            limb::add_n(part, part, e, dn);
            --digit;
        }
        part[dn] = 0;
        if (j == nn - dn)
            top = digit;
        else if (q)
            q[j] = digit;
    }
    return top;
}

} // namespace

VOR_ENGINE unsigned vor_gmp_mpl_divq_3_by_2 PARAMS_DIV_3_BY_2 {
    return quotient_3_by_2(p[0], p[-1], p[-2], d1, d0, v);
}

VOR_ENGINE unsigned vor_gmp_mpl_divqr_long PARAMS_DIVQR_LONG {
    if (dn == 1) {
        r[0] = q ? vor_gmp_mpn_divmod_1(q, n, nn, d[0]) : vor_gmp_mpn_mod_1(n, nn, d[0]);
        return q ? q[nn - 1] : 0;
    }
    const unsigned s = static_cast<unsigned>(__builtin_clz(d[dn - 1]));
    Limbs<kLocal + 1> w(uint64_t{1} + nn);
    w[nn] = shift_up(w, n, nn, s);
    Limbs<kLocal> shifted(s ? dn : 0);
    if (s) shift_up(shifted, d, dn, s);
    const limb_t top = divide_normalised(q, w, nn, s ? shifted : d, dn);
    shift_down(r, w, dn, s);
    return q || nn > 2 ? top : 0; // without q, a single limb of quotient is not told
}

// The quotient of k limbs is that of the top 2k limbs of n by the top k limbs of d, or a little less:
// truncating d makes it too large. With the shifted d = D B^m + d', the remainder N of the truncated
// division and f = d' / B^m < 1, the quotient q is right if q f <= N + (what was cut from n) / B^m.
// From the top limbs alone, with e the top limb of d': q f is between hi B^(k - 1) and
// (hi + 2) B^(k - 1) for k = 1, (hi + 3) B^(k - 1) for any k, where hi = floor(q[k - 1] e / B).
// q[k] is written: q has qn + 2 limbs.
VOR_ENGINE int vor_gmp_mpl_divq_sq PARAMS_DIVQ_SQ {
    const int qn = nn - dn;
    if (qn > kShortQuotient || dn - qn < kTruncationFloor) {
        Limbs<0> rest(nn);
        q[qn] = vor_gmp_mpl_divqr_long(q, rest, n, nn, d, dn);
        return qn + (q[qn] != 0);
    }
    const int sd = __builtin_clz(d[dn - 1]), sn = __builtin_clz(n[nn - 1]);
    const int u = sn <= sd;
    const int k = qn + u;
    if (k == 0) {
        q[0] = 0;
        return 0;
    }
    const int cut = dn - k;
    Limbs<3 * (kShortQuotient + 1)> top(3 * k);
    limb_t *const N = top, *const D = N + 2 * k;
    const limb_t out = shift_up(N, n + cut, 2 * k - u, sd, n[cut - 1]);
    if (u) N[2 * k - 1] = out;
    shift_up(D, d + cut, k, sd, d[cut - 1]);
    const limb_t e = static_cast<limb_t>((dlimb_t{d[cut - 1]} << 32 | d[cut - 2]) << sd >> 32);
    vor_gmp_mpl_divqr_long(q, N, N, 2 * k, D, k);
    q[k] = 0;
    for (;;) {
        const limb_t hi = static_cast<limb_t>(dlimb_t{q[k - 1]} * e >> 32);
        if (hi <= N[k - 1]) {
            if (N[k - 1] - hi > static_cast<limb_t>(k)) break;
            Limbs<kLocal> product(uint64_t{1} * dn + k);
            vor_gmp___gmpn_mul(product, d, dn, q, k);
            if (normal_size(product + nn, dn + k - nn) > 0 || cpCmp_BNU(product, n, nn) > 0)
                bn::sub_1(q, k, 1);
            break;
        }
        bn::sub_1(q, k, 1);
        if (limb::add_n(N, N, D, k)) break;
    }
    return k - (q[k - 1] == 0);
}

VOR_ENGINE int vor_gmp_mpl_divqr_sq PARAMS_DIVQR_SQ {
    *qsize = vor_gmp_mpl_divq_sq(q, n, nn, d, dn);
    for (int i = 0; i < *qsize; ++i)
        bn::sub_1(n + dn + i, nn - dn - i, limb::submul_1(n + i, d, dn, q[i]));
    return normal_size(n, nn);
}

// Recursive division (Burnikel and Ziegler, MPI Saarbruecken, research report MPI-I-98-1-022, 1998):
// two halves of a quotient, each from a division by the upper half of b and a product with the lower.
VOR_ENGINE void vor_gmp_vor_gmp_div_n4_d2 PARAMS_BLOCK {
    if (n % 2 == 0 && 2 * n > kBaseDivisor) {
        vor_gmp_vor_gmp_div_n3_d2(q + n, a + n, b, n);
        vor_gmp_vor_gmp_div_n3_d2(q, a, b, n);
        return;
    }
    vor_gmp_mpl_divqr_long(q, a, a, 4 * n, b, 2 * n);
}

VOR_ENGINE void vor_gmp_vor_gmp_div_n3_d2 PARAMS_BLOCK {
    limb_t carry = 0; // what the remainder has above its 2n limbs
    if (cpCmp_BNU(a + 2 * n, b + n, n) < 0) {
        vor_gmp_vor_gmp_div_n4_d2(q, a + n, b + n, n / 2);
    } else { // the upper halves are equal: the largest quotient
        for (int i = 0; i < n; ++i) q[i] = ~limb_t{0};
        limb::sub_n(a + 2 * n, a + 2 * n, b + n, n);
        carry = limb::add_n(a + n, a + n, b + n, n);
    }
    Limbs<kLocal> product(uint64_t{2} * n);
    vor_gmp___gmpn_mul_n(product, q, b, n);
    const limb_t borrow = limb::sub_n(a, a, product, 2 * n);
    if (borrow <= carry) return;
    do bn::sub_1(q, n, 1);
    while (limb::add_n(a, a, b, 2 * n) == 0);
}

// The divisor is padded at the bottom to t limbs, m blocks of 8 to 15 limbs with m a power of two, and
// normalised; the dividend is divided by t limbs of quotient at a time.
VOR_ENGINE void vor_gmp_mpl_divqr_dc PARAMS_DIVQR_DC {
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
    clear_limbs(scratch, 2 * whole + t);
    limb_t *const A = scratch, *const D = A + whole, *const Q = D + t;
    const limb_t out = shift_up(A + padding, n, nn, s);
    if (u) A[padding + nn] = out;
    shift_up(D + padding, d, dn, s);

    limb_t* const top = A + whole - t;
    const bool one_above = cpCmp_BNU(top, D, t) >= 0;
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
        copy_limbs(q, Q, qn + 1);
        if (one_above) q[(blocks - 1) * t] = 1; // = qn then
        *qsize = qn + (q[qn] != 0);
    }
    shift_down(r, A + padding, dn, s);
    *rsize = normal_size(r, dn);
}
