// The complex engine of a transform of order 4 and up (complex) or of a real one: bit reversal, kernel
// or large transform, scale.
#pragma once

#include "signal/fft/kernels.h"
#include "signal/object.h"

namespace vor::fft {

// The kernels of a precision. Arrays are indexed by the direction.
template <class R>
struct Routines;

template <>
struct Routines<float> {
    static constexpr auto reverse_in_place = tavs_BitRev1_C;
    static constexpr auto reverse = tavs_BitRev2_C;
    static constexpr auto scale = tavs_rbMpy1_32f;
    static constexpr decltype(&tavs_cRadix4Fwd_32fc) kernel[] = {tavs_cRadix4Fwd_32fc,
                                                                 tavs_cRadix4Inv_32fc};
    static constexpr decltype(&tavs_cRadix4FwdNorm_32fc) natural_kernel[] = {
        tavs_cRadix4FwdNorm_32fc, tavs_cRadix4InvNorm_32fc};
    static constexpr decltype(&tavs_cFftFwd_Large_32fc) large[] = {tavs_cFftFwd_Large_32fc,
                                                                   tavs_cFftInv_Large_32fc};
};

template <>
struct Routines<double> {
    static constexpr auto reverse_in_place = tavs_BitRev1_Z;
    static constexpr auto reverse = tavs_BitRev2_Z;
    static constexpr auto scale = tavs_rbMpy1_64f;
    static constexpr decltype(&tavs_cRadix4Fwd_64fc) kernel[] = {tavs_cRadix4Fwd_64fc,
                                                                 tavs_cRadix4Inv_64fc};
    static constexpr decltype(&tavs_cFftFwd_Large_64fc) large[] = {tavs_cFftFwd_Large_64fc,
                                                                   tavs_cFftInv_Large_64fc};
};

// The kernels say `inverse`.
template <bool inverse>
constexpr Direction kDirection = inverse ? Direction::backward : Direction::forward;

// Transform of engine order m, at least 3, scaled as the object says.
template <Direction D, class R>
void run_engine(const FftCtx* object, const complex_t<R>* source, complex_t<R>* destination, int m,
                void* buffer) {
    using K = Routines<R>;
    constexpr int kWay = static_cast<int>(D);
    const auto& ctx = context_of<R>(object);
    const int n = 1 << m;
    if (m <= Traits<R>::kReadFormLimit) {
        if constexpr (sizeof(R) == 4)
            K::natural_kernel[kWay](source, destination, n, ctx.tabTwd, ctx.tabBitRev, buffer);
    } else {
        if (source == destination)
            K::reverse_in_place(destination, n, ctx.tabBitRev);
        else
            K::reverse(source, destination, n, ctx.tabBitRev);
        if (m > Traits<R>::kEngineLimit) return K::large[kWay](object, destination, m, buffer);
        if constexpr (sizeof(R) == 4)
            K::kernel[kWay](destination, n, ctx.tabTwd, buffer, 1);
        else
            K::kernel[kWay](destination, n, ctx.tabTwd);
    }
    if (signal::scales<D>(ctx)) K::scale(ctx.normFactor, &destination->re, 2 * n);
}

} // namespace vor::fft
