// dgemm and zgemm bit for bit against a model that takes every sum in the order that the library
// promises: extended sums over stages of k, rounded where a stage enters C.
#include "tests/blas/gemm_engines.h"

#include <array>

using namespace vor::test;
using vor::cdouble;

namespace {

// Steps l to l + depth of one element's sum; in a panel or in a plain loop.
struct Stage {
    int l, depth;
    bool panel;
};

// The stages of row i. A block of rows leaves what does not fill its smallest panel to the plain loop;
// so does the tail, whose depth chooses the panel.
std::vector<Stage> stages(int i, Size size, int block_rows, int depth,
                          const std::vector<std::array<int, 3>>& tails, int padded_from) {
    const int block = i / block_rows * block_rows;
    const int rows = std::min(block_rows, size.m - block);
    std::vector<Stage> result;
    int l = 0;
    for (; l + depth <= size.k; l += depth) result.push_back({l, depth, i - block < rows / 4 * 4});
    const int rest = size.k - l;
    if (rest >= padded_from) {
        result.push_back({l, rest, i < size.m / 16 * 16});
        return result;
    }
    for (const auto& [from, kernel_depth, kernel_rows] : tails)
        if (rest >= from) {
            result.push_back({l, kernel_depth, i < size.m / kernel_rows * kernel_rows});
            l += kernel_depth;
            break;
        }
    if (l < size.k) result.push_back({l, size.k - l, false});
    return result;
}

double rounded(long double x) {
    volatile double y = static_cast<double>(x);
    return y;
}

Matrix<double> model(const Product<double>& p) {
    const Operand<double> a(p.a, p.transa), b(p.b, p.transb);
    Matrix<double> c = p.before;
    c.fill([&](int i, int j) {
        double x = p.beta == 0 ? 0 : rounded(static_cast<long double>(p.beta) * p.before(i, j));
        for (const auto& [l, depth, panel] :
             stages(i, p.size, 128, 64, {{48, 48, 16}, {32, 32, 32}, {16, 16, 32}}, 58)) {
            long double sum = 0;
            for (int s = l; s < l + depth; ++s) {
                const long double y = b(s, j);
                sum +=
                    panel ? rounded(static_cast<long double>(p.alpha) * a(i, s)) * y : a(i, s) * y;
            }
            x = rounded(panel ? sum + x : sum * p.alpha + x);
        }
        return x;
    });
    return c;
}

cdouble rounded(Wide x) {
    return {rounded(x.real()), rounded(x.imag())};
}

Matrix<cdouble> model(const Product<cdouble>& p) {
    const Operand<cdouble> a(p.a, p.transa), b(p.b, p.transb);
    Matrix<cdouble> c = p.before;
    c.fill([&](int i, int j) {
        cdouble x = vor::is_zero(p.beta) ? cdouble{0, 0}
                                         : rounded(times(wide(p.before(i, j)), wide(p.beta)));
        for (const auto& [l, depth, panel] :
             stages(i, p.size, 128, 32, {{24, 24, 16}, {16, 16, 32}}, 32)) {
            long double re = 0, im = 0;
            const auto add_real = [&](int s) {
                re += static_cast<long double>(a(i, s).re) * b(s, j).re;
                im += static_cast<long double>(a(i, s).im) * b(s, j).re;
            };
            const auto add_imaginary = [&](int s) {
                re -= static_cast<long double>(a(i, s).im) * b(s, j).im;
                im += static_cast<long double>(a(i, s).re) * b(s, j).im;
            };
            for (int s = l; s < l + depth; ++s) {
                add_real(s);
                if (!panel) add_imaginary(s);
            }
            for (int s = l; panel && s < l + depth; ++s) add_imaginary(s);
            x = rounded(times({re, im}, wide(p.alpha)) + wide(x));
        }
        return x;
    });
    return c;
}

template <class T>
class GemmOrder : public testing::Test {};
using ExtendedTypes = testing::Types<double, cdouble>;
TYPED_TEST_SUITE(GemmOrder, ExtendedTypes);

} // namespace

TYPED_TEST(GemmOrder, EveryBitOfTheProduct) {
    using T = TypeParam;
    Random random(11);
    const char* letters[] = {"NN", "TN", "NT", "TT", "CC", "NC", "CN", "TC", "CT"};
    int turn = 0;
    for (const int k : {1, 2, 7, 15, 16, 20, 23, 24, 31, 32, 40, 48, 57, 58, 63, 64, 65, 130, 200})
        for (const int m : {1, 2, 3, 4, 6, 7, 23, 33, 48, 131, 150}) {
            const char* pair = letters[turn++ % 9];
            const T alpha = turn % 5 == 0   ? element<T>(1)
                            : turn % 5 == 1 ? element<T>(-1)
                                            : random.next<T>();
            Product<T> p(random, pair[0], pair[1], {m, turn % 7 + 1, k}, alpha,
                         turn % 2 ? random.next<T>() : element<T>(turn / 2 % 2), 1);
            p.run();
            EXPECT_TRUE(p.c.same_as(model(p))) << p.name();
        }
    // Column blocks and chunks change nothing.
    Product<T> p(random, 'N', 'T', {21, 270, 90}, random.next<T>(), element<T>(1));
    p.run();
    EXPECT_TRUE(p.c.same_as(model(p))) << p.name();
}
