// One-call transforms of planes: complex and real, interleaved and split, against one-dimensional transforms in
// long double, on one thread and on several.
#include "tests/dft/onecall.h"

#include <omp.h>

namespace {

using namespace vor::test;

constexpr double kBound = 0.4; // of the error, in eps log2(m n)

template <class R>
class OneCallPlane : public ::testing::Test {};
using Precisions = ::testing::Types<float, double>;
TYPED_TEST_SUITE(OneCallPlane, Precisions);

// Columns, then rows, of m by n values.
Spectrum transform_plane(Spectrum x, size_t m, size_t n, Direction direction) {
    for (size_t c = 0; c < n; ++c) {
        const Spectrum column = transform(Spectrum(&x[c * m], &x[c * m] + m), direction);
        std::copy(column.begin(), column.end(), &x[c * m]);
    }
    for (size_t j = 0; j < m; ++j) {
        Spectrum row(n);
        for (size_t c = 0; c < n; ++c) row[c] = x[j + c * m];
        row = transform(row, direction);
        for (size_t c = 0; c < n; ++c) x[j + c * m] = row[c];
    }
    return x;
}

Spectrum in_reversed_order(const Spectrum& x, size_t m, size_t n) {
    Spectrum y(x.size());
    for (size_t c = 0; c < n; ++c)
        for (size_t j = 0; j < m; ++j) y[reversed(j, m) + reversed(c, n) * m] = x[j + c * m];
    return y;
}

struct Shape {
    size_t m, n;
    int threads;
};
// Lengths of 1, rows below and above eight, unequal tables; sizes on both sides of where teams begin.
const Shape kShapes[] = {{1, 1, 1},     {1, 8, 1},   {16, 1, 1},   {2, 2, 1},    {4, 8, 1},
                         {8, 4, 1},     {16, 32, 1}, {64, 8, 1},   {8, 64, 1},   {128, 64, 1},
                         {32, 128, 2},  {64, 64, 2}, {2, 1024, 4}, {1024, 2, 4}, {64, 128, 3},
                         {128, 32, 16}, {1, 4096, 2}};

template <class R>
std::vector<long double> words_of(const Points<R>& x) {
    std::vector<long double> words;
    for (size_t i = 0; i < x.n; ++i) {
        words.push_back(x.at(i).real());
        words.push_back(x.at(i).imag());
    }
    return words;
}

template <class R>
void run(const Shape& shape, bool split, WorstError& worst) {
    const auto [m, n, threads] = shape;
    SCOPED_TRACE(::testing::Message() << m << " by " << n << " split " << split);
    omp_set_num_threads(threads);
    Points<R> x(m * n, split, 1);
    Random random(m + n);
    x.first.fill(random);
    x.second.fill(random);
    const Spectrum signal = x.get();
    const Spectrum spectrum = transform_plane(signal, m, n, Direction::forward);
    Spectrum mean = transform_plane(signal, m, n, Direction::backward);
    for (auto& v : mean) v /= static_cast<long double>(m * n);
    const struct {
        int isign;
        Spectrum given, want;
    } jobs[] = {{-1, signal, spectrum},
                {-2, signal, in_reversed_order(spectrum, m, n)},
                {1, signal, mean},
                {2, in_reversed_order(signal, m, n), mean}};
    for (const auto& job : jobs) {
        x.put(job.given);
        fft2d(x, int(m), int(n), job.isign);
        std::vector<R> got;
        for (long double v : words_of(x)) got.push_back(static_cast<R>(v));
        EXPECT_LE(worst.add(relative_error(got.data(),
                                           reinterpret_cast<const long double*>(job.want.data()),
                                           got.size(), m * n)),
                  kBound)
            << "isign " << job.isign;
    }
    EXPECT_TRUE(x.intact());
}

TYPED_TEST(OneCallPlane, Complex) {
    WorstError worst(sizeof(TypeParam) == 4 ? "cfft2d, cfft2dc" : "zfft2d, zfft2dc");
    for (const Shape& shape : kShapes)
        for (bool split : {false, true}) run<TypeParam>(shape, split, worst);
    omp_set_num_threads(1);
}

// Where a plane of reals keeps what: the word of the real part and that of the imaginary part of X[j, k].
struct Place {
    size_t re, im;
};
Place place_of(size_t j, size_t k, size_t m, size_t n, bool split) {
    const size_t ld = m + 2;
    const bool real_row = j == 0 || (m > 1 && 2 * j == m);
    const size_t row = split ? j : 2 * j;
    if (!real_row) return {row + k * ld, (split ? m / 2 + 1 + j : row + 1) + k * ld};
    if (split) return {row + k * ld, row + (n / 2 + 1 + k) * ld};
    return {row + 2 * k * ld, row + (2 * k + 1) * ld};
}

template <class R>
void run_real(const Shape& shape, bool split, WorstError& worst) {
    const auto [m, n, threads] = shape;
    SCOPED_TRACE(::testing::Message() << m << " by " << n << " split " << split);
    omp_set_num_threads(threads);
    const size_t ld = m + 2;
    Guarded<R> r(ld * (n + 2), sizeof(R));
    Random random(m * n);
    r.fill(random);
    Spectrum signal(m * n);
    for (size_t c = 0; c < n; ++c)
        for (size_t j = 0; j < m; ++j) signal[j + c * m] = r[j + c * ld];
    const Spectrum spectrum = transform_plane(signal, m, n, Direction::forward);

    real_fft2d(true, split, r.data(), int(m), int(n));
    std::vector<R> got;
    std::vector<long double> want;
    const auto compare = [&](Place at, Wide value) {
        got.insert(got.end(), {r[at.re], r[at.im]});
        want.insert(want.end(), {value.real(), value.imag()});
    };
    std::vector<R> back(r.size(), std::numeric_limits<R>::quiet_NaN());
    for (size_t j = 0; j <= m / 2; ++j) {
        const bool real_row = j == 0 || (m > 1 && 2 * j == m);
        if (n == 1 && real_row) { // a row of one element stays a real number
            const size_t word = split ? j : 2 * j;
            got.push_back(r[word]);
            want.push_back(spectrum[j].real());
            back[word] = static_cast<R>(spectrum[j].real());
            continue;
        }
        for (size_t k = 0; k < (real_row ? n / 2 + 1 : n); ++k) {
            const Place at = place_of(j, k, m, n, split);
            const Wide value = spectrum[j + k * m];
            compare(at, value);
            back[at.re] = static_cast<R>(value.real());
            back[at.im] = static_cast<R>(value.imag());
        }
    }
    EXPECT_LE(worst.add(relative_error(got.data(), want, m * n)), kBound) << "forward";

    std::copy(back.begin(), back.end(), r.begin()); // NaN where nothing is used
    real_fft2d(false, split, r.data(), int(m), int(n));
    got.clear();
    want.clear();
    for (size_t c = 0; c < n; ++c)
        for (size_t j = 0; j < m; ++j) {
            got.push_back(r[j + c * ld]);
            want.push_back(signal[j + c * m].real());
        }
    EXPECT_LE(worst.add(relative_error(got.data(), want, m * n)), kBound) << "backward";
    EXPECT_TRUE(r.intact());
}

TYPED_TEST(OneCallPlane, Real) {
    WorstError worst(sizeof(TypeParam) == 4 ? "scfft2d, csfft2d" : "dzfft2d, zdfft2d");
    for (const Shape& shape : kShapes)
        for (bool split : {false, true}) run_real<TypeParam>(shape, split, worst);
    omp_set_num_threads(1);
}

} // namespace
