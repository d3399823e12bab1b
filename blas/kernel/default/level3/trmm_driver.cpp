// vor_blas_strmm, dtrmm, ctrmm, ztrmm: the product with a triangle on one thread or several.
#include "blas/kernel/default/level3/drivers.h"
#include "blas/kernel/default/level3/triangular_driver.h"
#include "blas/level3/level3_engines.h"
#include "serv/entry.h"

namespace vor::blas {

#define TRMM_DRIVER(name, engine, T)                                                               \
    VOR_ENGINE void name PARAMS_TRMM(T) {                                                          \
        triangular_driver<T, engine> ARGS_XTRMM;                                                   \
    }
TRMM_DRIVER(vor_blas_strmm, vor_blas_xstrmm, float)
TRMM_DRIVER(vor_blas_dtrmm, vor_blas_xdtrmm, double)
TRMM_DRIVER(vor_blas_ctrmm, vor_blas_xctrmm, cfloat)
TRMM_DRIVER(vor_blas_ztrmm, vor_blas_xztrmm, cdouble)

} // namespace vor::blas
