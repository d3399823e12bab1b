// Copies and fills of words and bytes, ascending.
#include "gmp/bn/bignum.h"

using vor::bn::word;

namespace {

template <class T>
void copy(T* d, const T* s, int n) {
    for (int i = 0; i < n; ++i) d[i] = s[i];
}

template <class T>
void fill(T* d, T v, int n) {
    for (int i = 0; i < n; ++i) d[i] = v;
}

} // namespace

extern "C" {
void Cpy_BNU(const word* a, word* r, int n) {
    copy(r, a, n);
}

void Set_BNU(word w, word* r, int n) {
    fill(r, w, n);
}

void cpMemcpy(void* d, const void* s, int n) {
    copy(static_cast<unsigned char*>(d), static_cast<const unsigned char*>(s), n);
}

void cpMemcpy32u(word* d, const word* s, int n) {
    copy(d, s, n);
}

void cpMemset(void* d, int v, int n) {
    fill(static_cast<unsigned char*>(d), static_cast<unsigned char>(v), n);
}

void cpMemset32u(word* d, word v, int n) {
    fill(d, v, n);
}

void cpEndianChange(word* a, int n) {
    for (int i = 0; i < n; ++i) a[i] = __builtin_bswap32(a[i]);
}
}
