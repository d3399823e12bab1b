// Packing of parts of A, B and C into the scratch panels that the kernels read. All arguments by
// pointer except array bases; a, b, c point at the part's first element.
//
// Panels of A: m rows of op(A), k steps. Row i is row r = i mod G of group g = i / G; element (i, l)
// stands at g * G * K + l * G + r. G is 4 for d, 16 for s, 2 for z (in complex elements); m is a
// multiple of G.
//
//   gtran, gtrat    op(A) = A, A transposed; K = k; times alpha (d, s)
//   zgtrac          op(A) = A conjugated and transposed; the z routines know no alpha
//   gtranp, gtratp  the same in a panel for K = kpad steps: positions from k on are left alone
//
// Panels of B: element (l, j) of op(B) at j * ldp + l.
//
//   gtrbn           op(B) = B transposed, for l below k rounded down to a multiple of 8
//   gtrbnp, gtrbtp  op(B) = B, B transposed; zeros for k <= l < kpad
//   zgtrbt, zgtrbc  op(B) = B transposed, B conjugated and transposed
//
// The c layout splits the parts, so that one 16-byte vector holds the real or the imaginary parts of
// four consecutive l; k is a multiple of 4. With q = l / 4, t = l mod 4, in floats (imaginary parts 4
// floats later):
//
//   A  (i, l) at i / 2 * 4 * k + q * 16 + i mod 2 * 8 + t; m even; times alpha (cgtran, cgtrat,
//      cgtrac)
//   B  (l, j) at j * 2 * ldp + q * 8 + t (cgcopybn, cgcopybt, cgcopybc)
//   C  rows in groups of ldb8 = 8: (i, j) at (i / 8 * n + j) * 8 + i mod 8, complex elements;
//      ccopycf0 fills it with zeros and does not read C, ccopycf1 copies C, ccopycf multiplies C by
//      beta, ccopycr copies the block back
#pragma once

#include "arith/element.h"

#define PARAMS_PACK_A(T)                                                                           \
    (const T* a, const int* lda, const int* m, const int* k, T* pack, const T* alpha)
#define PARAMS_PACK_A_PADDED(T)                                                                    \
    (const T* a, const int* lda, const int* m, const int* k, const int* kpad, T* pack,             \
     const T* alpha)
#define PARAMS_PACK_A_Z(T) (const T* a, const int* lda, const int* m, const int* k, T* pack)
#define PARAMS_PACK_B(T)                                                                           \
    (const int* n, const int* k, const T* b, const int* ldb, T* pack, const int* ldp)
#define PARAMS_PACK_B_PADDED(T)                                                                    \
    (const int* n, const int* k, const int* kpad, const T* b, const int* ldb, T* pack,             \
     const int* ldp)
#define PARAMS_PACK_A_C                                                                            \
    (const vor::cfloat* a, const int* lda, const int* m, const int* k, float* pack,                \
     const vor::cfloat* alpha)
#define PARAMS_PACK_B_C                                                                            \
    (const int* n, const int* k, const vor::cfloat* b, const int* ldb, float* pack, const int* ldp)
#define PARAMS_COPY_C                                                                              \
    (const int* m, const int* n, const vor::cfloat* c, const int* ldc, vor::cfloat* block,         \
     const int* ldb8)
#define PARAMS_COPY_C_SCALED                                                                       \
    (const int* m, const int* n, const vor::cfloat* c, const int* ldc, vor::cfloat* block,         \
     const int* ldb8, const vor::cfloat* beta)
#define PARAMS_COPY_C_BACK                                                                         \
    (const int* m, const int* n, vor::cfloat* c, const int* ldc, const vor::cfloat* block,         \
     const int* ldb8)

extern "C" {
void vor_blas_dgtran PARAMS_PACK_A(double);
void vor_blas_dgtrat PARAMS_PACK_A(double);
void vor_blas_dgtranp PARAMS_PACK_A_PADDED(double);
void vor_blas_dgtratp PARAMS_PACK_A_PADDED(double);
void vor_blas_dgtrbn PARAMS_PACK_B(double);
void vor_blas_dgtrbnp PARAMS_PACK_B_PADDED(double);
void vor_blas_dgtrbtp PARAMS_PACK_B_PADDED(double);

void vor_blas_sgtran PARAMS_PACK_A(float);
void vor_blas_sgtrat PARAMS_PACK_A(float);
void vor_blas_sgtranp PARAMS_PACK_A_PADDED(float);
void vor_blas_sgtratp PARAMS_PACK_A_PADDED(float);
void vor_blas_sgtrbn PARAMS_PACK_B(float);
void vor_blas_sgtrbnp PARAMS_PACK_B_PADDED(float);
void vor_blas_sgtrbtp PARAMS_PACK_B_PADDED(float);

void vor_blas_zgtran PARAMS_PACK_A_Z(vor::cdouble);
void vor_blas_zgtrat PARAMS_PACK_A_Z(vor::cdouble);
void vor_blas_zgtrac PARAMS_PACK_A_Z(vor::cdouble);
void vor_blas_zgtrbt PARAMS_PACK_B(vor::cdouble);
void vor_blas_zgtrbc PARAMS_PACK_B(vor::cdouble);

void vor_blas_cgtran PARAMS_PACK_A_C;
void vor_blas_cgtrat PARAMS_PACK_A_C;
void vor_blas_cgtrac PARAMS_PACK_A_C;
void vor_blas_cgcopybn PARAMS_PACK_B_C;
void vor_blas_cgcopybt PARAMS_PACK_B_C;
void vor_blas_cgcopybc PARAMS_PACK_B_C;
void vor_blas_ccopycf0 PARAMS_COPY_C;
void vor_blas_ccopycf1 PARAMS_COPY_C;
void vor_blas_ccopycf PARAMS_COPY_C_SCALED;
void vor_blas_ccopycr PARAMS_COPY_C_BACK;
}
