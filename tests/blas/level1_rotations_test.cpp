// Set-up of rotations: bit for bit against the formulas in the precision that they promise, and by what
// a rotation has to do. Positions of extreme elements.
#include "tests/blas/level1.h"

#include <xmmintrin.h>

using namespace vor;
using namespace vor::test;

namespace {

TYPED_SUITE(RealRotations, RealTypes);
TYPED_SUITE(ComplexRotations, ComplexTypes);
TYPED_SUITE(Extremes, AllTypes);

// One Newton step on the processor's own estimate: the estimate differs between processors.
float root(float v) {
    const float e = v == 0 ? 0 : _mm_cvtss_f32(_mm_rsqrt_ss(_mm_set_ss(v)));
    const float p = v * e;
    return p * (e * p - 3) * -0.5f;
}
long double root(long double v) {
    return std::sqrt(v);
}

template <class T>
T random_magnitude(Random& random) {
    return std::ldexp(random.next<T>(), random.below(40) - 20);
}

} // namespace

TYPED_TEST(RealRotations, RotgFollowsItsFormulas) {
    using T = TypeParam;
    using W = std::conditional_t<std::is_same_v<T, float>, float, long double>;
    Random random(11);
    for (int i = 0; i < 2000; ++i) {
        T a = random_magnitude<T>(random), b = random_magnitude<T>(random), c, s;
        if (i % 10 == 0) b = i % 20 == 0 ? a : -a;
        if (i % 10 == 1) a = 0;
        if (i % 10 == 2) b = 0;
        const W a0 = a, b0 = b;
        call(REAL(rotg), &a, &b, &c, &s);
        const bool larger = std::fabs(a0) > std::fabs(b0);
        const W roe = larger ? a0 : b0, t = (larger ? b0 : a0) / roe, r = roe * root(t * t + 1);
        const W inverse = 1 / r, c0 = a0 * inverse, s0 = b0 * inverse;
        ASSERT_EQ(a, static_cast<T>(r)) << a0 << " " << b0;
        ASSERT_EQ(c, static_cast<T>(c0));
        ASSERT_EQ(s, static_cast<T>(s0));
        ASSERT_EQ(b, static_cast<T>(larger ? s0 : c0 == 0 ? 1 : 1 / c0));
    }
    T a = T(-0.0), b = 0, c, s;
    call(REAL(rotg), &a, &b, &c, &s);
    EXPECT_EQ((std::vector<T>{a, b, c, s}), (std::vector<T>{0, 0, 1, 0}));
}

TYPED_TEST(ComplexRotations, RotgTakesTheSecondElementToZero) {
    using T = TypeParam;
    using R = real_t<T>;
    Random random(12);
    // crotg: three roots of relative error 1e-7 each; zrotg: the roundings of c, s and r.
    Bound<T> bound("rotg", sizeof(R) == sizeof(float) ? 12 : 3);
    for (int i = 0; i < 4000; ++i) {
        // Every other pair: anywhere in the range of the type.
        const int reach = i % 2 == 0 ? 8 : std::numeric_limits<R>::max_exponent - 3;
        const auto number = [&] {
            const int shift = random.below(2 * reach) - reach;
            const T x = random.next<T>();
            return T{std::ldexp(x.re, shift), std::ldexp(x.im, shift)};
        };
        T a = number(), b = number(), s;
        const Wide a0 = wide(a), b0 = wide(b);
        const T b_before = b;
        R c;
        call(COMPLEX(rotg), &a, &b, &c, &s);
        const long double size = std::sqrt(std::norm(a0) + std::norm(b0)), wc = c;
        bound.add(std::abs(wide(a)), size, size);
        bound.add(wc * a0 + wide(s) * b0, wide(a), size);
        bound.add(wc * b0 - std::conj(wide(s)) * a0, 0, size);
        bound.add(wc * wc + std::norm(wide(s)), 1, 1);
        bound.add(wide(a) * std::conj(a0), std::abs(wide(a)) * std::abs(a0), size * std::abs(a0));
        ASSERT_TRUE(same_bits(b, b_before));
    }
    // Both parts of either number, and their sum, out of reach for a square.
    for (const R size : {std::numeric_limits<R>::denorm_min(), std::numeric_limits<R>::max() / 4}) {
        T a{size, 0}, b{0, -size}, s;
        R c;
        call(COMPLEX(rotg), &a, &b, &c, &s);
        EXPECT_NEAR(c, std::sqrt(0.5), 1e-6);
        EXPECT_NEAR(s.im, std::sqrt(0.5), 1e-6);
        EXPECT_TRUE(std::isfinite(a.re) && a.re >= size) << a.re;
    }
    T a{0, 0}, b{3, -4}, s;
    R c;
    call(COMPLEX(rotg), &a, &b, &c, &s);
    EXPECT_EQ(c, 0);
    EXPECT_EQ(wide(s), Wide(1));
    EXPECT_EQ(wide(a), wide(b));
}

// H is made explicit from param; D is the diagonal of the new d1, d2. Then H (x1, y1) = (new x1, 0) and
// H^T D H is the old diagonal. Other entries of param are not written.
TYPED_TEST(RealRotations, RotmgKeepsTheWeightedNorm) {
    using T = TypeParam;
    Random random(13);
    // One scaling by a decimal constant is off by 26 eps (1/4096 squared in float) or 47 (2^-24).
    Bound<T> bound("rotmg", sizeof(T) == 4 ? 40 : 60);
    int flags[3] = {};
    for (int i = 0; i < 4000; ++i) {
        const int exponent = i % 2 == 0 ? 1 : 60;
        const auto weight = [&] {
            return std::ldexp(std::fabs(random.next<T>()) + T(0.1),
                              random.below(exponent) - exponent / 2);
        };
        T d1 = weight(), d2 = weight(), x1 = random.next<T>();
        const T y1 = random.next<T>(), untouched = T(0.1234);
        const long double d1_0 = d1, d2_0 = d2, x1_0 = x1, y = y1;
        T param[5] = {9, untouched, untouched, untouched, untouched};
        call(REAL(rotmg), &d1, &d2, &x1, y1, param);
        const int flag = static_cast<int>(param[0]);
        ASSERT_TRUE(flag >= -1 && flag <= 1);
        ++flags[flag + 1];
        long double h11 = param[1], h21 = param[2], h12 = param[3], h22 = param[4];
        if (flag == 0) {
            ASSERT_TRUE(param[1] == untouched && param[4] == untouched);
            h11 = h22 = 1;
        } else if (flag == 1) {
            ASSERT_TRUE(param[2] == untouched && param[3] == untouched);
            h12 = 1, h21 = -1;
        }
        for (const T d : {d1, d2}) ASSERT_TRUE(d < 0x1p24f && d > 0x1p-25f) << d;
        bound.add(h11 * x1_0 + h12 * y, x1, std::fabs(h11 * x1_0) + std::fabs(h12 * y));
        bound.add(h21 * x1_0 + h22 * y, 0, std::fabs(h21 * x1_0) + std::fabs(h22 * y));
        bound.add(d1 * h11 * h11 + d2 * h21 * h21, d1_0, d1_0);
        bound.add(d1 * h12 * h12 + d2 * h22 * h22, d2_0, d2_0);
    }
    for (int seen : flags) EXPECT_GT(seen, 100);
}

TYPED_TEST(RealRotations, RotmgEdgesAndScaling) {
    using T = TypeParam;
    const T gam = of_type<T>(0.000244141f, 0x1p-12);
    const T gamsq = of_type<T>(5.9604645e-08f, 5.960464477539e-08);
    const T large = 0x1p25f, small = 2 * gamsq;
    const struct {
        T d1, d2, x1, y1;         // in
        T d1_out, d2_out, x1_out; // out
        std::vector<T> param;     // out
    } rows[] = {
        {-1, 2, 3, 4, 0, 0, 0, {-1, 0, 0, 0, 0}},
        {1, 0, 3, 4, 1, 0, 3, {-2, 7, 7, 7, 7}},
        {1, 2, 3, 0, 1, 2, 3, {-2, 7, 7, 7, 7}},
        {1, -1, 1, 2, 0, 0, 0, {-1, 0, 0, 0, 0}},
        {4, -2, 2, 2, 8, -4, 1, {0, 7, -1, -0.5, 7}},
        // Too large: scaled by the decimal reciprocal of 2^24, x1 and H by 4096. Too small: by 2^24,
        // with the decimal reciprocal of 4096.
        {large, large, 1, 1, 0x1p24f * gamsq, 0x1p24f * gamsq, 8192, {-1, 4096, -4096, 4096, 4096}},
        {small, small, 1, 1, 0x1p24f * gamsq, 0x1p24f * gamsq, 2 * gam, {-1, gam, -gam, gam, gam}}};
    for (const auto& row : rows) {
        T d1 = row.d1, d2 = row.d2, x1 = row.x1;
        std::vector<T> param(5, 7);
        call(REAL(rotmg), &d1, &d2, &x1, row.y1, param.data());
        EXPECT_EQ((std::vector<T>{d1, d2, x1}),
                  (std::vector<T>{row.d1_out, row.d2_out, row.x1_out}))
            << row.d1 << " " << row.d2;
        EXPECT_EQ(param, row.param) << row.d1 << " " << row.d2;
    }
    // An infinite weight comes back: no scaling would ever end.
    T d1 = std::numeric_limits<T>::infinity(), d2 = 1, x1 = 1, param[5];
    call(REAL(rotmg), &d1, &d2, &x1, T(1), param);
    EXPECT_FALSE(std::isfinite(d1) && std::isfinite(d2));
}

// By four candidates by position modulo 4, the leftover elements competing with the last one: a NaN
// replaces, and is replaced. `sizes` of 2 and more elements; a result from 1.
template <class R>
int winner_with_nans(const std::vector<R>& sizes, bool largest) {
    const auto beats = [&](R a, R b) { return largest ? !(a <= b) : !(a >= b); };
    const size_t n = sizes.size(), groups = n / 4 * 4;
    std::vector<std::pair<R, int>> best(4, {-1, 0});
    const auto compete = [&](size_t k, size_t i) {
        if (beats(sizes[i], best[k].first)) best[k] = {sizes[i], static_cast<int>(i) + 1};
    };
    for (size_t i = 0; i < (groups ? 4 : 1); ++i) best[i] = {sizes[i], static_cast<int>(i) + 1};
    if (n < 4 && !largest) best.resize(1);
    for (size_t i = groups ? 4 : 1; i < n; ++i)
        compete(best.size() == 1 ? 0 : i < groups ? i % 4 : 3, i);
    auto winner = best[0];
    for (const auto& candidate : best) {
        const auto& [size, position] = candidate;
        if (size == winner.first ? position < winner.second : beats(size, winner.first))
            winner = candidate;
    }
    return winner.second;
}

// Few different magnitudes, so that there are ties in every place of a group; the sequential scan tells
// the first of the extreme ones. Then NaNs among them.
TYPED_TEST(Extremes, FirstOfEqualElementsAndNaNs) {
    using T = TypeParam;
    using R = real_t<T>;
    Random random(14);
    const auto check = [&](int n, int inc, size_t offset, bool with_nans) {
        Vector<T> x(n, inc, offset);
        std::vector<R> sizes;
        for (int i = 0; i < n; ++i) {
            const auto part = [&] { return static_cast<R>(random.below(41) / 10 - 2); };
            x.at(i) = element<T>(part(), part());
            if (with_nans && random.below(6) == 0)
                reinterpret_cast<R&>(x.at(i)) = std::numeric_limits<R>::quiet_NaN();
            sizes.push_back(static_cast<R>(magnitude(wide(x.at(i)))));
        }
        for (const bool largest : {true, false}) {
            int want = n < 1 || inc < 1 ? 0 : 1;
            const auto size = [&](int position) { return sizes[size_t(position - 1)]; };
            for (int k = 2; want > 0 && k <= n; ++k)
                if (largest ? size(k) > size(want) : size(k) < size(want)) want = k;
            if (with_nans) want = winner_with_nans(sizes, largest);
            const auto find = largest ? of_type<T>(isamax, idamax, icamax, izamax)
                                      : of_type<T>(isamin, idamin, icamin, izamin);
            ASSERT_EQ(call(find, n, x.data(), inc), want) << n << " " << inc << " " << largest;
        }
    };
    each_vector([&](int n, int inc, size_t offset) { check(n, inc, offset, false); });
    for (int round = 0; round < 3000; ++round) check(2 + random.below(70), 1 + round % 2, 4, true);
}

TEST(ExtremeEdges, ComplexMagnitudeIsTheSumOfTheParts) {
    const cfloat c[] = {{5, 0}, {-3, 4}};
    EXPECT_EQ(call(icamax, 2, c, 1), 2);
    // Double precision adds the parts in extended precision: these do not overflow.
    const cdouble z[] = {{1.5e308, 1.5e308}, {1.6e308, 1.6e308}, {1, 1}};
    EXPECT_EQ(call(izamax, 3, z, 1), 2);
    EXPECT_EQ(call(dcabs1, cdouble{-3, 4}), 7);
}
