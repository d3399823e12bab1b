// The sums of a direct transform over its pairs.
//
// Single precision runs on vectors. A pair of complex values (s, d) times (re W, re W, im W, im W) is
// one product; a pair of real ones times (re W, im W) is half of one. Two table entries go in a turn,
// into two sets of accumulators that are added at the end, and an odd entry follows the loop. The
// table index steps by a load from the chain behind the table.
#pragma once

#include "arith/lanes.h"
#include "signal/dft/radix.h"

namespace vor::dft {

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

} // namespace vor::dft
