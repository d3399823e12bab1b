// syr2k, her2k: C := alpha * op(A) * op(B)^T + alpha' * op(B) * op(A)^T + beta * C in one triangle,
// alpha' = alpha (her2k: ^H, alpha' = conj(alpha)). Frame and check in front of the threaded driver.
#include "blas/check/routines.h"
#include "blas/kernel/default/level3/drivers.h"
#include "serv/entry.h"
#include "vor_blas.h"

#define SYR2K(name, NAME, engine, check, T)                                                        \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_SYR2K(T), ARGS_SYR2K)
SYR2K(ssyr2k, SSYR2K, vor_blas_ssyr2k, vor_blas_errchk_ssyr2k, float)
SYR2K(dsyr2k, DSYR2K, vor_blas_dsyr2k, vor_blas_errchk_dsyr2k, double)
SYR2K(csyr2k, CSYR2K, vor_blas_csyr2k, vor_blas_errchk_csyr2k, vor::cfloat)
SYR2K(zsyr2k, ZSYR2K, vor_blas_zsyr2k, vor_blas_errchk_zsyr2k, vor::cdouble)

#define HER2K(name, NAME, engine, check, T)                                                        \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS_HER2K(T), ARGS_HER2K)
HER2K(cher2k, CHER2K, vor_blas_cher2k, vor_blas_errchk_cher2k, vor::cfloat)
HER2K(zher2k, ZHER2K, vor_blas_zher2k, vor_blas_errchk_zher2k, vor::cdouble)
