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

// The products of the parts of k, the last of which takes the remainder, added in their order.
template <class T, class Engine>
void expect_inner_products(void (*routine)(const int*, const int*, const T*, const T*, T*),
                           Engine* gemm, int k, int m, int parts) {
    Random random(19);
    const Matrix<T> a = Matrix<T>::random(random, 'N', k, m);
    const Matrix<T> b = Matrix<T>::random(random, 'N', k, m);
    Matrix<T> sum(m, m), part(m, m), c(m, m, 0, sizeof(T)); // c holds NaN
    sum.fill(T{0});
    for (int i = 0; i < parts; ++i) {
        const int start = k / parts * i, rows = i < parts - 1 ? k / parts : k - start;
        const T one = 1, zero = 0;
        gemm("T", "N", &m, &m, &rows, &one, &a(start, 0), &a.ld(), &b(start, 0), &b.ld(), &zero,
             part.data(), &m);
        sum.fill([&](int r, int q) { return sum(r, q) + part(r, q); });
    }
    routine(&k, &m, a.data(), b.data(), c.data());
    EXPECT_TRUE(c.same_as(sum) && c.intact()) << k << " " << m << " " << parts;
}

// One part of k more than there are threads, fewer rows than parts, no rows at all: the result is the
// same whoever did what.
TEST(InnerProducts, AddThePartsInOrderOnAnyNumberOfThreads) {
    for (const int threads : {1, 2, 3, 5}) {
        omp_set_num_threads(threads);
        for (const int k : {0, 1, 2, 5, 64, 501})
            for (const int m : {1, 3, 17}) {
                expect_inner_products(xssexy, vor_blas_xsgemm, k, m, threads + 1);
                expect_inner_products(XDSEXY_, vor_blas_xdgemm, k, m, threads + 1);
            }
    }
    omp_set_num_threads(2);
}

TEST(InnerProducts, OneThreadServesWhenMemoryIsShort) {
    omp_set_num_threads(3);
    VOR_FreeBuffers();
    Allocations allocations;
    allocations.fail_from(1);
    expect_inner_products(xdsexy, vor_blas_xdgemm, 200, 9, 1);
    EXPECT_TRUE(allocations.failed());
    allocations.fail_at(0);
    VOR_FreeBuffers();
    EXPECT_EQ(allocations.live(), 0);
    omp_set_num_threads(2);
}

} // namespace
