// Products and solves with a triangle, in place: x := op(A) x and x := op(A)^-1 x by sweeps over the
// columns. Columns of op(A) = A act on the rest of x, columns of a transpose gather from it. `group`
// columns go together: the corner that they have on the diagonal, and the rows that they share.
#pragma once

#include "blas/level2/triangle.h"

namespace vor::blas {

// The two complex divisions x / d = x conj(d) / (re^2 + im^2), in extended precision.
struct PlainDivision {
    // One real division.
    static cextended over_norm(cextended numerator, cextended d) {
        return numerator * (1 / (d.re * d.re + d.im * d.im));
    }
};
struct ScaledDivision {
    // Both sides scaled by the larger part of d, so that the square stays in range.
    static cextended over_norm(cextended numerator, cextended d) {
        const long double re = d.re < 0 ? -d.re : d.re, im = d.im < 0 ? -d.im : d.im;
        const long double s = 1 / (re > im ? re : im);
        const long double norm = d.re * d.re * s + d.im * d.im * s;
        return {numerator.re * s / norm, numerator.im * s / norm};
    }
};

// x / a or x / conj(a); real numbers by a true division.
template <class Division, bool conjugate, class T>
work_t<T> divide(work_t<T> x, T a) {
    if constexpr (is_complex<T>) {
        using Wide = wide_t<T>;
        using R = work_real_t<T>;
        const Wide d = number<Wide>(a);
        const Wide quotient = Division::over_norm(product<!conjugate>(d, Wide{x.re, x.im}), d);
        return {static_cast<R>(quotient.re), static_cast<R>(quotient.im)};
    } else {
        return x / number<work_t<T>>(a);
    }
}

// A triangle under op.
template <bool transpose, bool conjugate, class Triangle>
struct TriangularOperator {
    static constexpr bool kTransposed = transpose, kConjugated = conjugate, kBand = Triangle::kBand;
    Triangle a;
    bool unit; // ones on the diagonal, which is not read then
};

// What the columns of a transpose gather.
template <Order order, class A, class Block, class X, class S>
[[gnu::always_inline]] inline void gather(int rows, const Block& block, X x, S& s) {
    if constexpr (A::kBand)
        dot_band_columns<A::kConjugated, order>(rows, block, x, s);
    else
        dot_columns<A::kConjugated, order>(rows, block, x, s);
}

// f(q) over the columns of a group in the order of the sweep.
template <int columns, Order order, class F>
[[gnu::always_inline]] inline void each_column(F f) {
#pragma GCC unroll 4
    for (int step = 0; step < columns; ++step) f(row_of<order>(step, columns));
}
// f(p) over the rows of the corner of a group that its column q stores.
template <int columns, bool upper, class F>
[[gnu::always_inline]] inline void each_corner_row(int q, F f) {
#pragma GCC unroll 4
    for (int p = 0; p < columns; ++p)
        if (p != q && (p < q) == upper) f(p);
}

// One step of a sweep, over `columns` columns from j on, which come in the order of the sweep.
template <Order order, int columns, class A, class X>
void multiply_step(const A& op, int j, X x) {
    constexpr bool upper = (order == Order::down) != A::kTransposed;
    using T = typename X::Element;
    using V = work_t<T>;
    const Rows rows = shared_rows<columns>(op.a, j);
    const auto block = columns_from<columns>(op.a, rows.first, j);
    Numbers<columns, V> s;
    if constexpr (A::kTransposed) {
        gather<Order::down, A>(rows.count, block, read_only(x.from(rows.first)), s);
    } else {
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) s.of[q] = number<V>(x[j + q]);
        add_columns(rows.count, block, s, x.from(rows.first));
    }
    each_column<columns, order>([&](int q) __attribute__((always_inline)) {
        const V old = number<V>(x[j + q]);
        V sum = op.unit ? old : product<A::kConjugated>(number<V>(*op.a.diagonal(j + q)), old);
        if (A::kTransposed) sum = sum + s.of[q];
        each_corner_row<columns, upper>(
            q, [&](int p) __attribute__((always_inline)) {
                const V element_pq = number<V>(*at(op.a, j + p, j + q));
                if constexpr (A::kTransposed)
                    sum = sum + product<A::kConjugated>(element_pq, number<V>(x[j + p]));
                else
                    x[j + p] = element<T>(number<V>(x[j + p]) + element_pq * old);
            });
        x[j + q] = element<T>(sum);
    });
}

// The rows come in the order of the sweep too: what the next step waits for is acted on first, and what
// this step has waited for is gathered last.
template <class Division, Order order, int columns, class A, class X>
void solve_step(const A& op, int j, X x) {
    constexpr bool upper = (order == Order::down) == A::kTransposed;
    using T = typename X::Element;
    using V = work_t<T>;
    const Rows rows = shared_rows<columns>(op.a, j);
    const auto block = columns_from<columns>(op.a, rows.first, j);
    Numbers<columns, V> s;
    if constexpr (A::kTransposed)
        gather<order, A>(rows.count, block, read_only(x.from(rows.first)), s);
    each_column<columns, order>([&](int q) __attribute__((always_inline)) {
        V rest = number<V>(x[j + q]);
        if constexpr (A::kTransposed) {
            rest = rest - s.of[q];
            each_corner_row<columns, upper>(
                q, [&](int p) __attribute__((always_inline)) {
                    rest = rest - product<A::kConjugated>(number<V>(*at(op.a, j + p, j + q)),
                                                          number<V>(x[j + p]));
                });
        }
        if (!op.unit) rest = divide<Division, A::kConjugated>(rest, *op.a.diagonal(j + q));
        x[j + q] = element<T>(rest);
        if constexpr (!A::kTransposed) {
            s.of[q] = V{} - rest; // acts on the others as it is, before the rounding
            each_corner_row<columns, upper>(
                q, [&](int p) __attribute__((always_inline)) {
                    x[j + p] = element<T>(number<V>(x[j + p]) +
                                          number<V>(*at(op.a, j + p, j + q)) * s.of[q]);
                });
        }
    });
    if constexpr (!A::kTransposed) add_columns<order>(rows.count, block, s, x.from(rows.first));
}

// step(columns, j) over all n columns in groups, and singly where no group is left.
template <int group, class Step>
void sweep(int n, bool ascending, Step step) {
    for (int done = 0; done < n;) {
        const bool whole = n - done >= group;
        const int columns = whole ? group : 1;
        const int j = ascending ? done : n - done - columns;
        if (whole)
            step(std::integral_constant<int, group>{}, j);
        else
            step(std::integral_constant<int, 1>{}, j);
        done += columns;
    }
}

// x := op(A) x. The elements that later steps gather from, or act on, are still the old ones.
template <int group, class A, class X>
void triangular_product(const A& op, X x) {
    if (op.a.upper != A::kTransposed)
        sweep<group>(op.a.n, true, [&](auto columns, int j) {
            multiply_step<Order::down, decltype(columns)::value>(op, j, x);
        });
    else
        sweep<group>(op.a.n, false, [&](auto columns, int j) {
            multiply_step<Order::up, decltype(columns)::value>(op, j, x);
        });
}

// x := op(A)^-1 x
template <class Division, int group, class A, class X>
void triangular_solve(const A& op, X x) {
    if (op.a.upper == A::kTransposed)
        sweep<group>(op.a.n, true, [&](auto columns, int j) {
            solve_step<Division, Order::down, decltype(columns)::value>(op, j, x);
        });
    else
        sweep<group>(op.a.n, false, [&](auto columns, int j) {
            solve_step<Division, Order::up, decltype(columns)::value>(op, j, x);
        });
}

// f(op) for the letters of a call.
template <class Triangle, class F>
void on_triangle(const Triangle& a, const char* trans, const char* diag, F f) {
    using T = std::remove_cvref_t<decltype(*a.a)>;
    const bool unit = is_letter(diag, 'U');
    if (is_letter(trans, 'N')) return f(TriangularOperator<false, false, Triangle>{a, unit});
    if constexpr (is_complex<T>)
        if (!is_letter(trans, 'T')) return f(TriangularOperator<true, true, Triangle>{a, unit});
    f(TriangularOperator<true, false, Triangle>{a, unit});
}

// Columns that go together in packed triangles when x lies in neighbouring elements: four for d.
template <class T, class Step>
inline constexpr int kPackedGroup = std::is_same_v<T, double>&& std::is_same_v<Step, Unit> ? 4 : 1;

} // namespace vor::blas
