// The kernels of skyline storage. Flags are logicals, of which bit 0 counts.
#pragma once

#include "spblas/signatures.h"

extern "C" {
// C += alpha * op(A) * B for a triangle, a symmetric and a skew-symmetric matrix. The ones of a unit diagonal
// are the caller's.
void vor_spblas_dskymmgk(const int* notrans, const int* m, const int* n, const int* lower,
                         const int* nonunit, const double* alpha, LIST_SKY, const double* b,
                         const int* ldb, double* c, const int* ldc);
void vor_spblas_dskymmsk(const int* m, const int* n, const int* nonunit, const double* alpha,
                         LIST_SKY, const double* b, const int* ldb, double* c, const int* ldc);
void vor_spblas_dskymmkk(const int* notrans, const int* m, const int* n, const int* lower,
                         const double* alpha, LIST_SKY, const double* b, const int* ldb, double* c,
                         const int* ldc);
// x := op(A)^-1 * x
void vor_spblas_dskysvk(const int* notrans, const int* lower, const int* nonunit, const int* m,
                        LIST_SKY, double* x);
}
