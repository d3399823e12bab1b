// spr2, hpr2: A := A + alpha * x * y^H + conj(alpha) * y * x^H, one triangle of A, packed.
//
// ap  the columns of the stored triangle one after the other, without gaps
#include "blas/level2/entry.h"
#include "blas/level2/update.h"

namespace vor::blas {

#define SPR2(name, NAME, engine, check, T)                                                         \
    LEVEL2(name, NAME, engine, check, PARAMS_SPR2(T), ARGS_SPR2,                                   \
           rank_two(PackedTriangle<T>{is_letter(uplo, 'U'), *n, ap}, *alpha, x, *incx, y, *incy))
SPR2(sspr2, SSPR2, vor_blas_sspr2, vor_blas_errchk_sspr2, float)
SPR2(dspr2, DSPR2, vor_blas_dspr2, vor_blas_errchk_dspr2, double)
SPR2(chpr2, CHPR2, vor_blas_chpr2, vor_blas_errchk_chpr2, cfloat)
SPR2(zhpr2, ZHPR2, vor_blas_zhpr2, vor_blas_errchk_zhpr2, cdouble)

} // namespace vor::blas
