// Sums and differences of integers. r may be an operand.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// Signed sum of a and b, where b counts with the sign `b_minus`.
void add(vor_mpz* r, const vor_mpz* a, const vor_mpz* b, bool b_minus, const char* function) {
    int an = value_size(a), bn = value_size(b);
    const bool a_minus = negative(a);
    const int longer = an > bn ? an : bn;
    limb_t* const d = grow(r, uint64_t{1} + longer, function);
    const limb_t *x = a->_mp_d, *y = b->_mp_d;
    if (an == 0 || bn == 0) {
        const bool only_b = an == 0;
        const int n = only_b ? bn : an;
        if ((only_b ? y : x) != d) copy_limbs(d, only_b ? y : x, n);
        r->_mp_size = with_sign(n, only_b ? b_minus : a_minus);
        return;
    }
    if (a_minus == b_minus) {
        int sum_size;
        cpAdd_BNUs(x, an, y, bn, d, &sum_size, longer + 1);
        r->_mp_size = with_sign(sum_size, a_minus);
        return;
    }
    if (an == bn) { // equal top limbs cancel without being subtracted
        while (an > 0 && x[an - 1] == y[an - 1]) --an;
        bn = an;
        if (an == 0) {
            r->_mp_size = 0;
            return;
        }
    }
    limb_t a_larger;
    int size;
    cpSub_BNUs(x, an, y, bn, d, &size, &a_larger);
    r->_mp_size = with_sign(size, a_larger ? a_minus : b_minus);
}

// |r| = |a| + v, with the sign of a; a is not 0.
void grow_magnitude(vor_mpz* r, const vor_mpz* a, limb_t v, const char* function) {
    const int n = limbs_of(a);
    const bool minus = negative(a);
    limb_t* const d = grow(r, uint64_t{1} + n, function);
    d[n] = vor_gmp___gmpn_add_1(d, a->_mp_d, n, v);
    finish(r, n + 1, minus);
}

// |r| = ||a| - v|, with the sign of a, or the other if v is larger; a is not 0.
void shrink_magnitude(vor_mpz* r, const vor_mpz* a, limb_t v, const char* function) {
    const int n = limbs_of(a);
    const bool minus = negative(a);
    limb_t* const d = grow(r, n, function);
    if (vor_gmp___gmpn_sub_1(d, a->_mp_d, n, v)) { // only a single limb can be below v
        d[0] = 0 - d[0];
        return finish(r, 1, !minus);
    }
    finish(r, n, minus);
}

} // namespace

VOR_ENGINE void vor_gmp___gmpz_add PARAMS_RAB {
    add(r, a, b, negative(b), __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp___gmpz_sub PARAMS_RAB {
    add(r, a, b, !negative(b), __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp___gmpz_add_ui PARAMS_RAV {
    if (value_size(a) == 0) return vor_gmp___gmpz_set_ui(r, v);
    if (negative(a)) return shrink_magnitude(r, a, v, __builtin_FUNCTION());
    grow_magnitude(r, a, v, __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp___gmpz_sub_ui PARAMS_RAV {
    if (value_size(a) == 0) {
        vor_gmp___gmpz_set_ui(r, v);
        r->_mp_size = -r->_mp_size;
        return;
    }
    if (negative(a)) return grow_magnitude(r, a, v, __builtin_FUNCTION());
    shrink_magnitude(r, a, v, __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp___gmpz_ui_sub PARAMS_RVA {
    vor_gmp___gmpz_sub(r, WordValue(v), a);
}
