// The names of a Level 1 routine: its engine, and its entry with the frame in front.
#pragma once

#include "blas/level1/engines.h"
#include "serv/entry.h"
#include "vor_blas.h"

// LEVEL1(R, name, NAME, engine, PARAMS, ARGS, ...): a routine with result R, done by what follows ARGS.
#define LEVEL1(R, name, NAME, engine, PARAMS, ARGS, ...)                                           \
    VOR_ENGINE R engine PARAMS {                                                                   \
        __VA_ARGS__;                                                                               \
    }                                                                                              \
    VOR_ENTRY(R, name, NAME, engine, PARAMS, ARGS)
