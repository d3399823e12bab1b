// Life and room of an integer record.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

int at_least_minimum(int limbs) {
    return limbs < kMinimumLimbs ? kMinimumLimbs : limbs;
}

} // namespace

VOR_GMP_MIXED(unsigned, _impBits2Chars, _impbits2chars, _IMPBITS2CHARS, vor_gmp__impbits2chars,
              (unsigned bits), (bits)) {
    return bits + 7 < 8 ? 1 : (bits + 7) / 8;
}

VOR_GMP_MIXED(unsigned, _impBits2Chunks, _impbits2chunks, _IMPBITS2CHUNKS, vor_gmp__impbits2chunks,
              (unsigned bits), (bits)) {
    return bits + 31 < 32 ? 1 : (bits + 31) / 32;
}

extern "C" int mpl_adjust_size(const limb_t* limbs, int n) {
    return limb::normal_size(limbs, n);
}

VOR_GMP(void, __gmpz_init, __GMPZ_INIT, vor_gmp___gmpz_init, (vor_mpz * x), (x)) {
    vor_gmp___gmpz_init2(x, kMinimumLimbs);
}

VOR_GMP(void, __gmpz_init2, __GMPZ_INIT2, vor_gmp___gmpz_init2, (vor_mpz * x, unsigned v), (x, v)) {
    *x = {0, 0, nullptr};
    move_limbs(x, at_least_minimum(bits_to_limbs(v)), 0);
}

VOR_GMP(void, __gmpz_clear, __GMPZ_CLEAR, vor_gmp___gmpz_clear, (vor_mpz * x), (x)) {
    limb::deallocate(x->_mp_d, x->_mp_alloc);
}

VOR_GMP(void, __gmpz_array_init, __GMPZ_ARRAY_INIT, vor_gmp___gmpz_array_init,
        (vor_mpz * array, int count, unsigned bits), (array, count, bits)) {
    for (int i = 0; i < count; ++i) vor_gmp___gmpz_init2(array + i, bits);
}

VOR_GMP(int, __gmpz_realloc, __GMPZ_REALLOC, vor_gmp___gmpz_realloc, (vor_mpz * x, int i), (x, i)) {
    const int n = at_least_minimum(i);
    if (n > x->_mp_alloc) {
        move_limbs(x, n, x->_mp_alloc);
    } else if (n < x->_mp_alloc) {
        const int size = limbs_of(x);
        finish(x, size < n ? size : n, negative(x));
        clear_above(x, n);
    }
    return 0;
}

VOR_GMP(void, __gmpz_realloc2, __GMPZ_REALLOC2, vor_gmp___gmpz_realloc2, (vor_mpz * x, unsigned v),
        (x, v)) {
    const int needed = bits_to_limbs(v);
    const int n = at_least_minimum(needed);
    if (needed < limbs_of(x)) {
        limb::clear(x->_mp_d, limbs_of(x));
        x->_mp_size = 0;
    }
    if (n == x->_mp_alloc) return;
    const int kept = n < x->_mp_alloc ? n : x->_mp_alloc;
    move_limbs(x, n, kept);
    finish(x, limbs_of(x), negative(x));
}
