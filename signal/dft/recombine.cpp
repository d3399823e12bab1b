// Recombination of even real lengths N = 2n: between the spectrum in Perm order, n complex elements, and
// the transform of the n complex numbers (x[2m], x[2m+1]).
#include "signal/recombine.h"
#include "signal/dft/kernels.h"

namespace vor::dft {
namespace {

template <Direction D, signal::Roots kRoots, Parted C>
void recombine(const C* x, C* z, int n, const C* table) {
    z[0] = {x[0].re + x[0].im, x[0].re - x[0].im};
    signal::recombine<D, kRoots>(x, z, n, table);
}

} // namespace
} // namespace vor::dft

#define RECOMBINE(forward_name, backward_name, C)                                                  \
    extern "C" void forward_name(C* data, int n, const C* table) {                                 \
        using namespace vor;                                                                       \
        dft::recombine<Direction::forward, signal::Roots::halves>(data, data, n, table);           \
    }                                                                                              \
    extern "C" void backward_name(const C* source, C* destination, int n, const C* table) {        \
        using namespace vor;                                                                       \
        dft::recombine<Direction::backward, signal::Roots::whole>(source, destination, n, table);  \
    }
RECOMBINE(tavs_rDftFwdRecombine_32f, tavs_rDftInvRecombine_32f, VOR_SCOMPLEX)
RECOMBINE(tavs_rDftFwdRecombine_64f, tavs_rDftInvRecombine_64f, VOR_DCOMPLEX)
