// The leaves of strsm in single precision, 4-wide: contract in trsm_leaves.h. Every operation rounds.
//
// strsm_i, right side: column i of X is (b - x(0) a(0, i) - x(1) a(1, i) - ...) * (1 / a(i, i)), the
// products subtracted one after the other in the order of the solve.
//
// strsmlt, left side, transposed: two equations at a time. From kLeastDot terms on the sum over the
// finished unknowns has a start by single elements, up to a multiple of 16 bytes in B if single elements
// lead there, then eight sums, one for each place modulo 8, and an end by single elements, combined in
// this order.
#include "arith/walk.h"
#include "blas/kernel/single_rows.h"
#include "blas/kernel/triangle_leaf.h"
#include "blas/kernel/trsm_leaves.h"
#include "serv/entry.h"

#include <algorithm>

namespace vor::blas {
namespace {

void reciprocals(const Leaf<float>& leaf, float* r) {
    for (int i = 0; i < leaf.order; ++i) r[i] = leaf.unit ? 1 : 1 / leaf.coefficient(i, i);
}

struct RightSolve {
    const Leaf<float>& leaf;
    const float* r;

    template <class L, int V>
    void rows(int q) const {
        using Rows = SingleRows<L>;
        float* const b = leaf.side(q);
        for (int i = 0; i < leaf.order; ++i) {
            float* const column = b + i * leaf.step;
            const L factor = Rows::all(r[i]);
            L x[V];
#pragma GCC unroll 4
            for (int v = 0; v < V; ++v) x[v] = Rows::load(column + v * Rows::kCount);
            add_row_columns<true, V>(x, i, b, leaf.step, leaf.at(i, 0), leaf.column);
#pragma GCC unroll 4
            for (int v = 0; v < V; ++v) Rows::store(column + v * Rows::kCount, x[v] * factor);
        }
    }
};

// ---- Left, transposed. Lanes are right sides: four of them stand against the 16-byte boundaries alike,
// so that their sums have the same form.

constexpr int kLanes = 4;
constexpr int kTurn = 8;      // tiles of four right sides, by turns: the next equations of one wait
constexpr int kLeastDot = 11; // below this a dot product is not worth its start and its end

// The terms of two equations for four right sides; coefficient[k][e]: in all lanes, that of term k in
// equation e.
struct Terms {
    const __m128 (*coefficient)[2];
    const __m128* x;

    [[gnu::always_inline]] __m128 product(int k, int e) const { return coefficient[k][e] * x[k]; }
    Terms from(int k) const { return {coefficient + k, x + k}; }
};

[[gnu::always_inline]] inline void add_singles(__m128& sum0, __m128& sum1, int count, Terms terms) {
    for (int k = 0; k < count; ++k) {
        sum0 = sum0 + terms.product(k, 0);
        sum1 = sum1 + terms.product(k, 1);
    }
}

// The sum over rounds of eight terms, which one right side adds in two vectors of four sums: here they
// are eight sums, added as the lanes of those vectors are.
template <int rounds>
[[gnu::always_inline]] inline __m128 sum_of_rounds(int e, Terms terms) {
    const auto sum_of = [&](int lane) __attribute__((always_inline)) {
        __m128 sum = terms.product(lane, e);
#pragma GCC unroll 4
        for (int r = 1; r < rounds; ++r) sum = sum + terms.product(8 * r + lane, e);
        return sum;
    };
    const __m128 even = (sum_of(0) + sum_of(4)) + (sum_of(2) + sum_of(6));
    return even + ((sum_of(1) + sum_of(5)) + (sum_of(3) + sum_of(7)));
}

template <int rounds>
void add_rounds(__m128& sum0, __m128& sum1, Terms terms) {
    sum0 = sum0 + sum_of_rounds<rounds>(0, terms);
    sum1 = sum1 + sum_of_rounds<rounds>(1, terms);
}

// The dot products of n terms that begin `head` single terms in front of a boundary.
[[gnu::always_inline]] inline void dot_products(__m128& sum0, __m128& sum1, int n, int head,
                                                Terms terms) {
    sum0 = sum1 = _mm_setzero_ps();
    int done = 0;
    if (n >= kLeastDot) {
        add_singles(sum0, sum1, head, terms);
        const int rounds = (n - head) / 8;
        if (rounds == 1) add_rounds<1>(sum0, sum1, terms.from(head));
        if (rounds == 2) add_rounds<2>(sum0, sum1, terms.from(head));
        if (rounds == 3) add_rounds<3>(sum0, sum1, terms.from(head));
        done = head + 8 * rounds;
    }
    add_singles(sum0, sum1, n - done, terms.from(done));
}

// Four right sides `distance` columns apart, or one with idle lanes, from `column` on: row m of x holds
// their elements in row m of B.
struct Tile {
    float* column;
    int distance, count;
    __m128 x[kLeafOrder];

    float& element(int m, int lane) { return column[m + lane * distance]; }
    // Both ways in squares of 4 by 4, what is left singly.
    void load(int order) {
        for (int m = 0; m < order; m += 4) {
            if (m + 4 <= order && count == kLanes) {
                for (int lane = 0; lane < 4; ++lane) x[m + lane] = _mm_loadu_ps(&element(m, lane));
                _MM_TRANSPOSE4_PS(x[m], x[m + 1], x[m + 2], x[m + 3]);
            } else {
                for (int row = m; row < std::min(m + 4, order); ++row) {
                    x[row] = _mm_setzero_ps();
                    for (int lane = 0; lane < count; ++lane) x[row][lane] = element(row, lane);
                }
            }
        }
    }
    void store(int order) {
        for (int m = 0; m < order; m += 4) {
            if (m + 4 <= order && count == kLanes) {
                __m128 y[4] = {x[m], x[m + 1], x[m + 2], x[m + 3]};
                _MM_TRANSPOSE4_PS(y[0], y[1], y[2], y[3]);
                for (int lane = 0; lane < 4; ++lane) _mm_storeu_ps(&element(m, lane), y[lane]);
            } else {
                for (int row = m; row < std::min(m + 4, order); ++row)
                    for (int lane = 0; lane < count; ++lane) element(row, lane) = x[row][lane];
            }
        }
    }
};

class TransposedSolve {
public:
    explicit TransposedSolve(const Leaf<float>& leaf) : leaf_(leaf), order_(leaf.order) {
        reciprocals(leaf, r_);
    }

    void run() {
        // Right sides a multiple of four apart stand alike whatever ldb is.
        const int apart = leaf_.next % 4 == 0 ? 1 : 4;
        int q = 0;
        for (; q + kLanes * apart <= leaf_.others; q += kLanes * apart)
            for (int k = 0; k < apart; ++k) add(q + k, apart * leaf_.next, kLanes);
        for (; q < leaf_.others; ++q) add(q, 0, 1);
        solve();
    }

private:
    void add(int q, int distance, int count) {
        if (waiting_ == kTurn) solve();
        Tile& tile = tiles_[waiting_++];
        tile.column = leaf_.side(q) + (down() ? 0 : 1 - order_);
        tile.distance = distance;
        tile.count = count;
        tile.load(order_);
    }

    void solve() {
        for (int i = 0; i < order_; i += 2) {
            const int partner = std::min(i + 1, order_ - 1);
            // The finished unknowns lie in one piece, their coefficients down two columns of A.
            const int first = down() ? 0 : order_ - i;
            const int back = down() ? 0 : 1 - i;
            for (int k = 0; k < i; ++k) {
                coefficients_[k][0] = _mm_set1_ps(leaf_.at(i, 0)[back + k]);
                coefficients_[k][1] = _mm_set1_ps(leaf_.at(partner, 0)[back + k]);
            }
            for (int t = 0; t < waiting_; ++t) solve_two(i, partner, first, tiles_[t]);
        }
        for (int t = 0; t < waiting_; ++t) tiles_[t].store(order_);
        waiting_ = 0;
    }

    void solve_two(int i, int partner, int first, Tile& tile) {
        const int head = std::max(0, steps_to<16>(tile.column + first, i));
        __m128 sum0, sum1;
        dot_products(sum0, sum1, i, head, {coefficients_, tile.x + first});
        __m128& x0 = tile.x[row(i)];
        x0 = (x0 - sum0) * _mm_set1_ps(r_[i]);
        if (partner == i) return;
        __m128& x1 = tile.x[row(partner)];
        const __m128 link = _mm_set1_ps(leaf_.coefficient(partner, i));
        x1 = (x1 - (sum1 + link * x0)) * _mm_set1_ps(r_[partner]);
    }

    bool down() const { return leaf_.step > 0; }
    int row(int i) const { return down() ? i : order_ - 1 - i; }

    const Leaf<float>& leaf_;
    int order_, waiting_ = 0;
    float r_[kLeafOrder];
    __m128 coefficients_[kLeafOrder][2];
    Tile tiles_[kTurn];
};

} // namespace

VOR_ENGINE void vor_blas_strsm_i PARAMS_XTRMM(float) {
    static_cast<void>(alpha);
    const auto p = TRIANGULAR_PROBLEM(float);
    const Leaf<float> leaf(p, p.lower_system());
    float r[kLeafOrder];
    reciprocals(leaf, r);
    for_rows(leaf.others, RightSolve{leaf, r});
}

VOR_ENGINE void vor_blas_strsmlt PARAMS_XTRMM(float) {
    static_cast<void>(alpha);
    const auto p = TRIANGULAR_PROBLEM(float);
    const Leaf<float> leaf(p, p.lower_system());
    TransposedSolve(leaf).run();
}

} // namespace vor::blas
