// Lengths and comparisons of word arrays.
#include "gmp/bn/bignum.h"

using namespace vor::bn;

extern "C" {
int Tst_BNU(const word* a, int n) {
    return vor::limb::normal_size(a, n);
}

int MSD_BNU(const word* a, int n) {
    return trimmed(a, n);
}

int cpCmp_BNU(const word* a, const word* b, int n) {
    return vor::limb::compare(a, b, n);
}

int cpCompare_BNUs(const word* a, int an, const word* b, int bn) {
    return vor::limb::compare(a, an, b, bn);
}

int Cmp_BNU(const word* a, int an, const word* b, int bn) {
    return cpCompare_BNUs(a, trimmed(a, an), b, trimmed(b, bn));
}
}
