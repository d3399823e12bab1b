// Complex transforms of N = 2^n points,
//   forward  X[k] = f sum over j of x[j] exp(-2 pi i j k / N)
//   inverse  the same with a plus sign
// with f the normFactor of the object if its flag scales the direction, else 1.
#include "signal/fft/checks.h"
#include "signal/fft/engine.h"
#include "signal/fft/small.h"

namespace vor::fft {
namespace {

template <bool inverse, class R>
TavStatus transform(const complex_t<R>* source, complex_t<R>* destination, const FftCtx* object,
                    void* given) {
    if (const TavStatus status = check_transform(object, Traits<R>::kComplex, source, destination))
        return status;
    if (object->order < kLowestTableOrder) {
        Small<R>::template run<inverse>(*object, source, destination);
        return tavStsNoErr;
    }
    const WorkBuffer buffer(*object, given);
    if (buffer.failed()) return tavStsMemAllocErr;
    run_engine<inverse, R>(*object, source, destination, object->order, buffer.get());
    return tavStsNoErr;
}

} // namespace
} // namespace vor::fft

#define COMPLEX_TRANSFORM(Fwd, X, R, inverse)                                                      \
    extern "C" TavStatus tavsFFT##Fwd##_CToC_##X(const vor::fft::complex_t<R>* source,             \
                                                 vor::fft::complex_t<R>* destination,              \
                                                 const FftCtx* object, void* buffer) {             \
        return vor::fft::transform<inverse, R>(source, destination, object, buffer);               \
    }
COMPLEX_TRANSFORM(Fwd, 32fc, float, false)
COMPLEX_TRANSFORM(Inv, 32fc, float, true)
COMPLEX_TRANSFORM(Fwd, 64fc, double, false)
COMPLEX_TRANSFORM(Inv, 64fc, double, true)
