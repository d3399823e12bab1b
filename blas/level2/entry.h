// The names of a Level 2 routine: its engine, and its entry with frame and check in front.
#pragma once

#include "blas/check/routines.h"
#include "serv/entry.h"
#include "vor_blas.h"

// LEVEL2(name, NAME, engine, check, PARAMS, ARGS, ...): a routine that is done by what follows ARGS.
#define LEVEL2(name, NAME, engine, check, PARAMS, ARGS, ...)                                       \
    VOR_ENGINE void engine PARAMS {                                                                \
        __VA_ARGS__;                                                                               \
    }                                                                                              \
    VOR_CHECKED_ENTRY(name, NAME, engine, check, PARAMS, ARGS)
