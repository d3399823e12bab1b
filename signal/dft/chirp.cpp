// Transforms of any length n by convolution with a chirp (Bluestein, IEEE Trans. Audio
// Electroacoust. 18, 1970). With c_k = exp(-pi i k^2 / n)
//
//     X[k] = c_k sum over j of (x[j] c_j) conj(c_(k-j))
//
// and the sum is a cyclic convolution of length M, the first power of two from 2n - 1 on, done by two
// FFTs of that length. The transform of conj(c), divided by M, is built with the object. The inverse
// transform is the forward one with its output index negated. The work buffer holds M elements, then
// that of the FFT.
#include "signal/dft/engines.h"
#include "signal/dft/kernel/block.h"
#include "signal/dft/kernels.h"
#include "signal/routines.h"

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
    using Fft = signal::Routines<C>;
    const int m = 1 << order;
    C* const response = ctx.tabChirpFft;
    conjugate(ctx.tabChirp, response, n);
    zero(response + n, m - n);
    for (int k = 1; k < n; ++k) response[m - k] = response[k];
    TavStatus status = Fft::build(&ctx.fftConvSpec, order, TAV_FFT_NODIV_BY_ANY, 0);
    if (status == tavStsNoErr)
        status = Fft::transform[0](response, response, ctx.fftConvSpec, nullptr);
    if (status != tavStsNoErr) return status;
    signal::Routines<T>::scale(static_cast<T>(1.0L / m), &response->re, 2 * m);
    int fft_bytes = 0;
    Fft::buffer_size(ctx.fftConvSpec, &fft_bytes);
    return set_buffer<C>(ctx, static_cast<size_t>(m), static_cast<size_t>(fft_bytes));
}

// Steps of a transform on `work`, whose first n elements are x[k] c_k.
template <class T, class C = complex_t<T>>
TavStatus convolve(const Context<T>& ctx, C* work, int n) {
    const int m = ctx.lenConvFft;
    using Fft = signal::Routines<C>;
    zero(work + n, m - n);
    const TavStatus status = Fft::transform[0](work, work, ctx.fftConvSpec, work + m);
    if (status != tavStsNoErr) return status;
    multiply(ctx.tabChirpFft, work, work, m);
    return Fft::transform[1](work, work, ctx.fftConvSpec, work + m);
}

template <class C>
void reverse(C* x, int count) {
    for (C* last = x + count - 1; x < last; ++x, --last) {
        const C t = *x;
        *x = *last;
        *last = t;
    }
}

// n odd, result in half-complex form.
template <class T, class C = complex_t<T>>
TavStatus real_chirp_forward(const Context<T>& ctx, const T* x, T* y, C* work) {
    const int n = ctx.lenDft;
    for (int k = 0; k < n; ++k) work[k] = x[k] * ctx.tabChirp[k];
    const TavStatus status = convolve(ctx, work, n);
    if (status != tavStsNoErr) return status;
    multiply(ctx.tabChirp, work, work, n);
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
    multiply(ctx.tabChirp, work, work, n);
    const TavStatus status = convolve(ctx, work, n);
    if (status != tavStsNoErr) return status;
    for (int k = 0; k < n; ++k)
        y[k] = ctx.tabChirp[k].re * work[k].re - ctx.tabChirp[k].im * work[k].im;
    return tavStsNoErr;
}

} // namespace

template <class T>
TavStatus init_chirp(Context<T>& ctx, int n, Base<T>& base) {
    using C = complex_t<T>;
    // The base table of 2n elements exists, so 4n does not overflow.
    const int order = order_of(2 * n - 1);
    ctx.lenConvFft = 1 << order;
    ctx.tabChirp = allocate<C>(static_cast<size_t>(n));
    ctx.tabChirpFft = allocate<C>(static_cast<size_t>(ctx.lenConvFft));
    if (!ctx.tabChirp || !ctx.tabChirpFft) return tavStsMemAllocErr;
    fill_chirp(ctx.tabChirp, base.values(), n);
    return build_convolution(ctx, n, order);
}

template <Direction D, class T>
TavStatus complex_chirp(const Context<T>& ctx, const complex_t<T>* x, complex_t<T>* y, int n,
                        void* work) {
    auto* const w = static_cast<complex_t<T>*>(work);
    multiply(ctx.tabChirp, x, w, n);
    const TavStatus status = convolve(ctx, w, n);
    if (status != tavStsNoErr) return status;
    multiply(ctx.tabChirp, w, y, n);
    if constexpr (D == Direction::backward) reverse(y + 1, n - 1);
    return tavStsNoErr;
}

template <Direction D, class T>
TavStatus real_chirp(const Context<T>& ctx, const T* x, T* y, void* work) {
    auto* const w = static_cast<complex_t<T>*>(work);
    if constexpr (D == Direction::forward)
        return real_chirp_forward(ctx, x, y, w);
    else
        return real_chirp_inverse(ctx, x, y, w);
}

} // namespace vor::dft

#define CHIRP(init, transform, T, C)                                                               \
    template TavStatus vor::dft::init_chirp(Context<T>&, int, Base<T>&);                           \
    template TavStatus vor::dft::complex_chirp<vor::Direction::forward>(const Context<T>&,         \
                                                                        const C*, C*, int, void*); \
    template TavStatus vor::dft::complex_chirp<vor::Direction::backward>(                          \
        const Context<T>&, const C*, C*, int, void*);                                              \
    extern "C" TavStatus init(DftCtx* object, int n, const C* base, int baseLength) {              \
        using namespace vor::dft;                                                                  \
        Base<T> own(baseLength == n ? int64_t{2} * n : 0), given(base, baseLength);                \
        Base<T>& table = baseLength == n ? own : given;                                            \
        return table.missing() ? tavStsMemAllocErr : init_chirp(context_of<T>(object), n, table);  \
    }                                                                                              \
    extern "C" TavStatus transform(const DftCtx* object, const C* source, C* destination, int n,   \
                                   int direction, void* work) {                                    \
        using namespace vor::dft;                                                                  \
        const auto run = direction < 0 ? complex_chirp<vor::Direction::backward, T>                \
                                       : complex_chirp<vor::Direction::forward, T>;                \
        return run(context_of<T>(object), source, destination, n, work);                           \
    }
CHIRP(tavs_initDftConv_32f, tavs_cDft_Conv_32fc, float, VOR_SCOMPLEX)
CHIRP(tavs_initDftConv_64f, tavs_cDft_Conv_64fc, double, VOR_DCOMPLEX)

#define REAL_CHIRP(name, D, T)                                                                     \
    template TavStatus vor::dft::real_chirp<vor::Direction::D>(const Context<T>&, const T*, T*,    \
                                                               void*);                             \
    extern "C" TavStatus name(const DftCtx* object, const T* source, T* destination, void* work) { \
        using namespace vor::dft;                                                                  \
        return real_chirp<vor::Direction::D>(context_of<T>(object), source, destination, work);    \
    }
REAL_CHIRP(tavs_rDftFwd_Conv_32f, forward, float)
REAL_CHIRP(tavs_rDftInv_Conv_32f, backward, float)
REAL_CHIRP(tavs_rDftFwd_Conv_64f, forward, double)
REAL_CHIRP(tavs_rDftInv_Conv_64f, backward, double)
