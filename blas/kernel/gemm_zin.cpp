// Inner kernels of zgemm: contract in gemm_kernels.h.
#include "blas/kernel/gemm_columns.h"
#include "blas/kernel/gemm_kernels.h"
#include "serv/entry.h"
#include "serv/x87.h"

namespace {

using vor::cdouble;
using vor::loaded;

constexpr int kGroup = 2;

// alpha, and whether it is one of the two that need no multiplication.
struct Scale {
    enum Way { one, minus_one, other } way;
    long double re, im;

    explicit Scale(cdouble alpha)
        : way(alpha.im != 0      ? other
              : alpha.re == 1    ? one
              : alpha.re == -1.0 ? minus_one
                                 : other),
          re(alpha.re), im(alpha.im) {}
};

// C := C + alpha * sum for one element.
inline void finish(long double re, long double im, const Scale& alpha, cdouble* c) {
    if (alpha.way == Scale::one) {
        c->re = static_cast<double>(re + c->re);
        c->im = static_cast<double>(im + c->im);
    } else if (alpha.way == Scale::minus_one) {
        c->re = static_cast<double>(c->re - re);
        c->im = static_cast<double>(c->im - im);
    } else {
        c->re = static_cast<double>(re * alpha.re - im * alpha.im + c->re);
        c->im = static_cast<double>(re * alpha.im + im * alpha.re + c->im);
    }
}

// Two rows, panel a with four numbers a step: re and im of the first row, re and im of the second.
template <int K>
inline void pair(const double* a, const double* b, cdouble* c, const Scale& alpha) {
    long double x = b[0];
    long double re0 = a[0] * x, im0 = a[1] * x, re1 = a[2] * x, im1 = a[3] * x;
#pragma GCC unroll 32
    for (int l = 1; l < K; ++l) {
        x = b[2 * l];
        re0 += loaded(a[4 * l]) * x;
        im0 += loaded(a[4 * l + 1]) * x;
        re1 += loaded(a[4 * l + 2]) * x;
        im1 += a[4 * l + 3] * x;
    }
    // Loaded again: kept in registers of the first sweep they would be spilled as 80-bit numbers.
    asm("" : "+r"(a));
#pragma GCC unroll 32
    for (int l = 0; l < K; ++l) {
        x = b[2 * l + 1];
        im0 += loaded(a[4 * l]) * x;
        re0 -= loaded(a[4 * l + 1]) * x;
        im1 += loaded(a[4 * l + 2]) * x;
        re1 -= a[4 * l + 3] * x;
    }
    finish(re0, im0, alpha, c);
    finish(re1, im1, alpha, c + 1);
}

} // namespace

#define KERNEL(M, K)                                                                               \
    VOR_ENGINE void vor_blas_zin##M##_##K PARAMS_GEMM_KERNEL_Z(cdouble) {                          \
        const Scale scale(*alpha);                                                                 \
        vor::by_columns<M, K, kGroup>(*n, apanel, b, *ldb, c, *ldc,                                \
                                      [&scale](const cdouble* a, const cdouble* x, cdouble* y) {   \
                                          pair<K>(&a->re, &x->re, y, scale);                       \
                                      });                                                          \
    }
KERNEL(16, 32)
KERNEL(8, 32)
KERNEL(4, 32)
KERNEL(16, 24)
KERNEL(32, 16)
