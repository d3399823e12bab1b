// The inverse of a modulo |m|. r may be an operand.
#include "gmp/euclid.h"
#include "gmp/integer.h"
#include "gmp/limb/kernel/divide_2_by_1.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

bool is_one(const limb_t* p, int n) {
    return n == 1 && p[0] == 1;
}

} // namespace

VOR_GMP(int, __gmpz_invert, __GMPZ_INVERT, vor_gmp___gmpz_invert,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    const vor_mpz* const m = b;
    const int mn = value_size(m);
    if (mn == 0) limb::divide_by_zero();
    if (is_one(m->_mp_d, mn)) return 0;
    Temporary residue;
    vor_gmp___gmpz_mod(residue, a, m);
    const int an = limbs_of(residue);
    if (an == 0) return 0;
    Limbs<kLocal> inverse(uint64_t{3} * mn + 2);
    limb_t* const gcd = inverse + mn + 2;
    const Cofactor sizes = gcd_with_cofactor(gcd, inverse, residue->_mp_d, an, m->_mp_d, mn);
    if (!is_one(gcd, sizes.gcd_size)) return 0;
    limb::copy(grow(r, mn), inverse, sizes.size);
    r->_mp_size = sizes.size;
    return 1;
}
