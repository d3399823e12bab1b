// nrm2: the Euclidean norm, square root of the sum of abs(x[i])^2; 0 with n < 1.
//
// Nothing is scaled. Extended precision holds the square of every double, so neither dnrm2 nor dznrm2
// overflow before their result does. snrm2 and scnrm2 with unit step sum squares in single precision:
// elements above about 1.8e19 give infinity there, and a finite result with any other step. The square
// root is taken in extended precision. The sign of the step does not matter but for snrm2, where only
// 1 is a unit step.
#include "blas/level1/entry.h"
#include "blas/level1/sums.h"

namespace vor::blas {
namespace {

// Of each four entries, the first and third go to a, the second to b, the fourth to c.
extended sum_entries(int n, const double* x) {
    extended a = 0, b = 0, c = 0;
    for (; n >= 4; n -= 4, x += 4) {
        prefetch(x, 128);
        a += Square::of(x[0]);
        b += Square::of(x[1]);
        a += Square::of(x[2]);
        c += Square::of(x[3]);
    }
    extended sum = (b + a) + c;
    for (; n > 0; --n) sum += Square::of(*x++);
    return sum;
}

template <class T>
real_t<T> nrm2(int n, const T* x, int incx) {
    constexpr bool kBackwardsIsUnit = sizeof(T) != sizeof(float);
    constexpr int kVectors = is_complex<T> ? 6 : 4;
    const bool unit_step = incx == 1 || (kBackwardsIsUnit && incx == -1);
    return static_cast<real_t<T>>(
        __builtin_sqrtl(sum_elements<Square, kVectors>(n, x, incx, unit_step, sum_entries)));
}

} // namespace

#define NRM2(name, NAME, engine, T, R)                                                             \
    LEVEL1(R, name, NAME, engine, PARAMS_VALUE(T), ARGS_VALUE, return nrm2(*n, x, *incx))
NRM2(snrm2, SNRM2, vor_blas_snrm2, float, float)
NRM2(dnrm2, DNRM2, vor_blas_dnrm2, double, double)
NRM2(scnrm2, SCNRM2, vor_blas_scnrm2, cfloat, float)
NRM2(dznrm2, DZNRM2, vor_blas_dznrm2, cdouble, double)

} // namespace vor::blas
