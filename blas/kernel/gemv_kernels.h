// Kernels of the matrix-vector product, for strips of 64 rows of A and its n columns:
//
//   n   y := y + alpha * A * x            64 elements of y, n of x
//   t   y := y + alpha * A^T * x          64 elements of x, n of y
//   c   the same with A^H
//
// oo for neighbouring elements of both vectors, aa for any steps; _def without prefetch. x and y point
// to the element that comes first, also where the step is negative. trans, rows and beta are not read:
// the kernel's name, 64 and 1 stand for them.
//
// gemvpst does the same for any number of rows below 64, with the operation by `trans`.
//
// Sums run in extended precision for every type. n kernels round y once for each group of columns,
// t and c kernels once for each strip, with alpha on the finished sum.
#pragma once

#include "arith/element.h"

#define PARAMS_GEMV_OO(T)                                                                          \
    ([[maybe_unused]] const char* trans, [[maybe_unused]] const int* rows, const int* n,           \
     const T* alpha, const T* a, const int* lda, const T* x, [[maybe_unused]] const int* incx,     \
     [[maybe_unused]] const T* beta, T* y)
#define PARAMS_GEMV_AA(T)                                                                          \
    ([[maybe_unused]] const char* trans, [[maybe_unused]] const int* rows, const int* n,           \
     const T* alpha, const T* a, const int* lda, const T* x, const int* incx,                      \
     [[maybe_unused]] const T* beta, T* y, const int* incy)

namespace vor::blas {

inline constexpr int kStripRows = 64;

} // namespace vor::blas

extern "C" {
void vor_blas_sgemvnoo PARAMS_GEMV_OO(float);
void vor_blas_sgemvnaa PARAMS_GEMV_AA(float);
void vor_blas_sgemvtoo PARAMS_GEMV_OO(float);
void vor_blas_sgemvtaa PARAMS_GEMV_AA(float);
void vor_blas_sgemvpst PARAMS_GEMV_AA(float);
void vor_blas_dgemvnoo PARAMS_GEMV_OO(double);
void vor_blas_dgemvnaa PARAMS_GEMV_AA(double);
void vor_blas_dgemvnoo_def PARAMS_GEMV_OO(double);
void vor_blas_dgemvtoo PARAMS_GEMV_OO(double);
void vor_blas_dgemvtaa PARAMS_GEMV_AA(double);
void vor_blas_dgemvtoo_def PARAMS_GEMV_OO(double);
void vor_blas_dgemvpst PARAMS_GEMV_AA(double);
void vor_blas_cgemvnoo PARAMS_GEMV_OO(vor::cfloat);
void vor_blas_cgemvnaa PARAMS_GEMV_AA(vor::cfloat);
void vor_blas_cgemvtoo PARAMS_GEMV_OO(vor::cfloat);
void vor_blas_cgemvtaa PARAMS_GEMV_AA(vor::cfloat);
void vor_blas_cgemvcoo PARAMS_GEMV_OO(vor::cfloat);
void vor_blas_cgemvcaa PARAMS_GEMV_AA(vor::cfloat);
void vor_blas_cgemvpst PARAMS_GEMV_AA(vor::cfloat);
void vor_blas_zgemvnoo PARAMS_GEMV_OO(vor::cdouble);
void vor_blas_zgemvnaa PARAMS_GEMV_AA(vor::cdouble);
void vor_blas_zgemvtoo PARAMS_GEMV_OO(vor::cdouble);
void vor_blas_zgemvtaa PARAMS_GEMV_AA(vor::cdouble);
void vor_blas_zgemvcoo PARAMS_GEMV_OO(vor::cdouble);
void vor_blas_zgemvcaa PARAMS_GEMV_AA(vor::cdouble);
void vor_blas_zgemvpst PARAMS_GEMV_AA(vor::cdouble);
}
