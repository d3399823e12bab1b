// doti, dotui, dotci: sum of x[i]*y[indx[i] - 1], dotci of conj(x[i])*y[indx[i] - 1]; 0 with n < 1.
//
// One sum in the order of the elements: in single precision for s and c, in extended precision, rounded
// at the end, for d and z. The four real sums of a complex product are kept apart.
#include "blas/level1/engines.h"
#include "blas/level1/vector.h"
#include "serv/entry.h"
#include "vor_blas.h"

namespace {

using namespace vor;

template <class R>
R doti(int n, const R* x, const int* indx, const R* y) {
    using W = arithmetic<R>;
    W sum = 0;
    for (int i = 0; i < n; ++i) sum += W(x[i]) * y[indx[i] - 1];
    return static_cast<R>(sum);
}

template <bool Conjugate, class T>
T doti(int n, const T* x, const int* indx, const T* y) {
    ProductSums<arithmetic<real_t<T>>> sums;
    for (int i = 0; i < n; ++i) sums.add(x[i], y[indx[i] - 1]);
    return sums.template value<Conjugate, T>();
}

} // namespace

#define DOTI(p, P, T)                                                                              \
    VOR_ENGINE T vor_blas_##p##doti PARAMS_DOTI(T) {                                               \
        return doti(*n, x, indx, y);                                                               \
    }                                                                                              \
    VOR_ENTRY(T, p##doti, P##DOTI, vor_blas_##p##doti, PARAMS_DOTI(T), ARGS_DOTI)
DOTI(s, S, float)
DOTI(d, D, double)

#define CDOTI(name, NAME, T, conjugate)                                                            \
    VOR_ENGINE void vor_blas_##name PARAMS_CDOTI(T) {                                              \
        *result = doti<conjugate>(*n, x, indx, y);                                                 \
    }                                                                                              \
    VOR_ENTRY(void, name, NAME, vor_blas_##name, PARAMS_CDOTI(T), ARGS_CDOTI)
CDOTI(cdotui, CDOTUI, vor::cfloat, false)
CDOTI(cdotci, CDOTCI, vor::cfloat, true)
CDOTI(zdotui, ZDOTUI, vor::cdouble, false)
CDOTI(zdotci, ZDOTCI, vor::cdouble, true)
