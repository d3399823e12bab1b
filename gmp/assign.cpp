// Assignment, sign, and the value of a record as a word.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// r = |a| with the sign given, zeros above the value.
void assign(vor_mpz* r, const vor_mpz* a, bool minus) {
    const int n = limbs_of(a);
    if (r != a) {
        limb::copy(grow(r, n), a->_mp_d, n);
        clear_above(r, n);
    }
    r->_mp_size = with_sign(n, minus);
}

} // namespace

VOR_GMP(void, __gmpz_set, __GMPZ_SET, vor_gmp___gmpz_set, (vor_mpz * r, const vor_mpz* a), (r, a)) {
    assign(r, a, negative(a));
}

VOR_GMP(void, __gmpz_neg, __GMPZ_NEG, vor_gmp___gmpz_neg, (vor_mpz * r, const vor_mpz* a), (r, a)) {
    assign(r, a, !negative(a));
}

VOR_GMP(void, __gmpz_abs, __GMPZ_ABS, vor_gmp___gmpz_abs, (vor_mpz * r, const vor_mpz* a), (r, a)) {
    assign(r, a, false);
}

VOR_GMP(void, __gmpz_set_ui, __GMPZ_SET_UI, vor_gmp___gmpz_set_ui, (vor_mpz * x, unsigned v),
        (x, v)) {
    x->_mp_d[0] = v;
    x->_mp_size = v != 0;
}

VOR_GMP(void, __gmpz_set_si, __GMPZ_SET_SI, vor_gmp___gmpz_set_si, (vor_mpz * x, int i), (x, i)) {
    vor_gmp___gmpz_set_ui(x, i < 0 ? 0 - static_cast<limb_t>(i) : static_cast<limb_t>(i));
    if (i < 0) x->_mp_size = -1;
}

VOR_GMP(void, __gmpz_init_set, __GMPZ_INIT_SET, vor_gmp___gmpz_init_set,
        (vor_mpz * r, const vor_mpz* a), (r, a)) {
    vor_gmp___gmpz_init(r);
    vor_gmp___gmpz_set(r, a);
}

VOR_GMP(void, __gmpz_init_set_ui, __GMPZ_INIT_SET_UI, vor_gmp___gmpz_init_set_ui,
        (vor_mpz * x, unsigned v), (x, v)) {
    vor_gmp___gmpz_init(x);
    vor_gmp___gmpz_set_ui(x, v);
}

VOR_GMP(void, __gmpz_init_set_si, __GMPZ_INIT_SET_SI, vor_gmp___gmpz_init_set_si,
        (vor_mpz * x, int i), (x, i)) {
    vor_gmp___gmpz_init(x);
    vor_gmp___gmpz_set_si(x, i);
}

VOR_GMP(void, __gmpz_swap, __GMPZ_SWAP, vor_gmp___gmpz_swap, (vor_mpz * a, vor_mpz* b), (a, b)) {
    const vor_mpz old = *a;
    *a = *b;
    *b = old;
}

VOR_GMP(unsigned, __gmpz_get_ui, __GMPZ_GET_UI, vor_gmp___gmpz_get_ui, (const vor_mpz* x), (x)) {
    return limbs_of(x) ? x->_mp_d[0] : 0;
}

VOR_GMP(int, __gmpz_get_si, __GMPZ_GET_SI, vor_gmp___gmpz_get_si, (const vor_mpz* x), (x)) {
    const limb_t low = vor_gmp___gmpz_get_ui(x);
    return static_cast<int>(negative(x) ? 0 - low : low);
}

VOR_GMP(unsigned, __gmpz_getlimbn, __GMPZ_GETLIMBN, vor_gmp___gmpz_getlimbn,
        (const vor_mpz* x, int i), (x, i)) {
    return i >= 0 && i < limbs_of(x) ? x->_mp_d[i] : 0;
}
