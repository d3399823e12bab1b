// Long integers: 100,000 decimals of e from its series, summed by binary splitting (Brent: The complexity
// of multiple-precision arithmetic, 1976; Haible and Papanikolaou, Fast multiprecision evaluation of
// series of rational numbers, ANTS-III, LNCS 1423 (1998) 338-350), a prime of Mersenne proved by the test
// of Lucas and Lehmer (Lehmer, Journal of the London Mathematical Society 10, 1935), and the product of
// two more.
#include "tools/tour/chapters.h"
#include "vor_gmp.h"

#include <chrono>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace vor::tool {

namespace {

class Integer {
public:
    explicit Integer(unsigned value = 0) { __gmpz_init_set_ui(&record_, value); }
    Integer(Integer&& other) noexcept : Integer() { __gmpz_swap(&record_, &other.record_); }
    Integer& operator=(Integer&& other) noexcept {
        __gmpz_swap(&record_, &other.record_);
        return *this;
    }
    ~Integer() { __gmpz_clear(&record_); }
    vor_mpz* get() { return &record_; }
    const vor_mpz* get() const { return &record_; }

private:
    vor_mpz record_;
};

Integer operator*(const Integer& a, const Integer& b) {
    Integer product;
    __gmpz_mul(product.get(), a.get(), b.get());
    return product;
}

class Clock {
public:
    double seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start_).count();
    }

private:
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

// ---- Decimals of e -------------------------------------------------------------------------------

constexpr int kDecimals = 100000, kGuards = 20, kShown = 50;

// Decimals 99951 to 100000, from the series term by term with Python's integers; the first ones are in
// every table. (The digits: On-Line Encyclopedia of Integer Sequences, A001113.)
constexpr char kFirst[] = "71828182845904523536028747135266249775724709369995";
constexpr char kLast[] = "42843941834687865142541377686054291079721004271658";

// p / q = the sum of first! / k! for k from first + 1 to last; q = last! / first!.
struct Fraction {
    Integer p, q;
};

Fraction terms(unsigned first, unsigned last) {
    if (last - first == 1) return {Integer(1), Integer(last)};
    const unsigned middle = first + (last - first) / 2;
    Fraction low = terms(first, middle), high = terms(middle, last);
    Fraction sum = {low.p * high.q, low.q * high.q};
    __gmpz_add(sum.p.get(), sum.p.get(), high.p.get());
    return sum;
}

// The first k with k! above 10^digits: the terms behind it are no larger than 2 / (k + 1)!.
unsigned terms_for(int digits) {
    unsigned k = 1;
    for (double logarithm = 0; logarithm <= digits; logarithm += std::log10(k)) ++k;
    return k;
}

// The digits behind the point. Series and division fall short of e by less than two units of the last
// guard digit.
std::string decimals_of_e() {
    Fraction e = terms(0, terms_for(kDecimals + kGuards));
    Integer scale;
    __gmpz_ui_pow_ui(scale.get(), 10, kDecimals + kGuards);
    e.p = e.p * scale;
    __gmpz_tdiv_q(e.p.get(), e.p.get(), e.q.get()); // e - 1
    __gmpz_sub(e.p.get(), e.p.get(), scale.get());  // e - 2
    std::string text(__gmpz_sizeinbase(e.p.get(), 10) + 2, '\0');
    __gmpz_get_str(text.data(), 10, e.p.get());
    return text.substr(0, kDecimals); // the first digit is not 0
}

bool check_e() {
    const Clock clock;
    const std::string digits = decimals_of_e();
    const double seconds = clock.seconds();
    const std::string last = digits.substr(kDecimals - kShown);
    const bool agrees = digits.substr(0, kShown) == kFirst && last == kLast;
    std::printf("e = 2.%s...\n", digits.substr(0, kShown).c_str());
    std::printf("decimals %d to %d: %s, known as %s: %s\n", kDecimals - kShown + 1, kDecimals,
                last.c_str(), kLast, agrees ? "agrees" : "DIFFERS");
    std::printf("%d decimals in %.3g seconds\n\n", kDecimals, seconds);
    return agrees;
}

// ---- A prime of Mersenne --------------------------------------------------------------------------

Integer mersenne(unsigned exponent) {
    Integer m(1);
    __gmpz_mul_2exp(m.get(), m.get(), exponent);
    __gmpz_sub_ui(m.get(), m.get(), 1);
    return m;
}

// 2^p - 1 is prime for an odd prime p if and only if it divides s(p - 2), with s(0) = 4 and
// s(i) = s(i - 1)^2 - 2. Modulo 2^p - 1 the bits above p count as they stand.
bool lucas_lehmer(unsigned p) {
    const Integer m = mersenne(p);
    Integer s(4), high;
    for (unsigned i = 2; i < p; ++i) {
        __gmpz_mul(s.get(), s.get(), s.get());
        __gmpz_sub_ui(s.get(), s.get(), 2);
        while (__gmpz_sizeinbase(s.get(), 2) > p) {
            __gmpz_tdiv_q_2exp(high.get(), s.get(), p);
            __gmpz_tdiv_r_2exp(s.get(), s.get(), p);
            __gmpz_add(s.get(), s.get(), high.get());
        }
    }
    return __gmpz_divisible_p(s.get(), m.get()) == 1;
}

bool check_prime() {
    constexpr unsigned kPrime = 9689, kComposite = 9697; // the first: Gillies 1964
    const Clock clock;
    const bool prime = lucas_lehmer(kPrime), composite = !lucas_lehmer(kComposite);
    std::printf("Lucas and Lehmer: 2^%u - 1 is %s, 2^%u - 1 is %s: %s, in %.3g seconds\n\n", kPrime,
                prime ? "prime" : "composite", kComposite, composite ? "composite" : "prime",
                prime && composite ? "agrees" : "DIFFERS", clock.seconds());
    return prime && composite;
}

// ---- A product of two primes ---------------------------------------------------------------------

// 2^n - 1 is prime for both (Slowinski and Gage 1996; Armengaud, Woltman and others 1996).
constexpr unsigned kSmaller = 1257787, kLarger = 1398269;

// 2^exponent - 1 modulo a word, in words only.
uint64_t mersenne_modulo(unsigned exponent, uint64_t modulus) {
    uint64_t power = 1;
    for (int bit = 31; bit >= 0; --bit) {
        power = power * power % modulus;
        if (exponent >> bit & 1) power = power * 2 % modulus;
    }
    return (power + modulus - 1) % modulus;
}

bool check_product() {
    const Integer a = mersenne(kSmaller), b = mersenne(kLarger);
    const Clock clock;
    const Integer product = a * b;
    const double seconds = clock.seconds();
    bool right = __gmpz_sizeinbase(product.get(), 2) == kSmaller + kLarger;
    // The largest primes below 2^32. A wrong product passes one of them by chance in 1 of 4e9 cases.
    constexpr unsigned kPrimes[] = {4294967291u, 4294967279u, 4294967231u, 4294967197u};
    for (unsigned p : kPrimes)
        right = right && __gmpz_fdiv_ui(product.get(), p) ==
                             mersenne_modulo(kSmaller, p) * mersenne_modulo(kLarger, p) % p;
    std::printf("(2^%u - 1) (2^%u - 1), two primes: a product of %u bits in %.3g seconds\n",
                kSmaller, kLarger, __gmpz_sizeinbase(product.get(), 2), seconds);
    std::printf("its remainders by %zu primes of 32 bits, computed in words: %s\n",
                std::size(kPrimes), right ? "agrees" : "DIFFERS");
    return right;
}

} // namespace

bool long_integers(const Tour&) {
    const bool e = check_e(), prime = check_prime(), product = check_product();
    return e && prime && product;
}

} // namespace vor::tool
