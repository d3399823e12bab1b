// trsm: op(A) * X = alpha * B or X * op(A) = alpha * B for a triangular A, X over B. Frame and check in
// front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define TRSM(name, NAME, engine, check, T)                                                         \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_TRMM(T), ARGS_TRMM)
TRSM(strsm, STRSM, vor_blas_strsm, vor_blas_errchk_strsm, float)
TRSM(dtrsm, DTRSM, vor_blas_dtrsm, vor_blas_errchk_dtrsm, double)
TRSM(ctrsm, CTRSM, vor_blas_ctrsm, vor_blas_errchk_ctrsm, vor::cfloat)
TRSM(ztrsm, ZTRSM, vor_blas_ztrsm, vor_blas_errchk_ztrsm, vor::cdouble)
