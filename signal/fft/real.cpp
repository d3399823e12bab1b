// Real transforms of N = 2^n points through the complex engine of M = N/2 points: the memory of the
// real sequence is taken as z[m] = (x[2m], x[2m+1]).
//
// The spectrum X, of which the first half suffices, is stored in N reals:
//   Perm  re X[0], re X[N/2], re X[1], im X[1], ...
//   Pack  re X[0], re X[1], im X[1], ..., re X[N/2]
// Forward: X[k] = f sum over j of x[j] exp(-2 pi i j k / N); inverse: x[j] = f sum over all N values of k.
#include "signal/fft/checks.h"
#include "signal/fft/engine.h"
#include "signal/fft/real_kernels.h"
#include "signal/fft/real_small.h"

#include <string.h>

namespace vor::fft {
namespace {

enum class Format { perm, pack };

void recombine(cfloat* data, int m, const void* table) {
    tavs_cRealRecombine_32f(data, m, 1, static_cast<const cfloat*>(table));
}
void recombine(cdouble* data, int m, const void* table) {
    tavs_cRealRecombine_64f(data, m, 1, static_cast<const cdouble*>(table));
}
void recombine_back(const cfloat* source, cfloat* destination, int m, const void* table) {
    tavs_cCcsRecombine_32f(source, destination, m, -1, static_cast<const cfloat*>(table));
}
void recombine_back(const cdouble* source, cdouble* destination, int m, const void* table) {
    tavs_cCcsRecombine_64f(source, destination, m, -1, static_cast<const cdouble*>(table));
}

// In place, N of 1 and 2 being the same in both formats.
template <class R>
void perm_to_pack(R* r, int n) {
    if (n < 4) return;
    const R last = r[1];
    memmove(r + 1, r + 2, (n - 2) * sizeof(R));
    r[n - 1] = last;
}

// The source may be the destination.
template <class R>
void pack_to_perm(const R* source, R* destination, int n) {
    const R first = source[0], last = source[n - 1];
    if (n > 2) memmove(destination + 2, source + 1, (n - 2) * sizeof(R));
    destination[0] = first;
    if (n > 1) destination[1] = last;
}

template <class R>
void forward_perm(const FftCtx& object, const R* source, R* destination, void* buffer) {
    if (object.order < kLowestTableOrder)
        return RealSmall<R>::template run<false>(object, source, destination);
    const int m = object.order - 1;
    auto* z = reinterpret_cast<complex_t<R>*>(destination);
    run_engine<false, R>(object, reinterpret_cast<const complex_t<R>*>(source), z, m, buffer);
    z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
    recombine(z, 1 << m, object.tabRealRec);
}

template <class R>
void inverse_perm(const FftCtx& object, const R* source, R* destination, void* buffer) {
    if (object.order < kLowestTableOrder)
        return RealSmall<R>::template run<true>(object, source, destination);
    const int m = object.order - 1;
    const auto* x = reinterpret_cast<const complex_t<R>*>(source);
    auto* z = reinterpret_cast<complex_t<R>*>(destination);
    z[0] = {x[0].re + x[0].im, x[0].re - x[0].im};
    recombine_back(x, z, 1 << m, object.tabCcsRec);
    run_engine<true, R>(object, z, z, m, buffer);
}

template <Format format, class R>
TavStatus forward(const R* source, R* destination, const FftCtx* object, void* given) {
    if (const TavStatus status = check_transform(object, Traits<R>::kReal, source, destination))
        return status;
    const WorkBuffer buffer(*object, given);
    if (buffer.failed()) return tavStsMemAllocErr;
    forward_perm(*object, source, destination, buffer.get());
    if (format == Format::pack) perm_to_pack(destination, 1 << object->order);
    return tavStsNoErr;
}

template <Format format, class R>
TavStatus inverse(const R* source, R* destination, const FftCtx* object, void* given) {
    if (const TavStatus status = check_transform(object, Traits<R>::kReal, source, destination))
        return status;
    const WorkBuffer buffer(*object, given);
    if (buffer.failed()) return tavStsMemAllocErr;
    if (format == Format::pack) {
        pack_to_perm(source, destination, 1 << object->order);
        source = destination;
    }
    inverse_perm(*object, source, destination, buffer.get());
    return tavStsNoErr;
}

} // namespace
} // namespace vor::fft

#define REAL_TRANSFORM(X, R)                                                                       \
    extern "C" TavStatus tavsFFTFwd_RToPerm_##X(const R* source, R* destination,                   \
                                                const FftCtx* object, void* buffer) {              \
        return vor::fft::forward<vor::fft::Format::perm>(source, destination, object, buffer);     \
    }                                                                                              \
    extern "C" TavStatus tavsFFTFwd_RToPack_##X(const R* source, R* destination,                   \
                                                const FftCtx* object, void* buffer) {              \
        return vor::fft::forward<vor::fft::Format::pack>(source, destination, object, buffer);     \
    }                                                                                              \
    extern "C" TavStatus tavsFFTInv_PermToR_##X(const R* source, R* destination,                   \
                                                const FftCtx* object, void* buffer) {              \
        return vor::fft::inverse<vor::fft::Format::perm>(source, destination, object, buffer);     \
    }                                                                                              \
    extern "C" TavStatus tavsFFTInv_PackToR_##X(const R* source, R* destination,                   \
                                                const FftCtx* object, void* buffer) {              \
        return vor::fft::inverse<vor::fft::Format::pack>(source, destination, object, buffer);     \
    }
REAL_TRANSFORM(32f, float)
REAL_TRANSFORM(64f, double)
