// Inner kernels of sgemm: contract in gemm_kernels.h.
#include "arith/lanes.h"
#include "blas/kernel/gemm_columns.h"
#include "blas/kernel/gemm_kernels.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

constexpr int kGroup = 16;

// How a group comes by b(l) in all lanes of a vector: by spreading it, which takes a turn of the unit
// that adds, or from what the first group of the column has left behind.
enum class Spread { use, keep, load };

template <int K, Spread way>
inline void group(const float* a, const float* b, float* c, __m128* spread) {
    __m128 s0 = _mm_setzero_ps(), s1 = s0, s2 = s0, s3 = s0;
#pragma GCC unroll 64
    for (int l = 0; l < K; ++l) {
        // No load moves to an earlier step: all broadcasts of a column ahead of the sums would spill.
        asm volatile("" ::: "memory");
        const __m128 x = way == Spread::load ? spread[l] : _mm_load1_ps(b + l);
        if (way == Spread::keep) spread[l] = x;
        s0 = _mm_add_ps(s0, _mm_mul_ps(_mm_load_ps(a + l * kGroup), x));
        s1 = _mm_add_ps(s1, _mm_mul_ps(_mm_load_ps(a + l * kGroup + 4), x));
        s2 = _mm_add_ps(s2, _mm_mul_ps(_mm_load_ps(a + l * kGroup + 8), x));
        s3 = _mm_add_ps(s3, _mm_mul_ps(_mm_load_ps(a + l * kGroup + 12), x));
    }
    _mm_storeu_ps(c, _mm_add_ps(s0, _mm_loadu_ps(c)));
    _mm_storeu_ps(c + 4, _mm_add_ps(s1, _mm_loadu_ps(c + 4)));
    _mm_storeu_ps(c + 8, _mm_add_ps(s2, _mm_loadu_ps(c + 8)));
    _mm_storeu_ps(c + 12, _mm_add_ps(s3, _mm_loadu_ps(c + 12)));
}

template <int M, int K>
inline void kernel(int n, const float* apanel, const float* b, int ldb, float* c, int ldc) {
    __m128 spread[K];
    column_by_column<M, K, kGroup>(n, apanel, b, ldb, c, ldc,
                                   [&](const float* a, const float* x, float* y) {
                                       if (M == kGroup)
                                           group<K, Spread::use>(a, x, y, spread);
                                       else if (a == apanel)
                                           group<K, Spread::keep>(a, x, y, spread);
                                       else
                                           group<K, Spread::load>(a, x, y, spread);
                                   });
}

} // namespace

#define KERNEL(name, M, K)                                                                         \
    VOR_ENGINE void name PARAMS_GEMM_KERNEL(float) {                                               \
        kernel<M, K>(*n, apanel, b, *ldb, c, *ldc);                                                \
    }
KERNEL(vor_blas_sin32_64, 32, 64)
KERNEL(vor_blas_sin16_64, 16, 64)
KERNEL(vor_blas_sin32_48, 32, 48)
KERNEL(vor_blas_sin32_32, 32, 32)
KERNEL(vor_blas_sin32_16, 32, 16)

} // namespace vor::blas
