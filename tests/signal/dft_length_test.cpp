// Transforms of any length against the oracle: every length up to 2100, then the seams above.
#include "tests/signal/dft_kinds.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

constexpr double kBound = 1.0; // docs/numerics.md

// A random sequence that both precisions hold, and its spectrum; and the same of its real part.
struct Sequence {
    explicit Sequence(int n) : values(n), real_spectrum(n) {
        Random random(n);
        for (Wide& v : values) {
            const float re = random.next<float>();
            v = Wide(re, random.next<float>());
        }
        spectrum = transform(values, Direction::forward);
        for (int k = 0; k < n; ++k)
            real_spectrum[k] = (spectrum[k] + std::conj(spectrum[(n - k) % n])) / 2.0L;
    }
    Spectrum values, spectrum, real_spectrum;
};

struct Errors {
    WorstError forward32{"32-bit forward"}, inverse32{"32-bit inverse"};
    WorstError forward64{"64-bit forward"}, inverse64{"64-bit inverse"};
};

// One transform of the reals `x`: the result, which stands between untouched bytes. In place it is
// the same, and out of place the source stays.
template <class Kind>
auto run(DftTransform<typename Kind::E> call, DftObject<Kind>& object, const Reals& x,
         size_t count) {
    auto source = elements<Kind>(x);
    const auto before = source.copy();
    Guarded<typename Kind::E> y(count), in_place(std::max(count, source.size()));
    std::copy(source.begin(), source.end(), in_place.begin());
    EXPECT_EQ(call(source.data(), y.data(), object.get(), object.buffer()), tavStsNoErr);
    EXPECT_TRUE(same_bits(source.data(), before.data(), before.size())) << "source written";
    EXPECT_EQ(call(in_place.data(), in_place.data(), object.get(), object.buffer()), tavStsNoErr);
    EXPECT_TRUE(same_bits(in_place.data(), y.data(), count)) << "in place differs";
    EXPECT_TRUE(y.intact() && in_place.intact() && object.intact()) << "write outside";
    return y;
}

// Forward from the sequence, inverse from the rounded spectrum of the oracle, in every format.
template <class Kind>
void check(int n, const Sequence& sequence, WorstError& forward_error, WorstError& inverse_error) {
    SCOPED_TRACE(testing::Message() << "length " << n);
    constexpr size_t kReals = Kind::kComplex ? 2 : 1;
    DftObject<Kind> object(n);
    const Reals signal = signal_of<Kind>(sequence.values);
    for (const auto& calls : Kind::calls) {
        const auto& exact = Kind::kComplex ? sequence.spectrum : sequence.real_spectrum;
        const Reals spectrum = spectrum_of<Kind>(exact, calls.format);
        const auto y = run<Kind>(calls.forward, object, signal, spectrum.size() / kReals);
        EXPECT_LE(forward_error.add(error_of<Kind>(y.data(), spectrum, n)), kBound) << "forward";

        const auto back = run<Kind>(calls.inverse, object, spectrum, n);
        Reals want = signal;
        for (long double& v : want) v *= n;
        EXPECT_LE(inverse_error.add(error_of<Kind>(back.data(), want, n)), kBound) << "inverse";
    }
}

void check_length(int n, Errors& errors) {
    const Sequence sequence(n);
    check<DftComplex32>(n, sequence, errors.forward32, errors.inverse32);
    check<DftReal32>(n, sequence, errors.forward32, errors.inverse32);
    check<DftComplex64>(n, sequence, errors.forward64, errors.inverse64);
    check<DftReal64>(n, sequence, errors.forward64, errors.inverse64);
}

TEST(DftLength, EveryLengthUpTo2100) {
    Errors errors;
    for (int n = 1; n <= 2100 && !testing::Test::HasFailure(); ++n) check_length(n, errors);
}

// Both sides of the limits of sweeps and out-of-order plans, repeated large radices, the largest
// radix, twice a prime on both sides of the direct limit, long primes, the lengths of the benches.
TEST(DftLength, Seams) {
    Errors errors;
    for (int n : {2 * 1009,
                  3 * 997,
                  4001,
                  4002,
                  4003,
                  4999,
                  5000,
                  5001,
                  5005,
                  7 * 7 * 3 * 32,
                  13 * 13 * 13 * 3,
                  149 * 149,
                  2 * 149 * 149,
                  151 * 151,
                  3600,
                  59049,
                  6561 * 5,
                  15015,
                  16 * 1009,
                  20011,
                  30030,
                  100000})
        if (!testing::Test::HasFailure()) check_length(n, errors);
}

// Long sequences of a few impulses, of which each bin is a short sum.
template <class Kind>
void check_impulses(int n, WorstError& worst) {
    SCOPED_TRACE(testing::Message() << "length " << n);
    using E = typename Kind::E;
    Random random(n);
    Spectrum values(n), spectrum(n);
    const Spectrum roots = unit_roots(n, Direction::forward);
    for (int i = 0; i < 6; ++i) {
        const int position = random.below(n);
        const float height = random.next<float>();
        values[position] += height;
        for (int64_t k = 0; k < n; ++k) spectrum[k] += roots[k * position % n] * Wide(height);
    }
    DftObject<Kind> object(n);
    const auto& calls = Kind::calls[0];
    const auto x = elements<Kind>(signal_of<Kind>(values));
    Guarded<E> y(n);
    ASSERT_EQ(calls.forward(x.data(), y.data(), object.get(), object.buffer()), tavStsNoErr);
    const Reals want = spectrum_of<Kind>(spectrum, calls.format);
    EXPECT_LE(worst.add(error_of<Kind>(y.data(), want, n)), kBound);
    EXPECT_TRUE(y.intact() && object.intact());
    // The same spectrum back, in the place where it stands.
    ASSERT_EQ(calls.inverse(y.data(), y.data(), object.get(), object.buffer()), tavStsNoErr);
    Reals back = signal_of<Kind>(values);
    for (long double& v : back) v *= n;
    EXPECT_LE(worst.add(error_of<Kind>(y.data(), back, n)), 2 * kBound) << "and back";
}

TEST(DftLength, LongLengths) {
    WorstError worst("long lengths");
    for (int n : {131071, 531441, 786432, 823543, 999999, 2 * 262139}) {
        check_impulses<DftComplex32>(n, worst);
        check_impulses<DftComplex64>(n, worst);
        check_impulses<DftReal32>(n, worst);
        check_impulses<DftReal64>(n, worst);
    }
}

} // namespace
} // namespace vor::test
