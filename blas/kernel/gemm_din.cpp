// Inner kernels of dgemm: contract in gemm_kernels.h.
#include "blas/kernel/gemm_columns.h"
#include "blas/kernel/gemm_kernels.h"
#include "serv/entry.h"
#include "serv/x87.h"

namespace {

using vor::loaded;

constexpr int kGroup = 4;

template <int K>
inline void group(const double* a, const double* b, double* c) {
    long double x = b[0];
    long double s0 = a[0] * x, s1 = a[1] * x, s2 = a[2] * x, s3 = a[3] * x;
#pragma GCC unroll 64
    for (int l = 1; l < K; ++l) {
        x = b[l];
        s0 += loaded(a[l * kGroup]) * x;
        s1 += loaded(a[l * kGroup + 1]) * x;
        s2 += loaded(a[l * kGroup + 2]) * x;
        s3 += a[l * kGroup + 3] * x;
    }
    c[0] = static_cast<double>(s0 + c[0]);
    c[1] = static_cast<double>(s1 + c[1]);
    c[2] = static_cast<double>(s2 + c[2]);
    c[3] = static_cast<double>(s3 + c[3]);
}

} // namespace

#define KERNEL(M, K)                                                                               \
    VOR_ENGINE void vor_blas_din##M##_##K PARAMS_GEMM_KERNEL(double) {                             \
        vor::by_columns<M, K, kGroup>(*n, apanel, b, *ldb, c, *ldc, group<K>);                     \
    }
KERNEL(16, 64)
KERNEL(8, 64)
KERNEL(4, 64)
KERNEL(16, 48)
KERNEL(32, 32)
KERNEL(32, 16)
