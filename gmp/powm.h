// Powers modulo m: the parts that both entries share.
#pragma once

#include "gmp/integer.h"

namespace vor::gmp {

// r = a^e mod q for 0 <= a < q, e > 0 and an odd q > 1. r is none of the others.
using OddPower = void (*)(vor_mpz* r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* q);

#pragma GCC visibility push(hidden)
// By sliding windows in Montgomery's form.
void odd_power_by_windows(vor_mpz* r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* q);
// r = a^e mod |m| for a >= 0, e > 0, m not 0: the odd part of m by `odd_power`, the part that is a power
// of two on its own. r may be an operand.
void power_modulo(vor_mpz* r, const vor_mpz* a, const vor_mpz* e, const vor_mpz* m,
                  OddPower odd_power);
#pragma GCC visibility pop

} // namespace vor::gmp
