// Signed numbers in memory of the caller: layout, values, comparisons.
#include "gmp/bn/bignum.h"

using namespace vor::bn;

namespace {

constexpr int kLargestLength = (INT32_MAX - 51) / 8;

const word one_words[2] = {1, 0}, two_words[2] = {2, 0};
word unused_buffer[2]; // only functions that take a state to change write into its buffer
const BigNumState one{kBigNumId, TavsBigNumPOS, 1, 1, const_cast<word*>(one_words), unused_buffer};
const BigNumState two{kBigNumId, TavsBigNumPOS, 1, 1, const_cast<word*>(two_words), unused_buffer};

// Sign of a - b: 1, 0, -1.
int compare(const BigNumState* a, const BigNumState* b) {
    if (a->sgn != b->sgn) return is_negative(a) ? -1 : 1;
    const int magnitudes = cpCompare_BNUs(a->number, a->size, b->number, b->size);
    return is_negative(a) ? -magnitudes : magnitudes;
}

int sign(const BigNumState* a) {
    return is_zero(a) ? 0 : is_negative(a) ? -1 : 1;
}

// 0, 1, 2 for zero, positive, negative.
word relation(int sign) {
    return sign < 0 ? 2 : static_cast<word>(sign);
}

} // namespace

extern "C" {
TavStatus tavsBigNumGetSize(int len, int* size) {
    if (any_null(size)) return tavStsNullPtrErr;
    if (len < 1 || len > kLargestLength) return tavStsLengthErr;
    *size = (8 * len + 51) & ~15;
    return tavStsNoErr;
}

TavStatus tavsBigNumInit(int len, BigNumState* state) {
    if (any_null(state)) return tavStsNullPtrErr;
    if (len < 1 || len > kLargestLength) return tavStsLengthErr;
    state = aligned(state);
    state->idCtx = kBigNumId;
    state->size = 0;
    state->room = len;
    state->number = reinterpret_cast<word*>(state + 1);
    state->buffer = state->number + len + 1;
    return tavStsNoErr;
}

TavStatus tavsGetSize_BN(const BigNumState* state, int* room) {
    if (any_null(state, room)) return tavStsNullPtrErr;
    if (const TavStatus status = open_states(state)) return status;
    *room = state->room;
    return tavStsNoErr;
}

TavStatus tavsSet_BN(word sgn, int len, const word* data, BigNumState* state) {
    if (any_null(data, state)) return tavStsNullPtrErr;
    if (const TavStatus status = open_states(state)) return status;
    if (len < 1) return tavStsLengthErr;
    if (len > state->room) return tavStsOutOfRangeErr;
    const int size = trimmed(data, len);
    Cpy_BNU(data, state->number, size);
    finish(state, size, sgn);
    return tavStsNoErr;
}

TavStatus tavsGet_BN(word* sgn, int* size, word* data, const BigNumState* state) {
    if (any_null(sgn, size, data, state)) return tavStsNullPtrErr;
    if (const TavStatus status = open_states(state)) return status;
    *sgn = state->sgn;
    *size = state->size;
    Cpy_BNU(state->number, data, state->size);
    return tavStsNoErr;
}

TavStatus tavsCmpZero_BN(const BigNumState* state, word* result) {
    if (any_null(state, result)) return tavStsNullPtrErr;
    if (const TavStatus status = open_states(state)) return status;
    *result = relation(sign(state));
    return tavStsNoErr;
}

TavStatus tavsCmp_BN(const BigNumState* a, const BigNumState* b, word* result) {
    if (any_null(a, b, result)) return tavStsNullPtrErr;
    if (const TavStatus status = open_states(a, b)) return status;
    *result = relation(compare(a, b));
    return tavStsNoErr;
}

const BigNumState* BN_OneRef() {
    return &one;
}

const BigNumState* BN_TwoRef() {
    return &two;
}

void BN_Word(BigNumState* state, word w) {
    state->number[0] = w;
    state->size = 1;
    state->sgn = TavsBigNumPOS;
}

void BN_Zero(BigNumState* state) {
    BN_Word(state, 0);
}

void BN_Power2(BigNumState* state, int k) {
    const int top = k / 32;
    if (k < 0 || top >= state->room) return;
    Set_BNU(0, state->number, top);
    state->number[top] = word{1} << k % 32;
    state->size = top + 1;
    state->sgn = TavsBigNumPOS;
}

void BN_copy(const BigNumState* a, BigNumState* r) {
    Cpy_BNU(a->number, r->number, a->size);
    Set_BNU(0, r->number + a->size, r->room - a->size);
    r->size = a->size;
    r->sgn = a->sgn;
}

TavStatus cpBigNumInitSet(BigNumState* state, word sgn, word w) {
    if (const TavStatus status = tavsBigNumInit(1, state)) return status;
    return tavsSet_BN(sgn, 1, &w, state);
}

int Tst_BN(const BigNumState* a) {
    return sign(a);
}

int Cmp_BN(const BigNumState* a, const BigNumState* b) {
    return compare(a, b);
}

int IsZero_BN(const BigNumState* a) {
    return is_zero(a);
}

int IsOne_BN(const BigNumState* a) {
    return a->size == 1 && a->number[0] == 1 && !is_negative(a);
}

int IsOdd_BN(const BigNumState* a) {
    return a->number[0] & 1;
}
}
