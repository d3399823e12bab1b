// Copies and fills of words and bytes, ascending.
#include "gmp/bn/bignum.h"

using namespace vor;
using bn::word;

extern "C" {
void Cpy_BNU(const word* a, word* r, int n) {
    limb::copy(r, a, n);
}

void Set_BNU(word w, word* r, int n) {
    limb::fill(r, n, w);
}

void cpMemcpy(void* d, const void* s, int n) {
    auto* const to = static_cast<unsigned char*>(d);
    const auto* const from = static_cast<const unsigned char*>(s);
    for (int i = 0; i < n; ++i) to[i] = from[i];
}

void cpMemcpy32u(word* d, const word* s, int n) {
    limb::copy(d, s, n);
}

void cpMemset(void* d, int v, int n) {
    auto* const to = static_cast<unsigned char*>(d);
    for (int i = 0; i < n; ++i) to[i] = static_cast<unsigned char>(v);
}

void cpMemset32u(word* d, word v, int n) {
    limb::fill(d, n, v);
}

void cpEndianChange(word* a, int n) {
    for (int i = 0; i < n; ++i) a[i] = __builtin_bswap32(a[i]);
}
}
