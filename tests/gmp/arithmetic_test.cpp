// What the table of cases does not hold: division by zero, comparison with doubles, products and
// quotients of sizes at which the methods for long operands run, correction steps reached on purpose,
// random numbers.
#include "tests/gmp/record.h"

#include <csetjmp>
#include <csignal>
#include <functional>
#include <limits>

namespace vor::test {
namespace {

// ---- Division by zero --------------------------------------------------------------------------

sigjmp_buf back;

void jump_back(int) {
    siglongjmp(back, 1);
}

bool raises_sigfpe(const std::function<void()>& f) {
    struct sigaction action {
    }, old;
    action.sa_handler = jump_back;
    sigaction(SIGFPE, &action, &old);
    bool raised = true;
    if (sigsetjmp(back, 1) == 0) {
        f();
        raised = false;
    }
    sigaction(SIGFPE, &old, nullptr);
    return raised;
}

#define FAMILY_BY_ZERO(letter)                                                                     \
    [&] { __gmpz_##letter##div_qr(q, r, n, zero); }, [&] { __gmpz_##letter##div_q(q, n, zero); },  \
        [&] { __gmpz_##letter##div_r(r, n, zero); },                                               \
        [&] { __gmpz_##letter##div_qr_ui(q, r, n, 0); },                                           \
        [&] { __gmpz_##letter##div_q_ui(q, n, 0); }, [&] { __gmpz_##letter##div_r_ui(r, n, 0); },  \
        [&] { __gmpz_##letter##div_ui(zero, 0); }

TEST(DivisionByZero, RaisesBeforeAnythingChanges) {
    const Int before("-ones(200)");
    Z n(before), zero, q(Int(5)), r(Int(-6));
    const std::function<void()> calls[] = {
        FAMILY_BY_ZERO(t),
        FAMILY_BY_ZERO(f),
        FAMILY_BY_ZERO(c),
        [&] { __gmpz_cdiv_qr(q, r, zero, zero); },
        [&] { __gmpz_mod(r, n, zero); },
        [&] { __gmpz_mod_ui(r, n, 0); },
        [&] { __gmpz_divexact(q, n, zero); },
        [&] { __gmpz_divexact_ui(q, n, 0); },
        [&] { __gmpz_divisible_p(n, zero); },
        [&] { __gmpz_divisible_ui_p(n, 0); },
        [&] { __gmpz_congruent_p(n, n, zero); },
        [&] { __gmpz_congruent_ui_p(n, 1, 0); },
        [&] { vor_gmp_div_qr(q, r, n, zero); },
        [&] { mpn_divmod_1(q->_mp_d, n->_mp_d, 7, 0); },
        [&] { mpn_mod_1(n->_mp_d, 7, 0); },
    };
    for (const auto& call : calls) {
        SCOPED_TRACE("call " + std::to_string(&call - calls));
        EXPECT_TRUE(raises_sigfpe(call));
        EXPECT_TRUE(q.value() == Int(5) && r.value() == Int(-6) && n.value() == before);
    }
}

// ---- Doubles -----------------------------------------------------------------------------------

TEST(CompareDouble, Exactly) {
    const double infinity = std::numeric_limits<double>::infinity(), tiny = 5e-324;
    struct Case {
        const char* a;
        double d;
        int want;
    };
    const Case cases[] = {{"2", 2.5, -1},
                          {"3", 2.5, 1},
                          {"-2", -2.5, 1},
                          {"-3", -2.5, -1},
                          {"2", 2.0, 0},
                          {"-2", 2.0, -1},
                          {"0", 0.25, -1},
                          {"0", -0.25, 1},
                          {"1", 0.75, 1},
                          {"0", -0.0, 0},
                          {"0", tiny, 0}, // subnormal numbers count as 0
                          {"1", tiny, 1},
                          {"5", infinity, 1},
                          {"-5", infinity, -1},
                          {"0", infinity, 0},
                          {"5", std::nan(""), 1},
                          {"bit(52)", 4503599627370496.0, 0},
                          {"bit(51)", 2251799813685248.5, -1},
                          {"bit(53)+1", 9007199254740992.0, 1},
                          {"bit(1023)", 0x1p1023, 0},
                          {"bit(1023)-1", 0x1p1023, -1},
                          {"bit(1023)+1", 0x1p1023, 1},
                          {"ones(1024)", 0x1.fffffffffffffp1023, 1},
                          {"ones(53)*bit(971)", 0x1.fffffffffffffp1023, 0},
                          {"ones(53)*bit(31)", 0x1.fffffffffffffp83, 0},
                          {"-ones(53)*bit(11)", -0x1.fffffffffffffp63, 0}};
    for (const auto& [a, d, want] : cases) {
        Z x{Int(std::string(a))};
        EXPECT_EQ(__gmpz_cmp_d(x, d), want) << a << " against " << d;
        const bool minus = a[0] == '-';
        Z magnitude{Int(std::string(a + minus))};
        EXPECT_EQ(__gmpz_cmpabs_d(x, d), __gmpz_cmp_d(magnitude, std::fabs(d))) << a << " " << d;
    }
}

TEST(SizeInBase, TenAtMostOneTooLarge) {
    for (int digits = 1; digits < 60; ++digits) {
        Z power;
        __gmpz_ui_pow_ui(power, 10, static_cast<unsigned>(digits));
        EXPECT_GE(__gmpz_sizeinbase(power, 10), static_cast<unsigned>(digits) + 1);
        EXPECT_LE(__gmpz_sizeinbase(power, 10), static_cast<unsigned>(digits) + 2);
        __gmpz_sub_ui(power, power, 1);
        EXPECT_GE(__gmpz_sizeinbase(power, 10), static_cast<unsigned>(digits));
        EXPECT_LE(__gmpz_sizeinbase(power, 10), static_cast<unsigned>(digits) + 1);
    }
}

// ---- Long operands -------------------------------------------------------------------------------

constexpr uint32_t kPrimes[] = {4294967291u, 4294967279u, 4294967231u};

void expect_product(const Int& a, const Int& b, const Int& product) {
    for (const uint32_t p : kPrimes)
        ASSERT_EQ(product.mod(p), static_cast<uint64_t>(a.mod(p)) * b.mod(p) % p);
}

// Lengths on both sides of the limit, lengths other than powers of two, and lengths at which digits
// of 16 bits are no longer proved for every operand.
TEST(LongProduct, Identities) {
    for (const int n : {4095, 4096, 4097, 5000, 8192, 9001, 16384, 20011, 40000}) {
        for (int kind = 0; kind < 5; ++kind) {
            SCOPED_TRACE(std::to_string(n) + " limbs, kind " + std::to_string(kind));
            const Int a = long_operand(n, kind, 1), b = long_operand(n, (kind + n) % 5, 2);
            Z x(a), y(b), r;
            __gmpz_mul(r, x, y);
            expect_product(a, b, r.value());
            __gmpz_mul(r, x, x);
            expect_product(a, a, r.value());
        }
    }
}

TEST(LongProduct, FourierAgreesWithKaratsuba) {
    for (const auto& [an, bn] : {std::pair{1, 1},
                                 {1, 9},
                                 {40, 3},
                                 {500, 500},
                                 {4095, 4095},
                                 {4096, 4096},
                                 {5000, 5000},
                                 {4500, 300},
                                 {0, 5}}) {
        for (int kind = 0; kind < 5; ++kind) {
            const Int a = an ? long_operand(an, kind, 1) : Int(),
                      b = long_operand(bn, (kind + 3) % 5, 2);
            Guarded<uint32_t> fourier(2 * static_cast<size_t>(std::max(an, bn)));
            vor_gmp_mul_dft(a.words.data(), an, b.words.data(), bn, fourier.data());
            EXPECT_TRUE(fourier.intact());
            std::vector<uint32_t> schoolbook(static_cast<size_t>(an + bn));
            mpn_mul_basecase(schoolbook.data(), a.words.data(), an, b.words.data(), bn);
            schoolbook.resize(fourier.size());
            ASSERT_EQ(fourier.copy(), schoolbook) << an << " by " << bn << ", kind " << kind;
            if (an != bn) continue;
            std::vector<uint32_t> karatsuba(fourier.size());
            vor_gmp_mul_n_kara(a.words.data(), b.words.data(), karatsuba.data(), an);
            ASSERT_EQ(karatsuba, schoolbook) << an << ", kind " << kind;
        }
    }
}

TEST(LongDivision, Identities) {
    for (const auto& [nn, dn] : {std::pair{1000, 500},
                                 {2000, 1000},
                                 {1100, 600},
                                 {8192, 4096},
                                 {9000, 300},
                                 {12000, 4999},
                                 {5000, 4995}}) {
        for (int kind = 0; kind < 5; ++kind) {
            const Int n = long_operand(nn, kind, 3), d = long_operand(dn, (kind + 1) % 5, 4);
            Z x(n), y(d), q, r, again;
            __gmpz_tdiv_qr(q, r, x, y);
            ASSERT_LT(__gmpz_cmp(r, y), 0);
            ASSERT_GE(__gmpz_sgn(r), 0);
            __gmpz_mul(again, q, y);
            __gmpz_add(again, again, r);
            ASSERT_EQ(again.value(), n) << nn << " by " << dn << ", kind " << kind;
        }
    }
}

// ---- Correction steps ------------------------------------------------------------------------------

uint32_t inverse(uint32_t d) {
    return d == 0x80000000u ? ~0u : mpl_udiv_qqrnnd(0 - d, 0, d);
}

TEST(Corrections, EstimateFromThreeLimbs) {
    // The estimate that does not fit a limb: the top limb equals the divisor's.
    const uint32_t n[] = {5, ~0u - 1, ~0u};
    EXPECT_EQ(mpl_divq_3_by_2(n + 2, ~0u, ~0u, inverse(~0u)), ~0u);
    const uint32_t m[] = {0, 0, 0x80000000};
    EXPECT_EQ(mpl_divq_3_by_2(m + 2, 0x80000000, ~0u, inverse(0x80000000)), ~0u - 1);
    uint32_t rest;
    for (const uint32_t d : {0x80000000u, 0x80000001u, 0xc0000000u, ~0u}) {
        for (const uint32_t nh : {0u, 1u, d / 2, d - 1}) {
            for (const uint32_t nl : {0u, 1u, d - 1, d, ~0u}) {
                const uint64_t whole = static_cast<uint64_t>(nh) << 32 | nl;
                EXPECT_EQ(vor_gmp_udiv_qrnnd_preinv(&rest, nh, nl, d, inverse(d)), whole / d);
                EXPECT_EQ(rest, whole % d);
                EXPECT_EQ(mpl_udiv_qqrnnd(nh, nl, d), whole / d);
            }
        }
    }
}

// A short quotient is estimated from truncated operands. The numerators q d - 1 make the estimate q, one
// too large, and only the exact product tells; all ones by the d that lies just above ones / q make that
// product longer than the numerator; d = (2^31, 0, ..., 0, ones) and a q near the largest make the estimate
// two too large. The limb above the quotient is written.
TEST(Corrections, ShortQuotientIsChecked) {
    Random random(11);
    for (int turn = 0; turn < 900; ++turn) {
        const int qn = turn % 9, dn = std::max(qn + 3, 11 + 7 * random.below(5));
        Int d0 = long_operand(dn, 4, random.bits()), q0 = long_operand(qn + 1, 4, random.bits());
        const int kind = turn / 9 % 5;
        d0.words.back() = turn % 2 ? ~0u : 0x80000000u >> random.below(31) | 1;
        q0.words.back() = turn % 3 ? 1 : 0x7fffffff;
        if (kind == 4 && qn > 0) {
            d0 = Int("bit(" + std::to_string(32 * dn - 1) + ")+ones(" +
                     std::to_string(32 * (dn - qn)) + ")");
            q0 = Int("ones(" + std::to_string(32 * qn) + ")-5");
        }
        Z q(q0), d(d0), n;
        __gmpz_mul(n, q, d);
        if (kind == 3) {
            n.set(Int("ones(" + std::to_string(32 * (dn + qn)) + ")"));
            __gmpz_tdiv_q(d, n, q);
            __gmpz_add_ui(d, d, 1);
        } else if (kind > 0) {
            __gmpz_sub_ui(n, n, 1);
        }
        const int nn = __gmpz_size(n), size = __gmpz_size(d);
        Guarded<uint32_t> quotient(static_cast<size_t>(nn - size + 2));
        const int k = mpl_divq_sq(quotient.data(), n->_mp_d, nn, d->_mp_d, size);
        EXPECT_TRUE(quotient.intact());
        if (kind > 0) __gmpz_sub_ui(q, q, 1);
        ASSERT_EQ(Int(quotient.data(), static_cast<size_t>(k)), q.value())
            << nn << " by " << size << ", turn " << turn;
    }
}

// ---- Random numbers ----------------------------------------------------------------------------------

class RandomNumbers : public ::testing::Test {
protected:
    RandomNumbers() { __gmp_randinit_default(&state_); }
    ~RandomNumbers() override { __gmp_randclear(&state_); }
    vor_randstate state_;
};

TEST_F(RandomNumbers, StayInRange) {
    Z r, n;
    for (const unsigned bits : {1u, 31u, 32u, 33u, 100u, 640u}) {
        uint32_t all_zero = ~0u, top = 0;
        for (int turn = 0; turn < 200; ++turn) {
            __gmpz_urandomb(r, &state_, bits);
            ASSERT_LE(__gmpz_sizeinbase(r, 2), bits);
            top |= static_cast<uint32_t>(__gmpz_tstbit(r, bits - 1));
            all_zero &= ~__gmpz_get_ui(r);
        }
        EXPECT_EQ(top, 1u) << "the highest of " << bits << " bits is never set";
        EXPECT_EQ(all_zero << (bits < 32 ? 32 - bits : 0), 0u) << "a low bit is never set";
    }
    for (const char* bound : {"1", "2", "3", "100000000", "ones(100)"}) {
        n.set(Int(std::string(bound)));
        for (int turn = 0; turn < 100; ++turn) {
            __gmpz_urandomm(r, &state_, n);
            ASSERT_LT(__gmpz_cmp(r, n), 0);
            ASSERT_GE(__gmpz_sgn(r), 0);
        }
        __gmpz_urandomm(n, &state_, n);
        EXPECT_LT(__gmpz_cmp(n, Z(Int(std::string(bound)))), 0) << "into the bound";
        EXPECT_LT(mpl_rand_ui(&state_, 7), 7u);
    }
    __gmpz_urandomb(r, &state_, 0);
    EXPECT_LE(__gmpz_size(r), 1);
    __gmpz_random(r, 3);
    EXPECT_LE(__gmpz_size(r), 3);
    __gmpz_random2(r, 40);
    EXPECT_LE(__gmpz_size(r), 40);
    Guarded<uint32_t> limbs(2);
    _gmp_rand(limbs.data(), &state_, 33);
    EXPECT_LE(limbs[1], 1u);
    EXPECT_TRUE(limbs.intact());
}

TEST_F(RandomNumbers, RunsAreLong) {
    const auto changes = [&](void (*draw)(vor_mpz*, vor_randstate*, unsigned)) {
        Z r, shifted;
        draw(r, &state_, 6400);
        __gmpz_tdiv_q_2exp(shifted, r, 1);
        __gmpz_xor(r, r, shifted);
        return __gmpz_popcount(r);
    };
    EXPECT_GT(changes(__gmpz_urandomb), 2900u);
    EXPECT_LT(changes(__gmpz_rrandomb), 2000u);
}

TEST_F(RandomNumbers, StatesDiffer) {
    vor_randstate other;
    EXPECT_EQ(__gmp_randinit_lc_2exp_size(&other, 128), 0);
    __gmp_randseed_ui(&state_, 1);
    __gmp_randseed_ui(&other, 1);
    Z a, b;
    __gmpz_urandomb(a, &state_, 128);
    __gmpz_urandomb(b, &other, 128);
    EXPECT_NE(a.value(), b.value());
    __gmp_randclear(&other);
}

} // namespace
} // namespace vor::test
