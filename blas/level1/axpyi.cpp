// axpyi: y[indx[i] - 1] += alpha*x[i], element 0 to n-1; repeated indices accumulate in that order.
//
// n < 1 or alpha = 0 (complex: both parts): nothing is read or written. Each step is calculated in
// extended precision and rounded at the store.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

template <class T>
void axpyi(int n, const T& alpha, const T* x, const int* indx, T* y) {
    if (vor::is_zero(alpha)) return;
    const auto factor = vor::widen(alpha);
    for (int i = 0; i < n; ++i) vor::add_product(factor, x[i], y[indx[i] - 1]);
}

} // namespace

#define AXPYI(p, P, T)                                                                             \
    VOR_ENGINE void vor_blas_##p##axpyi PARAMS_AXPYI(T) {                                          \
        axpyi(*n, *alpha, x, indx, y);                                                             \
    }                                                                                              \
    VOR_ENTRY(void, p##axpyi, P##AXPYI, vor_blas_##p##axpyi, PARAMS_AXPYI(T), ARGS_AXPYI)
AXPYI(s, S, float)
AXPYI(d, D, double)
AXPYI(c, C, vor::cfloat)
AXPYI(z, Z, vor::cdouble)
