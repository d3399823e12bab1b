// What FFT and DFT objects share. A record of either, Context<R> of its folder, has the fields idCtx,
// doScaleFwd, doScaleInv and normFactor, the last in the width R of its data.
#pragma once

#include "arith/element.h"
#include "signal/direction.h"
#include "vor_signal.h"

#include <math.h>
#include <stdint.h>

namespace vor::signal {

constexpr int kAlignment = 16; // of the work buffers that kernels see

template <class E>
E* align_up(E* p) {
    const auto address = reinterpret_cast<uintptr_t>(p) + kAlignment - 1;
    return reinterpret_cast<E*>(address & ~uintptr_t{kAlignment - 1});
}

// Scaling rule of a transform of n points; false if the flag is none of the four.
template <class Context>
bool decode_flag(Context& ctx, int flag, int n) {
    ctx.doScaleFwd = flag == TAV_FFT_DIV_FWD_BY_N || flag == TAV_FFT_DIV_BY_SQRTN;
    ctx.doScaleInv = flag == TAV_FFT_DIV_INV_BY_N || flag == TAV_FFT_DIV_BY_SQRTN;
    if (!ctx.doScaleFwd && !ctx.doScaleInv) return flag == TAV_FFT_NODIV_BY_ANY;
    const extended points = n;
    const extended factor = 1 / (flag == TAV_FFT_DIV_BY_SQRTN ? sqrtl(points) : points);
    ctx.normFactor = static_cast<decltype(ctx.normFactor)>(factor);
    return true;
}

// The object multiplies by its factor in direction D.
template <Direction D, class Context>
bool scales(const Context& ctx) {
    return D == Direction::forward ? ctx.doScaleFwd : ctx.doScaleInv;
}

// The tests that every call on an object begins with, and every transform, in their order. The first word
// of an object is its identity.
inline TavStatus refused(const void* object, unsigned identity) {
    if (!object) return tavStsNullPtrErr;
    return *static_cast<const unsigned*>(object) == identity ? tavStsNoErr : tavStsContextMatchErr;
}
inline TavStatus refused(const void* object, unsigned identity, const void* source,
                         const void* destination) {
    if (const TavStatus status = refused(object, identity)) return status;
    return source && destination ? tavStsNoErr : tavStsNullPtrErr;
}

// The work buffer of one transform, on a boundary of kAlignment: in the caller's, which has room for
// that beyond the bytes in use, in one of its own of `bytes`, or none for less than 1 byte.
class WorkBuffer {
public:
    WorkBuffer(void* given, int bytes) : needed_(bytes > 0) {
        if (!needed_) return;
        if (!given) given = owned_ = tavsMalloc_8u(bytes);
        data_ = align_up(static_cast<char*>(given));
    }
    ~WorkBuffer() { tavsFree(owned_); }
    WorkBuffer(const WorkBuffer&) = delete;
    WorkBuffer& operator=(const WorkBuffer&) = delete;

    // It could not be had.
    bool missing() const { return needed_ && !data_; }
    void* data() const { return data_; }

private:
    bool needed_;
    void* owned_ = nullptr;
    void* data_ = nullptr;
};

} // namespace vor::signal
