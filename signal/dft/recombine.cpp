// The recombinations by name.
#include "signal/dft/recombine.h"
#include "signal/dft/kernels.h"

#define RECOMBINE(forward_name, backward_name, C)                                                  \
    extern "C" void forward_name(C* data, int n, const C* table) {                                 \
        vor::dft::recombine<vor::Direction::forward>(data, data, n, table);                        \
    }                                                                                              \
    extern "C" void backward_name(const C* source, C* destination, int n, const C* table) {        \
        vor::dft::recombine<vor::Direction::backward>(source, destination, n, table);              \
    }
RECOMBINE(tavs_rDftFwdRecombine_32f, tavs_rDftInvRecombine_32f, VOR_SCOMPLEX)
RECOMBINE(tavs_rDftFwdRecombine_64f, tavs_rDftInvRecombine_64f, VOR_DCOMPLEX)
