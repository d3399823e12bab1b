// Conversions between the storage formats with a step on either side, against the formats of the oracle.
#include "signal/format.h"
#include "tests/common/fourier.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

using signal::complexes;
using signal::convert;
using signal::reals;

constexpr Format of(signal::Format format) {
    return format == signal::Format::perm   ? Format::perm
           : format == signal::Format::pack ? Format::pack
                                            : Format::ccs;
}

// A conjugate-even spectrum of n distinct values, which stand for themselves.
Spectrum numbered(int n) {
    Spectrum x(n);
    for (int k = 0; 2 * k <= n; ++k) x[k] = Wide(10 * k + 1, k == 0 || 2 * k == n ? 0 : 10 * k + 2);
    return x;
}

template <signal::Format from, signal::Format to>
void check(int n) {
    const Spectrum x = numbered(n);
    const auto source = stored(x, of(from)), want = stored(x, of(to));
    ASSERT_EQ(signal::stored_values(to, n), static_cast<int>(want.size()));
    for (int in : {1, 3})
        for (int out : {1, 2}) {
            SCOPED_TRACE(testing::Message() << n << " by steps " << in << " and " << out);
            Guarded<double> a(in * source.size()), b(out * want.size());
            std::fill(b.begin(), b.end(), 77);
            for (size_t i = 0; i < source.size(); ++i) a[in * i] = source[i];
            convert<from, to>(reals<const double>(a.data(), in), reals(b.data(), out), n);
            for (size_t i = 0; i < b.size(); ++i)
                EXPECT_EQ(b[i], i % out ? 77 : want[i / out]) << i;
            EXPECT_TRUE(b.intact());
        }
    // In place, in room for the longer of the two.
    Guarded<double> both(std::max(source.size(), want.size()));
    std::copy(source.begin(), source.end(), both.begin());
    convert<from, to, double>(both.data(), both.data(), n);
    for (size_t i = 0; i < want.size(); ++i) EXPECT_EQ(both[i], want[i]) << n << ", " << i;
}

TEST(Format, ConversionsWithSteps) {
    constexpr auto kPerm = signal::Format::perm, kPack = signal::Format::pack,
                   kCcs = signal::Format::ccs;
    for (int n = 1; n <= 9; ++n) {
        check<kPerm, kPack>(n);
        check<kPerm, kCcs>(n);
        check<kPack, kPerm>(n);
        check<kCcs, kPerm>(n);
    }
}

// A column of complex numbers, as storage 39 has it, is a CCS spectrum whose pairs lie apart.
TEST(Format, ComplexColumn) {
    for (int n : {1, 2, 5, 8}) {
        const Spectrum x = numbered(n);
        Guarded<cdouble> column(3 * (n / 2 + 1));
        for (int k = 0; k <= n / 2; ++k)
            column[3 * k] = {static_cast<double>(x[k].real()), static_cast<double>(x[k].imag())};
        Guarded<double> perm(n);
        const cdouble* const first = column.data();
        convert<signal::Format::ccs, signal::Format::perm>(complexes(first, 3), reals(perm.data()),
                                                           n);
        const auto want = stored(x, Format::perm);
        for (int i = 0; i < n; ++i) EXPECT_EQ(perm[i], want[i]) << n << ", " << i;
    }
}

} // namespace
} // namespace vor::test
