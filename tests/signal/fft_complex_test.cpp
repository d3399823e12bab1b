// Complex power-of-two transforms and their steps.
#include "signal/fft/context.h"
#include "signal/fft/kernels.h"
#include "tests/common/allocations.h"
#include "tests/signal/fft_kinds.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

template <class E>
class FftComplex : public testing::Test {};
using Types = testing::Types<cfloat, cdouble>;
TYPED_TEST_SUITE(FftComplex, Types);

// docs/numerics.md
template <class E>
constexpr double kBound = sizeof(real_t<E>) == 4 ? 0.4 : 0.17;
constexpr Direction kDirections[] = {Direction::forward, Direction::backward};

template <class E>
Transform<E> call_of(Direction direction) {
    return direction == Direction::forward ? FftCalls<E>::forward : FftCalls<E>::inverse;
}

TYPED_TEST(FftComplex, AllOrdersAgainstTheOracle) {
    using E = TypeParam;
    WorstError worst("complex transforms");
    for (int order = 0; order <= 20; ++order) {
        FftObject<E> object(order);
        const size_t n = size_t{1} << order;
        Random random(order);
        Guarded<E> x(n), y(n);
        x.fill(random);
        for (Direction direction : kDirections) {
            const auto call = call_of<E>(direction);
            ASSERT_EQ(call(x.data(), y.data(), object.get(), object.buffer()), tavStsNoErr);
            const Spectrum want = transform(widen(x.data(), n), direction);
            EXPECT_LE(worst.add(relative_error(y.data(), want)), kBound<E>) << "order " << order;
            EXPECT_TRUE(y.intact());
        }
    }
}

// Orders where the cut of the blocks changes, too long for the oracle: impulses at random places, whose
// transform is known term by term, and the energy of the whole.
TYPED_TEST(FftComplex, LongTransformsOfImpulses) {
    using E = TypeParam;
    using R = real_t<E>;
    const long double turn = 2 * acosl(-1.0L);
    for (int order : sizeof(R) == 4 ? std::vector{21, 22, 23} : std::vector{21, 22}) {
        const size_t n = size_t{1} << order;
        FftObject<E> object(order);
        ASSERT_TRUE(object.get());
        std::vector<E> x(n);
        Random random(order);
        const size_t places[] = {n / 3, n / 2 + 1, n - 1};
        long double energy = 0;
        for (size_t place : places) {
            x[place] = random.next<E>();
            energy += x[place].re * x[place].re + x[place].im * x[place].im;
        }
        const auto input = x;
        FftCalls<E>::forward(x.data(), x.data(), object.get(), object.buffer());
        Spectrum want;
        std::vector<E> got;
        for (int sample = 0; sample < 20000; ++sample) {
            const size_t k = random.bits() % n;
            got.push_back(x[k]);
            Wide sum = 0;
            for (size_t place : places) {
                const long double angle = -turn * ((place * uint64_t{k}) % n) / n;
                sum += Wide(input[place].re, input[place].im) * Wide(cosl(angle), sinl(angle));
            }
            want.push_back(sum);
        }
        EXPECT_LE(relative_error(got.data(), want), kBound<E>) << "order " << order;
        long double spectral = 0;
        for (const E& value : x) spectral += value.re * value.re + value.im * value.im;
        EXPECT_NEAR(static_cast<double>(spectral / n / energy), 1,
                    order * std::numeric_limits<R>::epsilon());
    }
}

// In place, any alignment of data and buffer, own buffer: the same bits, nothing else written.
TYPED_TEST(FftComplex, PlaceAndAlignmentChangeNothing) {
    using E = TypeParam;
    for (int order = 0; order <= 17; ++order)
        for (Direction direction : kDirections) {
            FftObject<E> object(order, TAV_FFT_DIV_BY_SQRTN);
            const auto call = call_of<E>(direction);
            const size_t n = size_t{1} << order;
            Random random(order);
            Guarded<E> x(n), want(n);
            x.fill(random);
            int bytes = 0;
            FftCalls<E>::buffer_size(object.get(), &bytes);
            call(x.data(), want.data(), object.get(), object.buffer());
            for (size_t offset = 0; offset<16; offset += order> 13 ? 5 : 1) {
                SCOPED_TRACE(testing::Message() << "order " << order << ", offset " << offset);
                Guarded<E> source(n, offset), y(n, (7 * offset) % 16);
                Guarded<char> buffer(bytes, offset);
                std::copy(x.begin(), x.end(), source.begin());
                call(source.data(), y.data(), object.get(), bytes ? buffer.data() : nullptr);
                ASSERT_TRUE(same_bits(y.data(), want.data(), n)) << "out of place";
                ASSERT_TRUE(same_bits(source.data(), x.data(), n)) << "source";
                call(source.data(), source.data(), object.get(), nullptr);
                ASSERT_TRUE(same_bits(source.data(), want.data(), n)) << "in place, own buffer";
                ASSERT_TRUE(y.intact() && source.intact() && buffer.intact());
            }
        }
}

TYPED_TEST(FftComplex, ScaleFactors) {
    using E = TypeParam;
    using R = real_t<E>;
    for (int order = 0; order <= 15; ++order)
        for (int flag : {TAV_FFT_DIV_FWD_BY_N, TAV_FFT_DIV_INV_BY_N, TAV_FFT_DIV_BY_SQRTN})
            for (Direction direction : kDirections) {
                const size_t n = size_t{1} << order;
                const int own =
                    direction == Direction::forward ? TAV_FFT_DIV_FWD_BY_N : TAV_FFT_DIV_INV_BY_N;
                const long double scale = flag == TAV_FFT_DIV_BY_SQRTN ? 1 / sqrtl(n)
                                          : flag == own                ? 1.0L / n
                                                                       : 1;
                FftObject<E> plain(order), scaled(order, flag);
                Random random(order);
                Guarded<E> x(n), y(n), z(n);
                x.fill(random);
                call_of<E>(direction)(x.data(), y.data(), plain.get(), plain.buffer());
                call_of<E>(direction)(x.data(), z.data(), scaled.get(), scaled.buffer());
                std::vector<long double> want;
                for (const E& value : y)
                    for (R part : {value.re, value.im}) want.push_back(part * scale);
                EXPECT_LE(relative_error(&z[0].re, want, n), 1) << "order " << order << ' ' << flag;
            }
}

TYPED_TEST(FftComplex, StatusesInOrder) {
    using E = TypeParam;
    FftObject<E> object(13);
    FftObject<real_t<E>> real(13);
    std::vector<E> x(1 << 13, E{1, 2}), y(1 << 13, E{3, 4});
    for (Direction direction : kDirections) {
        const auto call = call_of<E>(direction);
        EXPECT_EQ(call(nullptr, nullptr, nullptr, nullptr), tavStsNullPtrErr);
        EXPECT_EQ(call(nullptr, y.data(), real.get(), nullptr), tavStsContextMatchErr);
        EXPECT_EQ(call(nullptr, y.data(), object.get(), nullptr), tavStsNullPtrErr);
        EXPECT_EQ(call(x.data(), nullptr, object.get(), nullptr), tavStsNullPtrErr);
        Allocations allocations;
        allocations.fail_at(1);
        EXPECT_EQ(call(x.data(), y.data(), object.get(), nullptr), tavStsMemAllocErr);
        EXPECT_EQ(call(x.data(), y.data(), object.get(), nullptr), tavStsNoErr);
        EXPECT_EQ(allocations.calls(), 2) << "the buffer alone is allocated";
        EXPECT_EQ(call(x.data(), x.data(), object.get(), object.buffer()), tavStsNoErr);
        EXPECT_EQ(allocations.calls(), 2) << "nothing is allocated beside a given buffer";
        EXPECT_EQ(allocations.live(), 0);
    }
}

// ---- Steps

template <class E>
void expect_reversal(void (*in_place)(E*, int, const unsigned*),
                     void (*out_of_place)(const E*, E*, int, const unsigned*)) {
    const unsigned four[] = {0, 0}, eight[] = {0, 4, 0}; // which no object has in this form
    for (int order = 0; order <= 15; ++order) {
        const int n = 1 << order;
        const FftObject<cdouble> object(order);
        const auto* table = order == 2   ? four
                            : order == 3 ? eight
                                         : fft::context_of<double>(object.get()).tabBitRev;
        for (size_t offset : {0, 4, 8}) {
            Guarded<E> x(n, offset), y(n, 8 - offset);
            Random random(order);
            x.fill(random);
            const auto before = x.copy();
            out_of_place(x.data(), y.data(), n, table);
            in_place(x.data(), n, table);
            for (int k = 0; k < n; ++k) {
                int reversed = 0;
                for (int b = 0; b < order; ++b) reversed |= (k >> b & 1) << (order - 1 - b);
                ASSERT_TRUE(same_bits(x[k], before[reversed])) << n << ' ' << k;
                ASSERT_TRUE(same_bits(y[k], before[reversed])) << n << ' ' << k;
            }
            ASSERT_TRUE(x.intact() && y.intact());
        }
    }
}

TEST(FftSteps, BitReversal) {
    expect_reversal<cfloat>(tavs_BitRev1_C, tavs_BitRev2_C);
    expect_reversal<cdouble>(tavs_BitRev1_Z, tavs_BitRev2_Z);
}

// With interleave 0 the same numbers stand in groups: four real parts, four imaginary parts.
TEST(FftSteps, KernelInFourLaneForm) {
    for (int order = 4; order <= 10; ++order)
        for (size_t offset = 0; offset < 16; offset += 4)
            for (auto kernel : {tavs_cRadix4Fwd_32fc, tavs_cRadix4Inv_32fc}) {
                const int n = 1 << order;
                FftObject<cfloat> object(order);
                const auto* table = fft::context_of<float>(object.get()).tabTwd;
                Guarded<cfloat> x(n, offset), y(n, offset);
                Guarded<float> buffer(2 * n);
                Random random(order);
                x.fill(random);
                std::copy(x.begin(), x.end(), y.begin());
                kernel(x.data(), n, table, buffer.data(), 1);
                kernel(y.data(), n, table, buffer.data(), 0);
                for (int k = 0; k < n; ++k) {
                    const float* group = &y[k & ~3].re;
                    ASSERT_EQ(group[k % 4], x[k].re) << n << ' ' << k;
                    ASSERT_EQ(group[k % 4 + 4], x[k].im) << n << ' ' << k;
                }
                ASSERT_TRUE(x.intact() && y.intact() && buffer.intact());
            }
}

} // namespace
} // namespace vor::test
