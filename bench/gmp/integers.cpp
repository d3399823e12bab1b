// Multi-precision integers. Times aimed at are those of a processor at 3.2 GHz. The goals beside another
// library are for `vor bench --against libgmp.so.10`, which has the same names.
#include "bench/common/families.h"
#include "bench/gmp/records.h"
#include "gmp/thresholds.h"
#include "vor_bignum.h"

#include <map>

namespace vor::bench {

namespace {

constexpr double kCycle = 1 / 3.2e9;

// ---- Word arrays ---------------------------------------------------------------------------------

Case schoolbook(int n, double goal) {
    return {.name = of_size("cpMul_BNU_FullSize", n),
            .formula = "n^2 products",
            .work = static_cast<double>(n) * n,
            .limit = Limit::product32,
            .bind = [n](const Library& library) -> Call {
                const auto f = library.function<decltype(cpMul_BNU_FullSize)>("cpMul_BNU_FullSize");
                if (!f) return {};
                return [f, n, a = random_words(n, 1), b = random_words(n, 2),
                        r = Words(2 * static_cast<size_t>(n))]() mutable {
                    f(a.data(), n, b.data(), n, r.data());
                };
            },
            .goal = goal,
            .rivals = {}};
}

Case row(const char* name, int n, double cycles) {
    return {.name = of_size(name, n),
            .formula = "n products",
            .work = static_cast<double>(n),
            .limit = Limit::product32,
            .bind = [name, n](const Library& library) -> Call {
                const auto f = library.function<decltype(__gmpn_addmul_1)>(name);
                if (!f) return {};
                return [f, n, a = random_words(n, 1), r = random_words(n, 2)]() mutable {
                    f(r.data(), a.data(), n, 0x9e3779b9);
                };
            },
            .rivals = {},
            .most_seconds = cycles* n* kCycle};
}

Case sum(const char* name, int n, double cycles) {
    return {.name = of_size(name, n),
            .formula = "n additions",
            .work = static_cast<double>(n),
            .limit = Limit::none,
            .bind = [name, n](const Library& library) -> Call {
                const auto f = library.function<decltype(__gmpn_add_n)>(name);
                if (!f) return {};
                return [f, n, a = random_words(n, 1), b = random_words(n, 2),
                        r = Words(static_cast<size_t>(n))]() mutable {
                    f(r.data(), a.data(), b.data(), n);
                };
            },
            .rivals = {},
            .most_seconds = cycles* n* kCycle};
}

// ---- Montgomery ------------------------------------------------------------------------------------

struct Residues {
    std::vector<char> mont, x, r;
    MontState* modulus() { return reinterpret_cast<MontState*>(mont.data()); }
    BigNumState* operand() { return reinterpret_cast<BigNumState*>(x.data()); }
    BigNumState* result() { return reinterpret_cast<BigNumState*>(r.data()); }

    explicit Residues(int n) {
        int size;
        tavsMontGetSize(TavsSlidingWindows, n, &size);
        mont.resize(static_cast<size_t>(size));
        tavsBigNumGetSize(n, &size);
        x.resize(static_cast<size_t>(size));
        r.resize(static_cast<size_t>(size));
        Words words = random_words(n, 1);
        words[0] |= 1;
        tavsMontInit(TavsSlidingWindows, n, modulus());
        tavsMontSet(words.data(), n, modulus());
        tavsBigNumInit(n, operand());
        tavsBigNumInit(n, result());
        words.back() >>= 1;
        tavsSet_BN(TavsBigNumPOS, n, words.data(), operand());
    }
};

Case montgomery(int n, double cycles) {
    const double products = 2.0 * n * n; // n^2 of the product, n^2 of the reduction
    return {.name = of_size("tavsMontMul", n),
            .formula = "2 n^2 products",
            .work = products,
            .limit = Limit::product32,
            .bind = [n](const Library& library) -> Call {
                const auto f = library.function<decltype(tavsMontMul)>("tavsMontMul");
                if (!f) return {};
                return [f, data = std::make_shared<Residues>(n)] {
                    f(data->operand(), data->operand(), data->modulus(), data->result());
                };
            },
            .rivals = {},
            .most_seconds = cycles* products* kCycle};
}

// ---- Integers ----------------------------------------------------------------------------------------

Call product_call(const Library& library, int an, int bn) {
    const auto f = library.function<decltype(__gmpz_mul)>("__gmpz_mul");
    if (!f) return {};
    const auto a = record(library, an, 1), b = record(library, bn, 2),
               r = record(library, an + bn, 3);
    return [=] { f(r->get(), a->get(), b->get()); };
}

Call square_call(const Library& library, int n) {
    const auto f = library.function<decltype(__gmpz_mul)>("__gmpz_mul");
    if (!f) return {};
    const auto a = record(library, n, 1), r = record(library, 2 * n, 3);
    return [=] { f(r->get(), a->get(), a->get()); };
}

Call division_call(const Library& library, int an, int dn) {
    const auto f = library.function<decltype(__gmpz_tdiv_qr)>("__gmpz_tdiv_qr");
    if (!f) return {};
    const auto a = record(library, an, 1), d = record(library, dn, 2),
               q = record(library, an - dn + 2, 3), r = record(library, dn, 4);
    return [=] { f(q->get(), r->get(), a->get(), d->get()); };
}

// A function of a result, a record of n limbs and a word.
Call word_call(const Library& library, const char* name, int n, unsigned v) {
    const auto f = library.function<void(vor_mpz*, const vor_mpz*, unsigned)>(name);
    if (!f) return {};
    const auto a = record(library, n, 1), r = record(library, n + 4, 2);
    return [=] {
        r->get()->_mp_size = n;
        f(r->get(), a->get(), v);
    };
}

Call sum_call(const Library& library, const char* name, int n) {
    const auto f = library.function<decltype(__gmpz_add)>(name);
    if (!f) return {};
    const auto a = record(library, n, 1), b = record(library, n, 2), r = record(library, n + 1, 3);
    return [=] { f(r->get(), a->get(), b->get()); };
}

Call comparison_call(const Library& library, int n) {
    const auto f = library.function<decltype(__gmpz_cmp)>("__gmpz_cmp");
    if (!f) return {};
    const auto a = record(library, n, 1), b = record(library, n, 1);
    return [=] { f(a->get(), b->get()); };
}

std::string of_lengths(const char* name, int n, int m) {
    return std::string(name) + " n=" + std::to_string(n) + " m=" + std::to_string(m);
}

// Lengths, and what is aimed at beside another library of integers.
struct Row {
    int n, m;
    double slower;
};

void add_products(Suite& suite) {
    // A curve over the length: powers of two, both sides of each change of method.
    std::map<int, double> lengths{{512, 1},
                                  {2048, 1.05},
                                  {4095, 1.1},
                                  {16384, 1},
                                  {65536, 1},
                                  {gmp::kSchoolbookLength + 1, 0},
                                  {gmp::kFourierLength - 1, 0},
                                  {gmp::kFourierLength, 0}};
    for (int n = 4; n <= 262144; n *= 2) lengths.try_emplace(n, 0);
    for (const auto& [n, slower] : lengths)
        suite.push_back(
            integer(of_size("__gmpz_mul", n), 1.0 * n * n, slower,
                    [n = n](const Library& library) { return product_call(library, n, n); }));
    const Row rows[] = {{1000, 1, 1.2}, {1000, 2, 1.2},    {1000, 3, 1.2},      {1000, 5, 1.2},
                        {1000, 600, 0}, {6000, 4096, 1.1}, {65536, 40000, 1.1}, {100000, 2000, 0}};
    for (const Row row : rows)
        suite.push_back(
            integer(of_lengths("__gmpz_mul", row.n, row.m), 1.0 * row.n * row.m, row.slower,
                    [row](const Library& library) { return product_call(library, row.n, row.m); }));
    for (const int n : {2, 4, 8, 16, 24, 32, 64, 128, 256, 512, 1024, 4095, 16384, 65536})
        suite.push_back(integer(of_size("__gmpz_mul square", n), 0.5 * n * n,
                                n < 16     ? 0
                                : n > 1024 ? 1.2
                                           : 1.1,
                                [n](const Library& library) { return square_call(library, n); }));
}

void add_divisions(Suite& suite) {
    const Row rows[] = {
        {8, 4, 0},           {16, 8, 0},         {64, 32, 0},          {200, 100, 0},
        {1024, 512, 0},      {8192, 4096, 1.15}, {32768, 16384, 1.15}, {131072, 65536, 1.15},
        {109, 100, 1.3},     {1009, 1000, 1.3},  {10009, 10000, 1.3},  {65545, 65536, 1.3},
        {10500, 10000, 1.5}, {1000, 10, 0}};
    for (const Row row : rows)
        suite.push_back(integer(
            of_lengths("__gmpz_tdiv_qr", row.n, row.m), 1.0 * (row.n - row.m) * row.m, row.slower,
            [row](const Library& library) { return division_call(library, row.n, row.m); }));
}

void add_small(Suite& suite) {
    const struct {
        const char* name;
        int n;
        unsigned v;
        double slower;
    } words[] = {
        {"__gmpz_addmul_ui", 100, 0x9e3779b9, 1.2}, {"__gmpz_submul_ui", 100, 0x9e3779b9, 1.2},
        {"__gmpz_mul_ui", 1000, 0x9e3779b9, 1.2},   {"__gmpz_tdiv_q_ui", 1000, 1000000007, 0},
        {"__gmpz_mul_2exp", 1000, 37, 1.5},         {"__gmpz_tdiv_q_2exp", 1000, 37, 1.5}};
    for (const auto& w : words)
        suite.push_back(integer(of_size(w.name, w.n), w.n, w.slower, [w](const Library& library) {
            return word_call(library, w.name, w.n, w.v);
        }));
    for (int n = 1; n <= 4; ++n) {
        for (const char* const name : {"__gmpz_add", "__gmpz_sub"})
            suite.push_back(integer(of_size(name, n), n, 1.2, [name, n](const Library& library) {
                return sum_call(library, name, n);
            }));
        suite.push_back(integer(of_size("__gmpz_cmp", n), n, 1.2, [n](const Library& library) {
            return comparison_call(library, n);
        }));
    }
}

} // namespace

Suite gmp_cases() {
    Suite suite{schoolbook(16, 0.48),
                schoolbook(32, 0.58),
                row("__gmpn_addmul_1", 100, 2.3),
                row("__gmpn_submul_1", 100, 0),
                sum("__gmpn_add_n", 1000, 1.6),
                sum("__gmpn_sub_n", 1000, 1.6),
                montgomery(30, 2.3)};
    add_products(suite);
    add_divisions(suite);
    add_small(suite);
    return suite;
}

} // namespace vor::bench
