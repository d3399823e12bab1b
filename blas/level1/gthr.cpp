// gthr: x[i] := y[indx[i] - 1], element 0 to n-1. With n < 1 nothing is read or written.
#include "blas/level1/entry.h"
#include "blas/level1/sparse_vectors.h"

namespace vor::blas {

#define GTHR(name, NAME, engine, T)                                                                \
    LEVEL1(void, name, NAME, engine, PARAMS_GTHR(T), ARGS_GTHR,                                    \
           gather(*n, y, x, Positions<1>{indx}))
GTHR(sgthr, SGTHR, vor_blas_sgthr, float)
GTHR(dgthr, DGTHR, vor_blas_dgthr, double)
GTHR(cgthr, CGTHR, vor_blas_cgthr, cfloat)
GTHR(zgthr, ZGTHR, vor_blas_zgthr, cdouble)

} // namespace vor::blas
