// Tables of the DFT objects. Sine and cosine are called for the base table alone; all others are cut
// from it.
#include "signal/dft/kernels.h"

#include <math.h>

namespace vor::dft {
namespace {

constexpr double kTurn = 6.283185307179586; // 2 pi

template <class T>
complex_t<T> root(int k, double step) {
    const double angle = k * step;
    return {static_cast<T>(cos(angle)), static_cast<T>(-sin(angle))};
}

// W^k = exp(-2 pi i k / n), k = 0 to n-1: an octant, a quadrant or a half of the circle by the
// functions, the rest by reflections, which copy the rounded values.
template <class T, class C = complex_t<T>>
C* base_table(int n) {
    C* const w = allocate<C>(static_cast<size_t>(n));
    if (!w) return nullptr;
    const double step = kTurn / n;
    const int half = n / 2, quarter = n / 4;
    const int computed = n % 4 == 0 ? n / 8 : n % 2 == 0 ? quarter : half;
    for (int k = 0; k <= computed; ++k) w[k] = root<T>(k, step);
    if (n % 4 == 0)
        for (int k = computed + 1; k <= quarter; ++k)
            w[k] = {-w[quarter - k].im, -w[quarter - k].re};
    if (n % 2 == 0)
        for (int k = quarter + 1; k <= half; ++k) w[k] = {-w[half - k].re, w[half - k].im};
    for (int k = half + 1; k < n; ++k) w[k] = conj(w[n - k]);
    return w;
}

// W^(k step), k = 0 to n-1. In single precision the chain of table offsets follows, 2 (j mod n) for
// j = 0 to 2n-1: the vector kernel steps the index modulo n by a load.
template <class C>
C* direct_table(const C* base, int n, int step) {
    constexpr bool kChained = sizeof(real_t<C>) == 4;
    const auto count = static_cast<size_t>(n);
    static_assert(!kChained || sizeof(C) == 2 * sizeof(int));
    C* const table = allocate<C>(kChained ? 2 * count : count);
    if (!table) return nullptr;
    for (int k = 0; k < n; ++k) table[k] = base[k * step];
    if constexpr (kChained) {
        int* const chain = reinterpret_cast<int*>(table + n);
        for (int j = 0; j < n; ++j) chain[j] = chain[j + n] = 2 * j;
    }
    return table;
}

template <bool kForward, class C>
C* recombination_table(const C* base, int n) {
    constexpr real_t<C> kHalf = 0.5;
    const int count = n / 4 + (n % 4 != 0);
    C* const table = allocate<C>(static_cast<size_t>(count));
    if (!table) return nullptr;
    for (int k = 0; k < count; ++k) {
        if constexpr (kForward)
            table[k] = {kHalf * base[k].re, kHalf * base[k].im + kHalf};
        else
            table[k] = base[k];
    }
    return table;
}

} // namespace
} // namespace vor::dft

#define TABLES(suffix, T, C)                                                                       \
    extern "C" C* tavs_createTabDftBase_##suffix(int n) {                                          \
        return vor::dft::base_table<T>(n);                                                         \
    }                                                                                              \
    extern "C" C* tavs_createTabDftDir_##suffix(const C* base, int n, int step) {                  \
        return vor::dft::direct_table(base, n, step);                                              \
    }                                                                                              \
    extern "C" C* tavs_createTabDftFwdRec_##suffix(const C* base, int n) {                         \
        return vor::dft::recombination_table<true>(base, n);                                       \
    }                                                                                              \
    extern "C" C* tavs_createTabDftInvRec_##suffix(const C* base, int n) {                         \
        return vor::dft::recombination_table<false>(base, n);                                      \
    }
TABLES(32f, float, vor::cfloat)
TABLES(64f, double, vor::cdouble)
