// syrk, herk: C := alpha * op(A) * op(A)^T + beta * C (herk: ^H) in one triangle. Frame and
// check in front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define SYRK(p, P, T)                                                                              \
    VOR_CHECKED_ENTRY(p##syrk, P##SYRK, vor_blas_##p##syrk, vor_blas_errchk_##p##syrk,             \
                      PARAMS_SYRK(T), ARGS_SYRK)
SYRK(s, S, float)
SYRK(d, D, double)
SYRK(c, C, vor::cfloat)
SYRK(z, Z, vor::cdouble)

#define HERK(p, P, T)                                                                              \
    VOR_CHECKED_ENTRY(p##herk, P##HERK, vor_blas_##p##herk, vor_blas_errchk_##p##herk,             \
                      PARAMS_HERK(T), ARGS_HERK)
HERK(c, C, vor::cfloat)
HERK(z, Z, vor::cdouble)
