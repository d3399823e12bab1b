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
    bits &= 31;
    // From the top down, so that r may be a.
    const word out = static_cast<word>(dword{a[n - 1]} << bits >> 32);
    for (int i = n - 1; i > 0; --i)
        r[i] = static_cast<word>(((dword{a[i]} << 32 | a[i - 1]) << bits) >> 32);
    r[0] = a[0] << bits;
    if (out == 0) return n;
    r[n] = out;
    return n + 1;
}

int LSR_BNU(const word* a, word* r, int n, unsigned bits) {
    bits &= 31;
    for (int i = 0; i < n - 1; ++i)
        r[i] = static_cast<word>((dword{a[i + 1]} << 32 | a[i]) >> bits);
    const word top = a[n - 1];
    r[n - 1] = top >> bits;
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
