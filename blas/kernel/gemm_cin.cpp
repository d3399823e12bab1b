// Inner kernels of cgemm: contract in gemm_kernels.h.
#include "blas/kernel/complex_rows.h"
#include "blas/kernel/gemm_kernels.h"
#include "blas/kernel/gemm_lanes.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

// Where row i of a panel begins, in floats.
template <int K>
constexpr int row_at(int i) {
    return i / 2 * 4 * K + i % 2 * 8;
}

// Rows I to I + R of one column: R real and R imaginary sums.
template <int K, int I, int R>
inline void rows(const float* a, const float* b, cfloat* c) {
    __m128 re[R], im[R];
#pragma GCC unroll 3
    for (int r = 0; r < R; ++r) re[r] = im[r] = _mm_setzero_ps();
#pragma GCC unroll 16
    for (int q = 0; q < K / 4; ++q) {
        // No load moves to an earlier step: it would cost a sum its register.
        asm volatile("" ::: "memory");
        const __m128 x = _mm_load_ps(b + 8 * q);
#pragma GCC unroll 3
        for (int r = 0; r < R; ++r) {
            const float* row = a + row_at<K>(I + r) + 16 * q;
            re[r] = _mm_add_ps(re[r], _mm_mul_ps(_mm_load_ps(row), x));
            im[r] = _mm_add_ps(im[r], _mm_mul_ps(_mm_load_ps(row + 4), x));
        }
    }
#pragma GCC unroll 16
    for (int q = 0; q < K / 4; ++q) {
        asm volatile("" ::: "memory");
        const __m128 x = _mm_load_ps(b + 8 * q + 4);
#pragma GCC unroll 3
        for (int r = 0; r < R; ++r) {
            const float* row = a + row_at<K>(I + r) + 16 * q;
            im[r] = _mm_add_ps(im[r], _mm_mul_ps(_mm_load_ps(row), x));
            re[r] = _mm_sub_ps(re[r], _mm_mul_ps(_mm_load_ps(row + 4), x));
        }
    }
    c += I;
    if constexpr (R == 3) {
        const __m128 last = sums_of_lanes(re[2], im[2], re[2], im[2]);
        store_rows<1>(c + 2, _mm_add_ps(last, load_rows<1>(c + 2)));
    }
    store_rows<2>(c, _mm_add_ps(sums_of_lanes(re[0], im[0], re[1], im[1]), load_rows<2>(c)));
}

// Three rows at a time: six sums hide the latency of an addition, and the registers hold no more beside
// a vector of B and a product.
template <int M, int K>
void kernel(int n, const float* a, const float* b, int ldb, cfloat* c, int step) {
    for (int j = 0; j < n; ++j, b += 2 * ldb, c += step) {
        rows<K, 0, M == 8 ? 3 : 2>(a, b, c);
        rows<K, M == 8 ? 3 : 2, M == 8 ? 3 : 2>(a, b, c);
        if constexpr (M == 8) rows<K, 6, 2>(a, b, c);
    }
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
