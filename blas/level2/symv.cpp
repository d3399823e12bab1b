// symv, hemv: y := alpha * A * x + beta * y, A symmetric or Hermitian.
//
// Four columns at a time where x and y lie in neighbouring elements.
#include "blas/level2/entry.h"
#include "blas/level2/symmetric_product.h"

namespace vor::blas {

#define SYMV(name, NAME, engine, check, T)                                                         \
    LEVEL2(name, NAME, engine, check, PARAMS_SYMV(T), ARGS_SYMV,                                   \
           symmetric_product<4>(FullTriangle<const T>{is_letter(uplo, 'U'), *n, a, *lda}, *alpha,  \
                                x, *incx, *beta, y, *incy))
SYMV(ssymv, SSYMV, vor_blas_ssymv, vor_blas_errchk_ssymv, float)
SYMV(dsymv, DSYMV, vor_blas_dsymv, vor_blas_errchk_dsymv, double)
SYMV(chemv, CHEMV, vor_blas_chemv, vor_blas_errchk_chemv, cfloat)
SYMV(zhemv, ZHEMV, vor_blas_zhemv, vor_blas_errchk_zhemv, cdouble)

} // namespace vor::blas
