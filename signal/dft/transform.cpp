// The transforms on DFT objects: argument tests, work buffer, choice of the engine, scale, and the
// storage formats of real spectra.
//
//     forward  X[k] = scale * sum over n of x[n] exp(-2 pi i n k / N)
//     inverse  x[n] = scale * sum over k of X[k] exp(+2 pi i n k / N)
//
// Source and destination may be the same array. A transform reads the object and nothing else that
// others could change.
#include "signal/dft/kernels.h"
#include "signal/dft/kinds.h"
#include "signal/dft/tiny.h"
#include "signal/format.h"

namespace vor::dft {
namespace {

using signal::Format;
using signal::refused;
using signal::scales;
using signal::WorkBuffer;

// Multiplies `count` reals by the factor of the object, after an engine that went well.
template <Direction D, class T>
TavStatus finish(TavStatus status, const Context<T>& ctx, T* y, int count) {
    if (status == tavStsNoErr && scales<D>(ctx)) Shared<T>::scale(ctx.normFactor, y, count);
    return status;
}

template <Direction D, class T, Parted C = complex_t<T>>
TavStatus complex_engine(const DftCtx* object, const C* x, C* y, int length, void* work) {
    const auto& ctx = context_of<T>(object);
    constexpr int kSign = D == Direction::forward ? 1 : -1;
    if (ctx.isPrimeFact) {
        const auto driver = ctx.isOutOrd ? Directed<T, D>::out_of_order : Directed<T, D>::staged;
        driver(object, x, y, work);
        return tavStsNoErr;
    }
    if (length > kLongestDirect) return Shared<T>::chirp(object, x, y, length, kSign, work);
    Shared<T>::direct(x, y, length, kSign, ctx.tabDir, work);
    return tavStsNoErr;
}

template <Direction D, class T>
TavStatus real_odd_engine(const DftCtx* object, const T* x, T* y, int length, void* work) {
    using K = Directed<T, D>;
    const auto& ctx = context_of<T>(object);
    if (!ctx.isPrimeFact && length > kLongestDirectRealOdd)
        return K::real_chirp(object, x, y, work);
    if (ctx.isPrimeFact)
        K::real_staged(object, x, y, work);
    else
        K::real_direct(x, y, length, ctx.tabDir, work);
    return tavStsNoErr;
}

template <Direction D, class T, class C = complex_t<T>>
TavStatus real_even_engine(const DftCtx* object, const T* x, T* y, int length, void* work) {
    const auto& ctx = context_of<T>(object);
    const int half = length / 2;
    auto* const source = reinterpret_cast<const C*>(x);
    auto* const destination = reinterpret_cast<C*>(y);
    if constexpr (D == Direction::backward) {
        Shared<T>::recombine_inverse(source, destination, half, ctx.tabRecInv);
        return complex_engine<D, T>(object, destination, destination, half, work);
    }
    const TavStatus status = complex_engine<D, T>(object, source, destination, half, work);
    if (status == tavStsNoErr) Shared<T>::recombine_forward(destination, half, ctx.tabRecFwd);
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
    if (ctx.isPow2) return Directed<T, D>::fft(x, y, ctx.fftSpec, work.data());
    return finish<D>(complex_engine<D, T>(object, x, y, n, work.data()), ctx, &y->re, 2 * n);
}

// Between reals and Perm order.
template <Direction D, class T>
TavStatus perm_transform(const T* x, T* y, const DftCtx* object, void* work) {
    const auto& ctx = context_of<T>(object);
    const int n = ctx.lenDft;
    if (n <= kLongestTiny) {
        TinyLengths<T>::template run<D>(n - 1, x, y, scales<D>(ctx), ctx.normFactor);
        return tavStsNoErr;
    }
    if (ctx.isPow2) return Directed<T, D>::real_fft(x, y, ctx.fftSpec, work);
    const auto engine = n % 2 == 0 ? real_even_engine<D, T> : real_odd_engine<D, T>;
    return finish<D>(engine(object, x, y, n, work), ctx, y, n);
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
    const TavStatus status = perm_transform<D>(x, y, object, work.data());
    if constexpr (D == Direction::forward)
        if (status == tavStsNoErr && F != Format::perm)
            signal::convert<Format::perm, F, T>(y, y, ctx.lenDft);
    return status;
}

} // namespace
} // namespace vor::dft

#define COMPLEX_TRANSFORM(family, Dir, D, suffix, Kind, C)                                         \
    extern "C" TavStatus tavs##family##Dir##_CToC_##suffix(const C* source, C* destination,        \
                                                           const DftCtx* object, void* buffer) {   \
        using namespace vor::dft;                                                                  \
        return complex_transform<Kind, vor::Direction::D>(source, destination, object, buffer);    \
    }
COMPLEX_TRANSFORM(DFT, Fwd, forward, 32fc, Complex32, vor::cfloat)
COMPLEX_TRANSFORM(DFT, Inv, backward, 32fc, Complex32, vor::cfloat)
COMPLEX_TRANSFORM(DFT, Fwd, forward, 64fc, Complex64, vor::cdouble)
COMPLEX_TRANSFORM(DFT, Inv, backward, 64fc, Complex64, vor::cdouble)
COMPLEX_TRANSFORM(DFTOutOrd, Fwd, forward, 32fc, OutOfOrder32, vor::cfloat)
COMPLEX_TRANSFORM(DFTOutOrd, Inv, backward, 32fc, OutOfOrder32, vor::cfloat)
COMPLEX_TRANSFORM(DFTOutOrd, Fwd, forward, 64fc, OutOfOrder64, vor::cdouble)
COMPLEX_TRANSFORM(DFTOutOrd, Inv, backward, 64fc, OutOfOrder64, vor::cdouble)

#define REAL_TRANSFORM(Name, F, D, suffix, Kind, T)                                                \
    extern "C" TavStatus tavsDFT##Name##_##suffix(const T* source, T* destination,                 \
                                                  const DftCtx* object, void* buffer) {            \
        using namespace vor::dft;                                                                  \
        return real_transform<Kind, Format::F, vor::Direction::D>(source, destination, object,     \
                                                                  buffer);                         \
    }
#define REAL_TRANSFORMS(suffix, Kind, T)                                                           \
    REAL_TRANSFORM(Fwd_RToPerm, perm, forward, suffix, Kind, T)                                    \
    REAL_TRANSFORM(Fwd_RToPack, pack, forward, suffix, Kind, T)                                    \
    REAL_TRANSFORM(Fwd_RToCCS, ccs, forward, suffix, Kind, T)                                      \
    REAL_TRANSFORM(Inv_PermToR, perm, backward, suffix, Kind, T)                                   \
    REAL_TRANSFORM(Inv_PackToR, pack, backward, suffix, Kind, T)                                   \
    REAL_TRANSFORM(Inv_CCSToR, ccs, backward, suffix, Kind, T)
REAL_TRANSFORMS(32f, Real32, float)
REAL_TRANSFORMS(64f, Real64, double)
