// Life and room of an integer record.
#include "gmp/integer.h"

using namespace vor::gmp;

namespace {

int at_least_minimum(int limbs) {
    return limbs < kMinimumLimbs ? kMinimumLimbs : limbs;
}

} // namespace

VOR_ENGINE unsigned vor_gmp__impbits2chars(unsigned bits) {
    return bits + 7 < 8 ? 1 : (bits + 7) / 8;
}

VOR_ENGINE unsigned vor_gmp__impbits2chunks(unsigned bits) {
    return bits + 31 < 32 ? 1 : (bits + 31) / 32;
}

extern "C" int mpl_adjust_size(const limb_t* limbs, int n) {
    return normal_size(limbs, n);
}

VOR_ENGINE void vor_gmp___gmpz_init(vor_mpz* x) {
    vor_gmp___gmpz_init2(x, kMinimumLimbs);
}

VOR_ENGINE void vor_gmp___gmpz_init2(vor_mpz* x, unsigned v) {
    *x = {0, 0, nullptr};
    move_limbs(x, at_least_minimum(bits_to_limbs(v)), 0, __builtin_FUNCTION());
}

VOR_ENGINE void vor_gmp___gmpz_clear(vor_mpz* x) {
    free_limbs(x->_mp_d, x->_mp_alloc);
}

VOR_ENGINE void vor_gmp___gmpz_array_init(vor_mpz* array, int count, unsigned bits) {
    for (int i = 0; i < count; ++i) vor_gmp___gmpz_init2(array + i, bits);
}

VOR_ENGINE int vor_gmp___gmpz_realloc(vor_mpz* x, int i) {
    const int n = at_least_minimum(i);
    if (n > x->_mp_alloc) {
        move_limbs(x, n, x->_mp_alloc, __builtin_FUNCTION());
    } else if (n < x->_mp_alloc) {
        const int size = limbs_of(x);
        finish(x, size < n ? size : n, negative(x));
        clear_above(x, n);
    }
    return 0;
}

VOR_ENGINE void vor_gmp___gmpz_realloc2(vor_mpz* x, unsigned v) {
    const int needed = bits_to_limbs(v);
    const int n = at_least_minimum(needed);
    if (needed < limbs_of(x)) {
        clear_limbs(x->_mp_d, limbs_of(x));
        x->_mp_size = 0;
    }
    if (n == x->_mp_alloc) return;
    const int kept = n < x->_mp_alloc ? n : x->_mp_alloc;
    move_limbs(x, n, kept, __builtin_FUNCTION());
    finish(x, limbs_of(x), negative(x));
}
