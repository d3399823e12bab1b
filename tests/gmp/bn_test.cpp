// What the table of cases does not hold of the big-number layer: its helpers on words, the layout of
// objects, the order in which a call is refused.
#include "tests/gmp/boxes.h"

#include <functional>

namespace vor::test {
namespace {

using Words = std::vector<uint32_t>;

// A sum b c of n words fits n, one of more does not.
TEST(Arrays, RoomOfAMultiplyAdd) {
    const Words ones(2, ~0u), one{1};
    Guarded<uint32_t> r(2);
    for (const int room : {1, 2}) {
        int n = 1;
        r[0] = ~0u;
        EXPECT_EQ(cpMAC_BNU(ones.data(), 1, one.data(), 1, r.data(), &n, room), room == 2);
    }
    EXPECT_EQ(r.copy(), (Words{~0u - 1, 1}));
    EXPECT_TRUE(r.intact());
}

TEST(Arrays, BitsShiftsAndComparisons) {
    const uint32_t words[] = {0, 1, ~0u};
    uint32_t squares[6];
    EXPECT_EQ(tavsSqr_32u64u(words, 3, squares), tavStsNoErr);
    EXPECT_EQ(Words(squares, squares + 6), (Words{0, 0, 1, 0, 1, ~0u - 1}));
    EXPECT_TRUE(NLZ32u(0) == 32 && NTZ32u(0) == 32);
    for (int i = 0; i < 32; ++i) EXPECT_TRUE(NLZ32u(~0u >> i) == i && NTZ32u(~0u << i) == i);
    const Words a{0, 0x80000001, 0};
    EXPECT_TRUE(LSB_BNU(a.data(), 3) == 32 && MSB_BNU(a.data(), 3) == 63);
    EXPECT_TRUE(LSB_BNU(a.data(), 1) == 32 && MSB_BNU(a.data(), 1) == -1);
    EXPECT_TRUE(Tst_BNU(a.data(), 3) == 2 && Tst_BNU(a.data(), 1) == 0);
    EXPECT_EQ(MSD_BNU(a.data(), 1), 1);
    EXPECT_EQ(Cmp_BNU(a.data(), 3, a.data(), 2), 0);
    EXPECT_EQ(cpCompare_BNUs(a.data(), 3, a.data(), 2), 1);
    EXPECT_EQ(cpCmp_BNU(a.data() + 1, a.data(), 2), -1);
    Words shifted{5, 6, 7};
    EXPECT_EQ(LSL_BNU(a.data(), shifted.data(), 2, 33), 3); // the low five bits count
    EXPECT_EQ(LSR_BNU(shifted.data(), shifted.data(), 3, 33), 2);
    EXPECT_EQ(shifted, a);
    Words b{0x01020304, 0xfffefdfc};
    cpEndianChange(b.data(), 2);
    EXPECT_EQ(b, (Words{0x04030201, 0xfcfdfeff}));
    EXPECT_TRUE(cpGCD32u(0, 5) == 5 && cpGCD32u(5, 0) == 5 && cpGCD32u(48, 180) == 12);
}

TEST(Objects, LayoutAndSizes) {
    int size;
    EXPECT_TRUE(tavsBigNumGetSize(1, &size) == tavStsNoErr && size == 48);
    EXPECT_TRUE(tavsBigNumGetSize(2, &size) == tavStsNoErr && size == 64);
    EXPECT_TRUE(tavsMontGetSize(0, 1, &size) == tavStsNoErr && size == 2 * 48 + 32 + 64 + 4);
    for (const int len : {0, -1, 1 << 30}) { // the last has no size in an int
        EXPECT_EQ(tavsBigNumGetSize(len, &size), tavStsLengthErr);
        EXPECT_EQ(tavsMontGetSize(0, len, &size), tavStsLengthErr);
    }
    Bn x(Int("-fedcba9876543210"), 5);
    auto* state = reinterpret_cast<BigNumState*>(
        (reinterpret_cast<uintptr_t>(static_cast<BigNumState*>(x)) + 3) & ~uintptr_t{3});
    EXPECT_TRUE(state->idCtx == 0x4C4D5352u && state->size == 2 && state->room == 5);
    EXPECT_EQ(state->number, reinterpret_cast<unsigned*>(state + 1));
    EXPECT_EQ(state->buffer, state->number + 6);
    static_assert(sizeof(BigNumState) == 24 && sizeof(MontState) == 32);
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
    const unsigned zeros[3] = {};
    Bn zero(Int(1), 3);
    EXPECT_EQ(tavsSet_BN(TavsBigNumNEG, 3, zeros, zero), tavStsNoErr);
    EXPECT_EQ(zero.value(), Int(0)) << "zero is positive";
}

// A refused call names its reason and leaves the result as it was.
struct Refusal {
    const char* call;
    TavStatus want;
    std::function<TavStatus(BigNumState*)> run;
};
#define REFUSAL(want, call)                                                                        \
    Refusal {                                                                                      \
#call, want, [&]([[maybe_unused]] auto* r) { return call; }                                \
    }

// Null pointers come before kinds, kinds before lengths, signs and ranges, as each function has them.
TEST(Objects, RefusalsInTheirOrder) {
    Bn one(Int(1)), two(Int(2)), zero(Int(0)), minus(Int(-1)), wide(Int("ffffffffffffffff"));
    Bn ten(Int("100000000"), 2), q1(Int(5), 1);
    Mont mont(Int(7)), mont2(Int("100000001"));
    BigNumState other{};
    MontState stranger{};
    const unsigned word = 3, even = 4, words[2] = {1, 1};
    unsigned n;
    int size;
    const Refusal refusals[] = {
        REFUSAL(tavStsLengthErr, tavsSet_BN(1, 0, &word, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsSet_BN(1, 2, words, r)),
        REFUSAL(tavStsNullPtrErr, tavsSet_BN(1, 0, nullptr, r)),
        REFUSAL(tavStsContextMatchErr, tavsAdd_BN(&other, one, r)),
        REFUSAL(tavStsNullPtrErr, tavsAdd_BN(&other, nullptr, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsAdd_BN(wide, one, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMul_BN(wide, one, r)),
        REFUSAL(tavStsOutOfRangeErr, tavsMul_BN(q1, q1, q1)), // a square in place
        REFUSAL(tavStsOutOfRangeErr, tavsMAC_BN_I(wide, one, r)),
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
        REFUSAL(tavStsBadModulusErr, tavsMontSet(&even, 1, mont)),
        REFUSAL(tavStsLengthErr, tavsMontSet(&even, 0, mont)),
        REFUSAL(tavStsOutOfRangeErr, tavsMontSet(words, 2, mont)),
        REFUSAL(tavStsNullPtrErr, tavsMontSet(nullptr, 2, mont)),
        REFUSAL(tavStsContextMatchErr, tavsMontGet(&n, &size, &stranger)),
        REFUSAL(tavStsDivByZeroErr, tavsDiv_64u32u(5, 0, 0, &n, &n)),
        REFUSAL(tavStsOutOfRangeErr, tavsDiv_64u32u(5, 2, 2, &n, &n)),
        REFUSAL(tavStsNullPtrErr, tavsDiv_64u32u(5, 2, 2, nullptr, &n)),
        REFUSAL(tavStsBadArgErr, tavsMontForm(minus, mont, r)),
        REFUSAL(tavStsOperandRangeErr, tavsMontForm(wide, mont2, r)),
        REFUSAL(tavStsBadArgErr, tavsMontMul(wide, minus, mont, r)),
        REFUSAL(tavStsOperandRangeErr, tavsMontMul(one, wide, mont2, r)),
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
    unsigned modulus[2];
    EXPECT_EQ(tavsMontGet(modulus, &size, mont2), tavStsNoErr);
    EXPECT_EQ(Int(modulus, static_cast<size_t>(size)), Int("100000001"));
}

} // namespace
} // namespace vor::test
