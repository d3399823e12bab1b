// symm, hemm: C := alpha * A * B + beta * C or C := alpha * B * A + beta * C for a symmetric or Hermitian
// A. Frame and check in front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define SYMM(name, NAME, engine, check, T)                                                         \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_SYMM(T), ARGS_SYMM)
SYMM(ssymm, SSYMM, vor_blas_ssymm, vor_blas_errchk_ssymm, float)
SYMM(dsymm, DSYMM, vor_blas_dsymm, vor_blas_errchk_dsymm, double)
SYMM(csymm, CSYMM, vor_blas_csymm, vor_blas_errchk_csymm, vor::cfloat)
SYMM(zsymm, ZSYMM, vor_blas_zsymm, vor_blas_errchk_zsymm, vor::cdouble)

#define HEMM(name, NAME, engine, check, T)                                                         \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_SYMM(T), ARGS_SYMM)
HEMM(chemm, CHEMM, vor_blas_chemm, vor_blas_errchk_chemm, vor::cfloat)
HEMM(zhemm, ZHEMM, vor_blas_zhemm, vor_blas_errchk_zhemm, vor::cdouble)
