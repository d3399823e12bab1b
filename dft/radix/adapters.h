// The radix engine as 1-D functions of a record: one vector of unit stride with the record's table, ordering and
// scale; and the same in place by a team of at most `threads` threads. They give DFTI_NO_ERROR.
#pragma once

#include "dft/record.h"

#define VOR_DFT_RADIX_ADAPTER(name)                                                                \
    extern "C" int name(void* input, void* output, DftiRecord* record, void* workspace);
VOR_DFT_RADIX_ADAPTER(vor_dft_xcdft1df)
VOR_DFT_RADIX_ADAPTER(vor_dft_xcdft1db)
VOR_DFT_RADIX_ADAPTER(vor_dft_xzdft1df)
VOR_DFT_RADIX_ADAPTER(vor_dft_xzdft1db)
#undef VOR_DFT_RADIX_ADAPTER

#define VOR_DFT_RADIX_TEAM(name) extern "C" int name(void* data, int threads, DftiRecord* record);
VOR_DFT_RADIX_TEAM(vor_dft_c1d_forw_dft)
VOR_DFT_RADIX_TEAM(vor_dft_c1d_back_dft)
VOR_DFT_RADIX_TEAM(vor_dft_z1d_forw_dft)
VOR_DFT_RADIX_TEAM(vor_dft_z1d_back_dft)
#undef VOR_DFT_RADIX_TEAM

extern "C" {
// Fills the coefficient area of 2^k points.
void vor_dft_coef4r22(const int* k, float* area);
void vor_dft_coef4r22_z(const int* k, double* area);
}
