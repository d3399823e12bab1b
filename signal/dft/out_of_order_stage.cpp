// The out-of-order stages and leaves by name.
#include "signal/dft/out_of_order_stage.h"
#include "signal/dft/kernels.h"

#define STAGE(name, f, D, C)                                                                       \
    extern "C" void name(const C* source, C* destination, int v, int first, int blocks,            \
                         const C* twiddle) {                                                       \
        using namespace vor::dft;                                                                  \
        out_stage<vor::Direction::D>(FixedRadix<f>{}, source, destination, v, first, blocks,       \
                                     twiddle);                                                     \
    }
STAGE(tavs_cDftOutOrdFwd_Fact2_32fc, 2, forward, VOR_SCOMPLEX)
STAGE(tavs_cDftOutOrdFwd_Fact3_32fc, 3, forward, VOR_SCOMPLEX)
STAGE(tavs_cDftOutOrdFwd_Fact4_32fc, 4, forward, VOR_SCOMPLEX)
STAGE(tavs_cDftOutOrdFwd_Fact5_32fc, 5, forward, VOR_SCOMPLEX)
STAGE(tavs_cDftOutOrdInv_Fact2_32fc, 2, backward, VOR_SCOMPLEX)
STAGE(tavs_cDftOutOrdInv_Fact3_32fc, 3, backward, VOR_SCOMPLEX)
STAGE(tavs_cDftOutOrdInv_Fact4_32fc, 4, backward, VOR_SCOMPLEX)
STAGE(tavs_cDftOutOrdInv_Fact5_32fc, 5, backward, VOR_SCOMPLEX)
STAGE(tavs_cDftOutOrdFwd_Fact2_64fc, 2, forward, VOR_DCOMPLEX)
STAGE(tavs_cDftOutOrdFwd_Fact3_64fc, 3, forward, VOR_DCOMPLEX)
STAGE(tavs_cDftOutOrdFwd_Fact4_64fc, 4, forward, VOR_DCOMPLEX)
STAGE(tavs_cDftOutOrdFwd_Fact5_64fc, 5, forward, VOR_DCOMPLEX)
STAGE(tavs_cDftOutOrdInv_Fact2_64fc, 2, backward, VOR_DCOMPLEX)
STAGE(tavs_cDftOutOrdInv_Fact3_64fc, 3, backward, VOR_DCOMPLEX)
STAGE(tavs_cDftOutOrdInv_Fact4_64fc, 4, backward, VOR_DCOMPLEX)
STAGE(tavs_cDftOutOrdInv_Fact5_64fc, 5, backward, VOR_DCOMPLEX)

#define TABLE_STAGE(name, D, T, C)                                                                 \
    extern "C" void name(const C* source, C* destination, int f, int v, int block, const C* table, \
                         const C* twiddle, void* scratch) {                                        \
        using namespace vor::dft;                                                                  \
        const TableRadix<T> radix{f, table, scratch};                                              \
        out_stages<vor::Direction::D>(radix, source, destination, v, block, 1, twiddle);           \
    }
TABLE_STAGE(tavs_cDftOutOrdFwd_Fact_32fc, forward, float, VOR_SCOMPLEX)
TABLE_STAGE(tavs_cDftOutOrdInv_Fact_32fc, backward, float, VOR_SCOMPLEX)
TABLE_STAGE(tavs_cDftOutOrdFwd_Fact_64fc, forward, double, VOR_DCOMPLEX)
TABLE_STAGE(tavs_cDftOutOrdInv_Fact_64fc, backward, double, VOR_DCOMPLEX)

#define LEAF(name, r, D, C)                                                                        \
    extern "C" void name(const C* source, C* destination, int v) {                                 \
        using namespace vor::dft;                                                                  \
        out_leaf<vor::Direction::D>(FixedRadix<r>{}, source, destination, v);                      \
    }
LEAF(tavs_cDftOutOrdFwd_Prime3_32fc, 3, forward, VOR_SCOMPLEX)
LEAF(tavs_cDftOutOrdFwd_Prime5_32fc, 5, forward, VOR_SCOMPLEX)
LEAF(tavs_cDftOutOrdInv_Prime3_32fc, 3, backward, VOR_SCOMPLEX)
LEAF(tavs_cDftOutOrdInv_Prime5_32fc, 5, backward, VOR_SCOMPLEX)
LEAF(tavs_cDftOutOrdFwd_Prime3_64fc, 3, forward, VOR_DCOMPLEX)
LEAF(tavs_cDftOutOrdFwd_Prime5_64fc, 5, forward, VOR_DCOMPLEX)
LEAF(tavs_cDftOutOrdInv_Prime3_64fc, 3, backward, VOR_DCOMPLEX)
LEAF(tavs_cDftOutOrdInv_Prime5_64fc, 5, backward, VOR_DCOMPLEX)

#define TABLE_LEAF(name, D, T, C)                                                                  \
    extern "C" void name(const C* source, C* destination, int r, int v, const C* table,            \
                         void* scratch) {                                                          \
        using namespace vor::dft;                                                                  \
        const TableRadix<T> radix{r, table, scratch};                                              \
        out_leaf<vor::Direction::D>(radix, source, destination, v);                                \
    }
TABLE_LEAF(tavs_cDftOutOrdFwd_Prime_32fc, forward, float, VOR_SCOMPLEX)
TABLE_LEAF(tavs_cDftOutOrdInv_Prime_32fc, backward, float, VOR_SCOMPLEX)
TABLE_LEAF(tavs_cDftOutOrdFwd_Prime_64fc, forward, double, VOR_DCOMPLEX)
TABLE_LEAF(tavs_cDftOutOrdInv_Prime_64fc, backward, double, VOR_DCOMPLEX)
