// Radix-4 kernel of the 64-bit engine: N = 8 to 512 points, decimation in time, in place.
#include "signal/fft/radix4_64.h"
#include "signal/fft/kernels.h"

namespace {

using namespace vor;
using namespace vor::fft;
using C = vor::cdouble;

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

extern "C" void tavs_cRadix4Fwd_64fc(C* data, int n, const C* table) {
    radix4<false>(data, n, table);
}
extern "C" void tavs_cRadix4Inv_64fc(C* data, int n, const C* table) {
    radix4<true>(data, n, table);
}
