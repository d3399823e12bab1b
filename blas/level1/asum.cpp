// asum: sum of abs(x[i]), complex: of abs(re) + abs(im); 0 with n < 1.
//
// The sign of the step does not matter; a step of 0 adds abs(x[0]) n times. Unit steps run over the
// real entries: double precision in four extended sums, single precision in vectors.
#include "blas/level1/entry.h"
#include "blas/level1/sums.h"

namespace vor::blas {
namespace {

// Partial sum k takes the entries k mod 4.
extended sum_entries(int n, const double* x) {
    extended a0 = 0, a1 = 0, a2 = 0, a3 = 0;
    for (; n >= 4; n -= 4, x += 4) {
        prefetch(x, 128);
        a0 += Magnitude::of(x[0]);
        a1 += Magnitude::of(x[1]);
        a2 += Magnitude::of(x[2]);
        a3 += Magnitude::of(x[3]);
    }
    extended sum = ((a3 + a0) + a1) + a2;
    for (; n > 0; --n) sum += Magnitude::of(*x++);
    return sum;
}

template <class T>
real_t<T> asum(int n, const T* x, int incx) {
    const bool unit_step = incx == 1 || incx == -1;
    return static_cast<real_t<T>>(sum_elements<Magnitude, 4>(n, x, incx, unit_step, sum_entries));
}

} // namespace

#define ASUM(name, NAME, engine, T, R)                                                             \
    LEVEL1(R, name, NAME, engine, PARAMS_VALUE(T), ARGS_VALUE, return asum(*n, x, *incx))
ASUM(sasum, SASUM, vor_blas_sasum, float, float)
ASUM(dasum, DASUM, vor_blas_dasum, double, double)
ASUM(scasum, SCASUM, vor_blas_scasum, cfloat, float)
ASUM(dzasum, DZASUM, vor_blas_dzasum, cdouble, double)

} // namespace vor::blas
