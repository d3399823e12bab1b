// Shifts of limb arrays by less than a limb.
#pragma once

#include "gmp/limb/word.h"

namespace vor::limb {

#pragma GCC visibility push(hidden)
// r = a << bits over n limbs, bits < 32; the limb that leaves the top. From the top down: r may be a,
// or begin above it. n = 0: 0.
word lshift(word* r, const word* a, int n, unsigned bits);
// r = a >> bits over n limbs, bits < 32. From the bottom up: r may be a, or begin below it.
void rshift(word* r, const word* a, int n, unsigned bits);
#pragma GCC visibility pop

} // namespace vor::limb
