// Real transforms of N = 2^n points through the complex engine of M = N/2 points: the memory of the
// real sequence is taken as z[m] = (x[2m], x[2m+1]).
//
// The spectrum X, of which the first half suffices, is stored in N reals:
//   Perm  re X[0], re X[N/2], re X[1], im X[1], ...
//   Pack  re X[0], re X[1], im X[1], ..., re X[N/2]
// Forward: X[k] = f sum over j of x[j] exp(-2 pi i j k / N); inverse: x[j] = f sum over all N values of k.
#include "signal/fft/engine.h"
#include "signal/fft/real_kernels.h"
#include "signal/format.h"
#include "signal/small.h"

namespace vor::fft {
namespace {

using signal::Format;

// The passes between spectrum and half-length transform, all but element 0.
template <class R>
struct Recombination;
template <>
struct Recombination<float> {
    static constexpr auto forward = tavs_cRealRecombine_32f;
    static constexpr auto backward = tavs_cCcsRecombine_32f;
};
template <>
struct Recombination<double> {
    static constexpr auto forward = tavs_cRealRecombine_64f;
    static constexpr auto backward = tavs_cCcsRecombine_64f;
};

// Element 0 of the half-length transform from re X[0], re X[N/2], and back.
template <class C>
C ends(C x) {
    return {x.re + x.im, x.re - x.im};
}

// Between reals and Perm.
template <Direction D, class R, class C = complex_t<R>>
void transform_perm(const FftCtx* object, const R* source, R* destination, void* buffer) {
    const auto& ctx = context_of<R>(object);
    if (ctx.order < kLowestTableOrder)
        return signal::SmallLengths<signal::Small, R, 1, 2, 4, 8>::template run<D>(
            ctx.order, source, destination, signal::scales<D>(ctx), ctx.normFactor);
    const int m = ctx.order - 1;
    const auto* x = reinterpret_cast<const C*>(source);
    auto* z = reinterpret_cast<C*>(destination);
    if constexpr (D == Direction::forward) {
        run_engine<D, R>(object, x, z, m, buffer);
        z[0] = ends(z[0]);
        Recombination<R>::forward(z, 1 << m, 1, ctx.tabRealRec);
    } else {
        z[0] = ends(x[0]);
        Recombination<R>::backward(x, z, 1 << m, -1, ctx.tabCcsRec);
        run_engine<D, R>(object, z, z, m, buffer);
    }
}

template <Direction D, Format kFormat, class R>
TavStatus transform(const R* source, R* destination, const FftCtx* object, void* given) {
    if (const TavStatus status = signal::refused(object, Traits<R>::kReal, source, destination))
        return status;
    const auto& ctx = context_of<R>(object);
    const signal::WorkBuffer buffer(given, ctx.bufSize);
    if (buffer.missing()) return tavStsMemAllocErr;
    const int n = 1 << ctx.order;
    if constexpr (D == Direction::backward && kFormat != Format::perm) {
        signal::convert<kFormat, Format::perm>(source, destination, n);
        source = destination;
    }
    transform_perm<D>(object, source, destination, buffer.data());
    if constexpr (D == Direction::forward && kFormat != Format::perm)
        signal::convert<Format::perm, kFormat, R>(destination, destination, n);
    return tavStsNoErr;
}

} // namespace
} // namespace vor::fft

#define REAL_TRANSFORM(name, R, D, format)                                                         \
    extern "C" TavStatus name(const R* source, R* destination, const FftCtx* object,               \
                              void* buffer) {                                                      \
        using namespace vor::fft;                                                                  \
        return transform<vor::Direction::D, Format::format>(source, destination, object, buffer);  \
    }
REAL_TRANSFORM(tavsFFTFwd_RToPerm_32f, float, forward, perm)
REAL_TRANSFORM(tavsFFTFwd_RToPack_32f, float, forward, pack)
REAL_TRANSFORM(tavsFFTInv_PermToR_32f, float, backward, perm)
REAL_TRANSFORM(tavsFFTInv_PackToR_32f, float, backward, pack)
REAL_TRANSFORM(tavsFFTFwd_RToPerm_64f, double, forward, perm)
REAL_TRANSFORM(tavsFFTFwd_RToPack_64f, double, forward, pack)
REAL_TRANSFORM(tavsFFTInv_PermToR_64f, double, backward, perm)
REAL_TRANSFORM(tavsFFTInv_PackToR_64f, double, backward, pack)
