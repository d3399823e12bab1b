// roti: the plane rotation (x[i], y[k]) := (c*x[i] + s*y[k], c*y[k] - s*x[i]) with k = indx[i] - 1,
// element 0 to n-1.
//
// n < 1, or c = 1 and s = 0: nothing is read or written. Single precision rounds after each operation,
// double precision once at each store.
#include "blas/level1/entry.h"
#include "blas/level1/sparse_vectors.h"

namespace vor::blas {

#define ROTI(name, NAME, engine, T)                                                                \
    LEVEL1(void, name, NAME, engine, PARAMS_ROTI(T), ARGS_ROTI,                                    \
           rotate_sparse<work_t<T>>(*n, x, Positions<1>{indx}, y, *c, *s))
ROTI(sroti, SROTI, vor_blas_sroti, float)
ROTI(droti, DROTI, vor_blas_droti, double)

} // namespace vor::blas
