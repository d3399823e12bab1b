// spmv, hpmv: y := alpha * A * x + beta * y, A symmetric or Hermitian, packed.
//
// ap     the columns of the stored triangle one after the other, without gaps
#include "blas/level2/entry.h"
#include "blas/level2/symmetric_product.h"

namespace vor::blas {

#define SPMV(name, NAME, engine, check, T, group)                                                  \
    LEVEL2(name, NAME, engine, check, PARAMS_SPMV(T), ARGS_SPMV,                                   \
           symmetric_product<group>(PackedTriangle<const T>{is_letter(uplo, 'U'), *n, ap}, *alpha, \
                                    x, *incx, *beta, y, *incy))
SPMV(sspmv, SSPMV, vor_blas_sspmv, vor_blas_errchk_sspmv, float, 1)
SPMV(dspmv, DSPMV, vor_blas_dspmv, vor_blas_errchk_dspmv, double, 2)
SPMV(chpmv, CHPMV, vor_blas_chpmv, vor_blas_errchk_chpmv, cfloat, 2)
SPMV(zhpmv, ZHPMV, vor_blas_zhpmv, vor_blas_errchk_zhpmv, cdouble, 2)

} // namespace vor::blas
