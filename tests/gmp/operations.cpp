#include "tests/gmp/operations.h"
#include "tests/gmp/big_number.h"
#include "tests/gmp/record.h"

#include <memory>
#include <sstream>
#include <tuple>

namespace vor::test {
namespace {

// Calls call(results, operands) with each result apart or in the place of an operand, and with one
// place for two operands of one value. A result may be an operand itself, with the value in `results`:
// then only operands of that value give it their place.
template <class Box, class Call>
Ints in_every_pattern(const Ints& results, const Ints& operands, bool update,
                      const std::function<std::unique_ptr<Box>(const Int&)>& make, Call call) {
    Ints first;
    const size_t places = operands.size() + 1; // 0 is apart
    size_t patterns = 1;
    for (size_t j = 0; j < results.size(); ++j) patterns *= places;
    const bool equal = operands.size() == 2 && operands[0] == operands[1];
    for (size_t pattern = 0; pattern < patterns * (equal ? 2 : 1); ++pattern) {
        SCOPED_TRACE("pattern " + std::to_string(pattern));
        std::vector<std::unique_ptr<Box>> apart, boxes;
        std::vector<Box*> r, a;
        for (const Int& value : operands) boxes.push_back(make(value));
        for (auto& box : boxes) a.push_back(pattern < patterns ? box.get() : boxes[0].get());
        bool allowed = true;
        for (size_t j = 0, digits = pattern; j < results.size(); ++j, digits /= places) {
            const size_t place = digits % places;
            apart.push_back(make(results[j]));
            r.push_back(place ? a[place - 1] : apart[j].get());
            allowed &= std::find(r.begin(), r.end() - 1, r[j]) == r.end() - 1;
            allowed &= !update || !place || operands[place - 1] == results[j];
        }
        if (!allowed) continue;
        call(r, a);
        Ints got;
        for (Box* box : r) got.push_back(box->value());
        if (pattern == 0) first = got;
        EXPECT_EQ(got, first);
        for (size_t i = 0; i < a.size(); ++i)
            EXPECT_TRUE(std::find(r.begin(), r.end(), a[i]) != r.end() ||
                        a[i]->value() == operands[i]);
    }
    return first;
}

uint32_t word(const Int& x) {
    return x.words.empty() ? 0 : x.words[0];
}

template <class W>
W as_word(const Int& x) {
    return static_cast<W>(x.negative ? -word(x) : word(x));
}

Int number(long long x) {
    return Int(x);
}

// ---- Records ---------------------------------------------------------------------------------

using Record = vor_mpz*;
using Value = const vor_mpz*;

// A function on records: those it writes are results, those it only reads operands. The integers are
// the values of the results, if it updates them, then those of the operands, then those of its words.
template <class R, class... P>
Operation records(R (*f)(P...), bool update = false) {
    return [=](const Ints& v) {
        constexpr size_t kResults = (std::is_same_v<P, Record> + ...);
        constexpr size_t kOperands = (std::is_same_v<P, Value> + ...);
        const auto operands = v.begin() + (update ? kResults : 0), words = operands + kOperands;
        const Ints results = update ? Ints(v.begin(), operands) : Ints(kResults);
        return in_every_pattern<Z>(
            results, Ints(operands, words), update,
            [](const Int& x) { return std::make_unique<Z>(x); },
            [&](const auto& r, const auto& a) {
                auto next_result = r.begin();
                auto next_operand = a.begin();
                auto next_word = words;
                const auto argument = [&]<class T>(T*) -> T {
                    if constexpr (std::is_same_v<T, Record>) {
                        return **next_result++;
                    } else if constexpr (std::is_same_v<T, Value>) {
                        return **next_operand++;
                    } else {
                        return as_word<T>(*next_word++);
                    }
                };
                std::apply(f, std::tuple<P...>{argument(static_cast<P*>(nullptr))...});
            });
    };
}

// What each function says of a record, and of a second value where it takes one.
template <class... F>
Operation queries(F... f) {
    return [=](const Ints& v) {
        Z x(v[0]);
        const auto ask = [&]<class R, class... P>(R (*g)(Value, P...)) {
            if constexpr ((std::is_same_v<P, Value> || ...))
                return number(g(x, Z(v[1])));
            else
                return number(g(x, as_word<P>(v[1])...));
        };
        return Ints{ask(f)...};
    };
}

// Limb arrays: r apart, in poisoned surroundings.
Ints limb_product(const Ints& v) {
    const bool swap = v[0].size() < v[1].size();
    const Int &a = v[swap], &b = v[!swap];
    Guarded<uint32_t> r(a.words.size() + b.words.size());
    const auto value = [&] { return Int(r.data(), r.size()); };
    __gmpn_mul(r.data(), a.words.data(), a.size(), b.words.data(), b.size());
    const Int result = value();
    mpn_mul_basecase(r.data(), b.words.data(), b.size(), a.words.data(), a.size());
    EXPECT_EQ(value(), result);
    if (a.size() == b.size()) {
        __gmpn_mul_n(r.data(), a.words.data(), b.words.data(), a.size());
        EXPECT_EQ(value(), result);
        vor_gmp_mul_n_kara(a.words.data(), b.words.data(), r.data(), a.size());
        EXPECT_EQ(value(), result);
    }
    EXPECT_TRUE(r.intact());
    return {result};
}

Ints limb_addmul(const Ints& v) {
    const auto& [r, a, b] = std::tie(v[0], v[1], v[2]);
    Guarded<uint32_t> out(std::max(r.words.size(), a.words.size() + b.words.size()) + 1);
    std::copy(r.words.begin(), r.words.end(), out.begin());
    const int n =
        mpn_addmul(out.data(), r.size(), a.words.data(), a.size(), b.words.data(), b.size());
    EXPECT_TRUE(out.intact());
    EXPECT_TRUE(n == 0 || out[static_cast<size_t>(n) - 1] != 0);
    return {Int(out.data(), static_cast<size_t>(n))};
}

// ---- Division ----------------------------------------------------------------------------------

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

// The two results of f, which q and r give one by one.
template <class QR, class Q>
Ints parts(QR qr, Q q, Q r, const Ints& v) {
    const Ints result = records(qr)(v);
    EXPECT_EQ(records(q)(v), Ints{result[0]});
    EXPECT_EQ(records(r)(v), Ints{result[1]});
    return result;
}

Ints divide(const Family& f, const Ints& v) {
    const Ints result = parts(f.qr, f.q, f.r, v);
    if (v[1].size() == 1 && !v[1].negative) {
        EXPECT_EQ(parts(f.qr_ui, f.q_ui, f.r_ui, v), result);
        const uint32_t d = word(v[1]), magnitude = word(result[1]);
        Z n(v[0]), q, r;
        EXPECT_EQ(f.qr_ui(q, r, n, d), magnitude);
        EXPECT_EQ(f.q_ui(q, n, d), magnitude);
        EXPECT_EQ(f.r_ui(r, n, d), magnitude);
        EXPECT_EQ(f.ui(n, d), magnitude);
    }
    return result;
}

// The remainder, and what follows from it for the divisibility of n by d and a congruence.
Ints modulo(const Ints& v) {
    const Ints result = records(__gmpz_mod)(v);
    const bool divides = result[0].words.empty();
    Z n(v[0]), d(v[1]), rest(result[0]);
    EXPECT_EQ(__gmpz_divisible_p(n, d), divides);
    EXPECT_EQ(__gmpz_congruent_p(n, rest, d), 1);
    EXPECT_TRUE(!divides || records(__gmpz_divexact)(v) == records(__gmpz_tdiv_q)(v));
    if (v[1].size() != 1 || v[1].negative) return result;
    const uint32_t w = word(v[1]), r = word(result[0]);
    EXPECT_EQ(__gmpz_divisible_ui_p(n, w), divides);
    EXPECT_EQ(__gmpz_congruent_ui_p(n, r, w), 1);
    EXPECT_EQ(__gmpz_congruent_ui_p(n, r + 1, w), w == 1);
    EXPECT_EQ(records(__gmpz_mod_ui)(v), result);
    EXPECT_TRUE(!divides || records(__gmpz_divexact_ui)(v) == records(__gmpz_tdiv_q)(v));
    return result;
}

Ints modulo_2exp(const Ints& v) {
    const Ints result = records(vor_gmp_divqr_2exp)(v);
    const bool divides = result[1].words.empty();
    Z n(v[0]), zero, rest(records(__gmpz_fdiv_r_2exp)(v)[0]);
    EXPECT_EQ(__gmpz_divisible_2exp_p(n, word(v[1])), divides);
    EXPECT_EQ(__gmpz_congruent_2exp_p(n, zero, word(v[1])), divides);
    EXPECT_EQ(__gmpz_congruent_2exp_p(n, rest, word(v[1])), 1);
    return result;
}

// ---- The big-number layer ----------------------------------------------------------------------

template <class Call>
Ints objects(const Ints& results, const Ints& operands, int room, Call call, bool update = false) {
    return in_every_pattern<Bn>(
        results, operands, update,
        [=](const Int& x) { return std::make_unique<Bn>(x, std::max(room, 1)); },
        [&](const auto& r, const auto& a) { EXPECT_EQ(call(r, a), tavStsNoErr); });
}

// r = f(a, b) in room for the longer operand and `more` words.
template <auto F>
Operation on_objects(int more) {
    return [=](const Ints& v) {
        return objects({Int()}, v, std::max({v[0].size(), v[1].size(), 1}) + more,
                       [](const auto& r, const auto& a) { return F(*a[0], *a[1], *r[0]); });
    };
}

Ints bn_multiply_add(const Ints& v) {
    const int room = std::max(v[0].size() + v[1].size(), v[2].size()) + 2;
    return objects(
        {v[2]}, {v[0], v[1]}, room,
        [](const auto& r, const auto& a) { return tavsMAC_BN_I(*a[0], *a[1], *r[0]); }, true);
}

Ints bn_divide(const Ints& v) {
    return objects(
        Ints(2), v, std::max(v[0].size(), v[1].size()),
        [](const auto& r, const auto& a) { return tavsDiv_BN(*a[0], *a[1], *r[0], *r[1]); });
}

Ints bn_inverse(const Ints& v) {
    Bn a(v[0]), m(v[1]), r(v[1].size());
    const TavStatus status = tavsModInv_BN(a, m, r);
    EXPECT_EQ(a.value(), v[0]);
    EXPECT_EQ(m.value(), v[1]) << "the modulus is rebuilt";
    if (status == tavStsBadModulusErr) return {Int(0)};
    EXPECT_EQ(status, tavStsNoErr);
    return {r.value()};
}

// r = f(a, modulus, r) or f(a, b, modulus, r), the modulus first among the values.
template <class Call>
Operation residues(Call call) {
    return [=](const Ints& v) {
        Mont mont(v[0]);
        return objects({Int()}, Ints(v.begin() + 1, v.end()), v[0].size(),
                       [&](const auto& r, const auto& a) { return call(a, mont, *r[0]); });
    };
}

std::map<std::string, Operation> all_operations() {
    std::map<std::string, Operation> all = {
        {"add", records(__gmpz_add)},
        {"sub", records(__gmpz_sub)},
        {"mul", records(__gmpz_mul)},
        {"and", records(__gmpz_and)},
        {"ior", records(__gmpz_ior)},
        {"xor", records(__gmpz_xor)},
        {"set", records(__gmpz_set)},
        {"neg", records(__gmpz_neg)},
        {"abs", records(__gmpz_abs)},
        {"com", records(__gmpz_com)},
        {"add_ui", records(__gmpz_add_ui)},
        {"sub_ui", records(__gmpz_sub_ui)},
        {"ui_sub", records(__gmpz_ui_sub)},
        {"mul_ui", records(__gmpz_mul_ui)},
        {"mul_si", records(__gmpz_mul_si)},
        {"mul_2exp", records(__gmpz_mul_2exp)},
        {"pow_ui", records(__gmpz_pow_ui)},
        {"ui_pow_ui", records(__gmpz_ui_pow_ui)},
        {"addmul", records(__gmpz_addmul, true)},
        {"submul", records(__gmpz_submul, true)},
        {"addmul_ui", records(__gmpz_addmul_ui, true)},
        {"submul_ui", records(__gmpz_submul_ui, true)},
        {"setbit", records(__gmpz_setbit, true)},
        {"clrbit", records(__gmpz_clrbit, true)},
        {"limb_product", limb_product},
        {"limb_addmul", limb_addmul},
        {"compare", queries(__gmpz_cmp, __gmpz_cmpabs, __gmpz_sgn)},
        {"compare_word", queries(__gmpz_cmp_ui, __gmpz_cmpabs_ui)},
        {"compare_signed", queries(__gmpz_cmp_si)},
        {"fits", queries(__gmpz_fits_sint_p, __gmpz_fits_uint_p, __gmpz_fits_slong_p,
                         __gmpz_fits_ulong_p, __gmpz_fits_sshort_p, __gmpz_fits_ushort_p)},
        {"low_word", queries(__gmpz_get_ui, __gmpz_get_si, __gmpz_size)},
        {"size_in_power_of_two", queries(__gmpz_sizeinbase)},
        {"bit", queries(__gmpz_tstbit, __gmpz_scan0, __gmpz_scan1)},
        {"popcount", queries(__gmpz_popcount)},
        {"hamdist", queries(__gmpz_hamdist)},
        {"div_magnitudes",
         [](const Ints& v) { return parts(vor_gmp_div_qr, vor_gmp_div_q, vor_gmp_div_r, v); }},
        {"mod", modulo},
        {"mod_2exp", modulo_2exp},
        {"bn_add", on_objects<tavsAdd_BN>(1)},
        {"bn_sub", on_objects<tavsSub_BN>(1)},
        {"bn_mod", on_objects<tavsMod_BN>(0)},
        {"bn_gcd", on_objects<tavsGcd_BN>(0)},
        {"bn_mul",
         [](const Ints& v) {
             const int more = std::min(v[0].size(), v[1].size());
             return on_objects<tavsMul_BN>(std::max(more, 1))(v);
         }},
        {"bn_mac", bn_multiply_add},
        {"bn_div", bn_divide},
        {"bn_modinv", bn_inverse},
        {"mont_form", residues([](const auto& a, MontState* n, BigNumState* r) {
             return tavsMontForm(*a[0], n, r);
         })},
        {"mont_mul", residues([](const auto& a, MontState* n, BigNumState* r) {
             return tavsMontMul(*a[0], *a[1], n, r);
         })},
        {"mont_exp", residues([](const auto& a, MontState* n, BigNumState* r) {
             return tavsMontExp(*a[0], *a[1], n, r);
         })},
    };
    static constexpr std::pair<const char*, Family> kFamilies[] = {
        {"tdiv", FAMILY(t)}, {"fdiv", FAMILY(f)}, {"cdiv", FAMILY(c)}};
    for (const auto& [name, f] : kFamilies) {
        all[name] = [&family = f](const Ints& v) { return divide(family, v); };
        all[std::string(name) + "_2exp"] = [&family = f](const Ints& v) {
            return Ints{records(family.q_2exp)(v)[0], records(family.r_2exp)(v)[0]};
        };
    }
    return all;
}

std::string digests(const Ints& values) {
    std::string text;
    for (const Int& value : values) text += (text.empty() ? "" : " ") + value.digest();
    return text;
}

} // namespace

const std::map<std::string, Operation>& operations() {
    static const auto all = all_operations();
    return all;
}

std::string run_case(const std::string& line) {
    SCOPED_TRACE(line.substr(0, 300));
    const size_t equals = line.find(" = ");
    std::istringstream question(line.substr(0, equals));
    std::string name, operand;
    question >> name;
    Ints operands;
    while (question >> operand) operands.emplace_back(operand);
    const auto operation = operations().find(name);
    if (operation == operations().end())
        ADD_FAILURE() << "no such operation";
    else
        EXPECT_EQ(digests(operation->second(operands)), line.substr(equals + 3));
    return name;
}

} // namespace vor::test
