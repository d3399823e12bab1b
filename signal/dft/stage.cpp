// In-order complex stages: f sub-results of length r, one after the other in a block, become one of
// length f r. For column j of a block
//
//     a_m = x[m r + j] W^(j m),   y = transform of length f of a,   y_m goes to place m r + j
//
// with W = exp(-2 pi i / (f r)), or its conjugate in the inverse direction. Column 0 has no
// twiddles. A column is read before it is written, so a stage may run in place.
#include "signal/dft/column.h"
#include "signal/dft/kernels.h"

namespace vor::dft {
namespace {

template <Direction D, class Radix, Complex C>
VOR_INLINE inline void stage(Radix radix, const C* x, C* y, int r, int blocks, const C* twiddle) {
    const int length = radix.size() * r;
    for (int b = 0; b < blocks; ++b, x += length, y += length) {
        column<D>(radix, x, y, r, r);
        const C* w = twiddle;
        for (int j = 1; j < r; ++j) {
            w += radix.step();
            column<D, Twiddles::before>(radix, x + j, y + j, r, r, w);
        }
    }
}

} // namespace
} // namespace vor::dft

#define STAGE(F, Dir, D, suffix, C)                                                                \
    extern "C" void tavs_cDft##Dir##_Fact##F##_##suffix(const C* source, C* destination, int r,    \
                                                        int blocks, const C* twiddle) {            \
        vor::dft::stage<vor::dft::Direction::D>(vor::dft::FixedRadix<F>{}, source, destination, r, \
                                                blocks, twiddle);                                  \
    }
#define STAGES(Dir, D, suffix, T, C)                                                               \
    STAGE(2, Dir, D, suffix, C)                                                                    \
    STAGE(3, Dir, D, suffix, C)                                                                    \
    STAGE(4, Dir, D, suffix, C)                                                                    \
    STAGE(5, Dir, D, suffix, C)                                                                    \
    extern "C" void tavs_cDft##Dir##_Fact_##suffix(const C* source, C* destination, int f, int r,  \
                                                   const C* table, const C* twiddle,               \
                                                   void* scratch) {                                \
        const vor::dft::TableRadix<T> radix{f, table, scratch};                                    \
        vor::dft::stage<vor::dft::Direction::D>(radix, source, destination, r, 1, twiddle);        \
    }
STAGES(Fwd, forward, 32fc, float, vor::cfloat)
STAGES(Inv, inverse, 32fc, float, vor::cfloat)
STAGES(Fwd, forward, 64fc, double, vor::cdouble)
STAGES(Inv, inverse, 64fc, double, vor::cdouble)
