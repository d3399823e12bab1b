// syrk, herk: C := alpha * op(A) * op(A)^T + beta * C (herk: ^H) in one triangle. Frame and
// check in front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define SYRK(name, NAME, engine, check, T)                                                         \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_SYRK(T), ARGS_SYRK)
SYRK(ssyrk, SSYRK, vor_blas_ssyrk, vor_blas_errchk_ssyrk, float)
SYRK(dsyrk, DSYRK, vor_blas_dsyrk, vor_blas_errchk_dsyrk, double)
SYRK(csyrk, CSYRK, vor_blas_csyrk, vor_blas_errchk_csyrk, vor::cfloat)
SYRK(zsyrk, ZSYRK, vor_blas_zsyrk, vor_blas_errchk_zsyrk, vor::cdouble)

#define HERK(name, NAME, engine, check, T)                                                         \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_HERK(T), ARGS_HERK)
HERK(cherk, CHERK, vor_blas_cherk, vor_blas_errchk_cherk, vor::cfloat)
HERK(zherk, ZHERK, vor_blas_zherk, vor_blas_errchk_zherk, vor::cdouble)
