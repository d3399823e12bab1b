// Products of two sequences of complex numbers, element by element, in place on the second, in single
// precision: y := x y, y := x conj(y).
#include "signal/fft/products.h"
#include "arith/lanes.h"
#include "arith/prefetch.h"
#include "signal/fft/real_kernels.h"

namespace vor::fft {
namespace {

template <bool conjugate>
void multiply_fours(const cfloat* x, cfloat* y, int count) {
    constexpr int kAhead = 128; // bytes of prefetches
    int i = 0;
    for (; i + 4 <= count; i += 4) {
        prefetch(x + i, kAhead);
        prefetch(y + i, kAhead);
        for (int j = i; j < i + 4; j += 2)
            _mm_storeu_ps(&y[j].re, product_of_two<conjugate>(_mm_loadu_ps(&x[j].re),
                                                              _mm_loadu_ps(&y[j].re)));
    }
    multiply_each<conjugate>(x + i, y + i, count - i);
}

} // namespace
} // namespace vor::fft

extern "C" void ownps_Mpy2_32fc(const VOR_SCOMPLEX* x, VOR_SCOMPLEX* y, int count) {
    vor::fft::multiply_fours<false>(x, y, count);
}
extern "C" void ownps_MpyConj2_32fc(const VOR_SCOMPLEX* x, VOR_SCOMPLEX* y, int count) {
    vor::fft::multiply_fours<true>(x, y, count);
}
