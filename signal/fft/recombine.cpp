// Recombination between the transform z of M complex points, which holds the real sequence as
// (x[2m], x[2m+1]), and the conjugate-even spectrum X of N = 2M points, pairwise from both ends inward:
//   forward  X[k] = (z[k] + conj z[M-k])/2 - i W^k (z[k] - conj z[M-k])/2,  W = exp(-2 pi i / N)
//   inverse  2z[k] = (X[k] + conj X[M-k]) + i conj(W^k) (X[k] - conj X[M-k])
// The factors of 1/2 and of the rotation are in the tables. Element 0 is the caller's.
#include "signal/fft/real_kernels.h"

#include "signal/fft/lanes.h"

namespace {

using namespace vor;
using namespace vor::fft;

// The arithmetic stands once, for reals and for registers of four values.
struct Lane4 {
    __m128 v;

    friend Lane4 operator+(Lane4 a, Lane4 b) { return {_mm_add_ps(a.v, b.v)}; }
    friend Lane4 operator-(Lane4 a, Lane4 b) { return {_mm_sub_ps(a.v, b.v)}; }
    friend Lane4 operator*(Lane4 a, Lane4 b) { return {_mm_mul_ps(a.v, b.v)}; }
};

template <class V>
struct Pair {
    V u, v, x, y; // (u, v) = z[k], (x, y) = z[M-k]
};

template <bool back, class V>
inline Pair<V> joined(Pair<V> z, V re, V im) {
    const V d = z.u - z.x, s = z.v + z.y;
    if constexpr (back) {
        const V p = im * d - re * s, q = re * d + im * s;
        const V sum = z.u + z.x, difference = z.v - z.y;
        return {sum + p, difference + q, sum - p, q - difference};
    } else {
        const V p = im * d + re * s, q = im * s - re * d;
        return {z.x + p, q - z.y, z.u - p, q - z.v};
    }
}

template <bool back, class C>
void one(const C* source, C* destination, int m, int k, const C* table) {
    const C low = source[k], high = source[m - k], w = table[k];
    const auto z = joined<back>(Pair<vor::real_t<C>>{low.re, low.im, high.re, high.im}, w.re, w.im);
    destination[k] = {z.u, z.v};
    destination[m - k] = {z.x, z.y};
}

// Four complex numbers in falling order (the first of them at p + 3).
inline Four load_falling(const float* p) {
    const __m128 a = _mm_loadu_ps(p), b = _mm_loadu_ps(p + 4);
    return {_mm_shuffle_ps(b, a, _MM_SHUFFLE(0, 2, 0, 2)),
            _mm_shuffle_ps(b, a, _MM_SHUFFLE(1, 3, 1, 3))};
}
inline void store_falling(float* p, Four x) {
    const __m128 low = _mm_unpacklo_ps(x.re, x.im), high = _mm_unpackhi_ps(x.re, x.im);
    _mm_storeu_ps(p, _mm_shuffle_ps(high, high, _MM_SHUFFLE(1, 0, 3, 2)));
    _mm_storeu_ps(p + 4, _mm_shuffle_ps(low, low, _MM_SHUFFLE(1, 0, 3, 2)));
}

template <bool back>
inline void step(Four& low, Four& high, Four w) {
    const auto z = joined<back>(Pair<Lane4>{{low.re}, {low.im}, {high.re}, {high.im}}, Lane4{w.re},
                                Lane4{w.im});
    low = {z.u.v, z.v.v};
    high = {z.x.v, z.y.v};
}

// Pairs k to k+3, all below M/2.
template <bool back>
void four(const vor::cfloat* source, vor::cfloat* destination, int m, int k,
          const vor::cfloat* table) {
    Four low = Interleaved::load(&source[k].re), high = load_falling(&source[m - k - 3].re);
    step<back>(low, high, Interleaved::load(&table[k].re));
    Interleaved::store(&destination[k].re, low);
    store_falling(&destination[m - k - 3].re, high);
}

// Pairs 1 to 3, M at least 8: lane 0 has no pair.
template <bool back>
void first_three(const vor::cfloat* source, vor::cfloat* destination, int m,
                 const vor::cfloat* table) {
    const auto moved = [](__m128 x) { return _mm_shuffle_ps(x, x, _MM_SHUFFLE(2, 1, 0, 0)); };
    const auto place = [=](int k) { return reinterpret_cast<__m64*>(destination + k); };
    Four low = Interleaved::load(&source->re), high = load_falling(&source[m - 4].re);
    high = {moved(high.re), moved(high.im)};
    step<back>(low, high, Interleaved::load(&table->re));
    _mm_storeh_pi(place(1), _mm_unpacklo_ps(low.re, low.im));
    _mm_storeu_ps(&destination[2].re, _mm_unpackhi_ps(low.re, low.im));
    _mm_storeh_pi(place(m - 1), _mm_unpacklo_ps(high.re, high.im));
    const __m128 last = _mm_unpackhi_ps(high.re, high.im);
    _mm_storel_pi(place(m - 2), last);
    _mm_storeh_pi(place(m - 3), last);
}

template <bool back, class C>
void recombine(const C* source, C* destination, int m, const C* table) {
    if (m < 2) return;
    const int half = m / 2;
    int k = 1;
    if constexpr (sizeof(C) == 8) {
        if (m >= 8) {
            first_three<back>(source, destination, m, table);
            for (k = 4; k < half; k += 4) four<back>(source, destination, m, k, table);
        }
    }
    for (; k < half; ++k) one<back>(source, destination, m, k, table);
    const C middle = source[half];
    if (back)
        destination[half] = {2 * middle.re, -2 * middle.im};
    else
        destination[half] = {middle.re, -middle.im};
}

} // namespace

#define RECOMBINE(X, C)                                                                            \
    extern "C" void tavs_cRealRecombine_##X(C* data, int m, int, const C* table) {                 \
        recombine<false>(data, data, m, table);                                                    \
    }                                                                                              \
    extern "C" void tavs_cCcsRecombine_##X(const C* source, C* destination, int m, int,            \
                                           const C* table) {                                       \
        recombine<true>(source, destination, m, table);                                            \
    }
RECOMBINE(32f, vor::cfloat)
RECOMBINE(64f, vor::cdouble)
