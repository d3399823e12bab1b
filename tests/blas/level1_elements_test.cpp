// Routines that replace elements: axpy, scal, rot and rotm against error bounds; copy and swap bit for
// bit.
#include "tests/blas/level1.h"

using namespace vor;
using namespace vor::test;

namespace {

TYPED_SUITE(Elements, AllTypes);
TYPED_SUITE(RealElements, RealTypes);

template <class T>
void set_nan(T& x) {
    reinterpret_cast<real_t<T>&>(x) = std::numeric_limits<real_t<T>>::quiet_NaN();
}

} // namespace

TYPED_TEST(Elements, AxpyAddsTheProduct) {
    using T = TypeParam;
    Random random(2);
    Bound<T> bound("axpy", is_complex<T> ? 2 : 1);
    each_pair_of_vectors([&](int n, int incx, int incy, size_t ox, size_t oy) {
        const T alpha = random.next<T>();
        Vector<T> x(n, incx, ox), y(n, incy, oy);
        const auto x0 = x.copy(), y0 = y.copy();
        call(ALL(axpy), n, alpha, x.data(), incx, y.data(), incy);
        ASSERT_TRUE(x.equals(x0) && y.only_elements_differ(y0)) << n << " " << incx << " " << incy;
        for (int i = 0; i < n; ++i) {
            const Wide product = wide(alpha) * wide(x.at(i)), old = wide(y0[y.slot(i)]);
            bound.add(wide(y.at(i)), old + product, std::abs(old) + std::abs(product));
        }
    });
}

TYPED_TEST(Elements, ScalMultiplies) {
    using T = TypeParam;
    Random random(4);
    Bound<T> bound("scal", is_complex<T> ? 1.5 : 0.5);
    each_vector([&](int n, int inc, size_t offset) {
        if (inc == 0) return;
        Vector<T> x(n, inc, offset);
        const auto check = [&](auto scal, auto alpha) {
            const auto x0 = x.copy();
            call(scal, n, alpha, x.data(), inc);
            ASSERT_TRUE(x.only_elements_differ(x0)) << n << " " << inc;
            for (int i = 0; i < n; ++i) {
                const Wide want = wide(alpha) * wide(x0[x.slot(i)]);
                bound.add(wide(x.at(i)), want, std::abs(want));
            }
        };
        check(ALL(scal), random.next<T>());
        if constexpr (is_complex<T>) check(of_type<T>(csscal, zdscal), random.next<real_t<T>>());
    });
}

// axpy does nothing, not even with a NaN; scal does its work.
TYPED_TEST(Elements, AFactorOfZero) {
    using T = TypeParam;
    const T zero = element<T>(-0.0, -0.0);
    for (const int inc : {1, 2}) {
        Vector<T> x(40, inc, 4), y(40, 1, 0);
        const auto y0 = y.copy();
        const auto has_nan = [](int i) { return i == 0 || i == 17 || i == 39; };
        for (int i = 0; i < 40; ++i)
            if (has_nan(i)) set_nan(x.at(i));
        call(ALL(axpy), 40, zero, x.data(), inc, y.data(), 1);
        EXPECT_TRUE(y.equals(y0));
        call(ALL(scal), 40, zero, x.data(), inc);
        for (int i = 0; i < 40; ++i)
            EXPECT_TRUE(has_nan(i) ? std::isnan(wide(x.at(i)).real()) : wide(x.at(i)) == Wide(0));
    }
}

TYPED_TEST(Elements, AZeroStepUsesOneElementForAll) {
    using T = TypeParam;
    std::vector<T> x(23), y(23);
    const T two = element<T>(2);
    for (int i = 0; i < 23; ++i)
        x[size_t(i)] = element<T>(i + 1), y[size_t(i)] = element<T>(10 * i);
    for (const int inc : {1, -1, 2}) {
        T sum{};
        const int n = inc == 2 ? 12 : 23;
        call(ALL(axpy), n, two, x.data(), inc, &sum, 0);
        EXPECT_EQ(wide(sum), Wide(inc == 2 ? 2 * 144 : 23 * 24)) << inc; // 1 + 3 + .. + 23 = 144
        call(ALL(copy), n, x.data(), inc, &sum, 0);
        EXPECT_EQ(wide(sum), Wide(inc == -1 ? 1 : 23)) << inc;
    }
    call(ALL(axpy), 23, two, x.data(), 0, y.data(), 1);
    for (int i = 0; i < 23; ++i) EXPECT_EQ(wide(y[size_t(i)]), Wide(10 * i + 2));
    call(ALL(scal), 5, two, x.data(), 0);
    EXPECT_EQ(wide(x[0]), Wide(32));
    EXPECT_EQ(wide(x[1]), Wide(2));
}

TYPED_TEST(Elements, CopyAndSwapMoveEveryBit) {
    using T = TypeParam;
    each_pair_of_vectors([&](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<T> x(n, incx, ox), y(n, incy, oy);
        const auto x0 = x.copy(), y0 = y.copy();
        call(ALL(swap), n, x.data(), incx, y.data(), incy);
        bool moved = x.only_elements_differ(x0) && y.only_elements_differ(y0);
        for (int i = 0; i < n; ++i)
            moved &= same_bits(x.at(i), y0[y.slot(i)]) && same_bits(y.at(i), x0[x.slot(i)]);
        const auto x1 = x.copy();
        call(ALL(copy), n, x.data(), incx, y.data(), incy);
        moved &= x.equals(x1) && y.only_elements_differ(y0);
        for (int i = 0; i < n; ++i) moved &= same_bits(y.at(i), x.at(i));
        ASSERT_TRUE(moved) << n << " " << incx << " " << incy << " " << ox << " " << oy;
    });
}

TYPED_TEST(RealElements, CopyQuietsSignallingNaNsButInTheStreamingPath) {
    using T = TypeParam;
    using Bits = std::conditional_t<sizeof(T) == 4, uint32_t, uint64_t>;
    const Bits signalling = sizeof(T) == 4 ? 0x7f800001u : 0x7ff0000000000001u;
    const Bits quiet = sizeof(T) == 4 ? 0x7fc00001u : 0x7ff8000000000001u;
    const int n = 1033;
    for (const int step : {1, -1}) {
        const std::vector<Bits> x(n, signalling);
        std::vector<Bits> y(n);
        call(REAL(copy), n, reinterpret_cast<const T*>(x.data()), 1, reinterpret_cast<T*>(y.data()),
             step);
        EXPECT_EQ(y, std::vector<Bits>(n, step == 1 ? signalling : quiet));
    }
}

// One body for rot and rotm: (x, y) := (a x + b y, c x + d y).
template <class T, class Rotate>
void expect_rotation(const char* name, long double a, long double b, long double c, long double d,
                     Rotate rotate) {
    Bound<T> bound(name, 1.5);
    each_pair_of_vectors([&](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<T> x(n, incx, ox), y(n, incy, oy);
        const auto x0 = x.copy(), y0 = y.copy();
        rotate(n, x.data(), incx, y.data(), incy);
        ASSERT_TRUE(x.only_elements_differ(x0) && y.only_elements_differ(y0)) << n;
        for (int i = 0; i < n; ++i) {
            const Wide u = wide(x0[x.slot(i)]), v = wide(y0[y.slot(i)]);
            bound.add(wide(x.at(i)), a * u + b * v, std::abs(a * u) + std::abs(b * v));
            bound.add(wide(y.at(i)), c * u + d * v, std::abs(c * u) + std::abs(d * v));
        }
    });
}

TYPED_TEST(Elements, RotRotates) {
    using T = TypeParam;
    const real_t<T> c = real_t<T>(0.6), s = real_t<T>(0.8);
    expect_rotation<T>("rot", c, s, -static_cast<long double>(s), c, [&](int n, auto... vectors) {
        call(of_type<T>(srot, drot, csrot, zdrot), n, vectors..., c, s);
    });
}

// An element has the same bits alone and anywhere in a vector, at every step and address: run(n, x, incx,
// y, incy) on vectors against run on single pairs.
template <class T, class Run>
void expect_same_at_every_place(Run run) {
    Vector<T> u(1, 1, 0), v(1, 1, 0);
    each_pair_of_vectors([&](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<T> x(n, incx, ox), y(n, incy, oy);
        const auto x0 = x.copy(), y0 = y.copy();
        run(n, x.data(), incx, y.data(), incy);
        bool same = true;
        for (int i = 0; i < n; ++i) {
            u.at(0) = x0[x.slot(i)], v.at(0) = y0[y.slot(i)];
            run(1, u.data(), 1, v.data(), 1);
            same &= same_bits(u.at(0), x.at(i)) && same_bits(v.at(0), y.at(i));
        }
        ASSERT_TRUE(same) << n << " " << incx << " " << incy << " " << ox << " " << oy;
    });
}

// saxpy is the exception: its vectors round each operation, its other loops once.
TYPED_TEST(Elements, OfOneVectorComeOutAlikeAtEveryPlace) {
    using T = TypeParam;
    using R = real_t<T>;
    const T alpha = element<T>(0.7L, -1.3L);
    const R c = R(0.6), s = R(0.8);
    expect_same_at_every_place<T>([&](int n, T* x, int incx, T* y, int incy) {
        call(ALL(scal), n, alpha, x, incx);
        if constexpr (is_complex<T>) call(of_type<T>(csscal, zdscal), n, c, y, incy);
    });
    if constexpr (!std::is_same_v<T, float>)
        expect_same_at_every_place<T>([&](int n, T* x, int incx, T* y, int incy) {
            call(ALL(axpy), n, alpha, x, incx, y, incy);
        });
    expect_same_at_every_place<T>([&](int n, T* x, int incx, T* y, int incy) {
        call(of_type<T>(srot, drot, csrot, zdrot), n, x, incx, y, incy, c, s);
    });
}

TYPED_TEST(RealElements, RotmAppliesTheMatrixOfItsFlag) {
    using T = TypeParam;
    const struct {
        T flag, h[4]; // what the flag implies: H11, H21, H12, H22
    } rows[] = {{-1, {0.5, -0.75, 3, 1.25}},
                {0, {1, -0.75, 3, 1}},
                {1, {0.5, -1, 1, 1.25}},
                {-2, {1, 0, 0, 1}}};
    for (const auto& [flag, h] : rows) {
        // Entries that the flag implies are not read: a NaN there does no harm.
        T param[5] = {flag, h[0], h[1], h[2], h[3]};
        if (flag == 0 || flag == -2) set_nan(param[1]), set_nan(param[4]);
        if (flag == 1 || flag == -2) set_nan(param[2]), set_nan(param[3]);
        expect_rotation<T>("rotm", h[0], h[2], h[1], h[3],
                           [&](int n, auto... vectors) { call(REAL(rotm), n, vectors..., param); });
    }
}
