// The dense routines of Level 2 against plain sums: products, triangular products and solves (judged by what
// A times the solution leaves of the right side), rank-1 and rank-2 updates, in every storage, over letters,
// steps, scalars and the edges of the blocks.
#include "blas/kernel/gerin.h"
#include "tests/blas/level2.h"

#include <xmmintrin.h>

using namespace vor::test;

extern "C" void vor_blas_dtrmv_in(const char* uplo, const char* trans, const char* diag,
                                  const int* n, const double* a, const int* lda, double* x,
                                  const int* incx);

namespace {

WorstShare products("matrix-vector products"), solves("triangular solves of a vector"),
    updates("rank-1 and rank-2 updates");

// The arguments of any routine, and calls of the forms that they take. A packed matrix has no leading
// dimension.
template <class T>
struct Arguments {
    char uplo = 'U', trans = 'N', diag = 'N';
    int m = 0, n = 0, k = 0, kl = 0, ku = 0;
    Stored<T> a;
    Steps<T> x, y;
    T alpha = element<T>(0.8, 0.7), beta = element<T>(1);

    bool unit() const { return diag == 'U'; }
    std::string text() const {
        std::string result{uplo, trans, diag};
        for (const int number : {m, n, k, kl, ku, a.ld(), x.inc(), y.inc()})
            result += " " + std::to_string(number);
        return result + " alpha " + std::to_string(double(wide(alpha).real())) + " beta " +
               std::to_string(double(wide(beta).real()));
    }

    // y := alpha A x + beta y.
    template <class R, class... Head>
    void multiply(R* routine, const Head*... head) {
        if constexpr (std::is_invocable_v<R, const Head*..., T*, T*, T*, const int*, T*, T*,
                                          const int*>)
            routine(head..., &alpha, a.data(), x.data(), &x.inc(), &beta, y.data(), &y.inc());
        else
            routine(head..., &alpha, a.data(), &a.ld(), x.data(), &x.inc(), &beta, y.data(),
                    &y.inc());
    }
    // x := A x, or A^-1 x.
    template <class R, class... Head>
    void replace(R* routine, const Head*... head) {
        if constexpr (std::is_invocable_v<R, const char*, const char*, const char*, const Head*...,
                                          T*, T*, const int*>)
            routine(&uplo, &trans, &diag, head..., a.data(), x.data(), &x.inc());
        else
            routine(&uplo, &trans, &diag, head..., a.data(), &a.ld(), x.data(), &x.inc());
    }
    // A := A + a rank-2 or general rank-1 update.
    template <class R, class... Head>
    void update(R* routine, const Head*... head) {
        if constexpr (std::is_invocable_v<R, const Head*..., T*, T*, const int*, T*, const int*,
                                          T*>)
            routine(head..., &alpha, x.data(), &x.inc(), y.data(), &y.inc(), a.data());
        else
            routine(head..., &alpha, x.data(), &x.inc(), y.data(), &y.inc(), a.data(), &a.ld());
    }
    vor::real_t<T> real_alpha() const { return static_cast<vor::real_t<T>>(wide(alpha).real()); }
};

enum class Role { product, symmetric, triangular, solve, general_update, rank_one, rank_two };

template <class T>
struct Member {
    const char* name;
    Role role;
    Kind kind;
    void (*run)(Arguments<T>&);
};

// On complex types the Hermitian members stand for the symmetric ones.
template <class T>
std::vector<Member<T>> members(std::initializer_list<Role> roles) {
    using A = Arguments<T>;
    using enum Role;
    const Member<T> all[] = {
        {"gemv", product, Kind::full,
         [](A& a) {
             a.multiply(of_type<T>(sgemv_, dgemv_, cgemv_, zgemv_), &a.trans, &a.m, &a.n);
         }},
        {"gbmv", product, Kind::band,
         [](A& a) {
             a.multiply(of_type<T>(sgbmv_, dgbmv_, cgbmv_, zgbmv_), &a.trans, &a.m, &a.n, &a.kl,
                        &a.ku);
         }},
        {"symv", symmetric, Kind::full,
         [](A& a) { a.multiply(of_type<T>(ssymv_, dsymv_, chemv_, zhemv_), &a.uplo, &a.n); }},
        {"sbmv", symmetric, Kind::band,
         [](A& a) { a.multiply(of_type<T>(ssbmv_, dsbmv_, chbmv_, zhbmv_), &a.uplo, &a.n, &a.k); }},
        {"spmv", symmetric, Kind::packed,
         [](A& a) { a.multiply(of_type<T>(sspmv_, dspmv_, chpmv_, zhpmv_), &a.uplo, &a.n); }},
        {"trmv", triangular, Kind::full,
         [](A& a) { a.replace(of_type<T>(strmv_, dtrmv_, ctrmv_, ztrmv_), &a.n); }},
        {"tbmv", triangular, Kind::band,
         [](A& a) { a.replace(of_type<T>(stbmv_, dtbmv_, ctbmv_, ztbmv_), &a.n, &a.k); }},
        {"tpmv", triangular, Kind::packed,
         [](A& a) { a.replace(of_type<T>(stpmv_, dtpmv_, ctpmv_, ztpmv_), &a.n); }},
        {"trsv", solve, Kind::full,
         [](A& a) { a.replace(of_type<T>(strsv_, dtrsv_, ctrsv_, ztrsv_), &a.n); }},
        {"tbsv", solve, Kind::band,
         [](A& a) { a.replace(of_type<T>(stbsv_, dtbsv_, ctbsv_, ztbsv_), &a.n, &a.k); }},
        {"tpsv", solve, Kind::packed,
         [](A& a) { a.replace(of_type<T>(stpsv_, dtpsv_, ctpsv_, ztpsv_), &a.n); }},
        {"ger", general_update, Kind::full,
         [](A& a) { a.update(of_type<T>(sger_, dger_, cgerc_, zgerc_), &a.m, &a.n); }},
        {"syr", rank_one, Kind::full,
         [](A& a) {
             const auto alpha = a.real_alpha();
             of_type<T>(ssyr_, dsyr_, cher_, zher_)(&a.uplo, &a.n, &alpha, a.x.data(), &a.x.inc(),
                                                    a.a.data(), &a.a.ld());
         }},
        {"spr", rank_one, Kind::packed,
         [](A& a) {
             const auto alpha = a.real_alpha();
             of_type<T>(sspr_, dspr_, chpr_, zhpr_)(&a.uplo, &a.n, &alpha, a.x.data(), &a.x.inc(),
                                                    a.a.data());
         }},
        {"syr2", rank_two, Kind::full,
         [](A& a) { a.update(of_type<T>(ssyr2_, dsyr2_, cher2_, zher2_), &a.uplo, &a.n); }},
        {"spr2", rank_two, Kind::packed,
         [](A& a) { a.update(of_type<T>(sspr2_, dspr2_, chpr2_, zhpr2_), &a.uplo, &a.n); }},
    };
    std::vector<Member<T>> some;
    for (const Member<T>& member : all)
        if (std::find(roles.begin(), roles.end(), member.role) != roles.end())
            some.push_back(member);
    return some;
}

template <class T>
class Level2 : public testing::Test {
protected:
    using Call = Arguments<T>;

    // A problem of a member on a triangle.
    Call on_triangle(const Member<T>& member, const Triangle& t, StepPair inc, char diag = 'N') {
        Call c{.uplo = t.uplo,
               .diag = diag,
               .n = t.n,
               .k = t.k,
               .a = Stored<T>(random_, t.layout),
               .x = Steps<T>::random(random_, t.n, inc.x),
               .y = Steps<T>::random(random_, t.n, inc.y)};
        if (member.role == Role::symmetric) hide_imaginary_diagonal(c.a);
        if (member.role == Role::triangular || member.role == Role::solve)
            make_solvable(c.a, c.unit());
        return c;
    }

    void expect_right(const Member<T>& member, Call c, double bound) {
        const auto& [name, role, kind, run] = member;
        const std::string what = std::string(name) + " " + c.text();
        const Wide alpha = wide(c.alpha);
        const T zero{}, one = element<T>(1);
        const Dense x = general(c.x), y = general(c.y);
        const bool triangle = role == Role::triangular || role == Role::solve;
        const Dense a = role == Role::symmetric ? symmetric(c.a, true)
                        : triangle              ? triangular(c.a, c.unit()).under(c.trans)
                                                : general(c.a).under(c.trans);
        run(c);
        const auto check = [&](WorstShare& family, double error, bool others_kept) {
            family.expect(error, bound, what);
            EXPECT_TRUE(others_kept) << what;
        };
        const bool x_kept = c.x.unchanged(), y_kept = c.y.unchanged(), a_kept = c.a.unchanged();
        switch (role) {
        case Role::product:
        case Role::symmetric:
            check(products, error_of_sum(c.y, {{alpha, a, x}}, c.beta), a_kept && x_kept);
            break;
        case Role::triangular:
            check(products, error_of_sum(c.x, {{1, a, x}}, zero), a_kept);
            break;
        case Role::solve:
            check(solves, error_of_solution(c.x, {1, a, general(c.x)}, one), a_kept);
            break;
        case Role::general_update:
            check(updates, error_of_sum(c.a, {{alpha, x, y.under('C')}}, one), x_kept && y_kept);
            break;
        case Role::rank_one:
            check(updates, error_of_sum(c.a, {{alpha.real(), x, x.under('C')}}, one, true), x_kept);
            break;
        case Role::rank_two:
            check(updates,
                  error_of_sum(c.a, {{alpha, x, y.under('C')}, {std::conj(alpha), y, x.under('C')}},
                               one, true),
                  x_kept && y_kept);
            break;
        }
    }
    // The same with several scalars in turn.
    void expect_right_scaled(const Member<T>& member, Call c, double bound) {
        const double scalars[][2] = {{0.7, -1.3}, {1, 0}, {-1, 1}, {0, 0.5}, {0, 0}};
        const auto& [alpha, beta] = scalars[turn_ % 5];
        c.alpha = element<T>(alpha, turn_++ % 2 == 0 ? alpha * 0.5 : 0);
        c.beta = element<T>(beta, beta / 3);
        if (beta == 0) c.y.fill(not_a_number<T>());
        expect_right(member, std::move(c), bound);
    }
    // The units of eps that a sum of so many terms may be off: half a unit for each rounding, and a
    // complex product takes three.
    static double bound(int terms) { return 0.5 * (vor::is_complex<T> ? 3 : 2) * (terms + 2) + 3; }

    Random random_{3};
    int turn_ = 0;
};
TYPED_TEST_SUITE(Level2, Elements);

// On both sides of the strip of 64 rows and of the groups of columns, and of the shapes that choose a
// kernel. The sums of a strip run in extended precision: what is counted are the roundings of y.
TYPED_TEST(Level2, GeneralProducts) {
    using T = TypeParam;
    const struct {
        int m, n, kl, ku;
    } shapes[] = {
        {1, 1, 0, 0},    {5, 5, 0, 0},    {6, 5, 1, 2},    {4, 9, 2, 0},    {9, 4, 0, 3},
        {40, 37, 20, 5}, {37, 60, 3, 17}, {7, 30, 1, 1},   {30, 7, 1, 1},   {3, 4, 9, 9},
        {70, 70, 64, 0}, {2, 8, 0, 0},    {2, 3, 0, 0},    {63, 5, 0, 0},   {64, 1, 0, 0},
        {64, 4, 0, 0},   {65, 2, 0, 0},   {127, 7, 0, 0},  {3, 65, 0, 0},   {128, 33, 0, 0},
        {129, 66, 0, 0}, {200, 5, 0, 0},  {249, 10, 0, 0}, {300, 60, 0, 0}, {275, 125, 0, 0}};
    for (const Member<T>& member : members<T>({Role::product}))
        for (const auto& [m, n, kl, ku] : shapes)
            for (const char trans : {'N', 't', 'T', 'n', 'C', 'c'})
                for (const StepPair& inc : kSteps) {
                    const bool is_band = member.kind == Kind::band, tall = plain(trans);
                    const int roundings = tall ? n : (m + 63) / 64;
                    this->expect_right_scaled(
                        member,
                        {.trans = trans,
                         .m = m,
                         .n = n,
                         .kl = kl,
                         .ku = ku,
                         .a = Stored<T>(this->random_, is_band ? band(m, n, kl, ku, kl + ku + 3)
                                                               : full(m, n, m + 3)),
                         .x = Steps<T>::random(this->random_, tall ? n : m, inc.x),
                         .y = Steps<T>::random(this->random_, tall ? m : n, inc.y)},
                        is_band ? this->bound(std::min(kl + ku + 1, std::max(m, n)))
                                : 0.5 * roundings + 3);
                }
}

TYPED_TEST(Level2, SymmetricProducts) {
    using T = TypeParam;
    for (const Member<T>& member : members<T>({Role::symmetric}))
        for (const int n : {1, 2, 3, 4, 5, 7, 8, 15, 16, 17, 33, 50, 101})
            for (Triangle t : triangles(n)) {
                if (t.kind != member.kind) continue;
                if (n % 2 == 0) t.uplo = static_cast<char>(std::tolower(t.uplo));
                for (const StepPair& inc : kSteps)
                    this->expect_right_scaled(member, this->on_triangle(member, t, inc),
                                              this->bound(n));
            }
}

// Small orders in all layouts and with all letters; orders at the edges of the blocks of 32 and 64.
TYPED_TEST(Level2, TriangularProductsAndSolves) {
    using T = TypeParam;
    for (const Member<T>& member : members<T>({Role::triangular, Role::solve}))
        for (const int n : {0, 1, 2, 3, 4, 5, 8, 17, 21, 31, 32, 33, 63, 64, 65, 100, 129})
            for (const Triangle& t : triangles(n)) {
                if (t.kind != member.kind || (n > 30 && t.kind == Kind::band)) continue;
                for (const char trans : {'N', 't', 'C'})
                    for (const char diag : {'N', 'U'})
                        for (const int inc : kSingleSteps) {
                            auto c = this->on_triangle(member, t, {inc, 1}, diag);
                            c.trans = trans;
                            this->expect_right(member, c, this->bound(std::min(n, t.k + 1)));
                        }
            }
}

// Four columns of complex rows behind the last strip: each part of y is rounded once, from extended terms
// in the order of the columns. The factors alpha x fit a double for some alphas and not for others.
template <class T>
void expect_one_rounding(Random& numbers, T alpha) {
    using R = vor::real_t<T>;
    const int n = 4, one = 1;
    const T beta = element<T>(1);
    const auto gemv = of_type<T>(sgemv_, dgemv_, cgemv_, zgemv_);
    for (int m = 1; m < 30; ++m) {
        auto a = Stored<T>(numbers, full(m, n, m + 1));
        auto x = Steps<T>::random(numbers, n, 1), y = Steps<T>::random(numbers, m, 1);
        gemv("N", &m, &n, &alpha, a.data(), &a.ld(), x.data(), &one, &beta, y.data(), &one);
        for (int i = 0; i < m; ++i) {
            long double re = y.before(i, 0).re, im = y.before(i, 0).im;
            for (int j = 0; j < n; ++j) {
                const Wide t = times(wide(alpha), wide(x[j]));
                re += a(i, j).re * t.real();
                re += a(i, j).im * -t.imag();
                im += a(i, j).re * t.imag();
                im += a(i, j).im * t.real();
            }
            const T want = {static_cast<R>(re), static_cast<R>(im)};
            EXPECT_TRUE(same_bits(y[i], want)) << m << " " << i;
        }
    }
}
TEST(Level2Kernels, RowsBehindTheStripsAreRoundedOnce) {
    Random random(29);
    for (const double alpha : {1.0, -1.0, 0.3})
        for (const double imaginary : {0.0, 0.7}) {
            expect_one_rounding(random, element<vor::cfloat>(alpha, imaginary));
            expect_one_rounding(random, element<vor::cdouble>(alpha, imaginary));
        }
}

// The diagonal block of a product serves orders beyond its routine's blocks, too, with one rounding.
TEST(Level2Kernels, TriangularBlocksOfAnyOrder) {
    Random random(23);
    for (const int n : {1, 2, 99, 100, 101, 201})
        for (const char uplo : {'U', 'L'})
            for (const char trans : {'N', 'T'}) {
                Stored<double> a(random, triangle(uplo, n, n + 1));
                auto x = Steps<double>::random(random, n, 2);
                const Dense old = general(x);
                vor_blas_dtrmv_in(&uplo, &trans, "N", &n, a.data(), &a.ld(), x.data(), &x.inc());
                EXPECT_LE(error_of_sum(x, {{1, triangular(a, false).under(trans), old}}, 0.0), 1)
                    << uplo << trans << n;
                EXPECT_TRUE(a.unchanged());
            }
}

// No test for singularity: a zero on the diagonal divides. An element near the ends of the range: its
// square leaves the range of the type, not that of the division.
TYPED_TEST(Level2, DivisorsOfZeroAndAtTheEndsOfTheRange) {
    using T = TypeParam;
    using Limits = std::numeric_limits<vor::real_t<T>>;
    for (const Member<T>& member : members<T>({Role::solve}))
        for (const Triangle& t : triangles(1)) {
            if (t.kind != member.kind) continue;
            for (const auto size : {Limits::max() / 8, Limits::min() * 8}) {
                auto c = this->on_triangle(member, t, {1, 1});
                c.a(0, 0) = c.x[0] = element<T>(size, -size);
                member.run(c);
                EXPECT_LE(magnitude(wide(c.x[0]) - Wide(1)), 1e-6L) << member.name;
            }
            auto c = this->on_triangle(member, t, {1, 1});
            c.a(0, 0) = T{};
            member.run(c);
            EXPECT_FALSE(std::isfinite(wide(c.x[0]).real())) << member.name;
        }
}

TYPED_TEST(Level2, Updates) {
    using T = TypeParam;
    for (const Member<T>& member : members<T>({Role::rank_one, Role::rank_two}))
        for (const int n : {1, 2, 3, 4, 9, 11, 16, 30, 33, 65})
            for (const Triangle& t : triangles(n))
                for (const StepPair& inc : kSteps) {
                    if (t.kind != member.kind) continue;
                    auto c = this->on_triangle(member, t, inc);
                    c.x[n / 2] = c.y[n / 3] = T{};
                    c.x.remember(), c.y.remember();
                    this->expect_right(member, c, 8);
                }
    for (const Member<T>& member : members<T>({Role::general_update}))
        for (const int m : {1, 3, 4, 5, 17, 64, 65})
            for (const int n : {1, 6})
                for (const StepPair& inc : kSteps)
                    this->expect_right(member,
                                       {.m = m,
                                        .n = n,
                                        .a = Stored<T>(this->random_, full(m, n, m + 2)),
                                        .x = Steps<T>::random(this->random_, m, inc.x),
                                        .y = Steps<T>::random(this->random_, n, inc.y)},
                                       8);
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

// Without something to do neither operand is read nor y written; with alpha = 0 the operands are not
// read.
TYPED_TEST(Level2, WhatIsMultipliedByZeroIsNotRead) {
    using T = TypeParam;
    const T nan = not_a_number<T>(), zero{}, one = element<T>(1), half = element<T>(0.5);
    const int order = 70;
    for (const Member<T>& member : members<T>({Role::product, Role::symmetric}))
        for (const char trans : {'N', 'T'}) {
            const Triangle t{member.kind, 'L', order, 1, full(order, order, order)};
            auto c = this->on_triangle(member, t, {1, 1});
            c.m = order, c.trans = trans;
            c.a.fill(nan), c.x.fill(nan);
            const auto run = [&](int m, int n, T alpha, T beta) {
                c.m = m, c.n = n, c.alpha = alpha, c.beta = beta;
                member.run(c);
            };
            run(order, order, zero, one);
            run(order, 0, one, zero);
            if (member.role == Role::product) run(0, order, one, zero);
            EXPECT_TRUE(c.y.unchanged()) << member.name;
            run(order, order, zero, half);
            EXPECT_EQ(error_of_sum(c.y, {}, half), 0) << member.name;
            c.y.fill(nan);
            run(order, order, zero, zero);
            EXPECT_EQ(error_of_sum(c.y, {}, zero), 0) << member.name;
        }
}

// A zero keeps its column as it is, whatever the other elements hold; of a Hermitian diagonal the
// imaginary part goes all the same. An alpha of 0 returns before that.
TYPED_TEST(Level2, ZerosPassColumnsOver) {
    using T = TypeParam;
    const int n = 20, zeroed = 8;
    // A hermitian member is said by `real_diagonal`; with x = NaN elsewhere the other columns turn NaN.
    const auto check = [&](const Member<T>& member, auto c, bool real_diagonal) {
        const T alpha = std::exchange(c.alpha, T{});
        c.m = n;
        c.x.fill(not_a_number<T>());
        c.y = real_diagonal ? c.x : Steps<T>(n, 1);
        if (!real_diagonal) c.y.set([](int, int) { return element<T>(1); });
        c.x[zeroed] = c.y[zeroed] = T{};
        member.run(c);
        EXPECT_TRUE(c.a.unchanged()) << member.name;
        c.alpha = alpha;
        member.run(c);
        for (int i = 0; i < n; ++i) {
            if (!c.a.has(i, zeroed)) continue;
            Wide want = wide(c.a.before(i, zeroed));
            if (real_diagonal && i == zeroed) want = want.real();
            EXPECT_EQ(wide(c.a(i, zeroed)), want) << member.name << " " << i;
        }
        EXPECT_TRUE(std::isnan(wide(c.a(0, 0)).real())) << member.name;
    };
    for (const Member<T>& member : members<T>({Role::rank_one, Role::rank_two}))
        for (const Triangle& t : triangles(n))
            if (t.kind == member.kind) check(member, this->on_triangle(member, t, {1, 1}), true);
    // An infinite alpha makes no NaN of a zero.
    const Triangle square{Kind::full, 'U', n, n, full(n, n, n)};
    for (const Member<T>& member : members<T>({Role::general_update}))
        for (const auto& alpha : {element<T>(1, 1), element<T>(HUGE_VALL)}) {
            auto c = this->on_triangle(member, square, {1, 1});
            c.alpha = alpha;
            check(member, c, false);
        }
}

// The inner step of ger knows zeros of either sign.
TEST(Level2Kernels, StepOfGerPassesZerosOver) {
    const int n = 3, one = 1;
    const double minus_zero = -0.0;
    Steps<double> x(n, 1);
    Random random(5);
    auto y = Steps<double>::random(random, n, 1);
    vor_blas_dgerin(&n, &minus_zero, x.data(), &one, y.data(), &one);
    EXPECT_TRUE(y.unchanged());
}
// A subnormal factor is none of them, also under a mode that takes it for 0.
TEST(Level2Kernels, StepOfGerTestsTheBitsOfItsFactor) {
    constexpr unsigned kSubnormalsAreZero = 0x8040;
    const int n = 9, one = 1;
    const float alpha = 1e-40f;
    const std::vector<float> x(n, 1e30f);
    std::vector<float> y(n, 0);
    const unsigned mode = _mm_getcsr();
    _mm_setcsr(mode | kSubnormalsAreZero);
    vor_blas_sgerin(&n, &alpha, x.data(), &one, y.data(), &one);
    _mm_setcsr(mode);
    for (const float sum : y) EXPECT_NEAR(sum, 1e-10f, 1e-14f);
}

} // namespace
