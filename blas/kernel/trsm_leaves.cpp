// The leaves of trsm on the x87 unit: contract in trsm_leaves.h.
//
// Every sum over finished unknowns is taken in the order of the solve, from 0, in extended precision:
// x(i) = (b(i) - sum) * r(i), rounded once, at the store. r(i) is 1 / a(i, i), rounded to the element
// type (s: to double), found once for the block; c has extended reciprocals of |a(i, i)|^2.
//
// d and z, left: four equations together, then two, then one. Inside such a group the new unknowns
// enter the sums of the next ones as they are, before they are rounded.
#include "blas/kernel/trsm_leaves.h"
#include "blas/kernel/leaf_sums.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

// conj(x) / (re^2 + im^2), or 1 / x.
template <class R, class T>
R reciprocal(const T& x) {
    if constexpr (is_complex<T>) {
        const extended re = x.re, im = x.im, scale = 1 / (re * re + im * im);
        return {static_cast<double>(re * scale), static_cast<double>(-im * scale)};
    } else {
        return static_cast<R>(1 / extended{x});
    }
}

// The last step of an unknown, the division by the diagonal: by reciprocals of type R. Ones where the
// diagonal is not read.
template <class T, class R>
class Reciprocals {
public:
    explicit Reciprocals(const Leaf<T>& leaf) : leaf_(leaf) {
        for (int i = 0; i < leaf.order; ++i)
            r_[i] = leaf.unit ? real_element<R>(1) : reciprocal<R>(leaf.coefficient(i, i));
    }
    // The division in equation i.
    auto in(int i) const {
        return [this, i](const wide_t<T>& x) {
            // x * (1 + 0i) is not x if a part of x is infinite.
            return is_complex<T> && leaf_.unit ? x : x * widen(r_[i]);
        };
    }

private:
    const Leaf<T>& leaf_;
    R r_[kLeafOrder];
};

// The same without an array: x * conj(a) * (1 / |a|^2).
class Divisor {
public:
    explicit Divisor(const Leaf<cfloat>& leaf) : leaf_(leaf) {}
    auto in(int i) const {
        const bool unit = leaf_.unit;
        const cfloat a = unit ? cfloat{1, 0} : leaf_.coefficient(i, i);
        const extended re = a.re, im = a.im, scale = 1 / (re * re + im * im);
        return [=](const cextended& x) {
            if (unit) return x;
            return x * conj(widen(a)) * scale;
        };
    }

private:
    const Leaf<cfloat>& leaf_;
};

// G equations from i on for the right side x. slots: for each tile of equations their coefficients of the
// finished unknowns; corner[g][h]: of unknown i + g in equation i + h.
template <int G, class T, class Diagonal>
[[gnu::noinline]] void solve_group(const Diagonal& diagonal, int i,
                                   const real_t<T> (*slots)[kLeafOrder * Slot<T>::kSize],
                                   const T (*corner)[4], T* x) {
    constexpr int kLive = std::min(G, Slot<T>::kTile);
    wide_t<T> sum[G];
#pragma GCC unroll 2
    for (int g = 0; g < G; g += kLive) dots<kLive>(sum + g, i, slots[g / kLive], x);
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g) {
        const wide_t<T> value = diagonal.in(i + g)(widen(x[i + g]) - sum[g]);
        x[i + g] = element<T>(value);
#pragma GCC unroll 4
        for (int h = g + 1; h < G; ++h) sum[h] += widen(corner[g][h]) * value;
    }
}

// Equations in groups, each for one right side after the other.
template <class Diagonal, class T>
void solve_by_equations(const Leaf<T>& leaf) {
    const Diagonal diagonal(leaf);
    real_t<T> slots[4 / Slot<T>::kTile][kLeafOrder * Slot<T>::kSize];
    T corner[4][4];
    in_turns(leaf, [&](auto x, int count) {
        const auto group = [&]<int G>(std::integral_constant<int, G>, int i) {
            constexpr int kLive = std::min(G, Slot<T>::kTile);
            for (int g = 0; g < G; g += kLive)
                pack_equations<kLive>(leaf, i + g, 0, i, slots[g / kLive]);
            for (int g = 0; g < G; ++g)
                for (int h = g + 1; h < G; ++h) corner[g][h] = leaf.coefficient(i + h, i + g);
            for (int turn = 0; turn < count; ++turn)
                solve_group<G>(diagonal, i, slots, corner, x[turn]);
        };
        int i = 0;
        for (; i + 4 <= leaf.order; i += 4) group(std::integral_constant<int, 4>{}, i);
        if (leaf.order - i >= 2) {
            group(std::integral_constant<int, 2>{}, i);
            i += 2;
        }
        if (i < leaf.order) group(std::integral_constant<int, 1>{}, i);
    });
}

// Equation i for the G right sides in slots.
template <int G, class T, class Division>
[[gnu::noinline]] void solve_sides(const Division& divide, int i, const T* coefficients,
                                   real_t<T>* slots) {
    wide_t<T> sum[G];
    dots<G>(sum, i, slots, coefficients);
    slots += i * Slot<T>::kSize;
#pragma GCC unroll 4
    for (int g = 0; g < G; ++g)
        Slot<T>::put(slots, g, element<T>(divide(widen(Slot<T>::get(slots, g)) - sum[g])));
}

// One equation after the other, each for a few right sides at once.
template <class Diagonal, class T>
void solve_by_sides(const Leaf<T>& leaf) {
    const Diagonal diagonal(leaf);
    T coefficients[kLeafOrder];
    in_turns_of_slots(leaf, [&](auto& x, int count) {
        for (int i = 0; i < leaf.order; ++i) {
            leaf.pack_row(i, 0, i, coefficients);
            const auto divide = diagonal.in(i);
            in_tiles<T>(count, [&](auto sides, int turn) {
                solve_sides<sides>(divide, i, coefficients, x.at(turn));
            });
        }
    });
}

} // namespace

#define LEAF(name, T, solve)                                                                       \
    VOR_ENGINE void name PARAMS_XTRMM(T) {                                                         \
        static_cast<void>(alpha);                                                                  \
        const auto p = TRIANGULAR_PROBLEM(T);                                                      \
        solve(Leaf<T>(p, p.lower_system()));                                                       \
    }
LEAF(vor_blas_dtrsmlln, double, (solve_by_equations<Reciprocals<double, double>>))
LEAF(vor_blas_dtrsmlun, double, (solve_by_equations<Reciprocals<double, double>>))
LEAF(vor_blas_dtrsmlt, double, (solve_by_equations<Reciprocals<double, double>>))
LEAF(vor_blas_dtrsmrn, double, (solve_by_sides<Reciprocals<double, double>>))
LEAF(vor_blas_dtrsmrt, double, (solve_by_sides<Reciprocals<double, double>>))
LEAF(vor_blas_ztrsmlln, cdouble, (solve_by_equations<Reciprocals<cdouble, cdouble>>))
LEAF(vor_blas_ztrsmlun, cdouble, (solve_by_equations<Reciprocals<cdouble, cdouble>>))
LEAF(vor_blas_ztrsmlt, cdouble, (solve_by_equations<Reciprocals<cdouble, cdouble>>))
LEAF(vor_blas_ztrsmrn, cdouble, (solve_by_sides<Reciprocals<cdouble, cdouble>>))
LEAF(vor_blas_ztrsmrt, cdouble, (solve_by_sides<Reciprocals<cdouble, cdouble>>))
LEAF(vor_blas_strsm_blk, float, (solve_by_sides<Reciprocals<float, double>>))
LEAF(vor_blas_ctrsm_i, cfloat, solve_by_sides<Divisor>)

} // namespace vor::blas
