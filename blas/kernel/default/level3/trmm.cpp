// vor_blas_strmm, dtrmm, ctrmm, ztrmm: the product with a triangle on one thread or several.
#include "blas/kernel/default/level3/drivers.h"
#include "blas/kernel/default/level3/triangular_driver.h"
#include "blas/level3/level3_engines.h"
#include "serv/entry.h"

#define TRMM_DRIVER(p, T)                                                                          \
    VOR_ENGINE void vor_blas_##p##trmm PARAMS_TRMM(T) {                                            \
        vor::triangular_driver<T, vor_blas_x##p##trmm> ARGS_XTRMM;                                 \
    }
TRMM_DRIVER(s, float)
TRMM_DRIVER(d, double)
TRMM_DRIVER(c, vor::cfloat)
TRMM_DRIVER(z, vor::cdouble)
