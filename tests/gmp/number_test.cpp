// Number theory beyond the table of cases: identities at sizes where an oracle is slow, Euler's criterion,
// witnesses, what stays as it was.
#include "tests/gmp/boxes.h"

#include <string>

namespace vor::test {
namespace {

// (a/p) = a^((p-1)/2) mod p for primes p.
TEST(Symbols, EulersCriterion) {
    for (const char* text :
         {"3", "fffffffb", "1fffffffffffffff", "ones(89)", "ones(521)", "ones(607)"}) {
        Z p{Int(std::string(text))}, half, power, a;
        __gmpz_sub_ui(half, p, 1);
        __gmpz_tdiv_q_2exp(half, half, 1);
        for (int i = 0; i < 60; ++i) {
            a.set(Int("rnd(" + std::to_string(i) + "," + std::to_string(1 + 13 * i) + ")"));
            if (i % 2) __gmpz_neg(a, a);
            __gmpz_powm(power, a, half, p);
            const int symbol = __gmpz_jacobi(a, p);
            EXPECT_EQ(__gmpz_sgn(power) ? (__gmpz_cmp_ui(power, 1) == 0 ? 1 : -1) : 0, symbol)
                << text << ", a of " << 1 + 13 * i << " bits";
        }
    }
}

// With d = gcd(a, b): d | a, d | b, s a + t b = d; by division where cofactors are long.
TEST(Divisors, LongOnes) {
    for (const int bits : {9000, 33000, 100000}) {
        Z a(Int("rnd(1," + std::to_string(bits) + ")")),
            b(Int("rnd(2," + std::to_string(bits) + ")"));
        Z common(Int("rnd(3," + std::to_string(bits / 3) + ")")), g, s, t, sum;
        __gmpz_mul(a, a, common);
        __gmpz_mul(b, b, common);
        __gmpz_gcdext(g, s, t, a, b);
        EXPECT_EQ(__gmpz_divisible_p(g, common), 1);
        EXPECT_TRUE(__gmpz_divisible_p(a, g) && __gmpz_divisible_p(b, g));
        __gmpz_mul(sum, s, a);
        __gmpz_addmul(sum, t, b);
        EXPECT_EQ(sum.value(), g.value());
        __gmpz_gcd(sum, a, b);
        EXPECT_EQ(sum.value(), g.value());
        __gmpz_divexact(b, b, g);
        EXPECT_EQ(__gmpz_sgn(s), 1);
        EXPECT_LT(__gmpz_cmp(s, b), 0);
    }
}

TEST(Roots, LongOnes) {
    for (const int bits : {40000, 250001}) {
        const Int n("rnd(5," + std::to_string(bits) + ")");
        for (const unsigned k : {2u, 3u, 7u, 100u}) {
            Z x(n), r, low, high;
            __gmpz_root(r, x, k);
            __gmpz_pow_ui(low, r, k);
            __gmpz_add_ui(r, r, 1);
            __gmpz_pow_ui(high, r, k);
            EXPECT_LE(__gmpz_cmp(low, x), 0) << k;
            EXPECT_GT(__gmpz_cmp(high, x), 0) << k;
            EXPECT_EQ(__gmpz_root(r, high, k), 1) << k;
            EXPECT_EQ(__gmpz_perfect_power_p(high), 1);
        }
    }
}

// n! = 2^(n - ones) * odd; (n over k) k! (n-k)! = n!; F(m + n) = F(m) F(n + 1) + F(m - 1) F(n).
TEST(Products, Identities) {
    for (const unsigned n : {199u, 200u, 201u, 202u, 5000u, 20000u}) {
        Z factorial, before, part;
        __gmpz_fac_ui(factorial, n);
        __gmpz_fac_ui(before, n - 1);
        __gmpz_mul_ui(before, before, n);
        EXPECT_EQ(factorial.value(), before.value()) << n;
        for (const unsigned k : {1u, 39u, 40u, n / 60, n / 13, n / 5, n / 3, n / 2, n - 1}) {
            Z binomial;
            __gmpz_bin_uiui(binomial, n, k);
            __gmpz_fac_ui(part, k);
            __gmpz_mul(binomial, binomial, part);
            __gmpz_fac_ui(part, n - k);
            __gmpz_mul(binomial, binomial, part);
            EXPECT_EQ(binomial.value(), factorial.value()) << n << " over " << k;
        }
    }
    Z f, f1, g, g1, sum;
    __gmpz_fib2_ui(f, f1, 100000);
    __gmpz_fib2_ui(g, g1, 70001); // F(n + 1), F(n)
    __gmpz_mul(f, f, g);
    __gmpz_addmul(f, f1, g1);
    __gmpz_fib_ui(sum, 170000);
    EXPECT_EQ(sum.value(), f.value());
}

TEST(Powers, LittleFermatAndWithoutInverse) {
    for (const char* text : {"ones(1279)", "ones(2203)", "ones(4423)"}) { // primes of Mersenne
        Z p{Int(std::string(text))}, a(Int("-rnd(6,1000)")), e, r;
        __gmpz_sub_ui(e, p, 1);
        __gmpz_powm(r, a, e, p);
        EXPECT_EQ(r.value(), Int(1)) << text;
        __gmpz_neg(e, e);
        __gmpz_powm(r, a, e, p);
        EXPECT_EQ(r.value(), Int(1)) << text;
    }
    Z r(Int(-77)), six(Int(6)), minus(Int(-3)), nine(Int(9)), one(Int(1));
    __gmpz_powm(r, six, minus, nine);
    mpz_powm_mary(r, six, minus, nine);
    __gmpz_powm(r, six, minus, one);
    EXPECT_EQ(r.value(), Int(-77)) << "as it was";
}

// A round with a given base: strong pseudoprimes and the first base that tells them.
TEST(Primes, Witnesses) {
    const struct {
        unsigned long long n;
        unsigned liar, witness;
    } cases[] = {{2047, 2, 3},         {1373653, 3, 5},         {25326001, 5, 7},
                 {3215031751u, 7, 11}, {3474749660383, 13, 17}, {341550071728321, 17, 23}};
    for (const auto& c : cases) {
        Z n(Int(static_cast<long long>(c.n))), nm1(Int(static_cast<long long>(c.n - 1))), q, t, x;
        const unsigned k = __gmpz_scan1(nm1, 0);
        __gmpz_tdiv_q_2exp(q, nm1, k);
        EXPECT_EQ(_impMRtest(q, t, Z(Int(c.liar)), x, n, nm1, k), 1) << c.n;
        EXPECT_EQ(t.value(), q.value());
        EXPECT_EQ(_impMRtest(q, t, Z(Int(c.witness)), x, n, nm1, k), 0) << c.n;
    }
}

// The primes from 2 on in their order, across the end of the table of small ones.
TEST(Primes, OneAfterTheOther) {
    std::vector<bool> composite(1100000);
    Z p;
    const auto next_is = [&](unsigned i) {
        __gmpz_nextprime(p, p);
        return __gmpz_cmp_ui(p, i) == 0;
    };
    for (unsigned i = 2; i < composite.size(); ++i) {
        if (composite[i]) continue;
        for (size_t j = size_t{i} * i; i < 2000 && j < composite.size(); j += i)
            composite[j] = true;
        if (i < 3000 || i > 1090000) {
            ASSERT_TRUE(next_is(i)) << i;
        } else {
            __gmpz_set_ui(p, i);
        }
    }
}

} // namespace
} // namespace vor::test
