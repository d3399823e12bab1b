// Copies and fills of n bytes or words, ascending.
#include "gmp/integer.h"
#include "vor_bignum.h"

extern "C" {
void _impMemcpy(void* d, const void* s, int n) {
    cpMemcpy(d, s, n);
}

void _impMemset(void* d, int v, int n) {
    cpMemset(d, v, n);
}

void _impMemcpy_32(unsigned* d, const unsigned* s, int n) {
    cpMemcpy32u(d, s, n);
}

void _impMemset_32(unsigned* d, unsigned v, int n) {
    cpMemset32u(d, v, n);
}

void _impMemcpy_limb(unsigned* d, const unsigned* s, int n) {
    cpMemcpy32u(d, s, n);
}

void _impMemset_limb(unsigned* d, unsigned v, int n) {
    cpMemset32u(d, v, n);
}
}
