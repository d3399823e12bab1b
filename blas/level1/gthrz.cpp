// gthrz: x[i] := y[indx[i] - 1], y[indx[i] - 1] := 0, element 0 to n-1. Of repeated indices the first
// takes the value, the later ones 0. With n < 1 nothing is read or written.
#include "blas/level1/engines.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

template <class T>
void gthrz(int n, T* y, T* x, const int* indx) {
    for (int i = 0; i < n; ++i) {
        T& source = y[indx[i] - 1];
        x[i] = source;
        source = T{};
    }
}

} // namespace

#define GTHRZ(p, P, T)                                                                             \
    VOR_ENGINE void vor_blas_##p##gthrz PARAMS_GTHRZ(T) {                                          \
        gthrz(*n, y, x, indx);                                                                     \
    }                                                                                              \
    VOR_ENTRY(void, p##gthrz, P##GTHRZ, vor_blas_##p##gthrz, PARAMS_GTHRZ(T), ARGS_GTHRZ)
GTHRZ(s, S, float)
GTHRZ(d, D, double)
GTHRZ(c, C, vor::cfloat)
GTHRZ(z, Z, vor::cdouble)
