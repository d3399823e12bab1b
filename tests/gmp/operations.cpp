#include "tests/gmp/operations.h"
#include "tests/gmp/boxes.h"

#include <bit>
#include <fstream>
#include <memory>
#include <optional>
#include <sstream>
#include <tuple>

namespace vor::test {
namespace {

// Calls call(results, operands) with each result apart or in the place of an operand, and with one
// place for two operands of one value. A result may be an operand itself, with the value in `results`:
// then only operands of that value give it their place. `size` is the room of every box, if it has one.
template <class Box, class Call, class... Size>
Ints in_every_pattern(const Ints& results, const Ints& operands, bool update, Call call,
                      Size... size) {
    const auto make = [=](const Int& x) { return std::make_unique<Box>(x, size...); };
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

// ---- Records ---------------------------------------------------------------------------------

using Record = vor_mpz*;
using Value = const vor_mpz*;

// A function on records: those it writes are results, those it only reads operands. The integers are
// the values of the results, if it updates them, then those of the operands, then those of its words.
// With a value, what the function returns follows the results.
template <bool with_value = false, class R, class... P>
Operation records(R (*f)(P...), bool update = false) {
    return [=](const Ints& v) {
        std::optional<Int> value;
        constexpr size_t kResults = (std::is_same_v<P, Record> + ...);
        constexpr size_t kOperands = (std::is_same_v<P, Value> + ...);
        const auto operands = v.begin() + (update ? kResults : 0), words = operands + kOperands;
        const Ints results = update ? Ints(v.begin(), operands) : Ints(kResults);
        Ints got = in_every_pattern<Z>(
            results, Ints(operands, words), update, [&](const auto& r, const auto& a) {
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
                const std::tuple<P...> arguments{argument(static_cast<P*>(nullptr))...};
                if constexpr (with_value) {
                    const Int returned(std::apply(f, arguments));
                    if (!value) value = returned;
                    EXPECT_EQ(returned, *value);
                } else {
                    std::apply(f, arguments);
                }
            });
        if (value) got.push_back(*value);
        return got;
    };
}

// What each function says of a record, and of a second value where it takes one.
template <class... F>
Operation queries(F... f) {
    return [=](const Ints& v) {
        Z x(v[0]);
        const auto ask = [&]<class R, class... P>(R (*g)(Value, P...)) {
            if constexpr ((std::is_same_v<P, Value> || ...))
                return Int(g(x, Z(v[1])));
            else
                return Int(g(x, as_word<P>(v[1])...));
        };
        return Ints{ask(f)...};
    };
}

Ints compare_double(const Ints& v) {
    uint64_t pattern = 0;
    for (size_t i = v[1].words.size(); i-- > 0;) pattern = pattern << 32 | v[1].words[i];
    Z x(v[0]);
    return {Int(__gmpz_cmp_d(x, std::bit_cast<double>(pattern))),
            Int(__gmpz_cmpabs_d(x, std::bit_cast<double>(pattern)))};
}

// ---- Number theory and conversions ---------------------------------------------------------------

// Without an inverse r has no value.
int inverse_or_zero(Record r, Value a, Value m) {
    const int found = __gmpz_invert(r, a, m);
    if (!found) __gmpz_set_ui(r, 0);
    return found;
}

Ints gcdext(const Ints& v) {
    const Ints result = records(__gmpz_gcdext)(v);
    Z a(v[0]), b(v[1]), g, s;
    __gmpz_gcdext(g, s, nullptr, a, b);
    EXPECT_EQ(g.value(), result[0]);
    EXPECT_EQ(s.value(), result[1]);
    return result;
}

// The power, by a word too where the exponent is one.
Ints powm(const Ints& v) {
    const Ints result = records(__gmpz_powm)(v);
    if (v[1].size() <= 1 && !v[1].negative) {
        EXPECT_EQ(records(__gmpz_powm_ui)({v[0], v[2], v[1]}), result);
    }
    return result;
}

// The symbol, and what the other entries say where an operand is a word.
Ints kronecker(const Ints& v) {
    Z a(v[0]), b(v[1]);
    const int symbol = __gmpz_jacobi(a, b);
    const auto is_word = [](const Int& x) { return x.size() <= 1 && !x.negative; };
    const auto is_signed = [](const Int& x) { return x.size() <= 1 && !(word(x) >> 31); };
    EXPECT_TRUE(!is_word(v[1]) || __gmpz_kronecker_ui(a, word(v[1])) == symbol);
    EXPECT_TRUE(!is_signed(v[1]) || __gmpz_kronecker_si(a, as_word<int>(v[1])) == symbol);
    EXPECT_TRUE(!is_word(v[0]) || __gmpz_ui_kronecker(word(v[0]), b) == symbol);
    EXPECT_TRUE(!is_signed(v[0]) || __gmpz_si_kronecker(as_word<int>(v[0]), b) == symbol);
    if (is_word(v[0]) && is_word(v[1]) && word(v[1]) % 2) {
        EXPECT_EQ(mpn_jacobi_base(word(v[0]), word(v[1])), word(v[0]) ? symbol : 0);
    }
    return {Int(symbol)};
}

// A binomial coefficient, a term and both: where there are two functions.
template <class F, class G>
Operation first_of(F two, G one) {
    return [=](const Ints& v) {
        const Ints result = records(two)(v);
        EXPECT_EQ(records(one)(v), Ints{result[0]});
        return result;
    };
}

Ints binomial(const Ints& v) {
    const Ints result = records(__gmpz_bin_ui)(v);
    const bool is_word = v[0].size() <= 1 && !v[0].negative;
    EXPECT_TRUE(!is_word || records(__gmpz_bin_uiui)(v) == result);
    return result;
}

Ints root(const Ints& v) {
    const Ints result = records<true>(__gmpz_root)(v);
    EXPECT_TRUE(word(v[1]) != 2 || records(__gmpz_sqrt)({v[0]}) == Ints{result[0]});
    return result;
}

Ints probab_prime(const Ints& v) {
    Z n(v[0]);
    const int answer = __gmpz_probab_prime_p(n, as_word<int>(v[1]));
    return {Int(answer)};
}

// Bytes, the first one the most significant.
Int of_bytes(const void* bytes, size_t n) {
    const auto* const p = static_cast<const unsigned char*>(bytes);
    std::vector<uint32_t> words(n / 4 + 1);
    for (size_t i = 0; i < n; ++i) words[i / 4] |= uint32_t{p[n - 1 - i]} << i % 4 * 8;
    return Int(words.data(), words.size());
}

// The characters of the text, by all that write it and read it back.
Ints text(const Ints& v) {
    Z x(v[0]), read;
    const int base = as_word<int>(v[1]);
    const size_t room = std::max(__gmpz_sizeinbase(x, base), 1u) + 2;
    Guarded<char> buffer(room);
    EXPECT_EQ(__gmpz_get_str(buffer.data(), base, x), buffer.data());
    const std::string digits(buffer.data());
    char* const block = __gmpz_get_str(nullptr, -base, x);
    EXPECT_EQ(block, digits);
    __gmp_default_free(block, 0);
    Guarded<char> exact(digits.size() + 1);
    __gmpz_get_str(exact.data(), base, x);
    EXPECT_TRUE(buffer.intact() && exact.intact());
    if (base == 16) {
        EXPECT_EQ(vor_gmp_get_hexstr(exact.data(), x), digits);
        EXPECT_TRUE(exact.intact());
    }
    EXPECT_EQ(__gmpz_set_str(read, digits.c_str(), base), 0);
    EXPECT_EQ(read.value(), v[0]);
    return {of_bytes(digits.data(), digits.size())};
}

Int of_double(double d) {
    const auto pattern = std::bit_cast<uint64_t>(d);
    const uint32_t words[] = {static_cast<uint32_t>(pattern), static_cast<uint32_t>(pattern >> 32)};
    return Int(words, 2);
}

Ints get_d(const Ints& v) {
    Z x(v[0]);
    int exponent;
    const double fraction = __gmpz_get_d_2exp(&exponent, x);
    return {of_double(__gmpz_get_d(x)), of_double(fraction), Int(exponent)};
}

Ints set_d(const Ints& v) {
    Z r(Int("-ones(300)"));
    const Row pattern(v[0], 2);
    __gmpz_set_d(r, std::bit_cast<double>(uint64_t{pattern[1]} << 32 | pattern[0]));
    return {r.value()};
}

// The words as bytes behind a byte 1, and what they are read as.
Ints words(const Ints& v) {
    const int order = as_word<int>(v[1]), endian = as_word<int>(v[3]);
    const unsigned size = word(v[2]), nails = word(v[4]);
    const unsigned bits = 8 * size - nails;
    const unsigned most = (32 * static_cast<unsigned>(v[0].size()) + bits - 1) / bits;
    Z x(v[0]), read;
    Guarded<unsigned char> bytes(1 + size_t{most} * size);
    bytes[0] = 1;
    unsigned count = 77;
    EXPECT_EQ(__gmpz_export(bytes.data() + 1, &count, order, size, endian, nails, x),
              bytes.data() + 1);
    EXPECT_TRUE(bytes.intact());
    if (void* const block = __gmpz_export(nullptr, nullptr, order, size, endian, nails, x)) {
        EXPECT_EQ(std::memcmp(block, bytes.data() + 1, size_t{count} * size), 0);
        __gmp_default_free(block, 0);
    }
    const Int image = of_bytes(bytes.data(), 1 + size_t{count} * size);
    if (nails > 0) // the nails are not read
        for (unsigned i = 0; i < count; ++i)
            bytes[1 + i * size + (endian == -1 ? size - 1 : 0)] |=
                static_cast<unsigned char>(0xff << (nails < 8 ? 8 - nails : 0));
    __gmpz_import(read, count, order, size, endian, nails, bytes.data() + 1);
    EXPECT_EQ(read.value(), Int(v[0].words.data(), v[0].words.size()));
    return {Int(count), image};
}

// ---- Limb arrays -------------------------------------------------------------------------------

// What f leaves of n limbs, x at first, with the carry that it returns above them.
template <class F>
Int row(size_t n, const Int& x, F f) {
    Row r(x, n);
    r.carry = f(static_cast<uint32_t*>(r));
    return r.value();
}

// Sums and differences of a and b, and of b and a w, over the limbs of the longer one, by all that
// form them.
Ints limb_rows(const Ints& v) {
    const Int &a = v[0], &b = v[1];
    const int n = std::max({a.size(), b.size(), 1});
    const auto size = static_cast<size_t>(n);
    const uint32_t w = word(v[2]);
    Row x(a, size), y(b, size);
    unsigned carry;
    const auto in_place_too = [&](const Ints& operands, auto f) {
        return in_every_pattern<Row>(
            {Int()}, operands, false,
            [&](const auto& r, const auto& z) { r[0]->carry = f(*r[0], z); }, size)[0];
    };
    const auto sum = [&](auto f) {
        return in_place_too({a, b}, [&](auto& r, auto& z) { return f(r, *z[0], *z[1], n); });
    };
    const auto with_word = [&](auto f) {
        return in_place_too({a}, [&](auto& r, auto& z) { return f(r, *z[0], n, w); });
    };
    // r = f(r, a), in the layer that takes the carry by address.
    const auto by_address = [&](const Int& start, auto f, uint32_t* z) {
        return row(size, start, [&](auto* r) { return f(z ? z : r, r, n, w, &carry), carry; });
    };
    const Ints results = {
        sum(__gmpn_add_n),
        sum(__gmpn_sub_n),
        with_word(__gmpn_add_1),
        with_word(__gmpn_sub_1),
        by_address(a, tavsMulOne_BNU, nullptr),
        row(size, b, [&](auto* r) { return __gmpn_addmul_1(r, x, n, w); }),
        row(size, b, [&](auto* r) { return __gmpn_submul_1(r, x, n, w); }),
        Int(__gmpn_cmp(x, y, n)),
    };
    EXPECT_EQ(row(size, a, [&](auto* r) { return tavsAdd_BNU(r, y, r, n, &carry), carry; }),
              results[0]);
    EXPECT_EQ(row(size, a, [&](auto* r) { return tavsSub_BNU(r, y, r, n, &carry), carry; }),
              results[1]);
    EXPECT_EQ(by_address(b, tavsMACOne_BNU_I, x), results[5]);
    EXPECT_EQ(by_address(b, cpSubMulDgt_BNU, x), results[6]);
    return results;
}

// The product by everything that forms it.
Ints limb_product(const Ints& v) {
    const bool swap = v[0].size() < v[1].size();
    const Int &a = v[swap], &b = v[!swap];
    const uint32_t *const x = a.words.data(), *const y = b.words.data();
    const int an = a.size(), bn = b.size();
    const auto product = [&](auto f) {
        return row(static_cast<size_t>(an + bn), Int(), [&](auto* r) { return f(r), 0; });
    };
    const Int result = product([&](auto* r) { __gmpn_mul(r, x, an, y, bn); });
    EXPECT_EQ(product([&](auto* r) { mpn_mul_basecase(r, y, bn, x, an); }), result);
    EXPECT_EQ(product([&](auto* r) { cpMul_BNU_FullSize(y, bn, x, an, r); }), result);
    if (an != bn) return {result};
    EXPECT_EQ(product([&](auto* r) { __gmpn_mul_n(r, x, y, an); }), result);
    EXPECT_EQ(product([&](auto* r) { vor_gmp_mul_n_kara(x, y, r, an); }), result);
    for (const auto& [n, multiply, square] : {std::tuple(4, &tavsMul_BNU4, &tavsSqr_BNU4),
                                              std::tuple(8, &tavsMul_BNU8, &tavsSqr_BNU8)}) {
        if (an != n) continue;
        EXPECT_EQ(product([&](auto* r) { multiply(x, y, r); }), result);
        EXPECT_EQ(product([&](auto* r) { square(x, r); }),
                  product([&](auto* r) { cpMul_BNU_FullSize(x, n, x, n, r); }));
    }
    return {result};
}

// By transforms: twice the longer operand, all of it written.
Ints dft_product(const Ints& v) {
    return {row(2 * std::max(v[0].words.size(), v[1].words.size()), Int(), [&](auto* r) {
        vor_gmp_mul_dft(v[0].words.data(), v[0].size(), v[1].words.data(), v[1].size(), r);
        return 0;
    })};
}

Ints limb_addmul(const Ints& v) {
    const auto& [r, a, b] = std::tie(v[0], v[1], v[2]);
    Row out(r, std::max(r.words.size(), a.words.size() + b.words.size()) + 1);
    const int n = mpn_addmul(out, r.size(), a.words.data(), a.size(), b.words.data(), b.size());
    EXPECT_TRUE(n == 0 || out[n - 1] != 0);
    return {Int(out, static_cast<size_t>(n))};
}

// Two limbs by one and three by two, the quotient being one limb.
uint32_t inverse(uint32_t d) {
    return d == 0x80000000u ? ~0u : mpl_udiv_qqrnnd(0 - d, 0, d);
}

Ints divide_2_by_1(const Ints& v) {
    const Row n(v[0], 2);
    const uint32_t d = word(v[1]), low = n[0], high = n[1];
    unsigned q, r;
    EXPECT_EQ(tavsDiv_64u32u(low, high, d, &q, &r), tavStsNoErr);
    EXPECT_EQ(mpl_udiv_qqrnnd(high, low, d), q);
    EXPECT_EQ(cpDiv64u32u(low, high, d), uint64_t{r} << 32 | q);
    uint32_t rest = r;
    EXPECT_TRUE(d >> 31 == 0 || vor_gmp_udiv_qrnnd_preinv(&rest, high, low, d, inverse(d)) == q);
    EXPECT_EQ(rest, r);
    return {Int(q), Int(r)};
}

Ints divide_3_by_2(const Ints& v) {
    const Row n(v[0], 3), d(v[1], 2);
    return {Int(mpl_divq_3_by_2(n + 2, d[1], d[0], inverse(d[1])))};
}

// ---- Division ----------------------------------------------------------------------------------

// The two results of f, which q and r give one by one.
template <class QR, class Q>
Ints parts(QR qr, Q q, Q r, const Ints& v) {
    const Ints result = records(qr)(v);
    EXPECT_EQ(records(q)(v), Ints{result[0]});
    EXPECT_EQ(records(r)(v), Ints{result[1]});
    return result;
}

// A family by records, and where the divisor is a word by that, with the magnitude of the remainder.
template <class QR, class Q, class QRWord, class QWord>
Operation division(QR qr, Q q, Q r, QRWord qr_ui, QWord q_ui, QWord r_ui,
                   unsigned (*ui)(Value, unsigned)) {
    return [=](const Ints& v) {
        const Ints result = parts(qr, q, r, v);
        if (v[1].size() != 1 || v[1].negative) return result;
        EXPECT_EQ(parts(qr_ui, q_ui, r_ui, v), result);
        const uint32_t d = word(v[1]), magnitude = word(result[1]);
        Z n(v[0]), x, y;
        EXPECT_EQ(qr_ui(x, y, n, d), magnitude);
        EXPECT_EQ(q_ui(x, n, d), magnitude);
        EXPECT_EQ(r_ui(y, n, d), magnitude);
        EXPECT_EQ(ui(n, d), magnitude);
        return result;
    };
}

template <class F>
Operation shifts(F q, F r) {
    return [=](const Ints& v) { return Ints{records(q)(v)[0], records(r)(v)[0]}; };
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

// In plenty of room, in the least that holds operands and results and is not less than `least`, and in
// one word less, where the call is refused and leaves the results as they were.
template <class Call>
Ints objects(const Ints& results, const Ints& operands, int least, Call call, bool update = false) {
    const auto in_room = [&](int room, auto run) {
        return in_every_pattern<Bn>(results, operands, update, run, room);
    };
    const auto accepted = [&](const auto& r, const auto& a) { EXPECT_EQ(call(r, a), tavStsNoErr); };
    const auto refused = [&](const auto& r, const auto& a) {
        Ints before;
        for (Bn* x : r) before.push_back(x->value());
        EXPECT_EQ(call(r, a), tavStsOutOfRangeErr);
        for (size_t j = 0; j < r.size(); ++j) EXPECT_EQ(r[j]->value(), before[j]);
        for (Bn* x : r) x->set(Int()); // the same in every pattern
    };
    int longest = 1, sum = 2;
    for (const Ints& values : {results, operands})
        for (const Int& x : values) longest = std::max(longest, x.size()), sum += x.size();
    const Ints got = in_room(std::max(sum, least), accepted);
    least = std::max(least, longest);
    for (const Int& x : got) least = std::max(least, x.size());
    EXPECT_EQ(in_room(least, accepted), got);
    // A square needs more only in place.
    const bool square = operands.size() == 2 && operands[0] == operands[1];
    if (least > longest && !square) in_room(least - 1, refused);
    return got;
}

// r = f(a, b), or q and r, or r = f(a, b, r) of three values.
template <auto F, bool product = false>
Ints on_objects(const Ints& v) {
    using B = BigNumState*;
    constexpr bool kTwoResults = std::is_invocable_v<decltype(F), B, B, B, B>;
    const bool update = v.size() == 3;
    const Ints operands(v.begin(), v.begin() + 2);
    // A product needs room for all of its words but the top one, a square in place for that too.
    const int words = std::max(v[0].size(), 1) + std::max(v[1].size(), 1);
    return objects(
        update ? Ints{v[2]} : Ints(1 + kTwoResults), operands, product ? words - (v[0] != v[1]) : 1,
        [](const auto& r, const auto& a) {
            if constexpr (kTwoResults)
                return F(*a[0], *a[1], *r[0], *r[1]);
            else
                return F(*a[0], *a[1], *r[0]);
        },
        update);
}

Ints bn_compare(const Ints& v) {
    Bn a(v[0]), b(v[1]);
    unsigned with_b, with_zero;
    EXPECT_EQ(tavsCmp_BN(a, b, &with_b), tavStsNoErr);
    EXPECT_EQ(tavsCmpZero_BN(a, &with_zero), tavStsNoErr);
    return {Int(with_b), Int(with_zero)};
}

Ints bn_inverse(const Ints& v) {
    Bn a(v[0]), m(v[1]), r(Int(), v[1].size());
    const TavStatus status = tavsModInv_BN(a, m, r);
    EXPECT_EQ(a.value(), v[0]);
    EXPECT_EQ(m.value(), v[1]) << "the modulus is rebuilt";
    if (status == tavStsBadModulusErr) return {Int(0)};
    EXPECT_EQ(status, tavStsNoErr);
    return {r.value()};
}

// r = f(a, modulus) or f(a, b, modulus), the modulus first among the values.
template <auto F>
Ints residues(const Ints& v) {
    Mont mont(v[0]);
    const Ints operands(v.begin() + 1, v.end());
    return objects({Int()}, operands, v[0].size(), [&](const auto& r, const auto& a) {
        if constexpr (std::is_invocable_v<decltype(F), BigNumState*, MontState*, BigNumState*>)
            return F(*a[0], mont, *r[0]);
        else
            return F(*a[0], *a[1], mont, *r[0]);
    });
}

std::map<std::string, Operation> all_operations() {
    return {
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
        {"limb_rows", limb_rows},
        {"limb_product", limb_product},
        {"limb_addmul", limb_addmul},
        {"dft_product", dft_product},
        {"divide_2_by_1", divide_2_by_1},
        {"divide_3_by_2", divide_3_by_2},
        {"compare", queries(__gmpz_cmp, __gmpz_cmpabs, __gmpz_sgn)},
        {"compare_word", queries(__gmpz_cmp_ui, __gmpz_cmpabs_ui)},
        {"compare_double", compare_double},
        {"compare_signed", queries(__gmpz_cmp_si)},
        {"fits", queries(__gmpz_fits_sint_p, __gmpz_fits_uint_p, __gmpz_fits_slong_p,
                         __gmpz_fits_ulong_p, __gmpz_fits_sshort_p, __gmpz_fits_ushort_p)},
        {"low_word", queries(__gmpz_get_ui, __gmpz_get_si, __gmpz_size)},
        {"size_in_power_of_two", queries(__gmpz_sizeinbase)},
        {"bit", queries(__gmpz_tstbit, __gmpz_scan0, __gmpz_scan1)},
        {"popcount", queries(__gmpz_popcount)},
        {"hamdist", queries(__gmpz_hamdist)},
        {"tdiv", division(__gmpz_tdiv_qr, __gmpz_tdiv_q, __gmpz_tdiv_r, __gmpz_tdiv_qr_ui,
                          __gmpz_tdiv_q_ui, __gmpz_tdiv_r_ui, __gmpz_tdiv_ui)},
        {"tdiv_2exp", shifts(__gmpz_tdiv_q_2exp, __gmpz_tdiv_r_2exp)},
        {"fdiv", division(__gmpz_fdiv_qr, __gmpz_fdiv_q, __gmpz_fdiv_r, __gmpz_fdiv_qr_ui,
                          __gmpz_fdiv_q_ui, __gmpz_fdiv_r_ui, __gmpz_fdiv_ui)},
        {"fdiv_2exp", shifts(__gmpz_fdiv_q_2exp, __gmpz_fdiv_r_2exp)},
        {"cdiv", division(__gmpz_cdiv_qr, __gmpz_cdiv_q, __gmpz_cdiv_r, __gmpz_cdiv_qr_ui,
                          __gmpz_cdiv_q_ui, __gmpz_cdiv_r_ui, __gmpz_cdiv_ui)},
        {"cdiv_2exp", shifts(__gmpz_cdiv_q_2exp, __gmpz_cdiv_r_2exp)},
        {"div_magnitudes",
         [](const Ints& v) { return parts(vor_gmp_div_qr, vor_gmp_div_q, vor_gmp_div_r, v); }},
        {"mod", modulo},
        {"gcd", records(__gmpz_gcd)},
        {"gcd_ui", records<true>(__gmpz_gcd_ui)},
        {"lcm", records(__gmpz_lcm)},
        {"lcm_ui", records(__gmpz_lcm_ui)},
        {"gcdext", gcdext},
        {"invert", records<true>(inverse_or_zero)},
        {"powm", powm},
        {"powm_mary", records(mpz_powm_mary)},
        {"powm_exp2", records(mpl_powm_exp2)},
        {"modinv_exp2", records(mpl_modinv_exp2)},
        {"pow_2exp", records(_impPow2Exp)},
        {"powm_2exp",
         [](const Ints& v) {
             return records(_impPowm2Exp)({v[0], v[2], v[1]});
         }},
        {"kronecker", kronecker},
        {"probab_prime", probab_prime},
        {"nextprime", records(__gmpz_nextprime)},
        {"root", root},
        {"sqrtrem", records(__gmpz_sqrtrem)},
        {"perfect", queries(__gmpz_perfect_power_p, __gmpz_perfect_square_p)},
        {"fac_ui", records(__gmpz_fac_ui)},
        {"bin_ui", binomial},
        {"fib2_ui", first_of(__gmpz_fib2_ui, __gmpz_fib_ui)},
        {"lucnum2_ui", first_of(__gmpz_lucnum2_ui, __gmpz_lucnum_ui)},
        {"remove", records<true>(__gmpz_remove)},
        {"text", text},
        {"get_d", get_d},
        {"set_d", set_d},
        {"words", words},
        {"mod_2exp", modulo_2exp},
        {"bn_add", on_objects<tavsAdd_BN>},
        {"bn_sub", on_objects<tavsSub_BN>},
        {"bn_mod", on_objects<tavsMod_BN>},
        {"bn_gcd", on_objects<tavsGcd_BN>},
        {"bn_mul", on_objects<tavsMul_BN, true>},
        {"bn_mac", on_objects<tavsMAC_BN_I, true>},
        {"bn_div", on_objects<tavsDiv_BN>},
        {"bn_compare", bn_compare},
        {"bn_modinv", bn_inverse},
        {"mont_form", residues<tavsMontForm>},
        {"mont_mul", residues<tavsMontMul>},
        {"mont_exp", residues<tavsMontExp>},
    };
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

void for_each_case(const std::function<void(const std::string&)>& f) {
    std::ifstream file(VOR_GMP_CASES);
    for (std::string line; !::testing::Test::HasFailure() && std::getline(file, line);) f(line);
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
