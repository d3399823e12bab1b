// FFT objects: statuses, buffer sizes, failing allocations, and every table against a direct model.
#include "signal/fft/context.h"
#include "tests/common/allocations.h"
#include "tests/signal/fft_kinds.h"
#include <gtest/gtest.h>

namespace vor::test {
namespace {

template <class E>
class FftObjects : public testing::Test {};
using Types = testing::Types<cfloat, cdouble, float, double>;
TYPED_TEST_SUITE(FftObjects, Types);

template <class E>
struct Other { // a kind whose objects are refused
    using type = std::conditional_t<is_complex<E>, real_t<E>, cfloat>;
};

TYPED_TEST(FftObjects, StatusesInOrder) {
    using Calls = FftCalls<TypeParam>;
    FftCtx* const untouched = reinterpret_cast<FftCtx*>(64);
    FftCtx* object = untouched;
    EXPECT_EQ(Calls::build(nullptr, 31, 0, 0), tavStsNullPtrErr);
    for (int order : {-1, 31, INT32_MIN, INT32_MAX})
        EXPECT_EQ(Calls::build(&object, order, 0, 0), tavStsFftOrderErr) << order;
    Allocations allocations;
    for (int flag : {0, 3, 5, 16, -1})
        EXPECT_EQ(Calls::build(&object, 5, flag, 0), tavStsFftFlagErr) << flag;
    EXPECT_EQ(Calls::build(&object, 30, TAV_FFT_NODIV_BY_ANY, 0), tavStsMemAllocErr)
        << "the tables exceed the address space";
    EXPECT_EQ(allocations.live(), 0);
    EXPECT_EQ(object, untouched);

    int bytes = 7;
    EXPECT_EQ(Calls::release(nullptr), tavStsNullPtrErr);
    EXPECT_EQ(Calls::buffer_size(nullptr, &bytes), tavStsNullPtrErr);
    FftObject<typename Other<TypeParam>::type> other(5);
    EXPECT_EQ(Calls::buffer_size(other.get(), nullptr), tavStsNullPtrErr);
    EXPECT_EQ(Calls::buffer_size(other.get(), &bytes), tavStsContextMatchErr);
    EXPECT_EQ(Calls::release(const_cast<FftCtx*>(other.get())), tavStsContextMatchErr);
    EXPECT_EQ(bytes, 7);
}

TYPED_TEST(FftObjects, RecordAndFlags) {
    using R = real_t<TypeParam>;
    const long double n = 1 << 5;
    const struct {
        int flag, forward, inverse;
        long double norm;
    } rows[] = {{TAV_FFT_DIV_FWD_BY_N, 1, 0, 1 / n},
                {TAV_FFT_DIV_INV_BY_N, 0, 1, 1 / n},
                {TAV_FFT_DIV_BY_SQRTN, 1, 1, 1 / sqrtl(n)},
                {TAV_FFT_NODIV_BY_ANY, 0, 0, 0}};
    for (const auto& row : rows) {
        FftCtx* object = nullptr;
        ASSERT_EQ(FftCalls<TypeParam>::build(&object, 5, row.flag, 42), tavStsNoErr);
        // The fields stand one behind the other, and the factor is as wide as the data.
        const auto* word = reinterpret_cast<const int*>(object);
        constexpr int kComplex = sizeof(R) == 4 ? 4 : 7;
        EXPECT_EQ(*word++, is_complex<TypeParam> ? kComplex : kComplex + 2);
        EXPECT_EQ(*word++, 5);
        EXPECT_EQ(*word++, row.forward);
        EXPECT_EQ(*word++, row.inverse);
        R norm;
        std::memcpy(&norm, word, sizeof norm);
        EXPECT_EQ(norm, static_cast<R>(row.norm));
        word += sizeof(R) / sizeof(int);
        EXPECT_EQ(*word++, 42) << "hint";
        int bytes = -1;
        FftCalls<TypeParam>::buffer_size(object, &bytes);
        EXPECT_EQ(*word ? *word + 16 : 0, bytes) << "work buffer";
        EXPECT_EQ(word[1], 1) << "owned";
        FftCalls<TypeParam>::release(object);
    }
}

TYPED_TEST(FftObjects, FailedAllocationsLeakNothing) {
    for (int order : {0, 3, 4, 5, 9, 10, 11, 12, 13, 14})
        for (int k = 1;; ++k) {
            FftCtx* object = nullptr;
            Allocations allocations;
            allocations.fail_at(k);
            const auto build = FftCalls<TypeParam>::build;
            const TavStatus status = build(&object, order, TAV_FFT_NODIV_BY_ANY, 0);
            if (!allocations.failed()) {
                EXPECT_GT(k, order < 4 ? 1 : 3);
                ASSERT_EQ(FftCalls<TypeParam>::release(object), tavStsNoErr);
                EXPECT_EQ(allocations.live(), 0) << "order " << order;
                break;
            }
            EXPECT_EQ(status, tavStsMemAllocErr);
            EXPECT_EQ(object, nullptr);
            EXPECT_EQ(allocations.live(), 0) << "order " << order << ", allocation " << k;
        }
}

// ---- Tables

unsigned reversed(unsigned x, int bits) {
    unsigned result = 0;
    for (int b = 0; b < bits; ++b) result |= (x >> b & 1) << (bits - 1 - b);
    return result;
}

// Orders 9 to 30 above the engine: the order of the short side, 0 for radix-2 passes.
constexpr int kSplit64[] = {0, 0, 0, 4, 5, 6, 7, 7, 8, 9, 9, 9, 8, 8, 9, 9, 9, 9, 9, 9, 9, 9};
constexpr int kSplit32[] = {0,  0,  0,  0, 5, 6,  7,  8,  8,  8,  10,
                            10, 10, 10, 8, 8, 10, 10, 10, 10, 10, 10};

// Relative error of a table value, in eps: rounded correctly in single precision, 1.12 seen in double. A
// value that is off by two units shows.
template <class R>
constexpr double kTableBound = sizeof(R) == 4 ? 0.501 : 1.25;

// Walks the tables of an object in the order in which they stand in their block.
template <class R>
class Tables {
    using C = complex_t<R>;
    static constexpr bool kSingle = sizeof(R) == 4;
    static constexpr int kLimit = kSingle ? 10 : 9;

public:
    explicit Tables(const fft::Context<R>& object) : object_(object) {}

    void check(int m) {
        next_ = object_.tabTwd;
        buffer_ = kSingle ? 8 << std::min(m, kLimit) : 0;
        blocks(m, 0);
        EXPECT_EQ(object_.bufSize, buffer_);
        EXPECT_LE(worst_.worst(), kTableBound<R>) << "twiddles";
    }

private:
    void blocks(int m, int level) {
        const int s = m <= kLimit ? 0 : (kSingle ? kSplit32 : kSplit64)[m - 9];
        if (s) {
            blocks(m - s, level + 1);
            begins(object_.tabTwdBlk[level]);
            kernel(s);
            begins(object_.tabMulBlk[level]);
            products(m, s);
            buffer_ = std::max(buffer_, 4 * static_cast<int>(sizeof(C)) << s);
            return;
        }
        if (kSingle) buffer_ = 8 << std::min(m, kLimit);
        kernel(std::min(m, kLimit));
        if (m <= kLimit) return;
        begins(object_.tabTwdL2);
        for (int order = m; order > kLimit && (kSingle || order == m); --order)
            for (unsigned k = 0; k < 1u << order >> 2; k += 4) run(order, k, 1);
    }
    void begins(const void* table) {
        EXPECT_EQ(table, next_);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(table) % 16, 0u);
    }
    void kernel(int m) {
        if (!kSingle) {
            for (unsigned k = 0; k <= 1u << m >> 2; ++k)
                for (unsigned power = 1; power <= 3; ++power)
                    value(next_->re, next_->im, m, power * k), ++next_;
            return;
        }
        for (int order = 4 + m % 2; order <= m; order += 2)
            for (unsigned k = 0; k < 1u << order >> 2; k += 4)
                for (unsigned power = 1; power <= 3; ++power) run(order, k, power);
    }
    void products(int m, int s) {
        for (unsigned c = 0; c < 1u << (m - s); c += 4)
            for (unsigned i = 0; i < 1u << s; ++i) run(m, c, reversed(i, s));
    }
    // W^(power (k + j)) for j from 0 to 3: four values, or four real and four imaginary parts.
    void run(int order, unsigned k, unsigned power) {
        const R* part = &next_->re;
        for (unsigned j = 0; j < 4; ++j)
            value(part[kSingle ? j : 2 * j], part[kSingle ? j + 4 : 2 * j + 1], order,
                  power * (k + j));
        next_ += 4;
    }
    void value(R re, R im, int order, unsigned exponent) {
        if (roots_.size() < size_t{1} << order)
            roots_ = unit_roots(size_t{1} << order, Direction::forward);
        const Wide want = roots_[(exponent & ((1u << order) - 1)) * (roots_.size() >> order)];
        worst_.add(re, want.real(), std::fabs(want.real()));
        worst_.add(im, want.imag(), std::fabs(want.imag()));
    }

    const fft::Context<R>& object_;
    const C* next_ = nullptr;
    int buffer_ = 0;
    Spectrum roots_;
    ErrorMeter<R> worst_;
};

void expect_read_form(const unsigned* table, int m) {
    const unsigned q = 1u << m >> 2;
    for (unsigned k = 0; k <= q; ++k) ASSERT_EQ(table[k], k == q ? 0 : 2 * reversed(k, m - 2)) << k;
}

void expect_swap_form(const unsigned* table, int m) {
    const unsigned q = 1u << m >> 2;
    std::vector<unsigned> want, self;
    for (unsigned i = 0; i < q; ++i) {
        const unsigned j = reversed(i, m - 2);
        if (i < j) want.insert(want.end(), {4 * i, 4 * j});
        if (i == j && i) self.push_back(4 * i);
    }
    want.push_back(0);
    want.insert(want.end(), self.rbegin(), self.rend());
    want.push_back(0);
    ASSERT_EQ(want.size(), q + 1);
    EXPECT_EQ(std::vector<unsigned>(table, table + q + 1), want);
}

TYPED_TEST(FftObjects, TablesAndBufferSize) {
    using R = real_t<TypeParam>;
    for (int order = 0; order <= 21; order += order == 18 ? 3 : 1) {
        SCOPED_TRACE(testing::Message() << "order " << order);
        FftObject<TypeParam> built(order);
        const auto& object = fft::context_of<R>(built.get());
        int bytes = -1;
        FftCalls<TypeParam>::buffer_size(built.get(), &bytes);
        EXPECT_EQ(bytes, object.bufSize ? object.bufSize + 16 : 0);
        if (order < 4) {
            EXPECT_FALSE(object.tabBitRev || object.tabTwd || object.bufSize);
            continue;
        }
        const int m = order - !is_complex<TypeParam>;
        const unsigned* reversal = object.tabBitRev;
        sizeof(R) == 4 && m <= 9 ? expect_read_form(reversal, m) : expect_swap_form(reversal, m);
        Tables<R>(object).check(m);
        if (is_complex<TypeParam>) {
            EXPECT_FALSE(object.tabRealRec || object.tabCcsRec);
            continue;
        }
        const complex_t<R>* forward = object.tabRealRec;
        const complex_t<R>* inverse = object.tabCcsRec;
        const Spectrum roots = unit_roots(size_t{1} << order, Direction::forward);
        ErrorMeter<R> worst;
        for (size_t k = 0; k < roots.size() / 4; ++k) {
            worst.add(forward[k].re, roots[k].real() / 2, roots[k].real() / 2);
            worst.add(forward[k].im, (1 + roots[k].imag()) / 2, 1);
            worst.add(inverse[k].re, roots[k].real(), roots[k].real());
            worst.add(inverse[k].im, roots[k].imag(), -roots[k].imag());
        }
        EXPECT_LE(worst.worst(), kTableBound<R>);
    }
}

} // namespace
} // namespace vor::test
