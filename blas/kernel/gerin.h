// y += alpha * x over m elements, the inner step of a rank-1 update.
#pragma once

#include "arith/element.h"

#define PARAMS_GERIN(T)                                                                            \
    (const int* m, const T* alpha, const T* x, const int* incx, T* y, const int* incy)

extern "C" {
void vor_blas_sgerin PARAMS_GERIN(float);
void vor_blas_dgerin PARAMS_GERIN(double);
void vor_blas_cgerin PARAMS_GERIN(vor::cfloat);
void vor_blas_zgerin PARAMS_GERIN(vor::cdouble);
}
