// Powers modulo an odd q in Montgomery's form (Montgomery, Mathematics of Computation 44, 1985) by sliding
// windows over the exponent, with a table of odd powers (Menezes, van Oorschot and Vanstone, Handbook of
// Applied Cryptography, 14.85).
#include "gmp/powm.h"
#include "vor_bignum.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr int kWidest = 8;
// From here on two products of n limbs are faster than n rows of reduction (measured: 6 percent slower
// at 100 limbs, even at 120).
constexpr int kReductionByProducts = 120;

// Bits of a window for an exponent of so many bits: 2^(w - 1) products for the table against
// bits / (w + 1) for windows.
int window_width(uint64_t bits) {
    constexpr uint64_t kLongest[] = {8, 36, 140, 450, 1303, 3529, 9065};
    int width = 1;
    for (const uint64_t longest : kLongest) width += bits > longest;
    return width;
}

// -1/q mod B
limb_t negative_inverse(limb_t q) {
    limb_t x = q; // right modulo 8
    for (int bits = 3; bits < 32; bits *= 2) x *= 2 - q * x;
    return 0 - x;
}

// Residues of n limbs modulo q, R = B^n.
class Residues {
public:
    explicit Residues(const vor_mpz* q)
        : n_(limbs_of(q)), q_(q->_mp_d), inverse_(negative_inverse(q_[0])),
          scratch_(uint64_t{5} * limbs_of(q)) {
        if (n_ >= kReductionByProducts) prepare_products(q);
    }

    int size() const { return n_; }

    // r = a b / R mod q; r may be an operand.
    void multiply(limb_t* r, const limb_t* a, const limb_t* b) {
        limb::multiply_n(scratch_, a, b, n_);
        reduce(r);
    }
    // r = a / R mod q
    void leave(limb_t* r, const limb_t* a) {
        limb::copy(scratch_, a, n_);
        limb::clear(scratch_ + n_, n_);
        reduce(r);
    }
    // r = a R mod q for a < q
    void enter(limb_t* r, const vor_mpz* a, const vor_mpz* q) {
        Temporary shifted, rest;
        vor_gmp___gmpz_mul_2exp(shifted, a, 32 * static_cast<unsigned>(n_));
        vor_gmp_vor_gmp_div_r(rest, shifted, q);
        limb::copy(r, rest->_mp_d, limbs_of(rest));
        limb::clear(r + limbs_of(rest), n_ - limbs_of(rest));
    }

private:
    // -1/q mod R, for whole reductions at once.
    void prepare_products(const vor_mpz* q) {
        Temporary inverse;
        vor_gmp_mpl_modinv_exp2(inverse, q, 32 * static_cast<unsigned>(n_));
        limb_t* const negative = scratch_ + 4 * n_;
        limb::clear(negative, n_);
        limb::sub_n(negative, negative, inverse->_mp_d, limbs_of(inverse));
        const int rest = n_ - limbs_of(inverse);
        limb::decrement(negative + limbs_of(inverse), rest, 1); // the inverse is not 0: a borrow
    }

    void reduce(limb_t* r) {
        if (n_ < kReductionByProducts) return cpMontReduction(r, scratch_, q_, n_, inverse_);
        // t + (t / -q mod R) q: its low half is 0, with a carry unless t's low half is 0 itself.
        limb_t *const t = scratch_, *const factor = t + 2 * n_, *const product = t + 2 * n_;
        limb::multiply_n(factor, t, t + 4 * n_, n_);
        limb::copy(r, factor, n_);
        limb::multiply_n(product, r, q_, n_);
        limb_t carry = limb::normal_size(t, n_) > 0;
        carry = limb::increment(t + n_, n_, carry) + limb::add_n(r, t + n_, product + n_, n_);
        if (carry || limb::compare(r, q_, n_) >= 0) limb::sub_n(r, r, q_, n_);
    }

    const int n_;
    const limb_t* const q_;
    const limb_t inverse_; // -1/q mod B
    Limbs<0> scratch_;     // the double-length t, a product, -1/q mod R
};

bool bit_of(const vor_mpz* e, uint64_t i) {
    return e->_mp_d[i / 32] >> i % 32 & 1;
}

// The longest window from bit i down that ends in a one: its length and its value.
struct Window {
    int length;
    unsigned value;
};

Window window_at(const vor_mpz* e, uint64_t i, int width) {
    Window window{0, 0};
    unsigned value = 0;
    for (int k = 1; k <= width && static_cast<uint64_t>(k) <= i + 1; ++k) {
        const bool one = bit_of(e, i + 1 - static_cast<unsigned>(k));
        value = 2 * value + one;
        if (one) window = {k, value};
    }
    return window;
}

} // namespace

namespace vor::gmp {

void odd_power_by_windows(vor_mpz* r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* q) {
    if (a->_mp_size == 0) {
        r->_mp_size = 0;
        return;
    }
    Residues residues(q);
    const int n = residues.size();
    const uint64_t bits = bit_length(e);
    const int width = window_width(bits);
    Limbs<0> table((uint64_t{1} << (width - 1)) * n + 2 * uint64_t(n));
    limb_t *const square = table, *const power = table + n, *const odd = table + 2 * n;
    residues.enter(odd, a, q); // odd + i n: a^(2 i + 1)
    residues.multiply(square, odd, odd);
    for (int i = 1; i < 1 << (width - 1); ++i)
        residues.multiply(odd + i * n, odd + (i - 1) * n, square);

    bool started = false;
    for (uint64_t left = bits; left > 0;) {
        if (!bit_of(e, left - 1)) {
            residues.multiply(power, power, power);
            --left;
            continue;
        }
        const Window window = window_at(e, left - 1, width);
        const limb_t* const factor = odd + static_cast<int>(window.value / 2) * n;
        if (started) {
            for (int i = 0; i < window.length; ++i) residues.multiply(power, power, power);
            residues.multiply(power, power, factor);
        } else {
            limb::copy(power, factor, n);
            started = true;
        }
        left -= static_cast<unsigned>(window.length);
    }
    limb_t* const limbs = grow(r, n);
    residues.leave(limbs, power);
    finish(r, n, false);
}

} // namespace vor::gmp
