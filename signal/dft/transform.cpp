// The transforms on DFT objects: argument tests, work buffer, choice of the engine, scale, and the
// storage formats of real spectra.
//
//     forward  X[k] = scale * sum over n of x[n] exp(-2 pi i n k / N)
//     inverse  x[n] = scale * sum over k of X[k] exp(+2 pi i n k / N)
//
// Source and destination may be the same array. A transform reads the object and nothing else that
// others could change.
#include "signal/dft/engines.h"
#include "signal/dft/kinds.h"
#include "signal/dft/recombine.h"
#include "signal/dft/tiny.h"
#include "signal/format.h"

namespace vor::dft {
namespace {

using signal::Format;
using signal::kWay;
using signal::refused;
using signal::scales;
using signal::WorkBuffer;

// Multiplies `count` reals by the factor of the object, after an engine that went well.
template <Direction D, class T>
TavStatus finish(TavStatus status, const Context<T>& ctx, T* y, int count) {
    if (status == tavStsNoErr && scales<D>(ctx))
        signal::Routines<T>::scale(ctx.normFactor, y, count);
    return status;
}

template <Direction D, class T, class C = complex_t<T>>
TavStatus complex_engine(const Context<T>& ctx, const C* x, C* y, int length, void* work) {
    if (!ctx.isPrimeFact && length > kLongestDirect)
        return complex_chirp<D>(ctx, x, y, length, work);
    if (ctx.isPrimeFact)
        (ctx.isOutOrd ? out_of_order<D, T> : in_order<D, T>)(ctx, x, y, work);
    else
        complex_direct<D>(x, y, length, ctx.tabDir, work);
    return tavStsNoErr;
}

template <Direction D, class T>
TavStatus real_odd_engine(const Context<T>& ctx, const T* x, T* y, int length, void* work) {
    if (!ctx.isPrimeFact && length > kLongestDirectRealOdd) return real_chirp<D>(ctx, x, y, work);
    if (ctx.isPrimeFact)
        real_in_order<D>(ctx, x, y, work);
    else
        real_direct<D>(x, y, length, ctx.tabDir, work);
    return tavStsNoErr;
}

template <Direction D, class T>
TavStatus real_even_engine(const Context<T>& ctx, const T* x, T* y, int length, void* work) {
    using C = complex_t<T>;
    const int half = length / 2;
    auto* const source = reinterpret_cast<const C*>(x);
    auto* const destination = reinterpret_cast<C*>(y);
    if constexpr (D == Direction::backward) {
        recombine<D>(source, destination, half, ctx.tabRecInv);
        return complex_engine<D>(ctx, destination, destination, half, work);
    }
    const TavStatus status = complex_engine<D>(ctx, source, destination, half, work);
    if (status == tavStsNoErr) recombine<D>(destination, destination, half, ctx.tabRecFwd);
    return status;
}

template <class K, Direction D, class C>
TavStatus complex_transform(const C* x, C* y, const DftCtx* object, void* buffer) {
    using T = typename K::Real;
    if (const TavStatus status = refused(object, K::kIdentity, x, y)) return status;
    const auto& ctx = context_of<T>(object);
    const int n = ctx.lenDft;
    if (n <= kLongestTiny) {
        TinyLengths<C>::template run<D>(n - 1, x, y, scales<D>(ctx), ctx.normFactor);
        return tavStsNoErr;
    }
    const WorkBuffer work(buffer, ctx.bufSize);
    if (work.missing()) return tavStsMemAllocErr;
    if (ctx.isPow2) return K::Fft::transform[kWay<D>](x, y, ctx.fftSpec, work.data());
    return finish<D>(complex_engine<D>(ctx, x, y, n, work.data()), ctx, &y->re, 2 * n);
}

// Between reals and Perm order.
template <Direction D, class T>
TavStatus perm_transform(const Context<T>& ctx, const T* x, T* y, void* work) {
    const int n = ctx.lenDft;
    if (n <= kLongestTiny) {
        TinyLengths<T>::template run<D>(n - 1, x, y, scales<D>(ctx), ctx.normFactor);
        return tavStsNoErr;
    }
    if (ctx.isPow2) return signal::Routines<T>::perm[kWay<D>](x, y, ctx.fftSpec, work);
    const auto engine = n % 2 == 0 ? real_even_engine<D, T> : real_odd_engine<D, T>;
    return finish<D>(engine(ctx, x, y, n, work), ctx, y, n);
}

template <class K, Format F, Direction D, class T>
TavStatus real_transform(const T* x, T* y, const DftCtx* object, void* buffer) {
    if (const TavStatus status = refused(object, K::kIdentity, x, y)) return status;
    const auto& ctx = context_of<T>(object);
    const WorkBuffer work(buffer, ctx.bufSize);
    if (work.missing()) return tavStsMemAllocErr;
    if constexpr (D == Direction::backward && F != Format::perm) {
        signal::convert<F, Format::perm>(x, y, ctx.lenDft);
        x = y;
    }
    const TavStatus status = perm_transform<D>(ctx, x, y, work.data());
    if constexpr (D == Direction::forward)
        if (status == tavStsNoErr && F != Format::perm)
            signal::convert<Format::perm, F, T>(y, y, ctx.lenDft);
    return status;
}

} // namespace
} // namespace vor::dft

#define COMPLEX_TRANSFORM(name, D, Kind, C)                                                        \
    extern "C" TavStatus name(const C* source, C* destination, const DftCtx* object,               \
                              void* buffer) {                                                      \
        using namespace vor::dft;                                                                  \
        return complex_transform<Kind, vor::Direction::D>(source, destination, object, buffer);    \
    }
COMPLEX_TRANSFORM(tavsDFTFwd_CToC_32fc, forward, Complex32, VOR_SCOMPLEX)
COMPLEX_TRANSFORM(tavsDFTInv_CToC_32fc, backward, Complex32, VOR_SCOMPLEX)
COMPLEX_TRANSFORM(tavsDFTFwd_CToC_64fc, forward, Complex64, VOR_DCOMPLEX)
COMPLEX_TRANSFORM(tavsDFTInv_CToC_64fc, backward, Complex64, VOR_DCOMPLEX)
COMPLEX_TRANSFORM(tavsDFTOutOrdFwd_CToC_32fc, forward, OutOfOrder32, VOR_SCOMPLEX)
COMPLEX_TRANSFORM(tavsDFTOutOrdInv_CToC_32fc, backward, OutOfOrder32, VOR_SCOMPLEX)
COMPLEX_TRANSFORM(tavsDFTOutOrdFwd_CToC_64fc, forward, OutOfOrder64, VOR_DCOMPLEX)
COMPLEX_TRANSFORM(tavsDFTOutOrdInv_CToC_64fc, backward, OutOfOrder64, VOR_DCOMPLEX)

#define REAL_TRANSFORM(name, F, D, Kind, T)                                                        \
    extern "C" TavStatus name(const T* source, T* destination, const DftCtx* object,               \
                              void* buffer) {                                                      \
        using namespace vor::dft;                                                                  \
        return real_transform<Kind, Format::F, vor::Direction::D>(source, destination, object,     \
                                                                  buffer);                         \
    }
REAL_TRANSFORM(tavsDFTFwd_RToPerm_32f, perm, forward, Real32, float)
REAL_TRANSFORM(tavsDFTFwd_RToPack_32f, pack, forward, Real32, float)
REAL_TRANSFORM(tavsDFTFwd_RToCCS_32f, ccs, forward, Real32, float)
REAL_TRANSFORM(tavsDFTInv_PermToR_32f, perm, backward, Real32, float)
REAL_TRANSFORM(tavsDFTInv_PackToR_32f, pack, backward, Real32, float)
REAL_TRANSFORM(tavsDFTInv_CCSToR_32f, ccs, backward, Real32, float)
REAL_TRANSFORM(tavsDFTFwd_RToPerm_64f, perm, forward, Real64, double)
REAL_TRANSFORM(tavsDFTFwd_RToPack_64f, pack, forward, Real64, double)
REAL_TRANSFORM(tavsDFTFwd_RToCCS_64f, ccs, forward, Real64, double)
REAL_TRANSFORM(tavsDFTInv_PermToR_64f, perm, backward, Real64, double)
REAL_TRANSFORM(tavsDFTInv_PackToR_64f, pack, backward, Real64, double)
REAL_TRANSFORM(tavsDFTInv_CCSToR_64f, ccs, backward, Real64, double)
