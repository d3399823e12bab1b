/* vor_cblas.h: BLAS routines of the Orbel Numeric Library for C: scalars by value, matrices row-major
 * or column-major.
 *
 * Every routine does what its namesake of vor_blas.h does: results, rounding, threads and the rules
 * for what is not read are told there. Here is what differs.
 *   - Complex arrays are void pointers to pairs of parts, real first: float _Complex, std::complex<float>
 *     and vor_scomplex alike. A complex scalar is passed by such a pointer, a real one by value.
 *   - A complex result goes through the last argument.
 *   - Positions count from 0: cblas_i?amax, cblas_i?amin, and indx of the sparse vectors.
 *
 * The dense routines do their work through the entries of vor_blas.h, so the configuration file is read
 * at the first call of one of them (see vor_service.h); the sparse-vector routines read no file. All
 * are reentrant.
 * (An Updated Set of Basic Linear Algebra Subprograms, ACM TOMS 28 (2002) 135-151.)
 */
#ifndef VOR_CBLAS_H
#define VOR_CBLAS_H

#include "vor_types.h"

VOR_BEGIN_C

typedef enum CBLAS_ORDER { CblasRowMajor = 101, CblasColMajor = 102 } CBLAS_ORDER;
typedef enum CBLAS_TRANSPOSE {
    CblasNoTrans = 111,
    CblasTrans = 112,
    CblasConjTrans = 113
} CBLAS_TRANSPOSE;
typedef enum CBLAS_UPLO { CblasUpper = 121, CblasLower = 122 } CBLAS_UPLO;
typedef enum CBLAS_DIAG { CblasNonUnit = 131, CblasUnit = 132 } CBLAS_DIAG;
typedef enum CBLAS_SIDE { CblasLeft = 141, CblasRight = 142 } CBLAS_SIDE;

/* Another name of the order, and the type of a position. */
#define CBLAS_LAYOUT CBLAS_ORDER
#ifndef CBLAS_INDEX
#define CBLAS_INDEX int
#endif

/* In the argument lists below T is the element of an array (void if complex), S a scalar of its type
 * (const void* if complex), R a real scalar. */

/* ---- Level 1: vectors ------------------------------------------------------------------------
 * Arguments are not checked. n elements with step inc; with a negative step the walk begins at element
 * (1-n)*inc of the array. */

/* ?axpy: y := alpha*x + y. */
#define VOR_ARGUMENTS(S, T) (int n, S alpha, const T* x, int incx, T* y, int incy)
void cblas_saxpy VOR_ARGUMENTS(float, float);
void cblas_daxpy VOR_ARGUMENTS(double, double);
void cblas_caxpy VOR_ARGUMENTS(const void*, void);
void cblas_zaxpy VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?copy: y := x. */
#define VOR_ARGUMENTS(T) (int n, const T* x, int incx, T* y, int incy)
void cblas_scopy VOR_ARGUMENTS(float);
void cblas_dcopy VOR_ARGUMENTS(double);
void cblas_ccopy VOR_ARGUMENTS(void);
void cblas_zcopy VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* ?swap: x and y exchange their elements. */
#define VOR_ARGUMENTS(T) (int n, T* x, int incx, T* y, int incy)
void cblas_sswap VOR_ARGUMENTS(float);
void cblas_dswap VOR_ARGUMENTS(double);
void cblas_cswap VOR_ARGUMENTS(void);
void cblas_zswap VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* ?scal: x := alpha*x; csscal, zdscal: complex x, real alpha. */
#define VOR_ARGUMENTS(S, T) (int n, S alpha, T* x, int incx)
void cblas_sscal VOR_ARGUMENTS(float, float);
void cblas_dscal VOR_ARGUMENTS(double, double);
void cblas_cscal VOR_ARGUMENTS(const void*, void);
void cblas_zscal VOR_ARGUMENTS(const void*, void);
void cblas_csscal VOR_ARGUMENTS(float, void);
void cblas_zdscal VOR_ARGUMENTS(double, void);
#undef VOR_ARGUMENTS

/* sdot, ddot: the sum of x[i]*y[i]. dsdot: of float vectors, summed in extended precision; sdsdot: the
 * same on top of sb, rounded to float. sdot hands back what its namesake does, rounded or not. */
#define VOR_ARGUMENTS(T) (int n, const T* x, int incx, const T* y, int incy)
float cblas_sdot VOR_ARGUMENTS(float);
double cblas_ddot VOR_ARGUMENTS(double);
double cblas_dsdot VOR_ARGUMENTS(float);
#undef VOR_ARGUMENTS
float cblas_sdsdot(int n, float sb, const float* x, int incx, const float* y, int incy);

/* ?dotu_sub, ?dotc_sub: *result := sum of x[i]*y[i]; sum of conj(x[i])*y[i]. */
#define VOR_ARGUMENTS (int n, const void* x, int incx, const void* y, int incy, void* result)
void cblas_cdotu_sub VOR_ARGUMENTS;
void cblas_zdotu_sub VOR_ARGUMENTS;
void cblas_cdotc_sub VOR_ARGUMENTS;
void cblas_zdotc_sub VOR_ARGUMENTS;
#undef VOR_ARGUMENTS

/* ?nrm2: the Euclidean norm. ?asum: the sum of abs(x[i]), complex: of abs(re) + abs(im). */
#define VOR_ARGUMENTS(T) (int n, const T* x, int incx)
float cblas_snrm2 VOR_ARGUMENTS(float);
double cblas_dnrm2 VOR_ARGUMENTS(double);
float cblas_scnrm2 VOR_ARGUMENTS(void);
double cblas_dznrm2 VOR_ARGUMENTS(void);
float cblas_sasum VOR_ARGUMENTS(float);
double cblas_dasum VOR_ARGUMENTS(double);
float cblas_scasum VOR_ARGUMENTS(void);
double cblas_dzasum VOR_ARGUMENTS(void);

/* i?amax, i?amin: position, counted from 0, of the first element of largest or smallest magnitude
 * (complex: abs(re) + abs(im)). 0 also for n < 1 and for incx < 1. */
int cblas_isamax VOR_ARGUMENTS(float);
int cblas_idamax VOR_ARGUMENTS(double);
int cblas_icamax VOR_ARGUMENTS(void);
int cblas_izamax VOR_ARGUMENTS(void);
int cblas_isamin VOR_ARGUMENTS(float);
int cblas_idamin VOR_ARGUMENTS(double);
int cblas_icamin VOR_ARGUMENTS(void);
int cblas_izamin VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* dcabs1: abs(re) + abs(im) of the complex double at z. */
double cblas_dcabs1(const void* z);

/* ?rot: (x, y) := (c*x + s*y, c*y - s*x), c and s real. */
#define VOR_ARGUMENTS(T, R) (int n, T* x, int incx, T* y, int incy, R c, R s)
void cblas_srot VOR_ARGUMENTS(float, float);
void cblas_drot VOR_ARGUMENTS(double, double);
void cblas_csrot VOR_ARGUMENTS(void, float);
void cblas_zdrot VOR_ARGUMENTS(void, double);
#undef VOR_ARGUMENTS

/* ?rotg: the rotation that takes (a, b) to (r, 0); r replaces a (and, real only, b becomes z). */
void cblas_srotg(float* a, float* b, float* c, float* s);
void cblas_drotg(double* a, double* b, double* c, double* s);
void cblas_crotg(void* a, const void* b, float* c, void* s);
void cblas_zrotg(void* a, const void* b, double* c, void* s);

/* ?rotm: the modified rotation of param (5 numbers) on x and y. ?rotmg: builds one; b2 too is passed
 * by pointer. */
#define VOR_ARGUMENTS(T) (int n, T* x, int incx, T* y, int incy, const T* param)
void cblas_srotm VOR_ARGUMENTS(float);
void cblas_drotm VOR_ARGUMENTS(double);
#undef VOR_ARGUMENTS
#define VOR_ARGUMENTS(T) (T * d1, T * d2, T * b1, const T* b2, T* param)
void cblas_srotmg VOR_ARGUMENTS(float);
void cblas_drotmg VOR_ARGUMENTS(double);
#undef VOR_ARGUMENTS

/* ---- Sparse vectors --------------------------------------------------------------------------
 * A sparse vector is an array x of n values and an array indx of their n positions, counted from 0, in
 * a full vector y. Every routine works through the elements 0 .. n-1 in this order, does nothing for
 * n < 1, and does not check for repeated positions: the later element wins or accumulates. Each step
 * is calculated, and each sum kept, in extended precision, in single precision too. */

/* ?axpyi: y[indx[i]] += alpha*x[i]. With alpha = 0 (complex: both parts) y stays as it is. */
#define VOR_ARGUMENTS(S, T) (int n, S alpha, const T* x, const int* indx, T* y)
void cblas_saxpyi VOR_ARGUMENTS(float, float);
void cblas_daxpyi VOR_ARGUMENTS(double, double);
void cblas_caxpyi VOR_ARGUMENTS(const void*, void);
void cblas_zaxpyi VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?doti: the sum of x[i]*y[indx[i]], rounded once. ?dotui_sub, ?dotci_sub: *result := the same;
 * the same with conj(x[i]). 0 for n < 1. */
float cblas_sdoti(int n, const float* x, const int* indx, const float* y);
double cblas_ddoti(int n, const double* x, const int* indx, const double* y);
#define VOR_ARGUMENTS (int n, const void* x, const int* indx, const void* y, void* result)
void cblas_cdotui_sub VOR_ARGUMENTS;
void cblas_zdotui_sub VOR_ARGUMENTS;
void cblas_cdotci_sub VOR_ARGUMENTS;
void cblas_zdotci_sub VOR_ARGUMENTS;
#undef VOR_ARGUMENTS

/* ?gthr: x[i] := y[indx[i]]. */
#define VOR_ARGUMENTS(T) (int n, const T* y, T* x, const int* indx)
void cblas_sgthr VOR_ARGUMENTS(float);
void cblas_dgthr VOR_ARGUMENTS(double);
void cblas_cgthr VOR_ARGUMENTS(void);
void cblas_zgthr VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* ?gthrz: x[i] := y[indx[i]], y[indx[i]] := 0. */
#define VOR_ARGUMENTS(T) (int n, T* y, T* x, const int* indx)
void cblas_sgthrz VOR_ARGUMENTS(float);
void cblas_dgthrz VOR_ARGUMENTS(double);
void cblas_cgthrz VOR_ARGUMENTS(void);
void cblas_zgthrz VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* ?sctr: y[indx[i]] := x[i]. */
#define VOR_ARGUMENTS(T) (int n, const T* x, const int* indx, T* y)
void cblas_ssctr VOR_ARGUMENTS(float);
void cblas_dsctr VOR_ARGUMENTS(double);
void cblas_csctr VOR_ARGUMENTS(void);
void cblas_zsctr VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* ?roti: (x[i], y[indx[i]]) := (c*x[i] + s*y[indx[i]], c*y[indx[i]] - s*x[i]). c = 1 with s = 0 does
 * nothing. */
#define VOR_ARGUMENTS(T) (int n, T* x, const int* indx, T* y, T c, T s)
void cblas_sroti VOR_ARGUMENTS(float);
void cblas_droti VOR_ARGUMENTS(double);
#undef VOR_ARGUMENTS

VOR_END_C

#endif
