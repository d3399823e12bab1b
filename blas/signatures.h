// Argument lists of the dense and sparse-vector routines: each stands once, and the check, the
// engine, the entry and its aliases all use it.
//
// PARAMS_X(T) declares the arguments for element type T, ARGS_X names them. Character arguments have
// their hidden lengths behind the list.
#pragma once

#include "arith/element.h"

// The hidden length of a character argument: handed on, read by nobody.
#define VOR_HIDDEN(name) [[maybe_unused]] int name##_length

// Level 1. T is the element, A a scalar, R the real type of T's parts.
#define PARAMS_AXPY(T)                                                                             \
    (const int* n, const T* alpha, const T* x, const int* incx, T* y, const int* incy)
#define ARGS_AXPY (n, alpha, x, incx, y, incy)
#define PARAMS_COPY(T) (const int* n, const T* x, const int* incx, T* y, const int* incy)
#define ARGS_COPY (n, x, incx, y, incy)
#define PARAMS_SWAP(T) (const int* n, T* x, const int* incx, T* y, const int* incy)
#define ARGS_SWAP (n, x, incx, y, incy)
#define PARAMS_SCAL(T, A) (const int* n, const A* alpha, T* x, const int* incx)
#define ARGS_SCAL (n, alpha, x, incx)
#define PARAMS_DOT(T) (const int* n, const T* x, const int* incx, const T* y, const int* incy)
#define ARGS_DOT (n, x, incx, y, incy)
#define PARAMS_SDSDOT                                                                              \
    (const int* n, const float* sb, const float* x, const int* incx, const float* y,               \
     const int* incy)
#define ARGS_SDSDOT (n, sb, x, incx, y, incy)
#define PARAMS_CDOT(T)                                                                             \
    (T * result, const int* n, const T* x, const int* incx, const T* y, const int* incy)
#define ARGS_CDOT (result, n, x, incx, y, incy)
// One vector in, one value out: nrm2, asum, amax, amin.
#define PARAMS_VALUE(T) (const int* n, const T* x, const int* incx)
#define ARGS_VALUE (n, x, incx)
#define PARAMS_DCABS1(T) (const T* z)
#define ARGS_DCABS1 (z)
#define PARAMS_ROT(T, R)                                                                           \
    (const int* n, T* x, const int* incx, T* y, const int* incy, const R* c, const R* s)
#define ARGS_ROT (n, x, incx, y, incy, c, s)
#define PARAMS_ROTG(T) (T * a, T * b, T * c, T * s)
#define ARGS_ROTG (a, b, c, s)
#define PARAMS_CROTG(T, R) (T * a, const T* b, R* c, T* s)
#define PARAMS_ROTM(T) (const int* n, T* x, const int* incx, T* y, const int* incy, const T* param)
#define ARGS_ROTM (n, x, incx, y, incy, param)
#define PARAMS_ROTMG(T) (T * d1, T * d2, T * x1, const T* y1, T* param)
#define ARGS_ROTMG (d1, d2, x1, y1, param)

// Sparse vectors.
#define PARAMS_AXPYI(T) (const int* n, const T* alpha, const T* x, const int* indx, T* y)
#define ARGS_AXPYI (n, alpha, x, indx, y)
#define PARAMS_DOTI(T) (const int* n, const T* x, const int* indx, const T* y)
#define ARGS_DOTI (n, x, indx, y)
#define PARAMS_CDOTI(T) (T * result, const int* n, const T* x, const int* indx, const T* y)
#define ARGS_CDOTI (result, n, x, indx, y)
#define PARAMS_GTHR(T) (const int* n, const T* y, T* x, const int* indx)
#define ARGS_GTHR (n, y, x, indx)
#define PARAMS_GTHRZ(T) (const int* n, T* y, T* x, const int* indx)
#define ARGS_GTHRZ (n, y, x, indx)
#define PARAMS_SCTR(T) (const int* n, const T* x, const int* indx, T* y)
#define ARGS_SCTR (n, x, indx, y)
#define PARAMS_ROTI(T) (const int* n, T* x, const int* indx, T* y, const T* c, const T* s)
#define ARGS_ROTI (n, x, indx, y, c, s)

// Level 3.
#define PARAMS_GEMM(T)                                                                             \
    (const char* transa, const char* transb, const int* m, const int* n, const int* k,             \
     const T* alpha, const T* a, const int* lda, const T* b, const int* ldb, const T* beta, T* c,  \
     const int* ldc, VOR_HIDDEN(transa), VOR_HIDDEN(transb))
#define ARGS_GEMM                                                                                  \
    (transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, transa_length, transb_length)
// The serial engines and the threaded drivers' strips: no hidden lengths.
#define PARAMS_XGEMM(T)                                                                            \
    (const char* transa, const char* transb, const int* m, const int* n, const int* k,             \
     const T* alpha, const T* a, const int* lda, const T* b, const int* ldb, const T* beta, T* c,  \
     const int* ldc)
#define ARGS_XGEMM (transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc)

#define LIST_SYMM(T)                                                                               \
    const char *side, const char *uplo, const int *m, const int *n, const T *alpha, const T *a,    \
        const int *lda, const T *b, const int *ldb, const T *beta, T *c, const int *ldc
#define PARAMS_SYMM(T) (LIST_SYMM(T), VOR_HIDDEN(side), VOR_HIDDEN(uplo))
#define PARAMS_XSYMM(T) (LIST_SYMM(T))
#define ARGS_SYMM (side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc, side_length, uplo_length)
#define ARGS_XSYMM (side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc)
// Rank-k updates: alpha and beta are of type S; rank-2k updates: beta is.
#define LIST_RANK_K(T, S)                                                                          \
    const char *uplo, const char *trans, const int *n, const int *k, const S *alpha, const T *a,   \
        const int *lda, const S *beta, T *c, const int *ldc
#define PARAMS_RANK_K(T, S) (LIST_RANK_K(T, S), VOR_HIDDEN(uplo), VOR_HIDDEN(trans))
#define PARAMS_XRANK_K(T, S) (LIST_RANK_K(T, S))
#define ARGS_SYRK (uplo, trans, n, k, alpha, a, lda, beta, c, ldc, uplo_length, trans_length)
#define PARAMS_SYRK(T) PARAMS_RANK_K(T, T)
#define PARAMS_HERK(T) PARAMS_RANK_K(T, vor::real_t<T>)
#define ARGS_HERK ARGS_SYRK
#define LIST_RANK_2K(T, S)                                                                         \
    const char *uplo, const char *trans, const int *n, const int *k, const T *alpha, const T *a,   \
        const int *lda, const T *b, const int *ldb, const S *beta, T *c, const int *ldc
#define PARAMS_RANK_2K(T, S) (LIST_RANK_2K(T, S), VOR_HIDDEN(uplo), VOR_HIDDEN(trans))
#define PARAMS_XRANK_2K(T, S) (LIST_RANK_2K(T, S))
#define ARGS_SYR2K                                                                                 \
    (uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c, ldc, uplo_length, trans_length)
#define PARAMS_SYR2K(T) PARAMS_RANK_2K(T, T)
#define PARAMS_HER2K(T) PARAMS_RANK_2K(T, vor::real_t<T>)
#define ARGS_HER2K ARGS_SYR2K
#define LIST_TRMM(T)                                                                               \
    const char *side, const char *uplo, const char *transa, const char *diag, const int *m,        \
        const int *n, const T *alpha, const T *a, const int *lda, T *b, const int *ldb
#define PARAMS_TRMM(T)                                                                             \
    (LIST_TRMM(T), VOR_HIDDEN(side), VOR_HIDDEN(uplo), VOR_HIDDEN(transa), VOR_HIDDEN(diag))
#define PARAMS_XTRMM(T) (LIST_TRMM(T))
#define ARGS_TRMM                                                                                  \
    (side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb, side_length, uplo_length,              \
     transa_length, diag_length)
#define ARGS_XTRMM (side, uplo, transa, diag, m, n, alpha, a, lda, b, ldb)

// Level 2. The Hermitian members share the lists of the symmetric ones, solves those of products.
#define PARAMS_GEMV(T)                                                                             \
    (const char* trans, const int* m, const int* n, const T* alpha, const T* a, const int* lda,    \
     const T* x, const int* incx, const T* beta, T* y, const int* incy, VOR_HIDDEN(trans))
#define ARGS_GEMV (trans, m, n, alpha, a, lda, x, incx, beta, y, incy, trans_length)
#define PARAMS_GBMV(T)                                                                             \
    (const char* trans, const int* m, const int* n, const int* kl, const int* ku, const T* alpha,  \
     const T* a, const int* lda, const T* x, const int* incx, const T* beta, T* y,                 \
     const int* incy, VOR_HIDDEN(trans))
#define ARGS_GBMV (trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy, trans_length)
#define PARAMS_GER(T)                                                                              \
    (const int* m, const int* n, const T* alpha, const T* x, const int* incx, const T* y,          \
     const int* incy, T* a, const int* lda)
#define ARGS_GER (m, n, alpha, x, incx, y, incy, a, lda)
#define PARAMS_SYMV(T)                                                                             \
    (const char* uplo, const int* n, const T* alpha, const T* a, const int* lda, const T* x,       \
     const int* incx, const T* beta, T* y, const int* incy, VOR_HIDDEN(uplo))
#define ARGS_SYMV (uplo, n, alpha, a, lda, x, incx, beta, y, incy, uplo_length)
#define PARAMS_SBMV(T)                                                                             \
    (const char* uplo, const int* n, const int* k, const T* alpha, const T* a, const int* lda,     \
     const T* x, const int* incx, const T* beta, T* y, const int* incy, VOR_HIDDEN(uplo))
#define ARGS_SBMV (uplo, n, k, alpha, a, lda, x, incx, beta, y, incy, uplo_length)
#define PARAMS_SPMV(T)                                                                             \
    (const char* uplo, const int* n, const T* alpha, const T* ap, const T* x, const int* incx,     \
     const T* beta, T* y, const int* incy, VOR_HIDDEN(uplo))
#define ARGS_SPMV (uplo, n, alpha, ap, x, incx, beta, y, incy, uplo_length)
#define PARAMS_SYR(T)                                                                              \
    (const char* uplo, const int* n, const vor::real_t<T>* alpha, const T* x, const int* incx,     \
     T* a, const int* lda, VOR_HIDDEN(uplo))
#define ARGS_SYR (uplo, n, alpha, x, incx, a, lda, uplo_length)
#define PARAMS_SYR2(T)                                                                             \
    (const char* uplo, const int* n, const T* alpha, const T* x, const int* incx, const T* y,      \
     const int* incy, T* a, const int* lda, VOR_HIDDEN(uplo))
#define ARGS_SYR2 (uplo, n, alpha, x, incx, y, incy, a, lda, uplo_length)
#define PARAMS_SPR(T)                                                                              \
    (const char* uplo, const int* n, const vor::real_t<T>* alpha, const T* x, const int* incx,     \
     T* ap, VOR_HIDDEN(uplo))
#define ARGS_SPR (uplo, n, alpha, x, incx, ap, uplo_length)
#define PARAMS_SPR2(T)                                                                             \
    (const char* uplo, const int* n, const T* alpha, const T* x, const int* incx, const T* y,      \
     const int* incy, T* ap, VOR_HIDDEN(uplo))
#define ARGS_SPR2 (uplo, n, alpha, x, incx, y, incy, ap, uplo_length)
#define PARAMS_TRMV(T)                                                                             \
    (const char* uplo, const char* trans, const char* diag, const int* n, const T* a,              \
     const int* lda, T* x, const int* incx, VOR_HIDDEN(uplo), VOR_HIDDEN(trans), VOR_HIDDEN(diag))
#define ARGS_TRMV (uplo, trans, diag, n, a, lda, x, incx, uplo_length, trans_length, diag_length)
#define PARAMS_TBMV(T)                                                                             \
    (const char* uplo, const char* trans, const char* diag, const int* n, const int* k,            \
     const T* a, const int* lda, T* x, const int* incx, VOR_HIDDEN(uplo), VOR_HIDDEN(trans),       \
     VOR_HIDDEN(diag))
#define ARGS_TBMV (uplo, trans, diag, n, k, a, lda, x, incx, uplo_length, trans_length, diag_length)
#define PARAMS_TPMV(T)                                                                             \
    (const char* uplo, const char* trans, const char* diag, const int* n, const T* ap, T* x,       \
     const int* incx, VOR_HIDDEN(uplo), VOR_HIDDEN(trans), VOR_HIDDEN(diag))
#define ARGS_TPMV (uplo, trans, diag, n, ap, x, incx, uplo_length, trans_length, diag_length)

// Rotation sequences and the inner-product utility.
#define PARAMS_LASR(T)                                                                             \
    (const int* m, const int* n, const vor::real_t<T>* c, const vor::real_t<T>* s, T* a,           \
     const int* lda)
#define ARGS_LASR (m, n, c, s, a, lda)
#define PARAMS_SEXY(T) (const int* k, const int* m, const T* a, const T* b, T* c)
#define ARGS_SEXY (k, m, a, b, c)
