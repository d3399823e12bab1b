// gthrz: x[i] := y[indx[i] - 1], y[indx[i] - 1] := 0, element 0 to n-1. Of repeated indices the first
// takes the value, the later ones 0. With n < 1 nothing is read or written.
#include "blas/level1/entry.h"
#include "blas/level1/sparse_vectors.h"

namespace vor::blas {

#define GTHRZ(name, NAME, engine, T)                                                               \
    LEVEL1(void, name, NAME, engine, PARAMS_GTHRZ(T), ARGS_GTHRZ,                                  \
           gather_and_zero(*n, y, x, Positions<1>{indx}))
GTHRZ(sgthrz, SGTHRZ, vor_blas_sgthrz, float)
GTHRZ(dgthrz, DGTHRZ, vor_blas_dgthrz, double)
GTHRZ(cgthrz, CGTHRZ, vor_blas_cgthrz, cfloat)
GTHRZ(zgthrz, ZGTHRZ, vor_blas_zgthrz, cdouble)

} // namespace vor::blas
