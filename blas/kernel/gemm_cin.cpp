// Inner kernels of cgemm: contract in gemm_kernels.h.
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_lanes.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

constexpr int kPair = 2;

template <int K>
inline void pair(const float* a, const float* b, float* c) {
    __m128 re0 = _mm_setzero_ps(), im0 = re0, re1 = re0, im1 = re0;
#pragma GCC unroll 16
    for (int q = 0; q < K / 4; ++q) {
        asm volatile("" ::: "memory");
        const __m128 x = _mm_load_ps(b + 8 * q);
        re0 = _mm_add_ps(re0, _mm_mul_ps(_mm_load_ps(a + 16 * q), x));
        im0 = _mm_add_ps(im0, _mm_mul_ps(_mm_load_ps(a + 16 * q + 4), x));
        re1 = _mm_add_ps(re1, _mm_mul_ps(_mm_load_ps(a + 16 * q + 8), x));
        im1 = _mm_add_ps(im1, _mm_mul_ps(_mm_load_ps(a + 16 * q + 12), x));
    }
#pragma GCC unroll 16
    for (int q = 0; q < K / 4; ++q) {
        asm volatile("" ::: "memory");
        const __m128 x = _mm_load_ps(b + 8 * q + 4);
        im0 = _mm_add_ps(im0, _mm_mul_ps(_mm_load_ps(a + 16 * q), x));
        re0 = _mm_sub_ps(re0, _mm_mul_ps(_mm_load_ps(a + 16 * q + 4), x));
        im1 = _mm_add_ps(im1, _mm_mul_ps(_mm_load_ps(a + 16 * q + 8), x));
        re1 = _mm_sub_ps(re1, _mm_mul_ps(_mm_load_ps(a + 16 * q + 12), x));
    }
    _mm_store_ps(c, _mm_add_ps(sums_of_lanes(re0, im0, re1, im1), _mm_load_ps(c)));
}

template <int M, int K>
void kernel(int n, const float* a, const float* b, int ldb, cfloat* c, int step) {
    for (int j = 0; j < n; ++j, b += 2 * ldb, c += step)
        for (int i = 0; i < M; i += kPair) pair<K>(a + i * 2 * K, b, &c[i].re);
}

} // namespace

#define KERNEL(name, M, K)                                                                         \
    VOR_ENGINE void name PARAMS_GEMM_KERNEL_C {                                                    \
        static_cast<void>(k);                                                                      \
        kernel<M, K>(*n, apanel, bpanel, *ldbp, cblock, M + *ldc - *m);                            \
    }
KERNEL(vor_blas_cin8_64, 8, 64)
KERNEL(vor_blas_cin4_64, 4, 64)
KERNEL(vor_blas_cin8_48, 8, 48)
KERNEL(vor_blas_cin8_32, 8, 32)
KERNEL(vor_blas_cin8_16, 8, 16)

} // namespace vor::blas
