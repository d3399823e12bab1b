// Statuses and room of the big-number layer, its word arrays at the seams of their loops, and the
// correction steps of its division.
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

// r[i] = f(i, carry), the carry word being the high half, signed.
template <class F>
uint32_t chain(Words& r, F f) {
    int64_t carry = 0;
    for (size_t i = 0; i < r.size(); ++i) {
        const uint64_t x = f(i) + static_cast<uint64_t>(carry);
        r[i] = static_cast<uint32_t>(x);
        carry = static_cast<int64_t>(x) >> 32;
    }
    return static_cast<uint32_t>(carry);
}

class Arrays : public ::testing::Test {
protected:
    // Runs `f(guarded copy of r)`, compares with `want` and the word beyond.
    template <class F>
    static void check(const Words& r, const Words& want, uint32_t beyond, F f) {
        Guarded<uint32_t> out(r.size());
        std::copy(r.begin(), r.end(), out.begin());
        uint32_t got = 77;
        f(out.data(), &got);
        EXPECT_EQ(out.copy(), want);
        EXPECT_EQ(got, beyond);
        EXPECT_TRUE(out.intact());
    }
};

TEST_F(Arrays, SumsOfEveryLength) {
    Random random(1);
    for (int n = 1; n <= 40; ++n) {
        SCOPED_TRACE(n);
        const Words a = provoking(random, n), b = provoking(random, n);
        Words want(a.size());
        const uint32_t carry = chain(want, [&](size_t i) { return uint64_t{a[i]} + b[i]; });
        check(a, want, carry, [&](auto* r, auto* c) { cpAdd_BNU(r, b.data(), r, n, c); });
        check(b, want, carry, [&](auto* r, auto* c) { cpAdd_BNU(a.data(), r, r, n, c); });
        check(Words(a.size()), want, carry,
              [&](auto* r, auto* c) { tavsAdd_BNU(a.data(), b.data(), r, n, c); });
        const uint32_t borrow = -chain(want, [&](size_t i) { return uint64_t{a[i]} - b[i]; });
        check(a, want, borrow, [&](auto* r, auto* c) { cpSub_BNU(r, b.data(), r, n, c); });
        check(b, want, borrow, [&](auto* r, auto* c) { cpSub_BNU(a.data(), r, r, n, c); });
        check(Words(a.size()), want, borrow,
              [&](auto* r, auto* c) { tavsSub_BNU(a.data(), b.data(), r, n, c); });
    }
}

TEST_F(Arrays, RowsOfEveryLength) {
    Random random(2);
    for (int n = 1; n <= 40; ++n) {
        for (const uint32_t w : {0u, 1u, 0x80000000u, ~0u, static_cast<uint32_t>(random.bits())}) {
            SCOPED_TRACE(n);
            const Words a = provoking(random, n), r = provoking(random, n), ones(a.size(), ~0u);
            Words want(a.size()), high(a.size() + 1);
            const auto product = [&](const Words& x, size_t i) { return uint64_t{x[i]} * w; };
            uint64_t carry = 0; // the rows carry a whole word: formed apart from chain()
            for (size_t i = 0; i < a.size(); ++i) {
                carry += product(a, i);
                want[i] = static_cast<uint32_t>(carry);
                carry >>= 32;
            }
            check(a, want, static_cast<uint32_t>(carry),
                  [&](auto* x, auto* c) { tavsMulOne_BNU(x, x, n, w, c); });
            // r + a w and r - a w from the product and the sums, which are tested above.
            const Words p = want;
            Words sum(a.size());
            const uint32_t up = chain(sum, [&](size_t i) { return uint64_t{r[i]} + p[i]; });
            check(r, sum, static_cast<uint32_t>(carry) + up,
                  [&](auto* x, auto* c) { tavsMACOne_BNU_I(a.data(), x, n, w, c); });
            const uint32_t down = -chain(sum, [&](size_t i) { return uint64_t{r[i]} - p[i]; });
            check(r, sum, static_cast<uint32_t>(carry) + down,
                  [&](auto* x, auto* c) { cpSubMulDgt_BNU(a.data(), x, n, w, c); });
        }
    }
}

Words product(const Words& a, const Words& b) {
    Words r(a.size() + b.size());
    for (size_t j = 0; j < b.size(); ++j) {
        uint64_t carry = 0;
        for (size_t i = 0; i < a.size(); ++i) {
            carry += uint64_t{a[i]} * b[j] + r[i + j];
            r[i + j] = static_cast<uint32_t>(carry);
            carry >>= 32;
        }
        r[j + a.size()] = static_cast<uint32_t>(carry);
    }
    return r;
}

TEST_F(Arrays, ProductsOfEveryLength) {
    Random random(3);
    for (int an = 1; an <= 35; ++an) {
        for (int bn = 1; bn <= 35; ++bn) {
            SCOPED_TRACE(std::to_string(an) + " by " + std::to_string(bn));
            for (const bool extreme : {true, false}) {
                const Words a =
                    extreme ? Words(static_cast<size_t>(an), ~0u) : provoking(random, an);
                const Words b =
                    extreme ? Words(static_cast<size_t>(bn), ~0u) : provoking(random, bn);
                Guarded<uint32_t> r(a.size() + b.size());
                cpMul_BNU_FullSize(a.data(), an, b.data(), bn, r.data());
                ASSERT_EQ(r.copy(), product(a, b));
                ASSERT_TRUE(r.intact());
            }
        }
    }
}

TEST_F(Arrays, ProductsAndSquaresOfFixedLength) {
    Random random(4);
    for (int turn = 0; turn < 50; ++turn) {
        const Words a = turn ? provoking(random, 8) : Words(8, ~0u);
        const Words b = turn ? provoking(random, 8) : Words(8, ~0u);
        const Words a4(a.begin(), a.begin() + 4), b4(b.begin(), b.begin() + 4);
        Guarded<uint32_t> r8(16), r4(8);
        EXPECT_EQ(tavsMul_BNU8(a.data(), b.data(), r8.data()), tavStsNoErr);
        EXPECT_EQ(r8.copy(), product(a, b));
        EXPECT_EQ(tavsSqr_BNU8(a.data(), r8.data()), tavStsNoErr);
        EXPECT_EQ(r8.copy(), product(a, a));
        EXPECT_EQ(tavsMul_BNU4(a.data(), b.data(), r4.data()), tavStsNoErr);
        EXPECT_EQ(r4.copy(), product(a4, b4));
        EXPECT_EQ(tavsSqr_BNU4(a.data(), r4.data()), tavStsNoErr);
        EXPECT_EQ(r4.copy(), product(a4, a4));
        EXPECT_TRUE(r8.intact() && r4.intact());
    }
    const uint32_t words[] = {0, 1, ~0u};
    uint32_t squares[6];
    EXPECT_EQ(tavsSqr_32u64u(words, 3, squares), tavStsNoErr);
    EXPECT_EQ(Words(squares, squares + 6), (Words{0, 0, 1, 0, 1, ~0u - 1}));
}

TEST_F(Arrays, RoomOfSumsAndProducts) {
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

// The divisor (2^31, ..., 0, all ones) makes the estimate from three words by two one too large for
// the quotient digit: the add-back runs. That it does is seen from the estimate itself.
TEST(Division, AddsBack) {
    // a = q b + (b - 1) with q just below what the leading words of a allow
    Words b{~0u, 0, 0x80000000}, a{0, 0, 0x80000000, 0x7fffffff};
    const uint64_t top = uint64_t{a[3]} << 32 | a[2];
    const uint64_t guess = top / b[2], rest = top % b[2];
    ASSERT_LE(guess * b[1], rest << 32 | a[1]) << "the refinement leaves the estimate alone";
    a.push_back(0);
    Words q(2);
    int qn, rn;
    const Words original = a;
    cpDiv_BNU(a.data(), 4, b.data(), 3, q.data(), &qn, &rn);
    EXPECT_EQ(b, (Words{~0u, 0, 0x80000000})) << "the divisor is restored";
    EXPECT_EQ(q[0], guess - 1) << "the digit is one below its estimate";
    Words back = product(Words(q.begin(), q.begin() + qn), b);
    back.resize(5);
    const Words r(a.begin(), a.begin() + rn);
    Words sum(5);
    chain(sum, [&](size_t i) { return uint64_t{back[i]} + (i < r.size() ? r[i] : 0); });
    EXPECT_EQ(sum, original);
    EXPECT_EQ(Cmp_BNU(a.data(), rn, b.data(), 3), -1);
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

TEST(Objects, ZeroIsPositive) {
    Bn x(3), y(Int(-7), 3);
    const unsigned zeros[3] = {};
    EXPECT_EQ(tavsSet_BN(TavsBigNumNEG, 3, zeros, x), tavStsNoErr);
    EXPECT_EQ(x.value(), Int(0));
    EXPECT_EQ(tavsSub_BN(y, y, y), tavStsNoErr);
    EXPECT_EQ(y.value(), Int(0));
    unsigned relation;
    EXPECT_EQ(tavsCmpZero_BN(y, &relation), tavStsNoErr);
    EXPECT_EQ(relation, 0u);
}

TEST(Objects, Comparisons) {
    const long long values[] = {-0x100000000, -3, -2, 0, 1, 2, 0x100000000};
    for (const long long a : values) {
        for (const long long b : values) {
            Bn x(Int(a), 2), y(Int(b), 2);
            unsigned relation;
            EXPECT_EQ(tavsCmp_BN(x, y, &relation), tavStsNoErr);
            EXPECT_EQ(relation, a == b ? 0u : a > b ? 1u : 2u) << a << " " << b;
        }
        Bn x(Int(a), 2);
        unsigned relation;
        EXPECT_EQ(tavsCmpZero_BN(x, &relation), tavStsNoErr);
        EXPECT_EQ(relation, a == 0 ? 0u : a > 0 ? 1u : 2u);
    }
}

TEST(Objects, UncheckedHelpers) {
    alignas(4) char memory[64];
    auto* state = reinterpret_cast<BigNumState*>(memory);
    EXPECT_EQ(cpBigNumInitSet(state, TavsBigNumNEG, 9), tavStsNoErr);
    EXPECT_EQ(Tst_BN(state), -1);
    EXPECT_EQ(IsOdd_BN(state), 1);
    EXPECT_EQ(Cmp_BN(state, BN_OneRef()), -1);
    BN_Power2(state, 32); // no room
    EXPECT_EQ(state->number[0], 9u);
    BN_Power2(state, 31);
    EXPECT_EQ(state->number[0], 0x80000000u);
    BN_copy(BN_TwoRef(), state);
    EXPECT_EQ(Cmp_BN(state, BN_TwoRef()), 0);
    EXPECT_EQ(IsOne_BN(BN_OneRef()), 1);
    EXPECT_EQ(IsOne_BN(BN_TwoRef()), 0);
    BN_Zero(state);
    EXPECT_EQ(IsZero_BN(state), 1);
    BN_Word(state, 1);
    EXPECT_EQ(IsOne_BN(state), 1);
}

// A refused call names its reason and leaves the result as it was.
struct Refusal {
    const char* name;
    TavStatus want;
    std::function<TavStatus(BigNumState*)> call;
};

TEST(Objects, RefusalsInTheirOrder) {
    Bn one(Int(1)), two(Int(2)), zero(Int(0)), minus(Int(-1)), wide(Int("ffffffffffffffff"));
    Bn tight(Int("ffffffff"), 1), ten(Int("100000000"), 2), seven(Int(7)), q1(Int(5), 1);
    Mont mont(Int(7)), mont2(Int("100000001"));
    BigNumState other{};
    const unsigned word = 3, even = 4, words[2] = {1, 1};
    const Refusal refusals[] = {
        {"set: length", tavStsLengthErr, [&](auto* r) { return tavsSet_BN(1, 0, &word, r); }},
        {"set: room", tavStsOutOfRangeErr, [&](auto* r) { return tavsSet_BN(1, 2, words, r); }},
        {"set: null", tavStsNullPtrErr, [&](auto* r) { return tavsSet_BN(1, 0, nullptr, r); }},
        {"add: kind", tavStsContextMatchErr, [&](auto* r) { return tavsAdd_BN(&other, one, r); }},
        {"add: null before kind", tavStsNullPtrErr,
         [&](auto* r) { return tavsAdd_BN(&other, nullptr, r); }},
        {"add: operand", tavStsOutOfRangeErr, [&](auto* r) { return tavsAdd_BN(wide, one, r); }},
        {"add: carry", tavStsOutOfRangeErr, [&](auto* r) { return tavsAdd_BN(tight, one, r); }},
        {"add: carry in place", tavStsOutOfRangeErr, [&](auto* r) { return tavsAdd_BN(r, r, r); }},
        {"sub: carry", tavStsOutOfRangeErr, [&](auto* r) { return tavsSub_BN(tight, minus, r); }},
        {"mul: room", tavStsOutOfRangeErr, [&](auto* r) { return tavsMul_BN(wide, one, r); }},
        {"mul: top word", tavStsOutOfRangeErr, [&](auto* r) { return tavsMul_BN(tight, two, r); }},
        {"mul: top word in place", tavStsOutOfRangeErr,
         [&](auto* r) { return tavsMul_BN(r, two, r); }},
        {"mul: square in place", tavStsOutOfRangeErr, [&](auto* r) { return tavsMul_BN(r, r, r); }},
        {"mac: room", tavStsOutOfRangeErr, [&](auto* r) { return tavsMAC_BN_I(wide, one, r); }},
        {"mac: carry", tavStsOutOfRangeErr, [&](auto* r) { return tavsMAC_BN_I(minus, tight, r); }},
        {"mac: carry in place", tavStsOutOfRangeErr,
         [&](auto* r) { return tavsMAC_BN_I(r, two, r); }},
        {"div: remainder's room", tavStsOutOfRangeErr,
         [&](auto* r) { return tavsDiv_BN(one, wide, q1, r); }},
        {"div: zero", tavStsDivByZeroErr, [&](auto* r) { return tavsDiv_BN(wide, zero, q1, r); }},
        {"div: quotient's room", tavStsOutOfRangeErr,
         [&](auto* r) { return tavsDiv_BN(wide, two, r, q1); }},
        {"div: quotient's room by a word", tavStsOutOfRangeErr,
         [&](auto* r) { return tavsDiv_BN(ten, one, r, q1); }},
        {"mod: zero", tavStsBadModulusErr, [&](auto* r) { return tavsMod_BN(one, zero, r); }},
        {"mod: negative", tavStsBadModulusErr, [&](auto* r) { return tavsMod_BN(one, minus, r); }},
        {"mod: room", tavStsOutOfRangeErr, [&](auto* r) { return tavsMod_BN(one, wide, r); }},
        {"gcd: both zero", tavStsBadArgErr, [&](auto* r) { return tavsGcd_BN(zero, zero, r); }},
        {"gcd: room", tavStsOutOfRangeErr, [&](auto* r) { return tavsGcd_BN(one, wide, r); }},
        {"inverse: room", tavStsOutOfRangeErr,
         [&](auto* r) { return tavsModInv_BN(zero, wide, r); }},
        {"inverse: operand", tavStsBadArgErr,
         [&](auto* r) { return tavsModInv_BN(zero, minus, r); }},
        {"inverse: modulus", tavStsBadModulusErr,
         [&](auto* r) { return tavsModInv_BN(one, zero, r); }},
        {"inverse: range", tavStsOperandRangeErr,
         [&](auto* r) { return tavsModInv_BN(two, two, r); }},
        {"form: negative", tavStsBadArgErr, [&](auto* r) { return tavsMontForm(minus, mont, r); }},
        {"form: range", tavStsOperandRangeErr,
         [&](auto* r) { return tavsMontForm(wide, mont2, r); }},
        {"form: room", tavStsOutOfRangeErr, [&](auto* r) { return tavsMontForm(one, mont2, r); }},
        {"product: negative before range", tavStsBadArgErr,
         [&](auto* r) { return tavsMontMul(wide, minus, mont, r); }},
        {"product: range before room", tavStsOperandRangeErr,
         [&](auto* r) { return tavsMontMul(one, wide, mont2, r); }},
        {"product: room", tavStsOutOfRangeErr,
         [&](auto* r) { return tavsMontMul(one, one, mont2, r); }},
        {"power: room first", tavStsOutOfRangeErr,
         [&](auto* r) { return tavsMontExp(minus, one, mont2, r); }},
        {"power: negative", tavStsBadArgErr,
         [&](auto* r) { return tavsMontExp(one, minus, mont, r); }},
        {"power: exponent above the modulus", tavStsOperandRangeErr,
         [&](auto* r) { return tavsMontExp(one, wide, mont, r); }},
    };
    for (const Refusal& refusal : refusals) {
        SCOPED_TRACE(refusal.name);
        Bn r(Int("-ffffffff"), 1);
        EXPECT_EQ(refusal.call(r), refusal.want);
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
