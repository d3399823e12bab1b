// Real stages of odd radix f and odd length r, on half-complex data.
//
// Forward: f half-complex sub-blocks of length r become one of length f r. With W = exp(-2 pi i/(f r))
// and z the transform of length f of a_m = X_m[j] W^(j m),
//
//     X[j + k r] = z_k,   X[k r - j] = conj(z_(f-k)),   k = 1 to (f-1)/2,   X[j] = z_0
//
// for j = 1 to (r-1)/2; column 0 is a real transform of the f real sums. The inverse mirrors this:
// it gathers z, transforms it with the opposite sign and multiplies by conj(W^(j m)), so that
// sub-block m holds the spectrum of every f-th value from value m on. Source and destination do not
// overlap.
#include "signal/dft/kernels.h"
#include "signal/dft/radix.h"

namespace vor::dft {
namespace {

// Entry q from 1 on is the pair (re X[q], im X[q]) of the half-complex data at x.
template <class T>
const complex_t<T>* pairs_of(const T* x) {
    return reinterpret_cast<const complex_t<T>*>(x - 1);
}
template <class T>
complex_t<T>* pairs_of(T* x) {
    return reinterpret_cast<complex_t<T>*>(x - 1);
}

template <class Radix, class T, class C = complex_t<T>>
VOR_INLINE inline void combine(Radix radix, const T* x, T* y, int r, const C* twiddle) {
    const int f = radix.size();
    C* const out = pairs_of(y);
    radix.run(
        x[0], [&](int m) VOR_INLINE { return make_pair(x[m * r], x[(f - m) * r]); },
        [&](T y0) VOR_INLINE { y[0] = y0; },
        [&](int k, Sums<T> t) VOR_INLINE {
            out[k * r] = {t.a, t.b};
        });

    const C* w = twiddle;
    for (int j = 1; j <= (r - 1) / 2; ++j) {
        w += radix.step();
        const auto operand = [&](int m)
                                 VOR_INLINE { return pairs_of(x + m * r)[j] * radix.at(w, m); };
        radix.run(
            pairs_of(x)[j], [&](int m) VOR_INLINE { return make_pair(operand(m), operand(f - m)); },
            [&](C y0) VOR_INLINE { out[j] = y0; },
            [&](int k, Sums<C> t) VOR_INLINE {
                C mirror;
                place<Direction::forward>(t, out[k * r + j], mirror);
                out[k * r - j] = conj(mirror);
            });
    }
}

template <class Radix, class T, class C = complex_t<T>>
VOR_INLINE inline void split(Radix radix, const T* x, T* y, int r, const C* twiddle) {
    const int f = radix.size();
    const C* const in = pairs_of(x);
    radix.run(
        x[0],
        [&](int k) VOR_INLINE {
            return Pair<T>{2 * in[k * r].re, 2 * in[k * r].im};
        },
        [&](T y0) VOR_INLINE { y[0] = y0; },
        [&](int m, Sums<T> t) VOR_INLINE {
            y[m * r] = t.a + t.b;
            y[(f - m) * r] = t.a - t.b;
        });

    const C* w = twiddle;
    for (int j = 1; j <= (r - 1) / 2; ++j) {
        w += radix.step();
        radix.run(
            in[j], [&](int k) VOR_INLINE { return make_pair(in[k * r + j], conj(in[k * r - j])); },
            [&](C y0) VOR_INLINE { pairs_of(y)[j] = y0; },
            [&](int m, Sums<C> t) VOR_INLINE {
                constexpr auto D = Direction::inverse;
                C z, mirror;
                place<D>(t, z, mirror);
                pairs_of(y + m * r)[j] = twiddled<D>(z, radix.at(w, m));
                pairs_of(y + (f - m) * r)[j] = twiddled<D>(mirror, radix.at(w, f - m));
            });
    }
}

template <Direction D, class Radix, class T>
VOR_INLINE inline void real_stage(Radix radix, const T* x, T* y, int r, int blocks,
                                  const complex_t<T>* twiddle) {
    const int length = radix.size() * r;
    for (int b = 0; b < blocks; ++b, x += length, y += length) {
        if constexpr (D == Direction::forward)
            combine(radix, x, y, r, twiddle);
        else
            split(radix, x, y, r, twiddle);
    }
}

} // namespace
} // namespace vor::dft

#define STAGE(F, Dir, D, suffix, T, C)                                                             \
    extern "C" void tavs_rDft##Dir##_Fact##F##_##suffix(const T* source, T* destination, int r,    \
                                                        int blocks, const C* twiddle) {            \
        vor::dft::real_stage<vor::dft::Direction::D>(vor::dft::FixedRadix<F>{}, source,            \
                                                     destination, r, blocks, twiddle);             \
    }
#define STAGES(Dir, D, suffix, T, C)                                                               \
    STAGE(3, Dir, D, suffix, T, C)                                                                 \
    STAGE(5, Dir, D, suffix, T, C)                                                                 \
    extern "C" void tavs_rDft##Dir##_Fact_##suffix(const T* source, T* destination, int f, int r,  \
                                                   const C* table, const C* twiddle,               \
                                                   void* scratch) {                                \
        const vor::dft::TableRadix<T> radix{f, table, scratch};                                    \
        vor::dft::real_stage<vor::dft::Direction::D>(radix, source, destination, r, 1, twiddle);   \
    }
STAGES(Fwd, forward, 32f, float, vor::cfloat)
STAGES(Inv, inverse, 32f, float, vor::cfloat)
STAGES(Fwd, forward, 64f, double, vor::cdouble)
STAGES(Inv, inverse, 64f, double, vor::cdouble)
