// Radix-4 kernel of the 32-bit engine: N = 8 to 1024 points, decimation in time, four complex numbers
// for each operation.
//
// The first pass takes interleaved data in bit-reversed order (or natural order through the read form)
// and leaves four-lane data in the work area: transforms of 4 points for even orders, of 8 for odd ones.
// Radix-4 passes follow to span N. The last pass stores in the form asked for.
//
// The work area is the result's place if that is aligned and not still to be read, else the buffer.
#include "signal/fft/kernel/lanes.h"
#include "signal/fft/kernels.h"

namespace vor::fft {
namespace {

using C = cfloat;

constexpr int kRecord = 8;         // floats of four twiddles
constexpr int kStep = 3 * kRecord; // of the twiddles of four butterflies

// Where the first pass reads. A register holds one element of two groups of four in bit-reversed order,
// interleaved: pair(g, x0, x1, x2, x3) gives elements 0 to 3 of groups g and g + 1.

struct Sequential { // groups as they stand in memory
    const float* source;

    void pair(int g, __m128& x0, __m128& x1, __m128& x2, __m128& x3) const {
        const float* p = source + 8 * g;
        const __m128 a = _mm_loadu_ps(p), b = _mm_loadu_ps(p + 8);
        const __m128 c = _mm_loadu_ps(p + 4), d = _mm_loadu_ps(p + 12);
        x0 = _mm_movelh_ps(a, b);
        x1 = _mm_movehl_ps(b, a);
        x2 = _mm_movelh_ps(c, d);
        x3 = _mm_movehl_ps(d, c);
    }
};

struct Reversed { // groups of an input in natural order, whose quarters begin at p0, p1, p2, p3
    const float *p0, *p1, *p2, *p3;
    const unsigned* table; // read form

    Reversed(const float* source, int n, const unsigned* read_form)
        : p0(source), p1(source + n), p2(source + n / 2), p3(source + n + n / 2), table(read_form) {
    }

    void pair(int g, __m128& x0, __m128& x1, __m128& x2, __m128& x3) const {
        const unsigned a = table[g], b = table[g + 1];
        x0 = two(p0 + a, p0 + b);
        x1 = two(p1 + a, p1 + b);
        x2 = two(p2 + a, p2 + b);
        x3 = two(p3 + a, p3 + b);
    }
    static __m128 two(const float* low, const float* high) {
        const __m128 x = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(low));
        return _mm_loadh_pi(x, reinterpret_cast<const __m64*>(high));
    }
};

// The parts of four interleaved numbers, two to a register.
inline Four parts(__m128 low, __m128 high) {
    return {_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
            _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1))};
}

// Transforms of the groups g and g + 1.
template <bool inverse, class Source>
inline void transform_pair(const Source& source, int g, Four& first, Four& second) {
    __m128 x0, x1, x2, x3;
    source.pair(g, x0, x1, x2, x3);
    const __m128 s = _mm_add_ps(x0, x1), u = _mm_sub_ps(x0, x1);
    const __m128 t = _mm_add_ps(x2, x3), d = _mm_sub_ps(x2, x3);
    const __m128 sign = inverse ? _mm_setr_ps(-0.0f, 0, -0.0f, 0) : _mm_setr_ps(0, -0.0f, 0, -0.0f);
    const __m128 v = _mm_xor_ps(_mm_shuffle_ps(d, d, _MM_SHUFFLE(2, 3, 0, 1)), sign);
    x0 = _mm_add_ps(s, t);
    x1 = _mm_add_ps(u, v);
    x2 = _mm_sub_ps(s, t);
    x3 = _mm_sub_ps(u, v);
    first = parts(_mm_movelh_ps(x0, x1), _mm_movelh_ps(x2, x3));
    second = parts(_mm_movehl_ps(x1, x0), _mm_movehl_ps(x3, x2));
}

template <bool inverse>
inline Four times_eighths(Four x) { // lane k by W8^k
    constexpr float c = 0.7071068f;
    return times<inverse>(x, {_mm_setr_ps(1, c, 0, -c), _mm_setr_ps(0, -c, -1, -c)});
}

template <bool inverse, class Source>
void fours(const Source& source, float* out, int n) {
    for (int g = 0; g < n / 4; g += 2, out += 16) {
        Four a, b;
        transform_pair<inverse>(source, g, a, b);
        Lanes::store(out, a);
        Lanes::store(out + 8, b);
    }
}

template <bool inverse, class Form, class Source>
void eights(const Source& source, float* out, int n) {
    for (int g = 0; g < n / 4; g += 2, out += 16) {
        Four a, b;
        transform_pair<inverse>(source, g, a, b);
        b = times_eighths<inverse>(b);
        Form::store(out, a + b);
        Form::store(out + 8, a - b);
    }
}

// One butterfly of four k side by side; `w` is their group of the staged table.
template <bool inverse, class Form>
inline void four_butterflies(const float* in, int quarter, const float* w, float* out) {
    const auto multiplied = [=](int i) {
        const Four x = held(Lanes::load(in + i * quarter));
        if (i == 0) return x;
        return times<inverse>(x, Lanes::load(w + (i == 1 ? kRecord : i == 2 ? 0 : 2 * kRecord)));
    };
    butterfly<inverse>(multiplied, [=](int k, Four x) { Form::store(out + k * quarter, x); });
}

// Radix-4 pass of a span over four-lane data.
template <bool inverse, class Form>
void pass(const float* data, float* out, int n, int span, const float* table) {
    const float* const end = data + 2 * n;
    if (span == 16) { // one step for each group
        for (; data < end; data += 32, out += 32)
            four_butterflies<inverse, Form>(data, 8, table, out);
        return;
    }
    const int quarter = span / 2; // floats
    for (; data < end; data += 2 * span, out += 2 * span) {
        const float* w = table;
        for (int k = 0; k < quarter; k += 8, w += kStep)
            four_butterflies<inverse, Form>(data + k, quarter, w, out + k);
    }
}

// All passes; the last one stores to `out` in the form asked for.
template <bool inverse, class Form, class Source>
void all_passes(const Source& source, float* work, float* out, int n, const float* table) {
    int span = 16;
    if (n & 0xAAAAAAAA) {
        if (n == 8) return eights<inverse, Form>(source, out, n);
        eights<inverse, Lanes>(source, work, n);
        span = 32;
    } else {
        fours<inverse>(source, work, n);
    }
    for (; span < n; span *= 4) {
        pass<inverse, Lanes>(work, work, n, span, table);
        table += span / 16 * kStep;
    }
    pass<inverse, Form>(work, out, n, span, table);
}

template <bool inverse>
void radix4(C* data, int n, const C* table, void* buffer, int interleave) {
    float* out = &data->re;
    const auto* w = reinterpret_cast<const float*>(table);
    float* work = aligned(out) ? out : static_cast<float*>(buffer);
    const Sequential source{out};
    if (interleave)
        all_passes<inverse, Interleaved>(source, work, out, n, w);
    else if (work == out)
        all_passes<inverse, Lanes>(source, work, out, n, w);
    else
        all_passes<inverse, LanesAnywhere>(source, work, out, n, w);
}

template <bool inverse>
void radix4_norm(const C* source, C* destination, int n, const C* table, const unsigned* reversal,
                 void* buffer) {
    float* out = &destination->re;
    float* work = aligned(out) && source != destination ? out : static_cast<float*>(buffer);
    all_passes<inverse, Interleaved>(Reversed(&source->re, n, reversal), work, out, n,
                                     reinterpret_cast<const float*>(table));
}

} // namespace
} // namespace vor::fft

#define RADIX4(name, inverse)                                                                      \
    extern "C" void name(VOR_SCOMPLEX* data, int n, const VOR_SCOMPLEX* table, void* buffer,       \
                         int interleave) {                                                         \
        vor::fft::radix4<inverse>(data, n, table, buffer, interleave);                             \
    }
RADIX4(tavs_cRadix4Fwd_32fc, false)
RADIX4(tavs_cRadix4Inv_32fc, true)

#define RADIX4_NORM(name, inverse)                                                                 \
    extern "C" void name(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination, int n,             \
                         const VOR_SCOMPLEX* table, const unsigned* reversal, void* buffer) {      \
        vor::fft::radix4_norm<inverse>(source, destination, n, table, reversal, buffer);           \
    }
RADIX4_NORM(tavs_cRadix4FwdNorm_32fc, false)
RADIX4_NORM(tavs_cRadix4InvNorm_32fc, true)
