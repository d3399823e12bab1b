// The routines that have an argument check: Level 2 and Level 3, 96 of them, and their checks.
//
// VOR_CHECKED_ROUTINES(X) expands X(p, P, T, op, OP, list, LIST) for each: type letter in both cases,
// element type, name without the letter in both cases, and the argument list it shares with others of
// its family (PARAMS_LIST in blas/signatures.h, the tests `list` in blas/check/check.cpp).
#pragma once

#include "arith/element.h"
#include "blas/signatures.h"

#define VOR_REAL_TYPES(X, op, OP, list, LIST)                                                      \
    X(s, S, float, op, OP, list, LIST)                                                             \
    X(d, D, double, op, OP, list, LIST)
#define VOR_COMPLEX_TYPES(X, op, OP, list, LIST)                                                   \
    X(c, C, vor::cfloat, op, OP, list, LIST)                                                       \
    X(z, Z, vor::cdouble, op, OP, list, LIST)
#define VOR_ALL_TYPES(X, op, OP, list, LIST)                                                       \
    VOR_REAL_TYPES(X, op, OP, list, LIST)                                                          \
    VOR_COMPLEX_TYPES(X, op, OP, list, LIST)
// A symmetric operation on real types and its Hermitian twin on complex ones.
#define VOR_TWINS(X, op, OP, twin, TWIN, list, LIST)                                               \
    VOR_REAL_TYPES(X, op, OP, list, LIST)                                                          \
    VOR_COMPLEX_TYPES(X, twin, TWIN, list, LIST)

#define VOR_CHECKED_ROUTINES(X)                                                                    \
    VOR_ALL_TYPES(X, gemm, GEMM, gemm, GEMM)                                                       \
    VOR_ALL_TYPES(X, symm, SYMM, symm, SYMM)                                                       \
    VOR_COMPLEX_TYPES(X, hemm, HEMM, symm, SYMM)                                                   \
    VOR_ALL_TYPES(X, syrk, SYRK, syrk, SYRK)                                                       \
    VOR_COMPLEX_TYPES(X, herk, HERK, herk, HERK)                                                   \
    VOR_ALL_TYPES(X, syr2k, SYR2K, syr2k, SYR2K)                                                   \
    VOR_COMPLEX_TYPES(X, her2k, HER2K, her2k, HER2K)                                               \
    VOR_ALL_TYPES(X, trmm, TRMM, trmm, TRMM)                                                       \
    VOR_ALL_TYPES(X, trsm, TRSM, trmm, TRMM)                                                       \
    VOR_ALL_TYPES(X, gemv, GEMV, gemv, GEMV)                                                       \
    VOR_ALL_TYPES(X, gbmv, GBMV, gbmv, GBMV)                                                       \
    VOR_REAL_TYPES(X, ger, GER, ger, GER)                                                          \
    VOR_COMPLEX_TYPES(X, geru, GERU, ger, GER)                                                     \
    VOR_COMPLEX_TYPES(X, gerc, GERC, ger, GER)                                                     \
    VOR_TWINS(X, symv, SYMV, hemv, HEMV, symv, SYMV)                                               \
    VOR_TWINS(X, sbmv, SBMV, hbmv, HBMV, sbmv, SBMV)                                               \
    VOR_TWINS(X, spmv, SPMV, hpmv, HPMV, spmv, SPMV)                                               \
    VOR_TWINS(X, syr, SYR, her, HER, syr, SYR)                                                     \
    VOR_TWINS(X, syr2, SYR2, her2, HER2, syr2, SYR2)                                               \
    VOR_TWINS(X, spr, SPR, hpr, HPR, spr, SPR)                                                     \
    VOR_TWINS(X, spr2, SPR2, hpr2, HPR2, spr2, SPR2)                                               \
    VOR_ALL_TYPES(X, trmv, TRMV, trmv, TRMV)                                                       \
    VOR_ALL_TYPES(X, trsv, TRSV, trmv, TRMV)                                                       \
    VOR_ALL_TYPES(X, tbmv, TBMV, tbmv, TBMV)                                                       \
    VOR_ALL_TYPES(X, tbsv, TBSV, tbmv, TBMV)                                                       \
    VOR_ALL_TYPES(X, tpmv, TPMV, tpmv, TPMV)                                                       \
    VOR_ALL_TYPES(X, tpsv, TPSV, tpmv, TPMV)

// 0 if the arguments are fit for use; 1 after the first unfit one, in the order of the list, has been
// reported through xerbla_ under the routine's upper-case name, padded to six characters. Only integers
// and first characters are read.
#define VOR_DECLARE_CHECK(p, P, T, op, OP, list, LIST) int vor_blas_errchk_##p##op PARAMS_##LIST(T);
extern "C" {
VOR_CHECKED_ROUTINES(VOR_DECLARE_CHECK)
}
#undef VOR_DECLARE_CHECK
