// Copies with steps, by precision.
#pragma once

#include "blas/level1/engines.h"

namespace vor::dfti::onecall {

inline void copy(int n, const float* x, int incx, float* y, int incy) {
    vor_blas_scopy(&n, x, &incx, y, &incy);
}
inline void copy(int n, const double* x, int incx, double* y, int incy) {
    vor_blas_dcopy(&n, x, &incx, y, &incy);
}

} // namespace vor::dfti::onecall
