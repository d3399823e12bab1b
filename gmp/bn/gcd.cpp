// Greatest common divisors: Euclid on words, Lehmer on numbers (Lehmer, American Mathematical Monthly
// 45, 1938; Knuth, 4.5.2, algorithm L).
//
// A step of Lehmer runs Euclid on the top words (xh, yh) of x and y as long as the quotient is the
// same for every x and y with these top words; that is so while floor((xh + A) / (yh + C)) =
// floor((xh + B) / (yh + D)), with (A B; C D) the product of the quotient matrices so far. Then x and
// y are replaced by A x + B y and C x + D y.
#include "gmp/bn/bignum.h"

using namespace vor;
using namespace vor::bn;

namespace {

struct Cofactors {
    int64_t a = 1, b = 0, c = 0, d = 1; // below 2^32 in magnitude, signs alternating
};

// floor(a / b) of numbers below 2^35: unless the quotient is an integer, extended precision keeps it
// apart from one.
dword quotient(dword a, dword b) {
    return static_cast<dword>(static_cast<int64_t>(static_cast<long double>(a) / b));
}

Cofactors simulate(dword xh, dword yh) {
    Cofactors f;
    while (yh + f.c != 0 && yh + f.d != 0) {
        const dword q = quotient(xh + f.a, yh + f.c);
        if (q != quotient(xh + f.b, yh + f.d)) break;
        const int64_t sq = static_cast<int64_t>(q);
        f = {f.c, f.d, f.a - sq * f.c, f.b - sq * f.d};
        const dword rest = xh - q * yh;
        xh = yh;
        yh = rest;
    }
    return f;
}

// r = p x + s y over n words, of which one of p, s is negative or zero and the sum is not negative
// and fits. r may be y, or x.
void combine(word* r, const word* x, int64_t p, const word* y, int64_t s, int n) {
    if (p <= 0) return combine(r, y, s, x, p, n);
    if (r == y && y != x) { // the subtrahend is overwritten last: r = p x - s y = -(s y - p x)
        limb::mul_1(r, y, n, static_cast<word>(-s));
        limb::submul_1(r, x, n, static_cast<word>(p));
        limb::negate(r, r, n);
        return;
    }
    limb::mul_1(r, x, n, static_cast<word>(p));
    limb::submul_1(r, y, n, static_cast<word>(-s));
}

struct Number {
    word* words;
    int size;
};

void trim(Number* a) {
    a->size = trimmed(a->words, a->size);
}

void swap(Number* a, Number* b) {
    const Number c = *a;
    *a = *b;
    *b = c;
}

// One step on x >= y > 0, x of two words at least; x >= y again, y may be 0. `spare` is as long as x
// and has, as x has, one word of room beyond; the three arrays change places.
void step(Number* x, Number* y, word** spare) {
    const word yh = y->size == x->size ? y->words[y->size - 1] : 0;
    const Cofactors f = simulate(x->words[x->size - 1], yh);
    if (f.b == 0) { // no quotient is certain: one division
        cpDiv_BNU(x->words, x->size, y->words, y->size, nullptr, nullptr, &x->size);
        swap(x, y);
        return;
    }
    const int n = y->size;
    combine(*spare, x->words, f.a, y->words, f.b, n);
    combine(y->words, x->words, f.c, y->words, f.d, n);
    word* const old = x->words;
    *x = {*spare, n};
    *spare = old;
    trim(x);
    trim(y);
    if (cpCompare_BNUs(x->words, x->size, y->words, y->size) < 0) swap(x, y);
}

bool zero(const Number& a) {
    return a.size == 1 && a.words[0] == 0;
}

void set(BigNumState* g, const word* words, int size) {
    if (g->number != words) Cpy_BNU(words, g->number, size);
    g->size = size;
    g->sgn = TavsBigNumPOS;
}

} // namespace

extern "C" {
word cpGCD32u(word a, word b) {
    while (b) {
        const word rest = a % b;
        a = b;
        b = rest;
    }
    return a;
}

TavStatus tavsGcd_BN(BigNumState* a, BigNumState* b, BigNumState* g) {
    if (const TavStatus status = open_states(a, b, g)) return status;
    if (g->room < a->size || g->room < b->size) return tavStsOutOfRangeErr;
    if (is_zero(a) && is_zero(b)) return tavStsBadArgErr;
    const int order = cpCompare_BNUs(a->number, a->size, b->number, b->size);
    if (order < 0) {
        BigNumState* const larger = b;
        b = a;
        a = larger;
    }
    if (order == 0 || is_zero(b)) {
        set(g, a->number, a->size);
        return tavStsNoErr;
    }
    Cpy_BNU(a->number, a->buffer, a->size);
    Cpy_BNU(b->number, b->buffer, b->size);
    Number x{a->buffer, a->size}, y{b->buffer, b->size};
    word* spare = g->number; // an operand here is no longer needed
    while (x.size > 1 && !zero(y)) step(&x, &y, &spare);
    if (!zero(y)) {
        const word divisor = cpGCD32u(x.words[0], y.words[0]);
        x.words[0] = divisor;
    }
    set(g, x.words, x.size);
    return tavStsNoErr;
}
}
