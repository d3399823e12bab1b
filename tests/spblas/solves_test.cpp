// Solves of all formats: the solution put into the dense matrix gives the right side back, to a few roundings of
// the terms; the edges of blocks, failing allocations, missing diagonals.
#include "tests/blas/reports.h"
#include "tests/common/allocations.h"
#include "tests/spblas/matrix.h"

#include <gtest/gtest.h>

namespace {

using namespace vor::test;

template <class F>
std::unique_ptr<Format> make() {
    return std::make_unique<F>();
}
using Maker = std::unique_ptr<Format> (*)();
struct Member {
    const char* name;
    Maker make;
};
constexpr Member kMembers[] = {{"csr", make<Csr>},
                               {"csc", make<Csc>},
                               {"coo", make<Coo>},
                               {"dia", make<Dia>},
                               {"sky", make<Sky>}};

// op(A) y - alpha x, in eps times the sum of the terms.
double residual(const Entries& a, const std::string& letters, char transa, double alpha,
                const double* x, const double* y) {
    const auto matrix = dense(a, letters);
    ErrorMeter<double> meter;
    for (int i = 0; i < a.m; ++i) {
        long double sum = 0, scale = std::fabs(static_cast<long double>(alpha) * x[i]);
        for (int j = 0; j < a.m; ++j) {
            const size_t at =
                static_cast<size_t>(transa == 'N' ? i : j) * a.m + (transa == 'N' ? j : i);
            sum += matrix[at] * y[j];
            scale += std::fabs(matrix[at] * y[j]);
        }
        meter.add(sum, static_cast<long double>(alpha) * x[i], scale + 1e-300L);
    }
    return meter.worst();
}

class SparseSolves : public testing::TestWithParam<Member> {
protected:
    Random random_{11};
};

TEST_P(SparseSolves, EveryLetterGivesTheRightSideBack) {
    double worst = 0;
    for (const char structure : {'T', 'D'})
        for (const char* tail : {"LN", "LU", "UN", "UU"})
            for (const char transa : {'N', 'T', 'C'})
                for (const int m : {1, 2, 3, 24})
                    for (const int n : {1, 4})
                        for (const double alpha : {1.0, -2.0}) {
                            const std::string letters = structure + std::string(tail);
                            const Entries a = Entries::random(m, m, 4, true, random_);
                            const auto format = GetParam().make();
                            format->store(a, letters, true, random_);
                            const int ldb = n == 1 ? m : m + 1, ldc = n == 1 ? m : m + 3;
                            Guarded<double> b(static_cast<size_t>(ldb) * n),
                                c(static_cast<size_t>(ldc) * n);
                            b.fill(random_);
                            c.fill(random_);
                            const Operands o{transa, letters,  m,   n,        m,  alpha,
                                             0,      b.data(), ldb, c.data(), ldc};
                            n == 1 ? format->sv(o) : format->sm(o);
                            for (int j = 0; j < n; ++j)
                                worst = std::max(worst,
                                                 residual(a, letters, transa, alpha,
                                                          b.data() + j * ldb, c.data() + j * ldc));
                            EXPECT_TRUE(b.intact() && c.intact());
                            if (n > 1 || structure == 'D') continue;
                            // In place, and by the routine without matdescra.
                            std::vector<double> same = b.copy();
                            format->sv({transa, letters, m, 1, m, alpha, 0, same.data(), m,
                                        same.data(), m});
                            EXPECT_TRUE(same_bits(same.data(), c.data(), m)) << letters << transa;
                        }
    std::printf("worst residual of %s: %.2f eps\n", GetParam().name, worst);
    EXPECT_LE(worst, 3);
}

TEST_P(SparseSolves, AlphaOfZeroClearsAndReadsNothing) {
    const auto format = GetParam().make();
    format->store(Entries::random(4, 4, 2, true, random_), "TLN", true, random_);
    std::vector<double> b(8, NAN), c(8, NAN);
    format->sm({'N', "TLN", 4, 2, 4, 0, 0, b.data(), 4, c.data(), 4});
    EXPECT_EQ(c, std::vector<double>(8, 0.0));
}

INSTANTIATE_TEST_SUITE_P(Formats, SparseSolves, testing::ValuesIn(kMembers),
                         [](const auto& member) { return member.param.name; });

TEST(SparseVectors, TrsvGivesTheRightSideBack) {
    Random random(13);
    std::unique_ptr<Format> formats[] = {make<Csr3>(), make<Coo>(), make<Dia>()};
    for (const auto& format : formats)
        for (const std::string letters : {"TLN", "TLU", "TUN", "TUU"})
            for (const char transa : {'N', 'T'}) {
                const Entries a = Entries::random(20, 20, 4, true, random);
                format->store(a, letters, true, random);
                Guarded<double> x(20), y(20);
                x.fill(random);
                EXPECT_TRUE(
                    format->trsv({transa, letters, 20, 1, 20, 1, 0, x.data(), 20, y.data(), 20}));
                EXPECT_LE(residual(a, letters, transa, 1, x.data(), y.data()), 3)
                    << letters << transa;
            }
}

// A unit diagonal needs no entries, and what is stored there is not read.
TEST(SparseSolves, UnitDiagonalStoredOrNot) {
    Random random(17);
    for (const auto& member : kMembers)
        for (const std::string letters : {"TLU", "TUU"})
            for (const char transa : {'N', 'T'}) {
                if (member.name == std::string("sky")) continue; // stores its diagonal in any case
                Entries with = Entries::random(12, 12, 3, true, random), without = with;
                for (int i = 1; i <= 12; ++i) without.at.erase({i, i});
                std::vector<double> x(12, 1.0), y(12), z(12);
                const auto format = member.make();
                const auto run = [&](const Entries& a, double* to) {
                    format->store(a, letters, true, random);
                    format->sv({transa, letters, 12, 1, 12, 1, 0, x.data(), 12, to, 12});
                };
                run(with, y.data());
                run(without, z.data());
                for (int i = 0; i < 12; ++i)
                    EXPECT_NEAR(y[i], z[i], 1e-12 * std::fabs(y[i])) << member.name;
            }
}

// Upper rows in blocks of 2,000: one block of 2,001, two of 2,000, one of 2,000 and one of 2,100; with the
// table and, when memory is short, without.
TEST(SparseSolves, UpperRowsAcrossBlocks) {
    Random random(19);
    for (const int m : {1999, 2000, 2001, 3999, 4000, 4001, 4100}) {
        Entries a{m, m, {}};
        for (int i = 1; i <= m; ++i)
            for (const int d : {0, 1, 7, 1500, 2300})
                if (i + d <= m && (d != 7 || i % 3 == 0))
                    a.at[{i, i + d}] = random.next<double>() + (d == 0 ? 4 : 0);
        Csr format;
        format.store(a, "TUN", true, random);
        Guarded<double> x(m), y(m), z(m);
        x.fill(random);
        const auto solve = [&](double* to) {
            format.sv({'N', "TUN", m, 1, m, 1, 0, x.data(), m, to, m});
        };
        solve(y.data());
        {
            Allocations allocations;
            allocations.fail_at(1);
            solve(z.data());
            EXPECT_TRUE(allocations.failed());
            EXPECT_EQ(allocations.live(), 0);
        }
        for (const auto& solution : {&y, &z}) {
            ErrorMeter<double> meter;
            for (int i = 1; i <= m; ++i) {
                long double sum = 0, scale = 0;
                for (auto e = a.at.lower_bound({i, 0}); e != a.at.end() && e->first.first == i;
                     ++e) {
                    const long double term =
                        e->second * static_cast<long double>((*solution)[e->first.second - 1]);
                    sum += term;
                    scale += std::fabs(term);
                }
                meter.add(sum, x[i - 1], scale);
            }
            EXPECT_LE(meter.worst(), 2) << m;
            EXPECT_TRUE(solution->intact());
        }
    }
}

// The solve of coordinates without memory: one report of condition 0, and y as it was; the product by
// diagonals finds its way without a table.
TEST(SparseSolves, ShortOfMemory) {
    Random random(23);
    const Entries a = Entries::random(30, 30, 3, true, random);
    for (const std::string letters : {"TLN", "TUU"}) {
        Coo coo;
        coo.store(a, letters, true, random);
        std::vector<double> x(30, 1.0), y(30), want(30);
        const auto solve = [&](double* to) {
            coo.sv({'N', letters, 30, 1, 30, 2, 0, x.data(), 30, to, 30});
        };
        solve(want.data());
        for (long k = 1;; ++k) {
            Reports reports;
            Allocations allocations;
            allocations.fail_at(k);
            std::fill(y.begin(), y.end(), 7.0);
            solve(y.data());
            EXPECT_EQ(allocations.live(), 0);
            if (!allocations.failed()) {
                EXPECT_EQ(k, letters == "TLN" ? 6 : 5); // a unit diagonal needs no list of its own
                EXPECT_EQ(y, want);
                break;
            }
            EXPECT_EQ(reports.take(), (std::vector<Report>{{"COO_GAUSS", 0}}));
            EXPECT_EQ(y, std::vector<double>(30, 7.0));
        }
    }
    for (const std::string letters : {"TLN", "TUU", "SLN", "AUN"}) {
        Dia dia;
        dia.store(a, letters, true, random);
        std::vector<double> x(30, 1.0), y(30), z(30);
        dia.mm({'N', letters, 30, 1, 30, 1, 0, x.data(), 30, y.data(), 30});
        Allocations allocations;
        allocations.fail_at(1);
        dia.mm({'N', letters, 30, 1, 30, 1, 0, x.data(), 30, z.data(), 30});
        EXPECT_TRUE(allocations.failed());
        EXPECT_EQ(y, z) << letters;
    }
}

TEST(SparseSolves, MissingDiagonals) {
    Random random(29);
    Entries a = Entries::random(8, 8, 3, true, random);
    a.at.erase({5, 5});
    std::vector<double> x(8, 1.0), y(8, 7.0);
    Coo coo;
    coo.store(a, "TLN", true, random);
    {
        Reports reports;
        coo.sv({'N', "TLN", 8, 1, 8, 2, 0, x.data(), 8, y.data(), 8});
        EXPECT_EQ(reports.take(), (std::vector<Report>{{"COO_GAUSS", -5}}));
        EXPECT_EQ(y, std::vector<double>(8, 7.0));
    }
    // Of a diagonal matrix, the row without an entry keeps what it holds.
    coo.sv({'N', "DLN", 8, 1, 8, 1, 0, x.data(), 8, y.data(), 8});
    EXPECT_EQ(y[4], 7.0);
    EXPECT_NEAR(y[3], 1 / a.at.at({4, 4}), 1e-15);
    // Diagonals without the main one: alpha x.
    Entries off{6, 6, {{{3, 1}, 1.0}, {{2, 1}, 2.0}, {{1, 4}, 3.0}}};
    Dia dia;
    dia.store(off, "TLN", true, random);
    dia.sv({'N', "TLN", 6, 1, 6, 3, 0, x.data(), 6, y.data(), 6});
    EXPECT_EQ(std::vector<double>(y.begin(), y.begin() + 6), std::vector<double>(6, 3.0));
}

} // namespace
