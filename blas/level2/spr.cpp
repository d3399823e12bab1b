// spr, hpr: A := A + alpha * x * x^H, one triangle of A, packed.
//
// ap  the columns of the stored triangle one after the other, without gaps
#include "blas/level2/entry.h"
#include "blas/level2/update.h"

namespace vor::blas {

#define SPR(name, NAME, engine, check, T)                                                          \
    LEVEL2(name, NAME, engine, check, PARAMS_SPR(T), ARGS_SPR,                                     \
           rank_one(PackedTriangle<T>{is_letter(uplo, 'U'), *n, ap}, *alpha, x, *incx))
SPR(sspr, SSPR, vor_blas_sspr, vor_blas_errchk_sspr, float)
SPR(dspr, DSPR, vor_blas_dspr, vor_blas_errchk_dspr, double)
SPR(chpr, CHPR, vor_blas_chpr, vor_blas_errchk_chpr, cfloat)
SPR(zhpr, ZHPR, vor_blas_zhpr, vor_blas_errchk_zhpr, cdouble)

} // namespace vor::blas
