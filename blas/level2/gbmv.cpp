// gbmv: y := alpha * op(A) * x + beta * y, A an m by n band with kl diagonals below the main one and ku
// above it.
//
// a      column j: A(i, j) at row ku + i - j; rows outside the matrix are not read
//
// Columns go in pairs: the rows that both store, then the row that each has alone.
#include "blas/kernel/columns_s.h"
#include "blas/letters.h"
#include "blas/level2/entry.h"
#include "blas/level2/vector.h"

namespace vor::blas {
namespace {

template <class T>
struct Band {
    int m, n, kl, ku;
    const T* a;
    int lda;

    int first(int j) const { return j > ku ? j - ku : 0; }
    int behind(int j) const { return j < m - kl ? j + kl + 1 : m; }
    const T* at(int i, int j) const { return a + j * lda + (ku + i - j); }
    template <int columns>
    Columns<columns, T> columns_from(int i, int j) const {
        return Columns<columns, T>::spaced(at(i, j), lda - 1);
    }
};

// One step of the walk over the columns: the two from j on, or column j alone.
template <int columns, bool transpose, bool conjugate, class T, class X, class Y>
void step(const Band<T>& band, int j, T alpha, X x, Y y) {
    using V = work_t<T>;
    const V scale = number<V>(alpha);
    Numbers<columns, V> t; // alpha x[j] to act on the rows, or the sums that gather from them
    if (!transpose)
        for (int q = 0; q < columns; ++q) t.of[q] = scale * number<V>(x[j + q]);

    const auto act = [&](int row, int end, auto block, auto& numbers)
        __attribute__((always_inline)) {
        if constexpr (transpose)
            dot_band_columns<conjugate>(end - row, block, x.from(row), numbers);
        else
            add_columns(end - row, block, numbers, y.from(row));
    };
    const auto act_alone = [&](int q, int row, int end) __attribute__((always_inline)) {
        Numbers<1, V> own = {t.of[q]};
        act(row, end, band.template columns_from<1>(row, j + q), own);
        t.of[q] = own.of[0];
    };
    if constexpr (columns == 1 || (transpose && is_complex<T>)) {
        // Complex sums share nothing: one fills the x87 stack.
        for (int q = 0; q < columns; ++q) act_alone(q, band.first(j + q), band.behind(j + q));
    } else {
        const int shared = band.first(j + 1), behind = band.behind(j);
        act(shared, behind, band.template columns_from<2>(shared, j), t);
        act_alone(0, band.first(j), shared < behind ? shared : behind);
        act_alone(1, behind > shared ? behind : shared, band.behind(j + 1));
    }

    if (transpose)
        for (int q = 0; q < columns; ++q)
            y[j + q] = element<T>(number<V>(y[j + q]) + scale * t.of[q]);
}

template <bool transpose, bool conjugate, class T>
void multiply(const Band<T>& band, T alpha, const T* x, int incx, T beta, T* y, int incy) {
    const int lenx = transpose ? band.m : band.n, leny = transpose ? band.n : band.m;
    scale(leny, beta, y, incy);
    if (is_zero(alpha)) return;
    on_vectors(lenx, x, incx, leny, y, incy, [&](auto v, auto w) {
        int j = 0;
        for (; j + 2 <= band.n; j += 2) step<2, transpose, conjugate>(band, j, alpha, v, w);
        if (j < band.n) step<1, transpose, conjugate>(band, j, alpha, v, w);
    });
}

template <class T>
void gbmv(const char* trans, const Band<T>& band, T alpha, const T* x, int incx, T beta, T* y,
          int incy) {
    if (band.m < 1 || band.n < 1 || (is_zero(alpha) && is_one(beta))) return;
    if (is_letter(trans, 'N')) return multiply<false, false>(band, alpha, x, incx, beta, y, incy);
    if constexpr (is_complex<T>)
        if (!is_letter(trans, 'T'))
            return multiply<true, true>(band, alpha, x, incx, beta, y, incy);
    multiply<true, false>(band, alpha, x, incx, beta, y, incy);
}

} // namespace

#define GBMV(name, NAME, engine, check, T)                                                         \
    LEVEL2(name, NAME, engine, check, PARAMS_GBMV(T), ARGS_GBMV,                                   \
           gbmv(trans, Band<T>{*m, *n, *kl, *ku, a, *lda}, *alpha, x, *incx, *beta, y, *incy))
GBMV(sgbmv, SGBMV, vor_blas_sgbmv, vor_blas_errchk_sgbmv, float)
GBMV(dgbmv, DGBMV, vor_blas_dgbmv, vor_blas_errchk_dgbmv, double)
GBMV(cgbmv, CGBMV, vor_blas_cgbmv, vor_blas_errchk_cgbmv, cfloat)
GBMV(zgbmv, ZGBMV, vor_blas_zgbmv, vor_blas_errchk_zgbmv, cdouble)

} // namespace vor::blas
