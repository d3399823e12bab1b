// Recombination of even real lengths: the spectrum X of N reals from the transform z of the N/2
// complex numbers (x[2m], x[2m+1]), and back. In Perm order, h = N/2 complex elements:
//
//     forward (in place)   X[k] = (z[k] + conj z[h-k]) / 2 - i W^k (z[k] - conj z[h-k]) / 2
//     inverse              z[k] = X[k] + conj X[h-k] + i W^(-k) (X[k] - conj X[h-k])
//
// with W = exp(-2 pi i / N); the halves of the forward one are in its table. The inverse is not
// divided by 2, so that the pair gives N times the input. Source and destination may be the same.
#include "signal/dft/kernels.h"

namespace vor::dft {
namespace {

template <class C, class T = real_t<C>>
void recombine_forward(C* z, int h, const C* table) {
    z[0] = {z[0].re + z[0].im, z[0].re - z[0].im};
    for (int k = 1; 2 * k < h; ++k) {
        const C p = z[k], q = z[h - k];
        const T a = table[k].re, b = table[k].im;
        const T d = p.re - q.re, e = p.im + q.im;
        const T u = b * d + a * e, v = b * e - a * d;
        z[k] = {q.re + u, v - q.im};
        z[h - k] = {p.re - u, v - p.im};
    }
    if (h % 2 == 0) z[h / 2].im = -z[h / 2].im;
}

template <class C, class T = real_t<C>>
void recombine_inverse(const C* x, C* z, int h, const C* table) {
    z[0] = {x[0].re + x[0].im, x[0].re - x[0].im};
    for (int k = 1; 2 * k < h; ++k) {
        const C p = x[k], q = x[h - k];
        const T a = table[k].re, b = table[k].im;
        const T d = p.re - q.re, e = p.im + q.im;
        const T u = b * d - a * e, v = a * d + b * e;
        const T re = p.re + q.re, im = p.im - q.im;
        z[k] = {re + u, im + v};
        z[h - k] = {re - u, v - im};
    }
    if (h % 2 == 0) z[h / 2] = {2 * x[h / 2].re, -2 * x[h / 2].im};
}

} // namespace
} // namespace vor::dft

#define RECOMBINE(suffix, C)                                                                       \
    extern "C" void tavs_rDftFwdRecombine_##suffix(C* data, int n, const C* table) {               \
        vor::dft::recombine_forward(data, n, table);                                               \
    }                                                                                              \
    extern "C" void tavs_rDftInvRecombine_##suffix(const C* source, C* destination, int n,         \
                                                   const C* table) {                               \
        vor::dft::recombine_inverse(source, destination, n, table);                                \
    }
RECOMBINE(32f, vor::cfloat)
RECOMBINE(64f, vor::cdouble)
