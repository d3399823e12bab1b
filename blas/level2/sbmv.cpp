// sbmv, hbmv: y := alpha * A * x + beta * y, A a symmetric or Hermitian band.
//
// a      column j of the upper triangle: A(i, j) at row k + i - j; of the lower one: at row i - j
// k = 0  a diagonal matrix
#include "blas/level2/entry.h"
#include "blas/level2/symmetric_product.h"

namespace vor::blas {

#define SBMV(name, NAME, engine, check, T, group)                                                  \
    LEVEL2(name, NAME, engine, check, PARAMS_SBMV(T), ARGS_SBMV,                                   \
           symmetric_product<group>(BandTriangle<const T>{is_letter(uplo, 'U'), *n, *k, a, *lda},  \
                                    *alpha, x, *incx, *beta, y, *incy))
SBMV(ssbmv, SSBMV, vor_blas_ssbmv, vor_blas_errchk_ssbmv, float, 1)
SBMV(dsbmv, DSBMV, vor_blas_dsbmv, vor_blas_errchk_dsbmv, double, 2)
SBMV(chbmv, CHBMV, vor_blas_chbmv, vor_blas_errchk_chbmv, cfloat, 1)
SBMV(zhbmv, ZHBMV, vor_blas_zhbmv, vor_blas_errchk_zhbmv, cdouble, 1)

} // namespace vor::blas
