// The exported sums, rows and comparisons of limb arrays: names over the limb floor.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

VOR_GMP(unsigned, __gmpn_add_n, __GMPN_ADD_N, vor_gmp___gmpn_add_n,
        (unsigned* r, const unsigned* a, const unsigned* b, int n), (r, a, b, n)) {
    return n > 0 ? limb::add_n(r, a, b, n) : 0;
}

VOR_GMP(unsigned, __gmpn_sub_n, __GMPN_SUB_N, vor_gmp___gmpn_sub_n,
        (unsigned* r, const unsigned* a, const unsigned* b, int n), (r, a, b, n)) {
    return n > 0 ? limb::sub_n(r, a, b, n) : 0;
}

VOR_GMP(unsigned, __gmpn_add_1, __GMPN_ADD_1, vor_gmp___gmpn_add_1,
        (unsigned* r, const unsigned* a, int n, unsigned v), (r, a, n, v)) {
    return limb::add_1(r, a, n, v);
}

VOR_GMP(unsigned, __gmpn_sub_1, __GMPN_SUB_1, vor_gmp___gmpn_sub_1,
        (unsigned* r, const unsigned* a, int n, unsigned v), (r, a, n, v)) {
    return limb::sub_1(r, a, n, v);
}

VOR_GMP(unsigned, __gmpn_addmul_1, __GMPN_ADDMUL_1, vor_gmp___gmpn_addmul_1,
        (unsigned* r, const unsigned* a, int n, unsigned v), (r, a, n, v)) {
    return n > 0 ? limb::addmul_1(r, a, n, v) : 0;
}

VOR_GMP(unsigned, __gmpn_submul_1, __GMPN_SUBMUL_1, vor_gmp___gmpn_submul_1,
        (unsigned* r, const unsigned* a, int n, unsigned v), (r, a, n, v)) {
    return n > 0 ? limb::submul_1(r, a, n, v) : 0;
}

VOR_GMP(int, __gmpn_cmp, __GMPN_CMP, vor_gmp___gmpn_cmp,
        (const unsigned* a, const unsigned* b, int n), (a, b, n)) {
    return limb::compare(a, b, n);
}

VOR_GMP(void, mpn_incr_u, MPN_INCR_U, vor_gmp_mpn_incr_u, (unsigned* p, unsigned v), (p, v)) {
    limb::increment(p, INT32_MAX, v);
}

VOR_GMP(int, mpl_is_nonzero, MPL_IS_NONZERO, vor_gmp_mpl_is_nonzero, (const unsigned* p, int n),
        (p, n)) {
    return limb::normal_size(p, n) > 0;
}

VOR_GMP(unsigned, mpl_umul_ppmm, MPL_UMUL_PPMM, vor_gmp_mpl_umul_ppmm,
        (unsigned* hi, unsigned a, unsigned b), (hi, a, b)) {
    const dlimb_t product = dlimb_t{a} * b;
    *hi = static_cast<limb_t>(product >> 32);
    return static_cast<limb_t>(product);
}

VOR_GMP(void, mpl_add_ssaaaa, MPL_ADD_SSAAAA, vor_gmp_mpl_add_ssaaaa,
        (unsigned* hi, unsigned* lo, unsigned ah, unsigned al, unsigned bh, unsigned bl),
        (hi, lo, ah, al, bh, bl)) {
    const dlimb_t sum = (dlimb_t{ah} << 32 | al) + (dlimb_t{bh} << 32 | bl);
    *hi = static_cast<limb_t>(sum >> 32);
    *lo = static_cast<limb_t>(sum);
}

VOR_GMP(void, mpl_sub_ddssss, MPL_SUB_DDSSSS, vor_gmp_mpl_sub_ddssss,
        (unsigned* hi, unsigned* lo, unsigned ah, unsigned al, unsigned bh, unsigned bl),
        (hi, lo, ah, al, bh, bl)) {
    const dlimb_t difference = (dlimb_t{ah} << 32 | al) - (dlimb_t{bh} << 32 | bl);
    *hi = static_cast<limb_t>(difference >> 32);
    *lo = static_cast<limb_t>(difference);
}

VOR_GMP(void, mpn_mul_basecase, MPN_MUL_BASECASE, vor_gmp_mpn_mul_basecase,
        (unsigned* r, const unsigned* a, int an, const unsigned* b, int bn), (r, a, an, b, bn)) {
    limb::mul_basecase(r, a, an, b, bn);
}

// Limbs of r from rn on count as zero.
extern "C" int mpn_addmul(limb_t* r, int rn, const limb_t* a, int an, const limb_t* b, int bn) {
    if (an < bn) return mpn_addmul(r, rn, b, bn, a, an);
    const int n = rn > an + bn ? rn : an + bn;
    limb::clear(r + rn, n - rn);
    limb_t carry = 0;
    for (int i = 0; i < bn; ++i) {
        const limb_t row = limb::addmul_1(r + i, a, an, b[i]);
        carry |= limb::increment(r + i + an, n - i - an, row);
    }
    if (carry) {
        r[n] = carry;
        return n + 1;
    }
    return limb::normal_size(r, n);
}
