// Memory of the signal primitives: aligned blocks, clearing, copying.
//
// An allocated block is padding, one word with the address that malloc gave, and the user area on a
// 32-byte boundary directly above that word.
//
// Clearing and copying go through the cache for small blocks and around it for large ones, so that a large
// result does not throw out the data that the caller works on.
#include "serv/memory.h"
#include "signal/blocks.h"
#include "vor_signal.h"

#include <stdint.h>
#include <stdlib.h>

namespace vor::signal {
namespace {

using Byte = unsigned char;

constexpr unsigned kBlockAlignment = 32;
constexpr unsigned kOverhead = kBlockAlignment + sizeof(void*); // of a block, in bytes

// Blocks from these sizes on bypass the cache: a larger part of the first-level cache than that is
// not worth giving to a result.
constexpr int kZeroStreams = 20480;
constexpr int kCopyStreams = 8192;
constexpr int kCopyPrefetches = 16384;

// Null if the size does not fit 32 bits.
void* allocate(int count, unsigned size) {
    unsigned bytes;
    if (count < 1 || !byte_count(static_cast<size_t>(count), size, kOverhead, &bytes))
        return nullptr;
    void* block = malloc(bytes);
    if (!block) return nullptr;
    const uintptr_t user =
        (reinterpret_cast<uintptr_t>(block) + kOverhead - 1) & ~uintptr_t{kBlockAlignment - 1};
    reinterpret_cast<void**>(user)[-1] = block;
    return reinterpret_cast<void*>(user);
}

TavStatus check(bool null, int count) {
    if (null) return tavStsNullPtrErr;
    return count < 1 ? tavStsSizeErr : tavStsNoErr;
}

// part(offset, bytes) for all of `count` units: the block routines count in int.
template <class Part>
void in_parts(int count, int size, Part part) {
    constexpr unsigned kMost = 1u << 30;
    uint64_t left = static_cast<uint64_t>(count) * static_cast<unsigned>(size);
    for (size_t at = 0; left > 0; at += kMost) {
        const unsigned bytes = left < kMost ? static_cast<unsigned>(left) : kMost;
        part(at, static_cast<int>(bytes));
        left -= bytes;
    }
}

template <class T>
TavStatus zero(T* destination, int count) {
    if (const TavStatus status = check(!destination, count)) return status;
    constexpr int size = sizeof(T);
    const auto work = count < kZeroStreams / size ? ownsZero_8u : ownsZero_8u_A6;
    auto* const to = reinterpret_cast<Byte*>(destination);
    in_parts(count, size, [=](size_t at, int bytes) { work(to + at, bytes); });
    return tavStsNoErr;
}

template <class T>
TavStatus copy(const T* source, T* destination, int count) {
    if (const TavStatus status = check(!source || !destination, count)) return status;
    constexpr int size = sizeof(T);
    const auto work = count < kCopyStreams / size      ? ownsCopy_8u
                      : count < kCopyPrefetches / size ? ownsCopy_8u_A6
                                                       : ownsPrefetchCopy_8u_A6;
    auto* const from = reinterpret_cast<const Byte*>(source);
    auto* const to = reinterpret_cast<Byte*>(destination);
    in_parts(count, size, [=](size_t at, int bytes) { work(from + at, to + at, bytes); });
    return tavStsNoErr;
}

} // namespace

extern "C" {
void* tavsMalloc_8u(int bytes) {
    return allocate(bytes, 1);
}
float* tavsMalloc_32f(int count) {
    return static_cast<float*>(allocate(count, sizeof(float)));
}
double* tavsMalloc_64f(int count) {
    return static_cast<double*>(allocate(count, sizeof(double)));
}

void tavsFree(void* block) {
    if (block) free(static_cast<void**>(block)[-1]);
}

TavStatus tavsZero_8u(void* destination, int bytes) {
    return zero(static_cast<Byte*>(destination), bytes);
}
TavStatus tavsZero_32f(float* destination, int count) {
    return zero(destination, count);
}
TavStatus tavsZero_64f(double* destination, int count) {
    return zero(destination, count);
}
TavStatus tavsCopy_32f(const float* source, float* destination, int count) {
    return copy(source, destination, count);
}
TavStatus tavsCopy_64f(const double* source, double* destination, int count) {
    return copy(source, destination, count);
}

} // extern "C"

} // namespace vor::signal
