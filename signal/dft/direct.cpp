// Whole transforms by the direct sum over symmetric pairs, from a table of W^k, W = exp(-2 pi i / n).
//
// Odd n as told in radix.h. Even n, h = n/2, folds in the end points a = x_0 and c = x_h:
//
//     y_0 = a + c + sum of s_m,   y_h = the alternating sum,
//     A_k = (a + c, or a - c for odd k) + sum of s_m re W^(km),   k and m from 1 to h-1
//
// A real result stands in Perm order (even n: y_h at index 1, then the pairs).
#include "signal/dft/engines.h"
#include "signal/dft/kernel/pair_sums.h"
#include "signal/dft/kernels.h"

namespace vor::dft {
namespace {

// The transform of the end points a and, for even n, c, and of (n-1)/2 pairs in `scratch`.
// first(y_0), middle(y_h) for even n, each(k, sums).
template <class E, class GetPair, class First, class Middle, class Each>
VOR_INLINE inline void direct_sum(E a, E c, int n, const complex_t<E>* table, void* scratch,
                                  GetPair pair, First first, Middle middle, Each each) {
    auto* const pairs = static_cast<Pair<E>*>(scratch);
    const int count = (n - 1) / 2;
    const bool even = n % 2 == 0;
    E sum = even ? a + c : a, alternating = a;
    for (int m = 1; m <= count; ++m) {
        pairs[m - 1] = pair(m);
        sum = sum + pairs[m - 1].s;
        alternating = pairs[m - 1].s - alternating;
    }
    first(sum);
    if (even) middle(count % 2 == 0 ? alternating - c : c - alternating);
    const E starts[] = {even ? a + c : a, even ? a - c : a};
    for (int k = 1; k <= count; ++k) each(k, pair_sums(starts[k % 2], pairs, count, table, n, k));
}

// In Perm order the pair of X[k] begins at index 2k - 1 + shift, and for even n re X[h] stands at the
// index of the shift.
int perm_shift(int n) {
    return n % 2 == 0 ? 1 : 0;
}

template <class T>
void spectrum_of(const T* x, T* y, int n, const complex_t<T>* table, void* scratch) {
    T* const pairs = y + perm_shift(n);
    direct_sum(
        x[0], x[n / 2], n, table, scratch,
        [&](int m) VOR_INLINE { return make_pair(x[m], x[n - m]); },
        [&](T y0) VOR_INLINE { y[0] = y0; }, [&](T yh) VOR_INLINE { y[1] = yh; },
        [&](int k, Sums<T> t) VOR_INLINE { pairs[2 * k - 1] = t.a, pairs[2 * k] = t.b; });
}

template <class T>
void reals_of(const T* x, T* y, int n, const complex_t<T>* table, void* scratch) {
    const T* const pairs = x + perm_shift(n);
    direct_sum(
        x[0], x[perm_shift(n)], n, table, scratch,
        [&](int k) VOR_INLINE {
            return Pair<T>{2 * pairs[2 * k - 1], 2 * pairs[2 * k]};
        },
        [&](T y0) VOR_INLINE { y[0] = y0; }, [&](T yh) VOR_INLINE { y[n / 2] = yh; },
        [&](int m, Sums<T> t) VOR_INLINE { y[m] = t.a + t.b, y[n - m] = t.a - t.b; });
}

} // namespace

template <Direction D, class C>
void complex_direct(const C* x, C* y, int n, const C* table, void* scratch) {
    direct_sum(
        x[0], x[n / 2], n, table, scratch,
        [&](int m) VOR_INLINE { return make_pair(x[m], x[n - m]); },
        [&](C y0) VOR_INLINE { y[0] = y0; }, [&](C yh) VOR_INLINE { y[n / 2] = yh; },
        [&](int k, Sums<C> t) VOR_INLINE { place<D>(t, y[k], y[n - k]); });
}

template <Direction D, class T>
void real_direct(const T* x, T* y, int n, const complex_t<T>* table, void* scratch) {
    if constexpr (D == Direction::forward)
        spectrum_of(x, y, n, table, scratch);
    else
        reals_of(x, y, n, table, scratch);
}

} // namespace vor::dft

#define COMPLEX_DIRECT(name, C)                                                                    \
    template void vor::dft::complex_direct<vor::Direction::forward>(const C*, C*, int, const C*,   \
                                                                    void*);                        \
    template void vor::dft::complex_direct<vor::Direction::backward>(const C*, C*, int, const C*,  \
                                                                     void*);                       \
    extern "C" void name(const C* source, C* destination, int n, int direction, const C* table,    \
                         void* scratch) {                                                          \
        using namespace vor::dft;                                                                  \
        const auto run = direction > 0 ? complex_direct<vor::Direction::forward, C>                \
                                       : complex_direct<vor::Direction::backward, C>;              \
        run(source, destination, n, table, scratch);                                               \
    }
COMPLEX_DIRECT(tavs_cDft_Dir_32fc, VOR_SCOMPLEX)
COMPLEX_DIRECT(tavs_cDft_Dir_64fc, VOR_DCOMPLEX)

#define REAL_DIRECT(name, D, T, C)                                                                 \
    template void vor::dft::real_direct<vor::Direction::D>(const T*, T*, int, const C*, void*);    \
    extern "C" void name(const T* source, T* destination, int n, const C* table, void* scratch) {  \
        vor::dft::real_direct<vor::Direction::D>(source, destination, n, table, scratch);          \
    }
REAL_DIRECT(tavs_rDftFwd_Dir_32f, forward, float, VOR_SCOMPLEX)
REAL_DIRECT(tavs_rDftInv_Dir_32f, backward, float, VOR_SCOMPLEX)
REAL_DIRECT(tavs_rDftFwd_Dir_64f, forward, double, VOR_DCOMPLEX)
REAL_DIRECT(tavs_rDftInv_Dir_64f, backward, double, VOR_DCOMPLEX)
