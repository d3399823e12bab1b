// The FFT calls by element type, for tests with one body for both precisions.
#pragma once

#include "tests/common/fourier.h"
#include "vor_signal.h"

namespace vor::test {

using Build = TavStatus (*)(FftCtx**, int, int, int);
using Release = TavStatus (*)(FftCtx*);
using BufferSize = TavStatus (*)(const FftCtx*, int*);
template <class T>
using Transform = TavStatus (*)(const T*, T*, const FftCtx*, void*);

// E: what the transforms take, complex elements or reals.
template <class E>
struct FftCalls;

template <>
struct FftCalls<cfloat> {
    static constexpr Build build = tavsFFTInitAlloc_C_32fc;
    static constexpr Release release = tavsFFTFree_C_32fc;
    static constexpr BufferSize buffer_size = tavsFFTGetBufSize_C_32fc;
    static constexpr Transform<cfloat> forward = tavsFFTFwd_CToC_32fc;
    static constexpr Transform<cfloat> inverse = tavsFFTInv_CToC_32fc;
};
template <>
struct FftCalls<cdouble> {
    static constexpr Build build = tavsFFTInitAlloc_C_64fc;
    static constexpr Release release = tavsFFTFree_C_64fc;
    static constexpr BufferSize buffer_size = tavsFFTGetBufSize_C_64fc;
    static constexpr Transform<cdouble> forward = tavsFFTFwd_CToC_64fc;
    static constexpr Transform<cdouble> inverse = tavsFFTInv_CToC_64fc;
};

// Reals: spectra in Perm or Pack.
template <class R>
struct RealCalls {
    Transform<R> forward, inverse;
    Format format;
};

template <>
struct FftCalls<float> {
    static constexpr Build build = tavsFFTInitAlloc_R_32f;
    static constexpr Release release = tavsFFTFree_R_32f;
    static constexpr BufferSize buffer_size = tavsFFTGetBufSize_R_32f;
    static constexpr RealCalls<float> formats[] = {
        {tavsFFTFwd_RToPerm_32f, tavsFFTInv_PermToR_32f, Format::perm},
        {tavsFFTFwd_RToPack_32f, tavsFFTInv_PackToR_32f, Format::pack}};
};
template <>
struct FftCalls<double> {
    static constexpr Build build = tavsFFTInitAlloc_R_64f;
    static constexpr Release release = tavsFFTFree_R_64f;
    static constexpr BufferSize buffer_size = tavsFFTGetBufSize_R_64f;
    static constexpr RealCalls<double> formats[] = {
        {tavsFFTFwd_RToPerm_64f, tavsFFTInv_PermToR_64f, Format::perm},
        {tavsFFTFwd_RToPack_64f, tavsFFTInv_PackToR_64f, Format::pack}};
};

// An object and a work buffer of the size it asks for.
template <class E>
class FftObject {
    using Calls = FftCalls<E>;

public:
    explicit FftObject(int order, int flag = TAV_FFT_NODIV_BY_ANY) {
        int bytes = 0;
        if (Calls::build(&object_, order, flag, 0) == tavStsNoErr)
            Calls::buffer_size(object_, &bytes);
        buffer_.resize(bytes);
    }
    ~FftObject() {
        if (object_) Calls::release(object_);
    }
    FftObject(const FftObject&) = delete;
    FftObject& operator=(const FftObject&) = delete;

    const FftCtx* get() const { return object_; }
    void* buffer() { return buffer_.empty() ? nullptr : buffer_.data(); }

private:
    FftCtx* object_ = nullptr;
    std::vector<char> buffer_;
};

} // namespace vor::test
