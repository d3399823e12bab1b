// spmv, hpmv: y := alpha * A * x + beta * y, A symmetric or Hermitian, packed.
//
// ap     the columns of the stored triangle one after the other, without gaps
#include "blas/level2/entry.h"
#include "blas/level2/symmetric_product.h"

#define MEMBER(p, P, T, op, OP, group)                                                             \
    LEVEL2(p, P, T, op, OP, SPMV,                                                                  \
           vor::symmetric_product<group>(                                                          \
               vor::PackedTriangle<const T>{vor::is_letter(uplo, 'U'), *n, ap}, *alpha, x, *incx,  \
               *beta, y, *incy))
MEMBER(s, S, float, spmv, SPMV, 1)
MEMBER(d, D, double, spmv, SPMV, 2)
MEMBER(c, C, vor::cfloat, hpmv, HPMV, 2)
MEMBER(z, Z, vor::cdouble, hpmv, HPMV, 2)
