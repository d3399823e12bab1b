// gemm: C := alpha * op(A) * op(B) + beta * C, op one of X, X^T, X^H. Frame and check in front of the
// threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define GEMM(p, P, T)                                                                              \
    VOR_CHECKED_ENTRY(p##gemm, P##GEMM, vor_blas_##p##gemm, vor_blas_errchk_##p##gemm,             \
                      PARAMS_GEMM(T), ARGS_GEMM)
GEMM(s, S, float)
GEMM(d, D, double)
GEMM(c, C, vor::cfloat)
GEMM(z, Z, vor::cdouble)
