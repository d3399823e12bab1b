// symv, hemv: y := alpha * A * x + beta * y, A symmetric or Hermitian.
//
// Four columns at a time where x and y lie in neighbouring elements.
#include "blas/level2/entry.h"
#include "blas/level2/symmetric_product.h"

#define MEMBER(p, P, T, op, OP, group)                                                             \
    LEVEL2(p, P, T, op, OP, SYMV,                                                                  \
           vor::symmetric_product<group>(                                                          \
               vor::FullTriangle<const T>{vor::is_letter(uplo, 'U'), *n, a, *lda}, *alpha, x,      \
               *incx, *beta, y, *incy))
MEMBER(s, S, float, symv, SYMV, 4)
MEMBER(d, D, double, symv, SYMV, 4)
MEMBER(c, C, vor::cfloat, hemv, HEMV, 4)
MEMBER(z, Z, vor::cdouble, hemv, HEMV, 4)
