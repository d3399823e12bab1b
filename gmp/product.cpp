// Products of integers. r may be an operand.
#include "gmp/integer.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kLocalProduct = 512; // limbs of an aliased product that is built on the stack

limb_t magnitude(int v) {
    return v < 0 ? 0 - static_cast<limb_t>(v) : static_cast<limb_t>(v);
}

using Combine = void (*)(vor_mpz*, const vor_mpz*, const vor_mpz*);

// r = r + a * b or r - a * b.
void accumulate(vor_mpz* r, const vor_mpz* a, const vor_mpz* b, Combine combine) {
    Temporary product;
    vor_gmp___gmpz_mul(product, a, b);
    combine(r, r, product);
}

// r = r + a * v, or r - a * v if `subtract`.
void accumulate_word(vor_mpz* r, const vor_mpz* a, limb_t v, bool subtract) {
    const int an = value_size(a), rn = limbs_of(r), n = an > rn ? an : rn;
    if (an == 0 || v == 0) return;
    bool minus = negative(r);
    const bool sum = minus == (negative(a) != subtract);
    limb_t* const d = grow(r, uint64_t{1} + n);
    limb::clear(d + rn, n - rn);
    if (sum) {
        d[n] = limb::increment(d + an, n - an, limb::addmul_1(d, a->_mp_d, an, v));
    } else {
        const limb_t borrow = limb::decrement(d + an, n - an, limb::submul_1(d, a->_mp_d, an, v));
        d[n] = 0 - borrow;
        if (borrow) {
            limb::negate(d, d, n + 1);
            minus = !minus;
        }
    }
    finish(r, n + 1, minus);
}

} // namespace

VOR_GMP(void, __gmpz_mul, __GMPZ_MUL, vor_gmp___gmpz_mul,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    const int an = value_size(a), bn = value_size(b);
    const bool minus = negative(a) != negative(b);
    if (an == 0 || bn == 0) {
        r->_mp_size = 0;
        return;
    }
    const int n = an + bn;
    if (r == a || r == b) {
        Limbs<kLocalProduct> product(n);
        limb::multiply(product, a->_mp_d, an, b->_mp_d, bn);
        limb::copy(grow(r, n), product, n);
    } else {
        limb_t* const d = grow(r, n);
        limb::multiply(d, a->_mp_d, an, b->_mp_d, bn);
    }
    finish(r, n, minus);
}

VOR_GMP(void, __gmpz_mul_ui, __GMPZ_MUL_UI, vor_gmp___gmpz_mul_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    const int n = value_size(a);
    if (n == 0 || v == 0) {
        r->_mp_size = 0;
        return;
    }
    const bool minus = negative(a);
    limb_t* const d = grow(r, uint64_t{1} + n);
    d[n] = limb::mul_1(d, a->_mp_d, n, v); // reads ahead of what it writes: r may be a
    finish(r, n + 1, minus);
}

VOR_GMP(void, __gmpz_mul_si, __GMPZ_MUL_SI, vor_gmp___gmpz_mul_si,
        (vor_mpz * r, const vor_mpz* a, int v), (r, a, v)) {
    vor_gmp___gmpz_mul_ui(r, a, magnitude(v));
    if (v < 0) r->_mp_size = -r->_mp_size;
}

VOR_GMP(void, __gmpz_addmul, __GMPZ_ADDMUL, vor_gmp___gmpz_addmul,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    accumulate(r, a, b, vor_gmp___gmpz_add);
}

VOR_GMP(void, __gmpz_submul, __GMPZ_SUBMUL, vor_gmp___gmpz_submul,
        (vor_mpz * r, const vor_mpz* a, const vor_mpz* b), (r, a, b)) {
    accumulate(r, a, b, vor_gmp___gmpz_sub);
}

VOR_GMP(void, __gmpz_addmul_ui, __GMPZ_ADDMUL_UI, vor_gmp___gmpz_addmul_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    accumulate_word(r, a, v, false);
}

VOR_GMP(void, __gmpz_submul_ui, __GMPZ_SUBMUL_UI, vor_gmp___gmpz_submul_ui,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    accumulate_word(r, a, v, true);
}

VOR_GMP(void, __gmpz_mul_2exp, __GMPZ_MUL_2EXP, vor_gmp___gmpz_mul_2exp,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    const int n = value_size(a);
    if (v == 0 || n == 0) return vor_gmp___gmpz_set(r, a);
    const bool minus = negative(a);
    const int whole = static_cast<int>(v / 32);
    limb_t* const d = grow(r, uint64_t{1} + n + whole);
    d[whole + n] = limb::lshift(d + whole, a->_mp_d, n, v % 32);
    limb::clear(d, whole);
    finish(r, n + whole + 1, minus);
    clear_above(r, n + whole + 1);
}
