// The sparse-vector routines, which count positions from 1, and their relatives for C, which count
// from 0: elements in their order, repeated positions and all.
#include "tests/blas/level1.h"
#include "tests/common/child.h"
#include "vor_cblas.h"
#include "vor_service.h"

#include <cstdlib>

using namespace vor;
using namespace vor::test;

namespace {

#define C_ALL(op) vor::test::of_type<T>(cblas_s##op, cblas_d##op, cblas_c##op, cblas_z##op)
#define C_REAL(op) vor::test::of_type<T>(cblas_s##op, cblas_d##op)
#define C_COMPLEX(op) vor::test::of_type<T>(cblas_c##op##_sub, cblas_z##op##_sub)

constexpr int kFull = 50; // elements of y

// n random values and positions in a full vector, repeated ones among few or all different.
template <class T>
struct Problem {
    Problem(Random& random, int n, int first_position, bool repeated)
        : x(n, 1, 4), y(kFull, 1, 8), alpha(random.next<T>()), first(first_position) {
        for (int i = 0; i < n; ++i)
            indx.push_back(first + (repeated ? random.below(kFull / 2) : kFull - 1 - i));
        if (n > 0) indx[0] = first;
    }
    T& at(int i) { return y.at(indx[size_t(i)] - first); }
    bool same_as(Problem& other) { return x.equals(other.x.copy()) && y.equals(other.y.copy()); }
    Vector<T> x, y;
    T alpha;
    int first;
    std::vector<int> indx;
};

// check(n, problem, for_c): both kinds of routines, lengths on both sides of rounds of 4 and 5.
template <class T, class Check>
void each_problem(Check check) {
    Random random(81);
    for (const bool for_c : {false, true})
        for (const bool repeated : {false, true})
            for (const int n : {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 40}) {
                Problem<T> p(random, n, for_c ? 0 : 1, repeated);
                check(n, p, for_c);
            }
}

// routine(...) or, for C, for_c(...) against model(problem, i) for every element: the same bits.
template <class T, class Routine, class ForC, class Run, class Model>
void compare(Routine routine, ForC routine_for_c, Run run, Model model) {
    each_problem<T>([&](int n, Problem<T>& got, bool for_c) {
        Problem<T> want = got;
        for_c ? run(routine_for_c, n, got) : run(routine, n, got);
        for (int i = 0; i < n; ++i) model(want, i);
        EXPECT_TRUE(got.same_as(want)) << n << (for_c ? " for C" : "");
    });
}

TYPED_SUITE(SparseVectors, AllTypes);
TYPED_SUITE(RealSparseVectors, RealTypes);
TYPED_SUITE(ComplexSparseVectors, ComplexTypes);

TYPED_TEST(SparseVectors, MoveElements) {
    using T = TypeParam;
    using P = Problem<T>;
    const auto from_full = [](auto routine, int n, P& p) {
        call(routine, n, p.y.data(), p.x.data(), p.indx.data());
    };
    const auto to_full = [](auto routine, int n, P& p) {
        call(routine, n, p.x.data(), p.indx.data(), p.y.data());
    };
    compare<T>(ALL(gthr), C_ALL(gthr), from_full, [](P& p, int i) { p.x.at(i) = p.at(i); });
    compare<T>(ALL(gthrz), C_ALL(gthrz), from_full,
               [](P& p, int i) { p.x.at(i) = p.at(i), p.at(i) = T{}; });
    compare<T>(ALL(sctr), C_ALL(sctr), to_full, [](P& p, int i) { p.at(i) = p.x.at(i); });
}

TYPED_TEST(SparseVectors, AddWithOneRoundingForEachElement) {
    using T = TypeParam;
    using P = Problem<T>;
    const auto axpyi = [](auto routine, int n, P& p) {
        call(routine, n, p.alpha, p.x.data(), p.indx.data(), p.y.data());
    };
    compare<T>(ALL(axpyi), C_ALL(axpyi), axpyi, [](P& p, int i) {
        const Wide a = wide(p.alpha), x = wide(p.x.at(i)), y = wide(p.at(i));
        p.at(i) = element<T>(y.real() + a.real() * x.real() - a.imag() * x.imag(),
                             y.imag() + a.real() * x.imag() + a.imag() * x.real());
    });
    // A factor of 0 changes nothing, not even with a NaN.
    const auto by_zero = [&](auto routine, int n, P& p) {
        if (n < 1) return;
        const T kept = p.x.at(0);
        p.x.at(0) = not_a_number<T>();
        p.alpha = element<T>(-0.0);
        axpyi(routine, n, p);
        p.x.at(0) = kept;
    };
    compare<T>(ALL(axpyi), C_ALL(axpyi), by_zero, [](P&, int) {});
}

// c = 1 and s = 0 change nothing, not even with a NaN; anything else rotates every pair. Single
// precision rounds at each operation, for C once an element.
TYPED_TEST(RealSparseVectors, Rotate) {
    using T = TypeParam;
    for (const auto& [c, s] : {std::pair<T, T>{0.6, 0.8}, {1, 0}, {1, 0.5}, {0, 0}})
        each_problem<T>([c = c, s = s](int n, Problem<T>& got, bool for_c) {
            const bool identity = c == 1 && s == 0;
            if (n > 0 && identity) got.at(0) = not_a_number<T>();
            Problem<T> want = got;
            if (for_c)
                call(C_REAL(roti), n, got.x.data(), got.indx.data(), got.y.data(), c, s);
            else
                call(REAL(roti), n, got.x.data(), got.indx.data(), got.y.data(), c, s);
            const auto rotate = [&]<class W>(W u, W v, T& x, T& y) {
                x = static_cast<T>(c * u + s * v);
                y = static_cast<T>(c * v - s * u);
            };
            for (int i = 0; i < n && !identity; ++i) {
                T &x = want.x.at(i), &y = want.at(i);
                if (for_c || sizeof(T) == 8)
                    rotate.template operator()<long double>(x, y, x, y);
                else
                    rotate.template operator()<float>(x, y, x, y);
            }
            EXPECT_TRUE(got.same_as(want)) << n << " " << c << " " << s;
        });
}

// One sum in the order of the elements, which single precision rounds at each step, but not for C.
TYPED_TEST(RealSparseVectors, SumProductsInOrder) {
    using T = TypeParam;
    each_problem<T>([](int n, Problem<T>& p, bool for_c) {
        float single = 0;
        long double extended = 0;
        for (int i = 0; i < n; ++i) {
            single += static_cast<float>(p.x.at(i)) * static_cast<float>(p.at(i));
            extended += static_cast<long double>(p.x.at(i)) * p.at(i);
        }
        const long double got =
            for_c ? call_extended(C_REAL(doti), n, p.x.data(), p.indx.data(), p.y.data())
                  : call_extended(REAL(doti), n, p.x.data(), p.indx.data(), p.y.data());
        EXPECT_EQ(got, for_c || sizeof(T) == 8 ? static_cast<T>(extended) : single) << n;
    });
}

// Sums in extended precision are rounded at the end, those of single precision at each operation.
TYPED_TEST(ComplexSparseVectors, SumProducts) {
    using T = TypeParam;
    Bound<T> rounded_once("?doti", 0.51), single("cdoti", 10);
    each_problem<T>([&](int n, Problem<T>& p, bool for_c) {
        for (const bool conjugate : {false, true}) {
            Expected want;
            for (int i = 0; i < n; ++i) {
                const Wide x = wide(p.x.at(i));
                want.add(times(conjugate ? std::conj(x) : x, wide(p.at(i))));
            }
            Guarded<T> got(1);
            if (for_c)
                call(conjugate ? C_COMPLEX(dotci) : C_COMPLEX(dotui), n, p.x.data(), p.indx.data(),
                     p.y.data(), got.data());
            else
                call(conjugate ? COMPLEX(dotci) : COMPLEX(dotui), got.data(), n, p.x.data(),
                     p.indx.data(), p.y.data());
            const bool once = for_c || sizeof(T) == 16;
            (once ? rounded_once : single).add(wide(got[0]), want.value, want.scale);
            EXPECT_TRUE(got.intact());
        }
    });
}

// Those for C have no frame: in a process of its own, the file that switches checks off is read by a
// routine that has one, and not by these.
[[noreturn]] void read_after_sparse_call(const std::string& configuration) {
    setenv("VOR_CFG_FILE", configuration.c_str(), 1);
    const int indx[] = {2, 0};
    const double x[] = {1, 2}, y[] = {3, 4, 5};
    const bool right = cblas_ddoti(2, x, indx, y) == 11 && get_cfg_check() == 1;
    cblas_ddot(2, x, 1, y, 1);
    std::exit(right && get_cfg_check() == 0 ? 0 : 1);
}

TEST(SparseVectorsForC, ReadNoConfigurationFile) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const Folder folder;
    const std::string file = folder.write("settings", "vor_input_check=off\n");
    EXPECT_EXIT(read_after_sparse_call(file), testing::ExitedWithCode(0), "");
}

} // namespace
