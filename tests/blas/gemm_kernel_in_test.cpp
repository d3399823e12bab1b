// The inner kernels bit for bit against their order of summation, on one and on several columns.
#include "blas/kernel/gemm_kernels.h"
#include "tests/common/matrix.h"

#include <gtest/gtest.h>

using namespace vor::test;
using vor::cdouble;
using vor::cfloat;

namespace {

// Three rows of slack, one element behind the alignment of the panels: C and b need none.
template <class T>
Matrix<T> any_matrix(Random& random, int rows, int columns) {
    return Matrix<T>::random(random, 'N', rows, columns, 3, sizeof(T));
}

template <class T>
struct RealKernel {
    int m, k;
    void(*run) PARAMS_GEMM_KERNEL(T);
};

float sum_of(const float* a, int step, const float* b, int k) {
    float sum = 0;
    for (int l = 0; l < k; ++l) sum += a[l * step] * b[l];
    return sum;
}
long double sum_of(const double* a, int step, const double* b, int k) {
    long double sum = static_cast<long double>(a[0]) * b[0];
    for (int l = 1; l < k; ++l) sum += static_cast<long double>(a[l * step]) * b[l];
    return sum;
}

template <class T>
void expect_order(std::initializer_list<RealKernel<T>> kernels, int group) {
    Random random(1);
    for (const auto& [m, k, run] : kernels)
        for (const int n : {1, 5}) {
            Guarded<T> a(static_cast<size_t>(m * k));
            a.fill(random);
            const auto b = any_matrix<T>(random, k, n);
            auto c = any_matrix<T>(random, m, n);
            Matrix<T> want = c;
            want.fill([&](int i, int j) {
                const T* row = a.data() + i / group * group * k + i % group;
                return static_cast<T>(sum_of(row, group, &b(0, j), k) + c(i, j));
            });
            run(&n, a.data(), b.data(), &b.ld(), c.data(), &c.ld());
            EXPECT_TRUE(c.same_as(want)) << m << " x " << n << " x " << k;
            EXPECT_TRUE(c.intact());
        }
}

} // namespace

TEST(GemmKernel, SingleSumsInOrder) {
    expect_order<float>({{32, 64, vor_blas_sin32_64},
                         {16, 64, vor_blas_sin16_64},
                         {32, 48, vor_blas_sin32_48},
                         {32, 32, vor_blas_sin32_32},
                         {32, 16, vor_blas_sin32_16}},
                        16);
}

TEST(GemmKernel, DoubleSumsInOrderAndExtended) {
    expect_order<double>({{16, 64, vor_blas_din16_64},
                          {8, 64, vor_blas_din8_64},
                          {4, 64, vor_blas_din4_64},
                          {16, 48, vor_blas_din16_48},
                          {32, 32, vor_blas_din32_32},
                          {32, 16, vor_blas_din32_16}},
                         4);
}

TEST(GemmKernel, DoubleComplexSumsInOrderAndExtended) {
    const struct {
        int m, k;
        void(*run) PARAMS_GEMM_KERNEL_Z(cdouble);
    } kernels[] = {{16, 32, vor_blas_zin16_32},
                   {8, 32, vor_blas_zin8_32},
                   {4, 32, vor_blas_zin4_32},
                   {16, 24, vor_blas_zin16_24},
                   {32, 16, vor_blas_zin32_16}};
    Random random(2);
    for (const auto& [m, k, run] : kernels)
        for (const cdouble alpha : {cdouble{1, 0}, {-1, 0}, {0.3, 0}, {0.7, -1.1}, {1, 0.5}}) {
            const int n = 3;
            Guarded<cdouble> a(static_cast<size_t>(m * k));
            a.fill(random);
            const auto b = any_matrix<cdouble>(random, k, n);
            auto c = any_matrix<cdouble>(random, m, n);
            Matrix<cdouble> want = c;
            want.fill([&](int i, int j) {
                const cdouble* row = a.data() + i / 2 * 2 * k + i % 2;
                Wide sum = 0;
                for (int l = 0; l < k; ++l)
                    sum += Wide(static_cast<long double>(row[2 * l].re) * b(l, j).re,
                                static_cast<long double>(row[2 * l].im) * b(l, j).re);
                for (int l = 0; l < k; ++l)
                    sum += Wide(-static_cast<long double>(row[2 * l].im) * b(l, j).im,
                                static_cast<long double>(row[2 * l].re) * b(l, j).im);
                const Wide x = times(sum, wide(alpha)) + wide(c(i, j));
                return element<cdouble>(x.real(), x.imag());
            });
            run(&n, a.data(), b.data(), &b.ld(), c.data(), &c.ld(), &alpha);
            EXPECT_TRUE(c.same_as(want)) << m << " x " << k << ", alpha " << alpha.re;
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
