// Four columns of a single-precision stage or leaf at a time, one to a lane. Each lane has the
// operations of a lone column in their order, hence its bits.
#pragma once

#include "signal/dft/column.h"
#include "signal/dft/context.h"
#include "signal/kernel/lanes.h"

namespace vor {
namespace dft {

// One real value of four columns.
struct FourReals {
    __m128 v;

    friend FourReals operator+(FourReals a, FourReals b) { return {a.v + b.v}; }
    friend FourReals operator-(FourReals a, FourReals b) { return {a.v - b.v}; }
    friend FourReals operator*(float factor, FourReals a) { return {factor * a.v}; }
};

} // namespace dft

template <>
struct RealOf<dft::FourReals> {
    using type = float;
};

namespace dft {

constexpr int kLanes = 4;

using signal::Falling;
using signal::Neighbours;

// ---- Where the four elements of a group stand. Nothing needs alignment.

// A single element, for code that serves single columns too.
struct Lone {
    template <class C>
    static C load(const C* p) {
        return *p;
    }
    template <class C>
    static void store(C* p, C a) {
        *p = a;
    }
};

inline Four gathered(const float* a, const float* b, const float* c, const float* d) {
    const auto pair = [](const float* x, const float* y) {
        const __m128 low = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(x));
        return _mm_loadh_pi(low, reinterpret_cast<const __m64*>(y));
    };
    const __m128 low = pair(a, b), high = pair(c, d);
    return {_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
            _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1))};
}
inline void scatter(Four x, float* a, float* b, float* c, float* d) {
    const __m128 low = _mm_unpacklo_ps(x.re, x.im), high = _mm_unpackhi_ps(x.re, x.im);
    _mm_storel_pi(reinterpret_cast<__m64*>(a), low);
    _mm_storeh_pi(reinterpret_cast<__m64*>(b), low);
    _mm_storel_pi(reinterpret_cast<__m64*>(c), high);
    _mm_storeh_pi(reinterpret_cast<__m64*>(d), high);
}

// At p and at distances from p.
struct Apart {
    int second, third, fourth;

    FourReals load(const float* p) const {
        return {_mm_setr_ps(p[0], p[second], p[third], p[fourth])};
    }
    void store(float* p, FourReals a) const {
        p[0] = a.v[0];
        p[second] = a.v[1];
        p[third] = a.v[2];
        p[fourth] = a.v[3];
    }

    Four load(const cfloat* p) const {
        return gathered(&p->re, &p[second].re, &p[third].re, &p[fourth].re);
    }
    void store(cfloat* p, Four a) const {
        scatter(a, &p->re, &p[second].re, &p[third].re, &p[fourth].re);
    }
};
inline Apart strided(int stride) {
    return {stride, 2 * stride, 3 * stride};
}

// In four blocks of an odd number of reals.
struct RealBlocks {
    int length;

    Four load(const cfloat* p) const {
        const float* const x = &p->re;
        return gathered(x, x + length, x + 2 * length, x + 3 * length);
    }
    void store(cfloat* p, Four a) const {
        float* const x = &p->re;
        scatter(a, x, x + length, x + 2 * length, x + 3 * length);
    }
};

// Lane k stands at of(k); from `last` on, it repeats lane `last`.
template <class Of>
VOR_INLINE inline Apart distances(Of of, int last) {
    const auto distance = [&](int k) VOR_INLINE { return of(k < last ? k : last) - of(0); };
    return {distance(1), distance(2), distance(3)};
}

// One element in all lanes.
struct Same {
    static Four load(const cfloat* p) { return {_mm_set1_ps(p->re), _mm_set1_ps(p->im)}; }
};

// ---- The radix and the twiddles of a group.

// Loads a twiddle when it is due. kFirst: the twiddle that stands at w, 0 or 1.
template <int kFirst, class Lanes>
class Fetched {
public:
    VOR_INLINE Fetched(Lanes lanes, const cfloat* w) : lanes_(lanes), w_(w) {}
    VOR_INLINE Four operator()(int m) const { return lanes_.load(w_ + m - kFirst); }

private:
    Lanes lanes_;
    const cfloat* w_;
};

// Keeps the twiddles of a fixed radix, which serve many columns.
template <int F, class Lanes>
class Kept {
public:
    VOR_INLINE Kept(Lanes lanes, const cfloat* w) {
        for (int m = 1; m < F; ++m) w_[m - 1] = lanes.load(w + m - 1);
    }
    VOR_INLINE Four operator()(int m) const { return w_[m - 1]; }

private:
    Four w_[F - 1];
};

template <class Radix>
struct Wide {
    Radix radix;

    explicit Wide(Radix narrow) : radix(narrow) {}
    static constexpr bool fits() { return true; }

    // The twiddles of the columns at w and at the lanes, for one use and for many.
    template <class Lanes>
    static Fetched<1, Lanes> fetched(Lanes lanes, const cfloat* w) {
        return {lanes, w};
    }
    template <class Lanes>
    static Kept<Radix::kFixed, Lanes> kept(Lanes lanes, const cfloat* w) {
        return {lanes, w};
    }
};

// The radix of a table has scratch of its own, since the caller's has room for one lane.
template <>
struct Wide<TableRadix<float>> {
    Pair<Four> pairs[(kLargestRadix - 1) / 2];
    TableRadix<float> radix;

    explicit Wide(TableRadix<float> narrow) : radix{narrow.f, narrow.table, pairs} {}
    Wide(const Wide&) = delete;
    bool fits() const { return radix.f <= kLargestRadix; }

    template <class Lanes>
    static Fetched<0, Lanes> fetched(Lanes lanes, const cfloat* w) {
        return {lanes, w};
    }
    template <class Lanes>
    static Fetched<0, Lanes> kept(Lanes lanes, const cfloat* w) {
        return {lanes, w};
    }
};

// Four columns: elements `in` apart from x on, results `out` apart from y on.
template <Direction D, Twiddles kTwiddles, class Radix, class From, class To, class Twiddle>
VOR_INLINE inline void columns(Radix radix, From from, const cfloat* x, int in, To to, cfloat* y,
                               int out, const Twiddle& w) {
    column_between<D, kTwiddles, Four>(
        radix, [&](int m) VOR_INLINE { return from.load(x + m * in); },
        [&](int m, Four a) VOR_INLINE { to.store(y + m * out, a); }, w);
}

// The same without twiddles.
template <Direction D, class Radix, class From, class To>
VOR_INLINE inline void columns(Radix radix, From from, const cfloat* x, int in, To to, cfloat* y,
                               int out) {
    columns<D, Twiddles::none>(radix, from, x, in, to, y, out, nullptr);
}

} // namespace dft
} // namespace vor
