// Character tests and scalar helpers, against the C library and long double arithmetic.
#include "tests/common/numbers.h"
#include "vor_service.h"

#include <cfenv>
#include <cfloat>
#include <complex>
#include <gtest/gtest.h>

using vor::test::Random;
using vor::test::same_bits;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
const double specials[] = {0.0,   -0.0,   1.5,       -1.5,       4.9e-324, -1e-310,
                           1e308, -1e308, kInfinity, -kInfinity, kNaN,     -kNaN};

long double ulps(long double got, long double want, long double epsilon) {
    return got == want ? 0 : std::fabs(got - want) / (std::fabs(want) * epsilon);
}

} // namespace

TEST(Lsame, FoldsTheLettersAlone) {
    const auto lower = [](int c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; };
    for (int a = 0; a < 256; ++a)
        for (int b = 0; b < 256; ++b) {
            const char ca = static_cast<char>(a), cb = static_cast<char>(b);
            ASSERT_EQ(lsame_(&ca, &cb, 0, -1), lower(a) == lower(b) ? -1 : 0) << a << " " << b;
        }
}

TEST(Lsamen, GoesByLengthsThenCharacters) {
    const struct {
        int n;
        const char *a, *b;
        int a_length, b_length, answer;
    } cases[] = {
        {3, "abc", "ABC", 3, 3, -1}, {3, "abcx", "aBcY", 4, 4, -1}, {4, "abcx", "aBcY", 4, 4, 0},
        {3, "abc", "abc", 2, 3, 0},  {3, "abc", "abc", 3, 2, 0},    {1, "x", "y", 1, 1, 0},
        {2, "a[", "A{", 2, 2, 0},    {0, "x", "y", 0, 0, -1},       {0, "x", "y", 0, -1, 0},
        {0, "x", "y", -1, 0, 0},     {-1, "x", "y", -1, 0, -1},     {-1, "x", "y", -2, 0, 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(LSAMEN_(&c.n, c.a, c.b, c.a_length, c.b_length), c.answer)
            << c.n << " " << c.a << " " << c.b << " " << c.a_length << " " << c.b_length;
}

template <class T>
void check_sign(T (*sign)(const T*, const T*)) {
    for (const double a_value : specials)
        for (const double b_value : specials) {
            const T a = static_cast<T>(a_value), b = static_cast<T>(b_value);
            const bool negative = b < 0; // not for -0, nor a NaN
            T want = negative ? -std::fabs(a) : std::fabs(a);
            if (std::isnan(a)) want = negative ? -a : a;
            if (a == 0) want = a;
            EXPECT_TRUE(same_bits<T>(sign(&a, &b), want)) << a << " " << b;
        }
}

TEST(Scalar, SignTransfer) {
    check_sign<float>(vor_serv_s_sign);
    check_sign<double>(vor_serv_d_sign);
}

TEST(Scalar, IntegerPower) {
    const auto power = [](double x, int n) { return vor_serv_d_powi(&x, &n); };
    const auto single = [](float x, int n) { return vor_serv_s_powi(&x, &n); };
    const int least = std::numeric_limits<int>::min();
    EXPECT_EQ(power(3, 33), 5559060566555523.0);
    EXPECT_EQ(power(-2, -3), -0.125);
    EXPECT_EQ(power(kNaN, 0), 1);
    EXPECT_EQ(power(0, -1), kInfinity);
    EXPECT_EQ(power(2, -1074), 4.9406564584124654e-324);
    EXPECT_EQ(power(-1, least) - power(2, least), 1);
    EXPECT_EQ(single(2, -149), 1.40129846432481707e-45f);
    EXPECT_EQ(single(2, 128), HUGE_VALF);
    Random random(1);
    for (int i = 0; i < 2000; ++i) {
        const float x = random.next<float>() + 2;
        const int n = random.below(101) - 50;
        // Half a unit for the one rounding, and at most 50 errors of 2^-64 each before it.
        EXPECT_LT(ulps(power(x, n), powl(x, n), DBL_EPSILON), 0.53);
        EXPECT_LT(ulps(single(x, n), powl(x, n), FLT_EPSILON), 0.5001);
    }
}

TEST(Scalar, TruncationInEveryRoundingMode) {
    for (const int mode : {FE_TONEAREST, FE_UPWARD, FE_DOWNWARD, FE_TOWARDZERO}) {
        std::fesetround(mode);
        for (const double x : {-0.0, 0.999, -0.999, 1.5, -2.75, 1e6, -0x1p31}) {
            const float single = static_cast<float>(x);
            EXPECT_EQ(vor_serv_s_int(&single), std::trunc(x)) << x;
            EXPECT_EQ(vor_serv_d_int(&x), std::trunc(x)) << x;
            EXPECT_EQ(std::fegetround(), mode);
        }
    }
    std::fesetround(FE_TONEAREST);
}

TEST(Scalar, Cosine) {
    const float x = -3.25f;
    EXPECT_EQ(vor_serv_s_cos(&x), std::cos(static_cast<double>(x)));
}

TEST(Modulus, OfSpecialValues) {
    for (const double a : specials)
        for (const double b : specials) {
            std::feclearexcept(FE_ALL_EXCEPT);
            const long double got = vor_serv_hypot(a, b);
            EXPECT_FALSE(std::fetestexcept(FE_OVERFLOW)) << a << " " << b;
            if (std::isinf(a) || std::isinf(b))
                EXPECT_EQ(got, kInfinity) << a << " " << b;
            else if (std::isnan(a) || std::isnan(b))
                EXPECT_TRUE(std::isnan(got)) << a << " " << b;
            else
                EXPECT_LT(ulps(got, hypotl(a, b), LDBL_EPSILON), 2) << a << " " << b;
        }
    const vor_scomplex c = {8, -15};
    EXPECT_EQ(vor_serv_c_abs(&c), 17);
    // Unrounded: sqrt(2) in 64 bits, and of the smallest double.
    const vor_dcomplex ones = {1, 1};
    EXPECT_EQ(vor_serv_z_abs(&ones), sqrtl(2));
    EXPECT_EQ(vor_serv_hypot(4.9e-324, -4.9e-324), 0x1p-1074L * sqrtl(2));
    // Arguments that are far apart by their exponents, whatever the significands, are added.
    EXPECT_EQ(vor_serv_hypot(-1.75, 0x1p-58), 1.75);
    EXPECT_EQ(vor_serv_hypot(-0x1p-59, -1), 1 + 0x1p-59L);
    // Beyond double: finite, but flagged.
    std::feclearexcept(FE_ALL_EXCEPT);
    const long double large = vor_serv_hypot(-DBL_MAX, 1.5e308);
    EXPECT_TRUE(std::fetestexcept(FE_OVERFLOW));
    EXPECT_TRUE(std::isfinite(large) && std::isinf(static_cast<double>(large)));
}

TEST(Modulus, WorksInExtendedPrecisionWhateverTheCallerSet) {
    unsigned short own, after;
    asm volatile("fnstcw %0" : "=m"(own));
    Random random(2);
    for (int i = 0; i < 200; ++i) {
        const double a = random.next<double>(), b = random.next<double>();
        const long double want =
            sqrtl(static_cast<long double>(a) * a + static_cast<long double>(b) * b);
        // 24-bit, 53-bit precision; rounding down in the latter
        for (const int bits : {0x000, 0x200, 0x600}) {
            const auto word = static_cast<unsigned short>((own & ~0xf00) | bits);
            asm volatile("fldcw %0" : : "m"(word));
            const long double got = vor_serv_hypot(a, b);
            asm volatile("fnstcw %0\n\tfldcw %1" : "=m"(after) : "m"(own));
            EXPECT_EQ(after, word);
            EXPECT_LT(ulps(got, want, LDBL_EPSILON), bits == 0x600 ? 4 : 1e-9);
        }
    }
}

TEST(SquareRoot, Cases) {
    const double cases[][4] = {{0, -0.0, 0, 0},
                               {-0.0, -0.0, 0, 0},
                               {4, 0, 2, 0},
                               {4, -0.0, 2, -0.0},
                               {-4, 0, 0, 2},
                               {-4, -0.0, -0.0, 2},
                               {3, -4, 2, -1},
                               {-3, 4, 1, 2},
                               {-3, -4, 1, -2},
                               {0, 2, 1, 1},
                               {kInfinity, 1, kInfinity, 0},
                               {-kInfinity, 1, 0, kInfinity}};
    for (const auto& [x, y, re, im] : cases) {
        vor_dcomplex z = {x, y};
        vor_serv_z_sqrt(&z, &z);
        EXPECT_TRUE(same_bits(z, {re, im})) << x << " " << y << ": " << z.re << " " << z.im;
        vor_scomplex s = {static_cast<float>(x), static_cast<float>(y)};
        vor_serv_c_sqrt(&s, &s);
        EXPECT_TRUE(same_bits(s, {static_cast<float>(re), static_cast<float>(im)})) << x;
    }
    double re, im;
    Random random(3);
    for (int i = 0; i < 3000; ++i) {
        const double scale = std::ldexp(1.0, random.below(2000) - 1000);
        const double x = scale * random.next<double>(), y = scale * random.next<double>();
        const std::complex<long double> want = std::sqrt(std::complex<long double>(x, y));
        vor_serv_sqrt(&re, &im, x, y);
        EXPECT_LT(ulps(re, want.real(), DBL_EPSILON), 0.51);
        EXPECT_LT(ulps(im, want.imag(), DBL_EPSILON), 0.51);
    }
    vor_serv_sqrt(&re, &im, DBL_MAX, DBL_MAX); // the modulus is beyond double, the root is not
    EXPECT_TRUE(std::isfinite(re) && re > 1.4e154);
    vor_serv_sqrt(&re, &im, 1, kNaN);
    EXPECT_TRUE(std::isnan(re) && std::isnan(im));
}
