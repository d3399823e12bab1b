// Direct sums of a correlation by regions of overlap. With signal x, n taps t and `count` outputs:
//   ownForwFilter    out[m]  = sum over j below n of t[j] x[m + j]
//   ownBackFilter    out[m]  = sum over j below n of t[j] x[j - m]
//   ownFirstTriangle out[-m] = sum over j below n - m of t[j] x[m + j], written from high to low
//   ownLastTriangle  out[m]  = the same, written from low to high
// for m from 0 to count - 1. In the triangles count is at most n.
#pragma once

namespace vor::signal {
template <class R>
using Filter = void(const R* x, const R* t, int n, R* out, int count);
}

extern "C" {
vor::signal::Filter<float> ownForwFilter_32f, ownBackFilter_32f, ownFirstTriangle_32f,
    ownLastTriangle_32f;
vor::signal::Filter<double> ownForwFilter_64f, ownBackFilter_64f, ownFirstTriangle_64f,
    ownLastTriangle_64f;
}

// The four names of a precision, all made from filter<triangle, down>(x, t, n, out, count): output m,
// at out[m] or out[-m], is the sum over j below n, or n - m, of t[j] x[m + j]. The backward filter takes
// signal and output from the far end, so that the same sums serve.
#define VOR_FILTERS(forward, backward, first, last, R)                                             \
    extern "C" void forward(const R* x, const R* t, int n, R* out, int count) {                    \
        filter<false, false>(x, t, n, out, count);                                                 \
    }                                                                                              \
    extern "C" void backward(const R* x, const R* t, int n, R* out, int count) {                   \
        filter<false, true>(x - (count - 1), t, n, out + (count - 1), count);                      \
    }                                                                                              \
    extern "C" void first(const R* x, const R* t, int n, R* out, int count) {                      \
        filter<true, true>(x, t, n, out, count);                                                   \
    }                                                                                              \
    extern "C" void last(const R* x, const R* t, int n, R* out, int count) {                       \
        filter<true, false>(x, t, n, out, count);                                                  \
    }
