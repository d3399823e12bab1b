// Direct sums of a correlation by regions of overlap. With signal x, n taps t and `count` outputs:
//   ownForwFilter    out[m]  = sum over j below n of t[j] x[m + j]
//   ownBackFilter    out[m]  = sum over j below n of t[j] x[j - m]
//   ownFirstTriangle out[-m] = sum over j below n - m of t[j] x[m + j], written from high to low
//   ownLastTriangle  out[m]  = the same, written from low to high
// for m from 0 to count - 1. In the triangles count is at most n.
#pragma once

#define VOR_DECLARE_FILTER(name, R)                                                                \
    extern "C" void name(const R* x, const R* t, int n, R* out, int count);
VOR_DECLARE_FILTER(ownForwFilter_32f, float)
VOR_DECLARE_FILTER(ownForwFilter_64f, double)
VOR_DECLARE_FILTER(ownBackFilter_32f, float)
VOR_DECLARE_FILTER(ownBackFilter_64f, double)
VOR_DECLARE_FILTER(ownFirstTriangle_32f, float)
VOR_DECLARE_FILTER(ownFirstTriangle_64f, double)
VOR_DECLARE_FILTER(ownLastTriangle_32f, float)
VOR_DECLARE_FILTER(ownLastTriangle_64f, double)
#undef VOR_DECLARE_FILTER

// The four names of a precision, all made from filter<triangle, down>(x, t, n, out, count): output m,
// at out[m] or out[-m], is the sum over j below n, or n - m, of t[j] x[m + j]. The backward filter takes
// signal and output from the far end, so that the same sums serve.
#define VOR_FILTERS(X, R)                                                                          \
    extern "C" void ownForwFilter_##X(const R* x, const R* t, int n, R* out, int count) {          \
        filter<false, false>(x, t, n, out, count);                                                 \
    }                                                                                              \
    extern "C" void ownBackFilter_##X(const R* x, const R* t, int n, R* out, int count) {          \
        filter<false, true>(x - (count - 1), t, n, out + (count - 1), count);                      \
    }                                                                                              \
    extern "C" void ownFirstTriangle_##X(const R* x, const R* t, int n, R* out, int count) {       \
        filter<true, true>(x, t, n, out, count);                                                   \
    }                                                                                              \
    extern "C" void ownLastTriangle_##X(const R* x, const R* t, int n, R* out, int count) {        \
        filter<true, false>(x, t, n, out, count);                                                  \
    }
