// Euclid on long numbers by the leading bits (Lehmer, American Mathematical Monthly 45, 1938; Knuth,
// 4.5.2, algorithm L).
//
// A step runs Euclid on the leading 64 bits of x and y as long as both stay at 2^32 or above. It yields
// a matrix M of determinant 1 without negative entries, (x, y) = M (x', y'). An entry of M is at most
// the quotient of a leading part by a reduced one, and so below 2^32, while what the bits below the
// leading ones add to x' and y' is above -2^32 units of the last of the 64: x' and y' are not negative,
// and have the same divisors. They are about 31 bits shorter than x and y. Where no step is possible,
// since x and y differ much in length or in no leading bit, the larger is divided by the smaller.
//
// The cofactors X, Y with x = -X a, y = Y a (mod m) start as 0, 1 for x = m, y = a; they stay at 0 or
// above, and x Y + y X = m, so that they never exceed m.
#include "gmp/euclid.h"
#include "gmp/limb/kernel/divide_2_by_1.h"
#include "gmp/thresholds.h"

using namespace vor;
using namespace vor::gmp;

namespace {

constexpr dlimb_t kLeast = dlimb_t{1} << 32;

struct Matrix {
    limb_t xx = 1, xy = 0, yx = 0, yy = 1; // (x, y) = (xx xy; yx yy) (x', y')

    // The step x -= q y; the step y -= q x.
    void x_less(limb_t q) {
        xy += q * xx;
        yy += q * yx;
    }
    void y_less(limb_t q) {
        xx += q * xy;
        yx += q * yy;
    }
};

// The symbol (x/y), or (y/x), of Jacobi through the steps: what is below is odd. Low limbs suffice.
//   (a - q b / b) = (a/b)
//   (a/b) = (b/a), minus that for a = b = 3 mod 4
//   (a / b - q a) = (a/b) for a = 0 mod 4; for a = 2 m, m odd, a change of (2/b), and of sign for
//   m = 3 mod 4 and odd q
class Symbol {
public:
    Symbol(limb_t x, limb_t y, bool y_is_below) : x_(x), y_(y), y_is_below_(y_is_below) {}

    void x_less(limb_t q) {
        if (!y_is_below_) exchange_or_shift(&x_, y_, q, true);
        x_ -= q * y_;
    }
    void y_less(limb_t q) {
        if (y_is_below_) exchange_or_shift(&y_, x_, q, false);
        y_ -= q * x_;
    }
    bool minus() const { return minus_; }
    bool y_is_below() const { return y_is_below_; }

private:
    static bool two_is_negative(limb_t b) { return b % 8 == 3 || b % 8 == 5; }

    // b, below, is to become b - q a.
    void exchange_or_shift(const limb_t* b, limb_t a, limb_t q, bool to_y) {
        if (a % 2) {
            minus_ ^= a % 4 == 3 && *b % 4 == 3;
            y_is_below_ = to_y;
        } else if (a % 4 == 2) {
            minus_ ^= two_is_negative(*b) ^ two_is_negative(*b - q * a);
            minus_ ^= a % 8 == 6 && q % 2;
        }
    }

    limb_t x_, y_;
    bool y_is_below_, minus_ = false;
};

// floor(a / b) for a >= b >= 2^32; *rest = a - q b. By the leading 32 bits of b, one too small or right
// once the estimate, at most one too large, is lowered (Warren, Hacker's Delight, 9-5).
limb_t quotient(dlimb_t a, dlimb_t b, dlimb_t* rest) {
    const int s = __builtin_clz(static_cast<limb_t>(b >> 32));
    const limb_t top = static_cast<limb_t>(b << s >> 32);
    const dlimb_t half = a >> 1;
    limb_t q = limb::divide_2_by_1(static_cast<limb_t>(half >> 32), static_cast<limb_t>(half), top)
                   .quotient >>
               (31 - s);
    q -= q > 0;
    *rest = a - q * b;
    if (*rest >= b) {
        *rest -= b;
        ++q;
    }
    return q;
}

// a -= q b for the largest q that leaves a >= kLeast, a >= b >= kLeast; q, below 2^32.
limb_t reduce(dlimb_t* a, dlimb_t b) {
    dlimb_t rest = *a - b;
    if (rest < kLeast) return 0;
    limb_t q = 1;
    for (int i = 0; i < 3 && rest >= b; ++i, ++q) rest -= b;
    if (rest >= b) q += quotient(rest, b, &rest);
    if (rest < kLeast) {
        rest += b;
        --q;
    }
    *a = rest;
    return q;
}

// Steps on leading bits, told to `steps`; whether there is one.
template <class... Steps>
bool simulate(dlimb_t x, dlimb_t y, Steps&... steps) {
    if (x < kLeast || y < kLeast) return false;
    bool any = false;
    for (;; any = true) {
        if (x >= y) {
            const limb_t q = reduce(&x, y);
            if (q == 0) return any;
            (steps.x_less(q), ...);
        } else {
            const limb_t q = reduce(&y, x);
            if (q == 0) return any;
            (steps.y_less(q), ...);
        }
    }
}

struct Number {
    limb_t* limbs;
    int size;
};

void swap(limb_t** a, limb_t** b) {
    limb_t* const c = *a;
    *a = *b;
    *b = c;
}

// 64 bits of a from bit 32 (n - 1) - s of limb n - 2 up; a has at most n limbs.
dlimb_t leading(const Number& a, int n, unsigned s) {
    const auto limb = [&](int i) { return i >= 0 && i < a.size ? a.limbs[i] : 0; };
    return ((dlimb_t{limb(n - 1)} << 32 | limb(n - 2)) << s) | dlimb_t{limb(n - 3)} << s >> 32;
}

void pad(Number* a, int n) {
    limb::clear(a->limbs + a->size, n - a->size);
}

// The two numbers, and a third array of their length.
class Pair {
public:
    Pair(Number x, Number y, limb_t* spare) : x_(x), y_(y), spare_(spare) {}

    Number& x() { return x_; }
    Number& y() { return y_; }
    bool done() const { return x_.size == 0 || y_.size == 0; }
    bool words() const { return x_.size == 1 && y_.size == 1; }
    bool x_is_larger() const { return limb::compare(x_.limbs, x_.size, y_.limbs, y_.size) >= 0; }
    const Number& result() const { return x_.size ? x_ : y_; }

    template <class... Steps>
    bool simulate_steps(Steps&... steps) const {
        const int n = x_.size > y_.size ? x_.size : y_.size;
        const auto top = [n](const Number& a) { return a.size == n ? a.limbs[n - 1] : 0; };
        const unsigned s = static_cast<unsigned>(__builtin_clz(top(x_) | top(y_)));
        return simulate(leading(x_, n, s), leading(y_, n, s), steps...);
    }

    // x' = yy x - xy y, y' = xx y - yx x
    void apply(const Matrix& m) {
        const int n = x_.size > y_.size ? x_.size : y_.size;
        pad(&x_, n);
        pad(&y_, n);
        limb::mul_1(spare_, x_.limbs, n, m.yy);
        limb::submul_1(spare_, y_.limbs, n, m.xy);
        limb::mul_1(y_.limbs, y_.limbs, n, m.xx);
        limb::submul_1(y_.limbs, x_.limbs, n, m.yx);
        swap(&spare_, &x_.limbs);
        x_.size = limb::normal_size(x_.limbs, n);
        y_.size = limb::normal_size(y_.limbs, n);
    }

    // Of one limb each, to the end.
    template <class... Steps>
    void finish_words(Steps&... steps) {
        limb_t &x = x_.limbs[0], &y = y_.limbs[0];
        while (x && y) {
            if (x >= y) {
                const limb_t q = x / y;
                x -= q * y;
                (steps.x_less(q), ...);
            } else {
                const limb_t q = y / x;
                y -= q * x;
                (steps.y_less(q), ...);
            }
        }
        x_.size = x != 0;
        y_.size = y != 0;
    }

    // The larger one modulo the smaller one; the quotient, one limb longer than its size may be.
    Number divide(limb_t* quotient) {
        Number& n = x_is_larger() ? x_ : y_;
        const Number& d = x_is_larger() ? y_ : x_;
        Number q{quotient, 0};
        limb::divide(q.limbs, n.limbs, n.limbs, n.size, d.limbs, d.size);
        q.size = limb::normal_size(q.limbs, n.size - d.size + 1);
        n.size = limb::normal_size(n.limbs, d.size);
        return q;
    }

private:
    Number x_, y_;
    limb_t* spare_;
};

// X, Y and a third array, of `room` limbs each.
class Cofactors {
public:
    Cofactors(limb_t* x, limb_t* y, limb_t* spare) : x_(x), y_(y), spare_(spare) {
        x_[0] = 0;
        y_[0] = 1;
    }

    // X' = yy X + xy Y, Y' = xx Y + yx X
    void apply(const Matrix& m) {
        const dlimb_t x_top = combine(spare_, x_, m.yy, y_, m.xy);
        // Y' in place of Y: X is still what it was.
        dlimb_t y_top = limb::mul_1(y_, y_, size_, m.xx);
        y_top += limb::addmul_1(y_, x_, size_, m.yx);
        swap(&spare_, &x_);
        if ((x_top | y_top) == 0) return;
        extend(x_top, y_top);
    }

    // X += q Y, or Y += q X.
    void add_multiple(bool to_x, const Number& q) {
        limb_t *const r = to_x ? x_ : y_, *const s = to_x ? y_ : x_;
        const int sn = limb::normal_size(s, size_);
        if (q.size == 0 || sn == 0) return;
        if (q.size == 1) {
            const dlimb_t top = limb::addmul_1(r, s, size_, q.limbs[0]);
            if (top) extend(to_x ? top : 0, to_x ? 0 : top);
            return;
        }
        if (sn >= q.size)
            limb::multiply(spare_, s, sn, q.limbs, q.size);
        else
            limb::multiply(spare_, q.limbs, q.size, s, sn);
        const int n = limb::normal_size(spare_, sn + q.size);
        if (n > size_) {
            limb::clear(x_ + size_, n - size_);
            limb::clear(y_ + size_, n - size_);
            size_ = n;
        }
        const limb_t top = limb::increment(r + n, size_ - n, limb::add_n(r, r, spare_, n));
        if (top) extend(to_x ? top : 0, to_x ? 0 : top);
    }

    const limb_t* x() const { return x_; }
    const limb_t* y() const { return y_; }
    int size() const { return size_; }

private:
    dlimb_t combine(limb_t* r, const limb_t* a, limb_t p, const limb_t* b, limb_t q) const {
        const dlimb_t top = limb::mul_1(r, a, size_, p);
        return top + limb::addmul_1(r, b, size_, q);
    }
    // What has come above the limbs in use: one limb, now and then two.
    void extend(dlimb_t x_top, dlimb_t y_top) {
        for (; x_top | y_top; x_top >>= 32, y_top >>= 32) {
            x_[size_] = static_cast<limb_t>(x_top);
            y_[size_] = static_cast<limb_t>(y_top);
            ++size_;
        }
    }

    limb_t *x_, *y_, *spare_;
    int size_ = 1; // of both, zeros on top are fine
};

} // namespace

namespace vor::gmp {

namespace {

// Reduces until one of the two is 0. `quotient` has two limbs more than the longer of them, cofactors
// may be null.
template <class... Steps>
void reduce(Pair* pair, Cofactors* cofactors, limb_t* quotient, Steps&... steps) {
    while (!pair->done()) {
        Matrix m;
        if (pair->words()) {
            pair->finish_words(m, steps...);
        } else if (pair->simulate_steps(m, steps...)) {
            pair->apply(m);
        } else {
            const bool x_is_larger = pair->x_is_larger();
            const Number q = pair->divide(quotient);
            if (cofactors) cofactors->add_multiple(x_is_larger, q);
            ((x_is_larger ? steps.x_less(q.limbs[0]) : steps.y_less(q.limbs[0])), ...);
            continue;
        }
        if (cofactors) cofactors->apply(m);
    }
}

} // namespace

int jacobi_limbs(limb_t* x, int xn, limb_t* y, int yn) {
    const int n = xn > yn ? xn : yn;
    Limbs<kLocal> scratch(uint64_t{2} * n + 2);
    Pair pair({x, xn}, {y, yn}, scratch);
    Symbol symbol(x[0], y[0], true);
    reduce(&pair, nullptr, scratch + n, symbol);
    const Number& result = pair.result(); // what is below, for it stays odd
    if (result.size != 1 || result.limbs[0] != 1) return 0;
    return symbol.minus() ? -1 : 1;
}

int gcd_limbs(limb_t* g, limb_t* x, int xn, limb_t* y, int yn) {
    const int n = xn > yn ? xn : yn;
    Limbs<kLocal> scratch(uint64_t{2} * n + 2);
    Pair pair({x, xn}, {y, yn}, scratch);
    reduce(&pair, nullptr, scratch + n);
    const Number& result = pair.result();
    if (g != result.limbs) limb::copy(g, result.limbs, result.size);
    return result.size;
}

Cofactor gcd_with_cofactor(limb_t* g, limb_t* u, const limb_t* a, int an, const limb_t* m, int mn) {
    const int room = mn + 2;
    Limbs<kLocal> scratch(uint64_t{7} * room);
    const auto part = [&](int i) { return scratch + i * room; };
    limb::copy(part(0), m, mn);
    limb::copy(part(1), a, an);
    Pair pair({part(0), mn}, {part(1), an}, part(2));
    Cofactors cofactors(part(4), part(5), part(6));
    reduce(&pair, &cofactors, part(3));
    const Number& result = pair.result();
    if (g) limb::copy(g, result.limbs, result.size);
    // x = 0: y = Y a is the divisor. y = 0: x = -X a is, and Y = m / g.
    const int n = cofactors.size();
    if (pair.x().size == 0)
        limb::copy(u, cofactors.y(), n);
    else
        limb::sub_n(u, cofactors.y(), cofactors.x(), n);
    return {result.size, limb::normal_size(u, n)};
}

} // namespace vor::gmp
