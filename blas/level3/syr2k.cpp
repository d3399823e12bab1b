// syr2k, her2k: C := alpha * op(A) * op(B)^T + alpha' * op(B) * op(A)^T + beta * C in one triangle,
// alpha' = alpha (her2k: ^H, alpha' = conj(alpha)). Frame and check in front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define SYR2K(p, P, T)                                                                             \
    VOR_CHECKED_ENTRY(p##syr2k, P##SYR2K, vor_blas_##p##syr2k, vor_blas_errchk_##p##syr2k,         \
                      PARAMS_SYR2K(T), ARGS_SYR2K)
SYR2K(s, S, float)
SYR2K(d, D, double)
SYR2K(c, C, vor::cfloat)
SYR2K(z, Z, vor::cdouble)

#define HER2K(p, P, T)                                                                             \
    VOR_CHECKED_ENTRY(p##her2k, P##HER2K, vor_blas_##p##her2k, vor_blas_errchk_##p##her2k,         \
                      PARAMS_HER2K(T), ARGS_HER2K)
HER2K(c, C, vor::cfloat)
HER2K(z, Z, vor::cdouble)
