// Multi-precision integers. Times aimed at are those of a processor at 3.2 GHz.
#include "bench/common/families.h"
#include "gmp/thresholds.h"
#include "vor_bignum.h"
#include "vor_gmp.h"

#include <map>
#include <memory>
#include <random>

namespace vor::bench {

namespace {

constexpr double kCycle = 1 / 3.2e9;

using Words = std::vector<unsigned>;

Words random_words(int n, unsigned seed) {
    std::mt19937 random(seed);
    Words words(static_cast<size_t>(n));
    for (unsigned& word : words) word = static_cast<unsigned>(random());
    words.back() |= 0x80000000;
    return words;
}

std::string of_size(const char* name, int n) {
    return std::string(name) + " n=" + std::to_string(n);
}

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

// Records over the library that is timed: it owns their memory.
class Record {
public:
    Record(const Library& library, int n, unsigned seed)
        : clear_(library.function<void(vor_mpz*)>("__gmpz_clear")) {
        library.function<void(vor_mpz*, unsigned)>("__gmpz_init2")(&x_,
                                                                   32u * static_cast<unsigned>(n));
        const Words words = random_words(n, seed);
        std::copy(words.begin(), words.end(), x_._mp_d);
        x_._mp_size = n;
    }
    ~Record() { clear_(&x_); }
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;
    vor_mpz* get() { return &x_; }

private:
    vor_mpz x_;
    void (*clear_)(vor_mpz*);
};

using RecordPointer = std::shared_ptr<Record>;

Call product_call(const Library& library, int n) {
    const auto f = library.function<decltype(__gmpz_mul)>("__gmpz_mul");
    if (!f) return {};
    const RecordPointer a(new Record(library, n, 1)), b(new Record(library, n, 2)),
        r(new Record(library, 2 * n, 3));
    return [=] { f(r->get(), a->get(), b->get()); };
}

Case product(int n, double most_microseconds) {
    return {.name = of_size("__gmpz_mul", n),
            .formula = "n^2 products",
            .work = static_cast<double>(n) * n,
            .limit = Limit::product32,
            .bind = [n](const Library& library) { return product_call(library, n); },
            .rivals = {},
            .most_seconds = most_microseconds * 1e-6};
}

// Lengths for a curve of time over n, every power of two and both sides of each change of method; the
// most microseconds of those that have a goal, else 0.
std::map<int, double> product_goals() {
    std::map<int, double> goals{{64, 2.2},   {512, 50},     {2048, 400},
                                {4096, 950}, {16384, 4700}, {65536, 25000}};
    for (int n = 4; n <= 262144; n *= 2) goals.try_emplace(n, 0);
    for (const int n : {gmp::kSchoolbookLength, gmp::kSchoolbookLength + 1, gmp::kFourierLength - 1,
                        gmp::kFourierLength})
        goals.try_emplace(n, 0);
    return goals;
}

constexpr double kDivisionRatio = 2.6; // the most that a division may cost in products

Case division(int n) {
    return {.name = "__gmpz_tdiv_qr 2n by n, " + of_size("", n).substr(1),
            .formula = "n^2 products",
            .work = static_cast<double>(n) * n,
            .limit = Limit::product32,
            .bind = [n](const Library& library) -> Call {
                const auto f = library.function<decltype(__gmpz_tdiv_qr)>("__gmpz_tdiv_qr");
                if (!f) return {};
                const RecordPointer a(new Record(library, 2 * n, 1)), d(new Record(library, n, 2)),
                    q(new Record(library, n + 2, 3)), r(new Record(library, n, 4));
                return [=] { f(q->get(), r->get(), a->get(), d->get()); };
            },
            .rivals = {{.name = "n by n product",
                        .bind = [n](const Library& library) { return product_call(library, n); },
                        .goal = 1 / kDivisionRatio}}};
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
    for (const auto& [n, microseconds] : product_goals()) suite.push_back(product(n, microseconds));
    for (const int n : {64, 512, 4096}) suite.push_back(division(n));
    return suite;
}

} // namespace vor::bench
