// Recombination of the real transforms of N = 2M points, all but element 0.
#include "signal/recombine.h"
#include "signal/fft/real_kernels.h"

#define RECOMBINE(forward_name, backward_name, C)                                                  \
    extern "C" void forward_name(C* data, int m, int, const C* table) {                            \
        using namespace vor::signal;                                                               \
        recombine<vor::Direction::forward, Roots::halves>(data, data, m, table);                   \
    }                                                                                              \
    extern "C" void backward_name(const C* source, C* destination, int m, int, const C* table) {   \
        using namespace vor::signal;                                                               \
        recombine<vor::Direction::backward, Roots::whole>(source, destination, m, table);          \
    }
RECOMBINE(tavs_cRealRecombine_32f, tavs_cCcsRecombine_32f, VOR_SCOMPLEX)
RECOMBINE(tavs_cRealRecombine_64f, tavs_cCcsRecombine_64f, VOR_DCOMPLEX)
