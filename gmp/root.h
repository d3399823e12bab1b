// Integer roots of numbers that are not negative.
#pragma once

#include "gmp/integer.h"

namespace vor::gmp {

#pragma GCC visibility push(hidden)
// r = floor(n^(1/k)), s = floor(sqrt(n)), for n >= 0 and k > 0; whether it is exact. r and s may be n.
bool integer_root(vor_mpz* r, const vor_mpz* n, unsigned k);
bool integer_sqrt(vor_mpz* s, const vor_mpz* n);
#pragma GCC visibility pop

} // namespace vor::gmp
