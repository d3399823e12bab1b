// Compressed rows: the matrix as the kernels see it, and the kernels.
//
// The entries of row i, counted from 1, stand at the positions pntrb[i-1] - base to pntre[i-1] - base - 1,
// counted from 0, with base = pntrb[0]. Columns are counted from 1. Compressed columns are the compressed
// rows of the transpose.
#pragma once

#include "spblas/signatures.h"

namespace vor::spblas {

struct CsrRow {
    const double* val;
    const int* column; // counted from 1
    int count;
};

struct CsrMatrix {
    const double* val;
    const int *indx, *pntrb, *pntre;

    // i is counted from 0.
    CsrRow row(int i) const {
        const int first = pntrb[i] - pntrb[0];
        return {val + first, indx + first, pntre[i] - pntrb[i]};
    }
};

} // namespace vor::spblas

// C += alpha * op(A) * B for a matrix of m stored rows and n columns of B and C. Flags are logicals, of which
// bit 0 counts.
#define LIST_CSR_KERNEL                                                                            \
    const int *m, const int *n, const double *alpha, LIST_CSR, const double *b, const int *ldb,    \
        double *c, const int *ldc
// The solve of one right side in place.
#define LIST_CSR_SOLVER const int *n, LIST_CSR, double *x
extern "C" {
void vor_spblas_dcsrmmgen(const int* notrans, LIST_CSR_KERNEL);
void vor_spblas_dcsrmmtr(const int* notrans, const int* lower, const int* nonunit, LIST_CSR_KERNEL);
void vor_spblas_dcsrmmsym(const int* lower, const int* nonunit, LIST_CSR_KERNEL);
void vor_spblas_dcsrmmskew(const int* lower, LIST_CSR_KERNEL);
void vor_spblas_dcsrmmdiag(const int* nonunit, LIST_CSR_KERNEL);
void vor_spblas_csr_gauss(const int* lower, const int* nonunit, LIST_CSR_SOLVER);
void vor_spblas_csc_gauss(const int* lower, const int* nonunit, LIST_CSR_SOLVER);
// Row i of all `count` columns of C is divided by the diagonal entry of row i, the first entry of the row in or
// behind column i.
void vor_spblas_invdiag(const int* n, const int* count, LIST_CSR, double* c, const int* ldc);
}
