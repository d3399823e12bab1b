// The calls of the signal primitives by element type: what works on FFT objects of that type, and for
// reals the products of their spectra and the calls on memory.
#pragma once

#include "signal/direction.h"
#include "signal/fft/kernels.h"
#include "vor_signal.h"

namespace vor::signal {

template <class E>
struct Routines;

template <>
struct Routines<cfloat> {
    static constexpr auto build = tavsFFTInitAlloc_C_32fc;
    static constexpr auto release = tavsFFTFree_C_32fc;
    static constexpr auto buffer_size = tavsFFTGetBufSize_C_32fc;
    // Arrays are indexed by the direction.
    static constexpr decltype(&tavsFFTFwd_CToC_32fc) transform[] = {tavsFFTFwd_CToC_32fc,
                                                                    tavsFFTInv_CToC_32fc};
};
template <>
struct Routines<float> {
    static constexpr auto build = tavsFFTInitAlloc_R_32f;
    static constexpr auto release = tavsFFTFree_R_32f;
    static constexpr auto buffer_size = tavsFFTGetBufSize_R_32f;
    static constexpr decltype(&tavsFFTFwd_RToPerm_32f) perm[] = {tavsFFTFwd_RToPerm_32f,
                                                                 tavsFFTInv_PermToR_32f};
    static constexpr decltype(&tavsFFTFwd_RToPack_32f) pack[] = {tavsFFTFwd_RToPack_32f,
                                                                 tavsFFTInv_PackToR_32f};
    static constexpr auto multiply_perm = tavsMulPerm_32f_I;
    static constexpr auto multiply_pack_conjugate = tavsMulPackConj_32f_I;
    static constexpr auto scale = tavs_rbMpy1_32f;
    static constexpr auto allocate = tavsMalloc_32f;
    static constexpr auto copy = tavsCopy_32f;
    static constexpr auto zero = tavsZero_32f;
};

template <>
struct Routines<cdouble> {
    static constexpr auto build = tavsFFTInitAlloc_C_64fc;
    static constexpr auto release = tavsFFTFree_C_64fc;
    static constexpr auto buffer_size = tavsFFTGetBufSize_C_64fc;
    static constexpr decltype(&tavsFFTFwd_CToC_64fc) transform[] = {tavsFFTFwd_CToC_64fc,
                                                                    tavsFFTInv_CToC_64fc};
};
template <>
struct Routines<double> {
    static constexpr auto build = tavsFFTInitAlloc_R_64f;
    static constexpr auto release = tavsFFTFree_R_64f;
    static constexpr auto buffer_size = tavsFFTGetBufSize_R_64f;
    static constexpr decltype(&tavsFFTFwd_RToPerm_64f) perm[] = {tavsFFTFwd_RToPerm_64f,
                                                                 tavsFFTInv_PermToR_64f};
    static constexpr decltype(&tavsFFTFwd_RToPack_64f) pack[] = {tavsFFTFwd_RToPack_64f,
                                                                 tavsFFTInv_PackToR_64f};
    static constexpr auto multiply_perm = tavsMulPerm_64f_I;
    static constexpr auto multiply_pack_conjugate = tavsMulPackConj_64f_I;
    static constexpr auto scale = tavs_rbMpy1_64f;
    static constexpr auto allocate = tavsMalloc_64f;
    static constexpr auto copy = tavsCopy_64f;
    static constexpr auto zero = tavsZero_64f;
};

// routine[kWay<D>]
template <Direction D>
constexpr int kWay = static_cast<int>(D);

} // namespace vor::signal
