/* vor_spblas.h: sparse BLAS: products and triangular solves with sparse real matrices in double precision,
 * in five storage formats.
 *
 * The interface follows the toolkit of Carney, Heroux, Li and Wu (A Revised Proposal for a Sparse BLAS
 * Toolkit, 1994); Duff, Heroux and Pozo, ACM TOMS 28 (2002) 239-267 tell the background. Calling
 * convention: vor_types.h. Everything goes by reference; indices and sizes are 32-bit integers.
 *
 * ---- Letters
 *
 * transa      'N': op(A) = A; 'T', 'C': op(A) = the transpose of A.
 * matdescra   three letters, of which as many are read as the first one needs:
 *     [0] 'G' general            'S', 'H' symmetric       'T' triangular
 *         'A' skew-symmetric     'D' diagonal
 *     [1] 'L' lower, 'U' upper: the triangle that counts. Not read for 'G' and 'D'.
 *     [2] 'N' the diagonal is stored, 'U' it counts as ones. Not read for 'G' and 'A'.
 *   What is stored on the other side of the diagonal is ignored, and so are a stored diagonal that counts as
 *   ones and all but the diagonal of 'D'. The diagonal of 'A' counts as zeros.
 * uplo, diag  the same letters of the routines that take no matdescra.
 *
 * ---- Storage, each with the matrix
 *              1  0  2  0
 *         A =  0  3  0  0       Rows, columns and positions are counted from 1.
 *              4  0  5  6
 *              0  7  0  8
 *
 * CSR, compressed rows: val, indx, pntrb, pntre. indx holds the column of each value. Row i stands at the
 *   positions pntrb[i] - pntrb[1] + 1 to pntre[i] - pntrb[1]. Pointers may begin at 0 or 1 or anywhere;
 *   columns are counted from 1 in any case. Rows may lie apart in val.
 *     val = 1 2 3 4 5 6 7 8   indx = 1 3 2 1 3 4 2 4   pntrb = 1 3 4 7   pntre = 3 4 7 9
 *   The routines with three arrays take ia = 1 3 4 7 9 for both pointers (positions counted from 1), ja for
 *   indx. Solves want the columns of a row in ascending order; products take any order, and add up repeated
 *   entries.
 * CSC, compressed columns: the same arrays by columns. indx holds the row of each value.
 *     val = 1 4 3 7 2 5 6 8   indx = 1 3 2 4 1 3 3 4   pntrb = 1 3 5 7   pntre = 3 5 7 9
 * COO, coordinates: val, rowind, colind, nnz values in any order; values at one place add up in products,
 *   and off the diagonal in solves.
 *     val = 1 2 3 4 5 6 7 8   rowind = 1 1 2 3 3 3 4 4   colind = 1 3 2 1 3 4 2 4   nnz = 8
 * DIA, diagonals: val, lval rows by ndiag columns; column l holds the diagonal of distance idiag[l]:
 *   A(i, i + idiag[l]) stands in row i. Places outside of A (*) are not read. Solves want idiag ascending.
 *     idiag = -2 0 1 2   lval = 4   ndiag = 4   val =  *  1  0  2
 *                                                      *  3  0  0
 *                                                      4  5  6  *
 *                                                      7  8  *  *
 * SKY, skyline (profiles): val, pntr. For a lower matrix profile i is row i from its first entry that is not
 *   zero to the diagonal, for an upper one column i likewise; the diagonal stands last, zeros in between are
 *   stored. Profile i stands at the positions pntr[i] - pntr[1] + 1 to pntr[i+1] - pntr[1]. There are no
 *   general matrices. The lower triangle of A:
 *     val = 1  3  4 0 5  7 0 8   pntr = 1 2 3 6 9
 *
 * ---- Edges
 *
 * m, n or k = 0: nothing happens, C is not even scaled. alpha = 0: A and B are not read. beta = 0: C is not
 * read. The output may not overlap the inputs, except that a solve takes the same array for x and y (or b
 * and c). Wrong scalar arguments are reported through xerbla_, and the outputs stay as they are; the arrays of
 * a matrix are not looked at: indices out of range, or out of order where order is asked for, make the
 * routines read and write where the indices point. A zero on the diagonal of a solve gives infinities and
 * NaNs. Sums of a row run in extended precision; docs/numerics.md has the bounds.
 */
#ifndef VOR_SPBLAS_H
#define VOR_SPBLAS_H

#include "vor_types.h"

VOR_BEGIN_C

#define VOR_CSR const double *val, const int *indx, const int *pntrb, const int *pntre
#define VOR_CSR3 const double *a, const int *ia, const int *ja
#define VOR_COO const double *val, const int *rowind, const int *colind, const int *nnz
#define VOR_DIA const double *val, const int *lval, const int *idiag, const int *ndiag
#define VOR_SKY const double *val, const int *pntr

/* vor_d<format>mm: C := alpha * op(A) * B + beta * C.
 *
 * A is m by k. transa 'N': B is k by n, C m by n; else B is m by n, C k by n. ldb and ldc, counted in
 * elements, are at least the rows of B and C. Symmetric and skew-symmetric matrices are square. Only a
 * skyline triangle has a shape to keep: a lower one m <= k, an upper one k <= m.
 *
 * CSR, CSC and DIA share the work among OpenMP threads (see vor_in_serial). Structured matrices in CSR and
 * CSC are multiplied whole and put right afterwards: what the other side of the diagonal holds takes part, so
 * that an infinity there gives NaN. */
VOR_SPELLINGS(void, vor_dcsrmm, VOR_DCSRMM,
              (const char* transa, const int* m, const int* n, const int* k, const double* alpha,
               const char* matdescra, VOR_CSR, const double* b, const int* ldb, const double* beta,
               double* c, const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dcscmm, VOR_DCSCMM,
              (const char* transa, const int* m, const int* n, const int* k, const double* alpha,
               const char* matdescra, VOR_CSR, const double* b, const int* ldb, const double* beta,
               double* c, const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dcoomm, VOR_DCOOMM,
              (const char* transa, const int* m, const int* n, const int* k, const double* alpha,
               const char* matdescra, VOR_COO, const double* b, const int* ldb, const double* beta,
               double* c, const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_ddiamm, VOR_DDIAMM,
              (const char* transa, const int* m, const int* n, const int* k, const double* alpha,
               const char* matdescra, VOR_DIA, const double* b, const int* ldb, const double* beta,
               double* c, const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dskymm, VOR_DSKYMM,
              (const char* transa, const int* m, const int* n, const int* k, const double* alpha,
               const char* matdescra, VOR_SKY, const double* b, const int* ldb, const double* beta,
               double* c, const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))

/* vor_d<format>mv: y := alpha * op(A) * x + beta * y, the same with one column. In COO, transa 'T' with a
 * symmetric matrix reads the triangle that matdescra does not name. */
VOR_SPELLINGS(void, vor_dcsrmv, VOR_DCSRMV,
              (const char* transa, const int* m, const int* k, const double* alpha,
               const char* matdescra, VOR_CSR, const double* x, const double* beta,
               double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dcscmv, VOR_DCSCMV,
              (const char* transa, const int* m, const int* k, const double* alpha,
               const char* matdescra, VOR_CSR, const double* x, const double* beta,
               double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dcoomv, VOR_DCOOMV,
              (const char* transa, const int* m, const int* k, const double* alpha,
               const char* matdescra, VOR_COO, const double* x, const double* beta,
               double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_ddiamv, VOR_DDIAMV,
              (const char* transa, const int* m, const int* k, const double* alpha,
               const char* matdescra, VOR_DIA, const double* x, const double* beta,
               double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dskymv, VOR_DSKYMV,
              (const char* transa, const int* m, const int* k, const double* alpha,
               const char* matdescra, VOR_SKY, const double* x, const double* beta,
               double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))

/* vor_d<format>sv: y := alpha * op(A)^-1 * x for a triangular ('T') or diagonal ('D') matrix of order m.
 *
 * CSR, CSC, DIA and SKY scale x by alpha first, COO the solution. DIA without a main diagonal that the matrix
 * needs: y := alpha * x. COO with a diagonal entry missing in row i, or without memory for its lists: a report
 * of condition i, or 0, under the name COO_GAUSS, and y stays as it is. */
VOR_SPELLINGS(void, vor_dcsrsv, VOR_DCSRSV,
              (const char* transa, const int* m, const double* alpha, const char* matdescra,
               VOR_CSR, const double* x, double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dcscsv, VOR_DCSCSV,
              (const char* transa, const int* m, const double* alpha, const char* matdescra,
               VOR_CSR, const double* x, double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dcoosv, VOR_DCOOSV,
              (const char* transa, const int* m, const double* alpha, const char* matdescra,
               VOR_COO, const double* x, double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_ddiasv, VOR_DDIASV,
              (const char* transa, const int* m, const double* alpha, const char* matdescra,
               VOR_DIA, const double* x, double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dskysv, VOR_DSKYSV,
              (const char* transa, const int* m, const double* alpha, const char* matdescra,
               VOR_SKY, const double* x, double* y VOR_LENGTH(transa) VOR_LENGTH(matdescra)))

/* vor_d<format>sm: C := alpha * op(A)^-1 * B, the same for n right sides; ldb and ldc are at least m. */
VOR_SPELLINGS(void, vor_dcsrsm, VOR_DCSRSM,
              (const char* transa, const int* m, const int* n, const double* alpha,
               const char* matdescra, VOR_CSR, const double* b, const int* ldb, double* c,
               const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dcscsm, VOR_DCSCSM,
              (const char* transa, const int* m, const int* n, const double* alpha,
               const char* matdescra, VOR_CSR, const double* b, const int* ldb, double* c,
               const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dcoosm, VOR_DCOOSM,
              (const char* transa, const int* m, const int* n, const double* alpha,
               const char* matdescra, VOR_COO, const double* b, const int* ldb, double* c,
               const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_ddiasm, VOR_DDIASM,
              (const char* transa, const int* m, const int* n, const double* alpha,
               const char* matdescra, VOR_DIA, const double* b, const int* ldb, double* c,
               const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))
VOR_SPELLINGS(void, vor_dskysm, VOR_DSKYSM,
              (const char* transa, const int* m, const int* n, const double* alpha,
               const char* matdescra, VOR_SKY, const double* b, const int* ldb, double* c,
               const int* ldc VOR_LENGTH(transa) VOR_LENGTH(matdescra)))

/* vor_d<format>gemv: y := op(A) * x for a general matrix of order m. CSR without transpose, from 2,000 rows
 * on, shares its rows among OpenMP threads. */
VOR_SPELLINGS(void, vor_dcsrgemv, VOR_DCSRGEMV,
              (const char* transa, const int* m, VOR_CSR3, const double* x,
               double* y VOR_LENGTH(transa)))
VOR_SPELLINGS(void, vor_dcoogemv, VOR_DCOOGEMV,
              (const char* transa, const int* m, VOR_COO, const double* x,
               double* y VOR_LENGTH(transa)))
VOR_SPELLINGS(void, vor_ddiagemv, VOR_DDIAGEMV,
              (const char* transa, const int* m, VOR_DIA, const double* x,
               double* y VOR_LENGTH(transa)))

/* vor_d<format>symv: y := A * x for a symmetric matrix of order m, of which one triangle counts. */
VOR_SPELLINGS(void, vor_dcsrsymv, VOR_DCSRSYMV,
              (const char* uplo, const int* m, VOR_CSR3, const double* x,
               double* y VOR_LENGTH(uplo)))
VOR_SPELLINGS(void, vor_dcoosymv, VOR_DCOOSYMV,
              (const char* uplo, const int* m, VOR_COO, const double* x,
               double* y VOR_LENGTH(uplo)))
VOR_SPELLINGS(void, vor_ddiasymv, VOR_DDIASYMV,
              (const char* uplo, const int* m, VOR_DIA, const double* x,
               double* y VOR_LENGTH(uplo)))

/* vor_d<format>trsv: y := op(A)^-1 * x for a triangular matrix of order m. */
VOR_SPELLINGS(void, vor_dcsrtrsv, VOR_DCSRTRSV,
              (const char* uplo, const char* transa, const char* diag, const int* m, VOR_CSR3,
               const double* x, double* y VOR_LENGTH(uplo) VOR_LENGTH(transa) VOR_LENGTH(diag)))
VOR_SPELLINGS(void, vor_dcootrsv, VOR_DCOOTRSV,
              (const char* uplo, const char* transa, const char* diag, const int* m, VOR_COO,
               const double* x, double* y VOR_LENGTH(uplo) VOR_LENGTH(transa) VOR_LENGTH(diag)))
VOR_SPELLINGS(void, vor_ddiatrsv, VOR_DDIATRSV,
              (const char* uplo, const char* transa, const char* diag, const int* m, VOR_DIA,
               const double* x, double* y VOR_LENGTH(uplo) VOR_LENGTH(transa) VOR_LENGTH(diag)))

#undef VOR_CSR
#undef VOR_CSR3
#undef VOR_COO
#undef VOR_DIA
#undef VOR_SKY

VOR_END_C

#endif
