// Argument lists of the sparse routines: each stands once, and the check, the engine, the entry and its
// aliases all use it. A matrix is one of the lists below, by its storage format.
#pragma once

#include "serv/entry.h"

// ---- Matrices
#define LIST_CSR const double *val, const int *indx, const int *pntrb, const int *pntre
#define NAMES_CSR val, indx, pntrb, pntre
#define LIST_CSR3 const double *a, const int *ia, const int *ja
#define NAMES_CSR3 a, ia, ja
#define LIST_COO const double *val, const int *rowind, const int *colind, const int *nnz
#define NAMES_COO val, rowind, colind, nnz
#define LIST_DIA const double *val, const int *lval, const int *idiag, const int *ndiag
#define NAMES_DIA val, lval, idiag, ndiag
#define LIST_SKY const double *val, const int *pntr
#define NAMES_SKY val, pntr

// ---- Routines; the matrix is the list of names or declarations in the middle
#define PARAMS_SPARSE_MM(...)                                                                      \
    (const char* transa, const int* m, const int* n, const int* k, const double* alpha,            \
     const char* matdescra, __VA_ARGS__, const double* b, const int* ldb, const double* beta,      \
     double* c, const int* ldc, VOR_HIDDEN(transa), VOR_HIDDEN(matdescra))
#define ARGS_SPARSE_MM(...)                                                                        \
    (transa, m, n, k, alpha, matdescra, __VA_ARGS__, b, ldb, beta, c, ldc, transa_length,          \
     matdescra_length)
#define PARAMS_SPARSE_MV(...)                                                                      \
    (const char* transa, const int* m, const int* k, const double* alpha, const char* matdescra,   \
     __VA_ARGS__, const double* x, const double* beta, double* y, VOR_HIDDEN(transa),              \
     VOR_HIDDEN(matdescra))
#define ARGS_SPARSE_MV(...)                                                                        \
    (transa, m, k, alpha, matdescra, __VA_ARGS__, x, beta, y, transa_length, matdescra_length)
#define PARAMS_SPARSE_SV(...)                                                                      \
    (const char* transa, const int* m, const double* alpha, const char* matdescra, __VA_ARGS__,    \
     const double* x, double* y, VOR_HIDDEN(transa), VOR_HIDDEN(matdescra))
#define ARGS_SPARSE_SV(...)                                                                        \
    (transa, m, alpha, matdescra, __VA_ARGS__, x, y, transa_length, matdescra_length)
#define PARAMS_SPARSE_SM(...)                                                                      \
    (const char* transa, const int* m, const int* n, const double* alpha, const char* matdescra,   \
     __VA_ARGS__, const double* b, const int* ldb, double* c, const int* ldc, VOR_HIDDEN(transa),  \
     VOR_HIDDEN(matdescra))
#define ARGS_SPARSE_SM(...)                                                                        \
    (transa, m, n, alpha, matdescra, __VA_ARGS__, b, ldb, c, ldc, transa_length, matdescra_length)
#define PARAMS_SPARSE_GEMV(...)                                                                    \
    (const char* transa, const int* m, __VA_ARGS__, const double* x, double* y, VOR_HIDDEN(transa))
#define ARGS_SPARSE_GEMV(...) (transa, m, __VA_ARGS__, x, y, transa_length)
#define PARAMS_SPARSE_SYMV(...)                                                                    \
    (const char* uplo, const int* m, __VA_ARGS__, const double* x, double* y, VOR_HIDDEN(uplo))
#define ARGS_SPARSE_SYMV(...) (uplo, m, __VA_ARGS__, x, y, uplo_length)
#define PARAMS_SPARSE_TRSV(...)                                                                    \
    (const char* uplo, const char* transa, const char* diag, const int* m, __VA_ARGS__,            \
     const double* x, double* y, VOR_HIDDEN(uplo), VOR_HIDDEN(transa), VOR_HIDDEN(diag))
#define ARGS_SPARSE_TRSV(...)                                                                      \
    (uplo, transa, diag, m, __VA_ARGS__, x, y, uplo_length, transa_length, diag_length)
