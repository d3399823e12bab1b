// The real leaves by name.
#include "signal/dft/real_leaf.h"
#include "signal/dft/kernels.h"

#define LEAF(name, r, D, T)                                                                        \
    extern "C" void name(const T* source, int p, T* destination, int c, int blocks,                \
                         const int* offsets) {                                                     \
        using namespace vor::dft;                                                                  \
        real_leaf<vor::Direction::D>(FixedRadix<r>{}, source, p, destination, c, blocks, offsets); \
    }
LEAF(tavs_rDftFwd_Prime3_32f, 3, forward, float)
LEAF(tavs_rDftFwd_Prime5_32f, 5, forward, float)
LEAF(tavs_rDftInv_Prime3_32f, 3, backward, float)
LEAF(tavs_rDftInv_Prime5_32f, 5, backward, float)
LEAF(tavs_rDftFwd_Prime3_64f, 3, forward, double)
LEAF(tavs_rDftFwd_Prime5_64f, 5, forward, double)
LEAF(tavs_rDftInv_Prime3_64f, 3, backward, double)
LEAF(tavs_rDftInv_Prime5_64f, 5, backward, double)

#define TABLE_LEAF(name, D, T, C)                                                                  \
    extern "C" void name(const T* source, int p, T* destination, int r, int c, const C* table,     \
                         void* scratch) {                                                          \
        using namespace vor::dft;                                                                  \
        const TableRadix<T> radix{r, table, scratch};                                              \
        constexpr int kNoOffset = 0;                                                               \
        real_leaf<vor::Direction::D>(radix, source, p, destination, c, 1, &kNoOffset);             \
    }
TABLE_LEAF(tavs_rDftFwd_Prime_32f, forward, float, VOR_SCOMPLEX)
TABLE_LEAF(tavs_rDftInv_Prime_32f, backward, float, VOR_SCOMPLEX)
TABLE_LEAF(tavs_rDftFwd_Prime_64f, forward, double, VOR_DCOMPLEX)
TABLE_LEAF(tavs_rDftInv_Prime_64f, backward, double, VOR_DCOMPLEX)
