// What the transforms are made of. Data of a transform is decimated in time: it is put in
// bit-reversed order, then passes run on it in place, from short spans to long.
//
// Four-lane form (32 bits, data in flight only): a group of four consecutive complex numbers stands as
// its four real parts, then its four imaginary parts.
//
// N is the number of complex points; "read form", "swap form" and the tables are told in tables.cpp.
// Tables and buffers stand on 16-byte boundaries, data anywhere.
#pragma once

#include "signal/fft/context.h"

extern "C" {

// Radix-4 kernels, in place on bit-reversed data. 64 bits: N from 8 to 512, interleaved data. 32 bits:
// N from 8 to 1024; the result is interleaved if `interleave` is 1, else in four-lane form. The buffer
// of 32 bits has room for the data and is used if the data is not on a 16-byte boundary.
void tavs_cRadix4Fwd_64fc(VOR_DCOMPLEX* data, int n, const VOR_DCOMPLEX* table);
void tavs_cRadix4Inv_64fc(VOR_DCOMPLEX* data, int n, const VOR_DCOMPLEX* table);
void tavs_cRadix4Fwd_32fc(VOR_SCOMPLEX* data, int n, const VOR_SCOMPLEX* table, void* buffer,
                          int interleave);
void tavs_cRadix4Inv_32fc(VOR_SCOMPLEX* data, int n, const VOR_SCOMPLEX* table, void* buffer,
                          int interleave);

// The same from a source in natural order, read through the read-form table. N from 8 to 512; the
// source may be the destination.
void tavs_cRadix4FwdNorm_32fc(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination, int n,
                              const VOR_SCOMPLEX* table, const unsigned* bit_reversal,
                              void* buffer);
void tavs_cRadix4InvNorm_32fc(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination, int n,
                              const VOR_SCOMPLEX* table, const unsigned* bit_reversal,
                              void* buffer);

// Transforms above the kernels' limit, in place on bit-reversed data, scaled as the object says.
void tavs_cFftFwd_Large_64fc(const FftCtx* object, VOR_DCOMPLEX* data, int order, void* buffer);
void tavs_cFftInv_Large_64fc(const FftCtx* object, VOR_DCOMPLEX* data, int order, void* buffer);
void tavs_cFftFwd_Large_32fc(const FftCtx* object, VOR_SCOMPLEX* data, int order, void* buffer);
void tavs_cFftInv_Large_32fc(const FftCtx* object, VOR_SCOMPLEX* data, int order, void* buffer);

// Bit reversal in place (1), small ones by the swap-form table, and from source to destination (2).
void tavs_BitRev1_C(VOR_SCOMPLEX* data, int n, const unsigned* table);
void tavs_BitRev1_Z(VOR_DCOMPLEX* data, int n, const unsigned* table);
void tavs_BitRev2_C(const VOR_SCOMPLEX* source, VOR_SCOMPLEX* destination, int n,
                    const unsigned* table);
void tavs_BitRev2_Z(const VOR_DCOMPLEX* source, VOR_DCOMPLEX* destination, int n,
                    const unsigned* table);

// data[i] := factor * data[i], `count` reals.
void tavs_rbMpy1_32f(float factor, float* data, int count);
void tavs_rbMpy1_64f(double factor, double* data, int count);

} // extern "C"
