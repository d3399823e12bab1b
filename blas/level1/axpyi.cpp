// axpyi: y[indx[i] - 1] += alpha*x[i], element 0 to n-1; repeated indices accumulate in that order.
//
// n < 1 or alpha = 0 (complex: both parts): nothing is read or written. Each step is calculated in
// extended precision and rounded at the store.
#include "blas/level1/entry.h"
#include "blas/level1/sparse_vectors.h"

namespace vor::blas {

#define AXPYI(name, NAME, engine, T)                                                               \
    LEVEL1(void, name, NAME, engine, PARAMS_AXPYI(T), ARGS_AXPYI,                                  \
           add_sparse(*n, *alpha, x, Positions<1>{indx}, y))
AXPYI(saxpyi, SAXPYI, vor_blas_saxpyi, float)
AXPYI(daxpyi, DAXPYI, vor_blas_daxpyi, double)
AXPYI(caxpyi, CAXPYI, vor_blas_caxpyi, cfloat)
AXPYI(zaxpyi, ZAXPYI, vor_blas_zaxpyi, cdouble)

} // namespace vor::blas
