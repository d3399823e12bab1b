// syr, her: A := A + alpha * x * x^H, one triangle of A.
#include "blas/level2/entry.h"
#include "blas/level2/update.h"

namespace vor::blas {

#define SYR(name, NAME, engine, check, T)                                                          \
    LEVEL2(name, NAME, engine, check, PARAMS_SYR(T), ARGS_SYR,                                     \
           rank_one(FullTriangle<T>{is_letter(uplo, 'U'), *n, a, *lda}, *alpha, x, *incx))
SYR(ssyr, SSYR, vor_blas_ssyr, vor_blas_errchk_ssyr, float)
SYR(dsyr, DSYR, vor_blas_dsyr, vor_blas_errchk_dsyr, double)
SYR(cher, CHER, vor_blas_cher, vor_blas_errchk_cher, cfloat)
SYR(zher, ZHER, vor_blas_zher, vor_blas_errchk_zher, cdouble)

} // namespace vor::blas
