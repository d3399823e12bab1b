// Routines that replace elements: axpy, scal, rot, rotm and their sparse relatives against error
// bounds; copy, swap, gather and scatter bit for bit.
#include "tests/blas/level1.h"

using namespace vor;
using namespace vor::test;

namespace {

template <class T>
struct Elements : testing::Test {};
TYPED_TEST_SUITE(Elements, AllTypes);
template <class T>
struct RealElements : testing::Test {};
TYPED_TEST_SUITE(RealElements, RealTypes);
template <class T>
struct ComplexElements : testing::Test {};
TYPED_TEST_SUITE(ComplexElements, ComplexTypes);

// Random positions from 1 to `size`, none twice.
std::vector<int> positions(int n, int size) {
    Random random(7);
    std::vector<int> all(static_cast<size_t>(size));
    for (int i = 0; i < size; ++i) {
        const int k = random.below(i + 1);
        all[size_t(i)] = all[size_t(k)];
        all[size_t(k)] = i + 1;
    }
    all.resize(size_t(std::max(n, 0)));
    return all;
}

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
        call(Level1<T>::axpy, n, alpha, x.data(), incx, y.data(), incy);
        ASSERT_TRUE(x.equals(x0) && y.only_elements_differ(y0)) << n << " " << incx << " " << incy;
        for (int i = 0; i < n; ++i) {
            const Wide product = wide(alpha) * wide(x.at(i)), old = wide(y0[y.slot(i)]);
            bound.add(wide(y.at(i)), old + product, std::abs(old) + std::abs(product));
        }
    });
}

TYPED_TEST(Elements, AxpyWithFactorZeroLeavesTheVectorAlone) {
    using T = TypeParam;
    Vector<T> x(20, 1, 0), y(20, 1, 0);
    set_nan(x.at(3));
    const auto y0 = y.copy();
    call(Level1<T>::axpy, 20, number<T>(-0.0), x.data(), 1, y.data(), 1);
    call(Level1<T>::axpyi, 3, number<T>(-0.0), x.data(), std::vector<int>{1, 2, 4}.data(),
         y.data());
    EXPECT_TRUE(y.equals(y0));
}

TYPED_TEST(Elements, AZeroStepUsesOneElementForAll) {
    using T = TypeParam;
    std::vector<T> x(23), y(23), two{number<T>(2)};
    for (int i = 0; i < 23; ++i) x[size_t(i)] = number<T>(i + 1), y[size_t(i)] = number<T>(10 * i);
    for (int inc : {1, -1, 2}) {
        T sum{};
        const int n = inc == 2 ? 12 : 23;
        call(Level1<T>::axpy, n, two[0], x.data(), inc, &sum, 0);
        EXPECT_EQ(wide(sum), Wide(inc == 2 ? 2 * 144 : 23 * 24)) << inc; // 1 + 3 + .. + 23 = 144
        call(Level1<T>::copy, n, x.data(), inc, &sum, 0);
        EXPECT_EQ(wide(sum), Wide(inc == 1 || inc == 2 ? 23 : 1)) << inc;
    }
    call(Level1<T>::axpy, 23, two[0], x.data(), 0, y.data(), 1);
    for (int i = 0; i < 23; ++i) EXPECT_EQ(wide(y[size_t(i)]), Wide(10 * i + 2));
    call(Level1<T>::scal, 5, two[0], x.data(), 0);
    EXPECT_EQ(wide(x[0]), Wide(32));
    EXPECT_EQ(wide(x[1]), Wide(2));
}

TYPED_TEST(Elements, CopyAndSwapMoveEveryBit) {
    using T = TypeParam;
    each_pair_of_vectors([&](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<T> x(n, incx, ox), y(n, incy, oy);
        const auto x0 = x.copy(), y0 = y.copy();
        call(Level1<T>::swap, n, x.data(), incx, y.data(), incy);
        ASSERT_TRUE(x.only_elements_differ(x0) && y.only_elements_differ(y0)) << n;
        for (int i = 0; i < n; ++i) {
            ASSERT_TRUE(same_bits(x.at(i), y0[y.slot(i)]) && same_bits(y.at(i), x0[x.slot(i)]))
                << n << " " << incx << " " << incy << " " << ox << " " << oy << " at " << i;
        }
        const auto x1 = x.copy();
        call(Level1<T>::copy, n, x.data(), incx, y.data(), incy);
        ASSERT_TRUE(x.equals(x1) && y.only_elements_differ(y0)) << n;
        for (int i = 0; i < n; ++i)
            ASSERT_TRUE(same_bits(y.at(i), x.at(i))) << n << " " << incx << " " << incy << " " << i;
    });
}

// Lengths around the blocks of 4096 bytes and 32-byte steps, every pair of addresses; the data are
// arbitrary bits, so that signalling NaNs are among them.
TYPED_TEST(Elements, StreamingCopyKeepsBitsAtEveryAddress) {
    using T = TypeParam;
    const int block = 4096 / sizeof(T);
    Random random(3);
    Guarded<T> source(size_t(3 * block + 16), 0);
    for (char* p = reinterpret_cast<char*>(source.begin());
         p < reinterpret_cast<char*>(source.end()); p += 8) {
        const uint64_t bits = random.bits();
        std::memcpy(p, &bits, 8);
    }
    for (size_t ox = 0; ox < 32; ox += 4)
        for (size_t oy = 0; oy < 32; oy += 4)
            for (int n :
                 {block - 1, block, block + 1, block + 40 / int(sizeof(T)), 2 * block + 1}) {
                Guarded<T> y(size_t(n), oy);
                auto* x = reinterpret_cast<T*>(reinterpret_cast<char*>(source.data()) + ox);
                call(Level1<T>::copy, n, x, 1, y.data(), 1);
                ASSERT_TRUE(same_bits(y.data(), x, size_t(n)) && y.intact())
                    << n << " " << ox << oy;
            }
}

TYPED_TEST(RealElements, CopyQuietsSignallingNaNsButInTheStreamingPath) {
    using T = TypeParam;
    using Bits = std::conditional_t<std::is_same_v<T, float>, uint32_t, uint64_t>;
    const Bits exponent = std::is_same_v<T, float> ? 0x7f800000u : 0x7ff0000000000000u;
    const Bits quiet = std::is_same_v<T, float> ? 0x00400000u : 0x0008000000000000u;
    const std::vector<Bits> x(5, exponent | 1);
    std::vector<Bits> y(5);
    call(Level1<T>::copy, 5, reinterpret_cast<const T*>(x.data()), 1,
         reinterpret_cast<T*>(y.data()), 1);
    EXPECT_EQ(y, x);
    call(Level1<T>::copy, 5, reinterpret_cast<const T*>(x.data()), 1,
         reinterpret_cast<T*>(y.data()), -1);
    EXPECT_EQ(y, std::vector<Bits>(5, exponent | quiet | 1));
}

TYPED_TEST(Elements, ScalMultiplies) {
    using T = TypeParam;
    Random random(4);
    Bound<T> bound("scal", is_complex<T> ? 1.5 : 0.5);
    each_vector([&](int n, int inc, size_t offset) {
        if (inc == 0) return;
        const T alpha = random.next<T>();
        Vector<T> x(n, inc, offset);
        const auto x0 = x.copy();
        call(Level1<T>::scal, n, alpha, x.data(), inc);
        ASSERT_TRUE(x.only_elements_differ(x0)) << n << " " << inc;
        for (int i = 0; i < n; ++i) {
            const Wide want = wide(alpha) * wide(x0[x.slot(i)]);
            bound.add(wide(x.at(i)), want, std::abs(want));
        }
        if constexpr (is_complex<T>) {
            const auto x1 = x.copy();
            const auto factor = random.next<real_t<T>>();
            call(Level1<T>::real_scal, n, factor, x.data(), inc);
            ASSERT_TRUE(x.only_elements_differ(x1)) << n << " " << inc;
            for (int i = 0; i < n; ++i) {
                const Wide want = wide(factor) * wide(x1[x.slot(i)]);
                bound.add(wide(x.at(i)), want, std::abs(want));
            }
        }
    });
}

TYPED_TEST(Elements, ScalByZeroKeepsNaN) {
    using T = TypeParam;
    for (int inc : {1, 2}) {
        Vector<T> x(40, inc, 4);
        for (int i : {0, 17, 39}) set_nan(x.at(i));
        call(Level1<T>::scal, 40, number<T>(-0.0), x.data(), inc);
        for (int i = 0; i < 40; ++i) {
            const bool nan = i == 0 || i == 17 || i == 39;
            EXPECT_EQ(std::isnan(wide(x.at(i)).real()), nan) << i;
            EXPECT_TRUE(nan || wide(x.at(i)) == Wide(0)) << i;
        }
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
    expect_rotation<T>("rot", c, s, -static_cast<long double>(s), c,
                       [&](int n, T* x, int incx, T* y, int incy) {
                           call(Level1<T>::rot, n, x, incx, y, incy, c, s);
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
                           [&](int n, T* x, int incx, T* y, int incy) {
                               call(Level1<T>::rotm, n, x, incx, y, incy, param);
                           });
    }
}

TYPED_TEST(Elements, SparseMoves) {
    using T = TypeParam;
    for (int n : {-1, 0, 1, 5, 30}) {
        const auto indx = positions(n, 40);
        Vector<T> x(n, 1, 4), y(40, 1, 8);
        const auto y0 = y.copy();
        call(Level1<T>::gthr, n, y.data(), x.data(), indx.data());
        ASSERT_TRUE(y.equals(y0));
        for (int i = 0; i < n; ++i)
            ASSERT_TRUE(same_bits(x.at(i), y0[size_t(indx[size_t(i)] - 1)]));
        Vector<T> z(n, 1, 4);
        call(Level1<T>::gthrz, n, y.data(), z.data(), indx.data());
        ASSERT_TRUE(z.equals(x.copy()));
        auto want = y0;
        for (int k : indx) want[size_t(k - 1)] = T{};
        ASSERT_TRUE(y.equals(want));
        call(Level1<T>::sctr, n, x.data(), indx.data(), y.data());
        ASSERT_TRUE(x.equals(z.copy()) && y.equals(y0));
    }
}

TYPED_TEST(Elements, SparseRoutinesTakeRepeatedPositionsInOrder) {
    using T = TypeParam;
    const int indx[] = {5, 1, 5};
    std::vector<T> y{number<T>(1), number<T>(2), number<T>(3), number<T>(4), number<T>(5)}, x(3);
    call(Level1<T>::gthrz, 3, y.data(), x.data(), indx);
    EXPECT_EQ(wide(x[0]), Wide(5));
    EXPECT_EQ(wide(x[1]), Wide(1));
    EXPECT_EQ(wide(x[2]), Wide(0));
    x = {number<T>(7), number<T>(8), number<T>(9)};
    call(Level1<T>::sctr, 3, x.data(), indx, y.data());
    EXPECT_EQ(wide(y[4]), Wide(9));
    call(Level1<T>::axpyi, 3, number<T>(2), x.data(), indx, y.data());
    EXPECT_EQ(wide(y[4]), Wide(9 + 14 + 18));
    EXPECT_EQ(wide(y[0]), Wide(8 + 16));
}

TYPED_TEST(Elements, AxpyiAddsTheProduct) {
    using T = TypeParam;
    Bound<T> bound("axpyi", 1);
    for (int n : {-1, 0, 1, 7, 40}) {
        const auto indx = positions(n, 40);
        Vector<T> x(n, 1, 4), y(40, 1, 8);
        const auto x0 = x.copy();
        auto y0 = y.copy();
        const T alpha = Random(9).next<T>();
        call(Level1<T>::axpyi, n, alpha, x.data(), indx.data(), y.data());
        ASSERT_TRUE(x.equals(x0));
        for (int i = 0; i < n; ++i) {
            const int k = indx[size_t(i)] - 1;
            const Wide product = wide(alpha) * wide(x.at(i)), old = wide(y0[size_t(k)]);
            bound.add(wide(y.at(k)), old + product, std::abs(old) + std::abs(product));
            y0[size_t(k)] = y.at(k);
        }
        ASSERT_TRUE(y.equals(y0));
    }
}

TYPED_TEST(RealElements, RotiRotatesAndLeavesTheIdentityAlone) {
    using T = TypeParam;
    Bound<T> bound("roti", 1.5);
    const T c = T(0.6), s = T(-0.8);
    const auto indx = positions(30, 40);
    Vector<T> x(30, 1, 4), y(40, 1, 8);
    const auto x0 = x.copy(), y0 = y.copy();
    call(Level1<T>::roti, 30, x.data(), indx.data(), y.data(), number<T>(1), number<T>(0));
    call(Level1<T>::roti, 0, x.data(), indx.data(), y.data(), c, s);
    ASSERT_TRUE(x.equals(x0) && y.equals(y0));
    call(Level1<T>::roti, 30, x.data(), indx.data(), y.data(), c, s);
    for (int i = 0; i < 30; ++i) {
        const int k = indx[size_t(i)] - 1;
        const Wide u = wide(x0[size_t(i)]), v = wide(y0[size_t(k)]), wc = wide(c), ws = wide(s);
        const long double terms = std::abs(u) + std::abs(v);
        bound.add(wide(x.at(i)), wc * u + ws * v, terms);
        bound.add(wide(y.at(k)), wc * v - ws * u, terms);
    }
    // The identity writes nothing: not even a NaN times 0.
    set_nan(x.at(0));
    const auto y1 = y.copy();
    call(Level1<T>::roti, 30, x.data(), indx.data(), y.data(), number<T>(1), number<T>(0));
    EXPECT_TRUE(y.equals(y1));
}
