// Bit reversal of N = 2^n points by the swap-form table.
//
// An index is a top bit, middle bits and a bottom bit. Reversal exchanges top and bottom and reverses
// the middle, so one entry of the table (the middle bits i and their reverse j) serves four exchanges:
// with h = N/2,
//   2i <-> 2j    h+2i+1 <-> h+2j+1    2i+1 <-> h+2j    2j+1 <-> h+2i
// and one if i is its own reverse: 2i+1 <-> h+2i.
#include "signal/fft/kernels.h"

#include <xmmintrin.h>

namespace {

// One element is moved as bits, by one SSE register or half of one.
void move(const vor::cdouble& from, vor::cdouble& to) {
    _mm_storeu_ps(reinterpret_cast<float*>(&to),
                  _mm_loadu_ps(reinterpret_cast<const float*>(&from)));
}
void move(const vor::cfloat& from, vor::cfloat& to) {
    _mm_storel_pi(reinterpret_cast<__m64*>(&to),
                  _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(&from)));
}
void exchange(vor::cdouble& a, vor::cdouble& b) {
    float *p = reinterpret_cast<float*>(&a), *q = reinterpret_cast<float*>(&b);
    const __m128 x = _mm_loadu_ps(p), y = _mm_loadu_ps(q);
    _mm_storeu_ps(p, y);
    _mm_storeu_ps(q, x);
}
void exchange(vor::cfloat& a, vor::cfloat& b) {
    __m64 *p = reinterpret_cast<__m64*>(&a), *q = reinterpret_cast<__m64*>(&b);
    const __m128 x = _mm_loadl_pi(_mm_setzero_ps(), p), y = _mm_loadl_pi(_mm_setzero_ps(), q);
    _mm_storel_pi(p, y);
    _mm_storel_pi(q, x);
}

// Calls pair(2i, 2j) and self(2i) for the entries of the table.
template <class Pair, class Self>
void walk(const unsigned* table, Pair pair, Self self) {
    for (; *table; table += 2) pair(table[0] / 2, table[1] / 2);
    unsigned entry = *table++; // the zero that ends the pairs is the first that is its own reverse
    do {
        self(entry / 2);
        entry = *table++;
    } while (entry);
}

template <class C>
void reverse_in_place(C* data, int n, const unsigned* table) {
    if (n < 4) return;
    C* high = data + n / 2;
    walk(
        table,
        [=](unsigned i, unsigned j) {
            exchange(data[i], data[j]);
            exchange(high[i + 1], high[j + 1]);
            exchange(data[i + 1], high[j]);
            exchange(data[j + 1], high[i]);
        },
        [=](unsigned i) { exchange(data[i + 1], high[i]); });
}

template <class C>
void reverse(const C* source, C* destination, int n, const unsigned* table) {
    if (n < 8) {
        for (int k = 0; k < n; ++k) {
            const int reversed = n == 4 && (k == 1 || k == 2) ? 3 - k : k;
            move(source[k], destination[reversed]);
        }
        return;
    }
    const C* high = source + n / 2;
    C* high_out = destination + n / 2;
    const auto half = [=](unsigned i, unsigned j) {
        move(source[i], destination[j]);
        move(source[i + 1], high_out[j]);
        move(high[i], destination[j + 1]);
        move(high[i + 1], high_out[j + 1]);
    };
    walk(
        table,
        [=](unsigned i, unsigned j) {
            half(i, j);
            half(j, i);
        },
        [=](unsigned i) { half(i, i); });
}

} // namespace

#define BIT_REVERSAL(Z, C)                                                                         \
    extern "C" void tavs_BitRev1_##Z(C* data, int n, const unsigned* table) {                      \
        reverse_in_place(data, n, table);                                                          \
    }                                                                                              \
    extern "C" void tavs_BitRev2_##Z(const C* source, C* destination, int n,                       \
                                     const unsigned* table) {                                      \
        reverse(source, destination, n, table);                                                    \
    }
BIT_REVERSAL(C, vor::cfloat)
BIT_REVERSAL(Z, vor::cdouble)
