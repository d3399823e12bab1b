// Inner products, sums and norms. The real ones bit for bit against models that know only which element
// goes to which partial sum; the complex inner products against error bounds.
#include "tests/blas/level1.h"

using namespace vor;
using namespace vor::test;

namespace {

using Terms = std::vector<long double>;

// groups: the partial sum of each element of a round; the partial sums are added in `order`.
long double rounds_model(const Terms& terms, const std::vector<int>& groups,
                         const std::vector<int>& order) {
    const size_t body = terms.size() / groups.size() * groups.size();
    long double partial[4] = {}, sum = 0;
    for (size_t i = 0; i < body; ++i) partial[groups[i % groups.size()]] += terms[i];
    for (const int k : order) sum += partial[k];
    for (size_t i = body; i < terms.size(); ++i) sum += terms[i];
    return sum;
}
long double four_sums_model(const Terms& terms, bool rounds_of_8 = false) {
    const std::vector<int> groups =
        rounds_of_8 ? std::vector<int>{0, 1, 2, 3, 0, 1, 2, 3} : std::vector<int>{0, 1, 2, 3};
    return rounds_model(terms, groups, {3, 0, 1, 2});
}

// Terms in vectors: those in front of the first 16-byte boundary behind p are summed in W and start the
// first lane of two vectors of partial sums in single precision, which take whole rounds; what is left is
// added in W.
template <class W>
W vectors_model(const void* p, const std::vector<W>& terms, size_t round) {
    const size_t gap = -reinterpret_cast<uintptr_t>(p) % 16 / sizeof(float);
    const size_t prefix = std::min(terms.size(), gap);
    const size_t body = (terms.size() - prefix) / round * round;
    W start = 0;
    for (size_t i = 0; i < prefix; ++i) start += terms[i];
    float lanes[2][4] = {{static_cast<float>(start)}};
    for (size_t i = 0; i < body; ++i) {
        float& lane = lanes[i / 4 % 2][i % 4];
        lane += static_cast<float>(terms[prefix + i]);
    }
    for (int k = 0; k < 4; ++k) lanes[0][k] += lanes[1][k];
    for (int k = 0; k < 2; ++k) lanes[0][k] += lanes[0][k + 2];
    W sum = lanes[0][0] + lanes[0][1];
    for (size_t i = prefix + body; i < terms.size(); ++i) sum += terms[i];
    return sum;
}
bool on_words(const void* p) {
    return reinterpret_cast<uintptr_t>(p) % sizeof(float) == 0;
}

long double sdot_model(int n, Vector<float>& x, Vector<float>& y) {
    const bool unit = std::abs(x.inc()) == 1 && x.inc() == y.inc() && on_words(y.data());
    const bool one_sided = std::abs(x.inc()) == 1 || std::abs(y.inc()) == 1;
    Terms products;
    if (n <= 8 || !unit) {
        // The vector of unit step is read forwards.
        const bool turned = n > 8 && (x.inc() == -1 || (y.inc() == -1 && x.inc() != 1));
        for (int i = 0; i < n; ++i) {
            const int k = turned ? n - 1 - i : i;
            products.push_back(static_cast<long double>(x.at(k)) * y.at(k));
        }
        return four_sums_model(products, n > 8 && one_sided);
    }
    std::vector<float> terms; // single precision throughout
    for (int i = 0; i < n; ++i) terms.push_back(x.data()[i] * y.data()[i]);
    return vectors_model(y.data(), terms, 16);
}

// The sum of `term` over the real entries of x, by the scheme of the routine.
template <class T, class Term>
long double entries_model(int n, Vector<T>& x, Term term, bool is_norm) {
    using R = real_t<T>;
    constexpr bool kSingle = sizeof(R) == sizeof(float);
    const bool backwards_is_unit = !(is_norm && std::is_same_v<T, float>);
    const bool unit = x.inc() == 1 || (x.inc() == -1 && backwards_is_unit);
    if (n < 1) return 0;
    const bool vectors = kSingle && unit && on_words(x.data());
    Terms terms;
    for (int i = 0; i < n; ++i) {
        const Wide e = vectors || (unit && !kSingle) ? wide(x.data()[i]) : wide(x.at(i));
        terms.push_back(term(e.real()));
        if (is_complex<T>) terms.push_back(term(e.imag()));
    }
    if (vectors) return vectors_model(x.data(), terms, is_norm && is_complex<T> ? 24 : 16);
    if (!unit || kSingle) return rounds_model(terms, {0, 1}, {0, 1});
    return is_norm ? rounds_model(terms, {0, 1, 0, 2}, {1, 0, 2}) : four_sums_model(terms);
}

TYPED_SUITE(Sums, AllTypes);
TYPED_SUITE(ComplexSums, ComplexTypes);

} // namespace

TEST(Dot, RealSumsHaveTheirOrder) {
    bool some_unrounded = false;
    each_pair_of_vectors([&](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<double> xd(n, incx, ox), yd(n, incy, oy);
        Vector<float> x(n, incx, ox), y(n, incy, oy);
        xd.spread(), x.spread(), y.spread();
        const float sb = 0.1f;
        long double sum = 0, sum_on_sb = sb;
        Terms products;
        for (int i = 0; i < n; ++i) {
            const int k = incx == -1 && incy == -1 ? n - 1 - i : i; // read forwards
            products.push_back(static_cast<long double>(xd.at(k)) * yd.at(k));
            const long double product = static_cast<long double>(x.at(i)) * y.at(i);
            sum += product;
            sum_on_sb += product;
        }
        SCOPED_TRACE(testing::Message()
                     << n << " " << incx << " " << incy << " " << ox << " " << oy);
        ASSERT_EQ(call_extended(ddot, n, xd.data(), incx, yd.data(), incy),
                  static_cast<double>(four_sums_model(products)));
        const long double single = call_extended(sdot, n, x.data(), incx, y.data(), incy);
        ASSERT_EQ(single, sdot_model(n, x, y));
        some_unrounded |= single != static_cast<float>(single);
        ASSERT_EQ(call_extended(dsdot, n, x.data(), incx, y.data(), incy),
                  static_cast<double>(sum));
        ASSERT_EQ(call_extended(sdsdot, n, sb, x.data(), incx, y.data(), incy),
                  static_cast<float>(sum_on_sb));
    });
    EXPECT_TRUE(some_unrounded);
}

// A wrong order shows in a double once in a thousand sums or so: the last bits of an extended sum are
// rounded away. So there have to be many.
TYPED_TEST(Sums, AsumAndNrm2HaveTheirPartialSums) {
    using T = TypeParam;
    using R = real_t<T>;
    const auto check = [](int n, int inc, size_t offset) {
        Vector<T> x(n, inc, offset);
        x.spread();
        const auto magnitude = [](long double e) { return std::fabs(e); };
        const auto square = [](long double e) { return e * e; };
        ASSERT_EQ(call_extended(of_type<T>(sasum, dasum, scasum, dzasum), n, x.data(), inc),
                  static_cast<R>(entries_model(n, x, magnitude, false)))
            << n << " " << inc;
        ASSERT_EQ(call_extended(of_type<T>(snrm2, dnrm2, scnrm2, dznrm2), n, x.data(), inc),
                  static_cast<R>(std::sqrt(entries_model(n, x, square, true))))
            << n << " " << inc;
    };
    each_vector(check);
    for (int i = 0; i < 30000; ++i) check(8 + i % 24, i % 3 == 0 ? 2 : 1, 8);
}

TYPED_TEST(Sums, Nrm2NeedsNoScalingInExtendedPrecision) {
    using T = TypeParam;
    constexpr bool kSingle = sizeof(real_t<T>) == sizeof(float);
    const auto big = static_cast<real_t<T>>(kSingle ? 1e30 : 1e300);
    const std::vector<T> x(200, element<T>(big));
    const auto norm = [&](int n, int inc) {
        return call(of_type<T>(snrm2, dnrm2, scnrm2, dznrm2), n, x.data(), inc);
    };
    EXPECT_EQ(norm(1, 2), big);
    EXPECT_EQ(norm(2, 2), static_cast<real_t<T>>(std::sqrt(2.0L) * big));
    EXPECT_EQ(norm(100, 1) == HUGE_VAL, kSingle);
    EXPECT_NEAR(norm(100, -2) / big, 10, 1e-6);
    EXPECT_EQ(norm(100, -1) == HUGE_VAL, (std::is_same_v<T, cfloat>));
}

TYPED_TEST(ComplexSums, DotuAndDotcStayWithinTheirBound) {
    using T = TypeParam;
    // Single precision: up to n/8 additions in each partial sum, then prefix, folding and tail.
    const auto limit = [](int n) { return sizeof(T) == 8 ? n / 8 / 2 + 8 : 1; };
    Bound<T> bound("cdot / n", 1);
    each_pair_of_vectors([&](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<T> x(n, incx, ox), y(n, incy, oy);
        Wide dotu = 0, dotc = 0;
        long double terms = 0;
        for (int i = 0; i < n; ++i) {
            dotu += wide(x.at(i)) * wide(y.at(i));
            dotc += std::conj(wide(x.at(i))) * wide(y.at(i));
            terms += std::abs(wide(x.at(i)) * wide(y.at(i)));
        }
        Guarded<T> got(2);
        call(COMPLEX(dotu), got.data(), n, x.data(), incx, y.data(), incy);
        call(COMPLEX(dotc), got.data() + 1, n, x.data(), incx, y.data(), incy);
        bound.add(wide(got[0]), dotu, terms * limit(n));
        bound.add(wide(got[1]), dotc, terms * limit(n));
        ASSERT_TRUE(got.intact());
    });
}
