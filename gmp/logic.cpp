// Bitwise operations on infinite two's complement. r may be an operand.
//
// One pass from the lowest limb up: the limbs of the two's complement of a negative operand are its
// complemented limbs, plus 1 at the bottom, and likewise on the way back.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

// The limbs of x in two's complement, one after the other, or back.
class Complement {
public:
    explicit Complement(bool active) : active_(active), carry_(active) {}
    limb_t operator()(limb_t x) {
        if (!active_) return x;
        carry_ = __builtin_add_overflow(~x, carry_, &x);
        return x;
    }

private:
    bool active_;
    limb_t carry_;
};

template <class F>
void combine(vor_mpz* r, const vor_mpz* a, const vor_mpz* b, F f) {
    const int an = limb::normal_size(a->_mp_d, limbs_of(a));
    const int bn = limb::normal_size(b->_mp_d, limbs_of(b));
    // One bit more than the longer magnitude holds the sign of every result.
    const uint64_t abits = bit_length(a), bbits = bit_length(b);
    const int n = bits_to_limbs((abits > bbits ? abits : bbits) + 1);
    const bool minus = f(limb_t{negative(a)}, limb_t{negative(b)}) & 1;
    Complement from_a(negative(a)), from_b(negative(b)), to_r(minus);
    limb_t* const d = grow(r, n);
    const limb_t *const x = a->_mp_d, *const y = b->_mp_d;
    if (!negative(a) && !negative(b)) {
        int i = 0;
        for (; i < an && i < bn; ++i) d[i] = f(x[i], y[i]);
        for (; i < an; ++i) d[i] = f(x[i], 0);
        for (; i < bn; ++i) d[i] = f(0, y[i]);
        return finish(r, i, false);
    }
    for (int i = 0; i < n; ++i) {
        const limb_t xi = from_a(i < an ? x[i] : 0), yi = from_b(i < bn ? y[i] : 0);
        d[i] = to_r(f(xi, yi));
    }
    finish(r, n, minus);
}

} // namespace

VOR_GMP(void, __gmpz_and, __GMPZ_AND, vor_gmp___gmpz_and,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    combine(r, a, b, [](limb_t x, limb_t y) { return x & y; });
}

VOR_GMP(void, __gmpz_ior, __GMPZ_IOR, vor_gmp___gmpz_ior,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    combine(r, a, b, [](limb_t x, limb_t y) { return x | y; });
}

VOR_GMP(void, __gmpz_xor, __GMPZ_XOR, vor_gmp___gmpz_xor,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    combine(r, a, b, [](limb_t x, limb_t y) { return x ^ y; });
}

VOR_GMP(void, __gmpz_com, __GMPZ_COM, vor_gmp___gmpz_com, (vor_mpz * r, const vor_mpz* a), (r, a)) {
    vor_gmp___gmpz_add_ui(r, a, 1);
    r->_mp_size = -r->_mp_size;
    if (r->_mp_size == 0) clear_above(r, 0);
}
