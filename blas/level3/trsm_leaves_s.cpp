// The leaves of strsm in single precision, 4-wide: contract in trsm_leaves.h. Every operation rounds.
//
// strsm_i, right side: column i of X is (b - x(0) a(0, i) - x(1) a(1, i) - ...) * (1 / a(i, i)), the
// products subtracted one after the other in the order of the solve.
//
// strsmlt, left side, transposed: two equations at a time, their sums over the finished unknowns by one
// walk over the column of B. From kVectorDot terms on a sum has a start by single elements, up to a
// multiple of 16 bytes in B if single elements lead there, two vectors of four sums each, and an end
// by single elements, combined in this order.
#include "blas/level1/vector.h"
#include "blas/level3/single_rows.h"
#include "blas/level3/triangle_leaf.h"
#include "blas/level3/trsm_leaves.h"
#include "serv/entry.h"

namespace {

using vor::Leaf;

void reciprocals(const Leaf<float>& leaf, float* r) {
    for (int i = 0; i < leaf.order; ++i) r[i] = leaf.unit ? 1 : 1 / leaf.coefficient(i, i);
}

struct RightSolve {
    const Leaf<float>& leaf;
    const float* r;

    template <class L, int V>
    void rows(int q) const {
        float* const b = leaf.side(q);
        for (int i = 0; i < leaf.order; ++i) {
            float* const column = b + i * leaf.step;
            const L factor = vor::every_row<L>(r[i]);
            L x[V];
#pragma GCC unroll 4
            for (int v = 0; v < V; ++v) x[v] = vor::load_rows<L>(column + v * vor::kLanes<L>);
            vor::add_columns<true, V>(x, i, b, leaf.step, leaf.at(i, 0), leaf.column);
#pragma GCC unroll 4
            for (int v = 0; v < V; ++v) vor::store_rows(column + v * vor::kLanes<L>, x[v] * factor);
        }
    }
};

// Below this a dot product is not worth its start and its end.
constexpr int kVectorDot = 11;

// sum0 and sum1: dot products of two columns with x, n terms.
void add_two_dots(int n, const float* a0, const float* a1, const float* x, float& sum0,
                  float& sum1) {
    const auto singles = [&](int count) {
        for (int l = 0; l < count; ++l) {
            sum0 += a0[l] * x[l];
            sum1 += a1[l] * x[l];
        }
        a0 += count, a1 += count, x += count, n -= count;
    };
    if (n >= kVectorDot) {
        singles(std::max(0, vor::steps_to<16>(x, n)));
        __m128 s[4] = {_mm_setzero_ps(), _mm_setzero_ps(), _mm_setzero_ps(), _mm_setzero_ps()};
        for (; n >= 8; n -= 8, a0 += 8, a1 += 8, x += 8) {
            const __m128 low = _mm_loadu_ps(x), high = _mm_loadu_ps(x + 4);
            s[0] = s[0] + _mm_loadu_ps(a0) * low;
            s[1] = s[1] + _mm_loadu_ps(a0 + 4) * high;
            s[2] = s[2] + _mm_loadu_ps(a1) * low;
            s[3] = s[3] + _mm_loadu_ps(a1 + 4) * high;
        }
        sum0 += vor::sum_of_lanes(s[0] + s[1]);
        sum1 += vor::sum_of_lanes(s[2] + s[3]);
    }
    singles(n);
}

// Equation i and the next one, if there is one, for the right side at b; op(A) = A^T, so that an equation
// runs along a column of A.
void solve_two(const Leaf<float>& leaf, const float* r, int i, float* b) {
    const int partner = std::min(i + 1, leaf.order - 1);
    // Where the finished unknowns begin in memory: they lie in one piece.
    const int first = leaf.step > 0 ? 0 : 1 - i;
    float sum0 = 0, sum1 = 0;
    add_two_dots(i, leaf.at(i, 0) + first, leaf.at(partner, 0) + first, b + first, sum0, sum1);
    float& x0 = b[i * leaf.step];
    x0 = (x0 - sum0) * r[i];
    if (partner == i) return;
    float& x1 = b[partner * leaf.step];
    x1 = (x1 - (sum1 + leaf.coefficient(partner, i) * x0)) * r[partner];
}

// A few right sides by turns: the next equations of one need what the last ones have stored, and the
// others fill the wait.
void solve_left_transposed(const Leaf<float>& leaf, const float* r) {
    constexpr int kTurn = 16;
    for (int q = 0; q < leaf.others; q += kTurn)
        for (int i = 0; i < leaf.order; i += 2)
            for (int c = q; c < std::min(q + kTurn, leaf.others); ++c)
                solve_two(leaf, r, i, leaf.side(c));
}

} // namespace

VOR_ENGINE void vor_blas_strsm_i PARAMS_XTRMM(float) {
    static_cast<void>(alpha);
    const auto p = TRIANGULAR(float);
    const Leaf<float> leaf(p, p.lower_system());
    float r[vor::kLeafOrder];
    reciprocals(leaf, r);
    vor::for_rows(leaf.others, RightSolve{leaf, r});
}

VOR_ENGINE void vor_blas_strsmlt PARAMS_XTRMM(float) {
    static_cast<void>(alpha);
    const auto p = TRIANGULAR(float);
    const Leaf<float> leaf(p, p.lower_system());
    float r[vor::kLeafOrder];
    reciprocals(leaf, r);
    solve_left_transposed(leaf, r);
}
