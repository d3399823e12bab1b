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

#include "arith/element.h"
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

namespace vor::blas {

template <class T>
using TrsmLeaf = void PARAMS_XTRMM(T);

// The leaf of a case: of[right side][transposed][upper triangle].
template <class T>
struct TrsmLeaves;

template <>
struct TrsmLeaves<float> {
    static constexpr TrsmLeaf<float>* of[2][2][2] = {
        {{vor_blas_strsm_blk, vor_blas_strsm_blk}, {vor_blas_strsmlt, vor_blas_strsmlt}},
        {{vor_blas_strsm_i, vor_blas_strsm_i}, {vor_blas_strsm_i, vor_blas_strsm_i}}};
};
template <>
struct TrsmLeaves<double> {
    static constexpr TrsmLeaf<double>* of[2][2][2] = {
        {{vor_blas_dtrsmlln, vor_blas_dtrsmlun}, {vor_blas_dtrsmlt, vor_blas_dtrsmlt}},
        {{vor_blas_dtrsmrn, vor_blas_dtrsmrn}, {vor_blas_dtrsmrt, vor_blas_dtrsmrt}}};
};
template <>
struct TrsmLeaves<cfloat> {
    static constexpr TrsmLeaf<cfloat>* of[2][2][2] = {
        {{vor_blas_ctrsm_i, vor_blas_ctrsm_i}, {vor_blas_ctrsm_i, vor_blas_ctrsm_i}},
        {{vor_blas_ctrsm_i, vor_blas_ctrsm_i}, {vor_blas_ctrsm_i, vor_blas_ctrsm_i}}};
};
template <>
struct TrsmLeaves<cdouble> {
    static constexpr TrsmLeaf<cdouble>* of[2][2][2] = {
        {{vor_blas_ztrsmlln, vor_blas_ztrsmlun}, {vor_blas_ztrsmlt, vor_blas_ztrsmlt}},
        {{vor_blas_ztrsmrn, vor_blas_ztrsmrn}, {vor_blas_ztrsmrt, vor_blas_ztrsmrt}}};
};

} // namespace vor::blas
