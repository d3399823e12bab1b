// sctr: y[indx[i] - 1] := x[i], element 0 to n-1, so that of repeated indices the last one stays. With
// n < 1 nothing is read or written.
#include "blas/level1/entry.h"
#include "blas/level1/sparse_vectors.h"

namespace vor::blas {

#define SCTR(name, NAME, engine, T)                                                                \
    LEVEL1(void, name, NAME, engine, PARAMS_SCTR(T), ARGS_SCTR,                                    \
           scatter(*n, x, Positions<1>{indx}, y))
SCTR(ssctr, SSCTR, vor_blas_ssctr, float)
SCTR(dsctr, DSCTR, vor_blas_dsctr, double)
SCTR(csctr, CSCTR, vor_blas_csctr, cfloat)
SCTR(zsctr, ZSCTR, vor_blas_zsctr, cdouble)

} // namespace vor::blas
