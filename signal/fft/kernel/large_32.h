// Steps of the large 32-bit transforms, on data in four-lane form. Data may stand anywhere, tables and
// lanes on 16-byte boundaries.
#pragma once

#include "arith/element.h"

extern "C" {

// Radix-2 step that joins two transformed halves of n points in all. The table holds the n/4 twiddles
// of the first quarter circle. Interleaved result if `interleave` is 1.
void tavs_cFftFwd_Step_R2_32fc(VOR_SCOMPLEX* data, int n, const VOR_SCOMPLEX* table,
                               int interleave);
void tavs_cFftInv_Step_R2_32fc(VOR_SCOMPLEX* data, int n, const VOR_SCOMPLEX* table,
                               int interleave);

// Two groups of four adjacent columns of rows of `width` points, times their products (conjugated unless
// `forward`; those of the second group stand `apart` elements behind the first's), into four lanes of
// `rows` points for each group, one lane of a register each; and the first pass over them: transforms
// of 4 points, of 8 if the order is odd.
void tavs_cFftBlkMergeMpy_32fc(const VOR_SCOMPLEX* row, int width, VOR_SCOMPLEX* lanes, int rows,
                               const VOR_SCOMPLEX* products, int apart, int forward);

// The last pass over the lanes, with the last section of the staged table, and the result back into the
// columns, interleaved if `interleave` is 1.
void tavs_cFftBlkSplit_32fc(const VOR_SCOMPLEX* lanes, int rows, VOR_SCOMPLEX* row, int width,
                            const VOR_SCOMPLEX* table, int forward, int interleave);

} // extern "C"
