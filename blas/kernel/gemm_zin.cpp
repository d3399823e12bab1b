// Inner kernels of zgemm: contract in gemm_kernels.h.
#include "blas/kernel/gemm_columns.h"
#include "blas/kernel/gemm_kernels.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

constexpr int kGroup = 2;

// alpha, and whether it is one of the two that need no multiplication.
struct Scale {
    const cdouble* alpha;
    int way; // 1 and -1: alpha is that number; 0: another

    explicit Scale(const cdouble* x)
        : alpha(x), way(x->im != 0      ? 0
                        : x->re == 1    ? 1
                        : x->re == -1.0 ? -1
                                        : 0) {}
};

// Two rows of a column. On the x87 stack, from the top, stand the sums re0, im0, re1, im1; panel a has
// the same four numbers for each step. A part of b(l) is pushed, each of its products enters a sum, and
// the last product takes its place. (fsubrp subtracts the top from the other, in this syntax.)
#define REAL_STEP                                                                                  \
    "fldl 16*.Lstep(%[b])\n"                                                                       \
    "fldl 32*.Lstep(%[a])\n fmul %%st(1), %%st\n faddp %%st, %%st(2)\n"                            \
    "fldl 32*.Lstep+8(%[a])\n fmul %%st(1), %%st\n faddp %%st, %%st(3)\n"                          \
    "fldl 32*.Lstep+16(%[a])\n fmul %%st(1), %%st\n faddp %%st, %%st(4)\n"                         \
    "fmull 32*.Lstep+24(%[a])\n faddp %%st, %%st(4)\n"
#define IMAGINARY_STEP                                                                             \
    "fldl 16*.Lstep+8(%[b])\n"                                                                     \
    "fldl 32*.Lstep(%[a])\n fmul %%st(1), %%st\n faddp %%st, %%st(3)\n"                            \
    "fldl 32*.Lstep+8(%[a])\n fmul %%st(1), %%st\n fsubrp %%st, %%st(2)\n"                         \
    "fldl 32*.Lstep+16(%[a])\n fmul %%st(1), %%st\n faddp %%st, %%st(5)\n"                         \
    "fmull 32*.Lstep+24(%[a])\n fsubrp %%st, %%st(3)\n"
#define SWEEP(first, body) /* steps first to K */                                                  \
    ".set .Lstep, " first "\n .rept %c[steps] - " first "\n" body                                  \
    ".set .Lstep, .Lstep + 1\n .endr\n"

// The sums leave the stack for C: with alpha = 1 and -1 by one operation, else times alpha, an element
// after the other.
#define UPDATE(operation)                                                                          \
    operation " (%[c])\n fstpl (%[c])\n" operation " 8(%[c])\n fstpl 8(%[c])\n" operation          \
              " 16(%[c])\n fstpl 16(%[c])\n" operation " 24(%[c])\n fstpl 24(%[c])\n"
#define UPDATE_TIMES_ALPHA(re, im)                                                                 \
    "fldl (%[alpha])\n fmul %%st(1), %%st\n fldl 8(%[alpha])\n fmul %%st(3), %%st\n"               \
    "fsubrp %%st, %%st(1)\n faddl " re "(%[c])\n fstpl " re "(%[c])\n"                             \
    "fmull 8(%[alpha])\n fxch %%st(1)\n fmull (%[alpha])\n faddp %%st, %%st(1)\n"                  \
    "faddl " im "(%[c])\n fstpl " im "(%[c])\n"

// Written by hand: without a register exchanged or copied every turn of both units goes into the sums.
template <int K>
inline void pair(const cdouble* a, const cdouble* b, cdouble* c, const Scale& scale) {
    // clang-format off
    asm volatile("fldl 24(%[a])\n fmull (%[b])\n fldl 16(%[a])\n fmull (%[b])\n"
                 "fldl 8(%[a])\n fmull (%[b])\n fldl (%[a])\n fmull (%[b])\n" // the first real step
                 SWEEP("1", REAL_STEP)
                 SWEEP("0", IMAGINARY_STEP)
                 "cmpl $0, %[way]\n jl 1f\n je 2f\n"
                 UPDATE("faddl")
                 "jmp 3f\n"
                 "1:\n"
                 UPDATE("fsubrl")
                 "jmp 3f\n"
                 "2:\n"
                 UPDATE_TIMES_ALPHA("0", "8")
                 UPDATE_TIMES_ALPHA("16", "24")
                 "3:\n"
                 :
                 : [a] "r"(a), [b] "r"(b), [c] "r"(c), [alpha] "r"(scale.alpha),
                   [way] "m"(scale.way), [steps] "i"(K)
                 : "memory", "cc", "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)",
                   "st(7)");
    // clang-format on
}
#undef REAL_STEP
#undef IMAGINARY_STEP
#undef SWEEP
#undef UPDATE
#undef UPDATE_TIMES_ALPHA

} // namespace

#define KERNEL(name, M, K)                                                                         \
    VOR_ENGINE void name PARAMS_GEMM_KERNEL_Z(cdouble) {                                           \
        const Scale scale(alpha);                                                                  \
        const auto group = [&scale](const cdouble* x, const cdouble* y, cdouble* z) {              \
            pair<K>(x, y, z, scale);                                                               \
        };                                                                                         \
        column_by_column<M, K, kGroup>(*n, apanel, b, *ldb, c, *ldc, group);                       \
    }
KERNEL(vor_blas_zin16_32, 16, 32)
KERNEL(vor_blas_zin8_32, 8, 32)
KERNEL(vor_blas_zin4_32, 4, 32)
KERNEL(vor_blas_zin16_24, 16, 24)
KERNEL(vor_blas_zin32_16, 32, 16)

} // namespace vor::blas
