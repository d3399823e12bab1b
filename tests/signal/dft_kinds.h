// The DFT calls by kind of object, and an object with its work buffer.
#pragma once

#include "tests/common/fourier.h"
#include "vor_signal.h"

namespace vor::test {

template <class E>
using DftTransform = TavStatus (*)(const E*, E*, const DftCtx*, void*);

// Forward and inverse transform in one storage format (complex data: natural order, Format::perm).
template <class E>
struct DftPair {
    DftTransform<E> forward, inverse;
    Format format;
};

template <class E_>
struct DftKindOf {
    using E = E_;
    using R = real_t<E>;
    static constexpr bool kComplex = is_complex<E>;
};

#define DFT_KIND(Kind, family, element, suffix, ...)                                               \
    struct Kind : DftKindOf<element> {                                                             \
        static constexpr auto build = tavs##family##InitAlloc_##suffix;                            \
        static constexpr auto release = tavs##family##Free_##suffix;                               \
        static constexpr auto buffer_size = tavs##family##GetBufSize_##suffix;                     \
        static constexpr DftPair<element> calls[] = {__VA_ARGS__};                                 \
    };
#define DFT_COMPLEX(family, suffix)                                                                \
    { tavs##family##Fwd_CToC_##suffix, tavs##family##Inv_CToC_##suffix, Format::perm }
#define DFT_REAL(suffix)                                                                           \
    {tavsDFTFwd_RToPerm_##suffix, tavsDFTInv_PermToR_##suffix, Format::perm},                      \
        {tavsDFTFwd_RToPack_##suffix, tavsDFTInv_PackToR_##suffix, Format::pack}, {                \
        tavsDFTFwd_RToCCS_##suffix, tavsDFTInv_CCSToR_##suffix, Format::ccs                        \
    }
DFT_KIND(DftComplex32, DFT, cfloat, C_32fc, DFT_COMPLEX(DFT, 32fc))
DFT_KIND(DftComplex64, DFT, cdouble, C_64fc, DFT_COMPLEX(DFT, 64fc))
DFT_KIND(DftOutOfOrder32, DFTOutOrd, cfloat, C_32fc, DFT_COMPLEX(DFTOutOrd, 32fc))
DFT_KIND(DftOutOfOrder64, DFTOutOrd, cdouble, C_64fc, DFT_COMPLEX(DFTOutOrd, 64fc))
DFT_KIND(DftReal32, DFT, float, R_32f, DFT_REAL(32f))
DFT_KIND(DftReal64, DFT, double, R_64f, DFT_REAL(64f))

// An object and a work buffer of exactly the size it asks for, `offset` bytes off alignment.
template <class Kind>
class DftObject {
public:
    explicit DftObject(int n, int flag = TAV_FFT_NODIV_BY_ANY, size_t offset = 0) {
        int bytes = -1;
        if (Kind::build(&object_, n, flag, 0) == tavStsNoErr) Kind::buffer_size(object_, &bytes);
        bytes_ = bytes;
        buffer_ = std::make_unique<Guarded<unsigned char>>(bytes > 0 ? bytes : 0, offset);
    }
    ~DftObject() {
        if (object_) Kind::release(object_);
    }
    DftObject(const DftObject&) = delete;
    DftObject& operator=(const DftObject&) = delete;

    const DftCtx* get() const { return object_; }
    int bytes() const { return bytes_; }
    void* buffer() { return bytes_ > 0 ? buffer_->data() : nullptr; }
    bool intact() const { return buffer_->intact(); }

private:
    DftCtx* object_ = nullptr;
    int bytes_;
    std::unique_ptr<Guarded<unsigned char>> buffer_;
};

// The spectrum of the same values in the other direction.
inline Spectrum mirrored(Spectrum x) {
    std::reverse(x.begin() + 1, x.end());
    return x;
}

// A sequence or a spectrum as the reals that the transforms of a kind read or write.
using Reals = std::vector<long double>;

inline Reals interleaved(const Spectrum& x) {
    Reals r;
    for (const Wide& v : x) r.insert(r.end(), {v.real(), v.imag()});
    return r;
}

inline Reals real_parts(const Spectrum& x) {
    Reals r;
    for (const Wide& v : x) r.push_back(v.real());
    return r;
}

template <class Kind>
Reals signal_of(const Spectrum& x) {
    return Kind::kComplex ? interleaved(x) : real_parts(x);
}

template <class Kind>
Reals spectrum_of(const Spectrum& x, Format format) {
    return Kind::kComplex ? interleaved(x) : stored(x, format);
}

// Elements of a kind from such reals, rounded.
template <class Kind>
Guarded<typename Kind::E> elements(const Reals& reals, size_t offset = 0) {
    Guarded<typename Kind::E> x(reals.size() / (Kind::kComplex ? 2 : 1), offset);
    auto* const out = reinterpret_cast<typename Kind::R*>(x.data());
    for (size_t i = 0; i < reals.size(); ++i) out[i] = static_cast<typename Kind::R>(reals[i]);
    return x;
}

// Error of the elements at `got`, whose transform has length n.
template <class Kind>
double error_of(const typename Kind::E* got, const Reals& want, size_t n) {
    return relative_error(reinterpret_cast<const typename Kind::R*>(got), want, n);
}

} // namespace vor::test
