// data[i] := factor * data[i].
#include "signal/fft/kernels.h"

#include <xmmintrin.h>

extern "C" void tavs_rbMpy1_32f(float factor, float* data, int count) {
    const __m128 four = _mm_set1_ps(factor);
    int i = 0;
    for (; i + 4 <= count; i += 4)
        _mm_storeu_ps(data + i, _mm_mul_ps(four, _mm_loadu_ps(data + i)));
    for (; i < count; ++i) data[i] *= factor;
}

extern "C" void tavs_rbMpy1_64f(double factor, double* data, int count) {
    for (int i = 0; i < count; ++i) data[i] *= factor;
}
