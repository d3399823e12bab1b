// vor_blas_strsm, dtrsm, ctrsm, ztrsm: the solve with a triangle on one thread or several.
#include "blas/kernel/default/level3/drivers.h"
#include "blas/kernel/default/level3/triangular_driver.h"
#include "blas/level3/level3_engines.h"
#include "serv/entry.h"

namespace vor::blas {

#define TRSM_DRIVER(name, engine, T)                                                               \
    VOR_ENGINE void name PARAMS_TRMM(T) {                                                          \
        triangular_driver<T, engine> ARGS_XTRMM;                                                   \
    }
TRSM_DRIVER(vor_blas_strsm, vor_blas_xstrsm, float)
TRSM_DRIVER(vor_blas_dtrsm, vor_blas_xdtrsm, double)
TRSM_DRIVER(vor_blas_ctrsm, vor_blas_xctrsm, cfloat)
TRSM_DRIVER(vor_blas_ztrsm, vor_blas_xztrsm, cdouble)

} // namespace vor::blas
