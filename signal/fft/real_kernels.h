// Steps of the real transforms of N points on a complex transform of M = N/2, and products of packed
// spectra. Data may stand anywhere.
#pragma once

#include "arith/element.h"

extern "C" {

// The transform of M complex points becomes the upper part of the real spectrum in Perm, in place: all
// but element 0. The direction is 1, the table the object's tabRealRec.
void tavs_cRealRecombine_32f(VOR_SCOMPLEX* data, int m, int direction, const VOR_SCOMPLEX* table);
void tavs_cRealRecombine_64f(VOR_DCOMPLEX* data, int m, int direction, const VOR_DCOMPLEX* table);

// The way back, without the division: all but element 0 of the input of the inverse transform of M
// points. The source may be the destination. The direction is -1, the table the object's tabCcsRec.
void tavs_cCcsRecombine_32f(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination, int m,
                            int direction, const VOR_SCOMPLEX* table);
void tavs_cCcsRecombine_64f(const VOR_DCOMPLEX* source, VOR_DCOMPLEX* destination, int m,
                            int direction, const VOR_DCOMPLEX* table);

// y[i] := x[i] y[i], and y[i] := x[i] conj(y[i]).
void ownps_Mpy2_32fc(const VOR_SCOMPLEX* x, VOR_SCOMPLEX* y, int count);
void ownps_MpyConj2_32fc(const VOR_SCOMPLEX* x, VOR_SCOMPLEX* y, int count);

} // extern "C"
