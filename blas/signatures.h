// Argument lists of the dense and sparse-vector routines: each stands once, and the check, the
// engine, the entry and its aliases all use it.
//
// PARAMS_X(T) declares the arguments for element type T, ARGS_X names them.
#pragma once

#define PARAMS_GTHR(T) (const int* n, const T* y, T* x, const int* indx)
#define ARGS_GTHR (n, y, x, indx)
