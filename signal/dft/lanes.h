// Four columns of a single-precision stage or leaf at a time, one to a lane. Each lane has the
// operations of a lone column in their order, hence its bits.
#pragma once

#include "signal/dft/column.h"
#include "signal/dft/context.h"

namespace vor::dft {

constexpr int kLanes = 4;

// ---- Where the four elements of a group stand. Nothing needs alignment.

struct Neighbours {
    static Four load(const cfloat* p) {
        const __m128 low = _mm_loadu_ps(&p[0].re), high = _mm_loadu_ps(&p[2].re);
        return {_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
                _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1))};
    }
    static void store(cfloat* p, Four a) { fft::Interleaved::store(&p->re, a); }
};

// A single one.
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

// At p, p - 1, p - 2, p - 3.
struct Falling {
    static Four load(const cfloat* p) {
        const __m128 low = _mm_loadu_ps(&p[-3].re), high = _mm_loadu_ps(&p[-1].re);
        return {_mm_shuffle_ps(high, low, _MM_SHUFFLE(0, 2, 0, 2)),
                _mm_shuffle_ps(high, low, _MM_SHUFFLE(1, 3, 1, 3))};
    }
    static void store(cfloat* p, Four a) {
        const __m128 low = _mm_unpacklo_ps(a.re, a.im), high = _mm_unpackhi_ps(a.re, a.im);
        _mm_storeu_ps(&p[-1].re, _mm_shuffle_ps(low, low, _MM_SHUFFLE(1, 0, 3, 2)));
        _mm_storeu_ps(&p[-3].re, _mm_shuffle_ps(high, high, _MM_SHUFFLE(1, 0, 3, 2)));
    }
};

// At p and at distances from p.
struct Apart {
    int second, third, fourth;

    Four load(const cfloat* p) const {
        const auto pair = [](const cfloat* a, const cfloat* b) {
            const __m128 low = _mm_loadl_pi(_mm_setzero_ps(), reinterpret_cast<const __m64*>(a));
            return _mm_loadh_pi(low, reinterpret_cast<const __m64*>(b));
        };
        const __m128 low = pair(p, p + second), high = pair(p + third, p + fourth);
        return {_mm_shuffle_ps(low, high, _MM_SHUFFLE(2, 0, 2, 0)),
                _mm_shuffle_ps(low, high, _MM_SHUFFLE(3, 1, 3, 1))};
    }
    void store(cfloat* p, Four a) const {
        const __m128 low = _mm_unpacklo_ps(a.re, a.im), high = _mm_unpackhi_ps(a.re, a.im);
        _mm_storel_pi(reinterpret_cast<__m64*>(p), low);
        _mm_storeh_pi(reinterpret_cast<__m64*>(p + second), low);
        _mm_storel_pi(reinterpret_cast<__m64*>(p + third), high);
        _mm_storeh_pi(reinterpret_cast<__m64*>(p + fourth), high);
    }
};
inline Apart strided(int stride) {
    return {stride, 2 * stride, 3 * stride};
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

} // namespace vor::dft
