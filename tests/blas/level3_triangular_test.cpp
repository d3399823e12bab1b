// trsm and trmm: products against a plain sum, solves by their residual, over sides, triangles,
// transpositions, diagonals, the seams of the blocks, threads and failing allocations.
#include "tests/blas/level3.h"

using namespace vor::test;

namespace {

WorstShare products("trmm"), solves("trsm");

template <class T>
using Routine = void PARAMS_XTRMM(T);

template <class T>
Routine<T>* trsm() {
    return of_type<T>(strsm_, DTRSM, ctrsm, ZTRSM_);
}
template <class T>
Routine<T>* trmm() {
    return of_type<T>(STRMM, dtrmm_, CTRMM_, ztrmm);
}

struct Letters {
    char side, uplo, trans, diag;
    bool left() const { return side == 'L' || side == 'l'; }
    bool unit() const { return diag == 'U' || diag == 'u'; }
};

// All 24 combinations, the case of the letters changing.
std::vector<Letters> all_letters() {
    std::vector<Letters> result;
    unsigned turn = 0;
    for (const char* side : {"Ll", "Rr"})
        for (const char* uplo : {"Uu", "lL"})
            for (const char* trans : {"nN", "tT", "Cc"})
                for (const char* diag : {"uU", "Nn"}) {
                    result.push_back(
                        {side[turn % 2], uplo[turn / 2 % 2], trans[turn % 2], diag[turn / 3 % 2]});
                    turn += 5;
                }
    return result;
}

// `others` right sides. The diagonal outweighs the rest of its row, so that solutions stay small.
template <class T>
struct Problem {
    Random random{5}; // before the members that it fills
    Letters letters;
    int m, n;
    Matrix<T> a, full, b, before;
    T alpha = element<T>(-0.7, 0.4);

    Problem(Letters l, int order, int others, int gap = 1)
        : letters(l), m(l.left() ? order : others), n(l.left() ? others : order),
          a(triangle<T>(l.uplo, order, gap, [&](int i, int j) { return coefficient(i, j); })),
          full(order, order), b(m, n, 2 * gap, sizeof(T)), before(b) {
        full.fill([&](int i, int j) {
            if (i == j && l.unit()) return element<T>(1);
            return in_triangle(l.uplo, i, j) ? a(i, j) : element<T>(0);
        });
        b.fill([&](int, int) { return random.next<T>(); });
        before.fill([&](int i, int j) { return b(i, j); });
    }

    void run(Routine<T>* routine) {
        const Matrix<T> a_before = a;
        routine(&letters.side, &letters.uplo, &letters.trans, &letters.diag, &m, &n, &alpha,
                a.data(), &a.ld(), b.data(), &b.ld());
        EXPECT_TRUE(b.intact()) << name();
        EXPECT_TRUE(a.same_as(a_before)) << name();
    }
    void expect_product() {
        run(trmm<T>());
        const auto want = [&](int i, int j) { return product(alpha, before, i, j); };
        products.expect(worst_error(b, want), bound<T>(a.rows()), name());
    }
    void expect_solution() {
        run(trsm<T>());
        ErrorMeter<T> meter;
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < m; ++i) {
                const Expected got = product(element<T>(1), b, i, j);
                const Wide want = times(wide(alpha), wide(before(i, j)));
                meter.add(got.value.real(), want.real(), got.scale + magnitude(want));
                meter.add(got.value.imag(), want.imag(), got.scale + magnitude(want));
            }
        solves.expect(meter.worst(), bound<T>(a.rows()), name());
    }
    std::string name() const {
        return std::string{letters.side, letters.uplo, letters.trans, letters.diag} + " " +
               std::to_string(m) + " x " + std::to_string(n);
    }

    Expected product(T factor, const Matrix<T>& x, int i, int j) const {
        const Operand<T> triangle(full, letters.trans), sides(x, 'N');
        const T zero = element<T>(0);
        return letters.left() ? product_element(factor, triangle, sides, m, zero, x, i, j)
                              : product_element(factor, sides, triangle, n, zero, x, i, j);
    }

private:
    T coefficient(int i, int j) {
        if (i != j) {
            const auto small = wide(random.next<T>()) / static_cast<long double>(1 + (i + j) / 8);
            return element<T>(small.real(), small.imag());
        }
        if (letters.unit()) return not_a_number<T>();
        return element<T>(2 + i % 3, 0.5 - i % 2);
    }
};

template <class T>
class Level3Triangular : public testing::Test {};
TYPED_TEST_SUITE(Level3Triangular, AllTypes);

// Both sides of every block and of every group inside a leaf, and right sides likewise.
TYPED_TEST(Level3Triangular, EverySeamOfTheBlocks) {
    const int orders[] = {0,  1,  2,  3,  4,  5,  6,  7,   9,   13,  15,  16,  17,  20, 31,
                          32, 33, 47, 63, 64, 65, 95, 100, 127, 128, 129, 200, 255, 257};
    const int others[] = {1, 2, 3, 4, 5, 16, 17, 21, 35};
    int turn = 0;
    const Threads one(1);
    for (const Letters& letters : all_letters())
        for (const int order : orders) {
            const int count = order > 130 ? 3 : others[turn++ % 9];
            Problem<TypeParam>(letters, order, count, turn % 4).expect_product();
            Problem<TypeParam>(letters, order, count, turn % 4).expect_solution();
        }
    for (const int order : {0, 3, 40}) {
        Problem<TypeParam>({'L', 'U', 'N', 'N'}, order, 0).expect_product();
        Problem<TypeParam>({'R', 'U', 'T', 'N'}, order, 0).expect_solution();
    }
}

TYPED_TEST(Level3Triangular, LargeTrianglesAndChunksOfRightSides) {
    const Threads one(1);
    int turn = 0;
    for (const char side : {'L', 'R'})
        for (const char uplo : {'U', 'L'})
            for (const char trans : {'N', 'C'}) {
                const char diag = turn++ % 2 ? 'U' : 'N';
                Problem<TypeParam>({side, uplo, trans, diag}, 513, 2).expect_product();
                Problem<TypeParam>({side, uplo, trans, diag}, 513, 2).expect_solution();
                Problem<TypeParam>({side, uplo, trans, 'N'}, 35, 1027).expect_product();
                Problem<TypeParam>({side, uplo, trans, 'N'}, 35, 1027).expect_solution();
            }
    Problem<TypeParam>({'L', 'U', 'N', 'N'}, 17, 2051).expect_product();
}

TYPED_TEST(Level3Triangular, ValuesOfAlpha) {
    using T = TypeParam;
    const Threads one(1);
    for (const Letters& letters : all_letters()) {
        Problem<T> product(letters, 37, 11), solve(letters, 37, 11);
        product.alpha = solve.alpha = element<T>(1);
        product.expect_product();
        solve.expect_solution();
        for (Routine<T>* routine : {trmm<T>(), trsm<T>()})
            for (const int threads : {1, 2}) {
                const Threads some(threads);
                Problem<T> p(letters, 37, 20);
                p.alpha = element<T>(0);
                p.a.fill(not_a_number<T>());
                p.b.fill(not_a_number<T>());
                p.run(routine);
                EXPECT_EQ(worst_error(p.b, [](int, int) { return Expected{0, 1}; }), 0);
            }
    }
}

// Bit for bit what it is alone, wherever it stands against the boundaries of vectors.
TYPED_TEST(Level3Triangular, ARightSideDoesNotDependOnTheOthers) {
    for (const Letters& letters : all_letters())
        for (const int order : {13, 31}) {
            Problem<TypeParam> together(letters, order, 23), alone(letters, order, 23);
            together.run(trsm<TypeParam>());
            int& count = letters.left() ? alone.n : alone.m;
            count = 1;
            for (int q = 0; q < 23; ++q)
                trsm<TypeParam>()(&letters.side, &letters.uplo, &letters.trans, &letters.diag,
                                  &alone.m, &alone.n, &alone.alpha, alone.a.data(), &alone.a.ld(),
                                  letters.left() ? &alone.b(0, q) : &alone.b(q, 0), &alone.b.ld());
            EXPECT_TRUE(together.b.same_as(alone.b)) << together.name();
        }
}

// A NaN in B reaches the results that its element belongs to, and no others.
TYPED_TEST(Level3Triangular, ANaNStaysInItsPlace) {
    using T = TypeParam;
    const Threads one(1);
    for (const Letters& letters : all_letters())
        for (const int at : {0, 5, 17, 30}) {
            Problem<T> p(letters, 31, 7);
            const int other = 3;
            T& poisoned = letters.left() ? p.b(at, other) : p.b(other, at);
            poisoned = not_a_number<T>();
            p.run(trmm<T>());
            // Whether op(A) as a left factor is upper.
            const bool upper = (is_upper(letters.uplo) == plain(letters.trans)) == letters.left();
            for (int i = 0; i < 31; ++i)
                for (int q = 0; q < 7; ++q) {
                    const Wide x = wide(letters.left() ? p.b(i, q) : p.b(q, i));
                    const bool hit = q == other && (upper ? i <= at : i >= at);
                    EXPECT_EQ(std::isnan(x.real()), hit) << p.name() << " " << i << " " << q;
                }
        }
}

TYPED_TEST(Level3Triangular, OnAnyNumberOfThreads) {
    for (const int threads : kThreads) {
        const Threads some(threads);
        for (const Letters& letters : all_letters())
            for (const auto& [order, others] :
                 {std::pair{16, 16}, {17, 1}, {1, 17}, {40, 3}, {35, 61}, {3, 40}}) {
                Problem<TypeParam>(letters, order, others).expect_product();
                Problem<TypeParam>(letters, order, others).expect_solution();
            }
    }
}

// A team inside a caller's parallel region would be a nested one: each thread works for itself.
TYPED_TEST(Level3Triangular, InsideAParallelRegion) {
#pragma omp parallel num_threads(3)
    {
        Problem<TypeParam>({'L', 'L', 'N', 'N'}, 50, 40).expect_solution();
        Problem<TypeParam>({'R', 'L', 'C', 'U'}, 50, 40).expect_product();
    }
}

TYPED_TEST(Level3Triangular, WithoutScratch) {
    const Threads one(1);
    for (const Letters& letters : all_letters())
        with_failing_allocations([&] {
            Problem<TypeParam>(letters, 70, 9).expect_product();
            Problem<TypeParam>(letters, 70, 9).expect_solution();
        });
}

} // namespace
