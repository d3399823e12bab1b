// Argument lists of the dense and sparse-vector routines: each stands once, and the check, the
// engine, the entry and its aliases all use it.
//
// PARAMS_X(T) declares the arguments for element type T, ARGS_X names them.
#pragma once

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

#define PARAMS_GEMM(T)                                                                             \
    (const char* transa, const char* transb, const int* m, const int* n, const int* k,             \
     const T* alpha, const T* a, const int* lda, const T* b, const int* ldb, const T* beta, T* c,  \
     const int* ldc, int transa_length, int transb_length)
#define ARGS_GEMM                                                                                  \
    (transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc, transa_length, transb_length)
// The serial engines and the threaded drivers' strips: no hidden lengths.
#define PARAMS_XGEMM(T)                                                                            \
    (const char* transa, const char* transb, const int* m, const int* n, const int* k,             \
     const T* alpha, const T* a, const int* lda, const T* b, const int* ldb, const T* beta, T* c,  \
     const int* ldc)
#define ARGS_XGEMM (transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c, ldc)
