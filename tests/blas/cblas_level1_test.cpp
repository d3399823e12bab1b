// The Level 1 routines for C against the Fortran-style entries: the same bits, in every array that is
// handed over.
#include "tests/blas/level2.h"
#include "tests/common/call.h"
#include "vor_cblas.h"

#include <tuple>

using namespace vor::test;

namespace {

// An array by its address, a number as it is.
template <class A>
auto word(A& argument) {
    if constexpr (requires { argument.data(); })
        return argument.data();
    else
        return argument;
}

template <class A>
bool same(const A& a, const A& b) {
    if constexpr (requires { a.same_as(b); })
        return a.same_as(b) && a.intact();
    else
        return same_bits(a, b);
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

template <class T>
struct Operands {
    using Real = vor::real_t<T>;
    Operands(Random& random, int n, int incx, int incy)
        : x(Steps<T>::random(random, n, incx)), y(Steps<T>::random(random, n, incy)),
          a(Steps<T>::random(random, 1, 1)), b(Steps<T>::random(random, 1, 1)),
          param(Steps<T>::random(random, 5, 1)), alpha(random.next<T>()), c(random.next<Real>()),
          s(random.next<Real>()) {
        param[0] = element<T>(random.below(4) - 2);
    }
    Steps<T> x, y, a, b, param;
    T alpha;
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
// Complex vectors with real numbers.
#define SAME_MIXED(c_name, z_name, ...) SAME(c_name, c, __VA_ARGS__) SAME(z_name, z, __VA_ARGS__)
#define SAME_ALL(op, ...) SAME_REAL(op, __VA_ARGS__) SAME_COMPLEX(op, __VA_ARGS__)

// The result of a complex inner product is the first argument of the entry and the last one for C.
#define SAME_SUB(name, v)                                                                          \
    {                                                                                              \
        auto want = v.a, got = v.b;                                                                \
        call(name, want.data(), n, v.x.data(), incx, v.y.data(), incy);                            \
        call(cblas_##name##_sub, n, v.x.data(), incx, v.y.data(), incy, got.data());               \
        EXPECT_TRUE(got.same_as(want)) << #name << " " << n;                                       \
    }

// Positions count from 0, and from nothing comes 0.
#define SAME_POSITION(name, v)                                                                     \
    for (const int inc : {incx, 0}) {                                                              \
        const int want = n < 1 || inc < 1 ? 0 : call(name, n, v.x.data(), inc) - 1;                \
        EXPECT_EQ(call(cblas_##name, n, v.x.data(), inc), want) << #name << n << " " << inc;       \
    }
#define SAME_POSITIONS(p) SAME_POSITION(i##p##amax, p) SAME_POSITION(i##p##amin, p)

TEST(CblasLevel1, GivesTheBitsOfTheEntries) {
    Random random(71);
    for (const int n : {-1, 0, 1, 2, 5, 8, 9, 33})
        for (const auto& [incx, incy] : kSteps) {
            Operands<float> s(random, n, incx, incy);
            Operands<double> d(random, n, incx, incy);
            Operands<vor::cfloat> c(random, n, incx, incy);
            Operands<vor::cdouble> z(random, n, incx, incy);
            SAME_ALL(axpy, n, v.alpha, v.x, incx, v.y, incy)
            SAME_ALL(copy, n, v.x, incx, v.y, incy)
            SAME_ALL(swap, n, v.x, incx, v.y, incy)
            SAME_ALL(scal, n, v.alpha, v.x, incx)
            SAME_MIXED(csscal, zdscal, n, v.s, v.x, incx)
            SAME_REAL(dot, n, v.x, incx, v.y, incy)
            SAME(dsdot, s, n, v.x, incx, v.y, incy)
            SAME(sdsdot, s, n, v.alpha, v.x, incx, v.y, incy)
            SAME_SUB(cdotu, c)
            SAME_SUB(cdotc, c)
            SAME_SUB(zdotu, z)
            SAME_SUB(zdotc, z)
            SAME_REAL(nrm2, n, v.x, incx)
            SAME_MIXED(scnrm2, dznrm2, n, v.x, incx)
            SAME_REAL(asum, n, v.x, incx)
            SAME_MIXED(scasum, dzasum, n, v.x, incx)
            SAME_POSITIONS(s)
            SAME_POSITIONS(d)
            SAME_POSITIONS(c)
            SAME_POSITIONS(z)
            SAME_REAL(rot, n, v.x, incx, v.y, incy, v.c, v.s)
            SAME_MIXED(csrot, zdrot, n, v.x, incx, v.y, incy, v.c, v.s)
            SAME_REAL(rotg, v.a, v.b, v.real, v.real)
            SAME_COMPLEX(rotg, v.a, v.b, v.real, v.b)
            SAME_REAL(rotm, n, v.x, incx, v.y, incy, v.param)
            SAME_REAL(rotmg, v.a, v.b, v.a, v.b, v.param)
            SAME(dcabs1, z, v.a)
        }
}

} // namespace
