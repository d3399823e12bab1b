// Rank-1 and rank-2 updates: general, and of one triangle, full and packed.
#include "blas/kernel/gerin.h"
#include "tests/blas/level2.h"

using namespace vor::test;

namespace {

WorstShare updates("rank-1 and rank-2 updates");

template <class T>
class Level2Update : public testing::Test {
protected:
    // Every stored element against before + update; with a Hermitian diagonal real.
    void compare(const Stored<T>& a, bool real_diagonal,
                 const std::function<Expected(int, int)>& update, const std::string& what) {
        ErrorMeter<T> worst;
        for (int j = 0; j < a.columns(); ++j)
            for (int i = 0; i < a.rows(); ++i) {
                if (!a.has(i, j)) continue;
                Expected want = update(i, j);
                want.add(wide(a.before(i, j)));
                if (real_diagonal && i == j) {
                    want.value = want.value.real();
                    EXPECT_EQ(wide(a(i, i)).imag(), 0) << what;
                }
                meter(worst, a(i, j), want);
            }
        updates.expect(worst.worst(), 8, what);
        EXPECT_TRUE(a.intact()) << what;
    }

    Random random_{9};
};
TYPED_TEST_SUITE(Level2Update, Elements);

Expected outer(Wide alpha, Wide x, Wide y) {
    Expected result;
    result.add(times(alpha, times(x, std::conj(y))));
    result.scale = magnitude(alpha) * magnitude(x) * magnitude(y);
    return result;
}

TYPED_TEST(Level2Update, General) {
    using T = TypeParam;
    const T alpha = element<T>(0.8, -0.4);
    for (const int m : {1, 3, 4, 5, 17, 64, 65})
        for (const int n : {1, 6})
            for (const StepPair& inc : kSteps) {
                Stored<T> a(this->random_, full(m, n, m + 2));
                auto x = Steps<T>::random(this->random_, m, inc.x);
                auto y = Steps<T>::random(this->random_, n, inc.y);
                const auto x_before = x, y_before = y;
                Level2<T>::ger(&m, &n, &alpha, x.data(), &x.inc(), y.data(), &y.inc(), a.data(),
                               &a.ld());
                this->compare(
                    a, false,
                    [&](int i, int j) { return outer(wide(alpha), wide(x[i]), wide(y[j])); },
                    "ger " + std::to_string(m) + " " + std::to_string(n));
                EXPECT_TRUE(x.same_as(x_before) && y.same_as(y_before));
            }
}

// The members of ger without conjugation.
template <class T>
void check_geru(void (*geru)(const int*, const int*, const T*, const T*, const int*, const T*,
                             const int*, T*, const int*)) {
    const int m = 5, n = 3, one = 1;
    const T alpha = element<T>(0.5, 2), x = element<T>(2, 1), y = element<T>(3, -1);
    std::vector<T> xs(m, x), ys(n, y), a(m * n, element<T>(1, 1));
    geru(&m, &n, &alpha, xs.data(), &one, ys.data(), &one, a.data(), &m);
    const Wide want = Wide(1, 1) + times(wide(alpha), times(wide(x), wide(y)));
    for (const T& entry : a) EXPECT_EQ(wide(entry), want);
}
TEST(Level2Geru, GeneralWithoutConjugation) {
    check_geru<vor::cfloat>(cgeru);
    check_geru<vor::cdouble>(zgeru_);
}

TYPED_TEST(Level2Update, Triangles) {
    using T = TypeParam;
    using Real = vor::real_t<T>;
    const Real real_alpha = static_cast<Real>(-0.6);
    const T alpha = element<T>(0.8, 0.7);
    for (const int n : {1, 2, 3, 4, 9, 11, 16, 30, 33, 65})
        for (const Triangle& t : triangles(n)) {
            if (t.kind == Kind::band) continue;
            for (const StepPair& inc : kSteps) {
                const std::string what = std::string{t.uplo} + std::to_string(n) +
                                         (t.kind == Kind::packed ? " packed" : " full");
                auto x = Steps<T>::random(this->random_, n, inc.x);
                auto y = Steps<T>::random(this->random_, n, inc.y);
                x[n / 2] = T{};
                y[n / 3] = T{};
                const auto x_before = x, y_before = y;
                Stored<T> a(this->random_, t.layout);
                if (t.kind == Kind::packed)
                    Level2<T>::spr(&t.uplo, &n, &real_alpha, x.data(), &x.inc(), a.data());
                else
                    Level2<T>::syr(&t.uplo, &n, &real_alpha, x.data(), &x.inc(), a.data(), &a.ld());
                this->compare(
                    a, true,
                    [&](int i, int j) { return outer(real_alpha, wide(x[i]), wide(x[j])); }, what);
                a.remember();
                if (t.kind == Kind::packed)
                    Level2<T>::spr2(&t.uplo, &n, &alpha, x.data(), &x.inc(), y.data(), &y.inc(),
                                    a.data());
                else
                    Level2<T>::syr2(&t.uplo, &n, &alpha, x.data(), &x.inc(), y.data(), &y.inc(),
                                    a.data(), &a.ld());
                this->compare(
                    a, true,
                    [&](int i, int j) {
                        Expected sum = outer(wide(alpha), wide(x[i]), wide(y[j]));
                        const Expected other =
                            outer(std::conj(wide(alpha)), wide(y[i]), wide(x[j]));
                        sum.value += other.value;
                        sum.scale += other.scale;
                        return sum;
                    },
                    what + " rank 2");
                EXPECT_TRUE(x.same_as(x_before) && y.same_as(y_before));
            }
        }
}

// A zero keeps its column as it is, whatever the other elements hold; of a Hermitian diagonal the
// imaginary part goes all the same. An alpha of 0 returns before that.
TYPED_TEST(Level2Update, ZerosPassColumnsOver) {
    using T = TypeParam;
    const int n = 20, one = 1, zeroed = 8;
    const T alpha = element<T>(1, 1), no_alpha{};
    const vor::real_t<T> real_alpha = 2, no_real_alpha = 0;
    Steps<T> x(n, 1), y(n, 1);
    y.fill(element<T>(1));
    x[zeroed] = y[zeroed] = T{}; // x holds NaN elsewhere
    const auto column_kept = [&](const Stored<T>& a, int first, int last, bool diagonal) {
        for (int i = first; i <= last; ++i) {
            Wide want = wide(a.before(i, zeroed));
            if (diagonal && i == zeroed) want = want.real();
            EXPECT_EQ(wide(a(i, zeroed)), want) << i;
        }
    };

    Stored<T> rectangle(this->random_, full(n, n, n));
    Level2<T>::ger(&n, &n, &alpha, x.data(), &one, y.data(), &one, rectangle.data(), &n);
    column_kept(rectangle, 0, n - 1, false);
    EXPECT_NE(wide(rectangle(0, 0)), wide(rectangle(0, 0))); // the NaNs have reached the others

    // An infinite alpha makes no NaN of a zero, and the inner step knows zeros of either sign.
    const T infinite = element<T>(std::numeric_limits<vor::real_t<T>>::infinity());
    Stored<T> other(this->random_, full(n, n, n));
    Level2<T>::ger(&n, &n, &infinite, x.data(), &one, y.data(), &one, other.data(), &n);
    for (int i = 0; i < n; ++i) EXPECT_EQ(wide(other(i, zeroed)), wide(other.before(i, zeroed)));
    if constexpr (std::is_same_v<T, double>) {
        const double minus_zero = -0.0;
        const auto y_before = y;
        vor_blas_dgerin(&n, &minus_zero, x.data(), &one, y.data(), &one);
        EXPECT_TRUE(y.same_as(y_before));
    }

    const auto update = [&](const Triangle& t, bool rank_two, Steps<T>& v, bool scaled,
                            Stored<T>& a) {
        const auto* real = scaled ? &real_alpha : &no_real_alpha;
        const auto* any = scaled ? &alpha : &no_alpha;
        if (rank_two && t.kind == Kind::packed)
            Level2<T>::spr2(&t.uplo, &n, any, v.data(), &one, v.data(), &one, a.data());
        else if (rank_two)
            Level2<T>::syr2(&t.uplo, &n, any, v.data(), &one, v.data(), &one, a.data(), &a.ld());
        else if (t.kind == Kind::packed)
            Level2<T>::spr(&t.uplo, &n, real, v.data(), &one, a.data());
        else
            Level2<T>::syr(&t.uplo, &n, real, v.data(), &one, a.data(), &a.ld());
    };
    for (const Triangle& t : triangles(n)) {
        if (t.kind == Kind::band) continue;
        for (const bool rank_two : {false, true}) {
            Stored<T> a(this->random_, t.layout);
            update(t, rank_two, x, false, a);
            EXPECT_TRUE(a.unchanged());
            update(t, rank_two, x, true, a);
            column_kept(a, t.uplo == 'U' ? 0 : zeroed, t.uplo == 'U' ? zeroed : n - 1, true);
            EXPECT_NE(wide(a(0, 0)), wide(a(0, 0)));
        }
    }
}

} // namespace
