// symm, hemm, syrk, herk, syr2k, her2k, trmm, trsm: sums against plain ones, solves by their residual, over
// letters, the seams of the blocks, alpha and beta, threads and failing allocations.
#include "tests/blas/level3.h"

using namespace vor::test;

namespace {

template <class T>
class Level3 : public testing::Test {
protected:
    // work(member, letters) for every combination of the letters of every member.
    template <class F>
    static void for_members(F work) {
        for (const Level3Member<T>& member : level3_members<T>())
            for (const Letters& letters : letters_of(member)) work(member, letters);
    }
    // The same for one family.
    template <class F>
    static void for_family(Family family, F work) {
        for_members([&](const Level3Member<T>& member, const Letters& letters) {
            if (member.family == family) work(member, letters);
        });
    }
};
TYPED_TEST_SUITE(Level3, Elements);

// Both sides of every block and of every group inside a leaf, and right sides and depths likewise.
TYPED_TEST(Level3, EverySeamOfTheBlocks) {
    const int orders[] = {0,  1,  2,  3,  4,  5,  6,  7,   9,   13,  15,  16,  17,  20,  31,
                          32, 33, 49, 63, 64, 65, 95, 100, 127, 128, 129, 150, 200, 255, 257};
    const int others[] = {1, 2, 3, 4, 5, 16, 17, 21, 35, 64, 65};
    const Threads one(1);
    size_t turn = 0;
    this->for_members([&](const auto& member, const Letters& letters) {
        for (const int order : orders) {
            const int count = order > 130 ? 3 : others[turn++ % std::size(others)];
            Level3Problem<TypeParam>(member, letters, order, count, turn % 4).expect_right();
        }
        Level3Problem<TypeParam>(member, letters, 21, 150).expect_right();
        Level3Problem<TypeParam>(member, letters, 40, 0).expect_right();
    });
}

TYPED_TEST(Level3, LargeTrianglesAndChunksOfRightSides) {
    const Threads one(1);
    this->for_members([&](const auto& member, const Letters& letters) {
        if (!member.is_triangular() || letters.unit()) return;
        Level3Problem<TypeParam>(member, letters, 513, 2).expect_right();
        Level3Problem<TypeParam>(member, letters, 35, 1027).expect_right();
    });
    this->for_family(Family::product, [&](const auto& member, const Letters& letters) {
        if (letters.unit() || !plain(letters.trans)) return;
        Level3Problem<TypeParam>(member, letters, 17, 2051).expect_right();
    });
}

// alpha = 0 and k = 0 leave the operands unread, beta = 0 the result; with beta = 1 a result that gets
// nothing added is left alone.
TYPED_TEST(Level3, SpecialScalars) {
    using T = TypeParam;
    const T nan = not_a_number<T>();
    this->for_members([&](const auto& member, const Letters& letters) {
        for (const int threads : {1, 3})
            for (const int others : {0, 23})
                for (const auto& [alpha, beta] :
                     {std::pair{1, 1}, {1, 0}, {0, 0}, {0, 1}, {0, 2}}) {
                    const Threads some(threads);
                    Level3Problem<T> p(member, letters, 37, others);
                    p.alpha = element<T>(alpha);
                    p.beta = element<T>(beta);
                    if (alpha == 0) p.a.fill(nan), p.b.fill(nan);
                    if (beta == 0) p.c.fill(nan);
                    if (!member.is_triangular() && beta == 1 && (alpha == 0 || others == 0)) {
                        p.run();
                        EXPECT_TRUE(p.c.unchanged()) << p.name();
                    } else if (member.is_triangular() && alpha == 0) {
                        p.run();
                        EXPECT_EQ(error_of_sum(p.b, {}, T{}), 0) << p.name();
                    } else {
                        p.expect_right();
                    }
                }
    });
}

TYPED_TEST(Level3, OnAnyNumberOfThreadsAndWithoutScratch) {
    this->for_members([&](const auto& member, const Letters& letters) {
        for (const int threads : {1, 2, 3, 5, 20}) {
            const Threads some(threads);
            for (const auto& [order, others] :
                 {std::pair{16, 16}, {17, 1}, {1, 17}, {35, 61}, {3, 40}, {61, 9}})
                Level3Problem<TypeParam>(member, letters, order, others).expect_right();
        }
        const Threads one(1);
        with_failing_allocations(
            [&] { Level3Problem<TypeParam>(member, letters, 70, 9).expect_right(); });
    });
}

// No vector reaches beyond the operands: the results are those between any neighbours.
TYPED_TEST(Level3, StaysInsideItsOperands) {
    const Threads one(1);
    this->for_members([&](const auto& member, const Letters& letters) {
        for (const int order : {1, 2, 3, 5, 7, 18, 35, 70})
            for (const bool at_end : {false, true}) {
                Level3Problem<TypeParam> p(member, letters, order, 1 + order % 6, 0), fenced = p;
                p.run();
                fenced.run_fenced(at_end);
                // In single precision the address decides which elements go in vectors, hence their bits.
                constexpr bool kByAddress = std::is_same_v<TypeParam, float>;
                EXPECT_TRUE(kByAddress || (fenced.b.same_as(p.b) && fenced.c.same_as(p.c)))
                    << p.name();
            }
    });
}

// A team inside a caller's parallel region would be a nested one: each thread works for itself.
TYPED_TEST(Level3, InsideAParallelRegion) {
    for (const auto& member : level3_members<TypeParam>()) {
        const Letters letters = letters_of(member).back();
#pragma omp parallel num_threads(3)
        Level3Problem<TypeParam>(member, letters, 50, 40).expect_right();
    }
}

// Bit for bit what it is alone, wherever it stands against the boundaries of vectors.
TYPED_TEST(Level3, ASolutionDoesNotDependOnTheOthers) {
    this->for_family(Family::solve, [&](const auto& member, const Letters& letters) {
        for (const int order : {13, 31}) {
            Level3Problem<TypeParam> together(member, letters, order, 23), alone = together;
            together.run();
            (letters.left() ? alone.n : alone.m) = 1;
            const Threads one(1);
            for (int q = 0; q < 23; ++q) {
                auto& first = letters.left() ? alone.b(0, q) : alone.b(q, 0);
                of_type<TypeParam>(strsm_, DTRSM, ctrsm, ZTRSM_)(
                    &letters.side, &letters.uplo, &letters.trans, &letters.diag, &alone.m, &alone.n,
                    &alone.alpha, alone.a.data(), &alone.a.ld(), &first, &alone.b.ld());
            }
            EXPECT_TRUE(together.b.same_as(alone.b)) << together.name();
        }
    });
}

// A NaN in B reaches the results that its element belongs to, and no others.
TYPED_TEST(Level3, ANaNStaysInItsPlace) {
    const Threads one(1);
    this->for_family(Family::product, [&](const auto& member, const Letters& letters) {
        const int order = 31, others = 7, other = 3;
        // Whether op(A) as a left factor is upper.
        const bool upper = (is_upper(letters.uplo) == plain(letters.trans)) == letters.left();
        for (const int at : {0, 5, 17, 30}) {
            Level3Problem<TypeParam> p(member, letters, order, others);
            const auto element_of = [&](int i, int q) -> TypeParam& {
                return letters.left() ? p.b(i, q) : p.b(q, i);
            };
            element_of(at, other) = not_a_number<TypeParam>();
            p.run();
            for (int i = 0; i < order; ++i)
                for (int q = 0; q < others; ++q) {
                    const bool hit = q == other && (upper ? i <= at : i >= at);
                    EXPECT_EQ(std::isnan(wide(element_of(i, q)).real()), hit)
                        << p.name() << " " << i << " " << q;
                }
        }
    });
}

} // namespace
