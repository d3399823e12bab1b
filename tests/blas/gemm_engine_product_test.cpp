// The four engines against a plain sum, over the seams of their blocks, letters, scalars and scratch.
#include "tests/blas/gemm_engines.h"
#include "tests/common/allocations.h"
#include "tests/common/fenced.h"
#include "vor_service.h"

#include <gtest/gtest.h>

#include <cstdio>

using namespace vor::test;

template <class T>
class GemmEngine : public testing::Test {
protected:
    static void TearDownTestSuite() {
        std::printf("    worst error of %s: %.3f of its bound\n",
                    std::string(1, type_letter<T>()).append("gemm").c_str(), worst_);
    }

    void expect_right(Product<T>& p) {
        const Matrix<T> a = p.a, b = p.b;
        p.run();
        const double error = p.error();
        worst_ = std::max(worst_, error / p.bound());
        EXPECT_LE(error, p.bound()) << p.name();
        EXPECT_TRUE(p.c.intact()) << p.name();
        EXPECT_TRUE(p.a.same_as(a) && p.b.same_as(b)) << p.name();
    }

    Random random_{7};
    static inline double worst_ = 0;
};
TYPED_TEST_SUITE(GemmEngine, AllTypes);

// Block edges in each dimension, with the other two on this and that side of the smallest panels.
TYPED_TEST(GemmEngine, EverySeamOfTheBlocks) {
    const int seams[] = {0,  1,  2,  3,  4,  7,  8,  15, 16, 17,  31,  32,  33, 48,
                         57, 58, 59, 63, 64, 65, 66, 79, 96, 128, 129, 256, 257};
    const char* letters[] = {"NN", "tN", "NT", "ct", "nc", "TC", "Cn", "CC", "TT"};
    const double scalars[][2] = {{1, 0}, {-1, 1}, {0.7, -1}, {1, 1}, {-1.3, 0.4}};
    int turn = 0;
    for (const int s : seams)
        for (const Size& size : {Size{s, 5, 67}, Size{s, 66, 35}, Size{3, s, 20}, Size{49, s, 65},
                                 Size{35, 7, s}, Size{17, 4, s}, Size{4, 3, s}}) {
            const auto* pair = letters[turn % 9];
            const auto& [alpha, beta] = scalars[turn++ % 5];
            Product<TypeParam> p(this->random_, pair[0], pair[1], size,
                                 element<TypeParam>(alpha, turn % 2 * 0.5),
                                 element<TypeParam>(beta, turn % 3 ? 0 : 0.25), turn % 4);
            this->expect_right(p);
        }
}

TYPED_TEST(GemmEngine, EveryPairOfLetters) {
    for (const char ta : {'N', 'n', 'T', 't', 'C', 'c'})
        for (const char tb : {'N', 'n', 'T', 't', 'C', 'c'})
            for (const Size& size :
                 {Size{39, 6, 94}, Size{23, 9, 63}, Size{3, 2, 5}, Size{37, 5, 53}}) {
                Product<TypeParam> p(this->random_, ta, tb, size, element<TypeParam>(0.9, 0.3),
                                     element<TypeParam>(-0.4, 0.6), 1);
                this->expect_right(p);
            }
}

TYPED_TEST(GemmEngine, SeveralBlocksInEveryDimension) {
    for (const Size& size : {Size{530, 300, 141}, Size{261, 387, 70}}) {
        Product<TypeParam> p(this->random_, 'N', 'T', size, element<TypeParam>(1),
                             element<TypeParam>(1), 3);
        this->expect_right(p);
    }
}

TYPED_TEST(GemmEngine, WhatIsMultipliedByZeroIsNotRead) {
    using T = TypeParam;
    const T nan = not_a_number<T>();
    for (const Size& size : {Size{2, 3, 4}, Size{45, 9, 70}, Size{37, 3, 0}}) {
        for (const double beta : {0.0, 1.0, -2.0}) {
            Product<T> p(this->random_, 'N', 'T', size, element<T>(0), element<T>(beta), 1);
            p.a.fill(nan);
            p.b.fill(nan);
            if (beta == 0) p.c.fill(nan);
            p.run();
            EXPECT_LE(p.error(), 0.5 * vor::is_complex<T>) << p.name() << " beta " << beta;
            EXPECT_TRUE(p.c.intact());
        }
        Product<T> p(this->random_, 'T', 'N', size, element<T>(1), element<T>(0), 1);
        p.c.fill(nan);
        this->expect_right(p);
    }
    // A NaN is no zero.
    Product<T> p(this->random_, 'N', 'N', {2, 2, 2}, nan, element<T>(0));
    p.run();
    EXPECT_NE(wide(p.c(1, 1)).real(), wide(p.c(1, 1)).real());
}

// Tight matrices between pages that cannot be touched.
TYPED_TEST(GemmEngine, StaysInsideItsMatrices) {
    using T = TypeParam;
    const int seams[] = {1, 2, 3, 4, 5, 7, 8, 11, 15, 16, 17, 33, 50, 58, 63, 65, 100};
    const T alpha = element<T>(1), beta = element<T>(0.5);
    for (int turn = 0; turn < 1000; ++turn) {
        const auto pick = [&] { return seams[this->random_.below(17)]; };
        const int m = pick(), n = pick(), k = pick();
        const char ta = "NTC"[turn % 3], tb = "NTC"[turn / 3 % 3];
        const int lda = plain(ta) ? m : k, ldb = plain(tb) ? k : n;
        const bool at_end = this->random_.below(2) == 1;
        const auto size = [](int rows, int columns) { return static_cast<size_t>(rows * columns); };
        Fenced<T> a(size(m, k), at_end), b(size(k, n), at_end), c(size(m, n), at_end);
        engine<T>()(&ta, &tb, &m, &n, &k, &alpha, a.data(), &lda, b.data(), &ldb, &beta, c.data(),
                    &m);
    }
}

TYPED_TEST(GemmEngine, EmptyResultsAreLeftAlone) {
    for (const Size& size : {Size{0, 3, 2}, Size{3, 0, 2}, Size{-1, 3, 2}, Size{3, -1, 2}}) {
        Product<TypeParam> p(this->random_, 'N', 'N', {3, 3, 2}, element<TypeParam>(1),
                             element<TypeParam>(0));
        p.size = size;
        p.run();
        EXPECT_TRUE(p.c.same_as(p.before));
    }
}

// One buffer, the other one, both: the result is right, and nothing stays taken.
TYPED_TEST(GemmEngine, WorksWithoutScratch) {
    const char* letters[] = {"NN", "TN", "NT", "TT", "CC", "NC", "CN", "TC", "CT"};
    for (const char* pair : letters)
        for (const int failing : {1, 2, 0}) {
            VOR_FreeBuffers();
            Allocations allocations;
            if (failing)
                allocations.fail_at(failing);
            else
                allocations.fail_from(1);
            Product<TypeParam> p(this->random_, pair[0], pair[1], {37, 21, 77},
                                 element<TypeParam>(0.7, 0.2), element<TypeParam>(-0.6, 0.1), 1);
            p.run();
            // The c engine takes one buffer only.
            const bool second = failing == 2 && std::is_same_v<TypeParam, vor::cfloat>;
            EXPECT_EQ(allocations.failed(), !second);
            EXPECT_LE(p.error(), p.bound() + p.size.k) << p.name() << " failing " << failing;
            EXPECT_TRUE(p.c.intact());
            VOR_FreeBuffers();
            EXPECT_EQ(allocations.live(), 0);
        }
}

// d and z take their two panels whatever the arguments; s once a panel can be filled, c once the product
// is worth blocking.
TYPED_TEST(GemmEngine, TakesScratchWhenItSays) {
    const bool always = std::is_same_v<vor::real_t<TypeParam>, double>;
    const bool one = std::is_same_v<TypeParam, vor::cfloat>;
    const struct {
        Size size;
        double alpha;
        int calls;
    } cases[] = {{{0, 2, 2}, 1, always ? 2 : 0},
                 {{3, 9, 9}, 0, always ? 2 : 0},
                 {{3, 9, 9}, 1, always ? 2 : 0},
                 {{4, 4, 4}, 1, always ? 2 : one},
                 {{32, 1, 16}, 1, one ? 0 : 2}};
    for (const auto& [size, alpha, calls] : cases) {
        VOR_FreeBuffers();
        Allocations allocations;
        Product<TypeParam> p(this->random_, 'N', 'N', size, element<TypeParam>(alpha),
                             element<TypeParam>(1));
        p.run();
        EXPECT_EQ(allocations.calls(), calls) << p.name();
        p.run(); // on what the first call gave back
        EXPECT_EQ(allocations.calls(), calls) << p.name();
    }
}
