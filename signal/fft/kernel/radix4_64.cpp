// Radix-4 kernel of the 64-bit engine: N = 8 to 512 points, decimation in time, in place.
#include "signal/fft/kernel/radix4_64.h"
#include "signal/fft/kernels.h"

namespace vor::fft {
namespace {

using C = cdouble;

template <bool inverse>
void radix4(C* data, int n, const C* table) {
    for (C* x = data; x < data + n; x += 4) plain_butterfly<inverse>(x, 1, x, 1);
    int span = 4;
    if (n / 4 & 0x2AAAAAAA) {
        radix2_pass<inverse>(data, n, table[3 * (n / 8)]);
        span = 8;
    }
    while (span < n) {
        span *= 4;
        radix4_pass<inverse>(data, n, span, table, n);
    }
}

} // namespace
} // namespace vor::fft

#define RADIX4(name, inverse)                                                                      \
    extern "C" void name(VOR_DCOMPLEX* data, int n, const VOR_DCOMPLEX* table) {                   \
        vor::fft::radix4<inverse>(data, n, table);                                                 \
    }
RADIX4(tavs_cRadix4Fwd_64fc, false)
RADIX4(tavs_cRadix4Inv_64fc, true)
