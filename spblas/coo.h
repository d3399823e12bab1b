// The kernels of coordinate storage. Flags are logicals, of which bit 0 counts. A transposed product is made by
// passing rows and columns in each other's place.
#pragma once

#include "spblas/signatures.h"

#define LIST_COO_KERNEL                                                                            \
    const int *n, const int *nnz, const double *alpha, const double *val, const int *row,          \
        const int *col, const double *b, const int *ldb, double *c, const int *ldc
// descriptor[1]: 1 lower, 2 upper; descriptor[2]: 1 unit, 0 not; descriptor[0] is not read.
extern "C" {
// C += alpha * A * B over n columns.
void vor_spblas_dcoommgen(LIST_COO_KERNEL);
void vor_spblas_dcoommtr(const int* lower, const int* nonunit, LIST_COO_KERNEL);
void vor_spblas_dcoommsym(const int* lower, const int* nonunit, LIST_COO_KERNEL);
void vor_spblas_dcoommskew(const int* lower, LIST_COO_KERNEL);
void vor_spblas_dcoommdiag(LIST_COO_KERNEL);
// C := A^-1 * B over n columns of m elements. Nothing is written, and a report goes to xerbla_, when memory is
// short (code 0) or row i of a matrix that is not unit has no diagonal entry (code -i).
void vor_spblas_coo_gauss(const int* m, const int* n, const int* nnz, const double* val,
                          const int* row, const int* col, const int* descriptor, const double* b,
                          const int* ldb, double* c, const int* ldc);
// y := D^-1 * x for the diagonal D of A. A row without a diagonal entry keeps what y holds.
void vor_spblas_coo_diag(const int* m, const int* nnz, const double* val, const int* row,
                         const int* col, const int* descriptor, const double* x, double* y);
// The strict triangle by rows: off_list takes the numbers (from 1) of its entries, those of row 1 first, in
// their order, row_count (cleared by the caller) how many each row has, off_count how many there are.
// diag_pos[i] takes the number of the last diagonal entry of row i; it is not touched for a unit diagonal.
// off_count is -1 if memory is short.
void vor_spblas_selection(const int* descriptor, const int* m, const int* row, const int* col,
                          const int* nnz, int* diag_pos, int* row_count, int* off_count,
                          int* off_list);
}
