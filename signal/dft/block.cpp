// The element-wise operations by name.
#include "signal/dft/kernel/block.h"
#include "signal/dft/kernels.h"

#define BLOCK(product, conjugating_copy, clearing, C)                                              \
    extern "C" void product(const C* a, const C* b, C* c, int n) {                                 \
        vor::dft::multiply(a, b, c, n);                                                            \
    }                                                                                              \
    extern "C" void conjugating_copy(const C* a, C* b, int n) {                                    \
        vor::dft::conjugate(a, b, n);                                                              \
    }                                                                                              \
    extern "C" void clearing(C* a, int n) {                                                        \
        vor::dft::zero(a, n);                                                                      \
    }
BLOCK(tavs_cbMpy3_32fc, tavs_cbConj2_32fc, tavs_cbZero_32fc, VOR_SCOMPLEX)
BLOCK(tavs_cbMpy3_64fc, tavs_cbConj2_64fc, tavs_cbZero_64fc, VOR_DCOMPLEX)
