// The in-order complex leaves by name.
#include "signal/dft/leaf.h"
#include "signal/dft/kernels.h"

#define LEAF(name, r, D, C)                                                                        \
    extern "C" void name(const C* source, int p, C* destination, int c, int blocks,                \
                         const int* offsets) {                                                     \
        using namespace vor::dft;                                                                  \
        leaf<vor::Direction::D>(FixedRadix<r>{}, source, p, destination, c, blocks, offsets);      \
    }
LEAF(tavs_cDftFwd_Prime3_32fc, 3, forward, VOR_SCOMPLEX)
LEAF(tavs_cDftFwd_Prime5_32fc, 5, forward, VOR_SCOMPLEX)
LEAF(tavs_cDftInv_Prime3_32fc, 3, backward, VOR_SCOMPLEX)
LEAF(tavs_cDftInv_Prime5_32fc, 5, backward, VOR_SCOMPLEX)
LEAF(tavs_cDftFwd_Prime3_64fc, 3, forward, VOR_DCOMPLEX)
LEAF(tavs_cDftFwd_Prime5_64fc, 5, forward, VOR_DCOMPLEX)
LEAF(tavs_cDftInv_Prime3_64fc, 3, backward, VOR_DCOMPLEX)
LEAF(tavs_cDftInv_Prime5_64fc, 5, backward, VOR_DCOMPLEX)

#define TABLE_LEAF(name, D, T, C)                                                                  \
    extern "C" void name(const C* source, int p, C* destination, int r, int c, const C* table,     \
                         void* scratch) {                                                          \
        using namespace vor::dft;                                                                  \
        const TableRadix<T> radix{r, table, scratch};                                              \
        constexpr int kNoOffset = 0;                                                               \
        leaf<vor::Direction::D>(radix, source, p, destination, c, 1, &kNoOffset);                  \
    }
TABLE_LEAF(tavs_cDftFwd_Prime_32fc, forward, float, VOR_SCOMPLEX)
TABLE_LEAF(tavs_cDftInv_Prime_32fc, backward, float, VOR_SCOMPLEX)
TABLE_LEAF(tavs_cDftFwd_Prime_64fc, forward, double, VOR_DCOMPLEX)
TABLE_LEAF(tavs_cDftInv_Prime_64fc, backward, double, VOR_DCOMPLEX)
