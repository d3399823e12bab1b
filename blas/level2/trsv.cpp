// trsv: x := op(A)^-1 * x, A triangular. A zero on the diagonal gives the infinities and NaNs of the
// division.
//
// Blocks of 32 in the order of the solution. Without transposition a leaf solves the diagonal block and
// the product takes its part from the rest of x; with transposition the product first takes the
// finished part from the block. Either way A is read down its columns.
#include "blas/level2/blocks.h"
#include "blas/level2/entry.h"

#define PARAMS_LEAF(T) (const int* n, const T* a, const int* lda, T* x, const int* incx)

namespace {

constexpr int kBlock = 32;

// x := op(A)^-1 x for a diagonal block, x from its element 0 on.
template <bool upper, bool transpose, bool conjugate, bool unit, class T>
void leaf(int n, const T* a, int lda, T* x, int incx) {
    using Triangle = vor::FullTriangle<const T>;
    const vor::Triangular<transpose, conjugate, Triangle> op{{upper, n, a, lda}, unit};
    constexpr int kTogether = transpose ? 2 : 1; // two dot products share their loads of x
    if (incx == 1)
        vor::triangular_solve<vor::PlainDivision, kTogether>(op, vor::Vector<T, vor::Unit>{x, {}});
    else
        vor::triangular_solve<vor::PlainDivision, 1>(op, vor::Vector<T, int>{x, incx});
}

template <class A, class T>
void solve(const A& op, void(*leaf) PARAMS_LEAF(T), T* x, int incx) {
    const int n = op.a.n, lda = op.a.lda;
    const vor::Pieces<T> v(x, n, incx);
    vor::in_blocks(n, kBlock, op.a.upper == A::kTransposed, [&](int j, int count) {
        const int row = op.a.upper ? 0 : j + count, rows = op.a.upper ? j : n - row;
        const T* const beside = op.a.a + j * lda + row;
        if (A::kTransposed && rows > 0)
            vor::add_product(vor::letter_of<A>(), rows, count, -1, beside, lda, v.piece(row, rows),
                             incx, v.piece(j, count), incx);
        leaf(&count, op.a.diagonal(j), &lda, v.element(j), &incx);
        if (!A::kTransposed && rows > 0)
            vor::add_product('N', rows, count, -1, beside, lda, v.piece(j, count), incx,
                             v.piece(row, rows), incx);
    });
}

} // namespace

#define LEAF(p, T, U, t, d, upper, transpose, conjugate, unit)                                     \
    VOR_ENGINE void vor_blas_##p##trsv_##U##t##d PARAMS_LEAF(T) {                                  \
        leaf<upper, transpose, conjugate, unit>(*n, a, *lda, x, *incx);                            \
    }
#define LEAVES(p, T, t, transpose, conjugate)                                                      \
    LEAF(p, T, l, t, n, false, transpose, conjugate, false)                                        \
    LEAF(p, T, l, t, u, false, transpose, conjugate, true)                                         \
    LEAF(p, T, u, t, n, true, transpose, conjugate, false)                                         \
    LEAF(p, T, u, t, u, true, transpose, conjugate, true)
#define REAL_LEAVES(p, T)                                                                          \
    LEAVES(p, T, n, false, false)                                                                  \
    LEAVES(p, T, t, true, false)
REAL_LEAVES(s, float)
REAL_LEAVES(d, double)
REAL_LEAVES(c, vor::cfloat)
REAL_LEAVES(z, vor::cdouble)
LEAVES(c, vor::cfloat, c, true, true)
LEAVES(z, vor::cdouble, c, true, true)

// The leaf of an operation.
#define CHOOSE(p, t)                                                                               \
    (upper ? (unit ? vor_blas_##p##trsv_u##t##u : vor_blas_##p##trsv_u##t##n)                      \
           : (unit ? vor_blas_##p##trsv_l##t##u : vor_blas_##p##trsv_l##t##n))
#define CHOOSE_REAL(p) return A::kTransposed ? CHOOSE(p, t) : CHOOSE(p, n);
#define CHOOSE_COMPLEX(p)                                                                          \
    return A::kConjugated ? CHOOSE(p, c) : A::kTransposed ? CHOOSE(p, t) : CHOOSE(p, n);
template <class T, class A>
static auto leaf_for(const A& op) {
    const bool upper = op.a.upper, unit = op.unit;
    if constexpr (std::is_same_v<T, float>) CHOOSE_REAL(s)
    if constexpr (std::is_same_v<T, double>) CHOOSE_REAL(d)
    if constexpr (std::is_same_v<T, vor::cfloat>) CHOOSE_COMPLEX(c)
    if constexpr (std::is_same_v<T, vor::cdouble>) CHOOSE_COMPLEX(z)
}

#define MEMBER(p, P, T)                                                                            \
    LEVEL2(p, P, T, trsv, TRSV, TRMV,                                                              \
           vor::on_triangle(vor::FullTriangle<const T>{vor::is_letter(uplo, 'U'), *n, a, *lda},    \
                            trans, diag,                                                           \
                            [&](const auto& op) { solve(op, leaf_for<T>(op), x, *incx); }))
MEMBER(s, S, float)
MEMBER(d, D, double)
MEMBER(c, C, vor::cfloat)
MEMBER(z, Z, vor::cdouble)
