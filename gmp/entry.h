// An integer operation: its engine, and its entry with the call frame under its spellings. Both stand
// whole on the line that opens the engine's body:
//
//     VOR_GMP(void, __gmpz_neg, __GMPZ_NEG, vor_gmp___gmpz_neg, (vor_mpz* r, const vor_mpz* a), (r, a)) {
//         the body of vor_gmp___gmpz_neg
//     }
//
// The public prototype in vor_gmp.h is compared with the entry by the compiler.
#pragma once

#include "serv/entry.h"
#include "vor_gmp.h"

#define VOR_GMP(R, lower, UPPER, engine, PARAMS, ARGS)                                             \
    VOR_ENGINE R engine PARAMS;                                                                    \
    VOR_ENTRY(R, lower, UPPER, engine, PARAMS, ARGS)                                               \
    VOR_ENGINE R engine PARAMS

// With a mixed-case spelling besides.
#define VOR_GMP_MIXED(R, Mixed, lower, UPPER, engine, PARAMS, ARGS)                                \
    VOR_ENGINE R engine PARAMS;                                                                    \
    VOR_MIXED_ENTRY(R, Mixed, lower, UPPER, engine, PARAMS, ARGS)                                  \
    VOR_ENGINE R engine PARAMS
