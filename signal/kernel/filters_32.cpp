// Direct correlation sums, 32 bits: outputs up to the first 16-byte boundary as dot products, the rest
// by four taps at a time, each group of taps passing once over all outputs.
#include "signal/kernel/filters_32.h"

#include "signal/filters.h"

#include <stdint.h>
#include <string.h>

namespace vor::signal {
namespace {

// Smaller triangles are not worth the groups of taps.
constexpr int kLeastTaps = 7;
constexpr int kLeastOutputs = 6;

float plain_dot(const float* x, const float* t, int n) {
    float sum = 0;
    for (int j = 0; j < n; ++j) sum += t[j] * x[j];
    return sum;
}

// Eight products at a time in two partial sums, then 4, 2 and 1.
float wide_dot(const float* x, const float* t, int n) {
    __m128 low = _mm_setzero_ps(), high = low;
    int j = 0;
    const auto four = [&](int at) {
        return _mm_mul_ps(_mm_loadu_ps(t + at), _mm_loadu_ps(x + at));
    };
    for (; j + 8 <= n; j += 8) {
        low = _mm_add_ps(low, four(j));
        high = _mm_add_ps(high, four(j + 4));
    }
    if (n & 4) {
        low = _mm_add_ps(low, four(j));
        j += 4;
    }
    if (n & 2) {
        const auto two = [&](const float* p) {
            return _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(p + j));
        };
        high = _mm_add_ps(high, _mm_mul_ps(two(t), two(x)));
        j += 2;
    }
    if (n & 1) low = _mm_add_ss(low, _mm_mul_ss(_mm_load_ss(t + j), _mm_load_ss(x + j)));
    low = _mm_add_ps(low, high);
    low = _mm_add_ps(low, _mm_movehl_ps(low, low));
    return _mm_cvtss_f32(_mm_add_ss(low, _mm_shuffle_ps(low, low, 1)));
}

// The lowest address of the next four outputs is a multiple of 16.
template <bool down>
bool on_boundary(const float* out) {
    return reinterpret_cast<uintptr_t>(down ? out - 3 : out) % 16 == 0;
}

// Taps j to j + taps - 1 of all outputs. In a triangle the outputs at the end lack the last of them.
template <bool triangle, bool down>
void add_group(const float* x, const float* t, int n, int j, int taps, float* out, int count) {
    int full = triangle ? n - j - (taps - 1) : count;
    if (full > count) full = count;
    add_some_taps<down>(taps, x + j, t + j, out, full);
    for (int m = full; m < count && m < n - j; ++m)
        out[down ? -m : m] += plain_dot(x + m + j, t + j, n - m - j);
}

template <bool triangle, bool down>
void filter(const float* x, const float* t, int n, float* out, int count) {
    constexpr int step = down ? -1 : 1;
    if (triangle && (n < kLeastTaps || count < kLeastOutputs)) {
        for (int m = 0; m < count; ++m) out[step * m] = plain_dot(x + m, t, n - m);
        return;
    }
    for (; count > 0 && !on_boundary<down>(out); --count, ++x, out += step) {
        *out = wide_dot(x, t, n);
        if (triangle) --n;
    }
    if (count == 0) return;
    memset(down ? out - (count - 1) : out, 0, count * sizeof(float));
    for (int j = 0; j < n; j += 4)
        add_group<triangle, down>(x, t, n, j, n - j < 4 ? n - j : 4, out, count);
}

} // namespace

VOR_FILTERS(ownForwFilter_32f, ownBackFilter_32f, ownFirstTriangle_32f, ownLastTriangle_32f, float)

} // namespace vor::signal
