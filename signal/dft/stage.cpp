// The in-order complex stages by name.
#include "signal/dft/stage.h"
#include "signal/dft/kernels.h"

#define STAGE(name, f, D, C)                                                                       \
    extern "C" void name(const C* source, C* destination, int r, int blocks, const C* twiddle) {   \
        using namespace vor::dft;                                                                  \
        stage<vor::Direction::D>(FixedRadix<f>{}, source, destination, r, blocks, twiddle);        \
    }
STAGE(tavs_cDftFwd_Fact2_32fc, 2, forward, VOR_SCOMPLEX)
STAGE(tavs_cDftFwd_Fact3_32fc, 3, forward, VOR_SCOMPLEX)
STAGE(tavs_cDftFwd_Fact4_32fc, 4, forward, VOR_SCOMPLEX)
STAGE(tavs_cDftFwd_Fact5_32fc, 5, forward, VOR_SCOMPLEX)
STAGE(tavs_cDftInv_Fact2_32fc, 2, backward, VOR_SCOMPLEX)
STAGE(tavs_cDftInv_Fact3_32fc, 3, backward, VOR_SCOMPLEX)
STAGE(tavs_cDftInv_Fact4_32fc, 4, backward, VOR_SCOMPLEX)
STAGE(tavs_cDftInv_Fact5_32fc, 5, backward, VOR_SCOMPLEX)
STAGE(tavs_cDftFwd_Fact2_64fc, 2, forward, VOR_DCOMPLEX)
STAGE(tavs_cDftFwd_Fact3_64fc, 3, forward, VOR_DCOMPLEX)
STAGE(tavs_cDftFwd_Fact4_64fc, 4, forward, VOR_DCOMPLEX)
STAGE(tavs_cDftFwd_Fact5_64fc, 5, forward, VOR_DCOMPLEX)
STAGE(tavs_cDftInv_Fact2_64fc, 2, backward, VOR_DCOMPLEX)
STAGE(tavs_cDftInv_Fact3_64fc, 3, backward, VOR_DCOMPLEX)
STAGE(tavs_cDftInv_Fact4_64fc, 4, backward, VOR_DCOMPLEX)
STAGE(tavs_cDftInv_Fact5_64fc, 5, backward, VOR_DCOMPLEX)

#define TABLE_STAGE(name, D, T, C)                                                                 \
    extern "C" void name(const C* source, C* destination, int f, int r, const C* table,            \
                         const C* twiddle, void* scratch) {                                        \
        using namespace vor::dft;                                                                  \
        const TableRadix<T> radix{f, table, scratch};                                              \
        stage<vor::Direction::D>(radix, source, destination, r, 1, twiddle);                       \
    }
TABLE_STAGE(tavs_cDftFwd_Fact_32fc, forward, float, VOR_SCOMPLEX)
TABLE_STAGE(tavs_cDftInv_Fact_32fc, backward, float, VOR_SCOMPLEX)
TABLE_STAGE(tavs_cDftFwd_Fact_64fc, forward, double, VOR_DCOMPLEX)
TABLE_STAGE(tavs_cDftInv_Fact_64fc, backward, double, VOR_DCOMPLEX)
