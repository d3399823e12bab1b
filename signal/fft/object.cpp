// FFT objects: build, inquiry of the work buffer, release.
#include "signal/object.h"
#include "signal/fft/tables.h"

namespace vor::fft {
namespace {

template <class R>
void destroy(Context<R>& ctx) {
    ctx.idCtx = 0;
    if (!ctx.isOwned) return;
    tavsFree(ctx.tabBitRev);
    tavsFree(ctx.tabTwd);
    tavsFree(ctx.tabRealRec);
    tavsFree(ctx.tabCcsRec);
    tavsFree(&ctx);
}

template <class R>
TavStatus fill(Context<R>& ctx, int flag) {
    if (!signal::decode_flag(ctx, flag, 1 << ctx.order)) return tavStsFftFlagErr;
    if (ctx.order < kLowestTableOrder) return tavStsNoErr;
    const bool real = ctx.idCtx == Traits<R>::kReal;
    return build_tables(ctx, ctx.order - real, real) ? tavStsNoErr : tavStsMemAllocErr;
}

template <class R>
TavStatus build(FftCtx** out, Kind kind, int order, int flag, int hint) {
    if (!out) return tavStsNullPtrErr;
    if (order < 0 || order > kHighestOrder) return tavStsFftOrderErr;
    auto* const ctx = static_cast<Context<R>*>(tavsMalloc_8u(sizeof(Context<R>)));
    if (!ctx) return tavStsMemAllocErr;
    *ctx = {};
    ctx->idCtx = kind;
    ctx->order = order;
    ctx->hint = hint;
    ctx->isOwned = 1;
    const TavStatus status = fill(*ctx, flag);
    if (status == tavStsNoErr)
        *out = reinterpret_cast<FftCtx*>(ctx);
    else
        destroy(*ctx);
    return status;
}

template <class R>
TavStatus release(FftCtx* object, Kind kind) {
    if (const TavStatus status = signal::refused(object, kind)) return status;
    destroy(context_of<R>(object));
    return tavStsNoErr;
}

template <class R>
TavStatus buffer_size(const FftCtx* object, int* bytes, Kind kind) {
    if (!bytes) return tavStsNullPtrErr;
    if (const TavStatus status = signal::refused(object, kind)) return status;
    const int size = context_of<R>(object).bufSize;
    *bytes = size < 1 ? 0 : size + signal::kAlignment;
    return tavStsNoErr;
}

} // namespace
} // namespace vor::fft

#define FFT_OBJECT(init, free, size, R, kind)                                                      \
    extern "C" TavStatus init(FftCtx** object, int order, int flag, int hint) {                    \
        return vor::fft::build<R>(object, vor::fft::Traits<R>::kind, order, flag, hint);           \
    }                                                                                              \
    extern "C" TavStatus free(FftCtx* object) {                                                    \
        return vor::fft::release<R>(object, vor::fft::Traits<R>::kind);                            \
    }                                                                                              \
    extern "C" TavStatus size(const FftCtx* object, int* bytes) {                                  \
        return vor::fft::buffer_size<R>(object, bytes, vor::fft::Traits<R>::kind);                 \
    }
FFT_OBJECT(tavsFFTInitAlloc_C_32fc, tavsFFTFree_C_32fc, tavsFFTGetBufSize_C_32fc, float, kComplex)
FFT_OBJECT(tavsFFTInitAlloc_R_32f, tavsFFTFree_R_32f, tavsFFTGetBufSize_R_32f, float, kReal)
FFT_OBJECT(tavsFFTInitAlloc_C_64fc, tavsFFTFree_C_64fc, tavsFFTGetBufSize_C_64fc, double, kComplex)
FFT_OBJECT(tavsFFTInitAlloc_R_64f, tavsFFTFree_R_64f, tavsFFTGetBufSize_R_64f, double, kReal)
