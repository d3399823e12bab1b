// Sum, product and quotient of signed numbers. What may turn out not to fit is formed in a buffer, or
// the old words are kept in one, so that a refused call leaves the result as it was.
#include "gmp/bn/bignum.h"

using namespace vor;
using namespace vor::bn;

namespace {

// |r| = |a| + |b|. Only an operand as long as r's room can have a sum that does not fit.
TavStatus add_magnitudes(const BigNumState* a, const BigNumState* b, BigNumState* r) {
    const bool tight = a->size == r->room || b->size == r->room;
    word* const sum = tight ? r->buffer : r->number;
    int size;
    if (!cpAdd_BNUs(a->number, a->size, b->number, b->size, sum, &size, r->room))
        return tavStsOutOfRangeErr;
    if (tight) Cpy_BNU(sum, r->number, size);
    finish(r, size, a->sgn);
    return tavStsNoErr;
}

// r = a - b where a and b count with the sign of a.
void subtract_magnitudes(const BigNumState* a, const BigNumState* b, BigNumState* r) {
    const word positive = a->sgn;
    word a_larger;
    int size;
    cpSub_BNUs(a->number, a->size, b->number, b->size, r->number, &size, &a_larger);
    finish(r, size, positive ? a_larger : 1 - a_larger);
}

TavStatus add(const BigNumState* a, const BigNumState* b, word b_sign, BigNumState* r) {
    if (r->room < a->size || r->room < b->size) return tavStsOutOfRangeErr;
    if (a->sgn == b_sign) return add_magnitudes(a, b, r);
    subtract_magnitudes(a, b, r);
    return tavStsNoErr;
}

// The room that a product into r needs at least.
bool has_product_room(const BigNumState* a, const BigNumState* b, const BigNumState* r) {
    const int needed = a->size + b->size - (r == a && r == b ? 0 : 1);
    return r->room >= needed;
}

// The words of an operand when r's old words are in its buffer.
const word* outside(const BigNumState* operand, const BigNumState* r) {
    return operand == r ? r->buffer : operand->number;
}

// r += x * B^j * w over r's whole room, or r -= ...; what falls off.
word add_row(const BigNumState* r, const word* x, int n, int j, word w) {
    const word carry = limb::addmul_1(r->number + j, x, n, w);
    return limb::increment(r->number + j + n, r->room - j - n, carry);
}

word subtract_row(const BigNumState* r, const word* x, int n, int j, word w) {
    const word borrow = limb::submul_1(r->number + j, x, n, w);
    return limb::decrement(r->number + j + n, r->room - j - n, borrow);
}

// r = -r over its whole room.
void complement(const BigNumState* r) {
    limb::negate(r->number, r->number, r->room);
}

} // namespace

extern "C" {
TavStatus tavsAdd_BN(const BigNumState* a, const BigNumState* b, BigNumState* r) {
    if (const TavStatus status = open_states(a, b, r)) return status;
    return add(a, b, b->sgn, r);
}

TavStatus tavsSub_BN(const BigNumState* a, const BigNumState* b, BigNumState* r) {
    if (const TavStatus status = open_states(a, b, r)) return status;
    return add(a, b, 1 - b->sgn, r);
}

TavStatus tavsMul_BN(const BigNumState* a, const BigNumState* b, BigNumState* r) {
    if (const TavStatus status = open_states(a, b, r)) return status;
    if (!has_product_room(a, b, r)) return tavStsOutOfRangeErr;
    const word sgn = a->sgn == b->sgn ? TavsBigNumPOS : TavsBigNumNEG;
    int size = r->room;
    if (r == a || r == b) {
        const int old_size = r->size;
        Cpy_BNU(r->number, r->buffer, old_size);
        if (!cpMul_BNUs(outside(a, r), a->size, outside(b, r), b->size, r->number, &size)) {
            Cpy_BNU(r->buffer, r->number, old_size);
            return tavStsOutOfRangeErr;
        }
    } else {
        const bool tight = r->room < a->size + b->size;
        word* const product = tight ? r->buffer : r->number;
        if (!cpMul_BNUs(a->number, a->size, b->number, b->size, product, &size))
            return tavStsOutOfRangeErr;
        if (tight) Cpy_BNU(product, r->number, size);
    }
    finish(r, size, sgn);
    return tavStsNoErr;
}

TavStatus tavsMAC_BN_I(const BigNumState* a, const BigNumState* b, BigNumState* r) {
    if (const TavStatus status = open_states(a, b, r)) return status;
    if (!has_product_room(a, b, r)) return tavStsOutOfRangeErr;
    const int an = a->size, bn = b->size;
    if (an + bn - 1 > r->room) return tavStsOutOfRangeErr;
    Cpy_BNU(r->number, r->buffer, r->size);
    Set_BNU(0, r->number + r->size, r->room - r->size);
    const word* const x = outside(a, r);
    const word* const y = outside(b, r);
    bool adding = (a->sgn == b->sgn) == (r->sgn == TavsBigNumPOS);
    word sgn = r->sgn;
    bool fits = true;
    for (int j = 0; j < bn && fits; ++j) {
        if (adding) {
            fits = add_row(r, x, an, j, y[j]) == 0;
            continue;
        }
        const word borrow = subtract_row(r, x, an, j, y[j]);
        if (borrow == 0) continue;
        complement(r); // the product outweighs r: from here on its magnitude counts
        sgn = 1 - sgn;
        adding = true;
        // borrow B^room less what stood here: that fits if the borrow is 1 and what stood here was not 0.
        fits = borrow == 1 && (trimmed(r->number, r->room) > 1 || r->number[0] != 0);
    }
    if (!fits) {
        Cpy_BNU(r->buffer, r->number, r->size);
        return tavStsOutOfRangeErr;
    }
    finish(r, trimmed(r->number, r->room), sgn);
    return tavStsNoErr;
}

TavStatus tavsDiv_BN(BigNumState* a, BigNumState* b, BigNumState* q, BigNumState* r) {
    if (const TavStatus status = open_states(a, b, q, r)) return status;
    if (b->size > r->room) return tavStsOutOfRangeErr;
    if (is_zero(b)) return tavStsDivByZeroErr;
    const int over = a->size - b->size; // the quotient has this many words, or one more
    if (over > q->room || (over == q->room && cpCmp_BNU(a->number + over, b->number, b->size) >= 0))
        return tavStsOutOfRangeErr;
    const word quotient_sign = a->sgn == b->sgn ? TavsBigNumPOS : TavsBigNumNEG;
    const word remainder_sign = a->sgn;
    int qn = 1, rn = 1;
    if (a == b) { // one buffer would have to hold both
        q->number[0] = 1;
        r->number[0] = 0;
    } else {
        Cpy_BNU(a->number, a->buffer, a->size);
        Cpy_BNU(b->number, b->buffer, b->size);
        cpDiv_BNU(a->buffer, a->size, b->buffer, b->size, q->number, &qn, &rn);
        Cpy_BNU(a->buffer, r->number, rn);
    }
    finish(q, qn, quotient_sign);
    finish(r, rn, remainder_sign);
    return tavStsNoErr;
}

TavStatus tavsMod_BN(BigNumState* a, BigNumState* m, BigNumState* r) {
    if (const TavStatus status = open_states(a, m, r)) return status;
    if (m->size > r->room) return tavStsOutOfRangeErr;
    if (is_negative(m) || is_zero(m)) return tavStsBadModulusErr;
    const bool negative = is_negative(a);
    int size;
    Cpy_BNU(a->number, a->buffer, a->size);
    cpDiv_BNU(a->buffer, a->size, m->number, m->size, nullptr, nullptr, &size);
    const bool from_modulus = negative && !(size == 1 && a->buffer[0] == 0);
    if (from_modulus) {
        word sgn;
        cpSub_BNUs(m->number, m->size, a->buffer, size, r->number, &size, &sgn);
    } else {
        Cpy_BNU(a->buffer, r->number, size);
    }
    finish(r, size, TavsBigNumPOS);
    return tavStsNoErr;
}
}
