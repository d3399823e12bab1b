// The real stages by name.
#include "signal/dft/real_stage.h"
#include "signal/dft/kernels.h"

#define STAGE(name, f, D, T, C)                                                                    \
    extern "C" void name(const T* source, T* destination, int r, int blocks, const C* twiddle) {   \
        using namespace vor::dft;                                                                  \
        real_stage<vor::Direction::D>(FixedRadix<f>{}, source, destination, r, blocks, twiddle);   \
    }
STAGE(tavs_rDftFwd_Fact3_32f, 3, forward, float, VOR_SCOMPLEX)
STAGE(tavs_rDftFwd_Fact5_32f, 5, forward, float, VOR_SCOMPLEX)
STAGE(tavs_rDftInv_Fact3_32f, 3, backward, float, VOR_SCOMPLEX)
STAGE(tavs_rDftInv_Fact5_32f, 5, backward, float, VOR_SCOMPLEX)
STAGE(tavs_rDftFwd_Fact3_64f, 3, forward, double, VOR_DCOMPLEX)
STAGE(tavs_rDftFwd_Fact5_64f, 5, forward, double, VOR_DCOMPLEX)
STAGE(tavs_rDftInv_Fact3_64f, 3, backward, double, VOR_DCOMPLEX)
STAGE(tavs_rDftInv_Fact5_64f, 5, backward, double, VOR_DCOMPLEX)

#define TABLE_STAGE(name, D, T, C)                                                                 \
    extern "C" void name(const T* source, T* destination, int f, int r, const C* table,            \
                         const C* twiddle, void* scratch) {                                        \
        using namespace vor::dft;                                                                  \
        const TableRadix<T> radix{f, table, scratch};                                              \
        real_stage<vor::Direction::D>(radix, source, destination, r, 1, twiddle);                  \
    }
TABLE_STAGE(tavs_rDftFwd_Fact_32f, forward, float, VOR_SCOMPLEX)
TABLE_STAGE(tavs_rDftInv_Fact_32f, backward, float, VOR_SCOMPLEX)
TABLE_STAGE(tavs_rDftFwd_Fact_64f, forward, double, VOR_DCOMPLEX)
TABLE_STAGE(tavs_rDftInv_Fact_64f, backward, double, VOR_DCOMPLEX)
