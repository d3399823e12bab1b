// The serial engines of the structured Level 3 routines.
#pragma once

#include "blas/level3/gemm_engines.h"

extern "C" {
void vor_blas_xstrsm PARAMS_XTRMM(float);
void vor_blas_xdtrsm PARAMS_XTRMM(double);
void vor_blas_xctrsm PARAMS_XTRMM(vor::cfloat);
void vor_blas_xztrsm PARAMS_XTRMM(vor::cdouble);
void vor_blas_xstrmm PARAMS_XTRMM(float);
void vor_blas_xdtrmm PARAMS_XTRMM(double);
void vor_blas_xctrmm PARAMS_XTRMM(vor::cfloat);
void vor_blas_xztrmm PARAMS_XTRMM(vor::cdouble);
void vor_blas_xssymm PARAMS_XSYMM(float);
void vor_blas_xdsymm PARAMS_XSYMM(double);
void vor_blas_xcsymm PARAMS_XSYMM(vor::cfloat);
void vor_blas_xzsymm PARAMS_XSYMM(vor::cdouble);
void vor_blas_xchemm PARAMS_XSYMM(vor::cfloat);
void vor_blas_xzhemm PARAMS_XSYMM(vor::cdouble);
void vor_blas_xssyrk PARAMS_XRANK_K(float, float);
void vor_blas_xdsyrk PARAMS_XRANK_K(double, double);
void vor_blas_xcsyrk PARAMS_XRANK_K(vor::cfloat, vor::cfloat);
void vor_blas_xzsyrk PARAMS_XRANK_K(vor::cdouble, vor::cdouble);
void vor_blas_xcherk PARAMS_XRANK_K(vor::cfloat, float);
void vor_blas_xzherk PARAMS_XRANK_K(vor::cdouble, double);
void vor_blas_xssyr2k PARAMS_XRANK_2K(float, float);
void vor_blas_xdsyr2k PARAMS_XRANK_2K(double, double);
void vor_blas_xcsyr2k PARAMS_XRANK_2K(vor::cfloat, vor::cfloat);
void vor_blas_xzsyr2k PARAMS_XRANK_2K(vor::cdouble, vor::cdouble);
void vor_blas_xcher2k PARAMS_XRANK_2K(vor::cfloat, float);
void vor_blas_xzher2k PARAMS_XRANK_2K(vor::cdouble, double);
}
