// The Level 1 engines, for callers inside the library: the routines without the entry's frame. They
// allocate nothing, start no threads and ask for no settings, so they may be called from parallel
// regions.
//
// vor_blas_sdot hands its value back in extended precision (see dot.cpp): a caller that wants a float
// stores it into one.
#pragma once

#include "arith/element.h"
#include "blas/signatures.h"

extern "C" {

#define VOR_LEVEL1_OF_ALL(p, T)                                                                    \
    void vor_blas_##p##axpy PARAMS_AXPY(T);                                                        \
    void vor_blas_##p##copy PARAMS_COPY(T);                                                        \
    void vor_blas_##p##swap PARAMS_SWAP(T);                                                        \
    void vor_blas_##p##scal PARAMS_SCAL(T, T);                                                     \
    int vor_blas_i##p##amax PARAMS_VALUE(T);                                                       \
    int vor_blas_i##p##amin PARAMS_VALUE(T);                                                       \
    void vor_blas_##p##axpyi PARAMS_AXPYI(T);                                                      \
    void vor_blas_##p##gthr PARAMS_GTHR(T);                                                        \
    void vor_blas_##p##gthrz PARAMS_GTHRZ(T);                                                      \
    void vor_blas_##p##sctr PARAMS_SCTR(T);
VOR_LEVEL1_OF_ALL(s, float)
VOR_LEVEL1_OF_ALL(d, double)
VOR_LEVEL1_OF_ALL(c, vor::cfloat)
VOR_LEVEL1_OF_ALL(z, vor::cdouble)
#undef VOR_LEVEL1_OF_ALL

#define VOR_LEVEL1_OF_REAL(p, T)                                                                   \
    T vor_blas_##p##nrm2 PARAMS_VALUE(T);                                                          \
    T vor_blas_##p##asum PARAMS_VALUE(T);                                                          \
    void vor_blas_##p##rot PARAMS_ROT(T, T);                                                       \
    void vor_blas_##p##rotg PARAMS_ROTG(T);                                                        \
    void vor_blas_##p##rotm PARAMS_ROTM(T);                                                        \
    void vor_blas_##p##rotmg PARAMS_ROTMG(T);                                                      \
    T vor_blas_##p##doti PARAMS_DOTI(T);                                                           \
    void vor_blas_##p##roti PARAMS_ROTI(T);
VOR_LEVEL1_OF_REAL(s, float)
VOR_LEVEL1_OF_REAL(d, double)
#undef VOR_LEVEL1_OF_REAL

// pr and rp are the letters of routines on complex data with a real scalar or a real result.
#define VOR_LEVEL1_OF_COMPLEX(p, pr, rp, T, R)                                                     \
    void vor_blas_##p##dotu PARAMS_CDOT(T);                                                        \
    void vor_blas_##p##dotc PARAMS_CDOT(T);                                                        \
    void vor_blas_##p##dotui PARAMS_CDOTI(T);                                                      \
    void vor_blas_##p##dotci PARAMS_CDOTI(T);                                                      \
    void vor_blas_##p##rotg PARAMS_CROTG(T, R);                                                    \
    void vor_blas_##pr##rot PARAMS_ROT(T, R);                                                      \
    void vor_blas_##pr##scal PARAMS_SCAL(T, R);                                                    \
    R vor_blas_##rp##nrm2 PARAMS_VALUE(T);                                                         \
    R vor_blas_##rp##asum PARAMS_VALUE(T);
VOR_LEVEL1_OF_COMPLEX(c, cs, sc, vor::cfloat, float)
VOR_LEVEL1_OF_COMPLEX(z, zd, dz, vor::cdouble, double)
#undef VOR_LEVEL1_OF_COMPLEX

long double vor_blas_sdot PARAMS_DOT(float);
double vor_blas_ddot PARAMS_DOT(double);
double vor_blas_dsdot PARAMS_DOT(float);
float vor_blas_sdsdot PARAMS_SDSDOT;
double vor_blas_dcabs1 PARAMS_DCABS1(vor::cdouble);
}
