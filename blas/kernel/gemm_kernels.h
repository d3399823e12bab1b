// Inner kernels of the matrix product and its post-passes. All arguments by pointer except array
// bases; nothing here allocates or reports.
//
// vor_blas_<t>in<M>_<K>, t one of s, d, z: for each of n columns j and the M rows i of a packed panel
//
//     C(i, j) += sum over l < K of A(i, l) * b(l, j)
//
//   apanel  A in the layout of blas/level3/gemm_pack.h; holds alpha * op(A) for s and d, op(A) for z,
//           whose kernels apply alpha to the sum; for s at a multiple of 16 bytes
//   b, ldb  columns of op(B), contiguous along l, ldb elements apart, of any alignment
//
// Order: l ascending, the old C last. d and z sum with a 64-bit significand and round once, into C;
// z sums all products with the real parts of b before those with the imaginary ones. s rounds every
// product and every sum to single precision.
//
// vor_blas_cin<M>_<K>: the same sum on split real and imaginary vectors (layouts in gemm_pack.h): four
// partial sums, one for each l mod 4, each with the real parts of b first, combined at the end as
// (0 + 2) + (1 + 3), then added to cblock. k is not read; a column of cblock begins ldc - m elements
// behind the end of the M rows of the one before. Panels and cblock at multiples of 16 bytes.
//
// Post-passes, for what fits no panel: C(m by n) += alpha * op(A) * op(B) on the caller's matrices.
//   vor_blas_?pst_<ab>k  any m, n, k; a and b are n for the stored matrix, t for its transpose
//   vor_blas_dpst_<ab>m  the same for 1 to 3 rows and k a multiple of 8
//   vor_blas_zpst_<ab>   with the argument list of the whole product; letters and beta are not read
//   vor_blas_cgemmpst    the whole product, letters, alpha and beta honoured
#pragma once

#include "arith/element.h"
#include "blas/signatures.h"

#define PARAMS_GEMM_KERNEL(T)                                                                      \
    (const int* n, const T* apanel, const T* b, const int* ldb, T* c, const int* ldc)
#define PARAMS_GEMM_KERNEL_Z(T)                                                                    \
    (const int* n, const T* apanel, const T* b, const int* ldb, T* c, const int* ldc,              \
     const T* alpha)
#define PARAMS_GEMM_KERNEL_C                                                                       \
    (const int* m, const int* n, const int* k, const float* apanel, const float* bpanel,           \
     const int* ldbp, vor::cfloat* cblock, const int* ldc)
#define PARAMS_GEMM_POST(T)                                                                        \
    (const int* m, const int* n, const int* k, const T* alpha, const T* a, const int* lda,         \
     const T* b, const int* ldb, T* c, const int* ldc)

extern "C" {
void vor_blas_din16_64 PARAMS_GEMM_KERNEL(double);
void vor_blas_din8_64 PARAMS_GEMM_KERNEL(double);
void vor_blas_din4_64 PARAMS_GEMM_KERNEL(double);
void vor_blas_din16_48 PARAMS_GEMM_KERNEL(double);
void vor_blas_din32_32 PARAMS_GEMM_KERNEL(double);
void vor_blas_din32_16 PARAMS_GEMM_KERNEL(double);

void vor_blas_sin32_64 PARAMS_GEMM_KERNEL(float);
void vor_blas_sin16_64 PARAMS_GEMM_KERNEL(float);
void vor_blas_sin32_48 PARAMS_GEMM_KERNEL(float);
void vor_blas_sin32_32 PARAMS_GEMM_KERNEL(float);
void vor_blas_sin32_16 PARAMS_GEMM_KERNEL(float);

void vor_blas_zin16_32 PARAMS_GEMM_KERNEL_Z(vor::cdouble);
void vor_blas_zin8_32 PARAMS_GEMM_KERNEL_Z(vor::cdouble);
void vor_blas_zin4_32 PARAMS_GEMM_KERNEL_Z(vor::cdouble);
void vor_blas_zin16_24 PARAMS_GEMM_KERNEL_Z(vor::cdouble);
void vor_blas_zin32_16 PARAMS_GEMM_KERNEL_Z(vor::cdouble);

void vor_blas_cin8_64 PARAMS_GEMM_KERNEL_C;
void vor_blas_cin4_64 PARAMS_GEMM_KERNEL_C;
void vor_blas_cin8_48 PARAMS_GEMM_KERNEL_C;
void vor_blas_cin8_32 PARAMS_GEMM_KERNEL_C;
void vor_blas_cin8_16 PARAMS_GEMM_KERNEL_C;

void vor_blas_dpst_nnk PARAMS_GEMM_POST(double);
void vor_blas_dpst_ntk PARAMS_GEMM_POST(double);
void vor_blas_dpst_tnk PARAMS_GEMM_POST(double);
void vor_blas_dpst_ttk PARAMS_GEMM_POST(double);
void vor_blas_dpst_nnm PARAMS_GEMM_POST(double);
void vor_blas_dpst_ntm PARAMS_GEMM_POST(double);
void vor_blas_dpst_tnm PARAMS_GEMM_POST(double);
void vor_blas_dpst_ttm PARAMS_GEMM_POST(double);
void vor_blas_spst_nnk PARAMS_GEMM_POST(float);
void vor_blas_spst_ntk PARAMS_GEMM_POST(float);
void vor_blas_spst_tnk PARAMS_GEMM_POST(float);
void vor_blas_spst_ttk PARAMS_GEMM_POST(float);

void vor_blas_zpst_nn PARAMS_XGEMM(vor::cdouble);
void vor_blas_zpst_nt PARAMS_XGEMM(vor::cdouble);
void vor_blas_zpst_nc PARAMS_XGEMM(vor::cdouble);
void vor_blas_zpst_tn PARAMS_XGEMM(vor::cdouble);
void vor_blas_zpst_tt PARAMS_XGEMM(vor::cdouble);
void vor_blas_zpst_tc PARAMS_XGEMM(vor::cdouble);
void vor_blas_zpst_cn PARAMS_XGEMM(vor::cdouble);
void vor_blas_zpst_ct PARAMS_XGEMM(vor::cdouble);
void vor_blas_zpst_cc PARAMS_XGEMM(vor::cdouble);
void vor_blas_cgemmpst PARAMS_XGEMM(vor::cfloat);
}
