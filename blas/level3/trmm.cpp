// trmm: B := alpha * op(A) * B or B := alpha * B * op(A) for a triangular A. Frame and check in
// front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define TRMM(p, P, T)                                                                              \
    VOR_CHECKED_ENTRY(p##trmm, P##TRMM, vor_blas_##p##trmm, vor_blas_errchk_##p##trmm,             \
                      PARAMS_TRMM(T), ARGS_TRMM)
TRMM(s, S, float)
TRMM(d, D, double)
TRMM(c, C, vor::cfloat)
TRMM(z, Z, vor::cdouble)
