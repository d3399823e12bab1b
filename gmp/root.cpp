// Integer roots. Higher ones by Newton's iteration on truncated numbers, whose precision doubles with each
// step from what logarithms give (Brent and Zimmermann, Modern Computer Arithmetic, 1.5.2 and 4.2), with
// some bits behind the point: unless these are nearly all equal, they tell the integral part and that the
// root is not exact. Otherwise the power tells. Results may be the operand.
#include "gmp/root.h"
#include "gmp/limb/kernel/divide_2_by_1.h"

#include <math.h>

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr unsigned kGuardBits = 16;
constexpr int64_t kShortRoot = 16; // bits of roots that logarithms alone tell, guard bits included
constexpr unsigned kGuardedUnits = 8; // of the last guard bit, by which a root may be off

// r = x * 2^bits, toward zero
void shift(vor_mpz* r, const vor_mpz* x, int64_t bits) {
    if (bits >= 0)
        vor_gmp___gmpz_mul_2exp(r, x, static_cast<unsigned>(bits));
    else
        vor_gmp___gmpz_tdiv_q_2exp(r, x, static_cast<unsigned>(-bits));
}

// m * 2^exponent, of which only the leading bits are kept.
class Truncated {
public:
    Truncated() = default;
    void set(uint64_t m, int64_t exponent) {
        m_->_mp_d[0] = static_cast<limb_t>(m);
        m_->_mp_d[1] = static_cast<limb_t>(m >> 32);
        finish(m_, 2, false);
        exponent_ = exponent;
    }
    void multiply(Truncated* other, int64_t bits) {
        vor_gmp___gmpz_mul(m_, m_, other->m_);
        exponent_ += other->exponent_;
        cut(bits);
    }
    // this = base^k, k > 0
    void power(Truncated* base, unsigned k, int64_t bits) {
        vor_gmp___gmpz_set(m_, base->m_);
        exponent_ = base->exponent_;
        cut(bits);
        for (int i = 31 - __builtin_clz(k); i-- > 0;) {
            multiply(this, bits);
            if (k >> i & 1) multiply(base, bits);
        }
    }
    void rescale(int64_t exponent) {
        shift(m_, m_, exponent_ - exponent);
        exponent_ = exponent;
    }
    vor_mpz* m() { return m_; }
    int64_t exponent() const { return exponent_; }
    void cut(int64_t bits) {
        const int64_t more = static_cast<int64_t>(bit_length(m_)) - bits;
        if (more <= 0) return;
        vor_gmp___gmpz_tdiv_q_2exp(m_, m_, static_cast<unsigned>(more));
        exponent_ += more;
    }

private:
    Temporary m_;
    int64_t exponent_ = 0;
};

// The bits that are right in a root of so many bits from logarithms: an error in the last of the 53 bits
// (a caller may have switched off extended precision) of a number of that size, and some more.
int64_t first_bits(int64_t bits) {
    return 44 - (63 - __builtin_clzll(static_cast<uint64_t>(bits)));
}

// n^(1/k) from logarithms.
void first_root(Truncated* x, const vor_mpz* n, unsigned k) {
    const int size = limbs_of(n);
    const limb_t* const p = n->_mp_d;
    long double leading = p[size - 1];
    if (size > 1) leading = leading * 0x1p32L + p[size - 2];
    if (size > 2) leading = leading * 0x1p32L + p[size - 3];
    const int64_t below = 32 * int64_t{size > 3 ? size - 3 : 0};
    const long double logarithm = (log2l(leading) + static_cast<long double>(below)) / k;
    const int64_t whole = static_cast<int64_t>(logarithm);
    const long double m = exp2l(logarithm - static_cast<long double>(whole) + 62);
    x->set(static_cast<uint64_t>(m), whole - 62);
}

// One step of Newton from half of the bits to `bits`: x' = x + (n - x^k) / (k x^(k-1)), a quotient of half
// as many bits.
void step(Truncated* x, const vor_mpz* n, unsigned k, int64_t bits) {
    Truncated power, product;
    power.power(x, k - 1, bits);
    product.power(&power, 1, bits);
    product.multiply(x, bits);
    Temporary rest; // n - x^k, in units of the last bit of x^k
    shift(rest, n, -product.exponent());
    vor_gmp___gmpz_sub(rest, rest, product.m());
    power.cut(bits / 2 + kGuardBits);
    vor_gmp___gmpz_mul_ui(power.m(), power.m(), k);
    const int64_t exponent = x->exponent() + static_cast<int64_t>(bit_length(x->m())) - bits;
    shift(rest, rest, product.exponent() - power.exponent() - exponent);
    vor_gmp___gmpz_tdiv_q(rest, rest, power.m());
    x->rescale(exponent);
    vor_gmp___gmpz_add(x->m(), x->m(), rest);
}

// r = floor(n^(1/k)) for a root of so many bits; whether it is exact. k > 2, n >= 2^k.
bool higher_root(vor_mpz* r, const vor_mpz* n, unsigned k, int64_t bits) {
    Truncated x;
    first_root(&x, n, k);
    const int64_t wanted = bits + kGuardBits + 4;
    if (bits > kShortRoot) {
        // An error e becomes (k - 1) / 2 e^2. A root of 2^i bits of a number of less than 2^38 has k below
        // 2^(38 - i): more than one bit is won.
        const int64_t lost = 32 - __builtin_clz(k);
        for (int64_t right = first_bits(bits); right < wanted;) {
            right = 2 * right - lost;
            if (right > wanted) right = wanted;
            step(&x, n, k, right + 4 + lost);
        }
    }
    x.rescale(-int64_t{kGuardBits});
    vor_mpz* const guarded = x.m();
    const limb_t fraction = guarded->_mp_size ? guarded->_mp_d[0] & ((1u << kGuardBits) - 1) : 0;
    const bool clear = fraction >= kGuardedUnits && fraction < (1u << kGuardBits) - kGuardedUnits;
    if (!clear) vor_gmp___gmpz_add_ui(guarded, guarded, kGuardedUnits); // to the nearest integer
    vor_gmp___gmpz_tdiv_q_2exp(r, guarded, kGuardBits);
    if (clear) return false;
    Temporary power;
    vor_gmp___gmpz_pow_ui(power, r, k);
    const int order = vor_gmp___gmpz_cmp(power, n);
    if (order > 0) vor_gmp___gmpz_sub_ui(r, r, 1);
    return order == 0;
}

} // namespace

namespace vor::gmp {

bool integer_root(vor_mpz* r, const vor_mpz* n, unsigned k) {
    if (k == 1) {
        vor_gmp___gmpz_set(r, n);
        return true;
    }
    if (k == 2) return integer_sqrt(r, n);
    const uint64_t bits = bit_length(n);
    if (bits <= k) { // below 2^k
        const bool exact = bits <= 1;
        vor_gmp___gmpz_set_ui(r, bits > 0);
        return exact;
    }
    Temporary root;
    // The root has floor((bits - 1) / k) + 1 bits; one more does no harm.
    const int64_t root_bits = static_cast<int64_t>(static_cast<long double>(bits) / k) + 2;
    const bool exact = higher_root(root, n, k, root_bits);
    vor_gmp___gmpz_set(r, root);
    return exact;
}

} // namespace vor::gmp

VOR_GMP(int, __gmpz_root, __GMPZ_ROOT, vor_gmp___gmpz_root,
        (vor_mpz * r, const vor_mpz* a, unsigned v), (r, a, v)) {
    const unsigned k = v;
    if (k == 0) limb::divide_by_zero();
    const bool minus = negative(a);
    if (minus && k % 2 == 0) {
        r->_mp_size = 0;
        return 0;
    }
    const vor_mpz magnitude{a->_mp_alloc, value_size(a), a->_mp_d};
    const bool exact = integer_root(r, &magnitude, k);
    if (!minus) return exact;
    if (!exact) vor_gmp___gmpz_add_ui(r, r, 1); // downward
    vor_gmp___gmpz_neg(r, r);
    return exact;
}

VOR_GMP(void, __gmpz_sqrt, __GMPZ_SQRT, vor_gmp___gmpz_sqrt, (vor_mpz * r, const vor_mpz* a),
        (r, a)) {
    vor_gmp___gmpz_root(r, a, 2);
}

VOR_GMP(void, __gmpz_sqrtrem, __GMPZ_SQRTREM, vor_gmp___gmpz_sqrtrem,
        (vor_mpz * s, vor_mpz* rest, const vor_mpz* n), (s, rest, n)) {
    Temporary root, square;
    vor_gmp___gmpz_root(root, n, 2);
    vor_gmp___gmpz_mul(square, root, root);
    vor_gmp___gmpz_sub(rest, n, square);
    vor_gmp___gmpz_set(s, root);
}
