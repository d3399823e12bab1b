// Matrix-vector products: gemv, gbmv, and the symmetric and Hermitian ones in three layouts.
#include "tests/blas/level2.h"

using namespace vor::test;

namespace {

WorstShare products("matrix-vector products");

template <class T>
class Level2Product : public testing::Test {
protected:
    using Call = std::function<void(T* a, const T* alpha, Steps<T>& x, const T* beta, Steps<T>& y)>;

    // y := alpha * dense * x + beta * y by `call`, under several scalars and steps.
    void check(Stored<T>& a, const Dense& dense, int rows, int columns, double bound,
               const std::string& what, const Call& call) {
        const double scalars[][2] = {{0.7, -1.3}, {1, 0}, {-1, 1}, {0, 0.5}, {0, 0}};
        for (const StepPair& inc : kSteps) {
            const auto& [first, second] = scalars[turn_++ % 5];
            const T alpha = element<T>(first, first * 0.5), beta = element<T>(second, second / 3);
            auto x = Steps<T>::random(random_, columns, inc.x);
            auto y = Steps<T>::random(random_, rows, inc.y);
            if (vor::is_zero(beta)) y.fill(not_a_number<T>());
            const Steps<T> x_before = x, y_before = y;
            call(a.data(), &alpha, x, &beta, y);
            ErrorMeter<T> worst;
            for (int i = 0; i < rows; ++i)
                meter(worst, y[i], product_row(alpha, dense, i, x, beta, y_before[i]));
            products.expect(worst.worst(), bound,
                            what + " steps " + std::to_string(inc.x) + " " + std::to_string(inc.y) +
                                " alpha " + std::to_string(first) + " beta " +
                                std::to_string(second));
            EXPECT_TRUE(y.intact() && x.intact() && x.same_as(x_before) && a.unchanged()) << what;
        }
    }

    Random random_{3};
    int turn_ = 0;
};
TYPED_TEST_SUITE(Level2Product, Elements);

struct Shape {
    int m, n;
};

// On both sides of the strip of 64 rows and of the groups of columns, and of the shapes that choose a
// kernel. The sums of a strip run in extended precision: what is counted are the roundings of y.
TYPED_TEST(Level2Product, General) {
    using T = TypeParam;
    const Shape shapes[] = {{1, 1},   {2, 3},    {63, 5},   {64, 1},   {64, 4},
                            {65, 2},  {127, 7},  {3, 65},   {128, 33}, {129, 66},
                            {200, 5}, {249, 10}, {300, 60}, {275, 125}};
    for (const auto& [m, n] : shapes)
        for (const char trans : {'N', 't', 'T', 'n', 'C', 'c'}) {
            Stored<T> a(this->random_, full(m, n, m + 3));
            const bool tall = plain(trans);
            const int roundings = tall ? n : (m + 63) / 64;
            this->check(
                a, under(trans, general(a)), tall ? m : n, tall ? n : m, 0.5 * roundings + 3,
                std::string("gemv ") + trans + " " + std::to_string(m) + " " + std::to_string(n),
                [&](T* data, const T* alpha, Steps<T>& x, const T* beta, Steps<T>& y) {
                    Level2<T>::gemv(&trans, &m, &n, alpha, data, &a.ld(), x.data(), &x.inc(), beta,
                                    y.data(), &y.inc());
                });
        }
}

TYPED_TEST(Level2Product, Band) {
    using T = TypeParam;
    const struct {
        int m, n, kl, ku;
    } shapes[] = {{1, 1, 0, 0},    {5, 5, 0, 0},    {6, 5, 1, 2},    {4, 9, 2, 0},  {9, 4, 0, 3},
                  {40, 37, 20, 5}, {37, 60, 3, 17}, {7, 30, 1, 1},   {30, 7, 1, 1}, {3, 4, 9, 9},
                  {70, 70, 64, 0}, {2, 8, 0, 0},    {50, 50, 12, 12}};
    for (const auto& [m, n, kl, ku] : shapes)
        for (const char trans : {'N', 'T', 'c'}) {
            Stored<T> a(this->random_, band(m, n, kl, ku, kl + ku + 3));
            const bool tall = plain(trans);
            this->check(a, under(trans, general(a)), tall ? m : n, tall ? n : m,
                        sum_bound<T>(std::min(kl + ku + 1, std::max(m, n)) + 2),
                        std::string("gbmv ") + trans + " " + std::to_string(m) + " " +
                            std::to_string(n) + " " + std::to_string(kl) + " " + std::to_string(ku),
                        [&](T* data, const T* alpha, Steps<T>& x, const T* beta, Steps<T>& y) {
                            Level2<T>::gbmv(&trans, &m, &n, &kl, &ku, alpha, data, &a.ld(),
                                            x.data(), &x.inc(), beta, y.data(), &y.inc());
                        });
        }
}

TYPED_TEST(Level2Product, Symmetric) {
    using T = TypeParam;
    for (const int n : {1, 2, 3, 4, 5, 7, 8, 15, 16, 17, 33, 50, 101})
        for (const Triangle& t : triangles(n)) {
            Stored<T> a(this->random_, t.layout);
            // The imaginary parts of a Hermitian diagonal are not looked at.
            if constexpr (vor::is_complex<T>)
                for (int i = 0; i < n; ++i) a(i, i).im = not_a_number<T>().im;
            a.remember();
            const char uplo = static_cast<char>(n % 2 ? t.uplo : std::tolower(t.uplo));
            this->check(a, hermitian(a), n, n, sum_bound<T>(n + 2),
                        std::string("symmetric ") + t.uplo + " " + std::to_string(n) + " ld " +
                            std::to_string(t.layout.ld) + " k " + std::to_string(t.k),
                        [&](T* data, const T* alpha, Steps<T>& x, const T* beta, Steps<T>& y) {
                            if (t.kind == Kind::packed)
                                Level2<T>::spmv(&uplo, &n, alpha, data, x.data(), &x.inc(), beta,
                                                y.data(), &y.inc());
                            else if (t.kind == Kind::band)
                                Level2<T>::sbmv(&uplo, &n, &t.k, alpha, data, &a.ld(), x.data(),
                                                &x.inc(), beta, y.data(), &y.inc());
                            else
                                Level2<T>::symv(&uplo, &n, alpha, data, &a.ld(), x.data(), &x.inc(),
                                                beta, y.data(), &y.inc());
                        });
        }
}

// Without something to do neither operand is read nor y written; with alpha = 0 the operands are not
// read.
TYPED_TEST(Level2Product, WhatIsMultipliedByZeroIsNotRead) {
    using T = TypeParam;
    const T nan = not_a_number<T>(), zero{}, one = element<T>(1), half = element<T>(0.5);
    const int n = 70, none = 0, step = 1;
    Stored<T> a(this->random_, full(n, n, n));
    a.fill(nan);
    Steps<T> x(n, 1);
    for (const char trans : {'N', 'T'}) {
        auto y = Steps<T>::random(this->random_, n, 1);
        const auto before = y;
        Level2<T>::gemv(&trans, &n, &n, &zero, a.data(), &n, x.data(), &step, &one, y.data(),
                        &step);
        Level2<T>::gemv(&trans, &none, &n, &one, a.data(), &n, x.data(), &step, &zero, y.data(),
                        &step);
        Level2<T>::gemv(&trans, &n, &none, &one, a.data(), &n, x.data(), &step, &zero, y.data(),
                        &step);
        Level2<T>::symv("U", &none, &one, a.data(), &n, x.data(), &step, &zero, y.data(), &step);
        Level2<T>::symv("L", &n, &zero, a.data(), &n, x.data(), &step, &one, y.data(), &step);
        EXPECT_TRUE(y.same_as(before));
        Level2<T>::symv("L", &n, &zero, a.data(), &n, x.data(), &step, &half, y.data(), &step);
        for (int i = 0; i < n; ++i) EXPECT_EQ(wide(y[i]), times(wide(before[i]), wide(half)));
        y.fill(nan);
        Level2<T>::gemv(&trans, &n, &n, &zero, a.data(), &n, x.data(), &step, &zero, y.data(),
                        &step);
        for (int i = 0; i < n; ++i) EXPECT_EQ(wide(y[i]), Wide());
    }
}

} // namespace
