// Complex power-of-two transforms against the oracle.
#include "tests/signal/fft_kinds.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

template <class E>
class FftComplex : public testing::Test {};
using Types = testing::Types<cfloat, cdouble>;
TYPED_TEST_SUITE(FftComplex, Types);

constexpr double kBound = 0.6; // docs/numerics.md

TYPED_TEST(FftComplex, AllOrdersAgainstTheOracle) {
    using E = TypeParam;
    WorstError worst("complex transforms");
    for (int order = 0; order <= 20; ++order) {
        FftObject<E> object(order);
        const size_t n = size_t{1} << order;
        Random random(order);
        Guarded<E> x(n), y(n);
        x.fill(random);
        for (Direction direction : {Direction::forward, Direction::inverse}) {
            const bool forward = direction == Direction::forward;
            const auto call = forward ? FftCalls<E>::forward : FftCalls<E>::inverse;
            ASSERT_EQ(call(x.data(), y.data(), object.get(), object.buffer()), tavStsNoErr);
            const double error = relative_error(y.data(), transform(widen(x.data(), n), direction));
            EXPECT_LE(worst.add(error), kBound)
                << "order " << order << (forward ? " forward" : " inverse");
            EXPECT_TRUE(y.intact());
        }
    }
}

} // namespace
} // namespace vor::test
