// sctr: y[indx[i] - 1] := x[i], element 0 to n-1, so that of repeated indices the last one stays. With
// n < 1 nothing is read or written.
#include "blas/level1/engines.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

template <class T>
void sctr(int n, const T* x, const int* indx, T* y) {
    for (int i = 0; i < n; ++i) y[indx[i] - 1] = x[i];
}

} // namespace

#define SCTR(p, P, T)                                                                              \
    VOR_ENGINE void vor_blas_##p##sctr PARAMS_SCTR(T) {                                            \
        sctr(*n, x, indx, y);                                                                      \
    }                                                                                              \
    VOR_ENTRY(void, p##sctr, P##SCTR, vor_blas_##p##sctr, PARAMS_SCTR(T), ARGS_SCTR)
SCTR(s, S, float)
SCTR(d, D, double)
SCTR(c, C, vor::cfloat)
SCTR(z, Z, vor::cdouble)
