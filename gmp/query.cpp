// Size, sign and range of a record.
#include "gmp/integer.h"
#include "serv/bits.h"

#include <math.h>

using namespace vor;
using namespace vor::gmp;

namespace {

// low <= x <= high, for bounds of at most 32 bits.
bool within(const vor_mpz* x, int64_t low, int64_t high) {
    const int n = value_size(x);
    if (n > 1) return false;
    const int64_t magnitude = n ? x->_mp_d[0] : 0;
    const int64_t value = negative(x) ? -magnitude : magnitude;
    return low <= value && value <= high;
}

} // namespace

VOR_GMP(int, __gmpz_size, __GMPZ_SIZE, vor_gmp___gmpz_size, (const vor_mpz* x), (x)) {
    return limbs_of(x);
}

VOR_GMP(int, __gmpz_sgn, __GMPZ_SGN, vor_gmp___gmpz_sgn, (const vor_mpz* x), (x)) {
    return value_size(x) == 0 ? 0 : negative(x) ? -1 : 1;
}

// Zero limbs on top are dropped from the record itself, which does not change its value.
VOR_GMP(unsigned, __gmpz_sizeinbase, __GMPZ_SIZEINBASE, vor_gmp___gmpz_sizeinbase,
        (const vor_mpz* x, int i), (x, i)) {
    const int n = limb::normal_size(x->_mp_d, limbs_of(x));
    if (n != limbs_of(x)) const_cast<vor_mpz*>(x)->_mp_size = with_sign(n, negative(x));
    if (n == 0) return 1;
    const uint64_t bits = bit_length(x);
    const unsigned base = static_cast<unsigned>(i);
    if ((base & (base - 1)) == 0) {
        const int k =
            vor::trailing_zeros(base); // extended precision tells the quotient from an integer
        return static_cast<unsigned>(static_cast<long double>(bits + k - 1) / k);
    }
    volatile double digits = static_cast<double>(bits) * log(2.0) / log(static_cast<double>(base));
    digits = digits + 1.0;
    return static_cast<unsigned>(floor(digits));
}

#define FITS(lower, UPPER, engine, LOW, HIGH)                                                      \
    VOR_GMP(int, lower, UPPER, engine, (const vor_mpz* x), (x)) {                                  \
        return within(x, LOW, HIGH);                                                               \
    }
FITS(__gmpz_fits_sint_p, __GMPZ_FITS_SINT_P, vor_gmp___gmpz_fits_sint_p, INT32_MIN, INT32_MAX)
FITS(__gmpz_fits_slong_p, __GMPZ_FITS_SLONG_P, vor_gmp___gmpz_fits_slong_p, INT32_MIN, INT32_MAX)
FITS(__gmpz_fits_uint_p, __GMPZ_FITS_UINT_P, vor_gmp___gmpz_fits_uint_p, 0, UINT32_MAX)
FITS(__gmpz_fits_ulong_p, __GMPZ_FITS_ULONG_P, vor_gmp___gmpz_fits_ulong_p, 0, UINT32_MAX)
FITS(__gmpz_fits_sshort_p, __GMPZ_FITS_SSHORT_P, vor_gmp___gmpz_fits_sshort_p, INT16_MIN, INT16_MAX)
FITS(__gmpz_fits_ushort_p, __GMPZ_FITS_USHORT_P, vor_gmp___gmpz_fits_ushort_p, 0, UINT16_MAX)
