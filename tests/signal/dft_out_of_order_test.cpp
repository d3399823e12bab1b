// Out-of-order objects: the digit-reversed order against a model, forward then inverse, and the
// lengths that stay in natural order.
#include "tests/signal/dft_kinds.h"
#include <gtest/gtest.h>
#include <numeric>

namespace vor::test {
namespace {

template <class Kind>
class DftOutOfOrder : public testing::Test {};
using Kinds = testing::Types<DftOutOfOrder32, DftOutOfOrder64>;
TYPED_TEST_SUITE(DftOutOfOrder, Kinds);

constexpr double kBound = 1.0; // docs/numerics.md

// Prime factors in ascending order, twos in pairs, a single two first.
std::vector<int> digits_of(int n) {
    std::vector<int> f;
    int fours = 0;
    for (; n % 4 == 0; n /= 4) ++fours;
    if (n % 2 == 0) f.push_back(2), n /= 2;
    f.insert(f.end(), fours, 4);
    for (int d = 3; n > 1; d += 2)
        for (; n % d == 0; n /= d) f.push_back(d);
    return f;
}

// The frequency that stands at each place: the place counted with the first factor as the fastest
// digit, the frequency with the last one.
std::vector<int> reversed_order(int n) {
    const auto f = digits_of(n);
    std::vector<int> order(n);
    for (int place = 0; place < n; ++place) {
        int rest = place, weight = n;
        for (int radix : f) {
            weight /= radix;
            order[place] += rest % radix * weight;
            rest /= radix;
        }
    }
    return order;
}

bool reorders(int n, int limit) {
    const auto f = digits_of(n);
    return n >= limit && f.size() > 1 && f.back() < 150 && (n & (n - 1)) != 0;
}

TYPED_TEST(DftOutOfOrder, OrderAndValues) {
    using Kind = TypeParam;
    constexpr int kLimit = sizeof(typename Kind::R) == 4 ? 2001 : 5001;
    WorstError worst("out-of-order transforms");
    // Tiny, direct, chirp, power of two; below and above the limit; two stages and many; generic
    // radices at every level; blocks of one element; levels split and swept.
    for (int n : {3,    4,     97,    1009,     4096,  1998,  2000,  2001,  2002,
                  2010, 2023,  4998,  5000,     5001,  5005,  5040,  6561,  7007,
                  9261, 12000, 15015, 3 * 4096, 22201, 26364, 50625, 100000}) {
        SCOPED_TRACE(testing::Message() << "length " << n);
        DftObject<Kind> object(n);
        Random random(n);
        Guarded<typename Kind::E> x(n), y(n), in_place(n);
        x.fill(random);
        std::copy(x.begin(), x.end(), in_place.begin());
        const auto source = x.copy();
        const auto& calls = Kind::calls[0];
        ASSERT_EQ(calls.forward(x.data(), y.data(), object.get(), object.buffer()), tavStsNoErr);
        EXPECT_TRUE(same_bits(x.data(), source.data(), source.size()));
        calls.forward(in_place.data(), in_place.data(), object.get(), nullptr);
        EXPECT_TRUE(same_bits(in_place.data(), y.data(), y.size()));
        EXPECT_TRUE(y.intact() && object.intact());

        const Spectrum natural = transform(widen(x.data(), n), Direction::forward);
        std::vector<int> order(n);
        std::iota(order.begin(), order.end(), 0);
        if (reorders(n, kLimit)) order = reversed_order(n);
        Spectrum want;
        for (int k : order) want.push_back(natural[k]);
        EXPECT_LE(worst.add(relative_error(y.data(), want)), kBound);

        // The inverse reads that order: out of place, with its source untouched, and in place.
        const auto spectrum = y.copy();
        Guarded<typename Kind::E> back(n);
        calls.inverse(y.data(), back.data(), object.get(), object.buffer());
        EXPECT_TRUE(same_bits(y.data(), spectrum.data(), y.size()));
        calls.inverse(y.data(), y.data(), object.get(), object.buffer());
        EXPECT_TRUE(same_bits(y.data(), back.data(), y.size()));
        Spectrum signal = widen(x.data(), n);
        for (Wide& v : signal) v *= n;
        EXPECT_LE(worst.add(relative_error(back.data(), signal)), 2 * kBound) << "and back";
        EXPECT_TRUE(back.intact() && object.intact());
    }
}

// A plan out of order needs scratch for its large radices alone.
TYPED_TEST(DftOutOfOrder, BufferSizes) {
    using Kind = TypeParam;
    constexpr int kElement = sizeof(typename Kind::E);
    EXPECT_EQ(DftObject<Kind>(10125).bytes(), 0);
    EXPECT_EQ(DftObject<Kind>(15015).bytes(), 13 * kElement + 16);
    EXPECT_EQ(DftObject<Kind>(1001).bytes(), (1001 + 13) * kElement + 16);
}

} // namespace
} // namespace vor::test
