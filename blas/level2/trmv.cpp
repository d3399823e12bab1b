// trmv: x := op(A) * x, A triangular.
//
// Blocks in the order in which the elements that are still to be read stay as they are: the diagonal
// block, then the product with the rectangle beside it.
#include "blas/level2/blocks.h"
#include "blas/level2/entry.h"

#define PARAMS_TRMV_IN(T)                                                                          \
    (const char* uplo, const char* trans, const char* diag, const int* n, const T* a,              \
     const int* lda, T* x, const int* incx)

namespace {

// Rows of a block; 64 is one strip of the product.
template <class T>
constexpr int kBlock = std::is_same_v<T, double> ? 64 : 32;

// Elements i to i + rows - 1 of A x, by dot products that run over the columns of A together. The rows
// come in the order of `ascending`; the elements of x that are still needed are the old ones.
template <int rows, class A, class X>
void multiply_rows(const A& op, int i, bool ascending, X x) {
    using T = typename X::Element;
    using V = vor::work_t<T>;
    const auto& a = op.a;
    vor::Numbers<rows, V> s;
    const auto add_rows = [&](int first, int count) __attribute__((always_inline)) {
        for (int j = a.upper ? i + rows : 0; j < (a.upper ? a.n : i); ++j) {
            const V xj = vor::number<V>(x[j]);
            const T* const column = vor::at(a, i, j);
            for (int p = first; p < first + count; ++p)
                s.of[p] = s.of[p] + vor::factor<V>(column[p]) * xj;
        }
    };
    if constexpr (std::is_same_v<V, vor::Complex<long double>>)
        for (int p = 0; p < rows; ++p) add_rows(p, 1); // one complex sum fills the x87 stack
    else
        add_rows(0, rows);
    for (int step = 0; step < rows; ++step) {
        const int p = ascending ? step : rows - 1 - step;
        const V old = vor::number<V>(x[i + p]);
        V sum = s.of[p] + (op.unit ? old : vor::number<V>(*a.diagonal(i + p)) * old);
        for (int q = a.upper ? p + 1 : 0; q < (a.upper ? rows : p); ++q)
            sum = sum + vor::number<V>(*vor::at(a, i + p, i + q)) * vor::number<V>(x[i + q]);
        x[i + p] = vor::element<T>(sum);
    }
}

// A diagonal block, x from its element 0 on.
template <class A, class T>
void multiply_block(const A& op, T* x, int incx) {
    const auto body = [&](auto v) {
        if constexpr (A::kTransposed)
            vor::triangular_product<1>(op, v);
        else
            vor::sweep<2>(op.a.n, op.a.upper, [&](auto rows, int i) {
                multiply_rows<decltype(rows)::value>(op, i, op.a.upper, v);
            });
    };
    if (incx == 1)
        body(vor::Vector<T, vor::Unit>{x, {}});
    else
        body(vor::Vector<T, int>{x, incx});
}

template <class A, class T>
void multiply(const A& op, T* x, int incx) {
    const int n = op.a.n, lda = op.a.lda;
    const bool upper = op.a.upper;
    const vor::Pieces<T> v(x, n, incx);
    vor::in_blocks(n, kBlock<T>, upper != A::kTransposed, [&](int j, int count) {
        multiply_block(A{{upper, count, op.a.diagonal(j), lda}, op.unit}, v.element(j), incx);
        // The other elements that this block of op(A) meets.
        const bool behind = upper != A::kTransposed;
        const int other = behind ? j + count : 0, others = behind ? n - other : j;
        if (others == 0) return;
        const int row = A::kTransposed ? other : j, column = A::kTransposed ? j : other;
        vor::add_product(vor::letter_of<A>(), A::kTransposed ? others : count,
                         A::kTransposed ? count : others, 1, op.a.a + column * lda + row, lda,
                         v.piece(other, others), incx, v.piece(j, count), incx);
    });
}

} // namespace

#define MEMBER(p, P, T)                                                                            \
    VOR_ENGINE void vor_blas_##p##trmv_in PARAMS_TRMV_IN(T) {                                      \
        vor::on_triangle(vor::FullTriangle<const T>{vor::is_letter(uplo, 'U'), *n, a, *lda},       \
                         trans, diag, [&](const auto& op) { multiply_block(op, x, *incx); });      \
    }                                                                                              \
    LEVEL2(p, P, T, trmv, TRMV, TRMV,                                                              \
           vor::on_triangle(vor::FullTriangle<const T>{vor::is_letter(uplo, 'U'), *n, a, *lda},    \
                            trans, diag, [&](const auto& op) { multiply(op, x, *incx); }))
MEMBER(s, S, float)
MEMBER(d, D, double)
MEMBER(c, C, vor::cfloat)
MEMBER(z, Z, vor::cdouble)
