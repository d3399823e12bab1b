// Rotation sequences against the same rotations in extended precision, and the inner-product utility.
#include "blas/level3/gemm_engines.h"
#include "tests/blas/level2.h"
#include "tests/common/allocations.h"
#include "vor_service.h"

#include <omp.h>

#include <cstdlib>
#include <tuple>

using namespace vor::test;

namespace {

const int parallel_mode = setenv("VOR_SERIAL", "NO", 1);

// The pivot letter, the direction, and a member of the family by the end of its name.
template <class T>
auto members() {
#define MEMBER(ending) of_type<T>(slasr_##ending, dlasr_##ending, clasr_##ending, zlasr_##ending)
    return std::vector{std::tuple('v', true, MEMBER(lvf)), std::tuple('v', false, MEMBER(lvb)),
                       std::tuple('t', true, MEMBER(ltf)), std::tuple('t', false, MEMBER(ltb)),
                       std::tuple('b', true, MEMBER(lbf)), std::tuple('b', false, MEMBER(lbb))};
}

template <class T>
class RotationSequence : public testing::Test {};
TYPED_TEST_SUITE(RotationSequence, Elements);

TYPED_TEST(RotationSequence, TurnsPairsOfRowsInOrder) {
    using T = TypeParam;
    using Real = vor::real_t<T>;
    Random random(17);
    for (const auto& [pivot, forward, routine] : members<T>())
        for (const int m : {0, 1, 2, 3, 9, 40})
            for (const int n : {0, 1, 3, 4, 5, 9}) {
                std::vector<Real> c, s;
                for (int j = 0; j + 1 < m; ++j) {
                    const double angle = 3 * random.next<double>();
                    c.push_back(static_cast<Real>(std::cos(angle)));
                    s.push_back(static_cast<Real>(std::sin(angle)));
                }
                Matrix<T> a = Matrix<T>::random(random, 'N', m, n, 3, sizeof(T));
                const Matrix<T> before = a;
                routine(&m, &n, c.data(), s.data(), a.data(), &a.ld());
                ErrorMeter<T> worst;
                for (int j = 0; j < n; ++j) {
                    std::vector<Wide> column;
                    for (int i = 0; i < m; ++i) column.push_back(wide(before(i, j)));
                    long double norm = 0;
                    for (const Wide& x : column) norm = std::hypot(norm, std::abs(x));
                    for (int k = 0; k + 1 < m; ++k) {
                        const auto r = static_cast<size_t>(forward ? k : m - 2 - k);
                        Wide& upper = column[pivot == 't' ? 0 : r];
                        Wide& lower = column[pivot == 'b' ? column.size() - 1 : r + 1];
                        const long double cosine = c[r], sine = s[r];
                        const Wide old = upper;
                        upper = cosine * old + sine * lower;
                        lower = cosine * lower - sine * old;
                    }
                    for (int i = 0; i < m; ++i)
                        meter(worst, a(i, j), Expected{column[static_cast<size_t>(i)], norm});
                }
                EXPECT_LE(worst.worst(), 2 * m + 1) << pivot << forward << " " << m << " " << n;
                EXPECT_TRUE(a.intact());
            }
}

template <class T>
void check_inner_products(void (*routine)(const int*, const int*, const T*, const T*, T*), int k,
                          int m) {
    Random random(19);
    const Matrix<T> a = Matrix<T>::random(random, 'N', k, m),
                    b = Matrix<T>::random(random, 'N', k, m);
    Matrix<T> c(m, m, 0, sizeof(T)); // holds NaN
    routine(&k, &m, a.data(), b.data(), c.data());
    const Operand<T> left(a, 'T'), right(b, 'N');
    const double worst = worst_error(
        c, [&](int i, int j) { return product_element(T{1}, left, right, k, T{0}, c, i, j); });
    EXPECT_LE(worst, 0.5 * k + 10) << k << " " << m;
    EXPECT_TRUE(c.intact());
}

// One thread more than parts of k, fewer rows than parts, no rows at all.
TEST(InnerProducts, OnAnyNumberOfThreads) {
    for (const int threads : {1, 2, 3, 5}) {
        omp_set_num_threads(threads);
        for (const int k : {0, 1, 2, 5, 64, 501})
            for (const int m : {1, 3, 17}) {
                check_inner_products(xssexy, k, m);
                check_inner_products(XDSEXY_, k, m);
            }
    }
    omp_set_num_threads(2);
}

// One part of k more than there are threads, the last with the remainder, added in their order: the
// result is the same whoever did what.
TEST(InnerProducts, AddsThePartsInOrder) {
    const int threads = 3, parts = threads + 1, k = 203, m = 5;
    Random random(29);
    const Matrix<double> a = Matrix<double>::random(random, 'N', k, m);
    const Matrix<double> b = Matrix<double>::random(random, 'N', k, m);
    Matrix<double> sum(m, m), part(m, m), c(m, m);
    sum.fill(0.0);
    for (int i = 0; i < parts; ++i) {
        const int start = k / parts * i, rows = i < threads ? k / parts : k - start;
        const double one = 1, zero = 0;
        vor_blas_xdgemm("T", "N", &m, &m, &rows, &one, &a(start, 0), &k, &b(start, 0), &k, &zero,
                        part.data(), &m);
        sum.fill([&](int r, int q) { return sum(r, q) + part(r, q); });
    }
    omp_set_num_threads(threads);
    xdsexy(&k, &m, a.data(), b.data(), c.data());
    omp_set_num_threads(2);
    EXPECT_TRUE(c.same_as(sum));
}

TEST(InnerProducts, OneThreadServesWhenMemoryIsShort) {
    omp_set_num_threads(3);
    VOR_FreeBuffers();
    Allocations allocations;
    allocations.fail_from(1);
    check_inner_products(xdsexy, 200, 9);
    EXPECT_TRUE(allocations.failed());
    allocations.fail_at(0);
    VOR_FreeBuffers();
    EXPECT_EQ(allocations.live(), 0);
    omp_set_num_threads(2);
}

} // namespace
