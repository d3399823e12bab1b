// The steps that every transform of an FFT object begins with: checks in their order, work buffer.
#pragma once

#include "signal/fft/context.h"

#include <stdint.h>

namespace vor::fft {

constexpr int kBufferAlignment = 16; // of the work buffer that the kernels see

inline TavStatus check_object(const FftCtx* object, Kind kind) {
    if (!object) return tavStsNullPtrErr;
    return object->idCtx == kind ? tavStsNoErr : tavStsContextMatchErr;
}

inline TavStatus check_transform(const FftCtx* object, Kind kind, const void* source,
                                 const void* destination) {
    if (const TavStatus status = check_object(object, kind)) return status;
    return source && destination ? tavStsNoErr : tavStsNullPtrErr;
}

// The work buffer of one transform: the caller's, from its first 16-byte boundary, or one of its own
// if the caller gives none. `failed` if that could not be had.
class WorkBuffer {
public:
    WorkBuffer(const FftCtx& object, void* given) {
        if (object.bufSize < 1) return;
        if (!given) {
            given = own_ = tavsMalloc_8u(object.bufSize);
            failed_ = !given;
        }
        const auto address = reinterpret_cast<uintptr_t>(given);
        aligned_ = reinterpret_cast<void*>((address + kBufferAlignment - 1) &
                                           ~uintptr_t{kBufferAlignment - 1});
    }
    ~WorkBuffer() { tavsFree(own_); }
    WorkBuffer(const WorkBuffer&) = delete;
    WorkBuffer& operator=(const WorkBuffer&) = delete;

    bool failed() const { return failed_; }
    void* get() const { return aligned_; }

private:
    void* own_ = nullptr;
    void* aligned_ = nullptr;
    bool failed_ = false;
};

} // namespace vor::fft
