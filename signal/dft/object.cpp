// Building, measuring and releasing the DFT objects.
//
// A length is tiny (up to 4, no tables), a power of two (an FFT object does the work), composite with
// small prime factors (stages), or else goes by direct sum or, above a limit, by chirp. A real object
// of even length N works on N/2 complex values between recombinations.
//
// An object is immutable from the end of its build to its release.
#include "signal/dft/engines.h"
#include "signal/dft/kinds.h"

namespace vor::dft {
namespace {

template <class E, class T = real_t<E>>
TavStatus init_direct(Context<T>& ctx, int length, Base<T>& base) {
    ctx.tabDir = direct_table(base.values(), length, base.length() / length);
    return ctx.tabDir ? set_buffer<E>(ctx, static_cast<size_t>(length)) : tavStsMemAllocErr;
}

template <class T>
TavStatus init_recombination(Context<T>& ctx, Base<T>& base) {
    ctx.tabRecFwd = recombination_table<Direction::forward>(base.values(), base.length());
    ctx.tabRecInv = recombination_table<Direction::backward>(base.values(), base.length());
    return ctx.tabRecFwd && ctx.tabRecInv ? tavStsNoErr : tavStsMemAllocErr;
}

// Stages, direct sum or chirp on E, half the length of a real transform of even length.
template <class E, class T = real_t<E>>
TavStatus init_engine(Context<T>& ctx, bool out_of_order, bool halved) {
    const int length = halved ? ctx.lenDft / 2 : ctx.lenDft;
    ctx.isPrimeFact = factorise(ctx, length);
    ctx.isOutOrd = ctx.isPrimeFact && out_of_order;
    const bool chirp =
        !ctx.isPrimeFact && length > (is_complex<E> ? kLongestDirect : kLongestDirectRealOdd);
    Base<T> base(chirp ? int64_t{2} * length : ctx.lenDft);
    if (base.missing()) return tavStsMemAllocErr;
    const TavStatus status = ctx.isPrimeFact ? init_stages(ctx, length, base)
                             : chirp         ? init_chirp(ctx, length, base)
                                             : init_direct<E>(ctx, length, base);
    return status == tavStsNoErr && halved ? init_recombination(ctx, base) : status;
}

template <class K, class T>
TavStatus init_tables(Context<T>& ctx) {
    using C = complex_t<T>;
    if constexpr (!K::kReal)
        return init_engine<C>(ctx, K::kOutOfOrder, false);
    else if (ctx.lenDft % 2 == 0)
        return init_engine<C>(ctx, false, true);
    else
        return init_engine<T>(ctx, false, false);
}

template <class K, class T>
TavStatus init_power_of_two(Context<T>& ctx, int flag) {
    ctx.isPow2 = 1;
    const TavStatus status = K::Fft::build(&ctx.fftSpec, order_of(ctx.lenDft), flag, ctx.hint);
    return status == tavStsNoErr ? K::Fft::buffer_size(ctx.fftSpec, &ctx.bufSize) : status;
}

// Frees all that the object owns but the FFT object of its length, then the object.
template <class T>
void destroy(Context<T>& ctx) {
    tavsFree(ctx.tabDir);
    tavsFree(ctx.tabRecFwd);
    tavsFree(ctx.tabRecInv);
    tavsFree(ctx.tabChirp);
    tavsFree(ctx.tabChirpFft);
    tavsFree(ctx.tabPerm);
    if (ctx.fftConvSpec) signal::Routines<complex_t<T>>::release(ctx.fftConvSpec);
    const void* shared = nullptr; // the direct table that equal neighbours share
    for (int i = 0; ctx.isPrimeFact && i <= ctx.lastFactor + 1; ++i) {
        tavsFree(ctx.fact[i].tabTwiddle);
        if (ctx.fact[i].tabDirFactor != shared) tavsFree(ctx.fact[i].tabDirFactor);
        if (ctx.fact[i].tabDirFactor) shared = ctx.fact[i].tabDirFactor;
    }
    ctx.idCtx = 0;
    tavsFree(&ctx);
}

template <class K, class T>
void destroy_all(Context<T>& ctx) {
    if (ctx.fftSpec) K::Fft::release(ctx.fftSpec);
    destroy(ctx);
}

template <class K>
TavStatus init(DftCtx** object, int n, int flag, int hint) {
    using T = typename K::Real;
    if (!object) return tavStsNullPtrErr;
    if (n < 1) return tavStsSizeErr;
    auto* const ctx = allocate<Context<T>>(1);
    if (!ctx) return tavStsMemAllocErr;
    __builtin_memset(ctx, 0, sizeof *ctx);
    ctx->idCtx = K::kIdentity;
    ctx->lenDft = n;
    ctx->hint = hint;
    TavStatus status = tavStsNoErr;
    if (!signal::decode_flag(*ctx, flag, n))
        status = tavStsFftFlagErr;
    else if (n > kLongestTiny)
        status = (n & (n - 1)) == 0 ? init_power_of_two<K>(*ctx, flag) : init_tables<K>(*ctx);
    if (status != tavStsNoErr) {
        destroy_all<K>(*ctx);
        return status;
    }
    *object = reinterpret_cast<DftCtx*>(ctx);
    return tavStsNoErr;
}

template <class K>
TavStatus release(DftCtx* object) {
    if (const TavStatus status = signal::refused(object, K::kIdentity)) return status;
    destroy_all<K>(context_of<typename K::Real>(object));
    return tavStsNoErr;
}

template <class K>
TavStatus buffer_size(const DftCtx* object, int* bytes) {
    if (!bytes) return tavStsNullPtrErr;
    if (const TavStatus status = signal::refused(object, K::kIdentity)) return status;
    *bytes = context_of<typename K::Real>(object).bufSize;
    return tavStsNoErr;
}

} // namespace
} // namespace vor::dft

#define OBJECT(build, free, size, Kind)                                                            \
    extern "C" TavStatus build(DftCtx** object, int length, int flag, int hint) {                  \
        return vor::dft::init<vor::dft::Kind>(object, length, flag, hint);                         \
    }                                                                                              \
    extern "C" TavStatus free(DftCtx* object) {                                                    \
        return vor::dft::release<vor::dft::Kind>(object);                                          \
    }                                                                                              \
    extern "C" TavStatus size(const DftCtx* object, int* bytes) {                                  \
        return vor::dft::buffer_size<vor::dft::Kind>(object, bytes);                               \
    }
OBJECT(tavsDFTInitAlloc_C_32fc, tavsDFTFree_C_32fc, tavsDFTGetBufSize_C_32fc, Complex32)
OBJECT(tavsDFTInitAlloc_C_64fc, tavsDFTFree_C_64fc, tavsDFTGetBufSize_C_64fc, Complex64)
OBJECT(tavsDFTInitAlloc_R_32f, tavsDFTFree_R_32f, tavsDFTGetBufSize_R_32f, Real32)
OBJECT(tavsDFTInitAlloc_R_64f, tavsDFTFree_R_64f, tavsDFTGetBufSize_R_64f, Real64)
OBJECT(tavsDFTOutOrdInitAlloc_C_32fc, tavsDFTOutOrdFree_C_32fc, tavsDFTOutOrdGetBufSize_C_32fc,
       OutOfOrder32)
OBJECT(tavsDFTOutOrdInitAlloc_C_64fc, tavsDFTOutOrdFree_C_64fc, tavsDFTOutOrdGetBufSize_C_64fc,
       OutOfOrder64)
