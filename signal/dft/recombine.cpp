// Recombination of even real lengths: the spectrum X of N reals from the transform z of the N/2
// complex numbers (x[2m], x[2m+1]), and back. In Perm order, h = N/2 complex elements:
//
//     forward (in place)   X[k] = (z[k] + conj z[h-k]) / 2 - i W^k (z[k] - conj z[h-k]) / 2
//     inverse              z[k] = X[k] + conj X[h-k] + i W^(-k) (X[k] - conj X[h-k])
//
// with W = exp(-2 pi i / N); the halves of the forward one are in its table. The inverse is not
// divided by 2, so that the pair gives N times the input. Source and destination may be the same.
//
// Single precision takes four k at a time.
#include "signal/dft/kernels.h"
#include "signal/dft/lanes.h"

namespace vor::dft {
namespace {

// p = z[k] and q = z[h-k], or those of X, to their places.
template <Direction D, Parted C>
VOR_INLINE inline void join(C& p, C& q, C w) {
    const auto a = w.re, b = w.im;
    const auto d = p.re - q.re, e = p.im + q.im;
    if constexpr (D == Direction::forward) {
        const auto u = b * d + a * e, v = b * e - a * d;
        const C mirror = {p.re - u, v - p.im};
        p = {q.re + u, v - q.im};
        q = mirror;
    } else {
        const auto u = b * d - a * e, v = a * d + b * e;
        const auto re = p.re + q.re, im = p.im - q.im;
        p = {re + u, im + v};
        q = {re - u, v - im};
    }
}

template <Direction D, Parted C>
void recombine(const C* x, C* z, int h, const C* table) {
    z[0] = {x[0].re + x[0].im, x[0].re - x[0].im};
    int k = 1;
    if constexpr (std::is_same_v<C, cfloat>)
        for (; 2 * (k + kLanes - 1) < h; k += kLanes) {
            Four p = Neighbours::load(x + k), q = Falling::load(x + h - k);
            join<D>(p, q, Neighbours::load(table + k));
            Neighbours::store(z + k, p);
            Falling::store(z + h - k, q);
        }
    for (; 2 * k < h; ++k) {
        C p = x[k], q = x[h - k];
        join<D>(p, q, table[k]);
        z[k] = p;
        z[h - k] = q;
    }
    if (h % 2 != 0) return;
    if constexpr (D == Direction::forward)
        z[h / 2].im = -z[h / 2].im;
    else
        z[h / 2] = {2 * x[h / 2].re, -2 * x[h / 2].im};
}

} // namespace
} // namespace vor::dft

#define RECOMBINE(suffix, C)                                                                       \
    extern "C" void tavs_rDftFwdRecombine_##suffix(C* data, int n, const C* table) {               \
        vor::dft::recombine<vor::Direction::forward>(data, data, n, table);                        \
    }                                                                                              \
    extern "C" void tavs_rDftInvRecombine_##suffix(const C* source, C* destination, int n,         \
                                                   const C* table) {                               \
        vor::dft::recombine<vor::Direction::backward>(source, destination, n, table);              \
    }
RECOMBINE(32f, vor::cfloat)
RECOMBINE(64f, vor::cdouble)
