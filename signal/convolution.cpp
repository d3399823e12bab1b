// Linear convolution of real vectors: dst[k] = sum over i of src1[i] src2[k - i], k from 0 to
// len1 + len2 - 2. By spectra if both vectors are long enough, else by the direct sum.
#include "signal/convolution.h"

#include "signal/kernel/filters_32.h"
#include "signal/spectral.h"

#include <string.h>

namespace vor::signal {
namespace {

// From these lengths on the spectra are cheaper than the direct sum.
constexpr int kSpectralOutputs = 256;
constexpr int kSpectralShorter = 32;
// Up to this ratio of the lengths one product of spectra, above it overlap-save.
constexpr int kOneProductRatio = 3;
constexpr int kChunk = 4096; // elements of the longer vector that stay in the cache
constexpr int kLeastOrder = 2;

template <class R>
struct Pair {
    const R* longer;
    int n;
    const R* shorter;
    int m;
    int outputs() const { return n + m - 1; }
};

template <class R>
TavStatus one_product(const Pair<R>& pair, R* dst) {
    using F = Routines<R>;
    const int outputs = pair.outputs();
    const RealFft<R> fft(order_of(outputs, kLeastOrder));
    if (fft.status() != tavStsNoErr) return fft.status();
    const int n = fft.n();
    const Block<R> block(2 * int64_t{n} + fft.work_elements());
    R *a = block.get(), *b = a + n, *work = fft.work_bytes() ? b + n : nullptr;
    if (!a) return tavStsMemAllocErr;
    copy_padded(pair.longer, pair.n, a, n);
    copy_padded(pair.shorter, pair.m, b, n);
    F::perm[0](a, a, fft.object(), work);
    F::perm[0](b, b, fft.object(), work);
    F::multiply_perm(a, b, n);
    const TavStatus status = F::perm[1](b, b, fft.object(), work);
    F::copy(b, dst, outputs);
    return status;
}

// Blocks of N points, each of which yields the outputs that do not see the wrap of the circular product.
template <class R>
TavStatus overlap_save(const Pair<R>& pair, R* dst) {
    using F = Routines<R>;
    const RealFft<R> fft(order_of(2 * int64_t{pair.m}, kLeastOrder) + 1);
    if (fft.status() != tavStsNoErr) return fft.status();
    const int n = fft.n(), step = n - pair.m + 1, outputs = pair.outputs();
    const Block<R> block(2 * int64_t{n} + fft.work_elements() + 1);
    R *a = block.get(), *b = a + n, *work = fft.work_bytes() ? b + n : nullptr;
    if (!a) return tavStsMemAllocErr;
    copy_padded(pair.shorter, pair.m, a, n);
    TavStatus status = F::perm[0](a, a, fft.object(), work);
    for (int64_t pos = 0; pos < outputs && status == tavStsNoErr; pos += step) {
        const int at = static_cast<int>(pos), overlap = at ? pair.m - 1 : 0;
        const int left = pair.n - at + overlap, room = overlap + step;
        const R* in = pair.longer + at - overlap;
        if (left < n || room < n) {
            copy_padded(in, left < room ? left : room, b, n);
            in = b;
        }
        status = F::perm[0](in, b, fft.object(), work);
        if (status != tavStsNoErr) break;
        F::multiply_perm(a, b, n);
        status = F::perm[1](b, b, fft.object(), work);
        if (status != tavStsNoErr) break;
        F::copy(b + overlap, dst + at, outputs - at < step ? outputs - at : step);
    }
    return status;
}

void accumulate(const float* longer, int n, const float* shorter, int m, float* dst) {
    ownConv_32f(longer, n, shorter, m, dst);
}
void accumulate(const double* longer, int n, const double* shorter, int m, double* dst) {
    for (int j = 0; j < m; ++j, ++dst) {
        const double tap = shorter[j];
        int i = 0;
        for (; i + 4 <= n; i += 4) {
            dst[i] += longer[i] * tap;
            dst[i + 1] += longer[i + 1] * tap;
            dst[i + 2] += longer[i + 2] * tap;
            dst[i + 3] += longer[i + 3] * tap;
        }
        for (; i < n; ++i) dst[i] += longer[i] * tap;
    }
}

// Chunk by chunk of the longer vector; a chunk clears the outputs that no chunk before it reached.
template <class R>
TavStatus direct(const Pair<R>& pair, R* dst) {
    const int tail = pair.m - 1;
    memset(dst, 0, tail * sizeof(R));
    for (int i = 0, c; i < pair.n; i += c) {
        c = pair.n - i < kChunk ? pair.n - i : kChunk;
        memset(dst + i + tail, 0, c * sizeof(R));
        accumulate(pair.longer + i, c, pair.shorter, pair.m, dst + i);
    }
    return tavStsNoErr;
}

template <class R>
TavStatus convolve(const R* src1, int len1, const R* src2, int len2, R* dst) {
    if (!src1 || !src2 || !dst) return tavStsNullPtrErr;
    if (len1 < 1 || len2 < 1) return tavStsSizeErr;
    const Pair<R> pair =
        len1 >= len2 ? Pair<R>{src1, len1, src2, len2} : Pair<R>{src2, len2, src1, len1};
    if (pair.outputs() < kSpectralOutputs || pair.m < kSpectralShorter) return direct(pair, dst);
    return pair.n < kOneProductRatio * int64_t{pair.m} ? one_product(pair, dst)
                                                       : overlap_save(pair, dst);
}

// Taps j to j + taps - 1 over all of x: outputs j to j + n + taps - 2. Those in the middle see all taps.
void pass(const float* x, int n, const float* t, int taps, float* out) {
    float reversed[4];
    for (int a = 0; a < taps; ++a) reversed[a] = t[taps - 1 - a];
    const auto edge = [&](int k) { // an output at either end
        for (int a = 0; a < taps; ++a)
            if (k >= a && k - a < n) out[k] += x[k - a] * t[a];
    };
    for (int k = 0; k < taps - 1; ++k) edge(k);
    add_some_taps<false>(taps, x, reversed, out + taps - 1, n - taps + 1);
    for (int k = n; k < n + taps - 1; ++k) edge(k);
}

} // namespace
} // namespace vor::signal

extern "C" void ownConv_32f(const float* longer, int n, const float* shorter, int m, float* dst) {
    constexpr int kLeastLonger = 8; // below, the passes have no middle worth the vectors
    if (n < kLeastLonger) {
        for (int j = 0; j < m; ++j)
            for (int i = 0; i < n; ++i) dst[i + j] += longer[i] * shorter[j];
        return;
    }
    for (int j = 0; j < m; j += 4)
        vor::signal::pass(longer, n, shorter + j, m - j < 4 ? m - j : 4, dst + j);
}

extern "C" TavStatus tavsConv_32f(const float* src1, int len1, const float* src2, int len2,
                                  float* dst) {
    return vor::signal::convolve(src1, len1, src2, len2, dst);
}
extern "C" TavStatus tavsConv_64f(const double* src1, int len1, const double* src2, int len2,
                                  double* dst) {
    return vor::signal::convolve(src1, len1, src2, len2, dst);
}
