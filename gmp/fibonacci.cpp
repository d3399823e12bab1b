// Numbers of Fibonacci and Lucas by doubling the index, two squares to a bit (Knuth, 1.2.8):
//
//     F(2k - 1) = F(k)^2 + F(k-1)^2,   F(2k + 1) = 4 F(k)^2 - F(k-1)^2 + 2 (-1)^k,
//     F(2k) = F(2k + 1) - F(2k - 1)
#include "gmp/integer.h"

using namespace vor::gmp;

namespace {

constexpr unsigned kLastOfTwoLimbs = 93; // F(93) < 2^64

void set_two_limbs(vor_mpz* x, uint64_t v) {
    x->_mp_d[0] = static_cast<limb_t>(v);
    x->_mp_d[1] = static_cast<limb_t>(v >> 32);
    finish(x, 2, false);
}

// (F(n), F(n - 1)) for n from 1 to kLastOfTwoLimbs.
struct Words {
    uint64_t f = 1, before = 0;

    explicit Words(unsigned n) {
        while (--n) {
            const uint64_t next = f + before;
            before = f;
            f = next;
        }
    }
};

// The pair (F(k), F(k - 1)) and the steps of k.
class Pair {
public:
    // k = the leading bits of n that make two limbs, n > 0.
    explicit Pair(unsigned n) : left_(0) {
        while (n >> left_ > kLastOfTwoLimbs) ++left_;
        const Words words(n >> left_);
        set_two_limbs(f_, words.f);
        set_two_limbs(before_, words.before);
    }
    vor_mpz* f() { return f_; }
    vor_mpz* before() { return before_; }

    // To k = n >> last.
    void climb(unsigned n, unsigned last) {
        while (left_ > last) step(n >> --left_);
    }
    // From k = n / 2 to F(n) alone, by one product: F(2k) = F(k) (F(k) + 2 F(k-1)),
    // F(2k + 1) = (2 F(k) + F(k-1)) (2 F(k) - F(k-1)) + 2 (-1)^k.
    void last_step(unsigned n) {
        if (n % 2 == 0) {
            vor_gmp___gmpz_mul_2exp(before_, before_, 1);
            vor_gmp___gmpz_add(before_, before_, f_);
            return vor_gmp___gmpz_mul(f_, f_, before_);
        }
        vor_gmp___gmpz_mul_2exp(f_, f_, 1);
        vor_gmp___gmpz_add(square_, f_, before_);
        vor_gmp___gmpz_sub(before_, f_, before_);
        vor_gmp___gmpz_mul(f_, square_, before_);
        add_alternating_two(n / 2);
    }

private:
    void add_alternating_two(unsigned k) {
        if (k % 2)
            vor_gmp___gmpz_sub_ui(f_, f_, 2);
        else
            vor_gmp___gmpz_add_ui(f_, f_, 2);
    }
    // From k = m / 2 to k = m.
    void step(unsigned m) {
        vor_gmp___gmpz_mul(square_, f_, f_);
        vor_gmp___gmpz_mul(before_square_, before_, before_);
        vor_gmp___gmpz_add(before_, square_, before_square_); // F(2k - 1)
        vor_gmp___gmpz_mul_2exp(f_, square_, 2);
        vor_gmp___gmpz_sub(f_, f_, before_square_);
        add_alternating_two(m / 2); // F(2k + 1)
        if (m % 2)
            vor_gmp___gmpz_sub(before_, f_, before_);
        else
            vor_gmp___gmpz_sub(f_, f_, before_);
    }

    unsigned left_;
    Temporary f_, before_, square_, before_square_;
};

// f = F(n), f1 = F(n - 1); f1 may be null.
void fibonacci(vor_mpz* f, vor_mpz* f1, unsigned n) {
    if (n == 0) {
        vor_gmp___gmpz_set_ui(f, 0);
        if (f1) vor_gmp___gmpz_set_ui(f1, 1);
        return;
    }
    if (n <= kLastOfTwoLimbs) {
        const Words words(n);
        set_two_limbs(f, words.f);
        if (f1) set_two_limbs(f1, words.before);
        return;
    }
    Pair pair(n);
    pair.climb(n, f1 ? 0 : 1);
    if (f1)
        vor_gmp___gmpz_swap(f1, pair.before());
    else
        pair.last_step(n);
    vor_gmp___gmpz_swap(f, pair.f());
}

// l = L(n) = F(n) + 2 F(n - 1), l1 = L(n - 1) = 2 F(n) - F(n - 1); l1 may be null.
void lucas(vor_mpz* l, vor_mpz* l1, unsigned n) {
    Temporary f, f1;
    fibonacci(f, f1, n);
    vor_gmp___gmpz_mul_2exp(l, f1, 1);
    vor_gmp___gmpz_add(l, l, f);
    if (!l1) return;
    vor_gmp___gmpz_mul_2exp(l1, f, 1);
    vor_gmp___gmpz_sub(l1, l1, f1);
}

} // namespace

VOR_GMP(void, __gmpz_fib_ui, __GMPZ_FIB_UI, vor_gmp___gmpz_fib_ui, (vor_mpz * x, unsigned v),
        (x, v)) {
    fibonacci(x, nullptr, v);
}

VOR_GMP(void, __gmpz_fib2_ui, __GMPZ_FIB2_UI, vor_gmp___gmpz_fib2_ui,
        (vor_mpz * f, vor_mpz* f1, unsigned n), (f, f1, n)) {
    fibonacci(f, f1, n);
}

VOR_GMP(void, __gmpz_lucnum_ui, __GMPZ_LUCNUM_UI, vor_gmp___gmpz_lucnum_ui,
        (vor_mpz * x, unsigned v), (x, v)) {
    lucas(x, nullptr, v);
}

VOR_GMP(void, __gmpz_lucnum2_ui, __GMPZ_LUCNUM2_UI, vor_gmp___gmpz_lucnum2_ui,
        (vor_mpz * f, vor_mpz* f1, unsigned n), (f, f1, n)) {
    lucas(f, f1, n);
}
