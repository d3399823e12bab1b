// Complex transforms of N = 2^n points,
//   forward  X[k] = f sum over j of x[j] exp(-2 pi i j k / N)
//   inverse  the same with a plus sign
// with f the normFactor of the object if its flag scales the direction, else 1.
#include "signal/fft/engine.h"
#include "signal/small.h"

namespace vor::fft {
namespace {

using signal::refused;
using signal::WorkBuffer;

template <Direction D, class R, class C = complex_t<R>>
TavStatus transform(const C* source, C* destination, const FftCtx* object, void* given) {
    if (const TavStatus status = refused(object, Traits<R>::kComplex, source, destination))
        return status;
    const auto& ctx = context_of<R>(object);
    if (ctx.order < kLowestTableOrder) {
        signal::SmallLengths<signal::Small, C, 1, 2, 4, 8>::template run<D>(
            ctx.order, source, destination, signal::scales<D>(ctx), ctx.normFactor);
        return tavStsNoErr;
    }
    const WorkBuffer buffer(given, ctx.bufSize);
    if (buffer.missing()) return tavStsMemAllocErr;
    run_engine<D, R>(object, source, destination, ctx.order, buffer.data());
    return tavStsNoErr;
}

} // namespace
} // namespace vor::fft

#define COMPLEX_TRANSFORM(name, C, R, D)                                                           \
    extern "C" TavStatus name(const C* source, C* destination, const FftCtx* object,               \
                              void* buffer) {                                                      \
        return vor::fft::transform<vor::Direction::D, R>(source, destination, object, buffer);     \
    }
COMPLEX_TRANSFORM(tavsFFTFwd_CToC_32fc, VOR_SCOMPLEX, float, forward)
COMPLEX_TRANSFORM(tavsFFTInv_CToC_32fc, VOR_SCOMPLEX, float, backward)
COMPLEX_TRANSFORM(tavsFFTFwd_CToC_64fc, VOR_DCOMPLEX, double, forward)
COMPLEX_TRANSFORM(tavsFFTInv_CToC_64fc, VOR_DCOMPLEX, double, backward)
