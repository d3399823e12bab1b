// Argument lists of the dense and sparse-vector routines: each stands once, and the check, the
// engine, the entry and its aliases all use it.
//
// PARAMS_X(T) declares the arguments for element type T, ARGS_X names them.
#pragma once

#define PARAMS_GTHR(T) (const int* n, const T* y, T* x, const int* indx)
#define ARGS_GTHR (n, y, x, indx)

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
