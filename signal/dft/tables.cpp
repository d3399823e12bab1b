// Tables of the DFT objects. Sine and cosine are called for the base table alone; all others are cut
// from it.
#include "arith/number.h"
#include "signal/dft/engines.h"
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

} // namespace

// An octant, a quadrant or a half of the circle by the functions, the rest by reflections, which copy the
// rounded values.
template <class T>
void fill_base(complex_t<T>* w, int n) {
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

template <Direction D, class C>
C* recombination_table(const C* base, int n) {
    constexpr real_t<C> kHalf = 0.5;
    const int count = n / 4 + (n % 4 != 0);
    C* const table = allocate<C>(static_cast<size_t>(count));
    if (!table) return nullptr;
    for (int k = 0; k < count; ++k) {
        if constexpr (D == Direction::forward)
            table[k] = {kHalf * base[k].re, kHalf * base[k].im + kHalf};
        else
            table[k] = base[k];
    }
    return table;
}

} // namespace vor::dft

#define TABLES(base_name, direct_name, forward_name, backward_name, T, C)                          \
    template void vor::dft::fill_base<T>(C*, int);                                                 \
    template C* vor::dft::direct_table(const C*, int, int);                                        \
    template C* vor::dft::recombination_table<vor::Direction::forward>(const C*, int);             \
    template C* vor::dft::recombination_table<vor::Direction::backward>(const C*, int);            \
    extern "C" C* base_name(int n) {                                                               \
        C* const table = vor::dft::allocate<C>(static_cast<size_t>(n));                            \
        if (table) vor::dft::fill_base<T>(table, n);                                               \
        return table;                                                                              \
    }                                                                                              \
    extern "C" C* direct_name(const C* base, int n, int step) {                                    \
        return vor::dft::direct_table(base, n, step);                                              \
    }                                                                                              \
    extern "C" C* forward_name(const C* base, int n) {                                             \
        return vor::dft::recombination_table<vor::Direction::forward>(base, n);                    \
    }                                                                                              \
    extern "C" C* backward_name(const C* base, int n) {                                            \
        return vor::dft::recombination_table<vor::Direction::backward>(base, n);                   \
    }
TABLES(tavs_createTabDftBase_32f, tavs_createTabDftDir_32f, tavs_createTabDftFwdRec_32f,
       tavs_createTabDftInvRec_32f, float, VOR_SCOMPLEX)
TABLES(tavs_createTabDftBase_64f, tavs_createTabDftDir_64f, tavs_createTabDftFwdRec_64f,
       tavs_createTabDftInvRec_64f, double, VOR_DCOMPLEX)
