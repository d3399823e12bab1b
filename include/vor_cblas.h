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

/* ---- Matrices --------------------------------------------------------------------------------
 * order says how all matrices of a call lie in memory: CblasColMajor as in vor_blas.h, CblasRowMajor row
 * by row, the leading dimension the distance of two rows. op(X) is X for CblasNoTrans, its transpose
 * for CblasTrans, its conjugate transpose (real types: the transpose) for CblasConjTrans.
 *
 * A wrong argument is reported through cblas_xerbla (vor_service.h) under its number in the list below,
 * counted from 1, and the call returns with nothing written. These checks cannot be switched off.
 *
 * A row-major call is turned into the column-major one on the transposed problem. Complex members
 * whose transposed problem has a conjugated matrix conjugate the vectors instead. They
 *   - take memory for one or two vectors (x of ?gemv and ?gbmv under CblasConjTrans, of ?hemv, ?hbmv,
 *     ?hpmv, ?her, ?hpr; y of ?gerc; both of ?her2, ?hpr2). If there is none, the report has the number
 *     0 (an internal condition), and nothing is written;
 *   - conjugate in place, and back afterwards, y of the products and x of ?trmv, ?trsv, ?tbmv, ?tbsv,
 *     ?tpmv, ?tpsv under CblasConjTrans: nobody else may read these vectors during the call. */

/* ---- Level 2: matrix and vector ---------------------------------------------------------------- */

/* ?gemv: y := alpha * op(A) * x + beta * y, A m by n. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n, S alpha, const T* a, int lda,         \
     const T* x, int incx, S beta, T* y, int incy)
void cblas_sgemv VOR_ARGUMENTS(float, float);
void cblas_dgemv VOR_ARGUMENTS(double, double);
void cblas_cgemv VOR_ARGUMENTS(const void*, void);
void cblas_zgemv VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?gbmv: the same for a band matrix, kl diagonals below the main one, ku above it; lda >= kl + ku + 1.
 * Row-major, row i of the array holds A(i, j) in place kl + j - i (all from 0). */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n, int kl, int ku, S alpha, const T* a,  \
     int lda, const T* x, int incx, S beta, T* y, int incy)
void cblas_sgbmv VOR_ARGUMENTS(float, float);
void cblas_dgbmv VOR_ARGUMENTS(double, double);
void cblas_cgbmv VOR_ARGUMENTS(const void*, void);
void cblas_zgbmv VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?ger, ?geru: A := A + alpha * x * y^T; ?gerc: A := A + alpha * x * y^H; A m by n. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, int m, int n, S alpha, const T* x, int incx, const T* y, int incy, T* a,   \
     int lda)
void cblas_sger VOR_ARGUMENTS(float, float);
void cblas_dger VOR_ARGUMENTS(double, double);
void cblas_cgeru VOR_ARGUMENTS(const void*, void);
void cblas_zgeru VOR_ARGUMENTS(const void*, void);
void cblas_cgerc VOR_ARGUMENTS(const void*, void);
void cblas_zgerc VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?symv: y := alpha * A * x + beta * y, A symmetric of order n, ?hemv: Hermitian. Only the triangle of
 * uplo is read. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, int n, S alpha, const T* a, int lda, const T* x,          \
     int incx, S beta, T* y, int incy)
void cblas_ssymv VOR_ARGUMENTS(float, float);
void cblas_dsymv VOR_ARGUMENTS(double, double);
void cblas_chemv VOR_ARGUMENTS(const void*, void);
void cblas_zhemv VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?sbmv, ?hbmv: the same for a band with k diagonals on either side of the main one; lda >= k + 1.
 * Row-major, row i of the array holds A(i, j) in place j - i (upper) or k + j - i (lower). */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, int n, int k, S alpha, const T* a, int lda, const T* x,   \
     int incx, S beta, T* y, int incy)
void cblas_ssbmv VOR_ARGUMENTS(float, float);
void cblas_dsbmv VOR_ARGUMENTS(double, double);
void cblas_chbmv VOR_ARGUMENTS(const void*, void);
void cblas_zhbmv VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?spmv, ?hpmv: the same for a packed triangle: its columns, row-major its rows, one after the other. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, int n, S alpha, const T* ap, const T* x, int incx,        \
     S beta, T* y, int incy)
void cblas_sspmv VOR_ARGUMENTS(float, float);
void cblas_dspmv VOR_ARGUMENTS(double, double);
void cblas_chpmv VOR_ARGUMENTS(const void*, void);
void cblas_zhpmv VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?syr: A := A + alpha * x * x^T, A symmetric; ?her: A := A + alpha * x * x^H, A Hermitian, alpha real.
 * The triangle of uplo is read and written. */
#define VOR_ARGUMENTS(R, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, int n, R alpha, const T* x, int incx, T* a, int lda)
void cblas_ssyr VOR_ARGUMENTS(float, float);
void cblas_dsyr VOR_ARGUMENTS(double, double);
void cblas_cher VOR_ARGUMENTS(float, void);
void cblas_zher VOR_ARGUMENTS(double, void);
#undef VOR_ARGUMENTS

/* ?spr, ?hpr: the same for a packed triangle. */
#define VOR_ARGUMENTS(R, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, int n, R alpha, const T* x, int incx, T* ap)
void cblas_sspr VOR_ARGUMENTS(float, float);
void cblas_dspr VOR_ARGUMENTS(double, double);
void cblas_chpr VOR_ARGUMENTS(float, void);
void cblas_zhpr VOR_ARGUMENTS(double, void);
#undef VOR_ARGUMENTS

/* ?syr2: A := A + alpha * (x * y^T + y * x^T); ?her2: A := A + alpha * x * y^H + conj(alpha) * y * x^H. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, int n, S alpha, const T* x, int incx, const T* y,         \
     int incy, T* a, int lda)
void cblas_ssyr2 VOR_ARGUMENTS(float, float);
void cblas_dsyr2 VOR_ARGUMENTS(double, double);
void cblas_cher2 VOR_ARGUMENTS(const void*, void);
void cblas_zher2 VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?spr2, ?hpr2: the same for a packed triangle. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, int n, S alpha, const T* x, int incx, const T* y,         \
     int incy, T* ap)
void cblas_sspr2 VOR_ARGUMENTS(float, float);
void cblas_dspr2 VOR_ARGUMENTS(double, double);
void cblas_chpr2 VOR_ARGUMENTS(const void*, void);
void cblas_zhpr2 VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?trmv: x := op(A) * x; ?trsv: x := op(A)^-1 * x; A triangular of order n, its diagonal read only for
 * CblasNonUnit (CblasUnit: ones). */
#define VOR_ARGUMENTS(T)                                                                           \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,            \
     const T* a, int lda, T* x, int incx)
void cblas_strmv VOR_ARGUMENTS(float);
void cblas_dtrmv VOR_ARGUMENTS(double);
void cblas_ctrmv VOR_ARGUMENTS(void);
void cblas_ztrmv VOR_ARGUMENTS(void);
void cblas_strsv VOR_ARGUMENTS(float);
void cblas_dtrsv VOR_ARGUMENTS(double);
void cblas_ctrsv VOR_ARGUMENTS(void);
void cblas_ztrsv VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* ?tbmv, ?tbsv: the same for a band with k diagonals beside the main one, stored as for ?sbmv. */
#define VOR_ARGUMENTS(T)                                                                           \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n, int k,     \
     const T* a, int lda, T* x, int incx)
void cblas_stbmv VOR_ARGUMENTS(float);
void cblas_dtbmv VOR_ARGUMENTS(double);
void cblas_ctbmv VOR_ARGUMENTS(void);
void cblas_ztbmv VOR_ARGUMENTS(void);
void cblas_stbsv VOR_ARGUMENTS(float);
void cblas_dtbsv VOR_ARGUMENTS(double);
void cblas_ctbsv VOR_ARGUMENTS(void);
void cblas_ztbsv VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* ?tpmv, ?tpsv: the same for a packed triangle. */
#define VOR_ARGUMENTS(T)                                                                           \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,            \
     const T* ap, T* x, int incx)
void cblas_stpmv VOR_ARGUMENTS(float);
void cblas_dtpmv VOR_ARGUMENTS(double);
void cblas_ctpmv VOR_ARGUMENTS(void);
void cblas_ztpmv VOR_ARGUMENTS(void);
void cblas_stpsv VOR_ARGUMENTS(float);
void cblas_dtpsv VOR_ARGUMENTS(double);
void cblas_ctpsv VOR_ARGUMENTS(void);
void cblas_ztpsv VOR_ARGUMENTS(void);
#undef VOR_ARGUMENTS

/* ---- Level 3: matrix and matrix ----------------------------------------------------------------
 * May run on several threads; no memory is taken for the order. */

/* ?gemm: C := alpha * op(A) * op(B) + beta * C; op(A) is m by k, op(B) k by n, C m by n. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_TRANSPOSE transa, CBLAS_TRANSPOSE transb, int m, int n, int k,       \
     S alpha, const T* a, int lda, const T* b, int ldb, S beta, T* c, int ldc)
void cblas_sgemm VOR_ARGUMENTS(float, float);
void cblas_dgemm VOR_ARGUMENTS(double, double);
void cblas_cgemm VOR_ARGUMENTS(const void*, void);
void cblas_zgemm VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?symm, ?hemm: C := alpha * A * B + beta * C for CblasLeft, C := alpha * B * A + beta * C for
 * CblasRight; B and C m by n, A symmetric or Hermitian, only the triangle of uplo read. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n, S alpha, const T* a,       \
     int lda, const T* b, int ldb, S beta, T* c, int ldc)
void cblas_ssymm VOR_ARGUMENTS(float, float);
void cblas_dsymm VOR_ARGUMENTS(double, double);
void cblas_csymm VOR_ARGUMENTS(const void*, void);
void cblas_zsymm VOR_ARGUMENTS(const void*, void);
void cblas_chemm VOR_ARGUMENTS(const void*, void);
void cblas_zhemm VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

/* ?syrk: C := alpha * op(A) * op(A)^T + beta * C, C symmetric of order n, op(A) n by k; the complex ones
 * know no CblasConjTrans. ?herk: C := alpha * op(A) * op(A)^H + beta * C, C Hermitian, alpha and beta
 * real; no CblasTrans. Only the triangle of uplo is read and written. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k, S alpha, const T* a, \
     int lda, S beta, T* c, int ldc)
void cblas_ssyrk VOR_ARGUMENTS(float, float);
void cblas_dsyrk VOR_ARGUMENTS(double, double);
void cblas_csyrk VOR_ARGUMENTS(const void*, void);
void cblas_zsyrk VOR_ARGUMENTS(const void*, void);
void cblas_cherk VOR_ARGUMENTS(float, void);
void cblas_zherk VOR_ARGUMENTS(double, void);
#undef VOR_ARGUMENTS

/* ?syr2k: C := alpha * op(A) * op(B)^T + alpha * op(B) * op(A)^T + beta * C; ?her2k: C := alpha * op(A) *
 * op(B)^H + conj(alpha) * op(B) * op(A)^H + beta * C, beta real (its type is V). Transposes and
 * triangle as for ?syrk and ?herk. */
#define VOR_ARGUMENTS(S, V, T)                                                                     \
    (CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k, S alpha, const T* a, \
     int lda, const T* b, int ldb, V beta, T* c, int ldc)
void cblas_ssyr2k VOR_ARGUMENTS(float, float, float);
void cblas_dsyr2k VOR_ARGUMENTS(double, double, double);
void cblas_csyr2k VOR_ARGUMENTS(const void*, const void*, void);
void cblas_zsyr2k VOR_ARGUMENTS(const void*, const void*, void);
void cblas_cher2k VOR_ARGUMENTS(const void*, float, void);
void cblas_zher2k VOR_ARGUMENTS(const void*, double, void);
#undef VOR_ARGUMENTS

/* ?trmm: B := alpha * op(A) * B for CblasLeft, B := alpha * B * op(A) for CblasRight; B m by n, A
 * triangular. ?trsm: the same with op(A)^-1; nothing is tested for singularity. */
#define VOR_ARGUMENTS(S, T)                                                                        \
    (CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE transa, CBLAS_DIAG diag, \
     int m, int n, S alpha, const T* a, int lda, T* b, int ldb)
void cblas_strmm VOR_ARGUMENTS(float, float);
void cblas_dtrmm VOR_ARGUMENTS(double, double);
void cblas_ctrmm VOR_ARGUMENTS(const void*, void);
void cblas_ztrmm VOR_ARGUMENTS(const void*, void);
void cblas_strsm VOR_ARGUMENTS(float, float);
void cblas_dtrsm VOR_ARGUMENTS(double, double);
void cblas_ctrsm VOR_ARGUMENTS(const void*, void);
void cblas_ztrsm VOR_ARGUMENTS(const void*, void);
#undef VOR_ARGUMENTS

VOR_END_C

#endif
