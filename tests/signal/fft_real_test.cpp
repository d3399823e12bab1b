// Real power-of-two transforms, and products of their spectra.
#include "tests/common/allocations.h"
#include "tests/signal/fft_kinds.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

template <class R>
class FftReal : public testing::Test {};
using Types = testing::Types<float, double>;
TYPED_TEST_SUITE(FftReal, Types);

// docs/numerics.md
template <class R>
constexpr double kBound = sizeof(R) == 4 ? 0.75 : 0.3;

TYPED_TEST(FftReal, AllOrdersAgainstTheOracle) {
    using R = TypeParam;
    WorstError worst("real transforms");
    for (int order = 0; order <= 20; ++order) {
        FftObject<R> object(order);
        const size_t n = size_t{1} << order;
        Random random(order);
        Guarded<R> x(n), y(n), back(n);
        x.fill(random);
        const Spectrum want = transform(widen(x.data(), n), Direction::forward);
        for (const auto& calls : FftCalls<R>::formats) {
            const auto spectrum = stored(want, calls.format);
            calls.forward(x.data(), y.data(), object.get(), object.buffer());
            EXPECT_LE(worst.add(relative_error(y.data(), spectrum, n)), kBound<R>)
                << "order " << order;
            // The inverse of the exact spectrum, rounded once, gives N x.
            Guarded<R> source(n);
            std::copy(spectrum.begin(), spectrum.end(), source.begin());
            calls.inverse(source.data(), back.data(), object.get(), object.buffer());
            std::vector<long double> input(x.begin(), x.end());
            for (auto& value : input) value *= n;
            EXPECT_LE(worst.add(relative_error(back.data(), input, n)), kBound<R>)
                << "order " << order;
            EXPECT_TRUE(y.intact() && back.intact());
        }
    }
}

TYPED_TEST(FftReal, ImpulseOfEight) {
    using R = TypeParam;
    FftObject<R> object(3);
    const std::vector<R> want[] = {{1, 1, 1, 0, 1, 0, 1, 0}, {1, 1, 0, 1, 0, 1, 0, 1}};
    for (int f = 0; f < 2; ++f) {
        std::vector<R> x = {1, 0, 0, 0, 0, 0, 0, 0};
        FftCalls<R>::formats[f].forward(x.data(), x.data(), object.get(), nullptr);
        EXPECT_EQ(x, want[f]);
    }
}

TYPED_TEST(FftReal, PlaceAndAlignmentChangeNothing) {
    using R = TypeParam;
    for (int order = 0; order <= 16; ++order)
        for (const auto& calls : FftCalls<R>::formats)
            for (auto call : {calls.forward, calls.inverse}) {
                FftObject<R> object(order, TAV_FFT_DIV_BY_SQRTN);
                const size_t n = size_t{1} << order;
                Random random(order);
                Guarded<R> x(n), want(n);
                x.fill(random);
                call(x.data(), want.data(), object.get(), object.buffer());
                for (size_t offset = 0; offset<16; offset += order> 12 ? 5 : 1) {
                    SCOPED_TRACE(testing::Message() << "order " << order << ", offset " << offset);
                    Guarded<R> source(n, offset), y(n, (7 * offset) % 16);
                    std::copy(x.begin(), x.end(), source.begin());
                    call(source.data(), y.data(), object.get(), object.buffer());
                    ASSERT_TRUE(same_bits(y.data(), want.data(), n)) << "out of place";
                    ASSERT_TRUE(same_bits(source.data(), x.data(), n)) << "source";
                    call(source.data(), source.data(), object.get(), nullptr);
                    ASSERT_TRUE(same_bits(source.data(), want.data(), n)) << "in place";
                    ASSERT_TRUE(y.intact() && source.intact());
                }
            }
}

TYPED_TEST(FftReal, ScaleFactorsAndRoundTrip) {
    using R = TypeParam;
    for (int order = 0; order <= 14; ++order)
        for (int flag : {TAV_FFT_DIV_FWD_BY_N, TAV_FFT_DIV_INV_BY_N, TAV_FFT_DIV_BY_SQRTN}) {
            const size_t n = size_t{1} << order;
            const long double scale = flag == TAV_FFT_DIV_FWD_BY_N   ? 1.0L / n
                                      : flag == TAV_FFT_DIV_BY_SQRTN ? 1 / sqrtl(n)
                                                                     : 1;
            FftObject<R> object(order, flag);
            Random random(order);
            Guarded<R> x(n), y(n);
            x.fill(random);
            auto spectrum = transform(widen(x.data(), n), Direction::forward);
            for (Wide& value : spectrum) value *= scale;
            const std::vector<long double> input(x.begin(), x.end());
            for (const auto& calls : FftCalls<R>::formats) {
                calls.forward(x.data(), y.data(), object.get(), object.buffer());
                EXPECT_LE(relative_error(y.data(), stored(spectrum, calls.format), n), 1);
                calls.inverse(y.data(), y.data(), object.get(), object.buffer());
                EXPECT_LE(relative_error(y.data(), input, n), 1)
                    << "order " << order << ' ' << flag;
            }
        }
}

TYPED_TEST(FftReal, StatusesInOrder) {
    using R = TypeParam;
    FftObject<R> object(14);
    FftObject<cfloat> complex(14);
    std::vector<R> x(1 << 14, R{1}), y(1 << 14, R{3});
    for (const auto& calls : FftCalls<R>::formats)
        for (auto call : {calls.forward, calls.inverse}) {
            EXPECT_EQ(call(nullptr, nullptr, nullptr, nullptr), tavStsNullPtrErr);
            EXPECT_EQ(call(nullptr, y.data(), complex.get(), nullptr), tavStsContextMatchErr);
            EXPECT_EQ(call(nullptr, y.data(), object.get(), nullptr), tavStsNullPtrErr);
            EXPECT_EQ(call(x.data(), nullptr, object.get(), nullptr), tavStsNullPtrErr);
            Allocations allocations;
            allocations.fail_at(1);
            EXPECT_EQ(call(x.data(), y.data(), object.get(), nullptr), tavStsMemAllocErr);
            EXPECT_EQ(std::count(y.begin(), y.end(), R{3}), 1 << 14) << "nothing was written";
            EXPECT_EQ(allocations.live(), 0);
        }
}

// ---- Products of spectra

template <class R>
struct Products;
template <>
struct Products<float> {
    static constexpr auto perm = tavsMulPerm_32f_I;
    static constexpr auto pack_conjugate = tavsMulPackConj_32f_I;
};
template <>
struct Products<double> {
    static constexpr auto perm = tavsMulPerm_64f_I;
    static constexpr auto pack_conjugate = tavsMulPackConj_64f_I;
};

// The stored spectrum as complex numbers: entry 0, pairs, for even n the middle entry.
template <class R>
Spectrum spectrum_of(const std::vector<R>& r, Format format) {
    const size_t n = r.size(), first = format == Format::perm && n % 2 == 0 ? 2 : 1;
    Spectrum x{r[0]};
    for (size_t k = 0; k < (n - 1) / 2; ++k) x.emplace_back(r[first + 2 * k], r[first + 2 * k + 1]);
    if (n % 2 == 0) x.emplace_back(format == Format::perm ? r[1] : r[n - 1]);
    return x;
}

TYPED_TEST(FftReal, ProductsOfSpectra) {
    using R = TypeParam;
    for (int n = 1; n <= 40; ++n)
        for (Format format : {Format::perm, Format::pack})
            for (size_t offset = 0; offset < 16; offset += 4) {
                SCOPED_TRACE(testing::Message() << n << " reals, offset " << offset);
                const bool perm = format == Format::perm;
                Guarded<R> x(n, offset), y(n, (offset * 3) % 16);
                Random random(n);
                x.fill(random);
                y.fill(random);
                const auto a = spectrum_of(x.copy(), format), b = spectrum_of(y.copy(), format);
                const auto call = perm ? Products<R>::perm : Products<R>::pack_conjugate;
                ASSERT_EQ(call(x.data(), y.data(), n), tavStsNoErr);
                const auto got = spectrum_of(y.copy(), format);
                ErrorMeter<R> worst;
                for (size_t k = 0; k < a.size(); ++k) {
                    const Wide want = a[k] * (perm ? b[k] : std::conj(b[k]));
                    worst.add(got[k].real(), want.real(), std::abs(a[k]) * std::abs(b[k]));
                    worst.add(got[k].imag(), want.imag(), std::abs(a[k]) * std::abs(b[k]));
                }
                EXPECT_LE(worst.worst(), 1.5);
                EXPECT_TRUE(x.intact() && y.intact());
            }
    R value[] = {5};
    for (auto call : {Products<R>::perm, Products<R>::pack_conjugate}) {
        EXPECT_EQ(call(nullptr, value, 0), tavStsNullPtrErr);
        EXPECT_EQ(call(value, nullptr, 1), tavStsNullPtrErr);
        EXPECT_EQ(call(value, value, 0), tavStsSizeErr);
        EXPECT_EQ(value[0], 5);
    }
}

} // namespace
} // namespace vor::test
