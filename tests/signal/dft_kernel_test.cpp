// DFT kernels by name, where the transforms do not reach: whole direct sums of even and odd length,
// stages in place, block helpers with tails, the table that all others are cut from.
#include "signal/dft/kernels.h"
#include "tests/signal/dft_kinds.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

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

// Exact symmetries of the circle, values to one rounding.
TYPED_TEST(DftKernels, BaseTable) {
    using C = complex_t<TypeParam>;
    for (int n : {1, 2, 3, 5, 8, 12, 18, 30, 1000, 1001, 1002, 4104}) {
        const Owned<C> table(dft::Shared<TypeParam>::base_table(n));
        const Spectrum want = unit_roots(n, Direction::forward);
        const C* const w = table.data;
        ErrorMeter<TypeParam> error;
        for (int k = 0; k < n; ++k) {
            error.add(w[k].re, want[k].real(), 1);
            error.add(w[k].im, want[k].imag(), 1);
            const C mirror = w[(n - k) % n];
            ASSERT_TRUE(w[k].re == mirror.re && w[k].im == -mirror.im) << k << " of " << n;
            ASSERT_TRUE(n % 2 != 0 || w[k].re == -w[(3 * n / 2 - k) % n].re) << k << " of " << n;
        }
        EXPECT_LE(error.worst(), sizeof(TypeParam) == 4 ? 0.51 : 4) << n;
    }
}

template <class T>
void check_direct(int n, WorstError& worst) {
    using C = complex_t<T>;
    using K = dft::Shared<T>;
    using Forward = dft::Directed<T, Direction::forward>;
    using Inverse = dft::Directed<T, Direction::backward>;
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
    using Forward = dft::Directed<TypeParam, Direction::forward>;
    using Inverse = dft::Directed<TypeParam, Direction::backward>;
    const Owned<C> base(dft::Shared<TypeParam>::base_table(7));
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
        blocks(2, Forward::stage2), blocks(2, Inverse::stage2);
        blocks(3, Forward::stage3), blocks(3, Inverse::stage3);
        blocks(4, Forward::stage4), blocks(4, Inverse::stage4);
        blocks(5, Forward::stage5), blocks(5, Inverse::stage5);
        for (auto kernel : {Forward::stage, Inverse::stage})
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
    using Forward = dft::Directed<TypeParam, Direction::forward>;
    using Inverse = dft::Directed<TypeParam, Direction::backward>;
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
        in_order(2, Forward::stage2), in_order(2, Inverse::stage2);
        in_order(3, Forward::stage3), in_order(3, Inverse::stage3);
        in_order(4, Forward::stage4), in_order(4, Inverse::stage4);
        in_order(5, Forward::stage5), in_order(5, Inverse::stage5);
        out_of_order(2, Forward::out_stage2), out_of_order(2, Inverse::out_stage2);
        out_of_order(3, Forward::out_stage3), out_of_order(3, Inverse::out_stage3);
        out_of_order(4, Forward::out_stage4), out_of_order(4, Inverse::out_stage4);
        out_of_order(5, Forward::out_stage5), out_of_order(5, Inverse::out_stage5);
        leaf(3, Forward::leaf3), leaf(3, Inverse::leaf3);
        leaf(5, Forward::leaf5), leaf(5, Inverse::leaf5);
    }
}

TYPED_TEST(DftKernels, BlockHelpers) {
    using C = complex_t<TypeParam>;
    using K = dft::Shared<TypeParam>;
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
