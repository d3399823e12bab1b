// Sums and differences of integers. r may be an operand.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kFew = 4; // limbs for which a call costs more than it saves

// r = |x| + |y|, x at least as long; the size.
int add_magnitudes(limb_t* r, const limb_t* x, int xn, const limb_t* y, int yn) {
    if (xn <= kFew && xn == yn) {
        dlimb_t sum = 0;
        for (int i = 0; i < xn; ++i) {
            sum = (sum >> 32) + x[i] + y[i];
            r[i] = static_cast<limb_t>(sum);
        }
        const limb_t carry = static_cast<limb_t>(sum >> 32);
        r[xn] = carry;
        return xn + static_cast<int>(carry);
    }
    const limb_t carry = limb::add(r, x, xn, y, yn);
    r[xn] = carry;
    return xn + static_cast<int>(carry);
}

// r = |x| - |y|, negative sizes for negative differences.
int subtract_magnitudes(limb_t* r, const limb_t* x, int xn, const limb_t* y, int yn) {
    if (xn == yn) { // equal top limbs cancel without being subtracted
        while (xn > 0 && x[xn - 1] == y[xn - 1]) --xn;
        if (xn == 0) return 0;
        yn = xn;
    }
    if (xn < yn || (xn == yn && x[xn - 1] < y[xn - 1])) {
        limb::sub(r, y, yn, x, xn);
        return -limb::normal_size(r, yn);
    }
    limb::sub(r, x, xn, y, yn);
    return limb::normal_size(r, xn);
}

// Signed sum of a and b, where b counts with the size bs.
[[gnu::always_inline]] inline void add(vor_mpz* r, const vor_mpz* a, const vor_mpz* b, int bs) {
    const int as = signed_size(a), an = as < 0 ? -as : as, bn = bs < 0 ? -bs : bs;
    limb_t* const d = grow(r, 1 + (an > bn ? an : bn));
    const limb_t *const x = a->_mp_d, *const y = b->_mp_d;
    int size;
    if ((as ^ bs) < 0)
        size = subtract_magnitudes(d, x, an, y, bn);
    else
        size = an < bn ? add_magnitudes(d, y, bn, x, an) : add_magnitudes(d, x, an, y, bn);
    r->_mp_size = as < 0 ? -size : size;
}

// |r| = |a| + v, with the sign of a; a is not 0.
void grow_magnitude(vor_mpz* r, const vor_mpz* a, limb_t v) {
    const int n = limbs_of(a);
    const bool minus = negative(a);
    limb_t* const d = grow(r, 1 + n);
    d[n] = limb::add_1(d, a->_mp_d, n, v);
    finish(r, n + 1, minus);
}

// |r| = ||a| - v|, with the sign of a, or the other if v is larger; a is not 0.
void shrink_magnitude(vor_mpz* r, const vor_mpz* a, limb_t v) {
    const int n = limbs_of(a);
    const bool minus = negative(a);
    limb_t* const d = grow(r, n);
    if (limb::sub_1(d, a->_mp_d, n, v)) { // only a single limb can be below v
        d[0] = 0 - d[0];
        return finish(r, 1, !minus);
    }
    finish(r, n, minus);
}

} // namespace

VOR_GMP(void, __gmpz_add, __GMPZ_ADD, vor_gmp___gmpz_add,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    add(r, a, b, signed_size(b));
}

VOR_GMP(void, __gmpz_sub, __GMPZ_SUB, vor_gmp___gmpz_sub,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    add(r, a, b, -signed_size(b));
}

VOR_GMP(void, __gmpz_add_ui, __GMPZ_ADD_UI, vor_gmp___gmpz_add_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    if (value_size(a) == 0) return vor_gmp___gmpz_set_ui(r, v);
    if (negative(a)) return shrink_magnitude(r, a, v);
    grow_magnitude(r, a, v);
}

VOR_GMP(void, __gmpz_sub_ui, __GMPZ_SUB_UI, vor_gmp___gmpz_sub_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    if (value_size(a) == 0) {
        vor_gmp___gmpz_set_ui(r, v);
        r->_mp_size = -r->_mp_size;
        return;
    }
    if (negative(a)) return grow_magnitude(r, a, v);
    shrink_magnitude(r, a, v);
}

VOR_GMP(void, __gmpz_ui_sub, __GMPZ_UI_SUB, vor_gmp___gmpz_ui_sub,
        (vor_mpz * r, unsigned v, const vor_mpz* a), (r, v, a)) {
    vor_gmp___gmpz_sub(r, WordValue(v), a);
}
