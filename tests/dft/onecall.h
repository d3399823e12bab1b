// The one-call transforms as tables: a member of a family with its calls by one form, and its data.
#pragma once

#include "tests/common/call.h"
#include "tests/common/fourier.h"
#include "vor_fft.h"

namespace vor::test {

// Words of a wsave, of complex and of real data.
template <class R>
size_t complex_wsave(size_t n) {
    return 3 * n + (sizeof(R) == 4 ? 64 : 32);
}
template <class R>
size_t real_wsave(size_t n) {
    return 2 * n + (sizeof(R) == 4 ? 64 : 32);
}

// A complex vector of n points, interleaved or split, at an address `offset` words above a multiple of 64.
template <class R>
struct Points {
    Points(size_t count, bool is_split, size_t offset = 0)
        : n(count), split(is_split), first(is_split ? n : 2 * n, offset * sizeof(R)),
          second(is_split ? n : 0, offset * sizeof(R)) {}
    void put(const Spectrum& x) {
        for (size_t i = 0; i < n; ++i) {
            (split ? first[i] : first[2 * i]) = static_cast<R>(x[i].real());
            (split ? second[i] : first[2 * i + 1]) = static_cast<R>(x[i].imag());
        }
    }
    Wide at(size_t i) const {
        return split ? Wide(first[i], second[i]) : Wide(first[2 * i], first[2 * i + 1]);
    }
    Spectrum get() const {
        Spectrum x(n);
        for (size_t i = 0; i < n; ++i) x[i] = at(i);
        return x;
    }
    bool intact() const { return first.intact() && second.intact(); }

    size_t n;
    bool split;
    Guarded<R> first, second;
};

// cfft1d and its like, cfft2d and its like.
template <class R>
void fft1d(Points<R>& x, int n, int isign, R* wsave) {
    auto* pairs = reinterpret_cast<complex_t<R>*>(x.first.data());
    if constexpr (sizeof(R) == 4)
        x.split ? call(cfft1dc, x.first.data(), x.second.data(), n, isign, wsave)
                : call(cfft1d, pairs, n, isign, wsave);
    else
        x.split ? call(zfft1dc, x.first.data(), x.second.data(), n, isign, wsave)
                : call(zfft1d, pairs, n, isign, wsave);
}
template <class R>
void fft2d(Points<R>& x, int m, int n, int isign) {
    auto* pairs = reinterpret_cast<complex_t<R>*>(x.first.data());
    if constexpr (sizeof(R) == 4)
        x.split ? call(cfft2dc, x.first.data(), x.second.data(), m, n, isign)
                : call(cfft2d, pairs, m, n, isign);
    else
        x.split ? call(zfft2dc, x.first.data(), x.second.data(), m, n, isign)
                : call(zfft2d, pairs, m, n, isign);
}

// scfft1d and its like: forward or not, split or not.
inline void real_fft1d(bool forward, bool split, float* r, int n, int isign, float* wsave) {
    if (split)
        call(forward ? scfft1dc : csfft1dc, r, n, isign, wsave);
    else
        call(forward ? scfft1d : csfft1d, r, n, isign, wsave);
}
inline void real_fft1d(bool forward, bool split, double* r, int n, int isign, double* wsave) {
    if (split)
        call(forward ? dzfft1dc : zdfft1dc, r, n, isign, wsave);
    else
        call(forward ? dzfft1d : zdfft1d, r, n, isign, wsave);
}
inline void real_fft2d(bool forward, bool split, float* r, int m, int n) {
    if (split)
        EXPECT_EQ(call(forward ? scfft2dc : csfft2dc, r, m, n), 0);
    else
        call(forward ? scfft2d : csfft2d, r, m, n);
}
inline void real_fft2d(bool forward, bool split, double* r, int m, int n) {
    if (split)
        EXPECT_EQ(call(forward ? dzfft2dc : zdfft2dc, r, m, n), 0);
    else
        call(forward ? dzfft2d : zdfft2d, r, m, n);
}

// The index whose bits below n are those of i in reverse order.
inline size_t reversed(size_t i, size_t n) {
    size_t r = 0;
    for (; n > 1; n /= 2, i /= 2) r = 2 * r + i % 2;
    return r;
}

} // namespace vor::test
