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

} // namespace

VOR_ENGINE void vor_gmp___gmpz_mul PARAMS_RAB {
    if (limbs_of(a) < limbs_of(b)) return vor_gmp___gmpz_mul(r, b, a);
    const int an = value_size(a), bn = value_size(b);
    const bool minus = negative(a) != negative(b);
    if (an == 0 || bn == 0) {
        r->_mp_size = 0;
        return;
    }
    const int n = an + bn;
    if (r == a || r == b) {
        Limbs<kLocalProduct> product(n);
        vor_gmp___gmpn_mul(product, a->_mp_d, an, b->_mp_d, bn);
        copy_limbs(grow(r, n), product, n);
    } else {
        vor_gmp___gmpn_mul(grow(r, n), a->_mp_d, an, b->_mp_d, bn);
    }
    finish(r, n, minus);
}

VOR_ENGINE void vor_gmp___gmpz_mul_ui PARAMS_RAV {
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

VOR_ENGINE void vor_gmp___gmpz_mul_si PARAMS_RAI {
    vor_gmp___gmpz_mul_ui(r, a, magnitude(v));
    if (v < 0) r->_mp_size = -r->_mp_size;
}

VOR_ENGINE void vor_gmp___gmpz_addmul PARAMS_RAB {
    accumulate(r, a, b, vor_gmp___gmpz_add);
}

VOR_ENGINE void vor_gmp___gmpz_submul PARAMS_RAB {
    accumulate(r, a, b, vor_gmp___gmpz_sub);
}

VOR_ENGINE void vor_gmp___gmpz_addmul_ui PARAMS_RAV {
    accumulate(r, a, WordValue(v), vor_gmp___gmpz_add);
}

VOR_ENGINE void vor_gmp___gmpz_submul_ui PARAMS_RAV {
    accumulate(r, a, WordValue(v), vor_gmp___gmpz_sub);
}

VOR_ENGINE void vor_gmp___gmpz_mul_2exp PARAMS_RAV {
    const int n = value_size(a);
    if (v == 0 || n == 0) return vor_gmp___gmpz_set(r, a);
    const bool minus = negative(a);
    const int whole = static_cast<int>(v / 32);
    limb_t* const d = grow(r, uint64_t{1} + n + whole);
    // From the top down, since r may be a.
    const limb_t* const s = a->_mp_d;
    const unsigned bits = v % 32;
    limb_t above = 0;
    for (int i = n - 1; i >= 0; --i) {
        const limb_t x = s[i];
        d[whole + i + 1] = static_cast<limb_t>((dlimb_t{above} << 32 | x) << bits >> 32);
        above = x;
    }
    d[whole] = above << bits;
    clear_limbs(d, whole);
    finish(r, n + whole + 1, minus);
    clear_above(r, n + whole + 1);
}
