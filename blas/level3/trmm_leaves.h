// The products with one diagonal block: B := alpha * op(A) * B (left) or B := alpha * B * op(A) (right).
// *diagflag is 1 for a unit diagonal, which is not read, else 0; *uploflag is 1 for the upper triangle
// of A, 0 for the lower one. The other triangle is not read.
//
//   trmln, trmlt, trmlc          left, op(A) = A, transposed, conjugated and transposed
//   trmrn, trmrt, trmrc          right, the same
//   strmm_inn                    right, op(A) = A or transposed: by the last argument, 1 for transposed
//
// d, z and the left leaves of s take at most 32 unknowns, c and the right leaf of s 16.
#pragma once

#include "blas/signatures.h"

#define PARAMS_TRMM_LEAF(T)                                                                        \
    (const int* m, const int* n, const T* alpha, const T* a, const int* lda, T* b, const int* ldb, \
     const int* diagflag, const int* uploflag)
#define PARAMS_TRMM_INN                                                                            \
    (const int* m, const int* n, const float* alpha, const float* a, const int* lda, float* b,     \
     const int* ldb, const int* diagflag, const int* uploflag, const int* transflag)

#define VOR_TRMM_LEAVES(p, T)                                                                      \
    void vor_blas_##p##trmln PARAMS_TRMM_LEAF(T);                                                  \
    void vor_blas_##p##trmlt PARAMS_TRMM_LEAF(T);                                                  \
    void vor_blas_##p##trmrn PARAMS_TRMM_LEAF(T);                                                  \
    void vor_blas_##p##trmrt PARAMS_TRMM_LEAF(T);
#define VOR_TRMM_CONJUGATE_LEAVES(p, T)                                                            \
    void vor_blas_##p##trmlc PARAMS_TRMM_LEAF(T);                                                  \
    void vor_blas_##p##trmrc PARAMS_TRMM_LEAF(T);

extern "C" {
VOR_TRMM_LEAVES(d, double)
VOR_TRMM_LEAVES(c, vor::cfloat)
VOR_TRMM_LEAVES(z, vor::cdouble)
VOR_TRMM_CONJUGATE_LEAVES(c, vor::cfloat)
VOR_TRMM_CONJUGATE_LEAVES(z, vor::cdouble)
void vor_blas_strmln PARAMS_TRMM_LEAF(float);
void vor_blas_strmlt PARAMS_TRMM_LEAF(float);
void vor_blas_strmm_inn PARAMS_TRMM_INN;
}
#undef VOR_TRMM_LEAVES
#undef VOR_TRMM_CONJUGATE_LEAVES
