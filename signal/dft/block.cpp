// Element-wise operations on n complex values: product, conjugating copy, zero. The single-precision
// forms work on vectors of two values; nothing needs alignment. With n < 1 nothing is touched.
#include "signal/dft/kernels.h"

#include <xmmintrin.h>

namespace vor::dft {
namespace {

void multiply(const cfloat* a, const cfloat* b, cfloat* c, int n) {
    int k = 0;
    for (; k + 2 <= n; k += 2)
        _mm_storeu_ps(&c[k].re,
                      product_of_two<false>(_mm_loadu_ps(&b[k].re), _mm_loadu_ps(&a[k].re)));
    if (k < n) c[k] = a[k] * b[k];
}

void multiply(const cdouble* a, const cdouble* b, cdouble* c, int n) {
    for (int k = 0; k < n; ++k) c[k] = a[k] * b[k];
}

void conjugate(const cfloat* a, cfloat* b, int n) {
    const __m128 sign = _mm_setr_ps(0, -0.0F, 0, -0.0F);
    int k = 0;
    for (; k + 2 <= n; k += 2) _mm_storeu_ps(&b[k].re, _mm_xor_ps(_mm_loadu_ps(&a[k].re), sign));
    if (k < n) b[k] = conj(a[k]);
}

void conjugate(const cdouble* a, cdouble* b, int n) {
    for (int k = 0; k < n; ++k) b[k] = conj(a[k]);
}

void zero(cfloat* a, int n) {
    int k = 0;
    for (; k + 2 <= n; k += 2) _mm_storeu_ps(&a[k].re, _mm_setzero_ps());
    if (k < n) a[k] = {0, 0};
}

void zero(cdouble* a, int n) {
    for (int k = 0; k < n; ++k) a[k] = {0, 0};
}

} // namespace
} // namespace vor::dft

#define BLOCK(suffix, C)                                                                           \
    extern "C" void tavs_cbMpy3_##suffix(const C* a, const C* b, C* c, int n) {                    \
        vor::dft::multiply(a, b, c, n);                                                            \
    }                                                                                              \
    extern "C" void tavs_cbConj2_##suffix(const C* a, C* b, int n) {                               \
        vor::dft::conjugate(a, b, n);                                                              \
    }                                                                                              \
    extern "C" void tavs_cbZero_##suffix(C* a, int n) {                                            \
        vor::dft::zero(a, n);                                                                      \
    }
BLOCK(32fc, vor::cfloat)
BLOCK(64fc, vor::cdouble)
