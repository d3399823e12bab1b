// syr2, her2: A := A + alpha * x * y^H + conj(alpha) * y * x^H, one triangle of A.
#include "blas/level2/entry.h"
#include "blas/level2/update.h"

#define MEMBER(p, P, T, op, OP)                                                                    \
    LEVEL2(p, P, T, op, OP, SYR2,                                                                  \
           vor::rank_two(vor::FullTriangle<T>{vor::is_letter(uplo, 'U'), *n, a, *lda}, *alpha, x,  \
                         *incx, y, *incy))
MEMBER(s, S, float, syr2, SYR2)
MEMBER(d, D, double, syr2, SYR2)
MEMBER(c, C, vor::cfloat, her2, HER2)
MEMBER(z, Z, vor::cdouble, her2, HER2)
