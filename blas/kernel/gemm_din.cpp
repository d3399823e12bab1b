// Inner kernels of dgemm: contract in gemm_kernels.h.
#include "blas/kernel/gemm_columns.h"
#include "blas/kernel/gemm_kernels.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

constexpr int kGroup = 4;

// One step into the sums of four rows. On the x87 stack, from the top, stand the four sums; b(l) is
// pushed, each of its products is added to a sum, and the last product takes its place.
#define STEP                                                                                       \
    "fldl 8*.Lstep(%[b])\n"                                                                        \
    "fldl 32*.Lstep(%[a])\n fmul %%st(1), %%st\n faddp %%st, %%st(2)\n"                            \
    "fldl 32*.Lstep+8(%[a])\n fmul %%st(1), %%st\n faddp %%st, %%st(3)\n"                          \
    "fldl 32*.Lstep+16(%[a])\n fmul %%st(1), %%st\n faddp %%st, %%st(4)\n"                         \
    "fmull 32*.Lstep+24(%[a])\n faddp %%st, %%st(4)\n"

// Written by hand: without a register exchanged or copied every turn of both units goes into the sums.
template <int K>
inline void group(const double* a, const double* b, double* c) {
    asm volatile("fldl 24(%[a])\n fmull (%[b])\n fldl 16(%[a])\n fmull (%[b])\n"
                 "fldl 8(%[a])\n fmull (%[b])\n fldl (%[a])\n fmull (%[b])\n"
                 ".set .Lstep, 1\n .rept %c[steps] - 1\n" STEP ".set .Lstep, .Lstep + 1\n .endr\n"
                 "faddl (%[c])\n fstpl (%[c])\n faddl 8(%[c])\n fstpl 8(%[c])\n"
                 "faddl 16(%[c])\n fstpl 16(%[c])\n faddl 24(%[c])\n fstpl 24(%[c])\n"
                 :
                 : [a] "r"(a), [b] "r"(b), [c] "r"(c), [steps] "i"(K)
                 : "memory", "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)");
}
#undef STEP

} // namespace

#define KERNEL(name, M, K)                                                                         \
    VOR_ENGINE void name PARAMS_GEMM_KERNEL(double) {                                              \
        column_by_column<M, K, kGroup>(*n, apanel, b, *ldb, c, *ldc, group<K>);                    \
    }
KERNEL(vor_blas_din16_64, 16, 64)
KERNEL(vor_blas_din8_64, 8, 64)
KERNEL(vor_blas_din4_64, 4, 64)
KERNEL(vor_blas_din16_48, 16, 48)
KERNEL(vor_blas_din32_32, 32, 32)
KERNEL(vor_blas_din32_16, 32, 16)

} // namespace vor::blas
