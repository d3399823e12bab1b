// Bit reversal of N = 2^n points.
//
// In place, by the swap-form table: an index is a top bit, middle bits and a bottom bit. Reversal exchanges
// top and bottom and reverses the middle, so one entry of the table (the middle bits i and their reverse
// j) serves four exchanges: with h = N/2,
//   2i <-> 2j    h+2i+1 <-> h+2j+1    2i+1 <-> h+2j    2j+1 <-> h+2i
// and one if i is its own reverse: 2i+1 <-> h+2i.
//
// To a destination, by a plain walk: results in order, four at a time from the quarters of the source.
//
// By tiles, for data that does not fit the first-level cache, where the walk of the table would touch a
// line for each element: an index is t top bits, middle bits and t bottom bits (Carter, Gatlin, Towards an
// optimal bit-reversal permutation program, FOCS 1998). The 2^t x 2^t elements of one middle are read
// from 2^t runs and written to the 2^t runs of the reversed middle, whole lines both times.
#include "serv/bits.h"
#include "signal/fft/kernels.h"
#include "signal/fft/tables.h"

#include <xmmintrin.h>

namespace vor::fft {
namespace {

// One element is moved as bits, by one SSE register or half of one.
void move(const cdouble& from, cdouble& to) {
    _mm_storeu_ps(reinterpret_cast<float*>(&to),
                  _mm_loadu_ps(reinterpret_cast<const float*>(&from)));
}
void move(const cfloat& from, cfloat& to) {
    _mm_storel_pi(reinterpret_cast<__m64*>(&to),
                  _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(&from)));
}
void exchange(cdouble& a, cdouble& b) {
    float *p = reinterpret_cast<float*>(&a), *q = reinterpret_cast<float*>(&b);
    const __m128 x = _mm_loadu_ps(p), y = _mm_loadu_ps(q);
    _mm_storeu_ps(p, y);
    _mm_storeu_ps(q, x);
}
void exchange(cfloat& a, cfloat& b) {
    __m64 *p = reinterpret_cast<__m64*>(&a), *q = reinterpret_cast<__m64*>(&b);
    const __m128 x = _mm_loadl_pi(_mm_setzero_ps(), p), y = _mm_loadl_pi(_mm_setzero_ps(), q);
    _mm_storel_pi(p, y);
    _mm_storel_pi(q, x);
}

// Calls pair(2i, 2j) and self(2i) for the entries of the table.
template <class Pair, class Self>
void walk(const unsigned* table, Pair pair, Self self) {
    for (; *table; table += 2) pair(table[0] / 2, table[1] / 2);
    unsigned entry = *table++; // the zero that ends the pairs is the first that is its own reverse
    do {
        self(entry / 2);
        entry = *table++;
    } while (entry);
}

template <class C>
void walk_in_place(C* data, int n, const unsigned* table) {
    C* high = data + n / 2;
    walk(
        table,
        [=](unsigned i, unsigned j) {
            exchange(data[i], data[j]);
            exchange(high[i + 1], high[j + 1]);
            exchange(data[i + 1], high[j]);
            exchange(data[j + 1], high[i]);
        },
        [=](unsigned i) { exchange(data[i + 1], high[i]); });
}

// N = 4 and up.
template <class C>
void walk_to(const C* source, C* destination, int n) {
    const unsigned quarter = static_cast<unsigned>(n) / 4;
    unsigned from = 0; // the reverse of the index of a group of four
    for (C* out = destination; out < destination + n; out += 4) {
        const C* x = source + from;
        move(x[0], out[0]);
        move(x[2 * quarter], out[1]);
        move(x[quarter], out[2]);
        move(x[3 * quarter], out[3]);
        unsigned bit = quarter / 2; // adds 1 from the top
        for (; from & bit; bit /= 2) from ^= bit;
        from |= bit;
    }
}

// ---- Tiles

// A tile has 2^bits runs of one line of 64 bytes each.
template <class C>
constexpr int kTileBits = sizeof(C) == 8 ? 3 : 2;
template <class C>
constexpr int kTile = 1 << kTileBits<C>;

template <class C>
constexpr int reversed(int i) {
    return static_cast<int>(reverse_bits(i, kTileBits<C>));
}

// out[reverse(j)][reverse(i)] := in[i][j]; the runs of both are a stride apart.
void reverse_tile(const cdouble* in, cdouble* out, size_t in_stride, size_t out_stride) {
    constexpr int n = kTile<cdouble>;
#pragma GCC unroll 4
    for (int j = 0; j < n; ++j) {
        cdouble* run = out + reversed<cdouble>(j) * out_stride;
#pragma GCC unroll 4
        for (int i = 0; i < n; ++i) move(in[i * in_stride + j], run[reversed<cdouble>(i)]);
    }
}

// Runs i and i + 4 are neighbours in the result, so two elements of each make two pairs of it.
void reverse_tile(const cfloat* in, cfloat* out, size_t in_stride, size_t out_stride) {
    constexpr int n = kTile<cfloat>;
#pragma GCC unroll 4
    for (int j = 0; j < n; j += 2) {
        float* even = &out[reversed<cfloat>(j) * out_stride].re;
        float* odd = &out[reversed<cfloat>(j + 1) * out_stride].re;
#pragma GCC unroll 4
        for (int i = 0; i < n / 2; ++i) {
            const __m128 x = _mm_loadu_ps(&in[i * in_stride + j].re);
            const __m128 y = _mm_loadu_ps(&in[(i + n / 2) * in_stride + j].re);
            _mm_storeu_ps(even + 2 * reversed<cfloat>(i), _mm_movelh_ps(x, y));
            _mm_storeu_ps(odd + 2 * reversed<cfloat>(i), _mm_movehl_ps(y, x));
        }
    }
}

// All middles m, in the order of the result: tile(offset of reverse(m), offset of m).
template <class C, class Tile>
void all_tiles(int n, Tile tile) {
    constexpr int size = kTile<C>;
    const unsigned middles = static_cast<unsigned>(n) / (size * size);
    const int bits = trailing_zeros(middles);
    for (unsigned m = 0; m < middles; ++m) tile(size * reverse_bits(m, bits), size * m);
}

template <class C>
void tiles_to(const C* source, C* destination, int n) {
    const size_t stride = n / kTile<C>;
    all_tiles<C>(n, [=](unsigned from, unsigned to) {
        reverse_tile(source + from, destination + to, stride, stride);
    });
}

// One run of a tile, a line.
template <class C>
void save_run(const C* from, C* to) {
    constexpr int kFloats = kTile<C> * sizeof(C) / sizeof(float);
    auto* const source = reinterpret_cast<const float*>(from);
    auto* const copy = reinterpret_cast<float*>(to);
    for (int i = 0; i < kFloats; i += 4) _mm_storeu_ps(copy + i, _mm_loadu_ps(source + i));
}

template <class C>
void tiles_in_place(C* data, int n) {
    constexpr int size = kTile<C>;
    const size_t stride = n / size;
    all_tiles<C>(n, [=](unsigned from, unsigned to) {
        if (from > to) return;
        C held[size * size];
        for (int i = 0; i < size; ++i) save_run(data + to + i * stride, held + i * size);
        if (from < to) reverse_tile(data + from, data + to, stride, stride);
        reverse_tile(held, data + from, size, stride);
    });
}

// ---- Choice: what was measured to be faster.

constexpr size_t kWalkBytes = 32768; // in place up to this size by the table
constexpr int kHighestWalk64 = 4096; // points up to which 16-byte elements walk to a destination
constexpr int kLeastTiles32 = 64;    // points from which 8-byte elements go there by tiles

template <class C>
void reverse_in_place(C* data, int n, const unsigned* table) {
    if (n < 4) return;
    n * sizeof(C) <= kWalkBytes ? walk_in_place(data, n, table) : tiles_in_place(data, n);
}

template <class C>
void reverse(const C* source, C* destination, int n) {
    if (n < 4) {
        for (int k = 0; k < n; ++k) move(source[k], destination[k]);
        return;
    }
    const bool by_tiles = sizeof(C) == 8 ? n >= kLeastTiles32 : n > kHighestWalk64;
    by_tiles ? tiles_to(source, destination, n) : walk_to(source, destination, n);
}

} // namespace
} // namespace vor::fft

#define BIT_REVERSAL(in_place, out_of_place, C)                                                    \
    extern "C" void in_place(C* data, int n, const unsigned* table) {                              \
        vor::fft::reverse_in_place(data, n, table);                                                \
    }                                                                                              \
    extern "C" void out_of_place(const C* source, C* destination, int n, const unsigned*) {        \
        vor::fft::reverse(source, destination, n);                                                 \
    }
BIT_REVERSAL(tavs_BitRev1_C, tavs_BitRev2_C, VOR_SCOMPLEX)
BIT_REVERSAL(tavs_BitRev1_Z, tavs_BitRev2_Z, VOR_DCOMPLEX)
