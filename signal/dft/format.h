// Storage formats of the spectrum X of N reals. Perm, in which the engines work: re X[0], for even N
// re X[N/2], then the pairs re X[k], im X[k]. Pack: re X[N/2] stands at the end instead (odd N: the
// same as Perm). CCS: every element is a pair, N + 2 values, N + 1 for odd N.
#pragma once

#include <string.h>

namespace vor::dft {

enum class Format { perm, pack, ccs };

template <class T>
void move(T* to, const T* from, int count) {
    memmove(to, from, sizeof(T) * static_cast<size_t>(count));
}

template <Format F, class T>
void from_perm(T* x, int n) {
    if constexpr (F == Format::pack) {
        if (n % 2 != 0 || n < 4) return;
        const T nyquist = x[1];
        move(x + 1, x + 2, n - 2);
        x[n - 1] = nyquist;
    }
    if constexpr (F == Format::ccs) {
        if (n % 2 == 0) {
            x[n] = x[1];
            x[n + 1] = 0;
        } else {
            move(x + 2, x + 1, n - 1);
        }
        x[1] = 0;
    }
}

// y := x in Perm order; x and y may be the same array.
template <Format F, class T>
void to_perm(const T* x, T* y, int n) {
    const bool even = n % 2 == 0;
    const T nyquist = F == Format::ccs ? x[even ? n : 0] : x[n - 1];
    y[0] = x[0];
    if (F == Format::ccs)
        move(y + 1 + even, x + 2, n - 1 - even);
    else
        move(y + 1 + even, x + 1, n - 1 - even);
    if (even) y[1] = nyquist;
}

} // namespace vor::dft
