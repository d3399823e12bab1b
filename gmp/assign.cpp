// Assignment, sign, and the value of a record as a word.
#include "gmp/integer.h"

using namespace vor::gmp;

namespace {

// r = |a| with the sign given, zeros above the value.
void assign(vor_mpz* r, const vor_mpz* a, bool minus, const char* function) {
    const int n = limbs_of(a);
    if (r != a) {
        copy_limbs(grow(r, n, function), a->_mp_d, n);
        clear_above(r, n);
    }
    r->_mp_size = with_sign(n, minus);
}

} // namespace

VOR_ENGINE void vor_gmp___gmpz_set PARAMS_RA {
    assign(r, a, negative(a), __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp___gmpz_neg PARAMS_RA {
    assign(r, a, !negative(a), __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp___gmpz_abs PARAMS_RA {
    assign(r, a, false, __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp___gmpz_set_ui PARAMS_XV {
    x->_mp_d[0] = v;
    x->_mp_size = v != 0;
}

VOR_ENGINE void vor_gmp___gmpz_set_si PARAMS_XI {
    vor_gmp___gmpz_set_ui(x, i < 0 ? 0 - static_cast<limb_t>(i) : static_cast<limb_t>(i));
    if (i < 0) x->_mp_size = -1;
}

VOR_ENGINE void vor_gmp___gmpz_init_set PARAMS_RA {
    vor_gmp___gmpz_init(r);
    vor_gmp___gmpz_set(r, a);
}

VOR_ENGINE void vor_gmp___gmpz_init_set_ui PARAMS_XV {
    vor_gmp___gmpz_init(x);
    vor_gmp___gmpz_set_ui(x, v);
}

VOR_ENGINE void vor_gmp___gmpz_init_set_si PARAMS_XI {
    vor_gmp___gmpz_init(x);
    vor_gmp___gmpz_set_si(x, i);
}

VOR_ENGINE void vor_gmp___gmpz_swap PARAMS_SWAP {
    const vor_mpz old = *a;
    *a = *b;
    *b = old;
}

VOR_ENGINE unsigned vor_gmp___gmpz_get_ui PARAMS_CX {
    return limbs_of(x) ? x->_mp_d[0] : 0;
}

VOR_ENGINE int vor_gmp___gmpz_get_si PARAMS_CX {
    const limb_t low = vor_gmp___gmpz_get_ui(x);
    return static_cast<int>(negative(x) ? 0 - low : low);
}

VOR_ENGINE unsigned vor_gmp___gmpz_getlimbn PARAMS_CXI {
    return i >= 0 && i < limbs_of(x) ? x->_mp_d[i] : 0;
}
