// The leaves of trsm on the x87 unit: contract in trsm_leaves.h.
//
// Every sum over finished unknowns is taken in the order of the solve, from 0, in extended precision:
// x(i) = (b(i) - sum) * r(i), rounded once, at the store. r(i) is 1 / a(i, i), rounded to the element
// type (s: to double), found once for the block; c has extended reciprocals of |a(i, i)|^2.
//
// d and z, left: four equations together, then two, then one. Inside such a group the new unknowns
// enter the sums of the next ones as they are, before they are rounded.
#include "blas/level3/trsm_leaves.h"
#include "blas/level3/triangle_leaf.h"
#include "serv/entry.h"

namespace {

using vor::cdouble;
using vor::cfloat;
using vor::extended;
using vor::kLiveSums;
using vor::Leaf;
using vor::minus;
using vor::plus;
using vor::times;
using vor::Wide;

// conj(x) / (re^2 + im^2), or 1 / x.
template <bool Conj, class T, class R>
R reciprocal(const T& x) {
    if constexpr (vor::is_complex<T>) {
        const extended re = x.re, im = Conj ? -static_cast<extended>(x.im) : x.im;
        const extended scale = 1 / (re * re + im * im);
        return {static_cast<double>(re * scale), static_cast<double>(-im * scale)};
    } else {
        return static_cast<R>(1 / static_cast<extended>(x));
    }
}

// The last step of an unknown, the division by the diagonal: by reciprocals of type R.
template <class T, class R, bool Conj>
class Reciprocals {
public:
    explicit Reciprocals(const Leaf<T>& leaf) : unit_(leaf.unit) {
        if (unit_) return;
        for (int i = 0; i < leaf.order; ++i)
            r_[i] = reciprocal<Conj, T, R>(*leaf.coefficient(i, i));
    }
    Wide<T> finish(int i, const Wide<T>& x) const {
        return unit_ ? x : times(x, vor::widen(r_[i]));
    }

private:
    bool unit_;
    R r_[vor::kSolveLeaf];
};

// The same without an array: x * conj(a) * (1 / |a|^2).
template <bool Conj>
class Divisor {
public:
    explicit Divisor(const Leaf<cfloat>& leaf) : leaf_(leaf) {}
    Wide<cfloat> finish(int i, const Wide<cfloat>& x) const {
        if (leaf_.unit) return x;
        const Wide<cfloat> a = vor::wide_coefficient<!Conj>(*leaf_.coefficient(i, i));
        const extended scale = 1 / (a.re * a.re + a.im * a.im);
        const Wide<cfloat> y = times(x, a);
        return {y.re * scale, y.im * scale};
    }

private:
    const Leaf<cfloat>& leaf_;
};

// G equations from i on, for the right side at b.
template <int G, bool Conj, class T, class Diagonal>
inline void solve_group(const Leaf<T>& leaf, const Diagonal& diagonal, int i, T* b) {
    constexpr int kLive = std::min(G, kLiveSums<T>);
    Wide<T> sum[G] = {};
#pragma GCC unroll 2
    for (int g = 0; g < G; g += kLive)
        vor::add_dots<Conj, false, kLive>(sum + g, i, leaf.coefficient(i + g, 0), leaf.row,
                                          leaf.column, b, leaf.step);
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) {
        T& unknown = b[(i + g) * leaf.step];
        const Wide<T> x = diagonal.finish(i + g, minus(vor::widen(unknown), sum[g]));
        unknown = vor::narrow<T>(x);
#pragma GCC unroll 4
        for (int h = g + 1; h < G; ++h)
            sum[h] = plus(sum[h],
                          times(vor::wide_coefficient<Conj>(*leaf.coefficient(i + h, i + g)), x));
    }
}

// One right side after the other, equations in groups.
template <bool Conj, class T>
void solve_by_equations(const Leaf<T>& leaf) {
    const Reciprocals<T, T, Conj> diagonal(leaf);
    for (int q = 0; q < leaf.others; ++q) {
        T* const b = leaf.side(q);
        int i = 0;
        for (; i + 4 <= leaf.order; i += 4) solve_group<4, Conj>(leaf, diagonal, i, b);
        if (leaf.order - i >= 2) {
            solve_group<2, Conj>(leaf, diagonal, i, b);
            i += 2;
        }
        if (i < leaf.order) solve_group<1, Conj>(leaf, diagonal, i, b);
    }
}

// G right sides from q on, one equation after the other.
template <int G, bool Conj, class T, class Diagonal>
inline void solve_sides(const Leaf<T>& leaf, const Diagonal& diagonal, int q) {
    T* const b = leaf.side(q);
    for (int i = 0; i < leaf.order; ++i) {
        Wide<T> sum[G] = {};
        vor::add_dots<false, Conj, G>(sum, i, b, leaf.next, leaf.step, leaf.coefficient(i, 0),
                                      leaf.column);
#pragma GCC unroll 4
        for (int g = 0; g < G; ++g) {
            T& unknown = b[i * leaf.step + g * leaf.next];
            unknown = vor::narrow<T>(diagonal.finish(i, minus(vor::widen(unknown), sum[g])));
        }
    }
}

template <bool Conj, class Diagonal, class T>
void solve_by_sides(const Leaf<T>& leaf) {
    constexpr int kLive = kLiveSums<T>;
    const Diagonal diagonal(leaf);
    int q = 0;
    for (; q + kLive <= leaf.others; q += kLive) solve_sides<kLive, Conj>(leaf, diagonal, q);
    for (; q < leaf.others; ++q) solve_sides<1, Conj>(leaf, diagonal, q);
}

template <class T>
void solve_left(const Leaf<T>& leaf) {
    if constexpr (vor::is_complex<T>)
        if (leaf.conjugated) return solve_by_equations<true>(leaf);
    solve_by_equations<false>(leaf);
}

template <class T>
void solve_right(const Leaf<T>& leaf) {
    if constexpr (vor::is_complex<T>)
        if (leaf.conjugated) return solve_by_sides<true, Reciprocals<T, T, true>>(leaf);
    solve_by_sides<false, Reciprocals<T, T, false>>(leaf);
}

void solve_single(const Leaf<float>& leaf) {
    solve_by_sides<false, Reciprocals<float, double, false>>(leaf);
}

void solve_single(const Leaf<cfloat>& leaf) {
    if (leaf.conjugated) return solve_by_sides<true, Divisor<true>>(leaf);
    solve_by_sides<false, Divisor<false>>(leaf);
}

} // namespace

#define LEAF(name, T, solve)                                                                       \
    VOR_ENGINE void vor_blas_##name PARAMS_XTRMM(T) {                                              \
        static_cast<void>(alpha);                                                                  \
        const auto p = TRIANGULAR(T);                                                              \
        solve(Leaf<T>(p, p.lower_system()));                                                       \
    }
LEAF(dtrsmlln, double, solve_left)
LEAF(dtrsmlun, double, solve_left)
LEAF(dtrsmlt, double, solve_left)
LEAF(dtrsmrn, double, solve_right)
LEAF(dtrsmrt, double, solve_right)
LEAF(ztrsmlln, cdouble, solve_left)
LEAF(ztrsmlun, cdouble, solve_left)
LEAF(ztrsmlt, cdouble, solve_left)
LEAF(ztrsmrn, cdouble, solve_right)
LEAF(ztrsmrt, cdouble, solve_right)
LEAF(strsm_blk, float, solve_single)
LEAF(ctrsm_i, cfloat, solve_single)
