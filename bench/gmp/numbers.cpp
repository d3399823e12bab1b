// Powers modulo m, number theory and text, beside another library of integers with the same names:
// `vor bench --against libgmp.so.10`.
#include "bench/gmp/records.h"

namespace vor::bench {

namespace {

constexpr double kDigitsOfLimb = 9.632; // decimal ones

// A record that is odd and below those with the top bit set.
RecordPointer odd(const Library& library, int n, unsigned seed) {
    const auto x = record(library, n, seed);
    x->get()->_mp_d[0] |= 1;
    x->get()->_mp_d[n - 1] >>= 1;
    return x;
}

Call power_call(const Library& library, int n) {
    const auto f = library.function<decltype(__gmpz_powm)>("__gmpz_powm");
    if (!f) return {};
    const auto r = record(library, n, 9), a = odd(library, n, 1), e = odd(library, n, 2),
               m = record(library, n, 3);
    m->get()->_mp_d[0] |= 1;
    return [=] { f(r->get(), a->get(), e->get(), m->get()); };
}

// f(r, a, b) with a below b, both odd.
Call pair_call(const Library& library, const char* name, int n) {
    const auto f = library.function<int(vor_mpz*, const vor_mpz*, const vor_mpz*)>(name);
    if (!f) return {};
    const auto r = record(library, n + 2, 9), a = odd(library, n, 1), b = record(library, n, 2);
    b->get()->_mp_d[0] |= 1;
    return [=] { f(r->get(), a->get(), b->get()); };
}

Call symbol_call(const Library& library, int n) {
    const auto f = library.function<decltype(__gmpz_jacobi)>("__gmpz_jacobi");
    if (!f) return {};
    const auto a = record(library, n, 1), b = odd(library, n, 2);
    return [=] { f(a->get(), b->get()); };
}

Call unary_call(const Library& library, const char* name, int n) {
    const auto f = library.function<void(vor_mpz*, const vor_mpz*)>(name);
    if (!f) return {};
    const auto r = record(library, n + 2, 9), a = record(library, n, 1);
    return [=] { f(r->get(), a->get()); };
}

Call root_call(const Library& library, int n, unsigned k) {
    const auto f = library.function<decltype(__gmpz_root)>("__gmpz_root");
    if (!f) return {};
    const auto r = record(library, n + 2, 9), a = record(library, n, 1);
    return [=] { f(r->get(), a->get(), k); };
}

Call test_call(const Library& library, const char* name, int n, int reps) {
    const auto f = library.function<int(const vor_mpz*, int)>(name);
    const auto next = library.function<decltype(__gmpz_nextprime)>("__gmpz_nextprime");
    if (!f || !next) return {};
    const auto a = odd(library, n, 1);
    if (reps > 0) next(a->get(), a->get());
    return [=] { f(a->get(), reps); };
}

Call word_call(const Library& library, const char* name, unsigned v) {
    const auto f = library.function<void(vor_mpz*, unsigned)>(name);
    if (!f) return {};
    const auto r = record(library, 8, 9);
    return [=] { f(r->get(), v); };
}

Call binomial_call(const Library& library, unsigned n, unsigned k) {
    const auto f = library.function<decltype(__gmpz_bin_uiui)>("__gmpz_bin_uiui");
    if (!f) return {};
    const auto r = record(library, 8, 9);
    return [=] { f(r->get(), n, k); };
}

Call text_out_call(const Library& library, int digits) {
    const auto f = library.function<decltype(__gmpz_get_str)>("__gmpz_get_str");
    if (!f) return {};
    const auto x = record(library, static_cast<int>(digits / kDigitsOfLimb) + 1, 1);
    const auto text = std::make_shared<std::string>(static_cast<size_t>(digits) + 20, '\0');
    return [=] { f(text->data(), 10, x->get()); };
}

Call text_in_call(const Library& library, int digits) {
    const auto f = library.function<decltype(__gmpz_set_str)>("__gmpz_set_str");
    if (!f) return {};
    const auto r = record(library, digits / 9 + 2, 9);
    std::string text;
    for (int i = 0; i < digits; ++i) text += static_cast<char>('1' + (7 * i + i / 13) % 9);
    return [=] { f(r->get(), text.c_str(), 10); };
}

} // namespace

Suite number_cases() {
    Suite suite;
    const auto add = [&](const std::string& name, double work, double slower, Binder bind) {
        suite.push_back(integer(name, work, slower, std::move(bind)));
    };
    const std::pair<int, double> powers[] = {{8, 1.4},  {16, 1.4}, {30, 1.4},
                                             {31, 1.1}, {64, 1.1}, {128, 1.1}};
    for (const auto& [n, slower] : powers)
        add(of_size("__gmpz_powm", n), 64.0 * n * n * n, slower,
            [n = n](const Library& library) { return power_call(library, n); });
    const std::pair<int, double> divisors[] = {{2, 0},     {10, 0},     {100, 1.3},
                                               {300, 1.4}, {1000, 1.5}, {3000, 0}};
    for (const auto& [n, slower] : divisors)
        add(of_size("__gmpz_gcd", n), 1.0 * n * n, slower,
            [n = n](const Library& library) { return pair_call(library, "__gmpz_gcd", n); });
    for (const int n : {16, 64, 1000}) {
        add(of_size("__gmpz_invert", n), 1.0 * n * n, 1.5,
            [n](const Library& library) { return pair_call(library, "__gmpz_invert", n); });
        add(of_size("__gmpz_jacobi", n), 1.0 * n * n, 0,
            [n](const Library& library) { return symbol_call(library, n); });
    }
    for (const int digits : {20, 1000, 10000, 100000, 1000000}) {
        const double slower = digits == 100000 ? 1.3 : 0;
        add(of_size("__gmpz_get_str digits", digits), digits, slower,
            [digits](const Library& library) { return text_out_call(library, digits); });
        add(of_size("__gmpz_set_str digits", digits), digits, slower,
            [digits](const Library& library) { return text_in_call(library, digits); });
    }
    for (const unsigned n : {100u, 1000u, 10000u, 100000u})
        add(of_size("__gmpz_fac_ui", static_cast<int>(n)), n, n >= 1000 ? 1.5 : 0,
            [n](const Library& library) { return word_call(library, "__gmpz_fac_ui", n); });
    const std::pair<unsigned, unsigned> binomials[] = {
        {1000, 500}, {100000, 50000}, {1000000, 1000}};
    for (const auto& [n, k] : binomials)
        add(of_size("__gmpz_bin_uiui", static_cast<int>(n)) + " k=" + std::to_string(k), k, 1.5,
            [n = n, k = k](const Library& library) { return binomial_call(library, n, k); });
    for (const unsigned n : {100u, 10000u, 1000000u})
        add(of_size("__gmpz_fib_ui", static_cast<int>(n)), n, n == 1000000 ? 1.5 : 0,
            [n](const Library& library) { return word_call(library, "__gmpz_fib_ui", n); });
    for (const int n : {16, 64}) {
        add(of_size("__gmpz_nextprime", n), n, 1.5,
            [n](const Library& library) { return unary_call(library, "__gmpz_nextprime", n); });
        add(of_size("__gmpz_probab_prime_p 25", n), n, 1.5, [n](const Library& library) {
            return test_call(library, "__gmpz_probab_prime_p", n, 25);
        });
    }
    for (const int n : {2, 100, 1000, 10000})
        add(of_size("__gmpz_sqrt", n), 1.0 * n * n, n == 1000 ? 1.5 : 0,
            [n](const Library& library) { return unary_call(library, "__gmpz_sqrt", n); });
    for (const unsigned k : {3u, 5u, 20u})
        add(of_size("__gmpz_root", 1000) + " k=" + std::to_string(k), 1e6, 1.5,
            [k](const Library& library) { return root_call(library, 1000, k); });
    for (const int n : {2, 1000})
        add(of_size("__gmpz_perfect_power_p", n), n, n == 1000 ? 1.5 : 0,
            [n](const Library& library) {
                return test_call(library, "__gmpz_perfect_power_p", n, 0);
            });
    return suite;
}

} // namespace vor::bench
