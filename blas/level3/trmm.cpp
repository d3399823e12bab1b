// trmm: B := alpha * op(A) * B or B := alpha * B * op(A) for a triangular A. Frame and check in
// front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define TRMM(name, NAME, engine, check, T)                                                         \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_TRMM(T), ARGS_TRMM)
TRMM(strmm, STRMM, vor_blas_strmm, vor_blas_errchk_strmm, float)
TRMM(dtrmm, DTRMM, vor_blas_dtrmm, vor_blas_errchk_dtrmm, double)
TRMM(ctrmm, CTRMM, vor_blas_ctrmm, vor_blas_errchk_ctrmm, vor::cfloat)
TRMM(ztrmm, ZTRMM, vor_blas_ztrmm, vor_blas_errchk_ztrmm, vor::cdouble)
