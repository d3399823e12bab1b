// 1-D functions of a record on its tavs object: one vector of unit stride, then the record's scale.
#pragma once

#include "dft/record.h"

#define VOR_DFT_ADAPTER(name)                                                                      \
    extern "C" int name(void* input, void* output, DftiRecord* record, void* workspace);
VOR_DFT_ADAPTER(vor_dft_xtavs_fwd_32fc)
VOR_DFT_ADAPTER(vor_dft_xtavs_fwd_64fc)
VOR_DFT_ADAPTER(vor_dft_xtavs_inv_32fc)
VOR_DFT_ADAPTER(vor_dft_xtavs_inv_64fc)
VOR_DFT_ADAPTER(vor_dft_xtavs_fwd_rev_32fc)
VOR_DFT_ADAPTER(vor_dft_xtavs_fwd_rev_64fc)
VOR_DFT_ADAPTER(vor_dft_xtavs_inv_rev_32fc)
VOR_DFT_ADAPTER(vor_dft_xtavs_inv_rev_64fc)
VOR_DFT_ADAPTER(vor_dft_xtavs_fwd_rtocomplex_32f)
VOR_DFT_ADAPTER(vor_dft_xtavs_fwd_rtocomplex_64f)
VOR_DFT_ADAPTER(vor_dft_xtavs_inv_complextor_32f)
VOR_DFT_ADAPTER(vor_dft_xtavs_inv_complextor_64f)
#undef VOR_DFT_ADAPTER
