// trsv: x := op(A)^-1 * x, A triangular. A zero on the diagonal gives the infinities and NaNs of the
// division.
//
// Blocks of 32 in the order of the solution. Without transposition a leaf solves the diagonal block and
// the product takes its part from the rest of x; with transposition the product first takes the
// finished part from the block. Either way A is read down its columns.
#include "blas/level2/blocks.h"
#include "blas/level2/entry.h"

#define PARAMS_LEAF(T) (const int* n, const T* a, const int* lda, T* x, const int* incx)

namespace vor::blas {
namespace {

constexpr int kBlock = 32;

// x := op(A)^-1 x for a diagonal block, x from its element 0 on.
template <bool upper, bool transpose, bool conjugate, bool unit, class T>
void leaf(int n, const T* a, int lda, T* x, int incx) {
    using Triangle = FullTriangle<const T>;
    const TriangularOperator<transpose, conjugate, Triangle> op{{upper, n, a, lda}, unit};
    constexpr int kTogether = transpose ? 2 : 1; // two dot products share their loads of x
    if (incx == 1)
        triangular_solve<PlainDivision, kTogether>(op, Vector<T, Unit>{x, {}});
    else
        triangular_solve<PlainDivision, 1>(op, Vector<T, int>{x, incx});
}

template <class A, class T>
void solve(const A& op, void(*leaf) PARAMS_LEAF(T), T* x, int incx) {
    const int n = op.a.n, lda = op.a.lda;
    const Pieces<T> v(x, n, incx);
    in_blocks(n, kBlock, op.a.upper == A::kTransposed, [&](int j, int count) {
        const int row = op.a.upper ? 0 : j + count, rows = op.a.upper ? j : n - row;
        const T* const beside = op.a.a + j * lda + row;
        if (A::kTransposed && rows > 0)
            add_matrix_product(letter_of<A>(), rows, count, -1, beside, lda, v.piece(row, rows),
                               incx, v.piece(j, count), incx);
        leaf(&count, op.a.diagonal(j), &lda, v.element(j), &incx);
        if (!A::kTransposed && rows > 0)
            add_matrix_product('N', rows, count, -1, beside, lda, v.piece(j, count), incx,
                               v.piece(row, rows), incx);
    });
}

} // namespace

#define LEAF(name, T, upper, transpose, conjugate, unit)                                           \
    VOR_ENGINE void name PARAMS_LEAF(T) {                                                          \
        leaf<upper, transpose, conjugate, unit>(*n, a, *lda, x, *incx);                            \
    }
LEAF(vor_blas_strsv_lnn, float, false, false, false, false)
LEAF(vor_blas_strsv_lnu, float, false, false, false, true)
LEAF(vor_blas_strsv_unn, float, true, false, false, false)
LEAF(vor_blas_strsv_unu, float, true, false, false, true)
LEAF(vor_blas_strsv_ltn, float, false, true, false, false)
LEAF(vor_blas_strsv_ltu, float, false, true, false, true)
LEAF(vor_blas_strsv_utn, float, true, true, false, false)
LEAF(vor_blas_strsv_utu, float, true, true, false, true)
LEAF(vor_blas_dtrsv_lnn, double, false, false, false, false)
LEAF(vor_blas_dtrsv_lnu, double, false, false, false, true)
LEAF(vor_blas_dtrsv_unn, double, true, false, false, false)
LEAF(vor_blas_dtrsv_unu, double, true, false, false, true)
LEAF(vor_blas_dtrsv_ltn, double, false, true, false, false)
LEAF(vor_blas_dtrsv_ltu, double, false, true, false, true)
LEAF(vor_blas_dtrsv_utn, double, true, true, false, false)
LEAF(vor_blas_dtrsv_utu, double, true, true, false, true)
LEAF(vor_blas_ctrsv_lnn, cfloat, false, false, false, false)
LEAF(vor_blas_ctrsv_lnu, cfloat, false, false, false, true)
LEAF(vor_blas_ctrsv_unn, cfloat, true, false, false, false)
LEAF(vor_blas_ctrsv_unu, cfloat, true, false, false, true)
LEAF(vor_blas_ctrsv_ltn, cfloat, false, true, false, false)
LEAF(vor_blas_ctrsv_ltu, cfloat, false, true, false, true)
LEAF(vor_blas_ctrsv_utn, cfloat, true, true, false, false)
LEAF(vor_blas_ctrsv_utu, cfloat, true, true, false, true)
LEAF(vor_blas_ctrsv_lcn, cfloat, false, true, true, false)
LEAF(vor_blas_ctrsv_lcu, cfloat, false, true, true, true)
LEAF(vor_blas_ctrsv_ucn, cfloat, true, true, true, false)
LEAF(vor_blas_ctrsv_ucu, cfloat, true, true, true, true)
LEAF(vor_blas_ztrsv_lnn, cdouble, false, false, false, false)
LEAF(vor_blas_ztrsv_lnu, cdouble, false, false, false, true)
LEAF(vor_blas_ztrsv_unn, cdouble, true, false, false, false)
LEAF(vor_blas_ztrsv_unu, cdouble, true, false, false, true)
LEAF(vor_blas_ztrsv_ltn, cdouble, false, true, false, false)
LEAF(vor_blas_ztrsv_ltu, cdouble, false, true, false, true)
LEAF(vor_blas_ztrsv_utn, cdouble, true, true, false, false)
LEAF(vor_blas_ztrsv_utu, cdouble, true, true, false, true)
LEAF(vor_blas_ztrsv_lcn, cdouble, false, true, true, false)
LEAF(vor_blas_ztrsv_lcu, cdouble, false, true, true, true)
LEAF(vor_blas_ztrsv_ucn, cdouble, true, true, true, false)
LEAF(vor_blas_ztrsv_ucu, cdouble, true, true, true, true)

namespace {

// The leaves of a type: by operation (n, t, c), upper, unit.
template <class T>
using Leaf = void PARAMS_LEAF(T);
template <class T>
struct Leaves;
template <>
struct Leaves<float> {
    static constexpr Leaf<float>* of[3][2][2] = {
        {{vor_blas_strsv_lnn, vor_blas_strsv_lnu}, {vor_blas_strsv_unn, vor_blas_strsv_unu}},
        {{vor_blas_strsv_ltn, vor_blas_strsv_ltu}, {vor_blas_strsv_utn, vor_blas_strsv_utu}},
        {{vor_blas_strsv_ltn, vor_blas_strsv_ltu}, {vor_blas_strsv_utn, vor_blas_strsv_utu}},
    };
};
template <>
struct Leaves<double> {
    static constexpr Leaf<double>* of[3][2][2] = {
        {{vor_blas_dtrsv_lnn, vor_blas_dtrsv_lnu}, {vor_blas_dtrsv_unn, vor_blas_dtrsv_unu}},
        {{vor_blas_dtrsv_ltn, vor_blas_dtrsv_ltu}, {vor_blas_dtrsv_utn, vor_blas_dtrsv_utu}},
        {{vor_blas_dtrsv_ltn, vor_blas_dtrsv_ltu}, {vor_blas_dtrsv_utn, vor_blas_dtrsv_utu}},
    };
};
template <>
struct Leaves<cfloat> {
    static constexpr Leaf<cfloat>* of[3][2][2] = {
        {{vor_blas_ctrsv_lnn, vor_blas_ctrsv_lnu}, {vor_blas_ctrsv_unn, vor_blas_ctrsv_unu}},
        {{vor_blas_ctrsv_ltn, vor_blas_ctrsv_ltu}, {vor_blas_ctrsv_utn, vor_blas_ctrsv_utu}},
        {{vor_blas_ctrsv_lcn, vor_blas_ctrsv_lcu}, {vor_blas_ctrsv_ucn, vor_blas_ctrsv_ucu}},
    };
};
template <>
struct Leaves<cdouble> {
    static constexpr Leaf<cdouble>* of[3][2][2] = {
        {{vor_blas_ztrsv_lnn, vor_blas_ztrsv_lnu}, {vor_blas_ztrsv_unn, vor_blas_ztrsv_unu}},
        {{vor_blas_ztrsv_ltn, vor_blas_ztrsv_ltu}, {vor_blas_ztrsv_utn, vor_blas_ztrsv_utu}},
        {{vor_blas_ztrsv_lcn, vor_blas_ztrsv_lcu}, {vor_blas_ztrsv_ucn, vor_blas_ztrsv_ucu}},
    };
};

template <class A, class T>
Leaf<T>* leaf_for(const A& op, const T*) {
    return Leaves<T>::of[A::kConjugated ? 2 : A::kTransposed][op.a.upper][op.unit];
}

} // namespace

#define TRSV(name, NAME, engine, check, T)                                                         \
    LEVEL2(name, NAME, engine, check, PARAMS_TRMV(T), ARGS_TRMV,                                   \
           on_triangle(FullTriangle<const T>{is_letter(uplo, 'U'), *n, a, *lda}, trans, diag,      \
                       [&](const auto& op) { solve(op, leaf_for(op, x), x, *incx); }))
TRSV(strsv, STRSV, vor_blas_strsv, vor_blas_errchk_strsv, float)
TRSV(dtrsv, DTRSV, vor_blas_dtrsv, vor_blas_errchk_dtrsv, double)
TRSV(ctrsv, CTRSV, vor_blas_ctrsv, vor_blas_errchk_ctrsv, cfloat)
TRSV(ztrsv, ZTRSV, vor_blas_ztrsv, vor_blas_errchk_ztrsv, cdouble)

} // namespace vor::blas
