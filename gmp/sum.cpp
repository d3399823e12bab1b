// Sums and differences of integers. r may be an operand.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// The operands by magnitude: x is at least as long as y, and at least as large if `ordered`.
struct Pair {
    const limb_t *x, *y;
    int xn, yn;

    void swap() {
        const limb_t* const p = x;
        const int n = xn;
        x = y, xn = yn;
        y = p, yn = n;
    }
};

// Signed sum of a and b, where b counts with the sign `b_minus`.
void add(vor_mpz* r, const vor_mpz* a, const vor_mpz* b, bool b_minus) {
    const int an = value_size(a), bn = value_size(b);
    bool minus = negative(a);
    const bool same = minus == b_minus;
    limb_t* const d = grow(r, uint64_t{1} + (an > bn ? an : bn));
    Pair p{a->_mp_d, b->_mp_d, an, bn};
    if (an < bn) {
        p.swap();
        minus = b_minus;
    }
    if (same) {
        const limb_t carry = limb::add(d, p.x, p.xn, p.y, p.yn);
        d[p.xn] = carry;
        r->_mp_size = with_sign(p.xn + static_cast<int>(carry), minus);
        return;
    }
    if (an == bn) { // equal top limbs cancel without being subtracted
        while (p.xn > 0 && p.x[p.xn - 1] == p.y[p.xn - 1]) --p.xn;
        p.yn = p.xn;
        if (p.xn > 0 && p.x[p.xn - 1] < p.y[p.xn - 1]) {
            p.swap();
            minus = b_minus;
        }
    }
    limb::sub(d, p.x, p.xn, p.y, p.yn);
    finish(r, p.xn, minus);
}

// |r| = |a| + v, with the sign of a; a is not 0.
void grow_magnitude(vor_mpz* r, const vor_mpz* a, limb_t v) {
    const int n = limbs_of(a);
    const bool minus = negative(a);
    limb_t* const d = grow(r, uint64_t{1} + n);
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
    add(r, a, b, negative(b));
}

VOR_GMP(void, __gmpz_sub, __GMPZ_SUB, vor_gmp___gmpz_sub,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    add(r, a, b, !negative(b));
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
