// The step that direct convolution and correlation share in 32 bits.
#pragma once

#include <xmmintrin.h>

namespace vor::signal {

// out[m] (out[-m] if `down`) += t[0] x[m] + ... + t[taps-1] x[m+taps-1], m from 0 to count - 1, four
// outputs a step. Any alignment.
template <int taps, bool down>
inline void add_taps(const float* x, const float* t, float* out, int count) {
    __m128 tap[taps];
    for (int a = 0; a < taps; ++a) tap[a] = _mm_set1_ps(t[a]);
    int m = 0;
    for (; m + 4 <= count; m += 4) {
        __m128 sum = _mm_mul_ps(tap[0], _mm_loadu_ps(x + m));
        for (int a = 1; a < taps; ++a)
            sum = _mm_add_ps(sum, _mm_mul_ps(tap[a], _mm_loadu_ps(x + m + a)));
        float* to = down ? out - m - 3 : out + m;
        if (down) sum = _mm_shuffle_ps(sum, sum, _MM_SHUFFLE(0, 1, 2, 3));
        _mm_storeu_ps(to, _mm_add_ps(_mm_loadu_ps(to), sum));
    }
    for (; m < count; ++m) {
        float sum = t[0] * x[m];
        for (int a = 1; a < taps; ++a) sum += t[a] * x[m + a];
        out[down ? -m : m] += sum;
    }
}

// The same with a number of taps from 1 to 4 known at run time.
template <bool down>
inline void add_some_taps(int taps, const float* x, const float* t, float* out, int count) {
    switch (taps) {
    case 1:
        return add_taps<1, down>(x, t, out, count);
    case 2:
        return add_taps<2, down>(x, t, out, count);
    case 3:
        return add_taps<3, down>(x, t, out, count);
    default:
        return add_taps<4, down>(x, t, out, count);
    }
}

} // namespace vor::signal
