// spr2, hpr2: A := A + alpha * x * y^H + conj(alpha) * y * x^H, one triangle of A, packed.
//
// ap  the columns of the stored triangle one after the other, without gaps
#include "blas/level2/entry.h"
#include "blas/level2/update.h"

#define MEMBER(p, P, T, op, OP)                                                                    \
    LEVEL2(p, P, T, op, OP, SPR2,                                                                  \
           vor::rank_two(vor::PackedTriangle<T>{vor::is_letter(uplo, 'U'), *n, ap}, *alpha, x,     \
                         *incx, y, *incy))
MEMBER(s, S, float, spr2, SPR2)
MEMBER(d, D, double, spr2, SPR2)
MEMBER(c, C, vor::cfloat, hpr2, HPR2)
MEMBER(z, Z, vor::cdouble, hpr2, HPR2)
