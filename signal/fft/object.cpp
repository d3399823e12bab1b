// FFT objects: build, inquiry of the work buffer, release.
#include "signal/fft/checks.h"
#include "signal/fft/tables.h"

#include <math.h>

namespace vor::fft {
namespace {

// False if the flag is none of the four.
bool decode_flag(FftCtx& object, int flag) {
    object.doScaleFwd = flag == TAV_FFT_DIV_FWD_BY_N || flag == TAV_FFT_DIV_BY_SQRTN;
    object.doScaleInv = flag == TAV_FFT_DIV_INV_BY_N || flag == TAV_FFT_DIV_BY_SQRTN;
    return object.doScaleFwd || object.doScaleInv || flag == TAV_FFT_NODIV_BY_ANY;
}

template <class R>
R norm_factor(int order, int flag) {
    if (flag == TAV_FFT_NODIV_BY_ANY) return 0;
    const long double points = 1u << order;
    return static_cast<R>(1 / (flag == TAV_FFT_DIV_BY_SQRTN ? sqrtl(points) : points));
}

void destroy(FftCtx* object) {
    object->idCtx = 0;
    if (!object->isOwned) return;
    tavsFree(object->tabBitRev);
    tavsFree(object->tabTwd);
    tavsFree(object->tabRealRec);
    tavsFree(object->tabCcsRec);
    tavsFree(object);
}

template <class R>
TavStatus fill(FftCtx& object, int flag) {
    if (!decode_flag(object, flag)) return tavStsFftFlagErr;
    Traits<R>::norm(object) = norm_factor<R>(object.order, flag);
    if (object.order < kLowestTableOrder) return tavStsNoErr;
    const bool real = object.idCtx == Traits<R>::kReal;
    return build_tables<R>(object, object.order - real, real) ? tavStsNoErr : tavStsMemAllocErr;
}

template <class R>
TavStatus build(FftCtx** out, Kind kind, int order, int flag, int hint) {
    if (!out) return tavStsNullPtrErr;
    if (order < 0 || order > kHighestOrder) return tavStsFftOrderErr;
    auto* object = static_cast<FftCtx*>(tavsMalloc_8u(sizeof(FftCtx)));
    if (!object) return tavStsMemAllocErr;
    *object = {};
    object->idCtx = kind;
    object->order = order;
    object->hint = hint;
    object->isOwned = 1;
    const TavStatus status = fill<R>(*object, flag);
    if (status == tavStsNoErr)
        *out = object;
    else
        destroy(object);
    return status;
}

TavStatus release(FftCtx* object, Kind kind) {
    if (const TavStatus status = check_object(object, kind)) return status;
    destroy(object);
    return tavStsNoErr;
}

TavStatus buffer_size(const FftCtx* object, int* bytes, Kind kind) {
    if (!bytes) return tavStsNullPtrErr;
    if (const TavStatus status = check_object(object, kind)) return status;
    *bytes = object->bufSize < 1 ? 0 : object->bufSize + kBufferAlignment;
    return tavStsNoErr;
}

} // namespace
} // namespace vor::fft

#define FFT_OBJECT(X, R, kind)                                                                     \
    extern "C" TavStatus tavsFFTInitAlloc_##X(FftCtx** object, int order, int flag, int hint) {    \
        return vor::fft::build<R>(object, vor::fft::Traits<R>::kind, order, flag, hint);           \
    }                                                                                              \
    extern "C" TavStatus tavsFFTFree_##X(FftCtx* object) {                                         \
        return vor::fft::release(object, vor::fft::Traits<R>::kind);                               \
    }                                                                                              \
    extern "C" TavStatus tavsFFTGetBufSize_##X(const FftCtx* object, int* bytes) {                 \
        return vor::fft::buffer_size(object, bytes, vor::fft::Traits<R>::kind);                    \
    }
FFT_OBJECT(C_32fc, float, kComplex)
FFT_OBJECT(R_32f, float, kReal)
FFT_OBJECT(C_64fc, double, kComplex)
FFT_OBJECT(R_64f, double, kReal)
