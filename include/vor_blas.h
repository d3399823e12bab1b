/* vor_blas.h: BLAS routines of the Orbel Numeric Library, Fortran-style.
 *
 * The calling convention is that of vor_types.h: every argument by reference, matrices column-major.
 * Vectors: n elements, step incx elements. With incx < 0 the walk begins at element (1-n)*incx of
 * the array, so that the last element in memory is the first of the vector. Lengths below 1 are no
 * error: nothing is read or written. Arrays need only the alignment of their element. Source and
 * destination vectors must not overlap unless they are the same vector and the text says so.
 */
#ifndef VOR_BLAS_H
#define VOR_BLAS_H

#include "vor_types.h"

VOR_BEGIN_C

/* ---- Sparse vectors --------------------------------------------------------------------------
 * A sparse vector is an array x of n values and an array indx of their n positions, counted from 1,
 * in a full vector y.
 * (Dodson, Grimes, Lewis: Sparse Extensions to the Fortran BLAS, ACM TOMS 17 (1991) 253-263.) */

/* ?gthr: x[i] := y[indx[i] - 1], i = 0 .. n-1. x and y must not overlap. Repeated indices are fine. */
VOR_SPELLINGS(void, sgthr, SGTHR, (const int* n, const float* y, float* x, const int* indx))
VOR_SPELLINGS(void, dgthr, DGTHR, (const int* n, const double* y, double* x, const int* indx))
VOR_SPELLINGS(void, cgthr, CGTHR,
              (const int* n, const VOR_SCOMPLEX* y, VOR_SCOMPLEX* x, const int* indx))
VOR_SPELLINGS(void, zgthr, ZGTHR,
              (const int* n, const VOR_DCOMPLEX* y, VOR_DCOMPLEX* x, const int* indx))

VOR_END_C

#endif
