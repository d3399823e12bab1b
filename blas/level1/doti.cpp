// doti, dotui, dotci: sum of x[i]*y[indx[i] - 1], dotci of conj(x[i])*y[indx[i] - 1]; 0 with n < 1.
//
// One sum in the order of the elements: in single precision for s and c, in extended precision, rounded
// at the end, for d and z. The four real sums of a complex product are kept apart.
#include "blas/level1/entry.h"
#include "blas/level1/sparse_vectors.h"

namespace vor::blas {

#define DOTI(name, NAME, engine, T)                                                                \
    LEVEL1(T, name, NAME, engine, PARAMS_DOTI(T), ARGS_DOTI,                                       \
           return dot_sparse<work_t<T>>(*n, x, Positions<1>{indx}, y))
DOTI(sdoti, SDOTI, vor_blas_sdoti, float)
DOTI(ddoti, DDOTI, vor_blas_ddoti, double)

#define CDOTI(name, NAME, engine, T, conjugate)                                                    \
    LEVEL1(void, name, NAME, engine, PARAMS_CDOTI(T), ARGS_CDOTI,                                  \
           *result = complex_dot_sparse<work_real_t<T>, conjugate>(*n, x, Positions<1>{indx}, y))
CDOTI(cdotui, CDOTUI, vor_blas_cdotui, cfloat, false)
CDOTI(cdotci, CDOTCI, vor_blas_cdotci, cfloat, true)
CDOTI(zdotui, ZDOTUI, vor_blas_zdotui, cdouble, false)
CDOTI(zdotci, ZDOTCI, vor_blas_zdotci, cdouble, true)

} // namespace vor::blas
