// What the block engines of the matrix product are made of: GemmLeaves<T>, one table for each type.
// Sizes of blocks and panels, and the routines for packing (gemm_pack.h), for full panels and for what
// fills none (gemm_kernels.h).
//
// All of it belongs to this processor level: the sizes are what its registers and caches hold.
#pragma once

#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_operand.h"
#include "blas/kernel/gemm_pack.h"

namespace vor::blas {

template <class T>
struct GemmKernel {
    using Real = void PARAMS_GEMM_KERNEL(T);
    using Complex = void PARAMS_GEMM_KERNEL_Z(T);
    int rows;
    std::conditional_t<is_complex<T>, Complex, Real>* run;
};

// A tail of `from` or more steps (and fewer than the next row of the table says) runs `depth` of them
// in panels.
template <class T>
struct GemmTail {
    int from, depth;
    GemmKernel<T> kernel;
};

template <class T>
using GemmPost = void PARAMS_GEMM_POST(T);
template <class T>
using GemmPackA = void PARAMS_PACK_A(T);
template <class T>
using GemmPackB = void PARAMS_PACK_B(T);

// A block of C has `rows` and `columns`, and takes k in steps of `depth`. Tables by Op: pack_a by that of
// A, pack_b by that of B, of which plain columns are read in place; post and, for the rows that are left
// over by a full step in k, edge by both.
template <class T>
struct GemmLeaves;

template <>
struct GemmLeaves<float> {
    static constexpr int rows = 256, columns = 256, depth = 64, least_rows = 16;
    static constexpr int tail_columns = 256, tail_rows = 32, padded_from = 58;
    static constexpr unsigned a_bytes = 8320, b_bytes = 0x10080, alignment = 32;

    static constexpr GemmKernel<float> panels[] = {{32, vor_blas_sin32_64},
                                                   {16, vor_blas_sin16_64}};
    static constexpr GemmTail<float> tails[] = {{48, 48, {32, vor_blas_sin32_48}},
                                                {32, 32, {32, vor_blas_sin32_32}},
                                                {16, 16, {32, vor_blas_sin32_16}}};
    static constexpr GemmPackA<float>* pack_a[] = {vor_blas_sgtran, vor_blas_sgtrat};
    static constexpr GemmPackB<float>* pack_b[] = {nullptr, vor_blas_sgtrbn};
    using PackAPadded = void PARAMS_PACK_A_PADDED(float);
    static constexpr PackAPadded* pack_a_padded[] = {vor_blas_sgtranp, vor_blas_sgtratp};
    using PackBPadded = void PARAMS_PACK_B_PADDED(float);
    static constexpr PackBPadded* pack_b_padded[] = {vor_blas_sgtrbnp, vor_blas_sgtrbtp};
    static constexpr GemmPost<float>* post[][2] = {{vor_blas_spst_nnk, vor_blas_spst_ntk},
                                                   {vor_blas_spst_tnk, vor_blas_spst_ttk}};
    static constexpr auto& edge = post;
};

template <>
struct GemmLeaves<double> {
    static constexpr int rows = 128, columns = 128, depth = 64, least_rows = 4;
    static constexpr int tail_columns = 256, tail_rows = 32, padded_from = 58;
    static constexpr unsigned a_bytes = 8208, b_bytes = 0x20010, alignment = 1;

    static constexpr GemmKernel<double> panels[] = {
        {16, vor_blas_din16_64}, {8, vor_blas_din8_64}, {4, vor_blas_din4_64}};
    static constexpr GemmTail<double> tails[] = {{48, 48, {16, vor_blas_din16_48}},
                                                 {32, 32, {32, vor_blas_din32_32}},
                                                 {16, 16, {32, vor_blas_din32_16}}};
    static constexpr GemmPackA<double>* pack_a[] = {vor_blas_dgtran, vor_blas_dgtrat};
    static constexpr GemmPackB<double>* pack_b[] = {nullptr, vor_blas_dgtrbn};
    using PackAPadded = void PARAMS_PACK_A_PADDED(double);
    static constexpr PackAPadded* pack_a_padded[] = {vor_blas_dgtranp, vor_blas_dgtratp};
    using PackBPadded = void PARAMS_PACK_B_PADDED(double);
    static constexpr PackBPadded* pack_b_padded[] = {vor_blas_dgtrbnp, vor_blas_dgtrbtp};
    static constexpr GemmPost<double>* post[][2] = {{vor_blas_dpst_nnk, vor_blas_dpst_ntk},
                                                    {vor_blas_dpst_tnk, vor_blas_dpst_ttk}};
    static constexpr GemmPost<double>* edge[][2] = {{vor_blas_dpst_nnm, vor_blas_dpst_ntm},
                                                    {vor_blas_dpst_tnm, vor_blas_dpst_ttm}};
};

template <>
struct GemmLeaves<cdouble> {
    static constexpr int rows = 128, columns = 64, depth = 32, least_rows = 4;
    static constexpr int tail_columns = 128, tail_rows = 32, padded_from = depth;
    static constexpr unsigned a_bytes = 8208, b_bytes = 0x10010, alignment = 1;

    static constexpr GemmKernel<cdouble> panels[] = {
        {16, vor_blas_zin16_32}, {8, vor_blas_zin8_32}, {4, vor_blas_zin4_32}};
    static constexpr GemmTail<cdouble> tails[] = {{24, 24, {16, vor_blas_zin16_24}},
                                                  {16, 16, {32, vor_blas_zin32_16}}};
    using PackA = void PARAMS_PACK_A_Z(cdouble);
    static constexpr PackA* pack_a[] = {vor_blas_zgtran, vor_blas_zgtrat, vor_blas_zgtrac};
    static constexpr GemmPackB<cdouble>* pack_b[] = {nullptr, vor_blas_zgtrbt, vor_blas_zgtrbc};
    using Post = void PARAMS_XGEMM(cdouble);
    static constexpr Post* post[][3] = {{vor_blas_zpst_nn, vor_blas_zpst_nt, vor_blas_zpst_nc},
                                        {vor_blas_zpst_tn, vor_blas_zpst_tt, vor_blas_zpst_tc},
                                        {vor_blas_zpst_cn, vor_blas_zpst_ct, vor_blas_zpst_cc}};
    static constexpr auto& edge = post;
};

// The c engine works on a copy of C, in groups of rows, in one scratch buffer: the offsets of its parts in
// bytes, from the first multiple of `alignment` behind its start.
template <>
struct GemmLeaves<cfloat> {
    static constexpr int rows = 512, columns = 192, depth = 64;
    static constexpr int group = 8, half = 4; // rows of the two panels; a group of C
    static constexpr int tail_step = 16;      // of k in a panel of the tail
    static constexpr unsigned bytes = 901248, alignment = 64, b_panel = 0x4000, c_block = 0x1C000;
    static_assert(c_block + rows * columns * sizeof(cfloat) + alignment <= bytes);
    static_assert(b_panel + columns * depth * sizeof(cfloat) <= c_block);

    using Kernel = void PARAMS_GEMM_KERNEL_C;
    static constexpr Kernel *group_kernel = vor_blas_cin8_64, *half_kernel = vor_blas_cin4_64;
    static constexpr Kernel* tails[] = {nullptr, vor_blas_cin8_16, vor_blas_cin8_32,
                                        vor_blas_cin8_48};
    using PackA = void PARAMS_PACK_A_C;
    static constexpr PackA* pack_a[] = {vor_blas_cgtran, vor_blas_cgtrat, vor_blas_cgtrac};
    using PackB = void PARAMS_PACK_B_C;
    static constexpr PackB* pack_b[] = {vor_blas_cgcopybn, vor_blas_cgcopybt, vor_blas_cgcopybc};
};

} // namespace vor::blas
