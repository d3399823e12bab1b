// syr, her: A := A + alpha * x * x^H, one triangle of A.
#include "blas/level2/entry.h"
#include "blas/level2/update.h"

#define MEMBER(p, P, T, op, OP)                                                                    \
    LEVEL2(p, P, T, op, OP, SYR,                                                                   \
           vor::rank_one(vor::FullTriangle<T>{vor::is_letter(uplo, 'U'), *n, a, *lda}, *alpha, x,  \
                         *incx))
MEMBER(s, S, float, syr, SYR)
MEMBER(d, D, double, syr, SYR)
MEMBER(c, C, vor::cfloat, her, HER)
MEMBER(z, Z, vor::cdouble, her, HER)
