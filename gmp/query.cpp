// Size, sign and range of a record.
#include "gmp/integer.h"
#include "serv/bits.h"

#include <math.h>

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

VOR_ENGINE int vor_gmp___gmpz_size PARAMS_CX {
    return limbs_of(x);
}

VOR_ENGINE int vor_gmp___gmpz_sgn PARAMS_CX {
    return value_size(x) == 0 ? 0 : negative(x) ? -1 : 1;
}

// Zero limbs on top are dropped from the record itself, which does not change its value.
VOR_ENGINE unsigned vor_gmp___gmpz_sizeinbase PARAMS_CXI {
    const int n = normal_size(x->_mp_d, limbs_of(x));
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

#define FITS(lower, LOW, HIGH)                                                                     \
    VOR_ENGINE int vor_gmp_##lower PARAMS_CX {                                                     \
        return within(x, LOW, HIGH);                                                               \
    }
FITS(__gmpz_fits_sint_p, INT32_MIN, INT32_MAX)
FITS(__gmpz_fits_slong_p, INT32_MIN, INT32_MAX)
FITS(__gmpz_fits_uint_p, 0, UINT32_MAX)
FITS(__gmpz_fits_ulong_p, 0, UINT32_MAX)
FITS(__gmpz_fits_sshort_p, INT16_MIN, INT16_MAX)
FITS(__gmpz_fits_ushort_p, 0, UINT16_MAX)
