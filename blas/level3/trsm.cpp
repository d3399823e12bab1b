// trsm: op(A) * X = alpha * B or X * op(A) = alpha * B for a triangular A, X over B. Frame and check in
// front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define TRSM(p, P, T)                                                                              \
    VOR_CHECKED_ENTRY(p##trsm, P##TRSM, vor_blas_##p##trsm, vor_blas_errchk_##p##trsm,             \
                      PARAMS_TRMM(T), ARGS_TRMM)
TRSM(s, S, float)
TRSM(d, D, double)
TRSM(c, C, vor::cfloat)
TRSM(z, Z, vor::cdouble)
