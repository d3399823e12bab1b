// The threaded Level 3 drivers, called by the entries and by one another.
#pragma once

#include "blas/signatures.h"

extern "C" {
void vor_blas_sgemm PARAMS_GEMM(float);
void vor_blas_dgemm PARAMS_GEMM(double);
void vor_blas_cgemm PARAMS_GEMM(vor::cfloat);
void vor_blas_zgemm PARAMS_GEMM(vor::cdouble);
}
