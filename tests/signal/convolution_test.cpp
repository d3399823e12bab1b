// Convolution and correlation: every route and region, on both sides of every switch. The data are
// small integers, so that the direct routes must be exact and the sums through spectra come close.
#include "tests/common/allocations.h"
#include "tests/common/fenced.h"
#include "tests/common/numbers.h"
#include "vor_signal.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

template <class R>
struct Calls;
template <>
struct Calls<float> {
    static constexpr auto convolve = tavsConv_32f;
    static constexpr auto correlate = tavsCrossCorr_32f;
    static constexpr int direct_work = 383;
};
template <>
struct Calls<double> {
    static constexpr auto convolve = tavsConv_64f;
    static constexpr auto correlate = tavsCrossCorr_64f;
    static constexpr int direct_work = 511;
};

template <class R>
class Convolution : public testing::Test {};
template <class R>
class Correlation : public testing::Test {};
using Types = testing::Types<float, double>;
TYPED_TEST_SUITE(Convolution, Types);
TYPED_TEST_SUITE(Correlation, Types);

// A source that touches a page which cannot be read, before it or behind it. Of the two sources of a case
// one has it before and one behind, and the next case has it the other way round.
template <class R>
class Source {
public:
    Source(int n, int seed) : x_(n, (made_ ^ made_ / 2) % 2), n_(n) {
        ++made_;
        Random random(seed);
        for (int i = 0; i < n; ++i) x_.data()[i] = random.below(9) - 4;
    }
    const R* data() const { return x_.data(); }
    R operator[](size_t i) const { return x_.data()[i]; }
    size_t size() const { return n_; }

private:
    static inline unsigned made_ = 0;
    mutable Fenced<R> x_;
    size_t n_;
};

template <class R>
double norm(const Source<R>& x) {
    double sum = 0;
    for (size_t i = 0; i < x.size(); ++i) sum += x[i] * x[i];
    return std::sqrt(sum);
}

// The error of spectra in units of eps |a| |b| (docs/numerics.md).
constexpr double kSpectralBound = 2;

template <class R>
void expect_close(const Guarded<R>& got, const std::vector<R>& want, double scale, bool direct) {
    ErrorMeter<R> worst;
    for (size_t k = 0; k < want.size(); ++k) worst.add(got[k], want[k], scale);
    EXPECT_LE(worst.worst(), direct ? 0 : kSpectralBound);
    EXPECT_TRUE(got.intact());
}

template <class R>
std::vector<R> convolution(const Source<R>& a, const Source<R>& b) {
    std::vector<R> sum(a.size() + b.size() - 1);
    for (size_t i = 0; i < a.size(); ++i)
        for (size_t j = 0; j < b.size(); ++j) sum[i + j] += a[i] * b[j];
    return sum;
}

// `points`: of the transforms, 0 on the direct route.
struct Lengths {
    int longer, shorter, points;
    bool blocks;
};
const Lengths kLengths[] = {
    {1, 1, 0, false},          {7, 7, 0, false},       {8, 1, 0, false},
    {8, 3, 0, false},          {9, 9, 0, false},       {10, 4, 0, false},
    {100, 40, 0, false},       {128, 128, 0, false},   {129, 128, 256, false},
    {225, 31, 0, false},       {224, 32, 0, false},    {225, 32, 128, true},
    {200, 100, 512, false},    {299, 100, 512, false}, {300, 100, 512, true},
    {4095, 31, 0, false},      {4096, 1, 0, false},    {4097, 1, 0, false},
    {4096, 30, 0, false},      {4097, 30, 0, false},   {8200, 5, 0, false},
    {4100, 2000, 8192, false}, {10007, 33, 256, true}, {10007, 500, 2048, true},
};

TYPED_TEST(Convolution, EveryRoute) {
    using R = TypeParam;
    for (int i = 0; i < 2 * static_cast<int>(std::size(kLengths)); ++i) {
        const Lengths& c = kLengths[i / 2];
        SCOPED_TRACE(testing::Message() << c.longer << " and " << c.shorter);
        const Source<R> a(c.longer, 1), b(c.shorter, 2);
        const auto want = convolution(a, b);
        const int outputs = static_cast<int>(want.size());
        Guarded<R> dst(outputs, 4), swapped(outputs, 4);
        Allocations allocations;
        ASSERT_EQ(Calls<R>::convolve(a.data(), c.longer, b.data(), c.shorter, dst.data()), 0);
        if (c.points == 0) {
            EXPECT_EQ(allocations.calls(), 0);
        } else {
            const int extra = c.blocks; // the block of overlap-save has one element more
            EXPECT_GE(allocations.last_size(), (2 * c.points + extra) * sizeof(R));
            EXPECT_LT(allocations.last_size(), 4 * c.points * sizeof(R));
        }
        EXPECT_EQ(allocations.live(), 0);
        expect_close(dst, want, norm(a) * norm(b), c.points == 0);
        Calls<R>::convolve(b.data(), c.shorter, a.data(), c.longer, swapped.data());
        if (c.longer > c.shorter) {
            EXPECT_TRUE(same_bits(swapped.data(), dst.data(), outputs));
        }
    }
}

template <class R>
std::vector<R> correlation(const Source<R>& a, const Source<R>& b, int count, int64_t lag) {
    std::vector<R> sum(count);
    for (int k = 0; k < count; ++k)
        for (int64_t i = 0; i < static_cast<int64_t>(a.size()); ++i) {
            const int64_t j = i + k + lag;
            if (j >= 0 && j < static_cast<int64_t>(b.size())) sum[k] += a[i] * b[j];
        }
    return sum;
}

template <class R>
void expect_correlation(int len1, int len2, int count, int lag, size_t offset) {
    SCOPED_TRACE(testing::Message() << len1 << " and " << len2 << ", " << count << " from " << lag);
    const Source<R> a(len1, 1), b(len2, 2);
    Guarded<R> dst(count, offset);
    Allocations allocations;
    ASSERT_EQ(Calls<R>::correlate(a.data(), len1, b.data(), len2, dst.data(), count, lag), 0);
    expect_close(dst, correlation(a, b, count, lag), norm(a) * norm(b), allocations.calls() == 0);
    EXPECT_EQ(allocations.live(), 0);
}

TYPED_TEST(Correlation, AllRegionsAndCuts) {
    using R = TypeParam;
    const int lengths[][2] = {{1, 1}, {1, 9},  {9, 1},   {5, 5},   {8, 3},   {3, 8},
                              {7, 7}, {16, 7}, {20, 31}, {31, 20}, {64, 12}, {13, 40}};
    for (const auto& [len1, len2] : lengths)
        for (int lag = -len1 - 2; lag <= len2 + 1; ++lag)
            for (int count = 1; count <= len1 + len2 + 3; count += count < 8 ? 1 : 5)
                for (int fences = 0; fences < 2; ++fences)
                    expect_correlation<R>(len1, len2, count, lag, 4 * (count % 5));
}

TYPED_TEST(Correlation, BothSidesOfTheSwitchToSpectra) {
    using R = TypeParam;
    const int work = Calls<R>::direct_work;
    const int n = 600;
    for (int count : {work, work + 1}) {
        const Source<R> a(n, 1), b(n, 2);
        Guarded<R> dst(count);
        Allocations allocations;
        Calls<R>::correlate(a.data(), n, b.data(), n, dst.data(), count, -50);
        EXPECT_EQ(allocations.calls() > 0, count > work);
    }
    expect_correlation<R>(n, n, 2 * n - 1, 1 - n, 4);
    expect_correlation<R>(n, n, 2 * n + 20, -n - 10, 8);
    expect_correlation<R>(2000, 900, 1500, -700, 0);
    expect_correlation<R>(900, 2000, 1500, -100, 0);
}

TYPED_TEST(Correlation, FarLagsGiveZeros) {
    using R = TypeParam;
    for (int lag : {INT32_MIN, -1000, 40, INT32_MAX}) expect_correlation<R>(30, 40, 50, lag, 0);
}

TYPED_TEST(Convolution, StatusesInOrder) {
    using R = TypeParam;
    R x[4] = {1, 2, 3, 4}, y[8] = {9};
    EXPECT_EQ(Calls<R>::convolve(nullptr, 0, x, 4, y), tavStsNullPtrErr);
    EXPECT_EQ(Calls<R>::convolve(x, 0, x, 4, nullptr), tavStsNullPtrErr);
    EXPECT_EQ(Calls<R>::convolve(x, 4, x, 0, y), tavStsSizeErr);
    EXPECT_EQ(Calls<R>::correlate(x, 0, x, 4, nullptr, 0, 0), tavStsNullPtrErr);
    EXPECT_EQ(Calls<R>::correlate(x, 4, x, -1, y, 3, 0), tavStsSizeErr);
    EXPECT_EQ(Calls<R>::correlate(x, 4, x, 4, y, 0, 0), tavStsSizeErr);
    EXPECT_EQ(y[0], 9);
}

// Each allocation in turn fails: a status and an unwritten result, or the right result.
template <class R, class Call>
void expect_clean_failures(size_t outputs, Call call) {
    std::vector<R> want(outputs);
    ASSERT_EQ(call(want.data()), tavStsNoErr);
    int failures = 0;
    for (int k = 1;; ++k) {
        std::vector<R> dst(outputs, 77);
        Allocations allocations;
        allocations.fail_at(k);
        const TavStatus status = call(dst.data());
        EXPECT_EQ(allocations.live(), 0) << "allocation " << k;
        if (!allocations.failed()) break;
        failures += status != tavStsNoErr;
        EXPECT_TRUE(status == tavStsNoErr || status == tavStsMemAllocErr);
        EXPECT_EQ(dst, status ? std::vector<R>(outputs, 77) : want) << "allocation " << k;
    }
    EXPECT_GE(failures, 5);
}

TYPED_TEST(Convolution, FailedAllocations) {
    using R = TypeParam;
    const Source<R> a(3000, 1), b(600, 2);
    for (int len : {3000, 800})
        expect_clean_failures<R>(len + 399, [&](R* dst) {
            return Calls<R>::convolve(a.data(), len, b.data(), 400, dst);
        });
    expect_clean_failures<R>(4000, [&](R* dst) { // zeros at both ends
        return Calls<R>::correlate(a.data(), 3000, b.data(), 600, dst, 4000, -3100);
    });
}

} // namespace
} // namespace vor::test
