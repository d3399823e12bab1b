// The DFT kernels, tables and drivers by name, and their choice by element type and direction.
//
// n, f, r, v, strides and counts are in elements. Scratch of the table radices holds f - 1 complex
// elements; that of a whole direct sum n. Source and destination may be the same array in the
// complex stages, the out-of-order kernels and the whole transforms.
#pragma once

#include "signal/dft/context.h"

extern "C" {

// Complex kernels. In-order stages: `blocks` blocks of f * r elements, one after the other. Leaves:
// c transforms of stride p * c and start t * p for each block; block b reads at offsets[b] and
// writes behind the block before it. Out-of-order stages: blocks `first` to `first + blocks - 1` of
// f * v elements, one set of twiddles each.
#define VOR_DFT_COMPLEX(Dir, suffix, C)                                                            \
    void tavs_cDft##Dir##_Fact2_##suffix(const C* source, C* destination, int r, int blocks,       \
                                         const C* twiddle);                                        \
    void tavs_cDft##Dir##_Fact3_##suffix(const C* source, C* destination, int r, int blocks,       \
                                         const C* twiddle);                                        \
    void tavs_cDft##Dir##_Fact4_##suffix(const C* source, C* destination, int r, int blocks,       \
                                         const C* twiddle);                                        \
    void tavs_cDft##Dir##_Fact5_##suffix(const C* source, C* destination, int r, int blocks,       \
                                         const C* twiddle);                                        \
    void tavs_cDft##Dir##_Fact_##suffix(const C* source, C* destination, int f, int r,             \
                                        const C* table, const C* twiddle, void* scratch);          \
    void tavs_cDft##Dir##_Prime3_##suffix(const C* source, int p, C* destination, int c,           \
                                          int blocks, const int* offsets);                         \
    void tavs_cDft##Dir##_Prime5_##suffix(const C* source, int p, C* destination, int c,           \
                                          int blocks, const int* offsets);                         \
    void tavs_cDft##Dir##_Prime_##suffix(const C* source, int p, C* destination, int r, int c,     \
                                         const C* table, void* scratch);                           \
    void tavs_cDftOutOrd##Dir##_Fact2_##suffix(const C* source, C* destination, int v, int first,  \
                                               int blocks, const C* twiddle);                      \
    void tavs_cDftOutOrd##Dir##_Fact3_##suffix(const C* source, C* destination, int v, int first,  \
                                               int blocks, const C* twiddle);                      \
    void tavs_cDftOutOrd##Dir##_Fact4_##suffix(const C* source, C* destination, int v, int first,  \
                                               int blocks, const C* twiddle);                      \
    void tavs_cDftOutOrd##Dir##_Fact5_##suffix(const C* source, C* destination, int v, int first,  \
                                               int blocks, const C* twiddle);                      \
    void tavs_cDftOutOrd##Dir##_Fact_##suffix(const C* source, C* destination, int f, int v,       \
                                              int block, const C* table, const C* twiddle,         \
                                              void* scratch);                                      \
    void tavs_cDftOutOrd##Dir##_Prime3_##suffix(const C* source, C* destination, int v);           \
    void tavs_cDftOutOrd##Dir##_Prime5_##suffix(const C* source, C* destination, int v);           \
    void tavs_cDftOutOrd##Dir##_Prime_##suffix(const C* source, C* destination, int r, int v,      \
                                               const C* table, void* scratch);

// Real kernels, odd lengths. Half-complex form of length r: re X[0], then re X[k], im X[k] for
// k = 1 to (r-1)/2. Forward stages combine f half-complex sub-blocks of length r, forward leaves
// read reals with strides; the inverse ones split and scatter. The arrays do not overlap.
#define VOR_DFT_REAL(Dir, suffix, T, C)                                                            \
    void tavs_rDft##Dir##_Fact3_##suffix(const T* source, T* destination, int r, int blocks,       \
                                         const C* twiddle);                                        \
    void tavs_rDft##Dir##_Fact5_##suffix(const T* source, T* destination, int r, int blocks,       \
                                         const C* twiddle);                                        \
    void tavs_rDft##Dir##_Fact_##suffix(const T* source, T* destination, int f, int r,             \
                                        const C* table, const C* twiddle, void* scratch);          \
    void tavs_rDft##Dir##_Prime3_##suffix(const T* source, int p, T* destination, int c,           \
                                          int blocks, const int* offsets);                         \
    void tavs_rDft##Dir##_Prime5_##suffix(const T* source, int p, T* destination, int c,           \
                                          int blocks, const int* offsets);                         \
    void tavs_rDft##Dir##_Prime_##suffix(const T* source, int p, T* destination, int r, int c,     \
                                         const C* table, void* scratch);                           \
    void tavs_rDft##Dir##_Dir_##suffix(const T* source, T* destination, int n, const C* table,     \
                                       void* scratch);                                             \
    TavStatus tavs_rDft##Dir##_Conv_##suffix(const DftCtx* object, const T* source,                \
                                             T* destination, void* work);                          \
    void tavs_rDft##Dir##_PrimeFact_##suffix(const DftCtx* object, const T* source,                \
                                             T* destination, void* work);                          \
    void tavs_cDft##Dir##_PrimeFact_##suffix##c(const DftCtx* object, const C* source,             \
                                                C* destination, void* work);                       \
    void tavs_cDft##Dir##_OutOrd_##suffix##c(const DftCtx* object, const C* source,                \
                                             C* destination, void* work);

// Whole transforms of one precision (direction above 0: forward), block helpers, tables. Tables that
// cannot be had are null.
#define VOR_DFT_SHARED(suffix, T, C)                                                               \
    void tavs_cDft_Dir_##suffix##c(const C* source, C* destination, int n, int direction,          \
                                   const C* table, void* scratch);                                 \
    TavStatus tavs_cDft_Conv_##suffix##c(const DftCtx* object, const C* source, C* destination,    \
                                         int n, int direction, void* work);                        \
    void tavs_cbMpy3_##suffix##c(const C* a, const C* b, C* c, int n);                             \
    void tavs_cbConj2_##suffix##c(const C* a, C* b, int n);                                        \
    void tavs_cbZero_##suffix##c(C* a, int n);                                                     \
    void tavs_rbMpy1_##suffix(T factor, T* a, int n);                                              \
    C* tavs_createTabDftBase_##suffix(int n);                                                      \
    C* tavs_createTabDftDir_##suffix(const C* base, int n, int step);                              \
    C* tavs_createTabDftFwdRec_##suffix(const C* base, int n);                                     \
    C* tavs_createTabDftInvRec_##suffix(const C* base, int n);                                     \
    TavStatus tavs_initDftPrimeFact_##suffix(DftCtx* object, int n, const C* base,                 \
                                             int baseLength);                                      \
    TavStatus tavs_initDftConv_##suffix(DftCtx* object, int n, const C* base, int baseLength);     \
    void tavs_rDftFwdRecombine_##suffix(C* data, int n, const C* table);                           \
    void tavs_rDftInvRecombine_##suffix(const C* source, C* destination, int n, const C* table);

#define VOR_DFT_PRECISION(suffix, T, C)                                                            \
    VOR_DFT_COMPLEX(Fwd, suffix##c, C)                                                             \
    VOR_DFT_COMPLEX(Inv, suffix##c, C)                                                             \
    VOR_DFT_REAL(Fwd, suffix, T, C)                                                                \
    VOR_DFT_REAL(Inv, suffix, T, C)                                                                \
    VOR_DFT_SHARED(suffix, T, C)

VOR_DFT_PRECISION(32f, float, VOR_SCOMPLEX)
VOR_DFT_PRECISION(64f, double, VOR_DCOMPLEX)
}

namespace vor::dft {

// Directed<T, D>: the kernels of one precision and one direction. Shared<T>: what has none.
template <class T, Direction D>
struct Directed;
template <class T>
struct Shared;

#define VOR_DFT_DIRECTED(T, D, Dir, suffix, RealFft)                                               \
    template <>                                                                                    \
    struct Directed<T, Direction::D> {                                                             \
        static constexpr auto stage2 = tavs_cDft##Dir##_Fact2_##suffix##c;                         \
        static constexpr auto stage3 = tavs_cDft##Dir##_Fact3_##suffix##c;                         \
        static constexpr auto stage4 = tavs_cDft##Dir##_Fact4_##suffix##c;                         \
        static constexpr auto stage5 = tavs_cDft##Dir##_Fact5_##suffix##c;                         \
        static constexpr auto stage = tavs_cDft##Dir##_Fact_##suffix##c;                           \
        static constexpr auto leaf3 = tavs_cDft##Dir##_Prime3_##suffix##c;                         \
        static constexpr auto leaf5 = tavs_cDft##Dir##_Prime5_##suffix##c;                         \
        static constexpr auto leaf = tavs_cDft##Dir##_Prime_##suffix##c;                           \
        static constexpr auto out_stage2 = tavs_cDftOutOrd##Dir##_Fact2_##suffix##c;               \
        static constexpr auto out_stage3 = tavs_cDftOutOrd##Dir##_Fact3_##suffix##c;               \
        static constexpr auto out_stage4 = tavs_cDftOutOrd##Dir##_Fact4_##suffix##c;               \
        static constexpr auto out_stage5 = tavs_cDftOutOrd##Dir##_Fact5_##suffix##c;               \
        static constexpr auto out_stage = tavs_cDftOutOrd##Dir##_Fact_##suffix##c;                 \
        static constexpr auto out_leaf3 = tavs_cDftOutOrd##Dir##_Prime3_##suffix##c;               \
        static constexpr auto out_leaf5 = tavs_cDftOutOrd##Dir##_Prime5_##suffix##c;               \
        static constexpr auto out_leaf = tavs_cDftOutOrd##Dir##_Prime_##suffix##c;                 \
        static constexpr auto real_stage3 = tavs_rDft##Dir##_Fact3_##suffix;                       \
        static constexpr auto real_stage5 = tavs_rDft##Dir##_Fact5_##suffix;                       \
        static constexpr auto real_stage = tavs_rDft##Dir##_Fact_##suffix;                         \
        static constexpr auto real_leaf3 = tavs_rDft##Dir##_Prime3_##suffix;                       \
        static constexpr auto real_leaf5 = tavs_rDft##Dir##_Prime5_##suffix;                       \
        static constexpr auto real_leaf = tavs_rDft##Dir##_Prime_##suffix;                         \
        static constexpr auto real_direct = tavs_rDft##Dir##_Dir_##suffix;                         \
        static constexpr auto real_chirp = tavs_rDft##Dir##_Conv_##suffix;                         \
        static constexpr auto real_staged = tavs_rDft##Dir##_PrimeFact_##suffix;                   \
        static constexpr auto staged = tavs_cDft##Dir##_PrimeFact_##suffix##c;                     \
        static constexpr auto out_of_order = tavs_cDft##Dir##_OutOrd_##suffix##c;                  \
        static constexpr auto fft = tavsFFT##Dir##_CToC_##suffix##c;                               \
        static constexpr auto real_fft = tavsFFT##RealFft##_##suffix;                              \
    };
VOR_DFT_DIRECTED(float, forward, Fwd, 32f, Fwd_RToPerm)
VOR_DFT_DIRECTED(float, backward, Inv, 32f, Inv_PermToR)
VOR_DFT_DIRECTED(double, forward, Fwd, 64f, Fwd_RToPerm)
VOR_DFT_DIRECTED(double, backward, Inv, 64f, Inv_PermToR)

#define VOR_DFT_UNDIRECTED(T, suffix)                                                              \
    template <>                                                                                    \
    struct Shared<T> {                                                                             \
        static constexpr auto direct = tavs_cDft_Dir_##suffix##c;                                  \
        static constexpr auto chirp = tavs_cDft_Conv_##suffix##c;                                  \
        static constexpr auto multiply = tavs_cbMpy3_##suffix##c;                                  \
        static constexpr auto conjugate = tavs_cbConj2_##suffix##c;                                \
        static constexpr auto zero = tavs_cbZero_##suffix##c;                                      \
        static constexpr auto scale = tavs_rbMpy1_##suffix;                                        \
        static constexpr auto base_table = tavs_createTabDftBase_##suffix;                         \
        static constexpr auto direct_table = tavs_createTabDftDir_##suffix;                        \
        static constexpr auto forward_recombination = tavs_createTabDftFwdRec_##suffix;            \
        static constexpr auto inverse_recombination = tavs_createTabDftInvRec_##suffix;            \
        static constexpr auto init_stages = tavs_initDftPrimeFact_##suffix;                        \
        static constexpr auto init_chirp = tavs_initDftConv_##suffix;                              \
        static constexpr auto recombine_forward = tavs_rDftFwdRecombine_##suffix;                  \
        static constexpr auto recombine_inverse = tavs_rDftInvRecombine_##suffix;                  \
        static constexpr auto fft_init = tavsFFTInitAlloc_C_##suffix##c;                           \
        static constexpr auto fft_free = tavsFFTFree_C_##suffix##c;                                \
        static constexpr auto fft_buffer = tavsFFTGetBufSize_C_##suffix##c;                        \
    };
VOR_DFT_UNDIRECTED(float, 32f)
VOR_DFT_UNDIRECTED(double, 64f)

} // namespace vor::dft
