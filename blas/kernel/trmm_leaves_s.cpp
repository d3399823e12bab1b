// The leaves of strmm and ctrmm in single precision, 4-wide: contract in trmm_leaves.h. Every operation
// rounds.
//
// Left: the triangle is packed in groups of 4 equations, a group's coefficients of one unknown side by
// side, so that vectors of equations run over it; right: rows of B fill the vectors. Sums ascend in
// the unknowns; left and c right multiply the finished sum by alpha. strmm_inn adds columns with
// their factors alpha * a, its own first.
//
// An element outside the triangle takes part nowhere, also not as 0: a NaN or an infinity in B reaches
// just those results that it belongs to.
#include "blas/kernel/complex_rows.h"
#include "blas/kernel/single_rows.h"
#include "blas/kernel/triangle_leaf.h"
#include "blas/kernel/trmm_leaves.h"
#include "serv/entry.h"

#include <algorithm>

namespace vor::blas {
namespace {

template <class T>
constexpr int kGroup = is_complex<T> ? 2 : 4; // equations: one vector
template <class T>
constexpr int kOrder = is_complex<T> ? 16 : 32; // of the largest left block
constexpr int kRightOrder = 16;

// Which equations of a group hold the unknowns of its corner, as masks for a vector of them: upper, the
// equations up to unknown h, lower, those from h on.
template <class T>
struct CornerMasks {
    alignas(16) unsigned words[2][kGroup<T>][4] = {};

    constexpr CornerMasks() {
        constexpr int lanes = 4 / kGroup<T>; // of an equation
        for (int h = 0; h < kGroup<T>; ++h)
            for (int lane = 0; lane < 4; ++lane) {
                words[0][h][lane] = lane / lanes >= h ? ~0u : 0;
                words[1][h][lane] = lane / lanes <= h ? ~0u : 0;
            }
    }
    __m128 at(bool upper, int h) const {
        return load<true>(reinterpret_cast<const float*>(words[upper][h]));
    }
};
template <class T>
constexpr CornerMasks<T> kCornerMasks;

// A left block, in the order of B: groups[(g * order + l) * G + r] is the coefficient of unknown l in
// equation g * G + r. Of a group stand there the unknowns that it has, in its corner zeros for the others.
template <class T>
struct Packed {
    alignas(16) T groups[kOrder<T> * kOrder<T>];
    int order; // rounded up to whole groups
    bool upper;

    explicit Packed(const TriangularProblem<T>& p)
        : order((p.m + G - 1) / G * G), upper(!p.lower_system()) {
        const Leaf<T> leaf(p, true);
        for (int i = 0; i < order; i += G) {
            T* const group = groups + i * order;
            pack_singly(leaf, i, i, i + G, group);
            const int first = first_beside(i), end = end_beside(i);
            if (std::max(i + G, end) > leaf.order)
                pack_singly(leaf, i, first, end, group);
            else
                for (int l = first; l < end; ++l)
                    for (int r = 0; r < G; ++r) group[l * G + r] = leaf.coefficient(i + r, l);
        }
    }
    const float* at(int i, int l) const {
        return reinterpret_cast<const float*>(groups + i * order + l * G);
    }
    // The unknowns of the group from equation i on, beside those of its corner.
    int first_beside(int i) const { return upper ? i + G : 0; }
    int end_beside(int i) const { return upper ? order : i; }

private:
    static constexpr int G = kGroup<T>;

    // Also what lies outside the triangle.
    void pack_singly(const Leaf<T>& leaf, int i, int l, int end, T* group) const {
        for (; l < end; ++l)
            for (int r = 0; r < G; ++r) group[l * G + r] = coefficient(leaf, i + r, l);
    }
    T coefficient(const Leaf<T>& leaf, int i, int l) const {
        const bool inside = upper ? i <= l : i >= l;
        if (!inside || std::max(i, l) >= leaf.order) return T{};
        if (i == l && leaf.unit) return real_element<T>(1);
        return leaf.coefficient(i, l);
    }
};

// Six columns of real numbers: the sums of a group's equations. x[c]: an unknown in all lanes.
struct RealTile {
    static constexpr int columns = 6;
    using Value = __m128;
    __m128 sum[columns] = {};

    static Value spread(float x) { return _mm_set1_ps(x); }

    void add(__m128 coefficients, const Value* x) {
#pragma GCC unroll 6
        for (int c = 0; c < columns; ++c) sum[c] = sum[c] + coefficients * x[c];
    }
    void add_corner(__m128 coefficients, __m128 mask, const Value* x) {
#pragma GCC unroll 6
        for (int c = 0; c < columns; ++c) sum[c] = sum[c] + _mm_and_ps(coefficients * x[c], mask);
    }
    __m128 product(float alpha, int c) const {
        return sum[c] * _mm_set1_ps(alpha);
    }
};

// What the products with the real and with the imaginary parts add up to.
__m128 combined(__m128 by_re, __m128 by_im) {
    return by_re + swap_parts(by_im) * _mm_setr_ps(-1, 1, -1, 1);
}

// Three columns of complex numbers.
struct ComplexTile {
    static constexpr int columns = 3;
    using Value = Four;
    __m128 by_re[columns] = {}, by_im[columns] = {};

    static Value spread(cfloat x) { return {_mm_set1_ps(x.re), _mm_set1_ps(x.im)}; }

    void add(__m128 coefficients, const Value* x) {
#pragma GCC unroll 3
        for (int c = 0; c < columns; ++c) {
            by_re[c] = by_re[c] + coefficients * x[c].re;
            by_im[c] = by_im[c] + coefficients * x[c].im;
        }
    }
    void add_corner(__m128 coefficients, __m128 mask, const Value* x) {
#pragma GCC unroll 3
        for (int c = 0; c < columns; ++c) {
            by_re[c] = by_re[c] + _mm_and_ps(coefficients * x[c].re, mask);
            by_im[c] = by_im[c] + _mm_and_ps(coefficients * x[c].im, mask);
        }
    }
    __m128 product(cfloat alpha, int c) const {
        return RowFactor(alpha).times(combined(by_re[c], by_im[c]));
    }
};

// `count` columns of B from b on: those that a tile holds, or fewer, with the last one in their stead.
template <class Tile, class T>
void multiply_columns(const Packed<T>& packed, int order, T alpha, T* b, int ldb, int count) {
    constexpr int C = Tile::columns, G = kGroup<T>;
    typename Tile::Value x[kOrder<T> * C]; // what B held
    for (int c = 0; c < C; ++c) {
        const T* column = b + std::min(c, count - 1) * ldb;
        for (int l = 0; l < order; ++l) x[l * C + c] = Tile::spread(column[l]);
        for (int l = order; l < packed.order; ++l) x[l * C + c] = Tile::spread(T{});
    }
    for (int i = 0; i < order; i += G) {
        Tile tile;
        const auto corner = [&] {
            for (int h = 0; h < G; ++h)
                tile.add_corner(load<true>(packed.at(i, i + h)),
                                kCornerMasks<T>.at(packed.upper, h), x + (i + h) * C);
        };
        if (packed.upper) corner();
        for (int l = packed.first_beside(i); l < packed.end_beside(i); ++l)
            tile.add(load<true>(packed.at(i, l)), x + l * C);
        if (!packed.upper) corner();
        for (int c = 0; c < count; ++c) {
            T* const y = b + i + c * ldb;
            const __m128 product = tile.product(alpha, c);
            if (i + G <= order) {
                store<false>(reinterpret_cast<float*>(y), product);
                continue;
            }
            T rest[G];
            store<false>(reinterpret_cast<float*>(rest), product);
            std::copy_n(rest, order - i, y);
        }
    }
}

template <class Tile, class T>
void multiply_left(const TriangularProblem<T>& p, T alpha) {
    const Packed<T> packed(p);
    for (int j = 0; j < p.n; j += Tile::columns)
        multiply_columns<Tile>(packed, p.m, alpha, p.b_at(0, j), p.ldb,
                               std::min(Tile::columns, p.n - j));
}

// ---- Right.

struct RightProduct {
    const Leaf<float>& leaf;
    const float (*factor)[kRightOrder]; // [i][l] of unknown l in equation i

    template <class L, int V>
    void rows(int q) const {
        using Rows = SingleRows<L>;
        float* b = leaf.side(q);
        for (int i = 0; i < leaf.order; ++i, b += leaf.step) {
            const L own = Rows::all(factor[i][i]);
            L sum[V];
#pragma GCC unroll 4
            for (int v = 0; v < V; ++v) sum[v] = Rows::load(b + v * Rows::kCount) * own;
            add_row_columns<false, V>(sum, leaf.order - (i + 1), b + leaf.step, leaf.step,
                                      factor[i] + i + 1, 1);
#pragma GCC unroll 4
            for (int v = 0; v < V; ++v) Rows::store(b + v * Rows::kCount, sum[v]);
        }
    }
};

void multiply_right(const TriangularProblem<float>& p, float alpha) {
    const Leaf<float> leaf(p, !p.lower_system());
    float factor[kRightOrder][kRightOrder];
    for (int i = 0; i < leaf.order; ++i) {
        factor[i][i] = leaf.unit ? alpha : alpha * leaf.coefficient(i, i);
        for (int l = i + 1; l < leaf.order; ++l) factor[i][l] = alpha * leaf.coefficient(i, l);
    }
    for_rows(leaf.others, RightProduct{leaf, factor});
}

// V vectors of R rows of every column.
template <int V, int R>
void multiply_rows(const Leaf<cfloat>& leaf, const cfloat (*factor)[kRightOrder], cfloat alpha,
                   cfloat* b) {
    const RowFactor by_alpha(alpha);
    for (int i = 0; i < leaf.order; ++i, b += leaf.step) {
        __m128 by_re[V] = {}, by_im[V] = {};
        const cfloat* x = b;
        for (int l = i; l < leaf.order; ++l, x += leaf.step) {
            const __m128 re = _mm_set1_ps(factor[i][l].re), im = _mm_set1_ps(factor[i][l].im);
#pragma GCC unroll 2
            for (int v = 0; v < V; ++v) {
                const __m128 rows = load_rows<R>(x + v * R);
                by_re[v] = by_re[v] + rows * re;
                by_im[v] = by_im[v] + rows * im;
            }
        }
#pragma GCC unroll 2
        for (int v = 0; v < V; ++v)
            store_rows<R>(b + v * R, by_alpha.times(combined(by_re[v], by_im[v])));
    }
}

void multiply_right(const TriangularProblem<cfloat>& p, cfloat alpha) {
    const Leaf<cfloat> leaf(p, !p.lower_system());
    cfloat factor[kRightOrder][kRightOrder];
    for (int i = 0; i < leaf.order; ++i)
        for (int l = i; l < leaf.order; ++l) {
            const bool one = i == l && leaf.unit;
            factor[i][l] = one ? real_element<cfloat>(1) : leaf.coefficient(i, l);
        }
    int q = 0;
    for (; q + 4 <= leaf.others; q += 4) multiply_rows<2, 2>(leaf, factor, alpha, leaf.side(q));
    for (; q + 2 <= leaf.others; q += 2) multiply_rows<1, 2>(leaf, factor, alpha, leaf.side(q));
    if (q < leaf.others) multiply_rows<1, 1>(leaf, factor, alpha, leaf.side(q));
}

} // namespace

#define LEAF(name, T, side, trans, multiply)                                                       \
    VOR_ENGINE void name PARAMS_TRMM_LEAF(T) {                                                     \
        const auto p = TRIANGULAR_PROBLEM_OF_LEAF(T, side, trans);                                 \
        multiply(p, *alpha);                                                                       \
    }
LEAF(vor_blas_strmln, float, "L", "N", multiply_left<RealTile>)
LEAF(vor_blas_strmlt, float, "L", "T", multiply_left<RealTile>)
LEAF(vor_blas_ctrmln, cfloat, "L", "N", multiply_left<ComplexTile>)
LEAF(vor_blas_ctrmlt, cfloat, "L", "T", multiply_left<ComplexTile>)
LEAF(vor_blas_ctrmlc, cfloat, "L", "C", multiply_left<ComplexTile>)
LEAF(vor_blas_ctrmrn, cfloat, "R", "N", multiply_right)
LEAF(vor_blas_ctrmrt, cfloat, "R", "T", multiply_right)
LEAF(vor_blas_ctrmrc, cfloat, "R", "C", multiply_right)

VOR_ENGINE void vor_blas_strmm_inn PARAMS_TRMM_INN {
    const auto p = TRIANGULAR_PROBLEM_OF_LEAF(float, "R", *transflag ? "T" : "N");
    multiply_right(p, *alpha);
}

} // namespace vor::blas
