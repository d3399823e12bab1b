// Lengths and comparisons of word arrays.
#include "gmp/bn/bignum.h"

using namespace vor::bn;

extern "C" {
int Tst_BNU(const word* a, int n) {
    while (n > 0 && a[n - 1] == 0) --n;
    return n;
}

int MSD_BNU(const word* a, int n) {
    return trimmed(a, n);
}

int cpCmp_BNU(const word* a, const word* b, int n) {
    while (--n >= 0)
        if (a[n] != b[n]) return a[n] > b[n] ? 1 : -1;
    return 0;
}

int cpCompare_BNUs(const word* a, int an, const word* b, int bn) {
    if (an != bn) return an > bn ? 1 : -1;
    return cpCmp_BNU(a, b, an);
}

int Cmp_BNU(const word* a, int an, const word* b, int bn) {
    return cpCompare_BNUs(a, trimmed(a, an), b, trimmed(b, bn));
}
}
