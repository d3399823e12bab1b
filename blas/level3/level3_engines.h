// The serial engines of the structured Level 3 routines, and the matrix product that all of them are
// made of.
#pragma once

#include "blas/level3/gemm_engines.h"

#define VOR_LEVEL3_ENGINES(p, T)                                                                   \
    void vor_blas_x##p##trsm PARAMS_XTRMM(T);                                                      \
    void vor_blas_x##p##trmm PARAMS_XTRMM(T);                                                      \
    void vor_blas_x##p##symm PARAMS_XSYMM(T);                                                      \
    void vor_blas_x##p##syrk PARAMS_XRANK_K(T, T);                                                 \
    void vor_blas_x##p##syr2k PARAMS_XRANK_2K(T, T);
#define VOR_HERMITIAN_ENGINES(p, T)                                                                \
    void vor_blas_x##p##hemm PARAMS_XSYMM(T);                                                      \
    void vor_blas_x##p##herk PARAMS_XRANK_K(T, vor::real_t<T>);                                    \
    void vor_blas_x##p##her2k PARAMS_XRANK_2K(T, vor::real_t<T>);

extern "C" {
VOR_LEVEL3_ENGINES(s, float)
VOR_LEVEL3_ENGINES(d, double)
VOR_LEVEL3_ENGINES(c, vor::cfloat)
VOR_LEVEL3_ENGINES(z, vor::cdouble)
VOR_HERMITIAN_ENGINES(c, vor::cfloat)
VOR_HERMITIAN_ENGINES(z, vor::cdouble)
}
#undef VOR_LEVEL3_ENGINES
#undef VOR_HERMITIAN_ENGINES

namespace vor {

// The element of type T with value x.
template <class T>
constexpr T real_element(real_t<T> x) {
    if constexpr (is_complex<T>)
        return {x, 0};
    else
        return x;
}

// The serial matrix product on arguments by value: C := alpha * op(A) * op(B) + beta * C.
template <class T>
inline void multiply(char transa, char transb, int m, int n, int k, T alpha, const T* a, int lda,
                     const T* b, int ldb, T beta, T* c, int ldc) {
    const auto run = [&](auto engine) {
        engine(&transa, &transb, &m, &n, &k, &alpha, a, &lda, b, &ldb, &beta, c, &ldc);
    };
    if constexpr (std::is_same_v<T, float>) run(vor_blas_xsgemm);
    if constexpr (std::is_same_v<T, double>) run(vor_blas_xdgemm);
    if constexpr (std::is_same_v<T, cfloat>) run(vor_blas_xcgemm);
    if constexpr (std::is_same_v<T, cdouble>) run(vor_blas_xzgemm);
}

} // namespace vor
