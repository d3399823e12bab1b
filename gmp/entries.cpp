// Entries of the integer operations: the call frame in front of each engine, under its spellings.
#include "gmp/signatures.h"
#include "serv/entry.h"

#define ENTRY(R, lower, UPPER, LIST)                                                               \
    VOR_ENTRY(R, lower, UPPER, vor_gmp_##lower, PARAMS_##LIST, ARGS_##LIST)
#define MIXED_ENTRY(R, Mixed, lower, UPPER, LIST)                                                  \
    VOR_MIXED_ENTRY(R, Mixed, lower, UPPER, vor_gmp_##lower, PARAMS_##LIST, ARGS_##LIST)

VOR_GMP_OPERATIONS(ENTRY)
VOR_GMP_MIXED_OPERATIONS(MIXED_ENTRY)
