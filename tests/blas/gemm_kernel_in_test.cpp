// The inner kernels of sgemm and cgemm bit for bit against their order of summation, on one and on
// several columns. (Those of dgemm and zgemm: gemm_engine_order_test.cpp, inside their engines.)
#include "blas/kernel/gemm_kernels.h"
#include "tests/common/matrix.h"

#include <gtest/gtest.h>

using namespace vor::test;
using vor::cfloat;

// C and b need no alignment: three rows of slack, one element behind that of the panels.
TEST(GemmKernel, SingleSumsInOrder) {
    const struct {
        int m, k;
        void(*run) PARAMS_GEMM_KERNEL(float);
    } kernels[] = {{32, 64, vor_blas_sin32_64},
                   {16, 64, vor_blas_sin16_64},
                   {32, 48, vor_blas_sin32_48},
                   {32, 32, vor_blas_sin32_32},
                   {32, 16, vor_blas_sin32_16}};
    Random random(1);
    for (const auto& [m, k, run] : kernels)
        for (const int n : {1, 5}) {
            Guarded<float> a(static_cast<size_t>(m * k));
            a.fill(random);
            const auto b = Matrix<float>::random(random, 'N', k, n, 3, sizeof(float));
            auto c = Matrix<float>::random(random, 'N', m, n, 3, sizeof(float));
            Matrix<float> want = c;
            want.fill([&](int i, int j) {
                const float* row = a.data() + i / 16 * 16 * k + i % 16;
                float sum = 0;
                for (int l = 0; l < k; ++l) sum += row[l * 16] * b(l, j);
                return sum + c(i, j);
            });
            run(&n, a.data(), b.data(), &b.ld(), c.data(), &c.ld());
            EXPECT_TRUE(c.same_as(want)) << m << " x " << n << " x " << k;
            EXPECT_TRUE(c.intact());
        }
}

// Four partial sums of each part, combined as (0 + 2) + (1 + 3).
TEST(GemmKernel, SingleComplexLanesInOrder) {
    const struct {
        int m, k;
        void(*run) PARAMS_GEMM_KERNEL_C;
    } kernels[] = {{8, 64, vor_blas_cin8_64},
                   {4, 64, vor_blas_cin4_64},
                   {8, 48, vor_blas_cin8_48},
                   {8, 32, vor_blas_cin8_32},
                   {8, 16, vor_blas_cin8_16}};
    Random random(4);
    const int ldp = 64, eight = 8;
    for (const auto& [m, k, run] : kernels)
        for (const int n : {1, 4}) {
            Guarded<float> a(static_cast<size_t>(2 * m * k)), b(static_cast<size_t>(2 * ldp * n));
            Guarded<cfloat> c(static_cast<size_t>(8 * n));
            a.fill(random);
            b.fill(random);
            c.fill(random);
            auto want = c.copy();
            for (int i = 0; i < m; ++i)
                for (int j = 0; j < n; ++j) {
                    float re[4] = {}, im[4] = {};
                    const float* row = a.data() + i / 2 * 4 * k + i % 2 * 8;
                    const float* column = b.data() + 2 * ldp * j;
                    const auto add = [&](float* sum, int row_part, int column_part, float sign) {
                        for (int l = 0; l < k; ++l)
                            sum[l % 4] += sign * row[l / 4 * 16 + row_part + l % 4] *
                                          column[l / 4 * 8 + column_part + l % 4];
                    };
                    add(re, 0, 0, 1);
                    add(im, 4, 0, 1);
                    add(im, 0, 4, 1);
                    add(re, 4, 4, -1);
                    cfloat& x = want[static_cast<size_t>(8 * j + i)];
                    x.re += (re[0] + re[2]) + (re[1] + re[3]);
                    x.im += (im[0] + im[2]) + (im[1] + im[3]);
                }
            run(&m, &n, &k, a.data(), b.data(), &ldp, c.data(), &eight);
            EXPECT_TRUE(same_bits(c.data(), want.data(), want.size())) << m << " x " << k;
            EXPECT_TRUE(a.intact() && b.intact() && c.intact());
        }
}
