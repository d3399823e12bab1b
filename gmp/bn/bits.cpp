// Bit positions and shifts below 32 bits.
#include "serv/bits.h"
#include "gmp/bn/bignum.h"

using namespace vor::bn;

extern "C" {
int NLZ32u(word w) {
    return w ? __builtin_clz(w) : 32;
}

int NTZ32u(word w) {
    return w ? vor::trailing_zeros(w) : 32;
}

int LSL_BNU(const word* a, word* r, int n, unsigned bits) {
    const word out = vor::limb::lshift(r, a, n, bits & 31);
    if (out == 0) return n;
    r[n] = out;
    return n + 1;
}

int LSR_BNU(const word* a, word* r, int n, unsigned bits) {
    const word top = a[n - 1];
    vor::limb::rshift(r, a, n, bits & 31);
    return n > 1 && top != 0 && r[n - 1] == 0 ? n - 1 : n;
}

int LSB_BNU(const word* a, int n) {
    int i = 0;
    while (i < n && a[i] == 0) ++i;
    return i < n ? 32 * i + vor::trailing_zeros(a[i]) : 32 * n;
}

int MSB_BNU(const word* a, int n) {
    n = Tst_BNU(a, n);
    return n > 0 ? 32 * n - 1 - __builtin_clz(a[n - 1]) : -1;
}
}
