// Limb arrays by one limb. The dividend is read through the shift that normalises the divisor, from
// the top down: q may be n.
#include "gmp/divide_limb.h"
#include "serv/bits.h"

using namespace vor;
using namespace vor::gmp;

namespace {

bool power_of_two(limb_t d) {
    return (d & (d - 1)) == 0;
}

// n >> bits, with bits below 32
void shift_down(limb_t* q, const limb_t* n, int nn, unsigned bits) {
    for (int i = 0; i + 1 < nn; ++i)
        q[i] = static_cast<limb_t>((dlimb_t{n[i + 1]} << 32 | n[i]) >> bits);
    q[nn - 1] = n[nn - 1] >> bits;
}

// The remainder of n by d, not a power of two; store(i, limb) takes the quotient limbs.
template <class F>
limb_t divide(const limb_t* n, int nn, limb_t d, F store) {
    const unsigned s = static_cast<unsigned>(__builtin_clz(d));
    const limb_t dn = d << s, v = inverse_of(dn);
    // Limb i of n shifted left by s bits; limb nn is what leaves the top, below d.
    limb_t above = n[nn - 1];
    limb_t x = static_cast<limb_t>(dlimb_t{above} << s >> 32);
    for (int i = nn - 1; i >= 0; --i) {
        const limb_t below = i > 0 ? n[i - 1] : 0;
        const limb_t nl = static_cast<limb_t>((dlimb_t{above} << 32 | below) << s >> 32);
        const bn::QuotientRemainder step = divide_preinv(x, nl, dn, v);
        store(i, step.quotient);
        x = step.remainder;
        above = below;
    }
    return x >> s;
}

} // namespace

VOR_ENGINE unsigned vor_gmp_mpn_divmod_1 PARAMS_DIVMOD_1 {
    if (d == 0) divide_by_zero();
    if (nn == 1) {
        const limb_t whole = n[0];
        q[0] = whole / d;
        return whole % d;
    }
    if (power_of_two(d)) {
        const limb_t rest = n[0] & (d - 1);
        shift_down(q, n, nn, static_cast<unsigned>(vor::trailing_zeros(d)));
        return rest;
    }
    return divide(n, nn, d, [q](int i, limb_t x) { q[i] = x; });
}

VOR_ENGINE unsigned vor_gmp_mpn_mod_1 PARAMS_MOD_1 {
    if (d == 0) divide_by_zero();
    if (nn == 1) return n[0] % d;
    if (power_of_two(d)) return n[0] & (d - 1);
    return divide(n, nn, d, [](int, limb_t) {});
}

VOR_ENGINE unsigned vor_gmp_mpl_udiv_qqrnnd PARAMS_DIV_2_BY_1 {
    return bn::divide_2_by_1(nh < d ? nh : nh % d, nl, d).quotient;
}

VOR_ENGINE unsigned vor_gmp_vor_gmp_udiv_qrnnd_preinv PARAMS_DIV_PREINV {
    const bn::QuotientRemainder step = divide_preinv(nh, nl, d, v);
    *r = step.remainder;
    return step.quotient;
}
