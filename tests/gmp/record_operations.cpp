#include "gmp/generator.h"
#include "tests/gmp/operations.h"
#include "tests/gmp/record.h"

namespace vor::test {
namespace {

using Record = vor_mpz*;
using Value = const vor_mpz*;

uint32_t word(const Int& x) {
    return x.words.empty() ? 0 : x.words[0];
}

int signed_word(const Int& x) {
    return static_cast<int>(x.negative ? -word(x) : word(x));
}

Int number(long long x) {
    return Int(x);
}

// r = f(a)
Ints unary(void (*f)(Record, Value), const Int& a) {
    Z x(a), r;
    f(r, x);
    const Int result = r.value();
    EXPECT_EQ(x.value(), a);
    f(x, x);
    EXPECT_EQ(x.value(), result) << "in place";
    return {result};
}

// r = f(a, b)
Ints binary(void (*f)(Record, Value, Value), const Int& a, const Int& b) {
    Z x(a), y(b), r;
    f(r, x, y);
    const Int result = r.value();
    EXPECT_EQ(x.value(), a);
    EXPECT_EQ(y.value(), b);
    f(x, x, y);
    EXPECT_EQ(x.value(), result) << "into the first operand";
    x.set(a);
    f(y, x, y);
    EXPECT_EQ(y.value(), result) << "into the second operand";
    if (a == b) {
        f(r, x, x);
        EXPECT_EQ(r.value(), result) << "one operand";
        f(x, x, x);
        EXPECT_EQ(x.value(), result) << "one record";
    }
    return {result};
}

// r = f(a, v), f(v, a) with a word v
template <class W>
Ints with_word(void (*f)(Record, Value, W), const Int& a, W v) {
    Z x(a), r;
    f(r, x, v);
    const Int result = r.value();
    EXPECT_EQ(x.value(), a);
    f(x, x, v);
    EXPECT_EQ(x.value(), result) << "in place";
    return {result};
}

// r = f(r, a, b), also where r is an operand, if the values allow it
Ints update(void (*f)(Record, Value, Value), const Int& r, const Int& a, const Int& b) {
    Z x(a), y(b), z(r);
    f(z, x, y);
    const Int result = z.value();
    EXPECT_EQ(x.value(), a);
    EXPECT_EQ(y.value(), b);
    if (a == r) {
        f(x, x, y);
        EXPECT_EQ(x.value(), result);
        x.set(a);
    }
    if (b == r) {
        f(y, x, y);
        EXPECT_EQ(y.value(), result);
    }
    if (a == r && b == r) {
        f(x, x, x);
        EXPECT_EQ(x.value(), result);
    }
    return {result};
}

Ints update_word(void (*f)(Record, Value, unsigned), const Int& r, const Int& a, const Int& v) {
    Z x(a), z(r);
    f(z, x, word(v));
    if (a == r) {
        f(x, x, word(v));
        EXPECT_EQ(x.value(), z.value());
    }
    return {z.value()};
}

// x = f(x, i)
Ints change(void (*f)(Record, unsigned), const Int& a, const Int& i) {
    Z x(a);
    f(x, word(i));
    return {x.value()};
}

// Limb arrays: r apart, in poisoned surroundings.
Ints limb_product(const Int& a, const Int& b) {
    const bool swap = a.size() < b.size();
    const Int &x = swap ? b : a, &y = swap ? a : b;
    Guarded<uint32_t> r(x.words.size() + y.words.size());
    __gmpn_mul(r.data(), x.words.data(), x.size(), y.words.data(), y.size());
    const Int result(r.data(), r.size());
    EXPECT_TRUE(r.intact());
    mpn_mul_basecase(r.data(), a.words.data(), a.size(), b.words.data(), b.size());
    EXPECT_EQ(Int(r.data(), r.size()), result);
    if (a.size() == b.size()) {
        __gmpn_mul_n(r.data(), a.words.data(), b.words.data(), a.size());
        EXPECT_EQ(Int(r.data(), r.size()), result);
        vor_gmp_mul_n_kara(a.words.data(), b.words.data(), r.data(), a.size());
        EXPECT_EQ(Int(r.data(), r.size()), result);
    }
    EXPECT_TRUE(r.intact());
    return {result};
}

Ints limb_multiply_add(const Int& r, const Int& a, const Int& b) {
    Guarded<uint32_t> out(std::max(r.words.size(), a.words.size() + b.words.size()) + 1);
    std::copy(r.words.begin(), r.words.end(), out.begin());
    const int n =
        mpn_addmul(out.data(), r.size(), a.words.data(), a.size(), b.words.data(), b.size());
    EXPECT_TRUE(out.intact());
    EXPECT_TRUE(n == 0 || out[static_cast<size_t>(n) - 1] != 0);
    return {Int(out.data(), static_cast<size_t>(n))};
}

void add_sums_and_products(Operations& all) {
    const auto rab = [&](const char* name, void (*f)(Record, Value, Value)) {
        all[name] = [f](const Ints& v) { return binary(f, v[0], v[1]); };
    };
    rab("add", __gmpz_add), rab("sub", __gmpz_sub), rab("mul", __gmpz_mul);
    rab("and", __gmpz_and), rab("ior", __gmpz_ior), rab("xor", __gmpz_xor);
    const auto ra = [&](const char* name, void (*f)(Record, Value)) {
        all[name] = [f](const Ints& v) { return unary(f, v[0]); };
    };
    ra("set", __gmpz_set), ra("neg", __gmpz_neg), ra("abs", __gmpz_abs), ra("com", __gmpz_com);
    const auto rav = [&](const char* name, void (*f)(Record, Value, unsigned)) {
        all[name] = [f](const Ints& v) { return with_word(f, v[0], word(v[1])); };
    };
    rav("add_ui", __gmpz_add_ui), rav("sub_ui", __gmpz_sub_ui), rav("mul_ui", __gmpz_mul_ui);
    rav("mul_2exp", __gmpz_mul_2exp), rav("pow_ui", __gmpz_pow_ui);
    rav("ui_sub", [](Record r, Value a, unsigned v) { __gmpz_ui_sub(r, v, a); });
    all["mul_si"] = [](const Ints& v) {
        return with_word(static_cast<void (*)(Record, Value, int)>(__gmpz_mul_si), v[0],
                         signed_word(v[1]));
    };
    all["ui_pow_ui"] = [](const Ints& v) {
        Z r;
        __gmpz_ui_pow_ui(r, word(v[0]), word(v[1]));
        return Ints{r.value()};
    };
    all["addmul"] = [](const Ints& v) { return update(__gmpz_addmul, v[0], v[1], v[2]); };
    all["submul"] = [](const Ints& v) { return update(__gmpz_submul, v[0], v[1], v[2]); };
    all["addmul_ui"] = [](const Ints& v) {
        return update_word(__gmpz_addmul_ui, v[0], v[1], v[2]);
    };
    all["submul_ui"] = [](const Ints& v) {
        return update_word(__gmpz_submul_ui, v[0], v[1], v[2]);
    };
    all["limb_product"] = [](const Ints& v) { return limb_product(v[0], v[1]); };
    all["limb_addmul"] = [](const Ints& v) { return limb_multiply_add(v[0], v[1], v[2]); };
}

void add_queries(Operations& all) {
    all["compare"] = [](const Ints& v) {
        Z x(v[0]), y(v[1]);
        return Ints{number(__gmpz_cmp(x, y)), number(__gmpz_cmpabs(x, y)), number(__gmpz_sgn(x))};
    };
    all["compare_word"] = [](const Ints& v) {
        Z x(v[0]);
        return Ints{number(__gmpz_cmp_ui(x, word(v[1]))), number(__gmpz_cmpabs_ui(x, word(v[1])))};
    };
    all["compare_signed"] = [](const Ints& v) {
        Z x(v[0]);
        return Ints{number(__gmpz_cmp_si(x, signed_word(v[1])))};
    };
    all["fits"] = [](const Ints& v) {
        Z x(v[0]);
        EXPECT_EQ(__gmpz_fits_slong_p(x), __gmpz_fits_sint_p(x));
        EXPECT_EQ(__gmpz_fits_ulong_p(x), __gmpz_fits_uint_p(x));
        return Ints{number(__gmpz_fits_sint_p(x)), number(__gmpz_fits_uint_p(x)),
                    number(__gmpz_fits_sshort_p(x)), number(__gmpz_fits_ushort_p(x))};
    };
    all["low_word"] = [](const Ints& v) {
        Z x(v[0]);
        return Ints{number(__gmpz_get_ui(x)), number(static_cast<unsigned>(__gmpz_get_si(x))),
                    number(__gmpz_size(x))};
    };
    all["size_in_power_of_two"] = [](const Ints& v) {
        Z x(v[0]);
        return Ints{number(__gmpz_sizeinbase(x, static_cast<int>(word(v[1]))))};
    };
}

Ints stream_words(uint32_t seed, int n) {
    void* stream;
    EXPECT_EQ(rngNewStream(&stream, 0x100000, seed), 0);
    std::vector<uint32_t> words(static_cast<size_t>(n));
    EXPECT_EQ(rngUniformBits(0, stream, n, words.data()), 0);
    EXPECT_EQ(rngDeleteStream(&stream), 0);
    return {Int(words.data(), words.size())};
}

void add_bits(Operations& all) {
    all["stream"] = [](const Ints& v) {
        return stream_words(word(v[0]), static_cast<int>(word(v[1])));
    };
    all["setbit"] = [](const Ints& v) { return change(__gmpz_setbit, v[0], v[1]); };
    all["clrbit"] = [](const Ints& v) { return change(__gmpz_clrbit, v[0], v[1]); };
    all["bit"] = [](const Ints& v) {
        Z x(v[0]);
        const unsigned i = word(v[1]);
        return Ints{number(__gmpz_tstbit(x, i)), number(__gmpz_scan0(x, i)),
                    number(__gmpz_scan1(x, i))};
    };
    all["popcount"] = [](const Ints& v) {
        Z x(v[0]);
        return Ints{number(__gmpz_popcount(x))};
    };
    all["hamdist"] = [](const Ints& v) {
        Z x(v[0]), y(v[1]);
        return Ints{number(__gmpz_hamdist(x, y))};
    };
}

} // namespace

void add_record_operations(Operations& all) {
    add_sums_and_products(all);
    add_queries(all);
    add_bits(all);
}

} // namespace vor::test
