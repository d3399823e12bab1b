// Whole transforms by the direct sum over symmetric pairs, from a table of W^k, W = exp(-2 pi i / n).
//
// Odd n as told in radix.h. Even n, h = n/2, folds in the end points a = x_0 and c = x_h:
//
//     y_0 = a + c + sum of s_m,   y_h = the alternating sum,
//     A_k = (a + c, or a - c for odd k) + sum of s_m re W^(km),   k and m from 1 to h-1
//
// A real result stands in Perm order (even n: y_h at index 1, then the pairs).
//
// Single precision runs on vectors. A pair of complex values (s, d) times (re W, re W, im W, im W) is
// one product; a pair of real ones times (re W, im W) is half of one. Two table entries go in a turn,
// into two sets of accumulators that are added at the end, and an odd entry follows the loop. The
// table index steps by a load from the chain behind the table.
#include "signal/dft/kernels.h"
#include "signal/dft/radix.h"

#include <xmmintrin.h>

namespace vor::dft {
namespace {

// A table with its chain of offsets: at(o) is the entry at offset o, step(o, k) the offset of the
// entry k further on, modulo n. Offsets count floats.
class ChainedTable {
public:
    ChainedTable(const cfloat* table, int n)
        : table_(&table->re), chain_(reinterpret_cast<const int*>(table + n)) {}
    const __m64* at(int offset) const { return reinterpret_cast<const __m64*>(table_ + offset); }
    int step(int offset, int k) const { return chain_[offset / 2U + static_cast<unsigned>(k)]; }

private:
    const float* table_;
    const int* chain_;
};

// (re W, re W, im W, im W) times the pair (s, d).
VOR_INLINE inline __m128 product(const Pair<cfloat>& pair, const __m64* w) {
    const __m128 entry = _mm_loadl_pi(_mm_setzero_ps(), w);
    return _mm_mul_ps(_mm_unpacklo_ps(entry, entry), _mm_loadu_ps(&pair.s.re));
}

inline Sums<cfloat> pair_sums(cfloat start, const Pair<cfloat>* pairs, int count,
                              const cfloat* table, int n, int k) {
    const ChainedTable w(table, n);
    __m128 even = _mm_setr_ps(start.re, start.im, 0, 0);
    __m128 odd = _mm_setzero_ps();
    int offset = 2 * k, m = 0;
    for (; m + 1 < count; m += 2) {
        const int next = w.step(offset, k);
        even = _mm_add_ps(even, product(pairs[m], w.at(offset)));
        odd = _mm_add_ps(odd, product(pairs[m + 1], w.at(next)));
        offset = w.step(next, k);
    }
    if (m < count) even = _mm_add_ps(even, product(pairs[m], w.at(offset)));
    Sums<cfloat> sums;
    _mm_storeu_ps(&sums.a.re, _mm_add_ps(even, odd));
    return sums;
}

inline Sums<float> pair_sums(float start, const Pair<float>* pairs, int count, const cfloat* table,
                             int n, int k) {
    const ChainedTable w(table, n);
    __m128 sum = _mm_set_ss(start);
    int offset = 2 * k, m = 0;
    for (; m + 1 < count; m += 2) {
        const int next = w.step(offset, k);
        __m128 entries = _mm_loadl_pi(_mm_setzero_ps(), w.at(offset));
        entries = _mm_loadh_pi(entries, w.at(next));
        sum = _mm_add_ps(sum, _mm_mul_ps(entries, _mm_loadu_ps(&pairs[m].s)));
        offset = w.step(next, k);
    }
    if (m < count) {
        const auto* rest = reinterpret_cast<const __m64*>(pairs + m);
        const __m128 entry = _mm_loadl_pi(_mm_setzero_ps(), w.at(offset));
        const __m128 pair = _mm_loadl_pi(_mm_setzero_ps(), rest);
        sum = _mm_add_ps(sum, _mm_mul_ps(entry, pair));
    }
    Sums<float> sums;
    _mm_storel_pi(reinterpret_cast<__m64*>(&sums),
                  _mm_add_ps(sum, _mm_movehl_ps(_mm_setzero_ps(), sum)));
    return sums;
}

template <class E>
inline Sums<E> pair_sums(E start, const Pair<E>* pairs, int count, const cdouble* table, int n,
                         int k) {
    return symmetric_sum(start, pairs, count, table, n, k);
}

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

template <Direction D, Parted C>
void complex_direct(const C* x, C* y, int n, const C* table, void* scratch) {
    direct_sum(
        x[0], x[n / 2], n, table, scratch,
        [&](int m) VOR_INLINE { return make_pair(x[m], x[n - m]); },
        [&](C y0) VOR_INLINE { y[0] = y0; }, [&](C yh) VOR_INLINE { y[n / 2] = yh; },
        [&](int k, Sums<C> t) VOR_INLINE { place<D>(t, y[k], y[n - k]); });
}

// In Perm order the pair of X[k] begins at index 2k - 1 + shift, and for even n re X[h] stands at the
// index of the shift.
int perm_shift(int n) {
    return n % 2 == 0 ? 1 : 0;
}

template <class T, Parted C>
void real_forward(const T* x, T* y, int n, const C* table, void* scratch) {
    T* const pairs = y + perm_shift(n);
    direct_sum(
        x[0], x[n / 2], n, table, scratch,
        [&](int m) VOR_INLINE { return make_pair(x[m], x[n - m]); },
        [&](T y0) VOR_INLINE { y[0] = y0; }, [&](T yh) VOR_INLINE { y[1] = yh; },
        [&](int k, Sums<T> t) VOR_INLINE { pairs[2 * k - 1] = t.a, pairs[2 * k] = t.b; });
}

template <class T, Parted C>
void real_inverse(const T* x, T* y, int n, const C* table, void* scratch) {
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
} // namespace vor::dft

#define DIRECT(suffix, T, C)                                                                       \
    extern "C" void tavs_cDft_Dir_##suffix##c(const C* source, C* destination, int n,              \
                                              int direction, const C* table, void* scratch) {      \
        using namespace vor::dft;                                                                  \
        const auto run = direction > 0 ? complex_direct<vor::Direction::forward, C>                \
                                       : complex_direct<vor::Direction::backward, C>;              \
        run(source, destination, n, table, scratch);                                               \
    }                                                                                              \
    extern "C" void tavs_rDftFwd_Dir_##suffix(const T* source, T* destination, int n,              \
                                              const C* table, void* scratch) {                     \
        vor::dft::real_forward(source, destination, n, table, scratch);                            \
    }                                                                                              \
    extern "C" void tavs_rDftInv_Dir_##suffix(const T* source, T* destination, int n,              \
                                              const C* table, void* scratch) {                     \
        vor::dft::real_inverse(source, destination, n, table, scratch);                            \
    }
DIRECT(32f, float, vor::cfloat)
DIRECT(64f, double, vor::cdouble)
