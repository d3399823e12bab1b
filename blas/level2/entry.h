// The names of a Level 2 routine: its engine, and its entry with frame and check in front.
#pragma once

#include "blas/check/routines.h"
#include "serv/entry.h"
#include "vor_blas.h"

// LEVEL2(p, P, T, op, OP, LIST, call): routine p##op with the argument list LIST, done by `call`.
#define LEVEL2(p, P, T, op, OP, LIST, ...)                                                         \
    VOR_ENGINE void vor_blas_##p##op PARAMS_##LIST(T) {                                            \
        __VA_ARGS__;                                                                               \
    }                                                                                              \
    VOR_CHECKED_ENTRY(p##op, P##OP, vor_blas_##p##op, vor_blas_errchk_##p##op, PARAMS_##LIST(T),   \
                      ARGS_##LIST)
