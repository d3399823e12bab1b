// The complex engine of a transform of order 4 and up (complex) or of a real one: bit reversal, kernel
// or large transform, scale. One choice for both precisions; the names of the kernels differ.
#pragma once

#include "signal/fft/kernels.h"
#include "signal/fft/straight_line.h"

namespace vor::fft {

inline void bit_reverse(const cfloat* from, cfloat* to, int n, const unsigned* table) {
    from == to ? tavs_BitRev1_C(to, n, table) : tavs_BitRev2_C(from, to, n, table);
}
inline void bit_reverse(const cdouble* from, cdouble* to, int n, const unsigned* table) {
    from == to ? tavs_BitRev1_Z(to, n, table) : tavs_BitRev2_Z(from, to, n, table);
}

inline void scale(float factor, cfloat* data, int n) {
    tavs_rbMpy1_32f(factor, &data->re, 2 * n);
}
inline void scale(double factor, cdouble* data, int n) {
    tavs_rbMpy1_64f(factor, &data->re, 2 * n);
}

// The kernel on bit-reversed data, interleaved result.
template <bool inverse>
void kernel(cfloat* data, int n, const void* table, void* buffer) {
    (inverse ? tavs_cRadix4Inv_32fc
             : tavs_cRadix4Fwd_32fc)(data, n, static_cast<const cfloat*>(table), buffer, 1);
}
template <bool inverse>
void kernel(cdouble* data, int n, const void* table, void*) {
    (inverse ? tavs_cRadix4Inv_64fc : tavs_cRadix4Fwd_64fc)(data, n,
                                                            static_cast<const cdouble*>(table));
}

template <bool inverse>
void large(const FftCtx& object, cfloat* data, int m, void* buffer) {
    (inverse ? tavs_cFftInv_Large_32fc : tavs_cFftFwd_Large_32fc)(&object, data, m, buffer);
}
template <bool inverse>
void large(const FftCtx& object, cdouble* data, int m, void* buffer) {
    (inverse ? tavs_cFftInv_Large_64fc : tavs_cFftFwd_Large_64fc)(&object, data, m, buffer);
}

// Transform of engine order m, at least 3, scaled as the object says.
template <bool inverse, class R>
void run_engine(const FftCtx& object, const complex_t<R>* source, complex_t<R>* destination, int m,
                void* buffer) {
    const int n = 1 << m;
    const auto* reversal = static_cast<const unsigned*>(object.tabBitRev);
    if (m <= Traits<R>::kReadFormLimit) {
        if constexpr (sizeof(R) == 4)
            (inverse ? tavs_cRadix4InvNorm_32fc : tavs_cRadix4FwdNorm_32fc)(
                source, destination, n, static_cast<const cfloat*>(object.tabTwd), reversal,
                buffer);
    } else {
        bit_reverse(source, destination, n, reversal);
        if (m > Traits<R>::kEngineLimit) return large<inverse>(object, destination, m, buffer);
        kernel<inverse>(destination, n, object.tabTwd, buffer);
    }
    if (scales<inverse>(object)) scale(Traits<R>::norm(object), destination, n);
}

} // namespace vor::fft
