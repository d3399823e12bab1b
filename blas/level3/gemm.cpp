// gemm: C := alpha * op(A) * op(B) + beta * C, op one of X, X^T, X^H. Frame and check in front of the
// threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define GEMM(name, NAME, engine, check, T)                                                         \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_GEMM(T), ARGS_GEMM)
GEMM(sgemm, SGEMM, vor_blas_sgemm, vor_blas_errchk_sgemm, float)
GEMM(dgemm, DGEMM, vor_blas_dgemm, vor_blas_errchk_dgemm, double)
GEMM(cgemm, CGEMM, vor_blas_cgemm, vor_blas_errchk_cgemm, vor::cfloat)
GEMM(zgemm, ZGEMM, vor_blas_zgemm, vor_blas_errchk_zgemm, vor::cdouble)
