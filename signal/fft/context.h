// The FFT object: everything that the transforms of one order need, so that none of them computes a
// sine. Built and freed in object.cpp, its tables in tables.cpp; read only in between.
#pragma once

#include "arith/element.h"
#include "vor_signal.h"

namespace vor::fft {

enum Kind : unsigned {
    kComplex32 = 4,
    kReal32 = 6,
    kComplex64 = 7,
    kReal64 = 9,
};

constexpr int kHighestOrder = 30;
constexpr int kLowestTableOrder = 4; // smaller transforms are straight-line code

// What stands behind an FftCtx of single precision, R = float, and of double precision.
template <class R>
struct Context {
    using C = complex_t<R>;

    unsigned idCtx; // Kind; 0 once freed
    int order;      // n: transforms of N = 2^n points; the complex engine of a real kind has n - 1
    int doScaleFwd; // 1: the forward transform multiplies by normFactor
    int doScaleInv; // 1: the inverse transform does
    R normFactor;   // 1/N, 1/sqrt(N) or 0
    int hint;       // as given; read by nothing
    int bufSize;    // bytes of work buffer of a transform, 0 for none
    int isOwned;    // 1: freeing the object frees its tables
    unsigned* tabBitRev; // bit reversal, swap form or read form
    C* tabTwd;       // radix-4 kernel; in its block: tabTwdL2 and the tables of the block levels
    C* tabTwdL2;     // radix-2 passes above that kernel
    C* tabRealRec;   // real kinds: recombination behind the forward complex transform
    C* tabCcsRec;    // real kinds: recombination in front of the inverse one
    C* tabTwdBlk[3]; // kernel of the short side, for each block level
    C* tabMulBlk[3]; // twiddles between rows and columns, for each block level
};
static_assert(sizeof(Context<float>) == 19 * 4);
static_assert(sizeof(Context<double>) == 20 * 4);

template <class R>
const Context<R>& context_of(const FftCtx* object) {
    return *reinterpret_cast<const Context<R>*>(object);
}
template <class R>
Context<R>& context_of(FftCtx* object) {
    return *reinterpret_cast<Context<R>*>(object);
}

// What the precisions do not share. Engine limit: the highest order that the radix-4 kernel takes
// whole; its data and table fit the first-level cache.
template <class R>
struct Traits;

template <>
struct Traits<float> {
    static constexpr Kind kComplex = kComplex32, kReal = kReal32;
    static constexpr int kEngineLimit = 10;
    // The highest order whose bit reversal happens in the kernel's first pass.
    static constexpr int kReadFormLimit = 9;
};

template <>
struct Traits<double> {
    static constexpr Kind kComplex = kComplex64, kReal = kReal64;
    static constexpr int kEngineLimit = 9;
    static constexpr int kReadFormLimit = 0;
};

// The order s of the short side of a transform of order m above the engine limit: it runs as blocks,
// 2^s rows of 2^(m-s) points. 0: it runs on radix-2 passes instead.
template <class R>
constexpr int split(int m) {
    constexpr signed char kSplit64[] = {0, 0, 0, 4, 5, 6, 7, 7, 8, 9, 9,
                                        9, 8, 8, 9, 9, 9, 9, 9, 9, 9, 9};
    constexpr signed char kSplit32[] = {0,  0,  0,  0, 5, 6,  7,  8,  8,  8,  10,
                                        10, 10, 10, 8, 8, 10, 10, 10, 10, 10, 10};
    return (sizeof(R) == 8 ? kSplit64 : kSplit32)[m - 9];
}

// Work buffer bytes of the radix-4 kernel of 2^m points in 32 bits: its data, in whole 16 bytes.
constexpr int kernel_buffer(int m) {
    return ((8 << m) + 15) & ~15;
}

} // namespace vor::fft
