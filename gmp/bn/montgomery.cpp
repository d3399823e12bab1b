// Montgomery arithmetic (Montgomery, Mathematics of Computation 44, 1985) modulo an odd N of k words,
// R = 2^(32 k): product and reduction are two passes over an array of 2 k words.
#include "gmp/bn/bignum.h"

using namespace vor;
using namespace vor::bn;

namespace {

constexpr int kLargestLength = 1 << 25; // about 32 bytes a word: the size stays below 2^31

int object_size(int len) {
    return (8 * len + 51) & ~15;
}

// -1/n mod 2^32 for odd n: n is its own inverse modulo 8, and each Newton step doubles the bits.
word negative_inverse(word n) {
    word x = n;
    for (int bits = 3; bits < 32; bits *= 2) x *= 2 - n * x;
    return 0 - x;
}

TavStatus check_operand_signs(const BigNumState* a, const BigNumState* b) {
    return is_negative(a) || is_negative(b) ? tavStsBadArgErr : tavStsNoErr;
}

// N itself passes as a residue.
bool above_modulus(const BigNumState* a, const MontState* state) {
    const BigNumState* const n = state->modulus;
    return cpCompare_BNUs(a->number, a->size, n->number, n->size) > 0;
}

void form(const BigNumState* a, MontState* state, BigNumState* r) {
    const int k = state->size;
    word* const product = state->product->number;
    BigNumState* const n = state->modulus;
    int size;
    Set_BNU(0, product, k);
    Cpy_BNU(a->number, product + k, a->size);
    cpDiv_BNU(product, k + a->size, n->number, n->size, nullptr, nullptr, &size);
    Cpy_BNU(product, r->number, size);
    finish(r, size, TavsBigNumPOS);
}

} // namespace

extern "C" {
void cpMontReduction(word* r, word* t, const word* n, int k, word nPrime) {
    word carry = 0;
    for (int i = 0; i < k; ++i) {
        const dword sum = dword{limb::addmul_1(t + i, n, k, t[i] * nPrime)} + t[i + k] + carry;
        t[i + k] = static_cast<word>(sum);
        carry = static_cast<word>(sum >> 32);
    }
    // t < 2 n here, with the carry on top. The low half of t is zero by now and takes t - n; which of
    // the two is the result is chosen without a branch.
    const word borrow = limb::sub_n(t, t + k, n, k);
    const word difference = 0 - (carry | (1 - borrow));
    for (int i = 0; i < k; ++i) r[i] = (t[i] & difference) | (t[i + k] & ~difference);
}

void cpMontMul(const word* a, int an, const word* b, int bn, const word* n, int k, word* r, int* rn,
               word nPrime, word* t) {
    cpMul_BNU_FullSize(a, an, b, bn, t);
    Set_BNU(0, t + an + bn, 2 * k - an - bn);
    cpMontReduction(r, t, n, k, nPrime);
    *rn = trimmed(r, k);
}

void cpMontExp_Binary(BigNumState* r, const BigNumState* x, const BigNumState* e,
                      MontState* state) {
    const int k = state->size;
    if (is_zero(e)) {
        Cpy_BNU(state->identity->number, r->number, state->identity->size);
        return finish(r, state->identity->size, TavsBigNumPOS);
    }
    int size = x->size;
    const int top = MSB_BNU(e->number, e->size);
    word* const base = r->buffer;
    Cpy_BNU(x->number, base, size);
    Set_BNU(0, base + size, k - size);
    // The bits of e are read to the end: where r is e they need another place.
    const word* exponent = e->number;
    if (r == e) {
        Cpy_BNU(e->number, state->identity->buffer, e->size);
        exponent = state->identity->buffer;
    }
    Cpy_BNU(base, r->number, k);
    word* const factor = state->product->buffer;
    word multiplying = 0;
    for (int p = top - 1; p >= 0;) {
        const word mask = 0 - multiplying;
        for (int i = 0; i < k; ++i) factor[i] = (r->number[i] & ~mask) | (base[i] & mask);
        cpMontMul(r->number, k, factor, k, state->modulus->number, k, r->number, &size,
                  state->nPrime, state->product->number);
        const word bit = exponent[p / 32] >> (p % 32) & 1;
        multiplying = (multiplying ^ 1) & bit;
        p -= static_cast<int>(multiplying ^ 1);
    }
    finish(r, size, TavsBigNumPOS);
}

TavStatus tavsMontGetSize(int, int len, int* size) {
    if (any_null(size)) return tavStsNullPtrErr;
    if (len < 1 || len > kLargestLength) return tavStsLengthErr;
    *size = 2 * object_size(len) + static_cast<int>(sizeof(MontState)) + object_size(2 * len) + 4;
    return tavStsNoErr;
}

TavStatus tavsMontInit(int, int len, MontState* state) {
    if (any_null(state)) return tavStsNullPtrErr;
    if (len < 1 || len > kLargestLength) return tavStsLengthErr;
    state = aligned(state);
    char* const objects = reinterpret_cast<char*>(state + 1);
    *state = {.idCtx = kMontId,
              .method = 0,
              .size = len,
              .nPrime = 0,
              .modulus = reinterpret_cast<BigNumState*>(objects),
              .identity = reinterpret_cast<BigNumState*>(objects + object_size(len)),
              .product = reinterpret_cast<BigNumState*>(objects + 2 * object_size(len)),
              .reserved = 0};
    tavsBigNumInit(len, state->modulus);
    tavsBigNumInit(len, state->identity);
    tavsBigNumInit(2 * len, state->product);
    return tavStsNoErr;
}

TavStatus tavsMontSet(const word* n, int len, MontState* state) {
    if (any_null(n, state)) return tavStsNullPtrErr;
    if (const TavStatus status = open_states(state)) return status;
    if (len < 1) return tavStsLengthErr;
    if (n[0] % 2 == 0) return tavStsBadModulusErr;
    if (const TavStatus status = tavsSet_BN(TavsBigNumPOS, len, n, state->modulus)) return status;
    state->size = state->modulus->size;
    state->nPrime = negative_inverse(n[0]);
    form(BN_OneRef(), state, state->identity);
    return tavStsNoErr;
}

TavStatus tavsMontGet(word* n, int* len, const MontState* state) {
    if (any_null(n, len, state)) return tavStsNullPtrErr;
    if (const TavStatus status = open_states(state)) return status;
    word sgn;
    return tavsGet_BN(&sgn, len, n, state->modulus);
}

TavStatus tavsMontForm(const BigNumState* a, MontState* state, BigNumState* r) {
    if (const TavStatus status = open_states(a, state, r)) return status;
    if (is_negative(a)) return tavStsBadArgErr;
    if (above_modulus(a, state)) return tavStsOperandRangeErr;
    if (r->room < state->size) return tavStsOutOfRangeErr;
    form(a, state, r);
    return tavStsNoErr;
}

TavStatus tavsMontMul(const BigNumState* a, const BigNumState* b, MontState* state,
                      BigNumState* r) {
    if (const TavStatus status = open_states(a, b, state, r)) return status;
    if (const TavStatus status = check_operand_signs(a, b)) return status;
    if (above_modulus(a, state) || above_modulus(b, state)) return tavStsOperandRangeErr;
    if (r->room < state->size) return tavStsOutOfRangeErr;
    int size;
    cpMontMul(a->number, a->size, b->number, b->size, state->modulus->number, state->size,
              r->number, &size, state->nPrime, state->product->number);
    finish(r, size, TavsBigNumPOS);
    return tavStsNoErr;
}

TavStatus tavsMontExp(const BigNumState* x, const BigNumState* e, MontState* state,
                      BigNumState* r) {
    if (const TavStatus status = open_states(x, e, state, r)) return status;
    if (r->room < state->size) return tavStsOutOfRangeErr;
    if (const TavStatus status = check_operand_signs(x, e)) return status;
    if (above_modulus(x, state) || above_modulus(e, state)) return tavStsOperandRangeErr;
    cpMontExp_Binary(r, x, e, state);
    return tavStsNoErr;
}
}
