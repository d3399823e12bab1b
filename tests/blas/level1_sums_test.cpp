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
    long double partial[4] = {};
    for (size_t i = 0; i < body; ++i) partial[groups[i % groups.size()]] += terms[i];
    long double sum = partial[order[0]];
    for (size_t k = 1; k < order.size(); ++k) sum += partial[order[k]];
    for (size_t i = body; i < terms.size(); ++i) sum += terms[i];
    return sum;
}
long double four_sums_model(const Terms& terms, int rounds_of = 4) {
    std::vector<int> groups;
    for (int k = 0; k < rounds_of; ++k) groups.push_back(k % 4);
    return rounds_model(terms, groups, {3, 0, 1, 2});
}
long double two_sums_model(const Terms& terms) {
    return rounds_model(terms, {0, 1}, {0, 1});
}

// Two vectors of partial sums in single precision over rounds of `round` elements, the first lane
// starting from `start`. Reports in `body` how many elements they took.
float vectors_model(const std::vector<float>& terms, float start, size_t round, size_t& body) {
    float lanes[2][4] = {{start}};
    body = terms.size() / round * round;
    for (size_t i = 0; i < body; ++i) lanes[i / 4 % 2][i % 4] += terms[i];
    for (int k = 0; k < 4; ++k) lanes[0][k] += lanes[1][k];
    for (int k = 0; k < 2; ++k) lanes[0][k] += lanes[0][k + 2];
    return lanes[0][0] + lanes[0][1];
}

// Elements in front of the first 16-byte boundary.
int prefix_of(const void* p, int n) {
    return std::min(n, int(-reinterpret_cast<uintptr_t>(p) % 16 / sizeof(float)));
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
        return four_sums_model(products, n > 8 && one_sided ? 8 : 4);
    }
    const int prefix = prefix_of(y.data(), n);
    float start = 0;
    std::vector<float> terms;
    for (int i = 0; i < n; ++i) {
        const float product = x.data()[i] * y.data()[i];
        if (i < prefix)
            start += product;
        else
            terms.push_back(product);
    }
    size_t body;
    float sum = vectors_model(terms, start, 16, body);
    for (size_t i = body; i < terms.size(); ++i) sum += terms[i];
    return sum;
}

// asum and nrm2 of single precision with unit steps; `term` is exact in extended precision.
template <class Term>
long double single_sum_model(int entries, const float* x, size_t round, Term term) {
    const int prefix = prefix_of(x, entries);
    long double start = 0;
    for (int i = 0; i < prefix; ++i) start += term(x[i]);
    std::vector<float> terms;
    for (int i = prefix; i < entries; ++i) terms.push_back(static_cast<float>(term(x[i])));
    size_t body;
    long double sum = vectors_model(terms, static_cast<float>(start), round, body);
    for (int i = prefix + int(body); i < entries; ++i) sum += term(x[i]);
    return sum;
}

long double magnitude(long double x) {
    return std::fabs(x);
}
long double square(long double x) {
    return x * x;
}

// The sum of `term` over the real entries of x, by the scheme of the routine.
template <class T, class Term>
long double entries_model(int n, Vector<T>& x, Term term, bool is_norm) {
    using R = real_t<T>;
    constexpr bool kSingle = sizeof(R) == sizeof(float);
    constexpr int kParts = is_complex<T> ? 2 : 1;
    const bool backwards_is_unit = !(is_norm && std::is_same_v<T, float>);
    const bool unit = x.inc() == 1 || (x.inc() == -1 && backwards_is_unit);
    if (n < 1) return 0;
    const auto* entries = reinterpret_cast<const R*>(x.data());
    if constexpr (kSingle)
        if (unit && on_words(entries))
            return single_sum_model(kParts * n, entries, is_norm && is_complex<T> ? 24 : 16, term);
    Terms terms;
    for (int i = 0; i < n; ++i) {
        const Wide e = unit && !kSingle ? wide(x.data()[i]) : wide(x.at(i));
        terms.push_back(term(e.real()));
        if (is_complex<T>) terms.push_back(term(e.imag()));
    }
    if (!unit || kSingle) return two_sums_model(terms);
    return is_norm ? rounds_model(terms, {0, 1, 0, 2}, {1, 0, 2}) : four_sums_model(terms);
}

// A wrong order shows in a double once in a thousand sums or so: the last bits of an extended sum are
// rounded away. So there have to be many.
template <class Run>
void each_vector_and_many_short_ones(Run run) {
    each_vector(run);
    for (int i = 0; i < 30000; ++i) run(8 + i % 24, i % 3 == 0 ? 2 : 1, 8);
}

template <class T>
struct Sums : testing::Test {};
TYPED_TEST_SUITE(Sums, AllTypes);
template <class T>
struct ComplexSums : testing::Test {};
TYPED_TEST_SUITE(ComplexSums, ComplexTypes);

} // namespace

TEST(Dot, DoubleHasFourExtendedSums) {
    each_pair_of_vectors([](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<double> x(n, incx, ox), y(n, incy, oy);
        x.spread();
        Terms products;
        for (int i = 0; i < n; ++i) {
            const bool forwards = incx == -1 && incy == -1;
            const int k = forwards ? n - 1 - i : i;
            products.push_back(static_cast<long double>(x.at(k)) * y.at(k));
        }
        const long double got = call_extended(ddot, n, x.data(), incx, y.data(), incy);
        ASSERT_EQ(got, static_cast<double>(four_sums_model(products))) << n << " " << incx << incy;
    });
}

TEST(Dot, SingleIsUnroundedOffTheVectorPath) {
    bool some_unrounded = false;
    each_pair_of_vectors([&](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<float> x(n, incx, ox), y(n, incy, oy);
        x.spread(), y.spread();
        const long double got = call_extended(sdot, n, x.data(), incx, y.data(), incy);
        ASSERT_EQ(got, sdot_model(n, x, y)) << n << " " << incx << " " << incy << " " << ox << oy;
        some_unrounded |= got != static_cast<float>(got);
    });
    EXPECT_TRUE(some_unrounded);
}

TEST(Dot, LengthEightIsExtendedAndNineSingle) {
    // In single precision 2^24 + 1 is 2^24, so that the ones are lost.
    const float big = 0x1p24f;
    alignas(16) const float x[9] = {big, 1, 1, 1, 1, 1, 1, 1, -big};
    alignas(16) const float ones[9] = {1, 1, 1, 1, 1, 1, 1, 1, 1};
    EXPECT_EQ(call_extended(sdot, 8, x, 1, ones, 1), 0x1p24L + 7);
    EXPECT_EQ(call_extended(sdot, 9, x, 1, ones, 1), 0);
    EXPECT_EQ(call_extended(sdot, 9, x, 1, ones, -1), 7);
}

TEST(Dot, MixedPrecisionSumsInOrder) {
    each_pair_of_vectors([](int n, int incx, int incy, size_t ox, size_t oy) {
        Vector<float> x(n, incx, ox), y(n, incy, oy);
        const float sb = 0.1f;
        long double sum = 0, sum_on_sb = sb;
        for (int i = 0; i < n; ++i) {
            const long double product = static_cast<long double>(x.at(i)) * y.at(i);
            sum += product;
            sum_on_sb += product;
        }
        ASSERT_EQ(call_extended(dsdot, n, x.data(), incx, y.data(), incy),
                  static_cast<double>(sum));
        ASSERT_EQ(call_extended(sdsdot, n, sb, x.data(), incx, y.data(), incy),
                  static_cast<float>(sum_on_sb));
    });
}

TYPED_TEST(Sums, AsumHasItsPartialSums) {
    using T = TypeParam;
    each_vector_and_many_short_ones([](int n, int inc, size_t offset) {
        Vector<T> x(n, inc, offset);
        x.spread();
        const auto want = static_cast<real_t<T>>(entries_model(n, x, magnitude, false));
        ASSERT_EQ(call_extended(Level1<T>::asum, n, x.data(), inc), want) << n << " " << inc;
    });
}

TYPED_TEST(Sums, Nrm2HasItsPartialSums) {
    using T = TypeParam;
    each_vector_and_many_short_ones([](int n, int inc, size_t offset) {
        Vector<T> x(n, inc, offset);
        x.spread();
        const auto want = static_cast<real_t<T>>(std::sqrt(entries_model(n, x, square, true)));
        ASSERT_EQ(call_extended(Level1<T>::nrm2, n, x.data(), inc), want) << n << " " << inc;
    });
}

TYPED_TEST(Sums, Nrm2NeedsNoScalingInExtendedPrecision) {
    using T = TypeParam;
    constexpr bool kSingle = sizeof(real_t<T>) == sizeof(float);
    const auto big = static_cast<real_t<T>>(kSingle ? 1e30 : 1e300);
    std::vector<T> x(200, number<T>(big));
    const auto root2 = static_cast<real_t<T>>(std::sqrt(2.0L) * big);
    EXPECT_EQ(call(Level1<T>::nrm2, 1, x.data(), 2), big);
    EXPECT_EQ(call(Level1<T>::nrm2, 2, x.data(), 2), root2);
    EXPECT_EQ(call(Level1<T>::nrm2, 100, x.data(), 1) == HUGE_VAL, kSingle);
    EXPECT_NEAR(call(Level1<T>::nrm2, 100, x.data(), -2) / big, 10, 1e-6);
    EXPECT_EQ(call(Level1<T>::nrm2, 100, x.data(), -1) == HUGE_VAL, (std::is_same_v<T, cfloat>));
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
        call(Level1<T>::dotu, got.data(), n, x.data(), incx, y.data(), incy);
        call(Level1<T>::dotc, got.data() + 1, n, x.data(), incx, y.data(), incy);
        bound.add(wide(got[0]), dotu, terms * limit(n));
        bound.add(wide(got[1]), dotc, terms * limit(n));
        ASSERT_TRUE(got.intact());
    });
}

TEST(SparseDot, SumsInOrder) {
    Random random(5);
    for (int n : {-1, 0, 1, 9, 200}) {
        std::vector<int> indx;
        for (int i = 0; i < n; ++i) indx.push_back(random.below(40) + 1);
        Vector<float> xs(n, 1, 4), ys(40, 1, 4);
        Vector<double> xd(n, 1, 4), yd(40, 1, 4);
        float single = 0;
        long double extended = 0;
        for (int i = 0; i < n; ++i) {
            const int k = indx[size_t(i)] - 1;
            single += xs.at(i) * ys.at(k);
            extended += static_cast<long double>(xd.at(i)) * yd.at(k);
        }
        EXPECT_EQ(call_extended(sdoti, n, xs.data(), indx.data(), ys.data()), single);
        EXPECT_EQ(call_extended(ddoti, n, xd.data(), indx.data(), yd.data()),
                  static_cast<double>(extended));
    }
}

TYPED_TEST(ComplexSums, SparseDotsStayWithinTheirBound) {
    using T = TypeParam;
    Bound<T> bound("dotui", sizeof(T) == 8 ? 20 : 1);
    Random random(6);
    for (int n : {-1, 0, 1, 9, 200}) {
        std::vector<int> indx;
        for (int i = 0; i < n; ++i) indx.push_back(random.below(40) + 1);
        Vector<T> x(n, 1, 4), y(40, 1, 4);
        Wide dotu = 0, dotc = 0;
        long double terms = 0;
        for (int i = 0; i < n; ++i) {
            const Wide other = wide(y.at(indx[size_t(i)] - 1));
            dotu += wide(x.at(i)) * other;
            dotc += std::conj(wide(x.at(i))) * other;
            terms += std::abs(wide(x.at(i)) * other);
        }
        T got[2];
        call(Level1<T>::dotui, got, n, x.data(), indx.data(), y.data());
        call(Level1<T>::dotci, got + 1, n, x.data(), indx.data(), y.data());
        bound.add(wide(got[0]), dotu, terms);
        bound.add(wide(got[1]), dotc, terms);
    }
}
