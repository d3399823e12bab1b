// Cross-correlation of real vectors: dst[k] = sum over i of src1[i] src2[i + k + lowLag], elements
// outside src2 being 0. By spectra if there is enough work, else by direct sums over three regions of
// lags: growing, full and shrinking overlap.
#include "signal/convolution.h"
#include "signal/filters.h"
#include "signal/spectral.h"

#include <string.h>

namespace vor::signal {
namespace {

// The measure of work (outputs times the ratio of the lengths) above which spectra are cheaper.
template <class R>
constexpr int kDirectWork = sizeof(R) == 4 ? 383 : 511;

template <class R>
struct Filters;
template <>
struct Filters<float> {
    static constexpr auto forward = ownForwFilter_32f, backward = ownBackFilter_32f;
    static constexpr auto first = ownFirstTriangle_32f, last = ownLastTriangle_32f;
};
template <>
struct Filters<double> {
    static constexpr auto forward = ownForwFilter_64f, backward = ownBackFilter_64f;
    static constexpr auto first = ownFirstTriangle_64f, last = ownLastTriangle_64f;
};

int least(int a, int b) {
    return a < b ? a : b;
}

template <class R>
struct Correlation {
    const R* src1;
    int len1;
    const R* src2;
    int len2;
    R* dst;
    int count; // outputs still to be written at dst
    int lag;   // of the first of them

    int shorter() const { return least(len1, len2); }
    int difference() const { return len1 > len2 ? len1 - len2 : len2 - len1; }
    void advance(int c) {
        dst += c;
        lag += c;
        count -= c;
    }
};

// `value` within 0 to `count`.
int clamped(int64_t value, int count) {
    return value < 0 ? 0 : value < count ? static_cast<int>(value) : count;
}

// src1 longer: the full overlap lies at negative lags, where the signal src1 moves backward.
template <class R>
void direct_longer_first(Correlation<R> c) {
    using F = Filters<R>;
    const int taps = c.len2, difference = c.difference();
    if (c.lag < -difference) {
        const int outputs = -c.lag - difference, wanted = least(outputs, c.count);
        const int skipped = outputs - wanted;
        F::first(c.src1 + difference + 1 + skipped, c.src2, taps - 1 - skipped, c.dst + wanted - 1,
                 wanted);
        c.advance(wanted);
    }
    if (c.lag < 0 && c.count > 0) {
        const int outputs = least(-c.lag, difference), wanted = least(outputs, c.count);
        F::backward(c.src1 + outputs, c.src2, taps, c.dst, wanted);
        c.advance(wanted);
    }
    if (c.count > 0)
        F::last(c.src2 + c.lag, c.src1, taps - c.lag, c.dst, least(taps - c.lag, c.count));
}

template <class R>
void direct_longer_second(Correlation<R> c) {
    using F = Filters<R>;
    const int taps = c.len1, difference = c.difference();
    if (c.lag < 0) {
        const int wanted = least(-c.lag, c.count), skipped = -c.lag - wanted;
        F::first(c.src1 + 1 + skipped, c.src2, taps - 1 - skipped, c.dst + wanted - 1, wanted);
        c.advance(wanted);
    }
    if (c.count > 0 && c.lag < difference) {
        const int wanted = least(difference - c.lag, c.count);
        F::forward(c.src2 + c.lag, c.src1, taps, c.dst, wanted);
        c.advance(wanted);
    }
    if (c.count > 0) {
        const int past = c.lag - difference;
        F::last(c.src2 + c.lag, c.src1, taps - past, c.dst, least(taps - past, c.count));
    }
}

template <class R>
TavStatus by_spectra(const R* src1, int len1, const R* src2, int len2, R* dst, int count,
                     int offset) {
    using F = Routines<R>;
    const int64_t points = int64_t{len1} + len2 - 1;
    const RealFft<R> fft(points < 3 ? 1 : order_of(points, 2));
    if (fft.status() != tavStsNoErr) return fft.status();
    const int n = fft.n();
    // Without it the transforms find their own.
    void* const work = tavsMalloc_8u(fft.work_bytes());
    const Block<R> block(2 * int64_t{n});
    R *a = block.get(), *b = a + n;
    TavStatus status = a ? tavStsNoErr : tavStsMemAllocErr;
    if (status == tavStsNoErr) {
        copy_padded(src1, len1, a, n);
        status = F::pack[0](a, a, fft.object(), work);
    }
    if (status == tavStsNoErr) {
        if (len1 > 1) F::zero(b, len1 - 1);
        copy_padded(src2, len2, b + len1 - 1, n - len1 + 1);
        status = F::pack[0](b, b, fft.object(), work);
    }
    if (status == tavStsNoErr) {
        F::multiply_pack_conjugate(b, a, n);
        status = F::pack[1](a, b, fft.object(), work);
    }
    if (status == tavStsNoErr) F::copy(b + offset, dst, count);
    tavsFree(work);
    return status;
}

// All outputs of c have some overlap.
template <class R>
TavStatus correlate_overlapping(const Correlation<R>& c) {
    const int longer = c.len1 > c.len2 ? c.len1 : c.len2;
    const float work =
        static_cast<float>(c.count) * static_cast<float>(c.shorter()) / static_cast<float>(longer);
    if (static_cast<int>(work) > kDirectWork<R>)
        return by_spectra(c.src1, c.len1, c.src2, c.len2, c.dst, c.count, c.lag + c.len1 - 1);
    if (c.len1 > c.len2)
        direct_longer_first(c);
    else
        direct_longer_second(c);
    return tavStsNoErr;
}

template <class R>
TavStatus correlate(Correlation<R> c) {
    if (!c.src1 || !c.src2 || !c.dst) return tavStsNullPtrErr;
    if (c.len1 < 1 || c.len2 < 1 || c.count < 1) return tavStsSizeErr;
    R* const dst = c.dst;
    const int leading = clamped(int64_t{1} - c.len1 - c.lag, c.count);
    const int overlapping = clamped(int64_t{c.len2} - c.lag, c.count) - leading;
    const int trailing = c.count - leading - (overlapping > 0 ? overlapping : 0);
    if (overlapping > 0) {
        c.advance(leading);
        c.count = overlapping;
        if (const TavStatus status = correlate_overlapping(c)) return status;
    }
    // Last, so that a failure leaves all of dst as it was.
    memset(dst, 0, leading * sizeof(R));
    memset(dst + leading + (overlapping > 0 ? overlapping : 0), 0, trailing * sizeof(R));
    return tavStsNoErr;
}

} // namespace
} // namespace vor::signal

#define CORRELATION(name, by_fft, R)                                                               \
    extern "C" TavStatus by_fft(const R* src1, int len1, const R* src2, int len2, R* dst,          \
                                int dstLen, int offset) {                                          \
        return vor::signal::by_spectra(src1, len1, src2, len2, dst, dstLen, offset);               \
    }                                                                                              \
    extern "C" TavStatus name(const R* src1, int len1, const R* src2, int len2, R* dst,            \
                              int dstLen, int lowLag) {                                            \
        return vor::signal::correlate<R>({src1, len1, src2, len2, dst, dstLen, lowLag});           \
    }
CORRELATION(tavsCrossCorr_32f, ownCrossByFFT_32f, float)
CORRELATION(tavsCrossCorr_64f, ownCrossByFFT_64f, double)
