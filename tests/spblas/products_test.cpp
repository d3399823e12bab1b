// Products of all formats against a dense oracle in extended precision: every set of letters, both shapes of
// op, unsorted and repeated entries, sizes at the seams of blocks, NaN behind beta = 0.
#include "tests/spblas/matrix.h"
#include "vor_service.h"

#include <gtest/gtest.h>
#include <omp.h>

namespace {

using namespace vor::test;

struct Member {
    const char* name;
    std::unique_ptr<Format> (*make)();
    const char* structures; // first letters that it takes
    double worst;           // error allowed, in eps times the sum of the terms
};
template <class F>
std::unique_ptr<Format> make() {
    return std::make_unique<F>();
}
constexpr Member kMembers[] = {{"csr", make<Csr>, "GTSHAD", 2},
                               {"csc", make<Csc>, "GTSHAD", 2},
                               {"coo", make<Coo>, "GTSHAD", 2},
                               {"dia", make<Dia>, "GTSHAD", 2},
                               {"sky", make<Sky>, "TSHAD", 2}};

std::vector<std::string> letters_of(const char* structures) {
    std::vector<std::string> all;
    for (const char* s = structures; *s; ++s)
        for (const char* tail : {"LN", "LU", "UN", "UU"})
            all.push_back(*s + std::string(tail) + "!");
    return all;
}

class SparseProducts : public testing::TestWithParam<Member> {
protected:
    void SetUp() override { VOR_SET_PARALLEL(); }

    // One call, judged. `vector`: by mv.
    void check(const Entries& a, const std::string& letters, char transa, int n, double alpha,
               double beta, bool vector) {
        const Member& member = GetParam();
        const auto format = member.make();
        format->store(a, letters, false, random_);
        const bool plain = transa == 'N';
        const int rows = plain ? a.m : a.k, inner = plain ? a.k : a.m;
        const int ldb = vector ? inner : inner + 2, ldc = vector ? rows : rows + 1;
        Guarded<double> b(static_cast<size_t>(ldb) * n), c(static_cast<size_t>(ldc) * n);
        b.fill(random_);
        c.fill(random_);
        if (beta == 0)
            for (int j = 0; j < n; ++j)
                for (int i = 0; i < rows; ++i) c[static_cast<size_t>(j) * ldc + i] = NAN;
        const auto before = c.copy();
        const auto b_before = b.copy();
        const Operands o{transa, letters, a.m, n, a.k, alpha, beta, b.data(), ldb, c.data(), ldc};
        vector ? format->mv(o) : format->mm(o);

        // In coordinates the transposed product of a symmetric matrix reads the triangle of the exchanged
        // places.
        std::string read = letters;
        if (member.name == std::string("coo") && !plain && (letters[0] == 'S' || letters[0] == 'H'))
            read[1] = letters[1] == 'L' ? 'U' : 'L';
        const auto matrix = dense(a, read);
        std::vector<long double> stored(matrix.size());
        for (const auto& [place, value] : a.at)
            stored[static_cast<size_t>(place.first - 1) * a.k + (place.second - 1)] =
                std::fabs(value);
        ErrorMeter<double> meter;
        for (int j = 0; j < n; ++j)
            for (int i = 0; i < rows; ++i) {
                const size_t at = static_cast<size_t>(j) * ldc + i;
                long double sum = beta == 0 ? 0 : beta * static_cast<long double>(before[at]);
                long double scale = std::fabs(sum);
                for (int l = 0; l < inner; ++l) {
                    const size_t place = static_cast<size_t>(plain ? i : l) * a.k + (plain ? l : i);
                    const long double x =
                        alpha * static_cast<long double>(b[static_cast<size_t>(j) * ldb + l]);
                    sum += matrix[place] * x;
                    // Entries that are taken back leave their roundings, those of symmetric matrices where
                    // they stand, whatever op is.
                    const bool square = a.m == a.k;
                    const size_t mirror = square ? static_cast<size_t>(l) * a.k + i : place;
                    const size_t direct = square ? static_cast<size_t>(i) * a.k + l : place;
                    scale += (std::fabs(matrix[place]) + std::max(stored[mirror], stored[direct])) *
                             std::fabs(x);
                }
                meter.add(c[at], sum, scale + std::numeric_limits<double>::min());
            }
        worst_ = std::max(worst_, meter.worst());
        EXPECT_LE(meter.worst(), member.worst)
            << letters << ' ' << transa << " m=" << a.m << " n=" << n << " k=" << a.k;
        EXPECT_TRUE(b.intact() && c.intact());
        EXPECT_EQ(std::memcmp(b.data(), b_before.data(), b_before.size() * sizeof(double)), 0);
        for (int j = 0; j < n; ++j)
            for (int i = rows; i < ldc; ++i)
                EXPECT_EQ(c[static_cast<size_t>(j) * ldc + i],
                          before[static_cast<size_t>(j) * ldc + i]);
    }
    ~SparseProducts() override {
        std::printf("worst error of %s: %.2f eps\n", GetParam().name, worst_);
    }
    Random random_{7};
    double worst_ = 0;
};

TEST_P(SparseProducts, EveryLetterAgainstTheDenseSum) {
    const double factors[][2] = {{1, 0}, {1, 1}, {-1.5, 0.5}};
    for (const auto& letters : letters_of(GetParam().structures))
        for (const char transa : {'N', 'T', 'C'})
            for (const int n : {1, 2, 3, 4, 5, 9})
                for (const auto& f : factors) {
                    const Entries a = Entries::random(13, 13, 3, n % 2 == 0, random_);
                    check(a, letters, transa, n, f[0], f[1], false);
                    if (n == 1) check(a, letters, transa, 1, f[0], f[1], true);
                }
}

TEST_P(SparseProducts, ShapesThatAreNotSquare) {
    const bool sky = GetParam().name == std::string("sky");
    for (const std::string letters : {"GLN", "TLN", "TUN", "TLU", "TUU", "DLN", "DLU"})
        for (const auto& [m, k] : {std::pair{5, 9}, {9, 5}, {1, 7}, {7, 1}, {1, 1}}) {
            if (sky &&
                (letters[0] == 'G' || (letters[0] == 'T' && (letters[1] == 'L' ? m > k : k > m))))
                continue;
            for (const char transa : {'N', 'T'})
                for (const int n : {1, 3})
                    check(Entries::random(m, k, 2, true, random_), letters, transa, n, 2, 1, false);
        }
}

// Rows without entries, and a matrix without any.
TEST_P(SparseProducts, EmptyRowsAndEmptyMatrices) {
    const bool sky = GetParam().name == std::string("sky");
    Entries a{6, 6, {{{2, 2}, 3.0}, {{5, 1}, 2.0}}};
    for (const std::string letters : {"GLN", "TLN", "SUN", "ALN", "DUN"}) {
        if (sky && letters[0] == 'G') continue;
        check(a, letters, 'N', 2, 1, 1, false);
        check({6, 6, {}}, letters, 'T', 2, 1, 0.5, false);
    }
}

TEST_P(SparseProducts, ZeroSizesAndFactors) {
    const auto format = GetParam().make();
    const std::string letters = "TLN";
    format->store(Entries::random(3, 3, 2, true, random_), letters, false, random_);
    std::vector<double> b(9, NAN), c(9, 2.0);
    // Sizes of zero leave C alone, whatever beta is.
    for (const auto& [m, n, k] : {std::tuple{0, 3, 3}, {3, 0, 3}, {3, 3, 0}}) {
        if (GetParam().name == std::string("sky") && m > k) continue;
        format->mm({'N', letters, m, n, k, 1, 0, b.data(), 3, c.data(), 3});
    }
    EXPECT_EQ(c, std::vector<double>(9, 2.0));
    // alpha = 0 scales and stops: the NaNs of B do not come in.
    format->mm({'N', letters, 3, 3, 3, 0, 2, b.data(), 3, c.data(), 3});
    EXPECT_EQ(c, std::vector<double>(9, 4.0));
    format->mm({'N', letters, 3, 3, 3, 0, 0, b.data(), 3, c.data(), 3});
    EXPECT_EQ(c, std::vector<double>(9, 0.0));
}

INSTANTIATE_TEST_SUITE_P(Formats, SparseProducts, testing::ValuesIn(kMembers),
                         [](const auto& member) { return member.param.name; });

// The routines without matdescra do what the products with alpha = 1 and beta = 0 do.
TEST(SparseVectors, GemvAndSymvAgainstTheDenseSum) {
    Random random(3);
    std::unique_ptr<Format> formats[] = {make<Csr3>(), make<Coo>(), make<Dia>()};
    for (const auto& format : formats)
        for (const int m : {1, 2, 17, 40})
            for (const std::string letters : {"GLN", "SLN", "SUN"})
                for (const char transa : {'N', 'T'}) {
                    const bool general = letters[0] == 'G';
                    const Entries a = Entries::random(m, m, 3, false, random);
                    format->store(a, letters, false, random);
                    Guarded<double> x(m), y(m);
                    x.fill(random);
                    std::fill(y.begin(), y.end(), NAN);
                    const Operands o{transa, letters, m, 1, m, 1, 0, x.data(), m, y.data(), m};
                    EXPECT_TRUE(general ? format->gemv(o) : format->symv(o));
                    const auto matrix = dense(a, letters), stored = dense(a, "GLN");
                    ErrorMeter<double> meter;
                    for (int i = 0; i < m; ++i) {
                        long double sum = 0, scale = 1e-300L;
                        for (int j = 0; j < m; ++j) {
                            const bool plain = transa == 'N' || !general;
                            const auto at = static_cast<size_t>(plain ? i * m + j : j * m + i);
                            sum += matrix[at] * x[j];
                            scale +=
                                (std::fabs(matrix[at]) + std::fabs(stored[at])) * std::fabs(x[j]);
                        }
                        meter.add(y[i], sum, scale);
                    }
                    EXPECT_LE(meter.worst(), 2);
                    EXPECT_TRUE(x.intact() && y.intact());
                }
}

// Threads share out rows or columns: the same bits as one thread, at the sizes where they begin.
TEST(SparseThreads, SameBitsAsOneThread) {
    Random random(5);
    const auto tridiagonal = [&](int m) {
        Entries a{m, m, {}};
        for (int i = 1; i <= m; ++i)
            for (int j = std::max(1, i - 1); j <= std::min(m, i + 1); ++j)
                a.at[{i, j}] = random.next<double>();
        return a;
    };
    const int most = omp_get_max_threads();
    const auto compare = [&](Format& format, const Entries& a, const std::string& letters,
                             char transa, int n, bool gemv) {
        format.store(a, letters, true, random);
        const size_t size = static_cast<size_t>(a.m) * n;
        Guarded<double> x(size), y(size), z(size);
        x.fill(random);
        std::fill(y.begin(), y.end(), 1.0);
        std::fill(z.begin(), z.end(), 1.0);
        const auto run = [&](double* to, int threads) {
            omp_set_num_threads(threads);
            const Operands o{transa, letters, a.m, n, a.m, 1.5, 0.5, x.data(), a.m, to, a.m};
            gemv ? static_cast<void>(format.gemv(o)) : format.mm(o);
        };
        run(y.data(), 1);
        run(z.data(), 3);
        EXPECT_TRUE(same_bits(y.data(), z.data(), size)) << letters << transa << ' ' << a.m;
        EXPECT_TRUE(z.intact());
    };
    Csr3 rows;
    for (const int m : {1999, 2000, 2001})
        for (const char transa : {'N', 'T'}) compare(rows, tridiagonal(m), "GLN", transa, 1, true);
    const Entries small = Entries::random(50, 50, 4, true, random);
    for (const auto& member : kMembers)
        if (member.name != std::string("sky"))
            for (const std::string letters : {"GLN", "TLN", "TUU", "SLN", "SUU", "ALN"})
                for (const char transa : {'N', 'T'})
                    for (const int n : {1, 2, 5})
                        compare(*member.make(), small, letters, transa, n, false);
    Dia diagonals; // blocks of 20,000 rows and 5,000 columns
    for (const int m : {4999, 5001, 19999, 20001, 39999, 40000, 40001}) {
        const Entries a = tridiagonal(m);
        for (const std::string letters : {"GLN", "TUN"})
            for (const char transa : {'N', 'T'}) compare(diagonals, a, letters, transa, 1, false);
    }
    omp_set_num_threads(most);
}

// Blocks of 10,000 rows of the symmetric form, against the general one.
TEST(SparseProducts, SymmetricDiagonalsAcrossBlocks) {
    Random random(9);
    for (const int m : {9999, 10000, 10001, 20001}) {
        Entries lower{m, m, {}}, whole{m, m, {}};
        for (int i = 1; i <= m; ++i)
            for (const int d : {-700, -1, 0})
                if (i + d >= 1)
                    whole.at[{i + d, i}] = whole.at[{i, i + d}] = lower.at[{i, i + d}] =
                        random.next<double>();
        Dia half, full;
        half.store(lower, "SLN", true, random);
        full.store(whole, "GLN", true, random);
        Guarded<double> x(m), y(m), z(m);
        x.fill(random);
        half.mm({'N', "SLN", m, 1, m, 1, 0, x.data(), m, y.data(), m});
        full.mm({'N', "GLN", m, 1, m, 1, 0, x.data(), m, z.data(), m});
        ErrorMeter<double> meter;
        for (int i = 0; i < m; ++i) meter.add(y[i], z[i], 5);
        EXPECT_LE(meter.worst(), 2);
        EXPECT_TRUE(y.intact());
    }
}

} // namespace
