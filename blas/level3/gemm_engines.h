// The serial block engines: C := alpha * op(A) * op(B) + beta * C, column-major. Every Level 3 routine
// ends here.
#pragma once

#include "arith/element.h"
#include "blas/signatures.h"

// The same with scratch from the caller: a_panel of 8192 bytes, b_panel of 256 * 64 (d) or 128 * 32 (z)
// elements with leading dimension *ldp = 64 or 32. If one is null the work is done without both.
#define PARAMS_XGEMM_1(T)                                                                          \
    (const char* transa, const char* transb, const int* m, const int* n, const int* k,             \
     const T* alpha, const T* a, const int* lda, const T* b, const int* ldb, const T* beta, T* c,  \
     const int* ldc, T* a_panel, T* b_panel, const int* ldp)

#define ARGS_XGEMM_1                                                                               \
    (transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, a_panel, b_panel, ldp)

extern "C" {
void vor_blas_xsgemm PARAMS_XGEMM(float);
void vor_blas_xdgemm PARAMS_XGEMM(double);
void vor_blas_xcgemm PARAMS_XGEMM(vor::cfloat);
void vor_blas_xzgemm PARAMS_XGEMM(vor::cdouble);
void vor_blas_xdgemm_1 PARAMS_XGEMM_1(double);
void vor_blas_xzgemm_1 PARAMS_XGEMM_1(vor::cdouble);
}

namespace vor::blas {

template <class T>
struct GemmEngine;
template <>
struct GemmEngine<float> {
    static constexpr auto run = vor_blas_xsgemm;
};
template <>
struct GemmEngine<double> {
    static constexpr auto run = vor_blas_xdgemm;
};
template <>
struct GemmEngine<cfloat> {
    static constexpr auto run = vor_blas_xcgemm;
};
template <>
struct GemmEngine<cdouble> {
    static constexpr auto run = vor_blas_xzgemm;
};

// A matrix product on arguments by value.
template <class T>
inline void multiply(char transa, char transb, int m, int n, int k, T alpha, const T* a, int lda,
                     const T* b, int ldb, T beta, T* c, int ldc) {
    GemmEngine<T>::run(&transa, &transb, &m, &n, &k, &alpha, a, &lda, b, &ldb, &beta, c, &ldc);
}

} // namespace vor::blas
