// The DFT object: what a transform of one length, one kind of data and one scaling rule needs.
#pragma once

#include "serv/memory.h"
#include "signal/object.h"

#include <limits.h>

namespace vor::dft {

constexpr int kLongestTiny = 4;            // straight-line code up to here, no tables
constexpr int kLargestRadix = 149;         // the largest prime factor that a stage takes
constexpr int kLongestDirect = 150;        // longer lengths without a stage plan go by chirp
constexpr int kLongestDirectRealOdd = 180; // the same for real transforms of odd length
constexpr int kMaxFactors = 20;            // 3^18 * 3 is the longest list of 32 bits

// Blocks shorter than this are swept stage by stage over the whole array; longer ones are split
// first, and each part is finished before the next one, so that the sweeps stay in the first-level
// cache.
template <class T>
constexpr int kSweepLimit = sizeof(T) == 4 ? 2001 : 501;
// From this length on an out-of-order object leaves its results in digit-reversed order.
template <class T>
constexpr int kOutOfOrderLimit = sizeof(T) == 4 ? 2001 : 5001;

// One stage. The remainder of the factorisation and its direct table stand in `factor` and
// `tabDirFactor` of the record behind the last stage.
template <class T>
struct DftFactorRec {
    int factor;                 // radix f
    int rest;                   // f * rest is the length of one block of this stage
    int prodBefore;             // product of the earlier radices: the stride in the input
    int nBlocks;                // blocks in one pass of this record
    complex_t<T>* tabDirFactor; // W_f^k for f above 5; neighbours of equal radix share it
    complex_t<T>* tabTwiddle;   // f-1 entries for each column, f for radices above 5
};

template <class T>
struct Context {
    unsigned idCtx; // 0 once destroyed
    int lenDft;
    int doScaleFwd, doScaleInv;
    T normFactor;
    int hint;
    int bufSize; // bytes of work buffer, alignment included
    int isPow2;
    int isOutOrd;
    int lenConvFft;
    complex_t<T>* tabDir;
    complex_t<T>* tabRecFwd;
    complex_t<T>* tabRecInv;
    complex_t<T>* tabChirp;
    complex_t<T>* tabChirpFft;
    FftCtx* fftSpec;
    FftCtx* fftConvSpec;
    int isPrimeFact;
    int lastFactor;
    int* tabPerm;
    DftFactorRec<T> fact[kMaxFactors];

    const DftFactorRec<T>& last() const { return fact[lastFactor]; }
    const DftFactorRec<T>& remainder() const { return fact[lastFactor + 1]; }
};
static_assert(sizeof(DftFactorRec<double>) == 24);
static_assert(sizeof(Context<float>) == 20 * 4 + kMaxFactors * 24);
static_assert(sizeof(Context<double>) == 21 * 4 + kMaxFactors * 24);

template <class T>
const Context<T>& context_of(const DftCtx* object) {
    return *reinterpret_cast<const Context<T>*>(object);
}
template <class T>
Context<T>& context_of(DftCtx* object) {
    return *reinterpret_cast<Context<T>*>(object);
}

// `count` elements, to be given back by tavsFree; null if memory or 31 bits do not suffice.
template <class E>
E* allocate(size_t count) {
    unsigned bytes;
    if (!byte_count(count, sizeof(E), 0, &bytes) || bytes > INT_MAX) return nullptr;
    return static_cast<E*>(tavsMalloc_8u(static_cast<int>(bytes)));
}

// Sets the work size to `count` elements of type E plus `extra` bytes and the room for alignment.
template <class E>
TavStatus set_buffer(Context<real_t<E>>& ctx, size_t count, size_t extra = 0) {
    unsigned bytes;
    if (!byte_count(count, sizeof(E), extra + signal::kAlignment, &bytes) || bytes > INT_MAX)
        return tavStsMemAllocErr;
    ctx.bufSize = static_cast<int>(bytes);
    return tavStsNoErr;
}

// The smallest k with 2^k >= n, n up to 2^30.
inline int order_of(int n) {
    int order = 0;
    while (1 << order < n) ++order;
    return order;
}

} // namespace vor::dft
