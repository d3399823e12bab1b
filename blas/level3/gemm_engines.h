// The serial block engines: C := alpha * op(A) * op(B) + beta * C, column-major. Every Level 3 routine
// ends here.
#pragma once

#include "blas/signatures.h"
#include "serv/element.h"

extern "C" {
void vor_blas_xsgemm PARAMS_XGEMM(float);
void vor_blas_xdgemm PARAMS_XGEMM(double);
void vor_blas_xcgemm PARAMS_XGEMM(vor::cfloat);
void vor_blas_xzgemm PARAMS_XGEMM(vor::cdouble);
}
