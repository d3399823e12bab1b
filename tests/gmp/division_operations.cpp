#include "tests/gmp/operations.h"
#include "tests/gmp/record.h"

namespace vor::test {
namespace {

using Record = vor_mpz*;
using Value = const vor_mpz*;

struct Family {
    void (*qr)(Record, Record, Value, Value);
    void (*q)(Record, Value, Value);
    void (*r)(Record, Value, Value);
    unsigned (*qr_ui)(Record, Record, Value, unsigned);
    unsigned (*q_ui)(Record, Value, unsigned);
    unsigned (*r_ui)(Record, Value, unsigned);
    unsigned (*ui)(Value, unsigned);
    void (*q_2exp)(Record, Value, unsigned);
    void (*r_2exp)(Record, Value, unsigned);
};

#define FAMILY(letter)                                                                             \
    {                                                                                              \
        __gmpz_##letter##div_qr, __gmpz_##letter##div_q, __gmpz_##letter##div_r,                   \
            __gmpz_##letter##div_qr_ui, __gmpz_##letter##div_q_ui, __gmpz_##letter##div_r_ui,      \
            __gmpz_##letter##div_ui, __gmpz_##letter##div_q_2exp, __gmpz_##letter##div_r_2exp      \
    }
constexpr Family kTruncate = FAMILY(t), kFloor = FAMILY(f), kCeiling = FAMILY(c);

// Fresh records for n, d and two results; results stand in for operands where a pattern says so.
struct Records {
    Z n, d, q, r;
    Records(const Int& numerator, const Int& divisor) : n(numerator), d(divisor) {}
    // The record for a result: 0 one apart, 1 n, 2 d.
    Z& result(int pattern, Z& apart) { return pattern == 0 ? apart : pattern == 1 ? n : d; }
};

// Every pattern of a call with two results.
template <class F>
Ints both(const Int& n, const Int& d, F call) {
    Ints first;
    for (int to_q = 0; to_q < 3; ++to_q) {
        for (int to_r = 0; to_r < 3; ++to_r) {
            if (to_q == to_r && to_q != 0) continue;
            Records z(n, d);
            Z &q = z.result(to_q, z.q), &r = z.result(to_r, z.r);
            call(q, r, z.n, z.d);
            const Ints got{q.value(), r.value()};
            if (to_q == 0 && to_r == 0) first = got;
            EXPECT_EQ(got, first) << "q pattern " << to_q << ", r pattern " << to_r;
            EXPECT_TRUE(to_q == 1 || to_r == 1 || z.n.value() == n);
            EXPECT_TRUE(to_q == 2 || to_r == 2 || z.d.value() == d);
        }
    }
    return first;
}

// Every pattern of a call with one result.
template <class F>
Int one(const Int& n, const Int& d, F call) {
    Int first;
    for (int pattern = 0; pattern < 3; ++pattern) {
        Records z(n, d);
        Z& result = z.result(pattern, z.q);
        call(result, z.n, z.d);
        const Int got = result.value();
        if (pattern == 0) first = got;
        EXPECT_EQ(got, first) << "pattern " << pattern;
    }
    return first;
}

void check_word_forms(const Family& f, const Int& n, uint32_t d, const Ints& want) {
    const uint32_t magnitude = want[1].words.empty() ? 0 : want[1].words[0];
    const Int ignored;
    Ints got = both(n, ignored, [&](Record q, Record r, Value x, Value) {
        EXPECT_EQ(f.qr_ui(q, r, x, d), magnitude);
    });
    EXPECT_EQ(got, want);
    EXPECT_EQ(one(n, ignored, [&](Record q, Value x, Value) { f.q_ui(q, x, d); }), want[0]);
    EXPECT_EQ(one(n, ignored, [&](Record r, Value x, Value) { f.r_ui(r, x, d); }), want[1]);
    Z x(n);
    EXPECT_EQ(f.ui(x, d), magnitude);
}

Ints divide(const Family& f, const Int& n, const Int& d) {
    const Ints result = both(n, d, f.qr);
    EXPECT_EQ(one(n, d, f.q), result[0]);
    EXPECT_EQ(one(n, d, f.r), result[1]);
    if (d.size() == 1 && !d.negative) check_word_forms(f, n, d.words[0], result);
    if (n == d) {
        Z x(n), q, r;
        f.qr(q, r, x, x);
        EXPECT_EQ((Ints{q.value(), r.value()}), result) << "one operand";
    }
    return result;
}

Ints divide_2exp(const Family& f, const Int& n, unsigned k) {
    const Int ignored;
    return {one(n, ignored, [&](Record q, Value x, Value) { f.q_2exp(q, x, k); }),
            one(n, ignored, [&](Record r, Value x, Value) { f.r_2exp(r, x, k); })};
}

Ints magnitudes(const Int& n, const Int& d) {
    const Ints result = both(n, d, vor_gmp_div_qr);
    EXPECT_EQ(one(n, d, vor_gmp_div_q), result[0]);
    EXPECT_EQ(one(n, d, vor_gmp_div_r), result[1]);
    return result;
}

// The remainder, and what follows from it for the divisibility of n by d and a congruence.
Ints modulo(const Int& n, const Int& d) {
    const Int result = one(n, d, __gmpz_mod);
    const bool divides = result.words.empty();
    Z x(n), y(d), rest(result), q;
    EXPECT_EQ(__gmpz_divisible_p(x, y), divides);
    EXPECT_EQ(__gmpz_congruent_p(x, rest, y), 1);
    if (divides) {
        Z again;
        __gmpz_divexact(q, x, y);
        __gmpz_mul(again, q, y);
        EXPECT_EQ(again.value(), n);
    }
    if (d.size() == 1 && !d.negative) {
        const unsigned v = d.words[0], word = __gmpz_get_ui(rest);
        EXPECT_EQ(__gmpz_divisible_ui_p(x, v), divides);
        EXPECT_EQ(__gmpz_congruent_ui_p(x, word, v), 1);
        EXPECT_EQ(__gmpz_congruent_ui_p(x, word + 1, v), v == 1);
        EXPECT_EQ(__gmpz_mod_ui(q, x, v), word);
        EXPECT_EQ(q.value(), result);
        if (divides) {
            __gmpz_divexact_ui(q, x, v);
            __gmpz_mul_ui(q, q, v);
            EXPECT_EQ(q.value(), n);
        }
    }
    return {result};
}

Ints modulo_2exp(const Int& n, unsigned k) {
    const Ints parts =
        both(n, Int(), [&](Record q, Record r, Value x, Value) { vor_gmp_divqr_2exp(q, r, x, k); });
    const bool divides = parts[1].words.empty();
    Z x(n), negative_rest, zero;
    EXPECT_EQ(__gmpz_divisible_2exp_p(x, k), divides);
    EXPECT_EQ(__gmpz_congruent_2exp_p(x, zero, k), divides);
    __gmpz_fdiv_r_2exp(negative_rest, x, k);
    EXPECT_EQ(__gmpz_congruent_2exp_p(x, negative_rest, k), 1);
    return parts;
}

} // namespace

void add_division_operations(Operations& all) {
    for (const auto& [letter, family] :
         {std::pair{"t", &kTruncate}, {"f", &kFloor}, {"c", &kCeiling}}) {
        const std::string name = std::string(letter) + "div";
        all[name] = [f = family](const Ints& v) { return divide(*f, v[0], v[1]); };
        all[name + "_2exp"] = [f = family](const Ints& v) {
            return divide_2exp(*f, v[0], v[1].words.empty() ? 0 : v[1].words[0]);
        };
    }
    all["div_magnitudes"] = [](const Ints& v) { return magnitudes(v[0], v[1]); };
    all["mod"] = [](const Ints& v) { return modulo(v[0], v[1]); };
    all["mod_2exp"] = [](const Ints& v) {
        return modulo_2exp(v[0], v[1].words.empty() ? 0 : v[1].words[0]);
    };
}

} // namespace vor::test
