// vor_blas_sgemm, dgemm, cgemm, zgemm: the matrix product on one thread or several.
#include "blas/kernel/default/level3/drivers.h"
#include "blas/kernel/default/level3/gemm_driver.h"
#include "blas/level3/gemm_engines.h"
#include "serv/entry.h"

#define GEMM_DRIVER(p, T)                                                                          \
    VOR_ENGINE void vor_blas_##p##gemm PARAMS_GEMM(T) {                                            \
        vor::gemm_driver<T, vor_blas_x##p##gemm> ARGS_XGEMM;                                       \
    }
GEMM_DRIVER(s, float)
GEMM_DRIVER(d, double)
GEMM_DRIVER(c, vor::cfloat)
GEMM_DRIVER(z, vor::cdouble)
