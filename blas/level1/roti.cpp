// roti: the plane rotation (x[i], y[k]) := (c*x[i] + s*y[k], c*y[k] - s*x[i]) with k = indx[i] - 1,
// element 0 to n-1.
//
// n < 1, or c = 1 and s = 0: nothing is read or written. Single precision rounds after each operation,
// double precision once at each store.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

template <class R>
void roti(int n, R* x, const int* indx, R* y, R c_, R s_) {
    if (c_ == 1 && s_ == 0) return;
    const vor::arithmetic<R> c = c_, s = s_;
    for (int i = 0; i < n; ++i) vor::rotate(c, s, x[i], y[indx[i] - 1]);
}

} // namespace

#define ROTI(p, P, T)                                                                              \
    VOR_ENGINE void vor_blas_##p##roti PARAMS_ROTI(T) {                                            \
        roti(*n, x, indx, y, *c, *s);                                                              \
    }                                                                                              \
    VOR_ENTRY(void, p##roti, P##ROTI, vor_blas_##p##roti, PARAMS_ROTI(T), ARGS_ROTI)
ROTI(s, S, float)
ROTI(d, D, double)
