// Reduction of two limb arrays to their greatest common divisor, with the cofactor that makes an inverse.
#pragma once

#include "gmp/integer.h"

namespace vor::gmp {

#pragma GCC visibility push(hidden)

// g = gcd(x, y) for x, y > 0, of xn and yn limbs without zeros on top, both with room for as many as the
// longer has, both destroyed; g has room for the shorter and may be one of them. Its size.
int gcd_limbs(limb_t* g, limb_t* x, int xn, limb_t* y, int yn);

// The symbol (x/y) of Jacobi for x > 0 and an odd y > 0, of such limbs and room, both destroyed.
int jacobi_limbs(limb_t* x, int xn, limb_t* y, int yn);

// The greatest common divisor of a and m, with the cofactor u of a: u a = g (mod m), 0 <= u < m / g.
// 0 < a < m; u has room for mn + 2 limbs, g, which may be null, for an.
struct Cofactor {
    int gcd_size, size;
};
Cofactor gcd_with_cofactor(limb_t* g, limb_t* u, const limb_t* a, int an, const limb_t* m, int mn);

#pragma GCC visibility pop

} // namespace vor::gmp
