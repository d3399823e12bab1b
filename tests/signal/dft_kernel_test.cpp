// DFT kernels by name, where the transforms do not reach: whole direct sums of even and odd length,
// stages in place, block helpers with tails, the table that all others are cut from.
#include "signal/dft/kernels.h"
#include "tests/signal/dft_kinds.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

using namespace dft::names;

// The kernels of a precision and a direction, and those that have no direction.
template <class T, Direction D>
struct Kernels;
#define KERNELS(T, D, Fwd, c, r)                                                                   \
    template <>                                                                                    \
    struct Kernels<T, Direction::D> {                                                              \
        static constexpr Stage<complex_t<T>>* stages[] = {                                         \
            tavs_cDft##Fwd##_Fact2_##c, tavs_cDft##Fwd##_Fact3_##c, tavs_cDft##Fwd##_Fact4_##c,    \
            tavs_cDft##Fwd##_Fact5_##c};                                                           \
        static constexpr OutStage<complex_t<T>>* out_stages[] = {                                  \
            tavs_cDftOutOrd##Fwd##_Fact2_##c, tavs_cDftOutOrd##Fwd##_Fact3_##c,                    \
            tavs_cDftOutOrd##Fwd##_Fact4_##c, tavs_cDftOutOrd##Fwd##_Fact5_##c};                   \
        static constexpr auto table_stage = tavs_cDft##Fwd##_Fact_##c;                             \
        static constexpr auto leaf3 = tavs_cDft##Fwd##_Prime3_##c;                                 \
        static constexpr auto leaf5 = tavs_cDft##Fwd##_Prime5_##c;                                 \
        static constexpr auto real_direct = tavs_rDft##Fwd##_Dir_##r;                              \
    };
KERNELS(float, forward, Fwd, 32fc, 32f)
KERNELS(float, backward, Inv, 32fc, 32f)
KERNELS(double, forward, Fwd, 64fc, 64f)
KERNELS(double, backward, Inv, 64fc, 64f)

template <class T>
struct Undirected;
#define UNDIRECTED(T, c, r)                                                                        \
    template <>                                                                                    \
    struct Undirected<T> {                                                                         \
        static constexpr auto base_table = tavs_createTabDftBase_##r;                              \
        static constexpr auto direct_table = tavs_createTabDftDir_##r;                             \
        static constexpr auto direct = tavs_cDft_Dir_##c;                                          \
        static constexpr auto multiply = tavs_cbMpy3_##c;                                          \
        static constexpr auto conjugate = tavs_cbConj2_##c;                                        \
        static constexpr auto zero = tavs_cbZero_##c;                                              \
    };
UNDIRECTED(float, 32fc, 32f)
UNDIRECTED(double, 64fc, 64f)

template <class T>
class DftKernels : public testing::Test {};
using Types = testing::Types<float, double>;
TYPED_TEST_SUITE(DftKernels, Types);

constexpr double kBound = 1.0; // docs/numerics.md

template <class T>
struct Owned {
    explicit Owned(T* block) : data(block) {}
    ~Owned() { tavsFree(data); }
    T* data;
};

// The steps from 1 to the value of which entry k of a table of n is a mirror image.
int computed_entry(int k, int n) {
    k = std::min(k, n - k);
    if (n % 2 == 0) k = std::min(k, n / 2 - k);
    return n % 4 == 0 ? std::min(k, n / 4 - k) : k;
}

// Exact symmetries of the circle; values are rounded once in single precision, and in double precision
// the angle, up to pi, is rounded before.
TYPED_TEST(DftKernels, BaseTable) {
    using C = complex_t<TypeParam>;
    for (int n : {1, 2, 3, 5, 8, 12, 18, 30, 1000, 1001, 1002, 4104}) {
        const Owned<C> table(Undirected<TypeParam>::base_table(n));
        const Spectrum want = unit_roots(n, Direction::forward);
        const C* const w = table.data;
        ErrorMeter<TypeParam> error;
        for (int k = 0; k < n; ++k) {
            const long double re = want[k].real(), im = want[k].imag();
            const double angle = 6.283 * std::abs(computed_entry(k, n)) / n,
                         unit = 0.4 + 0.45 * angle;
            const bool single = sizeof(TypeParam) == 4;
            error.add(w[k].re, re, single ? 0.501L * std::fabs(re) : unit);
            error.add(w[k].im, im, single ? 0.501L * std::fabs(im) : unit);
            const C mirror = w[(n - k) % n];
            ASSERT_TRUE(w[k].re == mirror.re && w[k].im == -mirror.im) << k << " of " << n;
            ASSERT_TRUE(n % 2 != 0 || w[k].re == -w[(3 * n / 2 - k) % n].re) << k << " of " << n;
        }
        EXPECT_LE(error.worst(), 1) << n;
    }
}

template <class T>
void check_direct(int n, WorstError& worst) {
    using C = complex_t<T>;
    using K = Undirected<T>;
    using Forward = Kernels<T, Direction::forward>;
    using Inverse = Kernels<T, Direction::backward>;
    const Owned<C> base(K::base_table(2 * n));
    const Owned<C> table(K::direct_table(base.data, n, 2));
    Random random(n);
    Guarded<C> x(n), y(n), scratch(n, 8);
    x.fill(random);
    for (Direction direction : {Direction::forward, Direction::backward}) {
        const int sign = direction == Direction::forward ? 1 : -1;
        K::direct(x.data(), y.data(), n, sign, table.data, scratch.data());
        const Spectrum want = direct_transform(widen(x.data(), n), direction);
        EXPECT_LE(worst.add(relative_error(y.data(), want)), kBound) << n;
        const auto out = y.copy();
        std::copy(x.begin(), x.end(), y.begin());
        K::direct(y.data(), y.data(), n, sign, table.data, scratch.data());
        EXPECT_TRUE(same_bits(out.data(), y.data(), out.size())) << n;
    }
    // Reals: to Perm order and back.
    Guarded<T> a(n), b(n), real_scratch(n);
    a.fill(random);
    Forward::real_direct(a.data(), b.data(), n, table.data, real_scratch.data());
    const auto spectrum = direct_transform(widen(a.data(), n), Direction::forward);
    EXPECT_LE(worst.add(relative_error(b.data(), stored(spectrum, Format::perm), n)), kBound) << n;
    Inverse::real_direct(b.data(), b.data(), n, table.data, real_scratch.data());
    Reals back(a.begin(), a.end());
    for (long double& v : back) v *= n;
    EXPECT_LE(worst.add(relative_error(b.data(), back, n)), 2 * kBound) << n;
    EXPECT_TRUE(y.intact() && scratch.intact() && b.intact() && real_scratch.intact()) << n;
}

TYPED_TEST(DftKernels, DirectSums) {
    WorstError worst("direct sums");
    for (int n = 1; n <= 40; ++n) check_direct<TypeParam>(n, worst);
    for (int n : {61, 62, 100, 149, 179}) check_direct<TypeParam>(n, worst);
}

// A stage in place gives what it gives out of place, on several blocks and a single column.
TYPED_TEST(DftKernels, StagesInPlace) {
    using C = complex_t<TypeParam>;
    using Forward = Kernels<TypeParam, Direction::forward>;
    using Inverse = Kernels<TypeParam, Direction::backward>;
    const Owned<C> base(Undirected<TypeParam>::base_table(7));
    Random random;
    Guarded<C> x(210), y(210), twiddle(7 * 15), scratch(6);
    twiddle.fill(random);
    for (int r : {1, 3, 15}) {
        const auto check = [&](int f, auto stage) {
            x.fill(random);
            stage(x.data(), y.data());
            stage(x.data(), x.data());
            EXPECT_TRUE(same_bits(x.data(), y.data(), 2 * f * r)) << f << " of " << r;
        };
        const auto blocks = [&](int f, auto kernel) {
            check(f, [&](const C* from, C* to) { kernel(from, to, r, 2, twiddle.data()); });
        };
        for (int f = 2; f <= 5; ++f) {
            blocks(f, Forward::stages[f - 2]);
            blocks(f, Inverse::stages[f - 2]);
        }
        for (auto kernel : {Forward::table_stage, Inverse::table_stage})
            check(7, [&](const C* from, C* to) {
                for (int b = 0; b < 2; ++b)
                    kernel(from + b * 7 * r, to + b * 7 * r, 7, r, base.data, twiddle.data(),
                           scratch.data());
            });
    }
    EXPECT_TRUE(scratch.intact());
}

// A block has the same bits alone and among others, whichever columns a kernel takes together, and
// nothing behind the last block is touched.
TYPED_TEST(DftKernels, BlocksTogether) {
    using C = complex_t<TypeParam>;
    using Forward = Kernels<TypeParam, Direction::forward>;
    using Inverse = Kernels<TypeParam, Direction::backward>;
    constexpr int kBlocks = 6, kMostColumns = 11;
    Random random;
    Guarded<C> x(kBlocks * 5 * kMostColumns), twiddle(kBlocks * 4 * kMostColumns);
    x.fill(random);
    twiddle.fill(random);
    // run(y, b, blocks): results from block b on, to y.
    const auto check = [&](int f, int columns, auto run) {
        const int length = f * columns;
        Guarded<C> together(kBlocks * length), alone(length);
        run(together.data(), 0, kBlocks);
        EXPECT_TRUE(together.intact());
        for (int b = 0; b < kBlocks; ++b) {
            run(alone.data(), b, 1);
            EXPECT_TRUE(same_bits(alone.data(), together.data() + b * length, length))
                << f << " of " << columns << ", block " << b;
        }
    };
    for (int columns : {1, 2, 3, 4, 5, 7, kMostColumns}) {
        const auto in_order = [&](int f, auto kernel) {
            check(f, columns, [&](C* y, int b, int blocks) {
                kernel(x.data() + b * f * columns, y, columns, blocks, twiddle.data());
            });
        };
        const auto out_of_order = [&](int f, auto kernel) {
            check(f, columns, [&](C* y, int b, int blocks) {
                kernel(x.data(), y - b * f * columns, columns, b, blocks, twiddle.data());
            });
        };
        const auto leaf = [&](int r, auto kernel) {
            const int offsets[kBlocks] = {0, 4, 2, 5, 1, 3};
            check(r, columns, [&](C* y, int b, int blocks) {
                kernel(x.data(), kBlocks, y, columns, blocks, offsets + b);
            });
        };
        for (int f = 2; f <= 5; ++f) {
            in_order(f, Forward::stages[f - 2]);
            in_order(f, Inverse::stages[f - 2]);
            out_of_order(f, Forward::out_stages[f - 2]);
            out_of_order(f, Inverse::out_stages[f - 2]);
        }
        leaf(3, Forward::leaf3), leaf(3, Inverse::leaf3);
        leaf(5, Forward::leaf5), leaf(5, Inverse::leaf5);
    }
}

TYPED_TEST(DftKernels, BlockHelpers) {
    using C = complex_t<TypeParam>;
    using K = Undirected<TypeParam>;
    for (int n : {0, 1, 2, 3, 8, 9}) {
        Random random(n);
        Guarded<C> a(n), b(n, 8), c(n, 24);
        a.fill(random);
        b.fill(random);
        K::multiply(a.data(), b.data(), c.data(), n);
        const auto product = c.copy();
        for (int k = 0; k < n; ++k) {
            const Wide want = Wide(a[k].re, a[k].im) * Wide(b[k].re, b[k].im);
            ErrorMeter<TypeParam> error;
            error.add(c[k].re, want.real(), 2);
            error.add(c[k].im, want.imag(), 2);
            EXPECT_LE(error.worst(), 1.5);
        }
        K::conjugate(a.data(), c.data(), n);
        for (int k = 0; k < n; ++k) EXPECT_TRUE(c[k].re == a[k].re && c[k].im == -a[k].im);
        K::multiply(a.data(), b.data(), b.data(), n);
        EXPECT_TRUE(same_bits(b.data(), product.data(), product.size()));
        K::zero(a.data(), n);
        for (const C& v : a) EXPECT_TRUE(v.re == 0 && v.im == 0);
        EXPECT_TRUE(a.intact() && b.intact() && c.intact());
    }
}

} // namespace
} // namespace vor::test
