// Statuses and room of the big-number layer, its word arrays at the seams of their loops.
#include "tests/gmp/big_number.h"

#include <functional>

namespace vor::test {
namespace {

using Words = std::vector<uint32_t>;

// Words that provoke carries: many zeros and all-ones among random ones.
Words provoking(Random& random, int n) {
    Words words(static_cast<size_t>(n));
    for (uint32_t& w : words) {
        const uint32_t kinds[] = {0, ~0u, 1u << random.below(32),
                                  static_cast<uint32_t>(random.bits())};
        w = kinds[random.below(4)];
    }
    return words;
}

// r += a w or r -= a w, word by word; what falls off.
uint32_t add_row(uint32_t* r, const Words& a, uint32_t w, bool subtract) {
    uint64_t carry = 0;
    for (const uint32_t x : a) {
        carry += uint64_t{x} * w;
        const uint32_t low = static_cast<uint32_t>(carry), old = *r;
        *r = subtract ? old - low : old + low;
        carry = (carry >> 32) + (subtract ? old < low : *r < low);
        ++r;
    }
    return static_cast<uint32_t>(carry);
}

Words product(const Words& a, const Words& b) {
    Words r(a.size() + b.size());
    for (size_t j = 0; j < b.size(); ++j) r[j + a.size()] = add_row(&r[j], a, b[j], false);
    return r;
}

TEST(Arrays, SumsAndRowsOfEveryLength) {
    Random random(1);
    for (int n = 1; n <= 40; ++n) {
        const Words a = provoking(random, n), b = provoking(random, n), zero(a.size());
        // f finds `from` in r and makes it start + a w or start - a w.
        const auto check = [&](const Words& start, uint32_t w, bool subtract, const Words& from,
                               auto f) {
            SCOPED_TRACE(std::to_string(n) + " words by " + std::to_string(w));
            Words want = start;
            const uint32_t beyond = add_row(want.data(), a, w, subtract);
            Guarded<uint32_t> r(a.size());
            std::copy(from.begin(), from.end(), r.begin());
            uint32_t got = 77;
            f(r.data(), &got);
            EXPECT_EQ(r.copy(), want);
            EXPECT_EQ(got, beyond);
            EXPECT_TRUE(r.intact());
        };
        const auto *const x = a.data(), *const y = b.data();
        check(b, 1, false, b, [&](auto* r, auto* c) { cpAdd_BNU(r, x, r, n, c); });
        check(b, 1, false, a, [&](auto* r, auto* c) { cpAdd_BNU(y, r, r, n, c); });
        check(b, 1, false, zero, [&](auto* r, auto* c) { tavsAdd_BNU(x, y, r, n, c); });
        check(b, 1, true, b, [&](auto* r, auto* c) { cpSub_BNU(r, x, r, n, c); });
        check(b, 1, true, a, [&](auto* r, auto* c) { cpSub_BNU(y, r, r, n, c); });
        check(b, 1, true, zero, [&](auto* r, auto* c) { tavsSub_BNU(y, x, r, n, c); });
        for (const uint32_t w : {0u, 1u, 0x80000000u, ~0u, static_cast<uint32_t>(random.bits())}) {
            check(zero, w, false, a, [&](auto* r, auto* c) { tavsMulOne_BNU(r, r, n, w, c); });
            check(b, w, false, b, [&](auto* r, auto* c) { tavsMACOne_BNU_I(x, r, n, w, c); });
            check(b, w, true, b, [&](auto* r, auto* c) { cpSubMulDgt_BNU(x, r, n, w, c); });
        }
    }
}

TEST(Arrays, ProductsOfEveryLength) {
    Random random(3);
    const auto step = [](int n) {
        return n < 36 ? n + 1 : n + 27;
    }; // blocks of 32 words: 63 and 90 too
    for (int an = 1; an <= 90; an = step(an)) {
        for (int bn = 1; bn <= 90; bn = step(bn)) {
            SCOPED_TRACE(std::to_string(an) + " by " + std::to_string(bn));
            for (const bool extreme : {true, false}) {
                const Words a =
                    extreme ? Words(static_cast<size_t>(an), ~0u) : provoking(random, an);
                const Words b =
                    extreme ? Words(static_cast<size_t>(bn), ~0u) : provoking(random, bn);
                const Words want = product(a, b), square = product(a, a);
                const auto check = [](const Words& expected, auto f) {
                    Guarded<uint32_t> r(expected.size());
                    f(r.data());
                    ASSERT_EQ(r.copy(), expected);
                    ASSERT_TRUE(r.intact());
                };
                const auto *const x = a.data(), *const y = b.data();
                check(want, [&](auto* r) { cpMul_BNU_FullSize(x, an, y, bn, r); });
                if (an != bn) continue;
                if (an == 4) check(want, [&](auto* r) { tavsMul_BNU4(x, y, r); });
                if (an == 8) check(want, [&](auto* r) { tavsMul_BNU8(x, y, r); });
                if (an == 4) check(square, [&](auto* r) { tavsSqr_BNU4(x, r); });
                if (an == 8) check(square, [&](auto* r) { tavsSqr_BNU8(x, r); });
            }
        }
    }
    const uint32_t words[] = {0, 1, ~0u};
    uint32_t squares[6];
    EXPECT_EQ(tavsSqr_32u64u(words, 3, squares), tavStsNoErr);
    EXPECT_EQ(Words(squares, squares + 6), (Words{0, 0, 1, 0, 1, ~0u - 1}));
}

TEST(Arrays, RoomOfSumsAndProducts) {
    const Words ones(3, ~0u), one{1};
    Words r(4);
    int n;
    EXPECT_EQ(cpAdd_BNUs(ones.data(), 3, one.data(), 1, r.data(), &n, 3), 0);
    EXPECT_EQ(cpAdd_BNUs(one.data(), 1, ones.data(), 3, r.data(), &n, 4), 1);
    EXPECT_EQ(n, 4);
    EXPECT_EQ(r, (Words{0, 0, 0, 1}));
    unsigned sgn;
    cpSub_BNUs(one.data(), 1, ones.data(), 3, r.data(), &n, &sgn);
    EXPECT_EQ(sgn, 0u);
    EXPECT_EQ(Words(r.begin(), r.begin() + n), (Words{~0u - 1, ~0u, ~0u}));
    cpSub_BNUs(ones.data(), 3, ones.data(), 3, r.data(), &n, &sgn);
    EXPECT_EQ(sgn, 1u);
    EXPECT_EQ(n, 1);
    // 2 x 2 words: a product of three words fits three, one of four does not.
    const Words small{~0u, 1}, big{~0u, 0x10000};
    Guarded<uint32_t> p(3);
    EXPECT_EQ(cpMul_BNUs(small.data(), 2, small.data(), 2, p.data(), &(n = 3)), 1);
    EXPECT_EQ(p.copy(), (Words{1, ~0u - 3, 3}));
    EXPECT_EQ(cpMul_BNUs(big.data(), 2, big.data(), 2, p.data(), &(n = 3)), 0);
    EXPECT_EQ(cpMul_BNUs(one.data(), 1, one.data(), 1, p.data(), &(n = 1)), 1);
    EXPECT_EQ(n, 1);
    p[0] = ~0u;
    n = 1;
    EXPECT_EQ(cpMAC_BNU(one.data(), 1, one.data(), 1, p.data(), &n, 1), 0);
    p[0] = ~0u;
    n = 1;
    EXPECT_EQ(cpMAC_BNU(ones.data(), 1, ones.data(), 1, p.data(), &n, 2), 1);
    EXPECT_EQ(Words(p.begin(), p.begin() + n), (Words{0, ~0u}));
    EXPECT_TRUE(p.intact());
}

TEST(Words, BitsShiftsAndComparisons) {
    EXPECT_EQ(NLZ32u(0), 32);
    EXPECT_EQ(NTZ32u(0), 32);
    for (int i = 0; i < 32; ++i) {
        EXPECT_EQ(NLZ32u(~0u >> i), i);
        EXPECT_EQ(NTZ32u(~0u << i), i);
    }
    const Words a{0, 0x80000001, 0};
    EXPECT_EQ(LSB_BNU(a.data(), 3), 32);
    EXPECT_EQ(MSB_BNU(a.data(), 3), 63);
    EXPECT_EQ(LSB_BNU(a.data(), 1), 32);
    EXPECT_EQ(MSB_BNU(a.data(), 1), -1);
    EXPECT_EQ(Tst_BNU(a.data(), 3), 2);
    EXPECT_EQ(Tst_BNU(a.data(), 1), 0);
    EXPECT_EQ(MSD_BNU(a.data(), 1), 1);
    EXPECT_EQ(Cmp_BNU(a.data(), 3, a.data(), 2), 0);
    EXPECT_EQ(cpCompare_BNUs(a.data(), 3, a.data(), 2), 1);
    EXPECT_EQ(cpCmp_BNU(a.data() + 1, a.data(), 2), -1);
    for (const unsigned s : {0u, 1u, 31u, 33u}) { // the low five bits count
        Words r{5, 6, 7};
        const int n = LSL_BNU(a.data(), r.data(), 2, s);
        EXPECT_EQ(n, s ? 3 : 2);
        EXPECT_EQ(LSR_BNU(r.data(), r.data(), n, s), 2);
        EXPECT_EQ(r[0], a[0]);
        EXPECT_EQ(r[1], a[1]);
    }
    Words b{0x01020304, 0xfffefdfc};
    cpEndianChange(b.data(), 2);
    EXPECT_EQ(b, (Words{0x04030201, 0xfcfdfeff}));
    EXPECT_EQ(cpGCD32u(0, 5), 5u);
    EXPECT_EQ(cpGCD32u(5, 0), 5u);
    EXPECT_EQ(cpGCD32u(48, 180), 12u);
}

TEST(Division, TwoWordsByOne) {
    unsigned q, r;
    EXPECT_EQ(tavsDiv_64u32u(5, 1, 2, &q, &r), tavStsNoErr);
    EXPECT_EQ(q, 0x80000002u);
    EXPECT_EQ(r, 1u);
    EXPECT_EQ(tavsDiv_64u32u(5, 0, 0, &q, &r), tavStsDivByZeroErr);
    EXPECT_EQ(tavsDiv_64u32u(5, 2, 2, &q, &r), tavStsOutOfRangeErr);
    EXPECT_EQ(tavsDiv_64u32u(5, 2, 2, nullptr, &r), tavStsNullPtrErr);
    EXPECT_EQ(cpDiv64u32u(5, 1, 2), (1ull << 32 | 0x80000002u));
}

TEST(Objects, LayoutAndSizes) {
    int size;
    EXPECT_EQ(tavsBigNumGetSize(1, &size), tavStsNoErr);
    EXPECT_EQ(size, 48);
    EXPECT_EQ(tavsBigNumGetSize(2, &size), tavStsNoErr);
    EXPECT_EQ(size, 64);
    EXPECT_EQ(tavsMontGetSize(0, 1, &size), tavStsNoErr);
    EXPECT_EQ(size, 2 * 48 + 32 + 64 + 4);
    for (const int len : {0, -1, 1 << 30}) { // the last has no size in an int
        EXPECT_EQ(tavsBigNumGetSize(len, &size), tavStsLengthErr);
        EXPECT_EQ(tavsMontGetSize(0, len, &size), tavStsLengthErr);
    }
    Bn x(Int("-fedcba9876543210"), 5);
    auto* state = reinterpret_cast<BigNumState*>(
        (reinterpret_cast<uintptr_t>(static_cast<BigNumState*>(x)) + 3) & ~uintptr_t{3});
    EXPECT_EQ(state->idCtx, 0x4C4D5352u);
    EXPECT_EQ(state->size, 2);
    EXPECT_EQ(state->room, 5);
    EXPECT_EQ(state->number, reinterpret_cast<unsigned*>(state + 1));
    EXPECT_EQ(state->buffer, state->number + 6);
    EXPECT_EQ(sizeof(BigNumState), 24u);
    EXPECT_EQ(sizeof(MontState), 32u);
}

TEST(Objects, ComparisonsAndSigns) {
    const long long values[] = {-0x100000000, -3, -2, 0, 1, 2, 0x100000000};
    for (const long long a : values) {
        Bn x(Int(a), 2);
        unsigned relation;
        EXPECT_EQ(tavsCmpZero_BN(x, &relation), tavStsNoErr);
        EXPECT_EQ(relation, a == 0 ? 0u : a > 0 ? 1u : 2u);
        for (const long long b : values) {
            Bn y(Int(b), 2);
            EXPECT_EQ(tavsCmp_BN(x, y, &relation), tavStsNoErr);
            EXPECT_EQ(relation, a == b ? 0u : a > b ? 1u : 2u) << a << " " << b;
        }
    }
    const unsigned zeros[3] = {};
    Bn zero(3);
    EXPECT_EQ(tavsSet_BN(TavsBigNumNEG, 3, zeros, zero), tavStsNoErr);
    EXPECT_EQ(zero.value(), Int(0)) << "zero is positive";
}

TEST(Objects, UncheckedHelpers) {
    alignas(4) char memory[64];
    auto* state = reinterpret_cast<BigNumState*>(memory);
    EXPECT_EQ(cpBigNumInitSet(state, TavsBigNumNEG, 9), tavStsNoErr);
    EXPECT_TRUE(Tst_BN(state) == -1 && IsOdd_BN(state) == 1 && Cmp_BN(state, BN_OneRef()) == -1);
    BN_Power2(state, 32); // no room
    EXPECT_EQ(state->number[0], 9u);
    BN_Power2(state, 31);
    EXPECT_EQ(state->number[0], 0x80000000u);
    BN_copy(BN_TwoRef(), state);
    EXPECT_EQ(Cmp_BN(state, BN_TwoRef()), 0);
    EXPECT_TRUE(IsOne_BN(BN_OneRef()) == 1 && IsOne_BN(BN_TwoRef()) == 0);
    BN_Zero(state);
    EXPECT_EQ(IsZero_BN(state), 1);
    BN_Word(state, 1);
    EXPECT_EQ(IsOne_BN(state), 1);
}

// A refused call names its reason and leaves the result as it was.
struct Refusal {
    const char* call;
    TavStatus want;
    std::function<TavStatus(BigNumState*)> run;
};
#define REFUSAL(want, call)                                                                        \
    Refusal {                                                                                      \
#call, want, [&](auto* r) { return call; }                                                 \
    }

// Null pointers come before kinds, kinds before lengths, signs and ranges, as each function has them.
TEST(Objects, RefusalsInTheirOrder) {
    Bn one(Int(1)), two(Int(2)), zero(Int(0)), minus(Int(-1)), wide(Int("ffffffffffffffff"));
    Bn tight(Int("ffffffff"), 1), ten(Int("100000000"), 2), q1(Int(5), 1);
    Mont mont(Int(7)), mont2(Int("100000001"));
    BigNumState other{};
    const unsigned word = 3, even = 4, words[2] = {1, 1};
    const Refusal refusals[] = {
        REFUSAL(tavStsLengthErr, tavsSet_BN(1, 0, &word, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsSet_BN(1, 2, words, r)),
        REFUSAL(tavStsNullPtrErr, tavsSet_BN(1, 0, nullptr, r)),
        REFUSAL(tavStsContextMatchErr, tavsAdd_BN(&other, one, r)),
        REFUSAL(tavStsNullPtrErr, tavsAdd_BN(&other, nullptr, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsAdd_BN(wide, one, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsAdd_BN(tight, one, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsAdd_BN(r, r, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsSub_BN(tight, minus, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMul_BN(wide, one, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMul_BN(tight, two, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMul_BN(r, two, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMul_BN(r, r, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMAC_BN_I(wide, one, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMAC_BN_I(minus, tight, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMAC_BN_I(r, two, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsDiv_BN(one, wide, q1, r)),
        REFUSAL(tavStsDivByZeroErr, tavsDiv_BN(wide, zero, q1, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsDiv_BN(wide, two, r, q1)),
        REFUSAL(tavStsOutOfRangeErr, tavsDiv_BN(ten, one, r, q1)),
        REFUSAL(tavStsBadModulusErr, tavsMod_BN(one, zero, r)),
        REFUSAL(tavStsBadModulusErr, tavsMod_BN(one, minus, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMod_BN(one, wide, r)),
        REFUSAL(tavStsBadArgErr, tavsGcd_BN(zero, zero, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsGcd_BN(one, wide, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsModInv_BN(zero, wide, r)),
        REFUSAL(tavStsBadArgErr, tavsModInv_BN(zero, minus, r)),
        REFUSAL(tavStsBadModulusErr, tavsModInv_BN(one, zero, r)),
        REFUSAL(tavStsOperandRangeErr, tavsModInv_BN(two, two, r)),
        REFUSAL(tavStsBadArgErr, tavsMontForm(minus, mont, r)),
        REFUSAL(tavStsOperandRangeErr, tavsMontForm(wide, mont2, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMontForm(one, mont2, r)),
        REFUSAL(tavStsBadArgErr, tavsMontMul(wide, minus, mont, r)),
        REFUSAL(tavStsOperandRangeErr, tavsMontMul(one, wide, mont2, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMontMul(one, one, mont2, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMontExp(minus, one, mont2, r)),
        REFUSAL(tavStsBadArgErr, tavsMontExp(one, minus, mont, r)),
        REFUSAL(tavStsOperandRangeErr, tavsMontExp(one, wide, mont, r)),
    };
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.call);
        Bn r(Int("-ffffffff"), 1);
        EXPECT_EQ(refusal.run(r), refusal.want);
        EXPECT_EQ(r.value(), Int("-ffffffff"));
    }
    EXPECT_EQ(tavsMontSet(&even, 1, mont), tavStsBadModulusErr);
    EXPECT_EQ(tavsMontSet(words, 0, mont), tavStsLengthErr);
    EXPECT_EQ(tavsMontSet(&even, 0, mont), tavStsLengthErr);
    EXPECT_EQ(tavsMontSet(words, 2, mont), tavStsOutOfRangeErr);
    EXPECT_EQ(tavsMontSet(nullptr, 2, mont), tavStsNullPtrErr);
    unsigned n[2];
    int len;
    EXPECT_EQ(tavsMontGet(n, &len, mont2), tavStsNoErr);
    EXPECT_EQ(Int(n, static_cast<size_t>(len)), Int("100000001"));
    EXPECT_EQ(tavsMontGet(n, &len, reinterpret_cast<MontState*>(static_cast<BigNumState*>(one))),
              tavStsContextMatchErr);
}

// Products that need a word beyond a.size + b.size - 1 are refused, others fit.
TEST(Objects, TightRoom) {
    Bn a(Int("10000"), 1), r(1), s(Int("ffff"), 1);
    EXPECT_EQ(tavsMul_BN(s, a, r), tavStsNoErr);
    EXPECT_EQ(r.value(), Int("ffff0000"));
    EXPECT_EQ(tavsMul_BN(a, s, s), tavStsNoErr);
    EXPECT_EQ(s.value(), Int("ffff0000"));
    EXPECT_EQ(tavsMAC_BN_I(a, a, s), tavStsOutOfRangeErr);
    EXPECT_EQ(s.value(), Int("ffff0000"));
    Bn minus(Int(-1), 1);
    EXPECT_EQ(tavsMAC_BN_I(minus, s, s), tavStsNoErr);
    EXPECT_EQ(s.value(), Int(0));
    Bn low(Int("ffffffff"), 2), high(Int("ffffffff00000000"), 2);
    EXPECT_EQ(tavsDiv_BN(high, low, r, a), tavStsOutOfRangeErr) << "the quotient is 2^32";
    Bn less(Int("fffffffeffffffff"), 2);
    EXPECT_EQ(tavsDiv_BN(less, low, r, a), tavStsNoErr);
    EXPECT_EQ(r.value(), Int("ffffffff"));
    EXPECT_EQ(a.value(), Int("fffffffe"));
}

} // namespace
} // namespace vor::test
