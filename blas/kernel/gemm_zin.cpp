// Inner kernels of zgemm: contract in gemm_kernels.h.
#include "blas/kernel/gemm_kernels.h"
#include "serv/entry.h"

namespace {

using vor::cdouble;

constexpr int kGroup = 2;

template <int K>
inline void pair(const double* a, const double* b, cdouble* c, cdouble alpha) {
    long double re[kGroup] = {}, im[kGroup] = {};
    for (int l = 0; l < K; ++l)
        for (int r = 0; r < kGroup; ++r) {
            re[r] += static_cast<long double>(a[4 * l + 2 * r]) * b[2 * l];
            im[r] += static_cast<long double>(a[4 * l + 2 * r + 1]) * b[2 * l];
        }
    for (int l = 0; l < K; ++l)
        for (int r = 0; r < kGroup; ++r) {
            im[r] += static_cast<long double>(a[4 * l + 2 * r]) * b[2 * l + 1];
            re[r] -= static_cast<long double>(a[4 * l + 2 * r + 1]) * b[2 * l + 1];
        }
    for (int r = 0; r < kGroup; ++r) {
        if (alpha.im == 0 && alpha.re == 1) {
            c[r].re = static_cast<double>(re[r] + c[r].re);
            c[r].im = static_cast<double>(im[r] + c[r].im);
        } else if (alpha.im == 0 && alpha.re == -1) {
            c[r].re = static_cast<double>(c[r].re - re[r]);
            c[r].im = static_cast<double>(c[r].im - im[r]);
        } else {
            c[r].re = static_cast<double>(re[r] * alpha.re - im[r] * alpha.im + c[r].re);
            c[r].im = static_cast<double>(re[r] * alpha.im + im[r] * alpha.re + c[r].im);
        }
    }
}

template <int M, int K>
void kernel(int n, const cdouble* a, const cdouble* b, int ldb, cdouble* c, int ldc,
            cdouble alpha) {
    for (int j = 0; j < n; ++j, b += ldb, c += ldc)
        for (int i = 0; i < M; i += kGroup) pair<K>(&a[i * K].re, &b->re, c + i, alpha);
}

} // namespace

#define KERNEL(M, K)                                                                               \
    VOR_ENGINE void vor_blas_zin##M##_##K PARAMS_GEMM_KERNEL_Z(cdouble) {                          \
        kernel<M, K>(*n, apanel, b, *ldb, c, *ldc, *alpha);                                        \
    }
KERNEL(16, 32)
KERNEL(8, 32)
KERNEL(4, 32)
KERNEL(16, 24)
KERNEL(32, 16)
