// The solves with one diagonal block of at most 32 unknowns: op(A) * X = B on the left, X * op(A) = B
// on the right, X over B. alpha is not read: it counts as 1. A unit diagonal is not read, nor is the
// other triangle. A 0 on the diagonal is not detected: it gives what the division gives.
//
//   dtrsmlln, dtrsmlun   left, op(A) = A lower, upper       (z the same)
//   dtrsmlt              left, op(A) transposed or conjugated, either triangle
//   dtrsmrn, dtrsmrt     right, op(A) = A; transposed or conjugated; either triangle
//   strsm_blk, strsmlt   left, op(A) = A; transposed
//   strsm_i              right, every case
//   ctrsm_i              every case
#pragma once

#include "blas/signatures.h"

extern "C" {
void vor_blas_dtrsmlln PARAMS_XTRMM(double);
void vor_blas_dtrsmlun PARAMS_XTRMM(double);
void vor_blas_dtrsmlt PARAMS_XTRMM(double);
void vor_blas_dtrsmrn PARAMS_XTRMM(double);
void vor_blas_dtrsmrt PARAMS_XTRMM(double);
void vor_blas_strsm_blk PARAMS_XTRMM(float);
void vor_blas_strsmlt PARAMS_XTRMM(float);
void vor_blas_strsm_i PARAMS_XTRMM(float);
void vor_blas_ctrsm_i PARAMS_XTRMM(vor::cfloat);
void vor_blas_ztrsmlln PARAMS_XTRMM(vor::cdouble);
void vor_blas_ztrsmlun PARAMS_XTRMM(vor::cdouble);
void vor_blas_ztrsmlt PARAMS_XTRMM(vor::cdouble);
void vor_blas_ztrsmrn PARAMS_XTRMM(vor::cdouble);
void vor_blas_ztrsmrt PARAMS_XTRMM(vor::cdouble);
}
