// vor_blas_sgemm, dgemm, cgemm, zgemm: the matrix product on one thread or several.
#include "blas/kernel/default/level3/gemm_driver.h"
#include "blas/kernel/default/level3/drivers.h"
#include "blas/level3/gemm_engines.h"
#include "serv/entry.h"

namespace vor::blas {

#define GEMM_DRIVER(name, T)                                                                       \
    VOR_ENGINE void name PARAMS_GEMM(T) {                                                          \
        gemm_driver<T, GemmEngine<T>::run> ARGS_XGEMM;                                             \
    }
GEMM_DRIVER(vor_blas_sgemm, float)
GEMM_DRIVER(vor_blas_dgemm, double)
GEMM_DRIVER(vor_blas_cgemm, cfloat)
GEMM_DRIVER(vor_blas_zgemm, cdouble)

} // namespace vor::blas
