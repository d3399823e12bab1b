// Block routines: clearing and copying through the cache, and around it by 8-byte non-temporal stores,
// closed by a store fence. The 8-byte moves are MMX: they carry any bit pattern unchanged, and each
// routine leaves the x87 state usable.
#include "signal/blocks.h"
#include "arith/prefetch.h"

#include <stdint.h>
#include <string.h>
#include <xmmintrin.h>

namespace vor::signal {
namespace {

using Byte = unsigned char;

constexpr int kTurn = 64;             // bytes moved in one turn of a main loop
constexpr int kPage = 4096;           // bytes prefetched ahead of their copy
constexpr int kPagedCopy = 20480;     // shorter rests are copied without the walk over the pages
constexpr int kPrefetchDistance = 32; // bytes for each prefetch

int above(const Byte* p, uintptr_t multiple) {
    return static_cast<int>(reinterpret_cast<uintptr_t>(p) & (multiple - 1));
}

// ---- Moves of one unit at any address. Word8 and Word16 may alias everything.

typedef __m64 Word8 __attribute__((aligned(1), may_alias));

Word8 load8(const Byte* p) {
    return *reinterpret_cast<const Word8*>(p);
}
void store8(Byte* p, Word8 x) {
    *reinterpret_cast<Word8*>(p) = x;
}
void stream8(Byte* p, Word8 x) {
    _mm_stream_pi(reinterpret_cast<__m64*>(p), x);
}
__m128 load16(const Byte* p) {
    return _mm_loadu_ps(reinterpret_cast<const float*>(p));
}
void store16(Byte* p, __m128 x) {
    _mm_storeu_ps(reinterpret_cast<float*>(p), x);
}
template <int n>
void move(const Byte* from, Byte* to) {
    if constexpr (n == 16)
        store16(to, load16(from));
    else if constexpr (n == 8)
        store8(to, load8(from));
    else
        memcpy(to, from, n);
}

// ---- Clearing

// The last bytes, fewer than 64, and all of a short block.
template <void (*store)(Byte*, Word8)>
void zero_tail(Byte* p, int bytes) {
    const Word8 zero = _mm_setzero_si64();
    for (int block = 32; block >= 8; block /= 2) {
        if (!(bytes & block)) continue;
        for (Byte* end = p + block; p < end; p += 8) store(p, zero);
    }
    if (bytes & 4) {
        memset(p, 0, 4);
        p += 4;
    }
    for (bytes &= 3; bytes > 0; --bytes) *p++ = 0;
}

// `least` is the shortest block whose start is brought to a multiple of 8, by a store at the start
// that the first aligned one may overlap.
template <void (*store)(Byte*, Word8)>
void zero_block(Byte* p, int bytes, int least) {
    const Word8 zero = _mm_setzero_si64();
    if (bytes >= least && above(p, 8)) {
        store8(p, zero);
        const int step = 8 - above(p, 8);
        p += step;
        bytes -= step;
    }
    for (; bytes >= kTurn; bytes -= kTurn, p += kTurn)
        for (int i = 0; i < kTurn; i += 8) store(p + i, zero);
    zero_tail<store>(p, bytes);
}

// ---- Copying

// A copy on its way: what is left of it.
struct Copy {
    const Byte* from;
    Byte* to;
    int bytes;

    void advance(int n) {
        from += n;
        to += n;
        bytes -= n;
    }
    // Moves one unit, then forward by what lacks to the next multiple of n of `address`.
    template <int n>
    void align(const Byte* address) {
        const int step = n - above(address, n);
        move<n>(from, to);
        advance(step);
    }
    template <class Turn>
    void turns(Turn turn) {
        for (; bytes >= kTurn; advance(kTurn)) turn(from, to);
    }
    template <int n>
    void part() {
        move<n>(from, to);
        advance(n);
    }
    void tail() {
        while (bytes >= 16) part<16>();
        if (bytes & 8) part<8>();
        if (bytes & 4) part<4>();
        if (bytes & 2) part<2>();
        if (bytes & 1) part<1>();
    }
};

void turn_16(const Byte* from, Byte* to) {
    for (int i = 0; i < kTurn; i += 16)
        _mm_store_ps(reinterpret_cast<float*>(to + i),
                     _mm_load_ps(reinterpret_cast<const float*>(from + i)));
}
void turn_8(const Byte* from, Byte* to) {
    for (int i = 0; i < kTurn; i += 8) move<8>(from + i, to + i);
}
// For a source 4 above a multiple of 8: the 8-byte loads are aligned.
void turn_4_8_4(const Byte* from, Byte* to) {
    for (int i = 0; i < kTurn; i += 16) {
        move<4>(from + i, to + i);
        move<8>(from + i + 4, to + i + 4);
        move<4>(from + i + 12, to + i + 12);
    }
}
void turn_stream(const Byte* from, Byte* to) {
    for (int i = 0; i < kTurn; i += 8) stream8(to + i, load8(from + i));
}

} // namespace

extern "C" {

void ownsZero_8u(Byte* destination, int bytes) {
    zero_block<store8>(destination, bytes, kTurn);
    _mm_empty();
}

void ownsZero_8u_A6(Byte* destination, int bytes) {
    zero_block<stream8>(destination, bytes, 8);
    _mm_empty();
    _mm_sfence();
}

void ownsCopy_8u(const Byte* source, Byte* destination, int bytes) {
    Copy copy{source, destination, bytes};
    if (copy.bytes >= kTurn && above(copy.to, 16)) copy.align<16>(copy.to);
    if (copy.bytes >= kTurn) {
        if (above(copy.from, 16) == 0) {
            copy.turns(turn_16);
        } else if (above(copy.from, 8) == 4) {
            copy.turns(turn_4_8_4);
        } else {
            if (above(copy.from, 8)) copy.align<8>(copy.from);
            copy.turns(turn_8);
        }
    }
    copy.tail();
    _mm_empty();
}

void ownsCopy_8u_A6(const Byte* source, Byte* destination, int bytes) {
    Copy copy{source, destination, bytes};
    if (copy.bytes >= kTurn && above(copy.to, 16)) copy.align<16>(copy.to);
    if (copy.bytes >= kTurn && above(copy.from, 8)) copy.align<16>(copy.from);
    copy.turns(turn_stream);
    copy.tail();
    _mm_empty();
    _mm_sfence();
}

void ownsPrefetchnta_A6(const Byte* address, int bytes) {
    int at = 0;
    do {
        prefetch_once(address, at);
        at += kPrefetchDistance;
    } while (at < bytes);
}

void ownsPrefetchCopy_8u_A6(const Byte* source, Byte* destination, int bytes) {
    Copy copy{source, destination, bytes};
    while (copy.bytes > 0 && above(copy.to, 8)) {
        *copy.to = *copy.from;
        copy.advance(1);
    }
    if (copy.bytes >= kPagedCopy) {
        const auto streamed = [&](int part) {
            ownsCopy_8u_A6(copy.from, copy.to, part);
            copy.advance(part);
        };
        const int head = -(above(copy.from, kPage) & ~7) & (kPage - 1);
        if (head) streamed(head);
        while (copy.bytes >= kPage) {
            ownsPrefetchnta_A6(copy.from, kPage);
            streamed(kPage);
        }
    }
    if (copy.bytes > 0) ownsCopy_8u_A6(copy.from, copy.to, copy.bytes);
}

} // extern "C"

} // namespace vor::signal
