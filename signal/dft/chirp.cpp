// Transforms of any length n by convolution with a chirp (Bluestein, IEEE Trans. Audio
// Electroacoust. 18, 1970). With c_k = exp(-pi i k^2 / n)
//
//     X[k] = c_k sum over j of (x[j] c_j) conj(c_(k-j))
//
// and the sum is a cyclic convolution of length M, the first power of two from 2n - 1 on, done by two
// FFTs of that length. The transform of conj(c), divided by M, is built with the object. The inverse
// transform is the forward one with its output index negated. The work buffer holds M elements, then
// that of the FFT.
#include "signal/dft/kernels.h"

namespace vor::dft {
namespace {

// c_k = W^(k^2) with W = exp(-2 pi i / (2n)); the exponents grow by 2k + 1, modulo 2n.
template <class C>
void fill_chirp(C* chirp, const C* base, int n) {
    for (int k = 0, i = 0; k < n; ++k) {
        chirp[k] = base[i];
        i += 2 * k + 1;
        if (i >= 2 * n) i -= 2 * n;
    }
}

template <class T, class C = complex_t<T>>
TavStatus build_convolution(Context<T>& ctx, int n, int order) {
    using K = Shared<T>;
    const int m = 1 << order;
    C* const response = ctx.tabChirpFft;
    K::conjugate(ctx.tabChirp, response, n);
    K::zero(response + n, m - n);
    for (int k = 1; k < n; ++k) response[m - k] = response[k];
    TavStatus status = K::fft_init(&ctx.fftConvSpec, order, TAV_FFT_NODIV_BY_ANY, 0);
    if (status == tavStsNoErr)
        status = Directed<T, Direction::forward>::fft(response, response, ctx.fftConvSpec, nullptr);
    if (status != tavStsNoErr) return status;
    K::scale(static_cast<T>(1.0L / m), &response->re, 2 * m);
    int fft_bytes = 0;
    K::fft_buffer(ctx.fftConvSpec, &fft_bytes);
    return set_buffer<C>(ctx, static_cast<size_t>(m), static_cast<size_t>(fft_bytes));
}

template <class T, class C = complex_t<T>>
TavStatus init_chirp(Context<T>& ctx, int n, const C* base, int baseLength) {
    using K = Shared<T>;
    // The base table of n elements exists, so 4n does not overflow.
    const int order = order_of(2 * n - 1);
    ctx.lenConvFft = 1 << order;
    ctx.tabChirp = allocate<C>(static_cast<size_t>(n));
    ctx.tabChirpFft = allocate<C>(static_cast<size_t>(ctx.lenConvFft));
    if (!ctx.tabChirp || !ctx.tabChirpFft) return tavStsMemAllocErr;
    C* const own = baseLength == n ? K::base_table(2 * n) : nullptr;
    if (baseLength == n && !own) return tavStsMemAllocErr;
    fill_chirp(ctx.tabChirp, own ? own : base, n);
    tavsFree(own);
    return build_convolution(ctx, n, order);
}

// Steps of a transform on `work`, whose first n elements are x[k] c_k.
template <class T, class C = complex_t<T>>
TavStatus convolve(const Context<T>& ctx, C* work, int n) {
    const int m = ctx.lenConvFft;
    Shared<T>::zero(work + n, m - n);
    TavStatus status = Directed<T, Direction::forward>::fft(work, work, ctx.fftConvSpec, work + m);
    if (status != tavStsNoErr) return status;
    Shared<T>::multiply(ctx.tabChirpFft, work, work, m);
    return Directed<T, Direction::backward>::fft(work, work, ctx.fftConvSpec, work + m);
}

template <class C>
void reverse(C* x, int count) {
    for (C* last = x + count - 1; x < last; ++x, --last) {
        const C t = *x;
        *x = *last;
        *last = t;
    }
}

template <class T, class C = complex_t<T>>
TavStatus complex_chirp(const Context<T>& ctx, const C* x, C* y, int n, int direction, C* work) {
    Shared<T>::multiply(ctx.tabChirp, x, work, n);
    const TavStatus status = convolve(ctx, work, n);
    if (status != tavStsNoErr) return status;
    Shared<T>::multiply(ctx.tabChirp, work, y, n);
    if (direction < 0) reverse(y + 1, n - 1);
    return tavStsNoErr;
}

// n odd, result in half-complex form.
template <class T, class C = complex_t<T>>
TavStatus real_chirp_forward(const Context<T>& ctx, const T* x, T* y, C* work) {
    const int n = ctx.lenDft;
    for (int k = 0; k < n; ++k) work[k] = x[k] * ctx.tabChirp[k];
    const TavStatus status = convolve(ctx, work, n);
    if (status != tavStsNoErr) return status;
    Shared<T>::multiply(ctx.tabChirp, work, work, n);
    y[0] = work[0].re;
    for (int k = 1; k <= (n - 1) / 2; ++k) {
        y[2 * k - 1] = work[k].re;
        y[2 * k] = work[k].im;
    }
    return tavStsNoErr;
}

// n odd, source in half-complex form: the forward transform of the conjugate spectrum.
template <class T, class C = complex_t<T>>
TavStatus real_chirp_inverse(const Context<T>& ctx, const T* x, T* y, C* work) {
    const int n = ctx.lenDft;
    work[0] = {x[0], 0};
    for (int k = 1; k <= (n - 1) / 2; ++k) {
        work[n - k] = {x[2 * k - 1], x[2 * k]};
        work[k] = conj(work[n - k]);
    }
    Shared<T>::multiply(ctx.tabChirp, work, work, n);
    const TavStatus status = convolve(ctx, work, n);
    if (status != tavStsNoErr) return status;
    for (int k = 0; k < n; ++k)
        y[k] = ctx.tabChirp[k].re * work[k].re - ctx.tabChirp[k].im * work[k].im;
    return tavStsNoErr;
}

} // namespace
} // namespace vor::dft

#define CHIRP(suffix, T, C)                                                                        \
    extern "C" TavStatus tavs_initDftConv_##suffix(DftCtx* object, int n, const C* base,           \
                                                   int baseLength) {                               \
        return vor::dft::init_chirp(vor::dft::context_of<T>(object), n, base, baseLength);         \
    }                                                                                              \
    extern "C" TavStatus tavs_cDft_Conv_##suffix##c(                                               \
        const DftCtx* object, const C* source, C* destination, int n, int direction, void* work) { \
        return vor::dft::complex_chirp(vor::dft::context_of<T>(object), source, destination, n,    \
                                       direction, static_cast<C*>(work));                          \
    }                                                                                              \
    extern "C" TavStatus tavs_rDftFwd_Conv_##suffix(const DftCtx* object, const T* source,         \
                                                    T* destination, void* work) {                  \
        return vor::dft::real_chirp_forward(vor::dft::context_of<T>(object), source, destination,  \
                                            static_cast<C*>(work));                                \
    }                                                                                              \
    extern "C" TavStatus tavs_rDftInv_Conv_##suffix(const DftCtx* object, const T* source,         \
                                                    T* destination, void* work) {                  \
        return vor::dft::real_chirp_inverse(vor::dft::context_of<T>(object), source, destination,  \
                                            static_cast<C*>(work));                                \
    }
CHIRP(32f, float, vor::cfloat)
CHIRP(64f, double, vor::cdouble)
