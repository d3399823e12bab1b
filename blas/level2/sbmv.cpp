// sbmv, hbmv: y := alpha * A * x + beta * y, A a symmetric or Hermitian band.
//
// a      column j of the upper triangle: A(i, j) at row k + i - j; of the lower one: at row i - j
// k = 0  a diagonal matrix
#include "blas/level2/entry.h"
#include "blas/level2/symmetric_product.h"

#define MEMBER(p, P, T, op, OP, group)                                                             \
    LEVEL2(p, P, T, op, OP, SBMV,                                                                  \
           vor::symmetric_product<group>(                                                          \
               vor::BandTriangle<const T>{vor::is_letter(uplo, 'U'), *n, *k, a, *lda}, *alpha, x,  \
               *incx, *beta, y, *incy))
MEMBER(s, S, float, sbmv, SBMV, 1)
MEMBER(d, D, double, sbmv, SBMV, 2)
MEMBER(c, C, vor::cfloat, hbmv, HBMV, 1)
MEMBER(z, Z, vor::cdouble, hbmv, HBMV, 1)
