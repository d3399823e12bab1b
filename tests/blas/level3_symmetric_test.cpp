// symm, hemm, syrk, herk, syr2k, her2k against plain sums, over letters, the seams of the blocks, alpha
// and beta, threads and failing allocations.
#include "tests/blas/level3.h"

using namespace vor::test;

namespace {

WorstShare products("symm and hemm"), rank_updates("rank-k and rank-2k updates");

template <class T>
using Symm = void PARAMS_XSYMM(T);
template <class T, class S>
using RankK = void PARAMS_XRANK_K(T, S);
template <class T, class S>
using Rank2K = void PARAMS_XRANK_2K(T, S);

template <class T>
T conjugate(T x) {
    if constexpr (vor::is_complex<T>) x.im = -x.im;
    return x;
}

// ---- A product with a symmetric (Hermitian) matrix. The imaginary parts of a Hermitian diagonal are
// NaNs where they must not be read.

template <class T>
struct SymmetricProduct {
    Random random{3}; // before the members that it fills
    bool hermitian;
    char side, uplo;
    int m, n;
    Matrix<T> a, full, b, c, before;
    T alpha = element<T>(0.8, -0.3), beta = element<T>(-0.6, 0.2);

    SymmetricProduct(bool herm, char s, char u, int rows, int columns, int gap = 1)
        : hermitian(herm), side(s), uplo(u), m(rows), n(columns),
          a(triangle<T>(u, left() ? m : n, gap, [&](int i, int j) { return stored(i, j); })),
          full(a.rows(), a.rows()), b(Matrix<T>::random(random, 'N', m, n, gap, sizeof(T))),
          c(Matrix<T>::random(random, 'N', m, n, 2 * gap, sizeof(T))), before(c) {
        full.fill([&](int i, int j) {
            const bool inside = in_triangle(u, i, j);
            T x = inside ? a(i, j) : a(j, i);
            if constexpr (vor::is_complex<T>) {
                if (hermitian && !inside) x.im = -x.im;
                if (hermitian && i == j) x.im = 0;
            }
            return x;
        });
    }
    bool left() const { return side == 'L' || side == 'l'; }

    void run() {
        const Matrix<T> a_before = a, b_before = b;
        Symm<T>* routine = of_type<T>(ssymm, DSYMM_, csymm_, ZSYMM);
        if constexpr (vor::is_complex<T>)
            if (hermitian) routine = of_type<T>(0, 0, chemm_, ZHEMM_);
        routine(&side, &uplo, &m, &n, &alpha, a.data(), &a.ld(), b.data(), &b.ld(), &beta, c.data(),
                &c.ld());
        EXPECT_TRUE(c.intact() && a.same_as(a_before) && b.same_as(b_before)) << name();
    }
    void expect_right() {
        run();
        const Operand<T> x(full, 'N'), y(b, 'N');
        const auto want = [&](int i, int j) {
            return left() ? product_element(alpha, x, y, m, beta, before, i, j)
                          : product_element(alpha, y, x, n, beta, before, i, j);
        };
        products.expect(worst_error(c, want), bound<T>(a.rows()), name());
    }
    std::string name() const {
        return std::string{hermitian ? 'H' : 'S', side, uplo} + " " + std::to_string(m) + " x " +
               std::to_string(n);
    }

private:
    T stored(int i, int j) {
        T x = random.next<T>();
        if constexpr (vor::is_complex<T>)
            if (hermitian && i == j) x.im = not_a_number<T>().im;
        return x;
    }
};

// ---- An update of one triangle.

// rank 1 (syrk, herk) or 2 (syr2k, her2k) products.
struct Update {
    int rank;
    bool hermitian;
};

template <class T>
struct TriangleUpdate {
    Random random{9}; // before the members that it fills
    Update kind;
    char uplo, trans;
    int n, k;
    Matrix<T> a, b, c, before;
    T alpha, beta;

    TriangleUpdate(Update u, char triangle_letter, char t, int order, int depth, int gap = 1)
        : kind(u), uplo(triangle_letter), trans(t), n(order), k(depth),
          a(Matrix<T>::random(random, t, n, k, gap, sizeof(T))),
          b(Matrix<T>::random(random, t, n, k, 2 * gap, sizeof(T))),
          c(triangle<T>(uplo, n, gap, [&](int i, int j) { return stored(i, j); })), before(c),
          alpha(scalar(0.8, -0.3, u.hermitian && u.rank == 1)),
          beta(scalar(-0.6, 0.2, u.hermitian)) {}

    void run() {
        const Matrix<T> a_before = a, b_before = b;
        if (kind.hermitian) {
            if constexpr (vor::is_complex<T>) run_hermitian();
        } else if (kind.rank == 1) {
            RankK<T, T>* routine = of_type<T>(SSYRK_, dsyrk, CSYRK, zsyrk_);
            routine(&uplo, &trans, &n, &k, &alpha, a.data(), &a.ld(), &beta, c.data(), &c.ld());
        } else {
            Rank2K<T, T>* routine = of_type<T>(ssyr2k_, DSYR2K, csyr2k, ZSYR2K_);
            routine(&uplo, &trans, &n, &k, &alpha, a.data(), &a.ld(), b.data(), &b.ld(), &beta,
                    c.data(), &c.ld());
        }
        EXPECT_TRUE(c.intact() && a.same_as(a_before) && b.same_as(b_before)) << name();
    }

    // NaNs all over C.
    void poison_result() {
        c.fill(not_a_number<T>());
        before.fill(not_a_number<T>());
    }
    void expect_right() {
        run();
        ErrorMeter<T> meter;
        bool others_kept = true, diagonal_real = true;
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < n; ++i) {
                if (!in_triangle(uplo, i, j)) {
                    others_kept &= same_bits(c(i, j), before(i, j));
                    continue;
                }
                const Expected want = expected(i, j);
                const Wide got = wide(c(i, j));
                meter.add(got.real(), want.value.real(), want.scale);
                if (kind.hermitian && i == j)
                    diagonal_real &= got.imag() == 0;
                else
                    meter.add(got.imag(), want.value.imag(), want.scale);
            }
        rank_updates.expect(meter.worst(), bound<T>(kind.rank * k), name());
        EXPECT_TRUE(others_kept && diagonal_real) << name();
    }
    std::string name() const {
        return std::string(kind.hermitian ? "her" : "syr") + (kind.rank == 1 ? "k " : "2k ") +
               std::string{uplo, trans} + " " + std::to_string(n) + ", " + std::to_string(k);
    }

private:
    static T scalar(double re, double im, bool real) { return element<T>(re, real ? 0 : im); }
    T stored(int i, int j) {
        T x = random.next<T>();
        if constexpr (vor::is_complex<T>)
            if (kind.hermitian && i == j) x.im = not_a_number<T>().im;
        return x;
    }
    template <class R = vor::real_t<T>>
    void run_hermitian() {
        const R real_alpha = alpha.re, real_beta = beta.re;
        if (kind.rank == 1) {
            RankK<T, R>* routine = of_type<T>(0, 0, cherk, ZHERK_);
            routine(&uplo, &trans, &n, &k, &real_alpha, a.data(), &a.ld(), &real_beta, c.data(),
                    &c.ld());
        } else {
            Rank2K<T, R>* routine = of_type<T>(0, 0, CHER2K_, zher2k_);
            routine(&uplo, &trans, &n, &k, &alpha, a.data(), &a.ld(), b.data(), &b.ld(), &real_beta,
                    c.data(), &c.ld());
        }
    }
    // Element l of row i of op(X), conjugated for trans 'C'.
    Wide row(const Matrix<T>& x, int i, int l) const { return wide(Operand<T>(x, trans)(i, l)); }
    Expected expected(int i, int j) const {
        const auto second = [&](Wide x) { return kind.hermitian ? std::conj(x) : x; };
        Expected sum;
        for (int l = 0; l < (vor::is_zero(alpha) ? 0 : k); ++l) {
            const Wide factor = wide(alpha);
            const Matrix<T>& y = kind.rank == 1 ? a : b;
            add(sum, factor, row(a, i, l), second(row(y, j, l)));
            if (kind.rank == 2) add(sum, second(factor), row(b, i, l), second(row(a, j, l)));
        }
        if (!vor::is_zero(beta)) {
            T old = before(i, j);
            if constexpr (vor::is_complex<T>)
                if (kind.hermitian && i == j) old.im = 0;
            sum.add(times(wide(beta), wide(old)));
        }
        return sum;
    }
    static void add(Expected& sum, Wide factor, Wide x, Wide y) {
        sum.value += times(factor, times(x, y));
        sum.scale += magnitude(factor) * magnitude(x) * magnitude(y);
    }
};

template <class T>
std::vector<bool> kinds() {
    return vor::is_complex<T> ? std::vector<bool>{false, true} : std::vector<bool>{false};
}

template <class T>
std::vector<Update> updates() {
    std::vector<Update> result;
    for (const bool hermitian : kinds<T>())
        for (const int rank : {1, 2}) result.push_back({rank, hermitian});
    return result;
}

// The letters that a kind of update takes for the transposed case.
template <class T>
std::string transposed(const Update& kind) {
    if (kind.hermitian) return "Cc";
    return vor::is_complex<T> ? "Tt" : "TcCt";
}

// Calls work(kind, uplo, trans, turn) for all letters of all updates.
template <class T, class F>
void for_updates(F work) {
    size_t turn = 0;
    for (const Update& kind : updates<T>())
        for (const char* uplo : {"Ul", "Lu"})
            for (const std::string& trans : {std::string("Nn"), transposed<T>(kind)}) {
                work(kind, uplo[turn / 2 % 2], trans[turn % trans.size()]);
                ++turn;
            }
}

template <class T>
class Level3Symmetric : public testing::Test {};
TYPED_TEST_SUITE(Level3Symmetric, AllTypes);

TYPED_TEST(Level3Symmetric, ProductsAtEverySeam) {
    const Threads one(1);
    const int orders[] = {1, 2, 3, 15, 16, 17, 33, 127, 128, 129, 200, 257};
    int turn = 0;
    for (const bool hermitian : kinds<TypeParam>())
        for (const char side : {'L', 'r', 'l', 'R'})
            for (const char uplo : {'U', 'l'})
                for (const int order : orders) {
                    const int other = order > 130 ? 2 : (turn * 3) % 19 + 1;
                    const bool left = side == 'L' || side == 'l';
                    SymmetricProduct<TypeParam>(hermitian, side, uplo, left ? order : other,
                                                left ? other : order, turn++ % 4)
                        .expect_right();
                }
    SymmetricProduct<TypeParam>(false, 'L', 'U', 0, 5).expect_right();
    SymmetricProduct<TypeParam>(false, 'R', 'U', 5, 0).expect_right();
}

TYPED_TEST(Level3Symmetric, ProductsWithSpecialScalars) {
    using T = TypeParam;
    for (const int threads : {1, 2})
        for (const bool hermitian : kinds<T>())
            for (const char side : {'L', 'R'})
                for (const auto& [alpha, beta] :
                     {std::pair{1, 1}, {1, 0}, {0, 0}, {0, 1}, {0, 2}}) {
                    const Threads some(threads);
                    SymmetricProduct<T> p(hermitian, side, 'U', 35, 23);
                    p.alpha = element<T>(alpha);
                    p.beta = element<T>(beta);
                    if (alpha == 0) {
                        p.a.fill(not_a_number<T>());
                        p.b.fill(not_a_number<T>());
                    }
                    if (beta == 0) p.c.fill(not_a_number<T>());
                    p.expect_right();
                    EXPECT_TRUE(alpha != 0 || beta != 1 || p.c.same_as(p.before));
                }
}

TYPED_TEST(Level3Symmetric, ProductsOnThreadsAndWithoutScratch) {
    for (const bool hermitian : kinds<TypeParam>())
        for (const char side : {'L', 'R'})
            for (const char uplo : {'U', 'L'}) {
                for (const int threads : kThreads) {
                    const Threads some(threads);
                    for (const auto& [m, n] : {std::pair{16, 16}, {17, 3}, {3, 17}, {61, 140}})
                        SymmetricProduct<TypeParam>(hermitian, side, uplo, m, n).expect_right();
                }
                const Threads one(1);
                with_failing_allocations([&, s = side, u = uplo, h = hermitian] {
                    SymmetricProduct<TypeParam>(h, s, u, 37, 21).expect_right();
                });
            }
}

TYPED_TEST(Level3Symmetric, UpdatesAtEverySeam) {
    const Threads one(1);
    const int depths[] = {1, 2, 3, 16, 33, 64, 65, 5, 17};
    int turn = 0;
    for (const int n : {1, 2, 3, 15, 16, 17, 31, 32, 33, 49, 63, 64, 65, 127, 128, 129, 150, 257})
        for_updates<TypeParam>([&](const Update& kind, char uplo, char trans) {
            const int k = n > 130 ? 3 : depths[turn % 9];
            TriangleUpdate<TypeParam>(kind, uplo, trans, n, k, turn++ % 4).expect_right();
        });
    for_updates<TypeParam>([&](const Update& kind, char uplo, char trans) {
        TriangleUpdate<TypeParam>(kind, uplo, trans, 0, 4).expect_right();
        TriangleUpdate<TypeParam>(kind, uplo, trans, 21, 150).expect_right();
    });
}

// alpha = 0 and k = 0 leave the operands unread, beta = 0 the result; with beta = 1 a triangle that gets
// nothing added is left alone.
TYPED_TEST(Level3Symmetric, UpdatesWithSpecialScalars) {
    using T = TypeParam;
    for (const int threads : {1, 3})
        for_updates<T>([&](const Update& kind, char uplo, char trans) {
            const Threads some(threads);
            for (const int k : {0, 7})
                for (const auto& [alpha, beta] :
                     {std::pair{1, 1}, {1, 0}, {0, 0}, {0, 1}, {0, 2}}) {
                    TriangleUpdate<T> p(kind, uplo, trans, 35, k);
                    p.alpha = element<T>(alpha);
                    p.beta = element<T>(beta);
                    if (alpha == 0) {
                        p.a.fill(not_a_number<T>());
                        p.b.fill(not_a_number<T>());
                    }
                    if (beta == 0) p.poison_result();
                    if (beta == 1 && (alpha == 0 || k == 0)) {
                        p.run();
                        EXPECT_TRUE(p.c.same_as(p.before)) << p.name();
                    } else {
                        p.expect_right();
                    }
                }
        });
}

TYPED_TEST(Level3Symmetric, UpdatesOnThreadsAndWithoutScratch) {
    for_updates<TypeParam>([&](const Update& kind, char uplo, char trans) {
        for (const int threads : {1, 2, 3, 5, 20}) {
            const Threads some(threads);
            for (const auto& [n, k] : {std::pair{16, 40}, {17, 9}, {61, 34}, {150, 20}})
                TriangleUpdate<TypeParam>(kind, uplo, trans, n, k).expect_right();
        }
        const Threads one(1);
        with_failing_allocations(
            [&] { TriangleUpdate<TypeParam>(kind, uplo, trans, 39, 21).expect_right(); });
    });
}

} // namespace
