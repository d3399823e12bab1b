// The Level 2 routines for C, in both orders; what the conjugating ones do without memory.
#include "tests/blas/cblas.h"
#include "tests/blas/reports.h"
#include "tests/common/allocations.h"

using namespace vor::test;

namespace {

template <class T>
class CblasLevel2 : public CblasTest<T> {};
TYPED_TEST_SUITE(CblasLevel2, Elements);

constexpr int kShapes[][2] = {{1, 1}, {3, 5}, {6, 2}, {7, 7}, {0, 4}, {4, 0}};
constexpr int kSizes[] = {0, 1, 2, 5, 9};

TYPED_TEST(CblasLevel2, General) {
    using T = TypeParam;
    using D = Operands<T>;
    for (const auto& [m, n] : kShapes) {
        for (const CBLAS_TRANSPOSE trans : kTransposes) {
            const int nx = trans == CblasNoTrans ? n : m, ny = m + n - nx;
            this->compare(BOTH_ALL(gemv), {.a = in_order(m, n), .nx = nx, .ny = ny}, trans, m, n,
                          &D::alpha, &D::a, &D::x, &D::beta, &D::y);
            for (const auto& [kl, ku] : {StepPair{0, 0}, {1, 2}, {3, 0}, {0, 2}})
                this->compare(BOTH_ALL(gbmv),
                              {.a = band_in_order(m, n, kl, ku), .nx = nx, .ny = ny}, trans, m, n,
                              kl, ku, &D::alpha, &D::a, &D::x, &D::beta, &D::y);
        }
        const auto update = [&, m = m, n = n](const auto& routine) {
            this->compare(routine, {.a = in_order(m, n), .nx = m, .ny = n}, m, n, &D::alpha, &D::x,
                          &D::y, &D::a);
        };
        update(BOTH_TWINS(ger, gerc));
        if constexpr (vor::is_complex<T>) update(BOTH_COMPLEX(geru));
    }
}

TYPED_TEST(CblasLevel2, Symmetric) {
    using T = TypeParam;
    using D = Operands<T>;
    const Packed<T> packed{&D::a};
    for (const CBLAS_UPLO uplo : kTriangles)
        for (const int n : kSizes) {
            const auto problem = [&](Kind kind, int k = 0) -> typename CblasTest<T>::Problem {
                return {.a = in_order(kind, uplo, n, k), .nx = n, .ny = n};
            };
            auto full = problem(Kind::full), triangle = problem(Kind::packed);
            this->compare(BOTH_TWINS(syr, her), full, uplo, n, &D::real_alpha, &D::x, &D::a);
            this->compare(BOTH_TWINS(spr, hpr), triangle, uplo, n, &D::real_alpha, &D::x, packed);
            this->compare(BOTH_TWINS(syr2, her2), full, uplo, n, &D::alpha, &D::x, &D::y, &D::a);
            this->compare(BOTH_TWINS(spr2, hpr2), triangle, uplo, n, &D::alpha, &D::x, &D::y,
                          packed);
            full.adjust = triangle.adjust = this->poison_diagonal;
            this->compare(BOTH_TWINS(symv, hemv), full, uplo, n, &D::alpha, &D::a, &D::x, &D::beta,
                          &D::y);
            this->compare(BOTH_TWINS(spmv, hpmv), triangle, uplo, n, &D::alpha, packed, &D::x,
                          &D::beta, &D::y);
            for (const int k : {0, 1, 3}) {
                auto band = problem(Kind::band, k);
                band.adjust = this->poison_diagonal;
                this->compare(BOTH_TWINS(sbmv, hbmv), band, uplo, n, k, &D::alpha, &D::a, &D::x,
                              &D::beta, &D::y);
            }
        }
}

TYPED_TEST(CblasLevel2, Triangular) {
    using T = TypeParam;
    using D = Operands<T>;
    for (const CBLAS_UPLO uplo : kTriangles)
        for (const CBLAS_TRANSPOSE trans : kTransposes)
            for (const CBLAS_DIAG diag : kDiagonals)
                for (const int n : {0, 1, 2, 6}) {
                    const auto run = [&](Kind kind, int k, const auto& product, const auto& solve,
                                         auto... rest) {
                        for (const bool solving : {false, true}) {
                            const auto& routine = solving ? solve : product;
                            this->compare(routine,
                                          {.a = in_order(kind, uplo, n, k),
                                           .nx = n,
                                           .adjust = this->pivots(diag)},
                                          uplo, trans, diag, n, rest..., &D::x);
                        }
                    };
                    run(Kind::full, 0, BOTH_ALL(trmv), BOTH_ALL(trsv), &D::a);
                    run(Kind::packed, 0, BOTH_ALL(tpmv), BOTH_ALL(tpsv), Packed<T>{&D::a});
                    for (const int k : {0, 2})
                        run(Kind::band, k, BOTH_ALL(tbmv), BOTH_ALL(tbsv), k, &D::a);
                }
}

// The complex row-major calls that copy vectors: how many, and the call for order n.
template <class T>
class CblasConjugation : public testing::Test {
protected:
    using D = Operands<T>;
    // The first framed call reads the configuration file, which takes memory too.
    void SetUp() override { cblas_sswap(0, nullptr, 1, nullptr, 1); }
    struct Call {
        const char* name;
        int copies;
        std::function<void(D&)> run;
    };
    template <class F, class C, class... A>
    static Call call_of(const Both<F, C>& routine, int copies, A... arguments) {
        return {routine.name, copies,
                [=](D& d) { call_c(routine, CblasRowMajor, d, arguments...); }};
    }
    static std::vector<Call> calls(int n) {
        const auto conj = CblasConjTrans;
        const auto up = CblasUpper;
        const Packed<T> packed{&D::a};
        return {
            call_of(BOTH_ALL(gemv), 1, conj, n, n, &D::alpha, &D::a, &D::x, &D::beta, &D::y),
            call_of(BOTH_ALL(gbmv), 1, conj, n, n, 1, 0, &D::alpha, &D::a, &D::x, &D::beta, &D::y),
            call_of(BOTH_TWINS(ger, gerc), 1, n, n, &D::alpha, &D::x, &D::y, &D::a),
            call_of(BOTH_TWINS(symv, hemv), 1, up, n, &D::alpha, &D::a, &D::x, &D::beta, &D::y),
            call_of(BOTH_TWINS(sbmv, hbmv), 1, up, n, 1, &D::alpha, &D::a, &D::x, &D::beta, &D::y),
            call_of(BOTH_TWINS(spmv, hpmv), 1, up, n, &D::alpha, packed, &D::x, &D::beta, &D::y),
            call_of(BOTH_TWINS(syr, her), 1, up, n, &D::real_alpha, &D::x, &D::a),
            call_of(BOTH_TWINS(spr, hpr), 1, up, n, &D::real_alpha, &D::x, packed),
            call_of(BOTH_TWINS(syr2, her2), 2, up, n, &D::alpha, &D::x, &D::y, &D::a),
            call_of(BOTH_TWINS(spr2, hpr2), 2, up, n, &D::alpha, &D::x, &D::y, packed),
        };
    }
    D operands(int n, StepPair inc) {
        const Layout none = full(0, 0, 1);
        return D(random_, full(n, n, n + 2), none, none, n, n, inc);
    }
    Random random_{92};
};
using ComplexElements = testing::Types<vor::cfloat, vor::cdouble>;
TYPED_TEST_SUITE(CblasConjugation, ComplexElements);

// One block for each copy, of the vector's size, given back; none for an empty vector. A copy that gets
// no memory: one report, number 0, nothing written, nothing kept.
TYPED_TEST(CblasConjugation, TakesMemoryForItsCopiesOnly) {
    Reports reports;
    for (const int n : {0, 7})
        for (const auto& call : this->calls(n))
            for (const StepPair& inc : kSteps)
                for (int k = 0; k <= (n ? call.copies : 0); ++k) {
                    auto d = this->operands(n, inc);
                    const auto x = d.x, y = d.y;
                    Allocations allocations;
                    if (k) allocations.fail_at(k);
                    call.run(d);
                    EXPECT_EQ(allocations.live(), 0) << call.name;
                    EXPECT_EQ(allocations.last_size(), static_cast<size_t>(n) * sizeof(TypeParam));
                    if (k) {
                        const std::string name = std::string("cblas_") + call.name;
                        EXPECT_EQ(reports.take(), (std::vector<Report>{{name, 0}}));
                        EXPECT_TRUE(d.a.unchanged() && d.x.same_as(x) && d.y.same_as(y)) << name;
                    } else {
                        EXPECT_EQ(allocations.calls(), n ? call.copies : 0) << call.name;
                        EXPECT_TRUE(reports.take().empty());
                    }
                }
}

} // namespace
