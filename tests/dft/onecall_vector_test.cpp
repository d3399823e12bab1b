// One-call transforms of vectors: complex and real, interleaved and split, in both precisions and directions,
// against an oracle in long double; at the seams of the plan, at odd addresses, on one thread and on several.
#include "tests/common/fenced.h"
#include "tests/dft/onecall.h"

#include <omp.h>

namespace {

using namespace vor::test;

// The thread decision of the library is taken once: parallel, so that omp_set_num_threads decides.
const int parallel_library = setenv("VOR_SERIAL", "NO", 1);

// Of the error, in eps log2 n: docs/numerics.md.
double bound(size_t n) {
    return n < 8 ? 0.9 : 0.4;
}

template <class R>
class OneCallVector : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(OneCallVector, Precisions);

template <class T>
Spectrum random_spectrum(size_t n, uint64_t seed) {
    Random random(seed);
    Guarded<vor::complex_t<T>> x(n);
    x.fill(random);
    return widen(x.data(), n);
}

// A wsave that ends at a fence: a table that is longer than told faults.
template <class R>
struct Work {
    explicit Work(size_t words) : memory(words, true) { std::fill_n(memory.data(), words, R(7)); }
    R* data() { return memory.data(); }
    Fenced<R> memory;
};

template <class R>
double error_of(const Points<R>& x, const Spectrum& want) {
    Guarded<vor::complex_t<R>> got(x.n);
    for (size_t i = 0; i < x.n; ++i) {
        const Wide v = x.at(i);
        got[i] = {static_cast<R>(v.real()), static_cast<R>(v.imag())};
    }
    return relative_error(got.data(), want);
}

Spectrum in_reversed_order(const Spectrum& x) {
    Spectrum y(x.size());
    for (size_t i = 0; i < x.size(); ++i) y[reversed(i, x.size())] = x[i];
    return y;
}

// All four transforms of n points.
template <class R>
void run(size_t n, bool split, size_t offset, WorstError& worst) {
    SCOPED_TRACE(::testing::Message() << "n " << n << " split " << split << " offset " << offset);
    const Spectrum signal = random_spectrum<R>(n, n);
    const Spectrum spectrum = transform(signal, Direction::forward);
    Spectrum mean = transform(signal, Direction::backward);
    for (auto& v : mean) v /= static_cast<long double>(n);
    Work<R> wsave(complex_wsave<R>(n));
    Points<R> x(n, split, offset);
    x.put(signal);
    fft1d(x, int(n), 0, wsave.data());
    EXPECT_EQ(x.get(), signal); // isign 0 leaves the data alone
    const std::vector<R> filled(wsave.data(), wsave.data() + complex_wsave<R>(n));
    EXPECT_EQ(filled[0], static_cast<R>(n));
    EXPECT_EQ(filled[1], 0);
    const struct {
        int isign;
        Spectrum given, want;
    } jobs[] = {{-1, signal, spectrum},
                {-2, signal, in_reversed_order(spectrum)},
                {1, signal, mean},
                {2, in_reversed_order(signal), mean}};
    for (const auto& job : jobs) {
        x.put(job.given);
        fft1d(x, int(n), job.isign, wsave.data());
        EXPECT_LE(worst.add(error_of(x, job.want)), bound(n)) << "isign " << job.isign;
    }
    EXPECT_TRUE(x.intact());
    EXPECT_TRUE(same_bits(filled.data(), wsave.data(), filled.size()));
}

TYPED_TEST(OneCallVector, ComplexOfAllOrders) {
    WorstError worst(sizeof(TypeParam) == 4 ? "cfft1d, cfft1dc" : "zfft1d, zfft1dc");
    omp_set_num_threads(1);
    for (int order = 1; order <= 17; ++order)
        for (bool split : {false, true})
            for (size_t offset : {0, 1, 2})
                if (offset == 0 || order < 12)
                    run<TypeParam>(size_t{1} << order, split, offset, worst);
}

// Two parts, also of three threads; four; as many as there may be, of more threads than that.
TYPED_TEST(OneCallVector, ComplexOnThreads) {
    WorstError worst("the same on threads");
    const struct {
        int threads;
        std::vector<int> orders;
    } teams[] = {
        {2, {9, 10, 11, 13, 15, 16, 17}}, {3, {12}}, {4, {11, 16}}, {16, {10, 11, 13, 16}}};
    for (const auto& team : teams) {
        omp_set_num_threads(team.threads);
        for (int order : team.orders)
            for (bool split : {false, true}) run<TypeParam>(size_t{1} << order, split, 0, worst);
    }
    omp_set_num_threads(1);
}

// All addresses give the same bits.
TYPED_TEST(OneCallVector, AlignmentChangesNothing) {
    using R = TypeParam;
    for (int order : {4, 5, 8, 10, 11})
        for (bool split : {false, true}) {
            const size_t n = size_t{1} << order;
            std::vector<R> wsave(complex_wsave<R>(n));
            Points<R> first(n, split, 0);
            fft1d(first, int(n), 0, wsave.data());
            first.put(random_spectrum<R>(n, 3));
            const Spectrum given = first.get();
            fft1d(first, int(n), -1, wsave.data());
            for (size_t offset : {1, 2, 3}) {
                Points<R> x(n, split, offset);
                x.put(given);
                fft1d(x, int(n), -1, wsave.data());
                EXPECT_EQ(x.get(), first.get()) << n << " " << offset;
            }
        }
}

TYPED_TEST(OneCallVector, LengthsWithNothingToDo) {
    using R = TypeParam;
    for (int n : {0, 1})
        for (bool split : {false, true})
            for (int isign : {0, -1, 1, 7}) {
                Points<R> x(4, split);
                const Spectrum given = random_spectrum<R>(4, 1);
                x.put(given);
                R wsave[2] = {5, 6};
                fft1d(x, n, isign, wsave);
                EXPECT_EQ(x.get(), given);
                real_fft1d(true, split, x.first.data(), n, isign, wsave);
                real_fft1d(false, split, x.first.data(), n, isign, wsave);
                EXPECT_EQ(x.get(), given);
                EXPECT_TRUE(wsave[0] == 5 && wsave[1] == 6);
            }
}

// ---- Real data

// The spectrum of n reals as a member stores it.
std::vector<long double> stored_half(const Spectrum& x, bool split) {
    if (!split) return stored(x, Format::ccs);
    std::vector<long double> words;
    for (size_t k = 0; k <= x.size() / 2; ++k) words.push_back(x[k].real());
    for (size_t k = 0; k <= x.size() / 2; ++k) words.push_back(x[k].imag());
    return words;
}

template <class R>
void run_real(size_t n, bool split, size_t offset, WorstError& worst) {
    SCOPED_TRACE(::testing::Message() << "n " << n << " split " << split << " offset " << offset);
    Work<R> wsave(real_wsave<R>(n));
    Guarded<R> r(n + 2, offset * sizeof(R));
    Random random(n);
    r.fill(random);
    const std::vector<R> given = r.copy();
    real_fft1d(true, split, r.data(), int(n), 0, wsave.data());
    EXPECT_TRUE(same_bits(r.data(), given.data(), n + 2));
    EXPECT_EQ(wsave.data()[0], static_cast<R>(n / 2));
    EXPECT_EQ(wsave.data()[2 * n - 1], static_cast<R>(n / 2));
    const std::vector<R> filled(wsave.data(), wsave.data() + real_wsave<R>(n));

    const Spectrum signal = widen(given.data(), n);
    const Spectrum spectrum = transform(signal, Direction::forward);
    const auto want = stored_half(spectrum, split);
    real_fft1d(true, split, r.data(), int(n), -1, wsave.data());
    EXPECT_LE(worst.add(relative_error(r.data(), want, n)), bound(n)) << "forward";
    EXPECT_EQ(r[split ? n / 2 + 1 : 1], 0);
    EXPECT_EQ(r[n + 1], 0);

    // Backward: the imaginary parts of the ends are not used.
    for (size_t i = 0; i < n + 2; ++i) r[i] = static_cast<R>(want[i]);
    r[split ? n / 2 + 1 : 1] = r[n + 1] = std::numeric_limits<R>::quiet_NaN();
    real_fft1d(false, split, r.data(), int(n), 1, wsave.data());
    std::vector<long double> reals;
    for (const Wide& v : signal) reals.push_back(v.real());
    EXPECT_LE(worst.add(relative_error(r.data(), reals, n)), bound(n)) << "backward";
    EXPECT_TRUE(r.intact());
    EXPECT_TRUE(same_bits(filled.data(), wsave.data(), filled.size()));
}

TYPED_TEST(OneCallVector, RealOfAllOrders) {
    WorstError worst(sizeof(TypeParam) == 4 ? "scfft1d, csfft1d" : "dzfft1d, zdfft1d");
    omp_set_num_threads(1);
    for (int order = 1; order <= 17; ++order)
        for (bool split : {false, true})
            for (size_t offset : {0, 1})
                if (offset == 0 || order < 8)
                    run_real<TypeParam>(size_t{1} << order, split, offset, worst);
}

TYPED_TEST(OneCallVector, RealOnThreads) {
    WorstError worst("the same on threads");
    omp_set_num_threads(4);
    for (int order : {10, 12, 14, 17})
        for (bool split : {false, true}) run_real<TypeParam>(size_t{1} << order, split, 0, worst);
    omp_set_num_threads(1);
}

// An impulse, out of which every value of the spectrum is exactly 1; backward n equal values give it back.
TYPED_TEST(OneCallVector, ImpulseIsExact) {
    using R = TypeParam;
    for (int order : {1, 2, 3, 4, 7, 10, 11, 15, 16}) {
        const size_t n = size_t{1} << order;
        std::vector<R> wsave(complex_wsave<R>(n));
        Points<R> x(n, false);
        Spectrum impulse(n);
        impulse[0] = 1;
        x.put(impulse);
        fft1d(x, int(n), 0, wsave.data());
        for (int isign : {-1, -2}) {
            x.put(impulse);
            fft1d(x, int(n), isign, wsave.data());
            EXPECT_EQ(x.get(), Spectrum(n, Wide(1))) << n;
            fft1d(x, int(n), -isign, wsave.data());
            EXPECT_EQ(x.get(), impulse) << n;
        }
    }
}

} // namespace
