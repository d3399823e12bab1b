// spr, hpr: A := A + alpha * x * x^H, one triangle of A, packed.
//
// ap  the columns of the stored triangle one after the other, without gaps
#include "blas/level2/entry.h"
#include "blas/level2/update.h"

#define MEMBER(p, P, T, op, OP)                                                                    \
    LEVEL2(p, P, T, op, OP, SPR,                                                                   \
           vor::rank_one(vor::PackedTriangle<T>{vor::is_letter(uplo, 'U'), *n, ap}, *alpha, x,     \
                         *incx))
MEMBER(s, S, float, spr, SPR)
MEMBER(d, D, double, spr, SPR)
MEMBER(c, C, vor::cfloat, hpr, HPR)
MEMBER(z, Z, vor::cdouble, hpr, HPR)
