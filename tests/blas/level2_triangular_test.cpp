// Triangular products and solves in three layouts; solves are judged by what A times the solution
// leaves of the right side.
#include "tests/blas/level2.h"

using namespace vor::test;

extern "C" void vor_blas_dtrmv_in(const char* uplo, const char* trans, const char* diag,
                                  const int* n, const double* a, const int* lda, double* x,
                                  const int* incx);

namespace {

WorstShare products("triangular products with a vector"), solves("triangular solves of a vector");

template <class T>
class Level2Triangular : public testing::Test {
protected:
    // A random triangle whose solutions stay of the size of their right sides. With a diagonal of
    // ones the stored one is NaN.
    Stored<T> matrix(const Triangle& t, char diag) {
        Stored<T> a(random_, t.layout);
        for (int j = 0; j < t.n; ++j)
            for (int i = 0; i < t.n; ++i) {
                if (!a.has(i, j)) continue;
                if (i == j)
                    a(i, j) = diag == 'U' ? not_a_number<T>()
                                          : element<T>(1.5 + wide(a(i, j)).real() / 2,
                                                       wide(a(i, j)).imag());
                else
                    a(i, j) = element<T>(wide(a(i, j)).real() / t.n, wide(a(i, j)).imag() / t.n);
            }
        a.remember();
        return a;
    }

    void run(bool solve, const Triangle& t, char trans, char diag, Stored<T>& a, Steps<T>& x) {
        const char letters[] = {static_cast<char>(std::tolower(t.uplo)), trans, diag};
        if (t.kind == Kind::packed)
            (solve ? Level2<T>::tpsv : Level2<T>::tpmv)(letters, letters + 1, letters + 2, &t.n,
                                                        a.data(), x.data(), &x.inc());
        else if (t.kind == Kind::band)
            (solve ? Level2<T>::tbsv : Level2<T>::tbmv)(letters, letters + 1, letters + 2, &t.n,
                                                        &t.k, a.data(), &a.ld(), x.data(),
                                                        &x.inc());
        else
            (solve ? Level2<T>::trsv : Level2<T>::trmv)(letters, letters + 1, letters + 2, &t.n,
                                                        a.data(), &a.ld(), x.data(), &x.inc());
    }

    void check(bool solve, const Triangle& t, char trans, char diag, int inc) {
        Stored<T> a = matrix(t, diag);
        auto x = Steps<T>::random(random_, t.n, inc);
        const auto before = x;
        run(solve, t, trans, diag, a, x);
        const Dense op = under(trans, triangular(a, diag));
        const T one = element<T>(1), zero{};
        ErrorMeter<T> worst;
        for (int i = 0; i < t.n; ++i) {
            // The solution multiplied again, or the argument multiplied.
            Expected want = product_row(one, op, i, solve ? x : before, zero, zero);
            if (solve) {
                want.scale += magnitude(wide(before[i]));
                meter(worst, before[i], want);
            } else {
                meter(worst, x[i], want);
            }
        }
        (solve ? solves : products)
            .expect(worst.worst(), sum_bound<T>(std::min(t.n, t.k + 1) + 2),
                    (solve ? "solve " : "product ") + std::string{t.uplo, trans, diag} + " n " +
                        std::to_string(t.n) + " k " + std::to_string(t.k) + " step " +
                        std::to_string(inc));
        EXPECT_TRUE(x.intact() && a.unchanged());
    }

    Random random_{13};
};
TYPED_TEST_SUITE(Level2Triangular, Elements);

// Small orders in all layouts and with all letters; orders at the edges of the blocks of 32 and 64.
TYPED_TEST(Level2Triangular, ProductsAndSolves) {
    for (const bool solve : {false, true})
        for (const char trans : {'N', 'T', 'C'})
            for (const char diag : {'N', 'U'})
                for (const int inc : kSingleSteps) {
                    for (const int n : {0, 1, 2, 3, 4, 5, 8, 17, 21})
                        for (const Triangle& t : triangles(n))
                            this->check(solve, t, trans, diag, inc);
                    for (const int n : {31, 32, 33, 63, 64, 65, 100, 129})
                        for (const char uplo : {'U', 'L'}) {
                            this->check(solve, {Kind::full, uplo, n, n, triangle(uplo, n, n + 1)},
                                        trans, diag, inc);
                            if (n % 32 == 1)
                                this->check(solve, {Kind::packed, uplo, n, n, packed(uplo, n)},
                                            trans, diag, inc);
                        }
                }
}

// The diagonal block of a product serves orders beyond its routine's blocks, too.
TEST(Level2Kernels, TriangularBlocksOfAnyOrder) {
    Random random(23);
    for (const int n : {1, 2, 99, 100, 101, 201})
        for (const char uplo : {'U', 'L'})
            for (const char trans : {'N', 'T'}) {
                Stored<double> a(random, triangle(uplo, n, n + 1));
                auto x = Steps<double>::random(random, n, 2);
                const auto before = x;
                vor_blas_dtrmv_in(&uplo, &trans, "N", &n, a.data(), &a.ld(), x.data(), &x.inc());
                const Dense op = under(trans, triangular(a, 'N'));
                ErrorMeter<double> worst;
                for (int i = 0; i < n; ++i)
                    meter(worst, x[i], product_row(1.0, op, i, before, 0.0, 0.0));
                EXPECT_LE(worst.worst(), 1) << uplo << trans << n; // one rounding
                EXPECT_TRUE(a.unchanged() && x.intact());
            }
}

// No test for singularity: a zero on the diagonal divides.
TYPED_TEST(Level2Triangular, ZeroDiagonalsDivide) {
    for (Triangle t : triangles(3)) {
        Stored<TypeParam> a = this->matrix(t, 'N');
        a(1, 1) = TypeParam{};
        auto x = Steps<TypeParam>::random(this->random_, 3, 1);
        this->run(true, t, 'N', 'N', a, x);
        EXPECT_FALSE(std::isfinite(static_cast<double>(wide(x[1]).real())));
    }
}

// A diagonal element near the ends of the range: its square leaves the range of the type, not that of
// the division.
TYPED_TEST(Level2Triangular, DivisorsAtTheEndsOfTheRange) {
    using Real = vor::real_t<TypeParam>;
    for (const Real size :
         {std::numeric_limits<Real>::max() / 8, std::numeric_limits<Real>::min() * 8})
        for (const Triangle& t : triangles(1)) {
            Stored<TypeParam> a = this->matrix(t, 'N');
            a(0, 0) = element<TypeParam>(size, -size);
            Steps<TypeParam> x(1, 1);
            x[0] = a(0, 0);
            this->run(true, t, 'N', 'N', a, x);
            EXPECT_NEAR(static_cast<double>(wide(x[0]).real()), 1, 1e-6);
            EXPECT_NEAR(static_cast<double>(wide(x[0]).imag()), 0, 1e-6);
        }
}

} // namespace
