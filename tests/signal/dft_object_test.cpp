// DFT objects: statuses and their order, methods by work size, scaling, work buffers at any address,
// failing allocations.
#include "tests/common/allocations.h"
#include "tests/signal/dft_kinds.h"
#include "tests/signal/fft_kinds.h"
#include <gtest/gtest.h>
#include <sys/resource.h>

namespace vor::test {
namespace {

int build_mark; // an address that no object has

template <class Kind>
class DftObjects : public testing::Test {};
using Kinds = testing::Types<DftComplex32, DftComplex64, DftReal32, DftReal64, DftOutOfOrder32,
                             DftOutOfOrder64>;
TYPED_TEST_SUITE(DftObjects, Kinds);

// Each method once: tiny, power of two, stages, direct, chirp; for real kinds odd and even.
constexpr int kLengths[] = {1, 2, 3, 4, 64, 4096, 60, 105, 4998, 1001, 31, 62, 158, 302, 211, 422};

TYPED_TEST(DftObjects, BuildTestsInOrder) {
    using Kind = TypeParam;
    EXPECT_EQ(Kind::build(nullptr, 0, 3, 0), tavStsNullPtrErr);
    auto* const mark = reinterpret_cast<DftCtx*>(&build_mark);
    DftCtx* object = mark;
    const auto refused = [&](int n, int flag, int status) {
        Allocations allocations;
        EXPECT_EQ(Kind::build(&object, n, flag, 0), status) << n << ", flag " << flag;
        EXPECT_EQ(object, mark);
        EXPECT_EQ(allocations.live(), 0);
    };
    refused(0, 3, tavStsSizeErr);
    refused(-5, TAV_FFT_NODIV_BY_ANY, tavStsSizeErr);
    for (int flag : {0, 3, 5, 16, -1}) refused(100, flag, tavStsFftFlagErr);
    // The largest lengths find no memory, or their sizes no room in 31 bits.
    for (int n : {0x7fffffff, 0x7ffffffe, 0x40000002, 0x10000001})
        refused(n, TAV_FFT_NODIV_BY_ANY, tavStsMemAllocErr);
}

// A long prime, whose tables do not fit the address space: that is found out before any is computed, which
// would touch the pages of the first ones.
TYPED_TEST(DftObjects, MemoryIsTakenBeforeTimeIsSpent) {
    const auto resident = [] {
        rusage usage;
        getrusage(RUSAGE_SELF, &usage);
        return usage.ru_maxrss; // KiB
    };
    auto* const mark = reinterpret_cast<DftCtx*>(&build_mark);
    DftCtx* object = mark;
    const auto before = resident();
    for (int n : {134217689, 2 * 134217689})
        EXPECT_EQ(TypeParam::build(&object, n, TAV_FFT_NODIV_BY_ANY, 0), tavStsMemAllocErr);
    EXPECT_EQ(object, mark);
    EXPECT_LT(resident() - before, 65536);
}

TYPED_TEST(DftObjects, TransformTestsInOrder) {
    using Kind = TypeParam;
    using E = typename Kind::E;
    DftObject<Kind> object(12);
    unsigned alien[64] = {4711};
    auto* const other = reinterpret_cast<DftCtx*>(alien);
    Guarded<E> x(14);
    int bytes = 0;
    EXPECT_EQ(Kind::release(nullptr), tavStsNullPtrErr);
    EXPECT_EQ(Kind::release(other), tavStsContextMatchErr);
    EXPECT_EQ(Kind::buffer_size(nullptr, &bytes), tavStsNullPtrErr);
    EXPECT_EQ(Kind::buffer_size(other, nullptr), tavStsNullPtrErr);
    EXPECT_EQ(Kind::buffer_size(other, &bytes), tavStsContextMatchErr);
    for (const auto& calls : Kind::calls)
        for (auto call : {calls.forward, calls.inverse}) {
            EXPECT_EQ(call(nullptr, nullptr, nullptr, nullptr), tavStsNullPtrErr);
            EXPECT_EQ(call(nullptr, nullptr, other, nullptr), tavStsContextMatchErr);
            EXPECT_EQ(call(nullptr, x.data(), object.get(), nullptr), tavStsNullPtrErr);
            EXPECT_EQ(call(x.data(), nullptr, object.get(), nullptr), tavStsNullPtrErr);
        }
}

TEST(DftKinds, RefuseEachOther) {
    DftObject<DftComplex64> complex_object(12);
    DftObject<DftOutOfOrder64> out_of_order(12);
    DftObject<DftReal64> real_object(12);
    cdouble x[12] = {};
    double r[14] = {};
    EXPECT_EQ(tavsDFTFwd_CToC_64fc(x, x, out_of_order.get(), nullptr), tavStsContextMatchErr);
    EXPECT_EQ(tavsDFTOutOrdInv_CToC_64fc(x, x, complex_object.get(), nullptr),
              tavStsContextMatchErr);
    EXPECT_EQ(tavsDFTFwd_RToCCS_64f(r, r, complex_object.get(), nullptr), tavStsContextMatchErr);
    EXPECT_EQ(tavsDFTInv_PackToR_32f(nullptr, nullptr, real_object.get(), nullptr),
              tavStsContextMatchErr);
}

// The size tells the method: none for tiny lengths, that of the FFT for powers of two, length and
// largest radix by stages, length by direct sum, FFT length by chirp.
template <class Kind>
void expect_elements(std::initializer_list<std::pair<int, int>> sizes) {
    constexpr int kElement = 2 * sizeof(typename Kind::R);
    for (auto [n, count] : sizes)
        EXPECT_EQ(DftObject<Kind>(n).bytes(), count * kElement + 16) << "length " << n;
}

// M = 2^order elements and what the FFT of that length asks for.
template <class Kind>
void expect_chirp(std::initializer_list<std::pair<int, int>> orders) {
    using Fft = FftCalls<std::conditional_t<sizeof(typename Kind::R) == 4, cfloat, cdouble>>;
    for (auto [n, order] : orders) {
        FftCtx* fft = nullptr;
        ASSERT_EQ(Fft::build(&fft, order, TAV_FFT_NODIV_BY_ANY, 0), tavStsNoErr);
        int bytes = 0;
        Fft::buffer_size(fft, &bytes);
        Fft::release(fft);
        const int element = 2 * sizeof(typename Kind::R);
        EXPECT_EQ(DftObject<Kind>(n).bytes(), (1 << order) * element + bytes + 16) << n;
    }
}

TEST(DftKinds, MethodsByWorkSize) {
    for (int n : {1, 2, 3, 4}) EXPECT_EQ(DftObject<DftReal32>(n).bytes(), 0);
    expect_elements<DftComplex32>(
        {{5, 5}, {149, 149}, {6, 6}, {12, 12}, {105, 112}, {22201, 22350}});
    expect_elements<DftComplex64>(
        {{5, 5}, {149, 149}, {6, 6}, {12, 12}, {105, 112}, {22201, 22350}});
    expect_elements<DftReal64>({{6, 3}, {10, 5}, {298, 149}, {105, 112}, {210, 112}});
    expect_chirp<DftComplex32>({{151, 9}, {302, 10}, {1031, 12}});
    expect_chirp<DftComplex64>({{151, 9}, {157, 9}, {302, 10}, {257, 10}, {22801, 16}});
    expect_chirp<DftReal64>({{181, 9}, {302, 9}, {257, 10}});
    // Real odd lengths by direct sum work on reals, up to 179.
    for (int n : {5, 151, 179}) EXPECT_EQ(DftObject<DftReal64>(n).bytes(), n * 8 + 16);
    for (int n : {5, 151, 179}) EXPECT_EQ(DftObject<DftReal32>(n).bytes(), n * 4 + 16);
}

// Each flag against the unscaled transform of the same object kind.
TYPED_TEST(DftObjects, ScalingFlags) {
    using Kind = TypeParam;
    using E = typename Kind::E;
    using R = typename Kind::R;
    for (int n : kLengths) {
        Random random(n);
        Guarded<E> x(n + 2), plain(n + 2), y(n + 2);
        x.fill(random);
        DftObject<Kind> unscaled(n);
        for (int flag : {TAV_FFT_DIV_FWD_BY_N, TAV_FFT_DIV_INV_BY_N, TAV_FFT_DIV_BY_SQRTN}) {
            DftObject<Kind> object(n, flag);
            for (const auto& calls : Kind::calls)
                for (bool forward : {true, false}) {
                    const auto call = forward ? calls.forward : calls.inverse;
                    call(x.data(), plain.data(), unscaled.get(), unscaled.buffer());
                    call(x.data(), y.data(), object.get(), object.buffer());
                    const bool scaled =
                        flag != (forward ? TAV_FFT_DIV_INV_BY_N : TAV_FFT_DIV_FWD_BY_N);
                    const long double factor = !scaled                        ? 1
                                               : flag == TAV_FFT_DIV_BY_SQRTN ? 1 / sqrtl(n)
                                                                              : 1.0L / n;
                    auto* const got = reinterpret_cast<const R*>(y.data());
                    auto* const reals = reinterpret_cast<const R*>(plain.data());
                    Reals want(Kind::kComplex ? 2 * n : n);
                    for (size_t i = 0; i < want.size(); ++i) want[i] = factor * reals[i];
                    EXPECT_LE(relative_error(got, want, n), 2.0) << n << ", flag " << flag;
                }
        }
    }
}

// The same values with a buffer at any address, with none, and with data at any address.
TYPED_TEST(DftObjects, Alignment) {
    using Kind = TypeParam;
    using E = typename Kind::E;
    for (int n : kLengths) {
        Random random(n);
        Guarded<E> x(n + 2), y(n + 2);
        x.fill(random);
        const auto& calls = Kind::calls[std::size(Kind::calls) - 1];
        DftObject<Kind> aligned(n);
        for (auto call : {calls.forward, calls.inverse}) {
            std::fill(y.begin(), y.end(), E{});
            ASSERT_EQ(call(x.data(), y.data(), aligned.get(), aligned.buffer()), tavStsNoErr);
            for (size_t offset = 0; offset < 16; ++offset) {
                DftObject<Kind> object(n, TAV_FFT_NODIV_BY_ANY, offset);
                Guarded<E> source(n + 2, offset), z(n + 2, 15 - offset);
                std::copy(x.begin(), x.end(), source.begin());
                std::copy(y.begin(), y.end(), z.begin());
                void* const buffer = offset == 15 ? nullptr : object.buffer();
                ASSERT_EQ(call(source.data(), z.data(), object.get(), buffer), tavStsNoErr);
                EXPECT_TRUE(same_bits(z.data(), y.data(), n + 2)) << n << " at " << offset;
                EXPECT_TRUE(object.intact() && z.intact()) << n << " at " << offset;
            }
        }
    }
}

// With the k-th allocation failing: -9, nothing kept, the out pointer as it was.
TYPED_TEST(DftObjects, FailingAllocations) {
    using Kind = TypeParam;
    using E = typename Kind::E;
    for (int n : kLengths) {
        Allocations allocations;
        auto* const mark = reinterpret_cast<DftCtx*>(&build_mark);
        DftCtx* object = mark;
        long k = 0;
        for (bool done = false; !done;) {
            allocations.fail_at(++k);
            const TavStatus status = Kind::build(&object, n, TAV_FFT_NODIV_BY_ANY, 0);
            done = !allocations.failed();
            if (done) break;
            ASSERT_EQ(status, tavStsMemAllocErr) << n << ", allocation " << k;
            ASSERT_EQ(object, mark) << n;
            ASSERT_EQ(allocations.live(), 0) << n << ", allocation " << k;
        }
        ASSERT_NE(object, mark);
        // A transform that cannot have a work buffer writes nothing.
        std::vector<E> x(n + 2), y(n + 2);
        const auto before = y;
        int bytes = 0;
        Kind::buffer_size(object, &bytes);
        for (const auto& calls : Kind::calls) {
            allocations.fail_at(1);
            const TavStatus status = calls.inverse(x.data(), y.data(), object, nullptr);
            EXPECT_EQ(status, bytes > 0 ? tavStsMemAllocErr : tavStsNoErr) << n;
            EXPECT_TRUE(bytes == 0 || same_bits(y.data(), before.data(), y.size())) << n;
        }
        Kind::release(object);
        EXPECT_EQ(allocations.live(), 0) << n;
    }
}

} // namespace
} // namespace vor::test
