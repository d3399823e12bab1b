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

/* ---- Level 1: vectors ------------------------------------------------------------------------
 * (Lawson, Hanson, Kincaid, Krogh: Basic Linear Algebra Subprograms for Fortran Usage, ACM TOMS 5
 * (1979) 308-323.)
 *
 * Arguments are not checked and nothing is reported. A step of 0 is no error: the same element is
 * used n times. No routine allocates or starts threads; all are reentrant. Results are rounded to
 * their type unless the text says so; docs/numerics.md states the order of each sum, its rounding
 * and the error bounds. Any alignment of the data is allowed; single-precision data that are not
 * at multiples of 4 bytes take the paths of other steps. */

/* ?axpy: y := alpha*x + y. With alpha = 0 of either sign (complex: both parts) y stays as it is,
 * also where x holds a NaN. x and y may be the same vector. */
VOR_SPELLINGS(void, saxpy, SAXPY,
              (const int* n, const float* alpha, const float* x, const int* incx, float* y,
               const int* incy))
VOR_SPELLINGS(void, daxpy, DAXPY,
              (const int* n, const double* alpha, const double* x, const int* incx, double* y,
               const int* incy))
VOR_SPELLINGS(void, caxpy, CAXPY,
              (const int* n, const VOR_SCOMPLEX* alpha, const VOR_SCOMPLEX* x, const int* incx,
               VOR_SCOMPLEX* y, const int* incy))
VOR_SPELLINGS(void, zaxpy, ZAXPY,
              (const int* n, const VOR_DCOMPLEX* alpha, const VOR_DCOMPLEX* x, const int* incx,
               VOR_DCOMPLEX* y, const int* incy))

/* ?copy: y := x. With unit steps the stores bypass the caches and the bits are moved as they are;
 * with other steps a signalling NaN arrives as a quiet one. The copy is complete, and visible to
 * every later load, when the routine returns. */
VOR_SPELLINGS(void, scopy, SCOPY,
              (const int* n, const float* x, const int* incx, float* y, const int* incy))
VOR_SPELLINGS(void, dcopy, DCOPY,
              (const int* n, const double* x, const int* incx, double* y, const int* incy))
VOR_SPELLINGS(void, ccopy, CCOPY,
              (const int* n, const VOR_SCOMPLEX* x, const int* incx, VOR_SCOMPLEX* y,
               const int* incy))
VOR_SPELLINGS(void, zcopy, ZCOPY,
              (const int* n, const VOR_DCOMPLEX* x, const int* incx, VOR_DCOMPLEX* y,
               const int* incy))

/* ?swap: x and y exchange their elements. NaNs as in ?copy. */
VOR_SPELLINGS(void, sswap, SSWAP,
              (const int* n, float* x, const int* incx, float* y, const int* incy))
VOR_SPELLINGS(void, dswap, DSWAP,
              (const int* n, double* x, const int* incx, double* y, const int* incy))
VOR_SPELLINGS(void, cswap, CSWAP,
              (const int* n, VOR_SCOMPLEX* x, const int* incx, VOR_SCOMPLEX* y, const int* incy))
VOR_SPELLINGS(void, zswap, ZSWAP,
              (const int* n, VOR_DCOMPLEX* x, const int* incx, VOR_DCOMPLEX* y, const int* incy))

/* ?scal: x := alpha*x. alpha is not tested: 0 times NaN stays NaN. The sign of incx does not matter;
 * with incx = 0, x[0] is scaled n times. csscal and zdscal scale complex vectors by a real alpha. */
VOR_SPELLINGS(void, sscal, SSCAL, (const int* n, const float* alpha, float* x, const int* incx))
VOR_SPELLINGS(void, dscal, DSCAL, (const int* n, const double* alpha, double* x, const int* incx))
VOR_SPELLINGS(void, cscal, CSCAL,
              (const int* n, const VOR_SCOMPLEX* alpha, VOR_SCOMPLEX* x, const int* incx))
VOR_SPELLINGS(void, zscal, ZSCAL,
              (const int* n, const VOR_DCOMPLEX* alpha, VOR_DCOMPLEX* x, const int* incx))
VOR_SPELLINGS(void, csscal, CSSCAL,
              (const int* n, const float* alpha, VOR_SCOMPLEX* x, const int* incx))
VOR_SPELLINGS(void, zdscal, ZDSCAL,
              (const int* n, const double* alpha, VOR_DCOMPLEX* x, const int* incx))

/* sdot, ddot: the sum of x[i]*y[i]; 0 for n < 1. sdot with n > 8 and incx = incy = 1 or -1 works in
 * single precision; otherwise it sums in extended precision and hands the value back unrounded in
 * st(0): store it to a float for a result of that type. */
VOR_SPELLINGS(float, sdot, SDOT,
              (const int* n, const float* x, const int* incx, const float* y, const int* incy))
VOR_SPELLINGS(double, ddot, DDOT,
              (const int* n, const double* x, const int* incx, const double* y, const int* incy))

/* dsdot: the same of float vectors, products and sum in extended precision, in the order of the
 * elements; 0 for n < 1. sdsdot: on top of sb, rounded to float at the end; sb for n < 1. */
VOR_SPELLINGS(double, dsdot, DSDOT,
              (const int* n, const float* x, const int* incx, const float* y, const int* incy))
VOR_SPELLINGS(float, sdsdot, SDSDOT,
              (const int* n, const float* sb, const float* x, const int* incx, const float* y,
               const int* incy))

/* ?dotu, ?dotc: result := sum of x[i]*y[i]; result := sum of conj(x[i])*y[i]; 0 for n < 1. The result
 * goes through the first argument. (With gfortran: a function of a complex type, and -ff2c.) */
VOR_SPELLINGS(void, cdotu, CDOTU,
              (VOR_SCOMPLEX * result, const int* n, const VOR_SCOMPLEX* x, const int* incx,
               const VOR_SCOMPLEX* y, const int* incy))
VOR_SPELLINGS(void, zdotu, ZDOTU,
              (VOR_DCOMPLEX * result, const int* n, const VOR_DCOMPLEX* x, const int* incx,
               const VOR_DCOMPLEX* y, const int* incy))
VOR_SPELLINGS(void, cdotc, CDOTC,
              (VOR_SCOMPLEX * result, const int* n, const VOR_SCOMPLEX* x, const int* incx,
               const VOR_SCOMPLEX* y, const int* incy))
VOR_SPELLINGS(void, zdotc, ZDOTC,
              (VOR_DCOMPLEX * result, const int* n, const VOR_DCOMPLEX* x, const int* incx,
               const VOR_DCOMPLEX* y, const int* incy))

/* ?nrm2: the Euclidean norm; 0 for n < 1. Nothing is scaled: double precision squares in extended
 * precision, whose range holds every square. Single precision with unit steps (snrm2: incx = 1;
 * scnrm2: 1 or -1) gives infinity if an element is above about 1.8e19 or the sum of squares above
 * 3.4e38; other steps do not. */
VOR_SPELLINGS(float, snrm2, SNRM2, (const int* n, const float* x, const int* incx))
VOR_SPELLINGS(double, dnrm2, DNRM2, (const int* n, const double* x, const int* incx))
VOR_SPELLINGS(float, scnrm2, SCNRM2, (const int* n, const VOR_SCOMPLEX* x, const int* incx))
VOR_SPELLINGS(double, dznrm2, DZNRM2, (const int* n, const VOR_DCOMPLEX* x, const int* incx))

/* ?asum: the sum of abs(x[i]), complex: of abs(re) + abs(im); 0 for n < 1. */
VOR_SPELLINGS(float, sasum, SASUM, (const int* n, const float* x, const int* incx))
VOR_SPELLINGS(double, dasum, DASUM, (const int* n, const double* x, const int* incx))
VOR_SPELLINGS(float, scasum, SCASUM, (const int* n, const VOR_SCOMPLEX* x, const int* incx))
VOR_SPELLINGS(double, dzasum, DZASUM, (const int* n, const VOR_DCOMPLEX* x, const int* incx))

/* i?amax, i?amin: position, counted from 1, of the first element of largest or smallest magnitude;
 * the magnitude of a complex element is abs(re) + abs(im). 0 for n < 1 and for incx < 1. A NaN
 * replaces what four running candidates hold, and is replaced by the next element: with NaNs in x
 * the result is a position in x, or that of the extreme value, but not specified further. */
VOR_SPELLINGS(int, isamax, ISAMAX, (const int* n, const float* x, const int* incx))
VOR_SPELLINGS(int, idamax, IDAMAX, (const int* n, const double* x, const int* incx))
VOR_SPELLINGS(int, icamax, ICAMAX, (const int* n, const VOR_SCOMPLEX* x, const int* incx))
VOR_SPELLINGS(int, izamax, IZAMAX, (const int* n, const VOR_DCOMPLEX* x, const int* incx))
VOR_SPELLINGS(int, isamin, ISAMIN, (const int* n, const float* x, const int* incx))
VOR_SPELLINGS(int, idamin, IDAMIN, (const int* n, const double* x, const int* incx))
VOR_SPELLINGS(int, icamin, ICAMIN, (const int* n, const VOR_SCOMPLEX* x, const int* incx))
VOR_SPELLINGS(int, izamin, IZAMIN, (const int* n, const VOR_DCOMPLEX* x, const int* incx))

/* dcabs1: abs(re) + abs(im). */
VOR_SPELLINGS(double, dcabs1, DCABS1, (const VOR_DCOMPLEX* z))

/* ?rot: (x, y) := (c*x + s*y, c*y - s*x), element by element; csrot and zdrot with real c and s on
 * complex vectors. c and s are not tested. x and y must not overlap. */
VOR_SPELLINGS(void, srot, SROT,
              (const int* n, float* x, const int* incx, float* y, const int* incy, const float* c,
               const float* s))
VOR_SPELLINGS(void, drot, DROT,
              (const int* n, double* x, const int* incx, double* y, const int* incy,
               const double* c, const double* s))
VOR_SPELLINGS(void, csrot, CSROT,
              (const int* n, VOR_SCOMPLEX* x, const int* incx, VOR_SCOMPLEX* y, const int* incy,
               const float* c, const float* s))
VOR_SPELLINGS(void, zdrot, ZDROT,
              (const int* n, VOR_DCOMPLEX* x, const int* incx, VOR_DCOMPLEX* y, const int* incy,
               const double* c, const double* s))

/* srotg, drotg: from (a, b) the rotation c, s that takes it to (r, 0). On return a = r and b = z, from
 * which c and s can be rebuilt: z = s if abs(a) > abs(b), else 1/c, or 1 if c = 0. a = b = 0 gives
 * c = 1, s = 0, a = b = 0. The sign of r is that of the larger of a and b (of b if they are equal).
 * srotg takes its square root from the processor's 12-bit estimate and one Newton step: relative
 * error about 1e-6. It forms 1/r: below 2.94e-39 that is infinite and so are c and s; from 8.5e37 on
 * it is subnormal, and c and s lose digits; an r above 3.4e38 is infinite. drotg: r up to 1.8e308. */
VOR_SPELLINGS(void, srotg, SROTG, (float* a, float* b, float* c, float* s))
VOR_SPELLINGS(void, drotg, DROTG, (double* a, double* b, double* c, double* s))

/* crotg, zrotg: from complex (a, b) the rotation, real c and complex s, that takes it to (r, 0) by
 * r = c*a + s*b; on return a = r, b is unchanged. a = 0 gives c = 0, s = 1, r = b. crotg takes its
 * square roots as srotg does. All moduli are in range: the numbers are scaled by powers of two where a
 * square is not; only an r above the largest number is infinite. */
VOR_SPELLINGS(void, crotg, CROTG,
              (VOR_SCOMPLEX * a, const VOR_SCOMPLEX* b, float* c, VOR_SCOMPLEX* s))
VOR_SPELLINGS(void, zrotg, ZROTG,
              (VOR_DCOMPLEX * a, const VOR_DCOMPLEX* b, double* c, VOR_DCOMPLEX* s))

/* ?rotm: (x, y) := H (x, y), element by element. param holds 5 numbers: the flag, then H11, H21, H12,
 * H22, of which count
 *     flag -1   all                       flag 1    H11, H22; H12 = 1, H21 = -1
 *     flag  0   H21, H12; H11 = H22 = 1   flag -2   none: H is the identity, nothing is done */
VOR_SPELLINGS(void, srotm, SROTM,
              (const int* n, float* x, const int* incx, float* y, const int* incy,
               const float* param))
VOR_SPELLINGS(void, drotm, DROTM,
              (const int* n, double* x, const int* incx, double* y, const int* incy,
               const double* param))

/* ?rotmg: the H that takes (sqrt(d1)*x1, sqrt(d2)*y1) to a vector with second part 0, as param of
 * ?rotm; d1, d2 and x1 are updated. Entries of H that the flag implies are not written. d1 < 0, or a
 * construction that fails: H, d1, d2, x1 become 0, flag -1. d2*y1 = 0: flag -2, nothing else is
 * written. d1 and d2 are kept between 2^-24 and 2^24 by scaling with powers of 4096. */
VOR_SPELLINGS(void, srotmg, SROTMG,
              (float* d1, float* d2, float* x1, const float* y1, float* param))
VOR_SPELLINGS(void, drotmg, DROTMG,
              (double* d1, double* d2, double* x1, const double* y1, double* param))

/* ---- Sparse vectors --------------------------------------------------------------------------
 * A sparse vector is an array x of n values and an array indx of their n positions, counted from 1,
 * in a full vector y. Every routine works through the elements 0 .. n-1 in this order, does nothing
 * for n < 1, and does not check for repeated positions: the later element wins or accumulates.
 * (Dodson, Grimes, Lewis: Sparse Extensions to the Fortran BLAS, ACM TOMS 17 (1991) 253-263.) */

/* ?axpyi: y[indx[i] - 1] += alpha*x[i]. With alpha = 0 (complex: both parts) y stays as it is. */
VOR_SPELLINGS(void, saxpyi, SAXPYI,
              (const int* n, const float* alpha, const float* x, const int* indx, float* y))
VOR_SPELLINGS(void, daxpyi, DAXPYI,
              (const int* n, const double* alpha, const double* x, const int* indx, double* y))
VOR_SPELLINGS(void, caxpyi, CAXPYI,
              (const int* n, const VOR_SCOMPLEX* alpha, const VOR_SCOMPLEX* x, const int* indx,
               VOR_SCOMPLEX* y))
VOR_SPELLINGS(void, zaxpyi, ZAXPYI,
              (const int* n, const VOR_DCOMPLEX* alpha, const VOR_DCOMPLEX* x, const int* indx,
               VOR_DCOMPLEX* y))

/* sdoti, ddoti: the sum of x[i]*y[indx[i] - 1]; 0 for n < 1. sdoti sums in single precision. */
VOR_SPELLINGS(float, sdoti, SDOTI, (const int* n, const float* x, const int* indx, const float* y))
VOR_SPELLINGS(double, ddoti, DDOTI,
              (const int* n, const double* x, const int* indx, const double* y))

/* ?dotui, ?dotci: result := sum of x[i]*y[indx[i] - 1]; the same with conj(x[i]); 0 for n < 1. */
VOR_SPELLINGS(void, cdotui, CDOTUI,
              (VOR_SCOMPLEX * result, const int* n, const VOR_SCOMPLEX* x, const int* indx,
               const VOR_SCOMPLEX* y))
VOR_SPELLINGS(void, zdotui, ZDOTUI,
              (VOR_DCOMPLEX * result, const int* n, const VOR_DCOMPLEX* x, const int* indx,
               const VOR_DCOMPLEX* y))
VOR_SPELLINGS(void, cdotci, CDOTCI,
              (VOR_SCOMPLEX * result, const int* n, const VOR_SCOMPLEX* x, const int* indx,
               const VOR_SCOMPLEX* y))
VOR_SPELLINGS(void, zdotci, ZDOTCI,
              (VOR_DCOMPLEX * result, const int* n, const VOR_DCOMPLEX* x, const int* indx,
               const VOR_DCOMPLEX* y))

/* ?gthr: x[i] := y[indx[i] - 1]. x and y must not overlap. */
VOR_SPELLINGS(void, sgthr, SGTHR, (const int* n, const float* y, float* x, const int* indx))
VOR_SPELLINGS(void, dgthr, DGTHR, (const int* n, const double* y, double* x, const int* indx))
VOR_SPELLINGS(void, cgthr, CGTHR,
              (const int* n, const VOR_SCOMPLEX* y, VOR_SCOMPLEX* x, const int* indx))
VOR_SPELLINGS(void, zgthr, ZGTHR,
              (const int* n, const VOR_DCOMPLEX* y, VOR_DCOMPLEX* x, const int* indx))

/* ?gthrz: x[i] := y[indx[i] - 1], y[indx[i] - 1] := 0. Of repeated positions the first takes the
 * value, the later ones 0. */
VOR_SPELLINGS(void, sgthrz, SGTHRZ, (const int* n, float* y, float* x, const int* indx))
VOR_SPELLINGS(void, dgthrz, DGTHRZ, (const int* n, double* y, double* x, const int* indx))
VOR_SPELLINGS(void, cgthrz, CGTHRZ,
              (const int* n, VOR_SCOMPLEX* y, VOR_SCOMPLEX* x, const int* indx))
VOR_SPELLINGS(void, zgthrz, ZGTHRZ,
              (const int* n, VOR_DCOMPLEX* y, VOR_DCOMPLEX* x, const int* indx))

/* ?sctr: y[indx[i] - 1] := x[i]. */
VOR_SPELLINGS(void, ssctr, SSCTR, (const int* n, const float* x, const int* indx, float* y))
VOR_SPELLINGS(void, dsctr, DSCTR, (const int* n, const double* x, const int* indx, double* y))
VOR_SPELLINGS(void, csctr, CSCTR,
              (const int* n, const VOR_SCOMPLEX* x, const int* indx, VOR_SCOMPLEX* y))
VOR_SPELLINGS(void, zsctr, ZSCTR,
              (const int* n, const VOR_DCOMPLEX* x, const int* indx, VOR_DCOMPLEX* y))

/* ?roti: with k = indx[i] - 1, (x[i], y[k]) := (c*x[i] + s*y[k], c*y[k] - s*x[i]). c = 1 with s = 0
 * does nothing. */
VOR_SPELLINGS(void, sroti, SROTI,
              (const int* n, float* x, const int* indx, float* y, const float* c, const float* s))
VOR_SPELLINGS(void, droti, DROTI,
              (const int* n, double* x, const int* indx, double* y, const double* c,
               const double* s))
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

/* ?trsm: B := alpha * op(A)^-1 * B for side 'L', B := alpha * B * op(A)^-1 for side 'R'.
 *
 * B is m by n; A is triangular (uplo 'U' upper, 'L' lower), m by m on the left, n by n on the right;
 * its other triangle is not read. diag 'U': the diagonal counts as 1 and is not read. A zero on the
 * diagonal is not looked for: it gives infinities and NaNs. alpha = 0: B := 0. Blocked
 * right-looking substitution. Each right side is solved with a small backward error; doubles are summed
 * in extended precision inside a block. Threads share out the right sides. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* side, const char* uplo, const char* transa, const char* diag, const int* m,       \
     const int* n, const T* alpha, const T* a, const int* lda, T* b,                               \
     const int* ldb VOR_LENGTH(side) VOR_LENGTH(uplo) VOR_LENGTH(transa) VOR_LENGTH(diag))
VOR_SPELLINGS(void, strsm, STRSM, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dtrsm, DTRSM, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, ctrsm, CTRSM, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, ztrsm, ZTRSM, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?trmm: B := alpha * op(A) * B for side 'L', B := alpha * B * op(A) for side 'R'. Shapes, letters and
 * unread memory as for ?trsm. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* side, const char* uplo, const char* transa, const char* diag, const int* m,       \
     const int* n, const T* alpha, const T* a, const int* lda, T* b,                               \
     const int* ldb VOR_LENGTH(side) VOR_LENGTH(uplo) VOR_LENGTH(transa) VOR_LENGTH(diag))
VOR_SPELLINGS(void, strmm, STRMM, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dtrmm, DTRMM, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, ctrmm, CTRMM, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, ztrmm, ZTRMM, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?symm, ?hemm: C := alpha * A * B + beta * C for side 'L', C := alpha * B * A + beta * C for side 'R'.
 *
 * B and C are m by n; A is symmetric (?hemm: Hermitian), m by m on the left, n by n on the right. Only
 * the triangle named by uplo is read, and of a Hermitian diagonal only the real parts. Threads share
 * out the columns (left) or the rows (right) of C. When scratch memory is short the work goes
 * on in smaller blocks. */
#define VOR_ARGUMENTS(T)                                                                           \
    (const char* side, const char* uplo, const int* m, const int* n, const T* alpha, const T* a,   \
     const int* lda, const T* b, const int* ldb, const T* beta, T* c,                              \
     const int* ldc VOR_LENGTH(side) VOR_LENGTH(uplo))
VOR_SPELLINGS(void, ssymm, SSYMM, VOR_ARGUMENTS(float))
VOR_SPELLINGS(void, dsymm, DSYMM, VOR_ARGUMENTS(double))
VOR_SPELLINGS(void, csymm, CSYMM, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zsymm, ZSYMM, VOR_ARGUMENTS(VOR_DCOMPLEX))
VOR_SPELLINGS(void, chemm, CHEMM, VOR_ARGUMENTS(VOR_SCOMPLEX))
VOR_SPELLINGS(void, zhemm, ZHEMM, VOR_ARGUMENTS(VOR_DCOMPLEX))
#undef VOR_ARGUMENTS

/* ?syrk: C := alpha * op(A) * op(A)^T + beta * C, op(A) n by k: A for trans 'N', A^T for 'T' (real
 * types also 'C').
 * ?herk: C := alpha * op(A) * op(A)^H + beta * C with real alpha and beta, op(A) = A for trans 'N', A^H
 * for 'C'.
 *
 * Only the triangle of C named by uplo is read and written; the diagonal of a Hermitian C comes out
 * real. alpha = 0 or k = 0: C := beta * C. */
#define VOR_ARGUMENTS(T, S)                                                                        \
    (const char* uplo, const char* trans, const int* n, const int* k, const S* alpha, const T* a,  \
     const int* lda, const S* beta, T* c, const int* ldc VOR_LENGTH(uplo) VOR_LENGTH(trans))
VOR_SPELLINGS(void, ssyrk, SSYRK, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, dsyrk, DSYRK, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, csyrk, CSYRK, VOR_ARGUMENTS(VOR_SCOMPLEX, VOR_SCOMPLEX))
VOR_SPELLINGS(void, zsyrk, ZSYRK, VOR_ARGUMENTS(VOR_DCOMPLEX, VOR_DCOMPLEX))
VOR_SPELLINGS(void, cherk, CHERK, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, zherk, ZHERK, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
#undef VOR_ARGUMENTS

/* ?syr2k: C := alpha * op(A) * op(B)^T + alpha * op(B) * op(A)^T + beta * C.
 * ?her2k: C := alpha * op(A) * op(B)^H + conj(alpha) * op(B) * op(A)^H + beta * C with real beta.
 *
 * Letters, the triangle and the diagonal of C as for ?syrk and ?herk. */
#define VOR_ARGUMENTS(T, S)                                                                        \
    (const char* uplo, const char* trans, const int* n, const int* k, const T* alpha, const T* a,  \
     const int* lda, const T* b, const int* ldb, const S* beta, T* c,                              \
     const int* ldc VOR_LENGTH(uplo) VOR_LENGTH(trans))
VOR_SPELLINGS(void, ssyr2k, SSYR2K, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, dsyr2k, DSYR2K, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, csyr2k, CSYR2K, VOR_ARGUMENTS(VOR_SCOMPLEX, VOR_SCOMPLEX))
VOR_SPELLINGS(void, zsyr2k, ZSYR2K, VOR_ARGUMENTS(VOR_DCOMPLEX, VOR_DCOMPLEX))
VOR_SPELLINGS(void, cher2k, CHER2K, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, zher2k, ZHER2K, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
#undef VOR_ARGUMENTS

/* ---- Rotation sequences, inner products --------------------------------------------------------- */

/* ?lasr_l<pivot><direction>: applies m - 1 plane rotations with cosines c and sines s, m - 1 each, to
 * the rows of A, m by n, in place. Rotation j turns rows j and j+1 (pivot v, variable), 0 and j+1
 * (t, top) or j and m-1 (b, bottom), all counted from 0:
 *     upper row := c[j] * upper + s[j] * lower,  lower row := c[j] * lower - s[j] * upper
 * direction f: j ascending, b: descending. c and s are real for complex A too. m < 2 or n < 1:
 * nothing happens. */
#define VOR_ARGUMENTS(T, S)                                                                        \
    (const int* m, const int* n, const S* c, const S* s, T* a, const int* lda)
VOR_SPELLINGS(void, slasr_lvf, SLASR_LVF, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, slasr_lvb, SLASR_LVB, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, slasr_ltf, SLASR_LTF, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, slasr_ltb, SLASR_LTB, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, slasr_lbf, SLASR_LBF, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, slasr_lbb, SLASR_LBB, VOR_ARGUMENTS(float, float))
VOR_SPELLINGS(void, dlasr_lvf, DLASR_LVF, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, dlasr_lvb, DLASR_LVB, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, dlasr_ltf, DLASR_LTF, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, dlasr_ltb, DLASR_LTB, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, dlasr_lbf, DLASR_LBF, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, dlasr_lbb, DLASR_LBB, VOR_ARGUMENTS(double, double))
VOR_SPELLINGS(void, clasr_lvf, CLASR_LVF, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, clasr_lvb, CLASR_LVB, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, clasr_ltf, CLASR_LTF, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, clasr_ltb, CLASR_LTB, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, clasr_lbf, CLASR_LBF, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, clasr_lbb, CLASR_LBB, VOR_ARGUMENTS(VOR_SCOMPLEX, float))
VOR_SPELLINGS(void, zlasr_lvf, ZLASR_LVF, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
VOR_SPELLINGS(void, zlasr_lvb, ZLASR_LVB, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
VOR_SPELLINGS(void, zlasr_ltf, ZLASR_LTF, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
VOR_SPELLINGS(void, zlasr_ltb, ZLASR_LTB, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
VOR_SPELLINGS(void, zlasr_lbf, ZLASR_LBF, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
VOR_SPELLINGS(void, zlasr_lbb, ZLASR_LBB, VOR_ARGUMENTS(VOR_DCOMPLEX, double))
#undef VOR_ARGUMENTS

/* xssexy, xdsexy: C := A^T * B for two tall matrices A and B, k by m, stored without gaps (leading
 * dimension k); C is m by m without gaps. With OpenMP threads k is cut into one part more than there
 * are threads, and the partial products are added in the order of the parts: the result depends on
 * the number of threads, not on who did what. Memory for the parts short: one thread does it all. */
VOR_SPELLINGS(void, xssexy, XSSEXY,
              (const int* k, const int* m, const float* a, const float* b, float* c))
VOR_SPELLINGS(void, xdsexy, XDSEXY,
              (const int* k, const int* m, const double* a, const double* b, double* c))

VOR_END_C

#endif
