// syr2, her2: A := A + alpha * x * y^H + conj(alpha) * y * x^H, one triangle of A. In double
// precision with neighbouring x and y two columns go together, unless one of them is passed over.
#include "blas/level2/entry.h"
#include "blas/level2/update.h"

namespace vor::blas {

#define SYR2(name, NAME, engine, check, T)                                                         \
    LEVEL2(                                                                                        \
        name, NAME, engine, check, PARAMS_SYR2(T), ARGS_SYR2,                                      \
        rank_two(FullTriangle<T>{is_letter(uplo, 'U'), *n, a, *lda}, *alpha, x, *incx, y, *incy))
SYR2(ssyr2, SSYR2, vor_blas_ssyr2, vor_blas_errchk_ssyr2, float)
SYR2(dsyr2, DSYR2, vor_blas_dsyr2, vor_blas_errchk_dsyr2, double)
SYR2(cher2, CHER2, vor_blas_cher2, vor_blas_errchk_cher2, cfloat)
SYR2(zher2, ZHER2, vor_blas_zher2, vor_blas_errchk_zher2, cdouble)

} // namespace vor::blas
