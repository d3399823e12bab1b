// The sparse-vector routines for C: positions from 0, elements in their order, extended precision.
#include "tests/blas/level2.h"
#include "tests/common/call.h"
#include "vor_cblas.h"
#include "vor_service.h"

#include <cstdio>
#include <cstdlib>
#include <fstream>

using namespace vor::test;

namespace {

template <class T>
struct Sparse;
#define SPARSE(p, T)                                                                               \
    template <>                                                                                    \
    struct Sparse<T> {                                                                             \
        static constexpr auto axpyi = cblas_##p##axpyi, gthr = cblas_##p##gthr;                    \
        static constexpr auto gthrz = cblas_##p##gthrz, sctr = cblas_##p##sctr;
#define SPARSE_REAL(p, T)                                                                          \
    SPARSE(p, T) static constexpr auto doti = cblas_##p##doti, roti = cblas_##p##roti;             \
    }                                                                                              \
    ;
#define SPARSE_COMPLEX(p, T)                                                                       \
    SPARSE(p, T)                                                                                   \
    static constexpr auto dotui = cblas_##p##dotui_sub, dotci = cblas_##p##dotci_sub;              \
    }                                                                                              \
    ;
SPARSE_REAL(s, float)
SPARSE_REAL(d, double)
SPARSE_COMPLEX(c, vor::cfloat)
SPARSE_COMPLEX(z, vor::cdouble)

// Lengths on both sides of the rounds of 4 and 5 elements.
std::vector<int> lengths() {
    std::vector<int> all{-1, 40};
    for (int n = 0; n <= 16; ++n) all.push_back(n);
    return all;
}
constexpr int kFull = 23; // elements of y

// n random values and positions, with and without repetitions, in a full vector.
template <class T>
struct Problem {
    Problem(Random& random, int n, bool repeated)
        : x(Steps<T>::random(random, n, 1)), y(Steps<T>::random(random, 50, 1)),
          alpha(random.next<T>()) {
        for (int i = 0; i < n; ++i) indx.push_back(repeated ? random.below(kFull) : 49 - i);
        if (n > 0) indx[0] = 0;
    }
    T& at(int i) { return y[indx[static_cast<size_t>(i)]]; }
    bool same_as(const Problem& other) const {
        return x.same_as(other.x) && y.same_as(other.y) && x.intact() && y.intact();
    }
    Steps<T> x, y;
    T alpha;
    std::vector<int> indx;
};

// A number as a routine for C takes it: a complex one by its address.
template <class T>
auto scalar(const T& x) {
    if constexpr (vor::is_complex<T>)
        return static_cast<const void*>(&x);
    else
        return x;
}

template <class T>
class CblasSparse : public testing::Test {
protected:
    // run(n, problem) against model(problem, i) for every element: the same bits.
    template <class Run, class Model>
    void compare(const char* name, Run run, Model model) {
        for (const int n : lengths())
            for (const bool repeated : {false, true}) {
                Problem<T> got(random_, n, repeated), want = got;
                run(n, got);
                for (int i = 0; i < n; ++i) model(want, i);
                EXPECT_TRUE(got.same_as(want)) << name << " " << n;
            }
    }
    Random random_{81};
};
TYPED_TEST_SUITE(CblasSparse, Elements);

TYPED_TEST(CblasSparse, MovesElements) {
    using P = Problem<TypeParam>;
    using Routines = Sparse<TypeParam>;
    this->compare(
        "gthr", [](int n, P& p) { call(Routines::gthr, n, p.y.data(), p.x.data(), p.indx.data()); },
        [](P& p, int i) { p.x[i] = p.at(i); });
    this->compare(
        "gthrz",
        [](int n, P& p) { call(Routines::gthrz, n, p.y.data(), p.x.data(), p.indx.data()); },
        [](P& p, int i) { p.x[i] = p.at(i), p.at(i) = TypeParam{}; });
    this->compare(
        "sctr", [](int n, P& p) { call(Routines::sctr, n, p.x.data(), p.indx.data(), p.y.data()); },
        [](P& p, int i) { p.at(i) = p.x[i]; });
}

TYPED_TEST(CblasSparse, AddsWithOneRoundingForEachElement) {
    using T = TypeParam;
    using P = Problem<T>;
    this->compare(
        "axpyi",
        [](int n, P& p) {
            call(Sparse<T>::axpyi, n, scalar(p.alpha), p.x.data(), p.indx.data(), p.y.data());
        },
        [](P& p, int i) {
            const Wide a = wide(p.alpha), x = wide(p.x[i]), y = wide(p.at(i));
            p.at(i) = element<T>(y.real() + a.real() * x.real() - a.imag() * x.imag(),
                                 y.imag() + a.real() * x.imag() + a.imag() * x.real());
        });
    P p(this->random_, 6, false), before = p;
    p.x.fill(not_a_number<T>());
    const T zero = element<T>(-0.0);
    Sparse<T>::axpyi(6, scalar(zero), p.x.data(), p.indx.data(), p.y.data());
    EXPECT_TRUE(p.y.same_as(before.y));
}

// c = 1 and s = 0 change nothing, not even a NaN; anything else rotates every pair.
template <class T>
void expect_rotations() {
    Random random(82);
    for (const int n : lengths())
        for (const auto& [c, s] : {std::pair<T, T>{0.6, 0.8}, {1, 0}, {1, 0.5}, {0, 0}}) {
            Problem<T> got(random, n, n % 2);
            if (n > 0 && c == 1 && s == 0) got.at(0) = not_a_number<T>();
            Problem<T> want = got;
            call(Sparse<T>::roti, n, got.x.data(), got.indx.data(), got.y.data(), c, s);
            for (int i = 0; i < n && !(c == 1 && s == 0); ++i) {
                const long double x = want.x[i], y = want.at(i);
                want.x[i] = static_cast<T>(c * x + s * y);
                want.at(i) = static_cast<T>(c * y - s * x);
            }
            EXPECT_TRUE(got.same_as(want)) << n << " " << c << " " << s;
        }
}

TEST(CblasSparseVectors, Rotate) {
    expect_rotations<float>();
    expect_rotations<double>();
}

template <class T>
T dot(Problem<T>& p, int n, bool conjugate) {
    if constexpr (vor::is_complex<T>) {
        T result = not_a_number<T>();
        call(conjugate ? Sparse<T>::dotci : Sparse<T>::dotui, n, p.x.data(), p.indx.data(),
             p.y.data(), &result);
        return result;
    } else {
        return call(Sparse<T>::doti, n, p.x.data(), p.indx.data(), p.y.data());
    }
}

// One rounding at the end, and those of a sum in extended precision, which are out of sight.
TYPED_TEST(CblasSparse, SumsProductsWithOneRounding) {
    using T = TypeParam;
    for (const bool conjugate : {false, true})
        for (const int n : lengths()) {
            Problem<T> p(this->random_, n, true);
            Expected want;
            for (int i = 0; i < n; ++i) {
                const Wide x = wide(p.x[i]);
                want.add(times(conjugate ? std::conj(x) : x, wide(p.at(i))));
            }
            ErrorMeter<T> worst;
            meter(worst, dot(p, n, conjugate), want);
            EXPECT_LE(worst.worst(), 0.51) << n;
        }
    // Large terms that cancel hide nothing of a small one.
    Problem<T> p(this->random_, 3, false);
    const double large = 1 / std::numeric_limits<vor::real_t<T>>::epsilon();
    for (int i = 0; i < 3; ++i) p.at(i) = element<T>(1, 1);
    p.x[0] = element<T>(8 * large), p.x[1] = element<T>(1), p.x[2] = element<T>(-8 * large);
    EXPECT_EQ(wide(dot(p, 3, false)), wide(element<T>(1, 1)));
}

// They have no frame: in a process of its own, the file that switches checks off is read by a routine
// that has one, and not by these.
int read_after_sparse_call(const char* configuration) {
    setenv("VOR_CFG_FILE", configuration, 1);
    const int indx[] = {2, 0};
    const double x[] = {1, 2};
    double y[] = {3, 4, 5};
    const bool right = cblas_ddoti(2, x, indx, y) == 11;
    cblas_daxpyi(2, 1.0, x, indx, y);
    const bool unread = get_cfg_check() == 1;
    cblas_ddot(2, x, 1, y, 1);
    return right && unread && get_cfg_check() == 0 ? 0 : 1;
}

TEST(CblasSparseVectors, ReadNoConfigurationFile) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const std::string path = testing::TempDir() + "vor_cblas_sparse_test.cfg";
    std::ofstream(path) << "vor_input_check=off\n";
    EXPECT_EXIT(std::exit(read_after_sparse_call(path.c_str())), testing::ExitedWithCode(0), "");
    std::remove(path.c_str());
}

} // namespace
