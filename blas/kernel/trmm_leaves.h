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

#include "arith/element.h"
#include "blas/signatures.h"

#define PARAMS_TRMM_LEAF(T)                                                                        \
    (const int* m, const int* n, const T* alpha, const T* a, const int* lda, T* b, const int* ldb, \
     const int* diagflag, const int* uploflag)
#define PARAMS_TRMM_INN                                                                            \
    (const int* m, const int* n, const float* alpha, const float* a, const int* lda, float* b,     \
     const int* ldb, const int* diagflag, const int* uploflag, const int* transflag)

extern "C" {
void vor_blas_dtrmln PARAMS_TRMM_LEAF(double);
void vor_blas_dtrmlt PARAMS_TRMM_LEAF(double);
void vor_blas_dtrmrn PARAMS_TRMM_LEAF(double);
void vor_blas_dtrmrt PARAMS_TRMM_LEAF(double);
void vor_blas_ctrmln PARAMS_TRMM_LEAF(vor::cfloat);
void vor_blas_ctrmlt PARAMS_TRMM_LEAF(vor::cfloat);
void vor_blas_ctrmlc PARAMS_TRMM_LEAF(vor::cfloat);
void vor_blas_ctrmrn PARAMS_TRMM_LEAF(vor::cfloat);
void vor_blas_ctrmrt PARAMS_TRMM_LEAF(vor::cfloat);
void vor_blas_ctrmrc PARAMS_TRMM_LEAF(vor::cfloat);
void vor_blas_ztrmln PARAMS_TRMM_LEAF(vor::cdouble);
void vor_blas_ztrmlt PARAMS_TRMM_LEAF(vor::cdouble);
void vor_blas_ztrmlc PARAMS_TRMM_LEAF(vor::cdouble);
void vor_blas_ztrmrn PARAMS_TRMM_LEAF(vor::cdouble);
void vor_blas_ztrmrt PARAMS_TRMM_LEAF(vor::cdouble);
void vor_blas_ztrmrc PARAMS_TRMM_LEAF(vor::cdouble);
void vor_blas_strmln PARAMS_TRMM_LEAF(float);
void vor_blas_strmlt PARAMS_TRMM_LEAF(float);
void vor_blas_strmm_inn PARAMS_TRMM_INN;
}

namespace vor::blas {

template <class T>
using TrmmLeaf = void PARAMS_TRMM_LEAF(T);

// The leaf of a case: of[right side][Op].
template <class T>
struct TrmmLeaves;

template <>
struct TrmmLeaves<float> {
    template <int transposed>
    static void right PARAMS_TRMM_LEAF(float) {
        constexpr int flag = transposed;
        vor_blas_strmm_inn(m, n, alpha, a, lda, b, ldb, diagflag, uploflag, &flag);
    }
    static constexpr TrmmLeaf<float>* of[][2] = {{vor_blas_strmln, vor_blas_strmlt},
                                                 {right<0>, right<1>}};
};
template <>
struct TrmmLeaves<double> {
    static constexpr TrmmLeaf<double>* of[][2] = {{vor_blas_dtrmln, vor_blas_dtrmlt},
                                                  {vor_blas_dtrmrn, vor_blas_dtrmrt}};
};
template <>
struct TrmmLeaves<cfloat> {
    static constexpr TrmmLeaf<cfloat>* of[][3] = {
        {vor_blas_ctrmln, vor_blas_ctrmlt, vor_blas_ctrmlc},
        {vor_blas_ctrmrn, vor_blas_ctrmrt, vor_blas_ctrmrc}};
};
template <>
struct TrmmLeaves<cdouble> {
    static constexpr TrmmLeaf<cdouble>* of[][3] = {
        {vor_blas_ztrmln, vor_blas_ztrmlt, vor_blas_ztrmlc},
        {vor_blas_ztrmrn, vor_blas_ztrmrt, vor_blas_ztrmrc}};
};

} // namespace vor::blas
