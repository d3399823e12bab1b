// gthr: x[i] := y[indx[i] - 1], element 0 to n-1. With n < 1 nothing is read or written.
#include "blas/level1/engines.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

template <class T>
void gthr(int n, const T* y, T* x, const int* indx) {
    for (int i = 0; i < n; ++i) x[i] = y[indx[i] - 1];
}

} // namespace

#define GTHR(p, P, T)                                                                              \
    VOR_ENGINE void vor_blas_##p##gthr PARAMS_GTHR(T) {                                            \
        gthr(*n, y, x, indx);                                                                      \
    }                                                                                              \
    VOR_ENTRY(void, p##gthr, P##GTHR, vor_blas_##p##gthr, PARAMS_GTHR(T), ARGS_GTHR)
GTHR(s, S, float)
GTHR(d, D, double)
GTHR(c, C, vor::cfloat)
GTHR(z, Z, vor::cdouble)
