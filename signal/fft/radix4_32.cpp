// Radix-4 kernel of the 32-bit engine: N = 8 to 1024 points, decimation in time, four complex numbers
// for each operation.
//
// The first pass takes interleaved data in bit-reversed order (or natural order through the read form)
// and leaves four-lane data in the work area: 16 points a step for even orders, 8 for odd ones. Radix-4
// passes follow to span N. The last pass stores in the form asked for.
//
// The work area is the result's place if that is aligned and not still to be read, else the buffer.
#include "signal/fft/kernels.h"
#include "signal/fft/lanes.h"

namespace {

using namespace vor::fft;
using C = vor::cfloat;

constexpr int kRecord = 8;         // floats of four twiddles
constexpr int kStep = 3 * kRecord; // of the twiddles of four butterflies

// Groups of four in bit-reversed order that stand in memory as they are.
struct Sequential {
    const float* source;

    // Element j of groups g, g+1, g+2, g+3 for j = 0 to 3.
    void four_groups(int g, Four (&x)[4]) const {
        const float* p = source + 8 * g;
        for (int half = 0; half < 2; ++half, p += 4) {
            __m128 a = _mm_loadu_ps(p), b = _mm_loadu_ps(p + 8), c = _mm_loadu_ps(p + 16),
                   d = _mm_loadu_ps(p + 24);
            _MM_TRANSPOSE4_PS(a, b, c, d);
            x[2 * half] = {a, b};
            x[2 * half + 1] = {c, d};
        }
    }
    const float* element(int g, int j) const { return source + 8 * g + 2 * j; }
};

// The same groups in an input of n points in natural order.
struct Reversed {
    const float* source;
    const unsigned* table; // read form
    int quarter;           // n/4 in floats

    void four_groups(int g, Four (&x)[4]) const {
        for (int j = 0; j < 4; ++j)
            x[j] = gather(element(g, j), element(g + 1, j), element(g + 2, j), element(g + 3, j));
    }
    const float* element(int g, int j) const {
        const int offset = j == 1 ? 2 : j == 2 ? 1 : j;
        return source + offset * quarter + table[g];
    }
};

template <bool inverse>
Four times_eighths(Four x) { // lane k by W8^k
    constexpr float c = 0.7071068f;
    return times<inverse>(x, {_mm_setr_ps(1, c, 0, -c), _mm_setr_ps(0, -c, -1, -c)});
}

// One step of the first pass of an odd order: groups g and g+1 to eight points of a transform of 8.
template <bool inverse, class Form, class Source>
void eight(const Source& source, int g, float* out) {
    // Element j of both groups, side by side, interleaved.
    const auto both = [&](int j) {
        __m128 x =
            _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(source.element(g, j)));
        return _mm_loadh_pi(x, reinterpret_cast<const __m64*>(source.element(g + 1, j)));
    };
    const __m128 x0 = both(0), x1 = both(1), x2 = both(2), x3 = both(3);
    const __m128 s = _mm_add_ps(x0, x1), u = _mm_sub_ps(x0, x1);
    const __m128 t = _mm_add_ps(x2, x3), d = _mm_sub_ps(x2, x3);
    const __m128 sign = inverse ? _mm_setr_ps(-0.0f, 0, -0.0f, 0) : _mm_setr_ps(0, -0.0f, 0, -0.0f);
    const __m128 v = _mm_xor_ps(_mm_shuffle_ps(d, d, _MM_SHUFFLE(2, 3, 0, 1)), sign);
    const __m128 y0 = _mm_add_ps(s, t), y1 = _mm_add_ps(u, v), y2 = _mm_sub_ps(s, t),
                 y3 = _mm_sub_ps(u, v);
    const __m128 a01 = _mm_movelh_ps(y0, y1), a23 = _mm_movelh_ps(y2, y3);
    const __m128 b01 = _mm_movehl_ps(y1, y0), b23 = _mm_movehl_ps(y3, y2);
    const auto lanes = [](__m128 low, __m128 high) -> Four {
        return {_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
                _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1))};
    };
    const Four a = lanes(a01, a23), b = times_eighths<inverse>(lanes(b01, b23));
    Form::store(out, a + b);
    Form::store(out + 8, a - b);
}

// One step of the first pass of an even order: groups g to g+3 to the 16 points of a transform of 16.
template <bool inverse, class Form, class Source>
void sixteen(const Source& source, int g, float* out, const float* w) {
    Four x[4];
    source.four_groups(g, x);
    butterfly<inverse>(x);
    transpose(x);
    x[1] = times<inverse>(x[1], load_lanes(w + kRecord));
    x[2] = times<inverse>(x[2], load_lanes(w));
    x[3] = times<inverse>(x[3], load_lanes(w + 2 * kRecord));
    butterfly<inverse>(x);
    for (int j = 0; j < 4; ++j) Form::store(out + 8 * j, x[j]);
}

template <bool inverse, class Form, class Source>
void first_pass(const Source& source, float* out, int n, const float* w) {
    if (n & 0xAAAAAAAA) {
        for (int g = 0; g < n / 4; g += 2) eight<inverse, Form>(source, g, out + 8 * g);
    } else {
        for (int g = 0; g < n / 4; g += 4) sixteen<inverse, Form>(source, g, out + 8 * g, w);
    }
}

// Radix-4 pass of a span over four-lane data.
template <bool inverse, class Form>
void pass(const float* data, float* out, int n, int span, const float* table) {
    const int quarter = span / 2; // floats
    for (const float* end = data + 2 * n; data < end; data += 2 * span, out += 2 * span) {
        const float* w = table;
        for (int k = 0; k < quarter; k += 8, w += kStep) {
            const float* in = data + k;
            Four x[4] = {load_lanes(in),
                         times<inverse>(load_lanes(in + quarter), load_lanes(w + kRecord)),
                         times<inverse>(load_lanes(in + 2 * quarter), load_lanes(w)),
                         times<inverse>(load_lanes(in + 3 * quarter), load_lanes(w + 2 * kRecord))};
            butterfly<inverse>(x);
            for (int j = 0; j < 4; ++j) Form::store(out + k + j * quarter, x[j]);
        }
    }
}

// All passes; the last one stores to `out` in the form asked for.
template <bool inverse, class Form, class Source>
void all_passes(const Source& source, float* work, float* out, int n, const float* table) {
    if (n <= 16) return first_pass<inverse, Form>(source, out, n, table);
    first_pass<inverse, Lanes>(source, work, n, table);
    int span = 32;
    if (!(n & 0xAAAAAAAA)) {
        table += kStep;
        span = 64;
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
    all_passes<inverse, Interleaved>(Reversed{&source->re, reversal, n / 2}, work, out, n,
                                     reinterpret_cast<const float*>(table));
}

} // namespace

#define RADIX4(Fwd, inverse)                                                                       \
    extern "C" void tavs_cRadix4##Fwd##_32fc(C* data, int n, const C* table, void* buffer,         \
                                             int interleave) {                                     \
        radix4<inverse>(data, n, table, buffer, interleave);                                       \
    }                                                                                              \
    extern "C" void tavs_cRadix4##Fwd##Norm_32fc(const C* source, C* destination, int n,           \
                                                 const C* table, const unsigned* bit_reversal,     \
                                                 void* buffer) {                                   \
        radix4_norm<inverse>(source, destination, n, table, bit_reversal, buffer);                 \
    }
RADIX4(Fwd, false)
RADIX4(Inv, true)
