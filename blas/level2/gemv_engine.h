// The matrix-vector product as the blocks of triangular products and solves call it.
#pragma once

#include "blas/signatures.h"

extern "C" {
void vor_blas_sgemv PARAMS_GEMV(float);
void vor_blas_dgemv PARAMS_GEMV(double);
void vor_blas_cgemv PARAMS_GEMV(vor::cfloat);
void vor_blas_zgemv PARAMS_GEMV(vor::cdouble);
}

namespace vor::blas {

template <class T>
struct MatrixVectorRoutines;
template <>
struct MatrixVectorRoutines<float> {
    static constexpr auto gemv = vor_blas_sgemv;
};
template <>
struct MatrixVectorRoutines<double> {
    static constexpr auto gemv = vor_blas_dgemv;
};
template <>
struct MatrixVectorRoutines<cfloat> {
    static constexpr auto gemv = vor_blas_cgemv;
};
template <>
struct MatrixVectorRoutines<cdouble> {
    static constexpr auto gemv = vor_blas_zgemv;
};

// y += sign * op(A) * x, A m by n; sign is 1 or -1.
template <class T>
void add_matrix_product(char trans, int m, int n, int sign, const T* a, int lda, const T* x,
                        int incx, T* y, int incy) {
    T alpha{}, beta{};
    reinterpret_cast<real_t<T>&>(alpha) = static_cast<real_t<T>>(sign);
    reinterpret_cast<real_t<T>&>(beta) = 1;
    MatrixVectorRoutines<T>::gemv(&trans, &m, &n, &alpha, a, &lda, x, &incx, &beta, y, &incy, 1);
}

} // namespace vor::blas
