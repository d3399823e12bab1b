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

/* ---- Level 2: matrix and vector ----------------------------------------------------------------
 * These run on the calling thread and take no memory. Doubles are summed in extended precision, and
 * so are floats in ?gemv; the others round floats at every operation. A size of 0, or alpha = 0 with
 * beta = 1, returns at once. beta = 0 stores without reading y. */

/* ?gemv: y := alpha * op(A) * x + beta * y, A m by n. trans 'N': x has n elements and y m, else the
 * other way round. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* trans, const int* m, const int* n, const T* alpha, const T* a, const int* lda,    \
     const T* x, const int* incx, const T* beta, T* y, const int* incy VOR_LENGTH(trans))
VOR_SPELLINGS(void, sgemv, SGEMV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dgemv, DGEMV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, cgemv, CGEMV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zgemv, ZGEMV, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?gbmv: the same for a band matrix: kl diagonals below the main one, ku above it. Column j of the
 * array holds A(i, j) in row ku + i - j (both from 0), lda >= kl + ku + 1. What lies outside the
 * matrix is not read. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* trans, const int* m, const int* n, const int* kl, const int* ku, const T* alpha,  \
     const T* a, const int* lda, const T* x, const int* incx, const T* beta, T* y,                 \
     const int* incy VOR_LENGTH(trans))
VOR_SPELLINGS(void, sgbmv, SGBMV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dgbmv, DGBMV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, cgbmv, CGBMV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zgbmv, ZGBMV, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?ger, ?geru: A := A + alpha * x * y^T; ?gerc: A := A + alpha * x * y^H; A m by n. A column whose
 * element of y is 0 is passed over, whatever x holds. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const int* m, const int* n, const T* alpha, const T* x, const int* incx, const T* y,          \
     const int* incy, T* a, const int* lda)
VOR_SPELLINGS(void, sger, SGER, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dger, DGER, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, cgeru, CGERU, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zgeru, ZGERU, VOR_ARGUMENTS(VOR_DCOMPLEX))
VOR_SPELLINGS(void, cgerc, CGERC, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zgerc, ZGERC, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?symv: y := alpha * A * x + beta * y, A symmetric of order n, ?hemv: Hermitian. Only the triangle of
 * uplo ('U' upper, 'L' lower) is read, and of a Hermitian diagonal only the real part. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* uplo, const int* n, const T* alpha, const T* a, const int* lda, const T* x,       \
     const int* incx, const T* beta, T* y, const int* incy VOR_LENGTH(uplo))
VOR_SPELLINGS(void, ssymv, SSYMV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dsymv, DSYMV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, chemv, CHEMV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zhemv, ZHEMV, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?sbmv, ?hbmv: the same for a band with k diagonals on either side of the main one. Column j of the
 * array holds A(i, j) in row k + i - j (upper) or i - j (lower), lda >= k + 1. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* uplo, const int* n, const int* k, const T* alpha, const T* a, const int* lda,     \
     const T* x, const int* incx, const T* beta, T* y, const int* incy VOR_LENGTH(uplo))
VOR_SPELLINGS(void, ssbmv, SSBMV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dsbmv, DSBMV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, chbmv, CHBMV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zhbmv, ZHBMV, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?spmv, ?hpmv: the same for a packed triangle: its columns one after the other, n * (n + 1) / 2
 * elements. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* uplo, const int* n, const T* alpha, const T* ap, const T* x, const int* incx,     \
     const T* beta, T* y, const int* incy VOR_LENGTH(uplo))
VOR_SPELLINGS(void, sspmv, SSPMV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dspmv, DSPMV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, chpmv, CHPMV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zhpmv, ZHPMV, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?syr: A := A + alpha * x * x^T, A symmetric; ?her: A := A + alpha * x * x^H, A Hermitian, alpha real.
 * The triangle of uplo is read and written. A column whose element of x is 0 is passed over; a
 * Hermitian diagonal leaves with imaginary parts 0. alpha = 0 returns at once. */
#define VOR_ARGUMENTS(T, S)                                                                        \
    (const char* uplo, const int* n, const S* alpha, const T* x, const int* incx, T* a,            \
     const int* lda VOR_LENGTH(uplo))
VOR_SPELLINGS(void, ssyr, SSYR, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, dsyr, DSYR, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, cher, CHER, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, zher, ZHER, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
#undef VOR_ARGUMENTS

/* ?spr, ?hpr: the same for a packed triangle. */
#define VOR_ARGUMENTS(T, S)                                                                        \
    (const char* uplo, const int* n, const S* alpha, const T* x, const int* incx,                  \
     T* ap VOR_LENGTH(uplo))
VOR_SPELLINGS(void, sspr, SSPR, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, dspr, DSPR, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, chpr, CHPR, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, zhpr, ZHPR, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
#undef VOR_ARGUMENTS

/* ?syr2: A := A + alpha * (x * y^T + y * x^T); ?her2: A := A + alpha * x * y^H + conj(alpha) * y * x^H.
 * A column is passed over if its elements of x and of y are both 0. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* uplo, const int* n, const T* alpha, const T* x, const int* incx, const T* y,      \
     const int* incy, T* a, const int* lda VOR_LENGTH(uplo))
VOR_SPELLINGS(void, ssyr2, SSYR2, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dsyr2, DSYR2, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, cher2, CHER2, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zher2, ZHER2, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?spr2, ?hpr2: the same for a packed triangle. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* uplo, const int* n, const T* alpha, const T* x, const int* incx, const T* y,      \
     const int* incy, T* ap VOR_LENGTH(uplo))
VOR_SPELLINGS(void, sspr2, SSPR2, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dspr2, DSPR2, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, chpr2, CHPR2, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zhpr2, ZHPR2, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?trmv: x := op(A) * x; ?trsv: x := op(A)^-1 * x; A triangular of order n, of which only the triangle
 * of uplo is read, and its diagonal only for diag 'N' ('U': ones). A solve makes no test for
 * singularity: a zero on the diagonal gives infinities and NaNs. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* uplo, const char* trans, const char* diag, const int* n, const T* a,              \
     const int* lda, T* x, const int* incx VOR_LENGTH(uplo) VOR_LENGTH(trans) VOR_LENGTH(diag))
VOR_SPELLINGS(void, strmv, STRMV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dtrmv, DTRMV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, ctrmv, CTRMV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, ztrmv, ZTRMV, VOR_ARGUMENTS(VOR_DCOMPLEX))
VOR_SPELLINGS(void, strsv, STRSV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dtrsv, DTRSV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, ctrsv, CTRSV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, ztrsv, ZTRSV, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?tbmv, ?tbsv: the same for a band with k diagonals beside the main one, stored as for ?sbmv. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* uplo, const char* trans, const char* diag, const int* n, const int* k,            \
     const T* a, const int* lda, T* x,                                                             \
     const int* incx VOR_LENGTH(uplo) VOR_LENGTH(trans) VOR_LENGTH(diag))
VOR_SPELLINGS(void, stbmv, STBMV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dtbmv, DTBMV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, ctbmv, CTBMV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, ztbmv, ZTBMV, VOR_ARGUMENTS(VOR_DCOMPLEX))
VOR_SPELLINGS(void, stbsv, STBSV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dtbsv, DTBSV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, ctbsv, CTBSV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, ztbsv, ZTBSV, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?tpmv, ?tpsv: the same for a packed triangle. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* uplo, const char* trans, const char* diag, const int* n, const T* ap, T* x,       \
     const int* incx VOR_LENGTH(uplo) VOR_LENGTH(trans) VOR_LENGTH(diag))
VOR_SPELLINGS(void, stpmv, STPMV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dtpmv, DTPMV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, ctpmv, CTPMV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, ztpmv, ZTPMV, VOR_ARGUMENTS(VOR_DCOMPLEX))
VOR_SPELLINGS(void, stpsv, STPSV, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dtpsv, DTPSV, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, ctpsv, CTPSV, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, ztpsv, ZTPSV, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ---- Level 3: matrix and matrix ---------------------------------------------------------------- */

/* ?gemm: C := alpha * op(A) * op(B) + beta * C; op(A) is m by k, op(B) k by n, C m by n.
 *
 * m < 1 or n < 1: nothing happens. k = 0: C := beta * C. Real and complex doubles are summed in
 * extended precision over stages of k, floats in single precision. May run on several OpenMP threads
 * (see vor_in_serial), which share out the rows or columns of C. When scratch memory is short the
 * product takes a slower way. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* transa, const char* transb, const int* m, const int* n, const int* k,             \
     const T* alpha, const T* a, const int* lda, const T* b, const int* ldb, const T* beta, T* c,  \
     const int* ldc VOR_LENGTH(transa) VOR_LENGTH(transb))
VOR_SPELLINGS(void, sgemm, SGEMM, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dgemm, DGEMM, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, cgemm, CGEMM, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zgemm, ZGEMM, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

VOR_END_C

#endif
