// The table of cases, exact answers from another implementation of integers (oracle.py), and what it
// does not hold of the integers: division by zero, small functions, random numbers.
#include "tests/gmp/boxes.h"
#include "tests/gmp/operations.h"

#include <csetjmp>
#include <csignal>
#include <functional>
#include <numeric>
#include <sys/mman.h>

namespace vor::test {
namespace {

TEST(Table, EveryCase) {
    std::map<std::string, int> count;
    for_each_case([&](const std::string& line) { ++count[run_case(line)]; });
    for (const auto& [name, operation] : operations())
        EXPECT_GT(count[name], 0) << "no case for " << name;
}

// ---- Division by zero --------------------------------------------------------------------------

sigjmp_buf back;

void jump_back(int) {
    siglongjmp(back, 1);
}

bool raises_sigfpe(const std::function<void()>& f) {
    const auto old = std::signal(SIGFPE, jump_back);
    const bool raised = sigsetjmp(back, 1) != 0;
    if (!raised) f();
    std::signal(SIGFPE, old);
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
        [&] { __gmpz_powm(q, n, r, zero); },
        [&] { __gmpz_powm(q, r, n, zero); },
        [&] { __gmpz_powm_ui(q, n, 0, zero); },
        [&] { mpz_powm_mary(q, n, zero, zero); },
        [&] { _impPowm2Exp(q, n, 0, zero); },
        [&] { __gmpz_invert(q, n, zero); },
        [&] { __gmpz_remove(q, n, zero); },
        [&] { __gmpz_root(q, n, 0); },
        [&] { __gmpz_root(q, zero, 0); },
        [&] { __gmpz_export(nullptr, nullptr, 1, 1, 1, 8, n); },
        [&] { __gmpz_export(nullptr, nullptr, 1, 0, 1, 0, n); },
        [&] { mpn_divmod_1(q->_mp_d, n->_mp_d, 7, 0); },
        [&] { mpn_mod_1(n->_mp_d, 7, 0); },
    };
    for (const auto& call : calls) {
        SCOPED_TRACE("call " + std::to_string(&call - calls));
        EXPECT_TRUE(raises_sigfpe(call));
        EXPECT_TRUE(q.value() == Int(5) && r.value() == Int(-6) && n.value() == before);
    }
}

// ---- Small functions -----------------------------------------------------------------------------------

TEST(Limbs, SmallFunctions) {
    uint32_t hi, lo, limbs[] = {~0u, ~0u, 5, 0};
    EXPECT_EQ(mpl_umul_ppmm(&hi, ~0u, ~0u), 1u);
    EXPECT_EQ(hi, ~0u - 1);
    mpl_add_ssaaaa(&hi, &lo, 1, ~0u, 2, 3);
    EXPECT_TRUE(hi == 4 && lo == 2);
    mpl_sub_ddssss(&hi, &lo, 1, 0, 2, 3);
    EXPECT_TRUE(hi == ~0u - 1 && lo == ~0u - 2);
    EXPECT_TRUE(mpl_adjust_size(limbs, 4) == 3 && mpl_adjust_size(limbs + 3, 1) == 0);
    EXPECT_TRUE(mpl_is_nonzero(limbs + 2, 2) == 1 && mpl_is_nonzero(limbs + 3, 1) == 0);
    mpn_incr_u(limbs, 2);
    EXPECT_TRUE(limbs[0] == 1 && limbs[1] == 0 && limbs[2] == 6 && limbs[3] == 0);
}

TEST(Limbs, CopiesAndFills) {
    for (int n = 0; n < 13; ++n) {
        Guarded<uint32_t> d(static_cast<size_t>(n));
        std::vector<uint32_t> s(d.size()), sevens(d.size(), 0x07070707);
        std::iota(s.begin(), s.end(), 100);
        const auto check = [&](const std::vector<uint32_t>& want) {
            EXPECT_EQ(d.copy(), want);
            EXPECT_TRUE(d.intact());
            std::fill(d.begin(), d.end(), 1);
        };
        _impMemcpy(d.data(), s.data(), 4 * n), check(s);
        _impMemcpy_32(d.data(), s.data(), n), check(s);
        _impMemcpy_limb(d.data(), s.data(), n), check(s);
        cpMemcpy(d.data(), s.data(), 4 * n), check(s);
        cpMemcpy32u(d.data(), s.data(), n), check(s);
        _impMemset(d.data(), 0x107, 4 * n), check(sevens);
        _impMemset_32(d.data(), 0x07070707, n), check(sevens);
        _impMemset_limb(d.data(), 0x07070707, n), check(sevens);
        cpMemset(d.data(), 7, 4 * n), check(sevens);
        cpMemset32u(d.data(), 0x07070707, n), check(sevens);
    }
}

TEST(Records, MadeAndExchanged) {
    vor_mpz x, y, z;
    __gmpz_init_set_si(&x, INT32_MIN);
    __gmpz_init_set_ui(&y, ~0u);
    __gmpz_init_set(&z, &x);
    __gmpz_swap(&x, &y);
    EXPECT_TRUE(__gmpz_cmp_ui(&x, ~0u) == 0 && __gmpz_cmp_si(&y, INT32_MIN) == 0);
    EXPECT_EQ(__gmpz_cmp(&y, &z), 0);
    __gmpz_set_ui(&z, 0);
    EXPECT_EQ(z._mp_size, 0);
    EXPECT_EQ(__gmpz_getlimbn(&x, 0), ~0u);
    EXPECT_TRUE(__gmpz_getlimbn(&x, 1) == 0 && __gmpz_getlimbn(&x, -1) == 0);
    for (vor_mpz* record : {&x, &y, &z}) __gmpz_clear(record);
}

TEST(SizeInBase, TenAtMostOneTooLarge) {
    for (unsigned digits = 1; digits < 60; ++digits) {
        Z power; // the least number of digits + 1 digits, then the largest of one less
        __gmpz_ui_pow_ui(power, 10, digits);
        EXPECT_LE(__gmpz_sizeinbase(power, 10) - (digits + 1), 1u);
        __gmpz_sub_ui(power, power, 1);
        EXPECT_LE(__gmpz_sizeinbase(power, 10) - digits, 1u);
    }
}

// A record of more than 2^32 bits, of which one is set, on pages that are never written.
TEST(Bits, BeyondNumbersOfAWord) {
    const size_t limbs = (size_t{1} << 27) + 1;
    void* const pages = mmap(nullptr, limbs * 4, PROT_READ | PROT_WRITE,
                             MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    ASSERT_NE(pages, MAP_FAILED);
    auto* const d = static_cast<unsigned*>(pages);
    d[limbs - 1] = 1; // x = -2^(2^32)
    const vor_mpz x{static_cast<int>(limbs), -static_cast<int>(limbs), d};
    for (const unsigned i : {0u, 1u, 31u, ~0u}) {
        EXPECT_EQ(__gmpz_tstbit(&x, i), 0) << i;
        EXPECT_EQ(__gmpz_divisible_2exp_p(&x, i), 1) << i;
        EXPECT_EQ(__gmpz_scan0(&x, i), i) << i;
    }
    EXPECT_EQ(__gmpz_scan1(&x, 5), ~0u);
    munmap(pages, limbs * 4);
}

// ---- Random numbers ----------------------------------------------------------------------------------

class RandomNumbers : public ::testing::Test {
protected:
    RandomNumbers() { __gmp_randinit_default(&state_); }
    ~RandomNumbers() override { __gmp_randclear(&state_); }
    vor_randstate state_;
};

TEST_F(RandomNumbers, StayInRange) {
    Z r;
    for (const unsigned bits : {1u, 31u, 32u, 33u, 100u, 640u}) {
        uint32_t low = 0, top = 0;
        for (int turn = 0; turn < 200; ++turn) {
            __gmpz_urandomb(r, &state_, bits);
            ASSERT_LE(__gmpz_sizeinbase(r, 2), bits);
            top |= static_cast<uint32_t>(__gmpz_tstbit(r, bits - 1));
            low |= __gmpz_get_ui(r);
        }
        EXPECT_EQ(top, 1u) << "the highest of " << bits << " bits is never set";
        EXPECT_EQ(~low << (bits < 32 ? 32 - bits : 0), 0u) << "a low bit is never set";
    }
    for (const char* text : {"1", "2", "3", "100000000", "ones(100)"}) {
        Z bound{Int(std::string(text))}, n{Int(std::string(text))};
        for (int turn = 0; turn < 100; ++turn) {
            __gmpz_urandomm(r, &state_, n);
            ASSERT_TRUE(__gmpz_cmp(r, n) < 0 && __gmpz_sgn(r) >= 0);
        }
        __gmpz_urandomm(n, &state_, n);
        EXPECT_LT(__gmpz_cmp(n, bound), 0) << "into the bound";
        EXPECT_LT(mpl_rand_ui(&state_, 7), 7u);
    }
    const auto size = [&] { return __gmpz_size(r); };
    EXPECT_LE((__gmpz_urandomb(r, &state_, 0), size()), 1);
    EXPECT_LE((__gmpz_random(r, 3), size()), 3);
    EXPECT_LE((__gmpz_random2(r, 40), size()), 40);
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
