// Sums, rows and comparisons of limb arrays: the arithmetic is that of the big-number layer.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

VOR_ENGINE unsigned vor_gmp___gmpn_add_n PARAMS_LIMBS2 {
    return n > 0 ? limb::add_n(r, a, b, n) : 0;
}

VOR_ENGINE unsigned vor_gmp___gmpn_sub_n PARAMS_LIMBS2 {
    return n > 0 ? limb::sub_n(r, a, b, n) : 0;
}

VOR_ENGINE unsigned vor_gmp___gmpn_add_1 PARAMS_LIMBS1 {
    for (int i = 0; i < n; ++i) v = __builtin_add_overflow(a[i], v, &r[i]);
    return v;
}

VOR_ENGINE unsigned vor_gmp___gmpn_sub_1 PARAMS_LIMBS1 {
    for (int i = 0; i < n; ++i) v = __builtin_sub_overflow(a[i], v, &r[i]);
    return v;
}

VOR_ENGINE unsigned vor_gmp___gmpn_addmul_1 PARAMS_LIMBS1 {
    return n > 0 ? limb::addmul_1(r, a, n, v) : 0;
}

VOR_ENGINE unsigned vor_gmp___gmpn_submul_1 PARAMS_LIMBS1 {
    return n > 0 ? limb::submul_1(r, a, n, v) : 0;
}

VOR_ENGINE int vor_gmp___gmpn_cmp PARAMS_COMPARE {
    return cpCmp_BNU(a, b, n);
}

VOR_ENGINE void vor_gmp_mpn_incr_u PARAMS_INCREMENT {
    for (; v; ++p) v = __builtin_add_overflow(*p, v, p);
}

VOR_ENGINE int vor_gmp_mpl_is_nonzero PARAMS_NONZERO {
    return normal_size(p, n) > 0;
}

VOR_ENGINE unsigned vor_gmp_mpl_umul_ppmm PARAMS_UMUL {
    const dlimb_t product = dlimb_t{a} * b;
    *hi = static_cast<limb_t>(product >> 32);
    return static_cast<limb_t>(product);
}

VOR_ENGINE void vor_gmp_mpl_add_ssaaaa PARAMS_TWO_LIMBS {
    const dlimb_t sum = (dlimb_t{ah} << 32 | al) + (dlimb_t{bh} << 32 | bl);
    *hi = static_cast<limb_t>(sum >> 32);
    *lo = static_cast<limb_t>(sum);
}

VOR_ENGINE void vor_gmp_mpl_sub_ddssss PARAMS_TWO_LIMBS {
    const dlimb_t difference = (dlimb_t{ah} << 32 | al) - (dlimb_t{bh} << 32 | bl);
    *hi = static_cast<limb_t>(difference >> 32);
    *lo = static_cast<limb_t>(difference);
}

VOR_ENGINE void vor_gmp_mpn_mul_basecase PARAMS_PRODUCT {
    if (an < bn) return vor_gmp_mpn_mul_basecase(r, b, bn, a, an);
    clear_limbs(r, an);
    for (int i = 0; i < bn; ++i) r[an + i] = limb::addmul_1(r + i, a, an, b[i]);
}

// Limbs of r from rn on count as zero.
extern "C" int mpn_addmul(limb_t* r, int rn, const limb_t* a, int an, const limb_t* b, int bn) {
    if (an < bn) return mpn_addmul(r, rn, b, bn, a, an);
    const int n = rn > an + bn ? rn : an + bn;
    clear_limbs(r + rn, n - rn);
    limb_t carry = 0;
    for (int i = 0; i < bn; ++i) {
        const limb_t row = limb::addmul_1(r + i, a, an, b[i]);
        carry |= bn::add_1(r + i + an, n - i - an, row);
    }
    if (carry) {
        r[n] = carry;
        return n + 1;
    }
    return normal_size(r, n);
}
