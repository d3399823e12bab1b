// trmv: x := op(A) * x, A triangular.
//
// Blocks in the order in which the elements that are still to be read stay as they are: the diagonal
// block, then the product with the rectangle beside it.
#include "blas/level2/blocks.h"
#include "blas/level2/entry.h"

#define PARAMS_TRMV_IN(T)                                                                          \
    (const char* uplo, const char* trans, const char* diag, const int* n, const T* a,              \
     const int* lda, T* x, const int* incx)

namespace vor::blas {
namespace {

// Rows of a block; 64 is one strip of the product.
template <class T>
constexpr int kBlock = std::is_same_v<T, double> ? 64 : 32;

// Elements i to i + rows - 1 of A x, by dot products that run over the columns of A together. The rows
// come in the order of `ascending`; the elements of x that are still needed are the old ones.
template <int rows, class A, class X>
void multiply_rows(const A& op, int i, bool ascending, X x) {
    using T = typename X::Element;
    using V = work_t<T>;
    const auto& a = op.a;
    Numbers<rows, V> s;
    const auto add_rows = [&](int first, int count) __attribute__((always_inline)) {
        for (int j = a.upper ? i + rows : 0; j < (a.upper ? a.n : i); ++j) {
            const V xj = number<V>(x[j]);
            const T* const column = at(a, i, j);
            for (int p = first; p < first + count; ++p)
                s.of[p] = s.of[p] + factor<V>(column[p]) * xj;
        }
    };
    if constexpr (std::is_same_v<V, cextended>)
        for (int p = 0; p < rows; ++p) add_rows(p, 1); // one complex sum fills the x87 stack
    else
        add_rows(0, rows);
    for (int step = 0; step < rows; ++step) {
        const int p = ascending ? step : rows - 1 - step;
        const V old = number<V>(x[i + p]);
        V sum = s.of[p] + (op.unit ? old : number<V>(*a.diagonal(i + p)) * old);
        for (int q = a.upper ? p + 1 : 0; q < (a.upper ? rows : p); ++q)
            sum = sum + number<V>(*at(a, i + p, i + q)) * number<V>(x[i + q]);
        x[i + p] = element<T>(sum);
    }
}

// A diagonal block, x from its element 0 on.
template <class A, class T>
void multiply_block(const A& op, T* x, int incx) {
    const auto body = [&](auto v) {
        if constexpr (A::kTransposed)
            triangular_product<1>(op, v);
        else
            sweep<2>(op.a.n, op.a.upper, [&](auto rows, int i) {
                multiply_rows<decltype(rows)::value>(op, i, op.a.upper, v);
            });
    };
    if (incx == 1)
        body(Vector<T, Unit>{x, {}});
    else
        body(Vector<T, int>{x, incx});
}

template <class A, class T>
void multiply(const A& op, T* x, int incx) {
    const int n = op.a.n, lda = op.a.lda;
    const bool upper = op.a.upper;
    const Pieces<T> v(x, n, incx);
    in_blocks(n, kBlock<T>, upper != A::kTransposed, [&](int j, int count) {
        multiply_block(A{{upper, count, op.a.diagonal(j), lda}, op.unit}, v.element(j), incx);
        // The other elements that this block of op(A) meets.
        const bool behind = upper != A::kTransposed;
        const int other = behind ? j + count : 0, others = behind ? n - other : j;
        if (others == 0) return;
        const int row = A::kTransposed ? other : j, column = A::kTransposed ? j : other;
        add_matrix_product(letter_of<A>(), A::kTransposed ? others : count,
                           A::kTransposed ? count : others, 1, op.a.a + column * lda + row, lda,
                           v.piece(other, others), incx, v.piece(j, count), incx);
    });
}

} // namespace

#define TRMV(name, NAME, engine, check, block, T)                                                  \
    VOR_ENGINE void block PARAMS_TRMV_IN(T) {                                                      \
        on_triangle(FullTriangle<const T>{is_letter(uplo, 'U'), *n, a, *lda}, trans, diag,         \
                    [&](const auto& op) { multiply_block(op, x, *incx); });                        \
    }                                                                                              \
    LEVEL2(name, NAME, engine, check, PARAMS_TRMV(T), ARGS_TRMV,                                   \
           on_triangle(FullTriangle<const T>{is_letter(uplo, 'U'), *n, a, *lda}, trans, diag,      \
                       [&](const auto& op) { multiply(op, x, *incx); }))
TRMV(strmv, STRMV, vor_blas_strmv, vor_blas_errchk_strmv, vor_blas_strmv_in, float)
TRMV(dtrmv, DTRMV, vor_blas_dtrmv, vor_blas_errchk_dtrmv, vor_blas_dtrmv_in, double)
TRMV(ctrmv, CTRMV, vor_blas_ctrmv, vor_blas_errchk_ctrmv, vor_blas_ctrmv_in, cfloat)
TRMV(ztrmv, ZTRMV, vor_blas_ztrmv, vor_blas_errchk_ztrmv, vor_blas_ztrmv_in, cdouble)

} // namespace vor::blas
