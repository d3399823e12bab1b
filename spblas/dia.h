// The kernels of diagonal storage. Flags are logicals, of which bit 0 counts.
#pragma once

#include "spblas/signatures.h"

// A is m by k where k is given, else of order m.
#define LIST_DIA_OPERANDS                                                                          \
    const double *b, const int *ldb, const double *beta, double *c, const int *ldc
extern "C" {
// C := alpha * op(A) * B + beta * C for a general matrix, a triangle (or, `diagonal` set, a diagonal), a
// symmetric and a skew-symmetric matrix. The ones of a unit triangle are the caller's.
void vor_spblas_ddiammgk(const int* notrans, const int* m, const int* n, const int* k,
                         const double* alpha, LIST_DIA, LIST_DIA_OPERANDS);
void vor_spblas_ddiammtd(const int* notrans, const int* diagonal, const int* lower,
                         const int* nonunit, const int* m, const int* n, const int* k,
                         const double* alpha, LIST_DIA, LIST_DIA_OPERANDS);
void vor_spblas_ddiammsk(const int* lower, const int* nonunit, const int* m, const int* n,
                         const double* alpha, LIST_DIA, LIST_DIA_OPERANDS);
void vor_spblas_ddiammkk(const int* notrans, const int* lower, const int* m, const int* n,
                         const double* alpha, LIST_DIA, LIST_DIA_OPERANDS);
// Which of the diagonals, whose distances ascend, a solve reads: first to last beside the main one, low and
// high around them, all counted from 1. status -1: not unit, and there is no main diagonal.
void vor_spblas_gdiagpar(const int* lower, const int* nonunit, const int* idiag, const int* ndiag,
                         int* first, int* last, int* low, int* high, int* status);
// x := op(A)^-1 * x on those diagonals; the main one is `high` for lower, `low` for upper.
void vor_spblas_ddiasvk(const int* m, const int* notrans, const int* lower, const int* nonunit,
                        const double* val, const int* lval, const int* idiag, double* x,
                        const int* first, const int* last, const int* low, const int* high);
}
