// sgemm, dgemm and zgemm bit for bit against a model that takes every sum in the order that the library
// promises: over stages of k, ascending, each entering C for itself.
#include "tests/blas/gemm_engines.h"

#include <vector>
#include <xmmintrin.h>

using namespace vor::test;
using vor::cdouble;

namespace {

// Steps l to l + depth of one element's sum; in a panel or in a plain loop.
struct Stage {
    int l, depth;
    bool panel;
};

// How a type cuts rows and steps: the smallest panel of a block, what a tail of `from` steps does, and
// the panels of a tail that is padded.
struct Tail {
    int from, depth, rows;
};
struct Cut {
    int block_rows, least_rows, depth;
    std::vector<Tail> tails;
    int padded_from, padded_rows;
};
const Cut kCutS = {256, 16, 64, {{48, 48, 32}, {32, 32, 32}, {16, 16, 32}}, 58, 32};
const Cut kCutD = {128, 4, 64, {{48, 48, 16}, {32, 32, 32}, {16, 16, 32}}, 58, 16};
const Cut kCutZ = {128, 4, 32, {{24, 24, 16}, {16, 16, 32}}, 32, 0};

// The stages of row i. What does not fill a panel is left to the plain loop.
std::vector<Stage> stages(int i, Size size, const Cut& cut) {
    const auto in_panel = [i](int rows, int panel) { return i < rows / panel * panel; };
    const int block = i / cut.block_rows * cut.block_rows;
    const int block_end = block + std::min(cut.block_rows, size.m - block);
    std::vector<Stage> result;
    int l = 0;
    for (; l + cut.depth <= size.k; l += cut.depth)
        result.push_back({l, cut.depth, in_panel(block_end, cut.least_rows)});
    const int rest = size.k - l;
    if (rest >= cut.padded_from) {
        result.push_back({l, rest, in_panel(size.m, cut.padded_rows)});
        return result;
    }
    for (const Tail& tail : cut.tails)
        if (rest >= tail.from) {
            result.push_back({l, tail.depth, in_panel(size.m, tail.rows)});
            l += tail.depth;
            break;
        }
    if (l < size.k) result.push_back({l, size.k - l, false});
    return result;
}

template <class T>
T rounded(long double x) {
    volatile T y = static_cast<T>(x);
    return y;
}

// x after one stage in the arithmetic of Sum. A panel holds alpha * a.
template <class Sum, class T>
T enter(T x, const Stage& stage, T alpha, const Operand<T>& a, const Operand<T>& b, int i, int j) {
    Sum sum = 0;
    for (int l = stage.l; l < stage.l + stage.depth; ++l) {
        const T factor =
            stage.panel ? rounded<T>(static_cast<long double>(alpha) * a(i, l)) : a(i, l);
        sum += static_cast<Sum>(factor) * b(l, j);
    }
    return rounded<T>(stage.panel ? sum + x : sum * alpha + x);
}

// d is extended everywhere, s only in plain loops over a transposed B.
template <class T>
Matrix<T> model(const Product<T>& p) {
    constexpr bool single = std::is_same_v<T, float>;
    const Operand<T> a(p.a, p.transa), b(p.b, p.transb);
    Matrix<T> c = p.before;
    c.fill([&](int i, int j) {
        T x = p.beta == 0 ? 0 : rounded<T>(static_cast<long double>(p.beta) * p.before(i, j));
        for (const Stage& stage : stages(i, p.size, single ? kCutS : kCutD))
            x = single && (stage.panel || plain(p.transb))
                    ? enter<T>(x, stage, p.alpha, a, b, i, j)
                    : enter<long double>(x, stage, p.alpha, a, b, i, j);
        return x;
    });
    return c;
}

cdouble rounded(Wide x) {
    return {rounded<double>(x.real()), rounded<double>(x.imag())};
}

Matrix<cdouble> model(const Product<cdouble>& p) {
    const Operand<cdouble> a(p.a, p.transa), b(p.b, p.transb);
    Matrix<cdouble> c = p.before;
    c.fill([&](int i, int j) {
        cdouble x = vor::is_zero(p.beta) ? cdouble{0, 0}
                                         : rounded(times(wide(p.before(i, j)), wide(p.beta)));
        for (const auto& [l, depth, panel] : stages(i, p.size, kCutZ)) {
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
using OrderedTypes = testing::Types<float, double, cdouble>;
TYPED_TEST_SUITE(GemmOrder, OrderedTypes);

} // namespace

TYPED_TEST(GemmOrder, EveryBitOfTheProduct) {
    using T = TypeParam;
    Random random(11);
    std::vector<const char*> letters = {"NN", "NT", "TT", "CC", "NC", "TC", "CT"};
    // The four partial sums of s begin where an address is aligned.
    if (!std::is_same_v<T, float>) letters.insert(letters.end(), {"TN", "CN"});
    size_t turn = 0;
    for (const int k : {1, 2, 7, 15, 16, 20, 23, 24, 31, 32, 40, 48, 57, 58, 63, 64, 65, 130, 200})
        for (const int m : {1, 2, 3, 4, 6, 7, 23, 33, 48, 131, 150, 290}) {
            const char* pair = letters[turn++ % letters.size()];
            const T alpha = turn % 5 == 0   ? element<T>(1)
                            : turn % 5 == 1 ? element<T>(-1)
                                            : random.next<T>();
            Product<T> p(
                random, pair[0], pair[1], {m, static_cast<int>(turn % 13) + 1, k}, alpha,
                turn % 2 ? random.next<T>() : element<T>(static_cast<double>(turn / 2 % 2)), 1);
            p.run();
            EXPECT_TRUE(p.c.same_as(model(p))) << p.name();
        }
    // Column blocks and chunks change nothing.
    Product<T> p(random, 'N', 'T', {21, 270, 90}, random.next<T>(), element<T>(1));
    p.run();
    EXPECT_TRUE(p.c.same_as(model(p))) << p.name();
}

// The s engine multiplies by a beta of 1 too: where subnormals are flushed to zero, one in C is gone before
// the sum enters, and with nothing to add a signalling NaN becomes a quiet one.
TEST(GemmOrder, SingleBetaOfOneIsMultiplied) {
    Random random(12);
    for (const Size& size : {Size{20, 3, 1}, Size{3, 2, 40}, Size{70, 13, 80}}) {
        Product<float> p(random, 'N', 'N', size, 1, 1), zero = p;
        p.a.fill(1.2e-19f), p.b.fill(1.2e-19f), p.c.fill(1e-39f);
        zero.a.fill(1.2e-19f), zero.b.fill(1.2e-19f), zero.c.fill(0.0f);
        const unsigned before = _mm_getcsr();
        _MM_SET_FLUSH_ZERO_MODE(_MM_FLUSH_ZERO_ON);
        p.run();
        zero.run();
        _mm_setcsr(before);
        EXPECT_TRUE(p.c.same_as(zero.c)) << p.name();
        EXPECT_GT(p.c(0, 0), 1e-38f);
    }
    Product<float> p(random, 'N', 'N', {3, 2, 0}, 1, 1);
    uint32_t bits = 0x7f800001;
    std::memcpy(&p.c(1, 1), &bits, sizeof bits);
    p.run();
    std::memcpy(&bits, &p.c(1, 1), sizeof bits);
    EXPECT_EQ(bits, 0x7fc00001u);
}
