/* vor_blas.h: BLAS routines of the Orbel Numeric Library, Fortran-style.
 *
 * The calling convention is that of vor_types.h: every argument by reference, matrices column-major.
 * Vectors: n elements, step incx elements. With incx < 0 the walk begins at element (1-n)*incx of
 * the array, so that the last element in memory is the first of the vector. Lengths below 1 are no
 * error: nothing is read or written. Arrays need only the alignment of their element. Source and
 * destination vectors must not overlap unless they are the same vector and the text says so.
 */
#ifndef VOR_BLAS_H
#define VOR_BLAS_H

#include "vor_types.h"

VOR_BEGIN_C

/* ---- Sparse vectors --------------------------------------------------------------------------
 * A sparse vector is an array x of n values and an array indx of their n positions, counted from 1,
 * in a full vector y.
 * (Dodson, Grimes, Lewis: Sparse Extensions to the Fortran BLAS, ACM TOMS 17 (1991) 253-263.) */

/* ?gthr: x[i] := y[indx[i] - 1], i = 0 .. n-1. x and y must not overlap. Repeated indices are fine. */
VOR_SPELLINGS(void, sgthr, SGTHR, (const int* n, const float* y, float* x, const int* indx))
VOR_SPELLINGS(void, dgthr, DGTHR, (const int* n, const double* y, double* x, const int* indx))
VOR_SPELLINGS(void, cgthr, CGTHR,
              (const int* n, const VOR_SCOMPLEX* y, VOR_SCOMPLEX* x, const int* indx))
VOR_SPELLINGS(void, zgthr, ZGTHR,
              (const int* n, const VOR_DCOMPLEX* y, VOR_DCOMPLEX* x, const int* indx))

/* ---- Matrices --------------------------------------------------------------------------------
 * Level 2 (Dongarra, Du Croz, Hammarling, Hanson: An Extended Set of Fortran BLAS, ACM TOMS 14 (1988)
 * 1-17) and Level 3 (Dongarra, Du Croz, Duff, Hammarling: A Set of Level 3 BLAS, ACM TOMS 16 (1990)
 * 1-17).
 *
 * Option letters are read in either case. op(X) is X for trans 'N', its transpose for 'T', its
 * conjugate transpose (real types: the transpose) for 'C'. A wrong argument is reported through
 * xerbla_ under its number, and the call returns with nothing written (the configuration file can
 * switch these checks off: see vor_service.h). Leading dimensions are at least 1 and at least the
 * rows of the stored array; rows beyond the matrix are neither read nor written. An operand whose
 * scalar is 0 is not read: NaNs in it do not reach the result, nor those in a result that is
 * multiplied by a beta of 0. A result must not overlap an operand. */

/* ?gemm: C := alpha * op(A) * op(B) + beta * C; op(A) is m by k, op(B) k by n, C m by n.
 *
 * m < 1 or n < 1: nothing happens. k = 0: C := beta * C. Real and complex doubles are summed in
 * extended precision over stages of k, floats in single precision. May run on several OpenMP threads
 * (see vor_in_serial), which share out the rows or columns of C. When scratch memory is short the
 * product takes a slower way. */
VOR_SPELLINGS(void, sgemm, SGEMM,
              (const char* transa, const char* transb, const int* m, const int* n, const int* k,
               const float* alpha, const float* a, const int* lda, const float* b, const int* ldb,
               const float* beta, float* c, const int* ldc VOR_LENGTH(transa) VOR_LENGTH(transb)))
VOR_SPELLINGS(void, dgemm, DGEMM,
              (const char* transa, const char* transb, const int* m, const int* n, const int* k,
               const double* alpha, const double* a, const int* lda, const double* b,
               const int* ldb, const double* beta, double* c,
               const int* ldc VOR_LENGTH(transa) VOR_LENGTH(transb)))
VOR_SPELLINGS(void, cgemm, CGEMM,
              (const char* transa, const char* transb, const int* m, const int* n, const int* k,
               const VOR_SCOMPLEX* alpha, const VOR_SCOMPLEX* a, const int* lda,
               const VOR_SCOMPLEX* b, const int* ldb, const VOR_SCOMPLEX* beta, VOR_SCOMPLEX* c,
               const int* ldc VOR_LENGTH(transa) VOR_LENGTH(transb)))
VOR_SPELLINGS(void, zgemm, ZGEMM,
              (const char* transa, const char* transb, const int* m, const int* n, const int* k,
               const VOR_DCOMPLEX* alpha, const VOR_DCOMPLEX* a, const int* lda,
               const VOR_DCOMPLEX* b, const int* ldb, const VOR_DCOMPLEX* beta, VOR_DCOMPLEX* c,
               const int* ldc VOR_LENGTH(transa) VOR_LENGTH(transb)))

VOR_END_C

#endif
