// Real power-of-two transforms and products of spectra against the oracle.
#include "tests/signal/fft_kinds.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

template <class R>
class FftReal : public testing::Test {};
using Types = testing::Types<float, double>;
TYPED_TEST_SUITE(FftReal, Types);

constexpr double kBound = 0.6; // docs/numerics.md

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
            const auto status = calls.forward(x.data(), y.data(), object.get(), object.buffer());
            ASSERT_EQ(status, tavStsNoErr);
            EXPECT_LE(worst.add(relative_error(y.data(), stored(want, calls.format), n)), kBound)
                << "order " << order;
            // The inverse of an independent spectrum, stored in this precision, gives N x.
            const auto spectrum = stored(want, calls.format);
            Guarded<R> source(n);
            std::copy(spectrum.begin(), spectrum.end(), source.begin());
            calls.inverse(source.data(), back.data(), object.get(), object.buffer());
            std::vector<long double> input(x.begin(), x.end());
            for (auto& value : input) value *= n;
            EXPECT_LE(worst.add(relative_error(back.data(), input, n)), kBound)
                << "order " << order;
            EXPECT_TRUE(y.intact() && back.intact());
        }
    }
}

} // namespace
} // namespace vor::test
