// vor_blas_strsm, dtrsm, ctrsm, ztrsm: the solve with a triangle on one thread or several.
#include "blas/kernel/default/level3/drivers.h"
#include "blas/kernel/default/level3/triangular_driver.h"
#include "blas/level3/level3_engines.h"
#include "serv/entry.h"

#define TRSM_DRIVER(p, T)                                                                          \
    VOR_ENGINE void vor_blas_##p##trsm PARAMS_TRMM(T) {                                            \
        vor::triangular_driver<T, vor_blas_x##p##trsm> ARGS_XTRMM;                                 \
    }
TRSM_DRIVER(s, float)
TRSM_DRIVER(d, double)
TRSM_DRIVER(c, vor::cfloat)
TRSM_DRIVER(z, vor::cdouble)
