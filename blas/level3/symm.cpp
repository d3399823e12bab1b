// symm, hemm: C := alpha * A * B + beta * C or C := alpha * B * A + beta * C for a symmetric or Hermitian
// A. Frame and check in front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define SYMM(p, P, T)                                                                              \
    VOR_CHECKED_ENTRY(p##symm, P##SYMM, vor_blas_##p##symm, vor_blas_errchk_##p##symm,             \
                      PARAMS_SYMM(T), ARGS_SYMM)
SYMM(s, S, float)
SYMM(d, D, double)
SYMM(c, C, vor::cfloat)
SYMM(z, Z, vor::cdouble)

#define HEMM(p, P, T)                                                                              \
    VOR_CHECKED_ENTRY(p##hemm, P##HEMM, vor_blas_##p##hemm, vor_blas_errchk_##p##hemm,             \
                      PARAMS_SYMM(T), ARGS_SYMM)
HEMM(c, C, vor::cfloat)
HEMM(z, Z, vor::cdouble)
