// Inner kernels of dgemm: contract in gemm_kernels.h.
#include "blas/kernel/gemm_kernels.h"
#include "serv/entry.h"

namespace {

constexpr int kGroup = 4;

template <int K>
inline void group(const double* a, const double* b, double* c) {
    long double sum[kGroup];
    for (int r = 0; r < kGroup; ++r) sum[r] = static_cast<long double>(a[r]) * b[0];
    for (int l = 1; l < K; ++l)
        for (int r = 0; r < kGroup; ++r)
            sum[r] += static_cast<long double>(a[l * kGroup + r]) * b[l];
    for (int r = 0; r < kGroup; ++r) c[r] = static_cast<double>(sum[r] + c[r]);
}

template <int M, int K>
void kernel(int n, const double* a, const double* b, int ldb, double* c, int ldc) {
    for (int j = 0; j < n; ++j, b += ldb, c += ldc)
        for (int i = 0; i < M; i += kGroup) group<K>(a + i * K, b, c + i);
}

} // namespace

#define KERNEL(M, K)                                                                               \
    VOR_ENGINE void vor_blas_din##M##_##K PARAMS_GEMM_KERNEL(double) {                             \
        kernel<M, K>(*n, apanel, b, *ldb, c, *ldc);                                                \
    }
KERNEL(16, 64)
KERNEL(8, 64)
KERNEL(4, 64)
KERNEL(16, 48)
KERNEL(32, 32)
KERNEL(32, 16)
