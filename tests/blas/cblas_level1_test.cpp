// The Level 1 routines for C against the Fortran-style entries: the same bits, in every array that is
// handed over.
#include "tests/blas/level2.h"
#include "tests/common/call.h"
#include "vor_cblas.h"

#include <tuple>

using namespace vor::test;

namespace {

// What both routines are called with: an array by its address, a number as it is.
template <class A>
auto word(A& argument) {
    if constexpr (std::is_arithmetic_v<A>)
        return argument;
    else
        return argument.data();
}

template <class A>
bool same(const A& a, const A& b) {
    if constexpr (std::is_arithmetic_v<A>)
        return same_bits(a, b);
    else
        return a.same_as(b) && a.intact();
}

// c(arguments...) gives what entry(arguments...) gives, and leaves the same arrays behind.
template <class C, class Entry, class... A>
void expect_same(const char* name, C c, Entry entry, const A&... arguments) {
    std::tuple<A...> first(arguments...), second(arguments...);
    const auto run = [](auto routine, auto& tuple) {
        return std::apply([&](auto&... a) { return call(routine, word(a)...); }, tuple);
    };
    if constexpr (std::is_void_v<decltype(run(c, first))>)
        run(c, first), run(entry, second);
    else
        EXPECT_EQ(run(c, first), run(entry, second)) << name;
    const bool equal = [&]<size_t... i>(std::index_sequence<i...>) {
        return (same(std::get<i>(first), std::get<i>(second)) && ...);
    }
    (std::index_sequence_for<A...>{});
    EXPECT_TRUE(equal) << name;
}

// Vectors of n elements and scalars of one type; the scalars of a complex type are arrays of one.
template <class T>
struct Operands {
    using Real = vor::real_t<T>;
    using Scalar = std::conditional_t<vor::is_complex<T>, Steps<T>, T>;
    Operands(Random& random, int n, int incx, int incy)
        : x(Steps<T>::random(random, n, incx)), y(Steps<T>::random(random, n, incy)),
          a(Steps<T>::random(random, 1, 1)), b(Steps<T>::random(random, 1, 1)), alpha(scalar(a)),
          c(random.next<Real>()), s(random.next<Real>()) {}
    static Scalar scalar(const Steps<T>& one) {
        if constexpr (vor::is_complex<T>)
            return one;
        else
            return one[0];
    }
    Steps<T> x, y, a, b;
    Scalar alpha;
    Real c, s;
    Steps<Real> real = Steps<Real>(1, 1);
};

#define SAME(name, operands, ...)                                                                  \
    {                                                                                              \
        const auto& v = operands;                                                                  \
        expect_same(#name, cblas_##name, name, __VA_ARGS__);                                       \
    }
#define SAME_REAL(op, ...) SAME(s##op, s, __VA_ARGS__) SAME(d##op, d, __VA_ARGS__)
#define SAME_COMPLEX(op, ...) SAME(c##op, c, __VA_ARGS__) SAME(z##op, z, __VA_ARGS__)
#define SAME_ALL(op, ...) SAME_REAL(op, __VA_ARGS__) SAME_COMPLEX(op, __VA_ARGS__)

TEST(CblasLevel1, GivesTheBitsOfTheEntries) {
    Random random(71);
    for (const int n : {-1, 0, 1, 2, 5, 8, 9, 33})
        for (const auto& [incx, incy] : kSteps) {
            const Operands<float> s(random, n, incx, incy);
            const Operands<double> d(random, n, incx, incy);
            const Operands<vor::cfloat> c(random, n, incx, incy);
            const Operands<vor::cdouble> z(random, n, incx, incy);
            SAME_ALL(axpy, n, v.alpha, v.x, incx, v.y, incy)
            SAME_ALL(copy, n, v.x, incx, v.y, incy)
            SAME_ALL(swap, n, v.x, incx, v.y, incy)
            SAME_ALL(scal, n, v.alpha, v.x, incx)
            SAME(csscal, c, n, v.s, v.x, incx)
            SAME(zdscal, z, n, v.s, v.x, incx)
            SAME_REAL(dot, n, v.x, incx, v.y, incy)
            SAME(dsdot, s, n, v.x, incx, v.y, incy)
            SAME(sdsdot, s, n, v.alpha, v.x, incx, v.y, incy)
            SAME_REAL(nrm2, n, v.x, incx)
            SAME(scnrm2, c, n, v.x, incx)
            SAME(dznrm2, z, n, v.x, incx)
            SAME_REAL(asum, n, v.x, incx)
            SAME(scasum, c, n, v.x, incx)
            SAME(dzasum, z, n, v.x, incx)
            SAME_REAL(rot, n, v.x, incx, v.y, incy, v.c, v.s)
            SAME(csrot, c, n, v.x, incx, v.y, incy, v.c, v.s)
            SAME(zdrot, z, n, v.x, incx, v.y, incy, v.c, v.s)
            SAME_REAL(rotg, v.a, v.b, v.real, v.real)
            SAME_COMPLEX(rotg, v.a, v.b, v.real, v.b)
            SAME(dcabs1, z, v.a)
        }
}

TEST(CblasLevel1, ModifiedRotationsTakeEveryArgumentByPointer) {
    Random random(72);
    for (int round = 0; round < 40; ++round) {
        const int n = round % 7, incx = round % 3 + 1, incy = -2;
        const Operands<float> s(random, n, incx, incy);
        const Operands<double> d(random, n, incx, incy);
        auto sp = Steps<float>::random(random, 5, 1);
        auto dp = Steps<double>::random(random, 5, 1);
        SAME(srotmg, s, v.a, v.b, v.a, v.b, sp)
        SAME(drotmg, d, v.a, v.b, v.a, v.b, dp)
        sp[0] = static_cast<float>(round % 4 - 2);
        dp[0] = round % 4 - 2;
        SAME(srotm, s, n, v.x, incx, v.y, incy, sp)
        SAME(drotm, d, n, v.x, incx, v.y, incy, dp)
    }
}

TEST(CblasLevel1, ComplexResultsGoThroughTheLastArgument) {
    Random random(73);
    for (const int n : {0, 1, 5, 20})
        for (const auto& [incx, incy] : kSteps) {
            Operands<vor::cfloat> c(random, n, incx, incy);
            Operands<vor::cdouble> z(random, n, incx, incy);
#define DOT(name, v)                                                                               \
    {                                                                                              \
        auto want = v.a, got = v.b;                                                                \
        name(want.data(), &n, v.x.data(), &incx, v.y.data(), &incy);                               \
        call(cblas_##name##_sub, n, v.x.data(), incx, v.y.data(), incy, got.data());               \
        EXPECT_TRUE(got.same_as(want)) << #name << " " << n;                                       \
    }
            DOT(cdotu, c)
            DOT(cdotc, c)
            DOT(zdotu, z)
            DOT(zdotc, z)
        }
}

template <class T, class F>
void expect_positions(const char* name, F position,
                      int (*entry)(const int*, const T*, const int*)) {
    Random random(74);
    for (const int inc : {1, 3, 0, -1})
        for (const int n : {-2, 0, 1, 2, 7, 30}) {
            auto x = Steps<T>::random(random, n, inc == 0 ? 1 : inc);
            const int want = n < 1 || inc < 1 ? 0 : entry(&n, x.data(), &inc) - 1;
            EXPECT_EQ(call(position, n, x.data(), inc), want) << name << " " << n << " " << inc;
        }
}

TEST(CblasLevel1, PositionsCountFromZero) {
#define POSITION(name, T) expect_positions<T>(#name, cblas_##name, name);
    POSITION(isamax, float)
    POSITION(idamax, double)
    POSITION(icamax, vor::cfloat)
    POSITION(izamax, vor::cdouble)
    POSITION(isamin, float)
    POSITION(idamin, double)
    POSITION(icamin, vor::cfloat)
    POSITION(izamin, vor::cdouble)
    const double x[] = {1, -3, 3, 0};
    EXPECT_EQ(cblas_idamax(4, x, 1), 1);
    EXPECT_EQ(cblas_idamin(4, x, 1), 3);
}

} // namespace
