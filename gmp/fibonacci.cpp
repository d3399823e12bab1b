// Numbers of Fibonacci and Lucas by doubling the index, two squares to a bit (Knuth, 1.2.8):
//
//     F(2k - 1) = F(k)^2 + F(k-1)^2,   F(2k + 1) = 4 F(k)^2 - F(k-1)^2 + 2 (-1)^k,
//     F(2k) = F(2k + 1) - F(2k - 1)
#include "gmp/integer.h"

using namespace vor::gmp;

namespace {

// The pair (F(k), F(k - 1)) and the steps of k.
class Pair {
public:
    Pair() { vor_gmp___gmpz_set_ui(f_, 1); } // k = 1
    vor_mpz* f() { return f_; }
    vor_mpz* before() { return before_; }

    // To k = n; n > 0.
    void climb(unsigned n) {
        for (unsigned i = static_cast<unsigned>(31 - __builtin_clz(n)); i-- > 0;) step(n >> i);
    }

private:
    // From k = m / 2 to k = m.
    void step(unsigned m) {
        vor_gmp___gmpz_mul(square_, f_, f_);
        vor_gmp___gmpz_mul(before_square_, before_, before_);
        vor_gmp___gmpz_add(before_, square_, before_square_); // F(2k - 1)
        vor_gmp___gmpz_mul_2exp(f_, square_, 2);
        vor_gmp___gmpz_sub(f_, f_, before_square_);
        if (m / 2 % 2)
            vor_gmp___gmpz_sub_ui(f_, f_, 2);
        else
            vor_gmp___gmpz_add_ui(f_, f_, 2); // F(2k + 1)
        if (m % 2)
            vor_gmp___gmpz_sub(before_, f_, before_);
        else
            vor_gmp___gmpz_sub(f_, f_, before_);
    }

    Temporary f_, before_, square_, before_square_;
};

// f = F(n), f1 = F(n - 1); f1 may be null.
void fibonacci(vor_mpz* f, vor_mpz* f1, unsigned n) {
    if (n == 0) {
        vor_gmp___gmpz_set_ui(f, 0);
        if (f1) vor_gmp___gmpz_set_ui(f1, 1);
        return;
    }
    Pair pair;
    pair.climb(n);
    vor_gmp___gmpz_swap(f, pair.f());
    if (f1) vor_gmp___gmpz_swap(f1, pair.before());
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
