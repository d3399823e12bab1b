// Inverse modulo m by the extended method of Euclid (Knuth, 4.5.2, algorithm X) on two remainders, with
// cofactors that are kept as magnitudes: with m0 the modulus, at every time
//
//     X1 a = wa,  X0 a = -m  (mod m0)  and  X1 m + X0 wa = m0
//
// The last identity rebuilds the modulus in m at the end.
#include "gmp/bn/bignum.h"

using namespace vor::bn;

namespace {

struct Cofactor {
    word* words;
    int room; // words of the modulus, which bounds the cofactor
    int size = 1;

    // += b * c
    void accumulate(const word* b, int bn, const word* c, int cn) {
        cpMAC_BNU(b, bn, c, cn, words, &size, room);
    }
};

bool is_word(const word* a, int n, word w) {
    return n == 1 && a[0] == w;
}

} // namespace

extern "C" {
TavStatus cpModInv_BNU(const word* a, int an, word* m, int mn, word* inv, int* invn, word* wa,
                       word* wx, word* wq) {
    Cpy_BNU(a, wa, an);
    an = trimmed(wa, an);
    mn = trimmed(m, mn);
    inv[0] = 0;
    wx[0] = 1;
    *invn = 1;
    if (is_word(wa, an, 1)) {
        inv[0] = 1;
        return tavStsNoErr;
    }
    Cofactor x0{.words = inv, .room = mn}, x1{.words = wx, .room = mn};
    for (;;) {
        int qn;
        cpDiv_BNU(m, mn, wa, an, wq, &qn, &mn);
        x0.accumulate(wq, qn, x1.words, x1.size);
        if (is_word(m, mn, 1)) { // X0 a = -1
            x1.accumulate(x0.words, x0.size, wa, an);
            Cpy_BNU(x1.words, m, x1.size);
            word sgn;
            cpSub_BNUs(m, x1.size, x0.words, x0.size, inv, invn, &sgn);
            return tavStsNoErr;
        }
        if (is_word(m, mn, 0)) {
            cpMul_BNU_FullSize(x0.words, x0.size, wa, an, x1.words);
            Cpy_BNU(x1.words, m, x0.room);
            return tavStsBadModulusErr;
        }
        cpDiv_BNU(wa, an, m, mn, wq, &qn, &an);
        x1.accumulate(wq, qn, x0.words, x0.size);
        if (is_word(wa, an, 1)) { // X1 a = 1
            x0.accumulate(x1.words, x1.size, m, mn);
            Cpy_BNU(x0.words, m, x0.size);
            Cpy_BNU(x1.words, inv, x1.size);
            *invn = x1.size;
            return tavStsNoErr;
        }
        if (is_word(wa, an, 0)) {
            cpMul_BNU_FullSize(x1.words, x1.size, m, mn, x0.words);
            Cpy_BNU(x0.words, m, x0.room);
            return tavStsBadModulusErr;
        }
    }
}

TavStatus tavsModInv_BN(BigNumState* a, BigNumState* m, BigNumState* inv) {
    if (const TavStatus status = open_states(a, m, inv)) return status;
    if (m->size > inv->room) return tavStsOutOfRangeErr;
    if (is_negative(a) || is_zero(a)) return tavStsBadArgErr;
    if (is_negative(m) || is_zero(m)) return tavStsBadModulusErr;
    if (cpCompare_BNUs(a->number, a->size, m->number, m->size) >= 0) return tavStsOperandRangeErr;
    int size;
    const TavStatus status = cpModInv_BNU(a->number, a->size, m->number, m->size, inv->number,
                                          &size, a->buffer, m->buffer, inv->buffer);
    if (status == tavStsNoErr) finish(inv, size, TavsBigNumPOS);
    return status;
}
}
