// The gemv kernels: see gemv_kernels.h.
#include "blas/kernel/gemv_kernels.h"
#include "arith/prefetch.h"
#include "blas/kernel/columns.h"
#include "blas/letters.h"
#include "serv/entry.h"

namespace vor::blas {
namespace {

enum class Op { n, t, c };
enum class Prefetch { no, yes };

// The lines of a strip of each column, from the second on. They are kept: a matrix that fits the second
// cache is often met again.
template <int columns, class T>
[[gnu::always_inline]] inline void prefetch_strip(const Columns<columns, T>& a) {
    constexpr int kLine = 64, kBytes = kStripRows * sizeof(T);
#pragma GCC unroll 16
    for (int at = kLine; at < kBytes; at += kLine)
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) prefetch(a.first[q], at);
}

// F: the type that the factors alpha x are kept in, which holds them as they are.
template <Op op, class F, int columns, class T, class X, class Y>
[[gnu::always_inline]] inline void multiply_columns(int rows, T alpha, const Columns<columns, T>& a,
                                                    X x, Y y) {
    using V = wide_t<T>;
    if constexpr (op == Op::n) {
        Numbers<columns, F> t;
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) t.of[q] = rounded<F>(number<V>(alpha) * number<V>(x[q]));
        if constexpr (is_complex<T> && columns == 4)
            add_columns_in_tiles(rows, a, t, y);
        else
            add_columns(rows, a, t, y);
    } else {
        Numbers<columns, V> s;
        dot_columns<op == Op::c>(rows, a, x, s);
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q)
            y[q] = element<T>(number<V>(y[q]) + number<V>(alpha) * s.of[q]);
    }
}

// Columns in groups, whose factors are of type F, then singly.
template <Op op, int group, Prefetch prefetch, class F, class T, class X, class Y>
[[gnu::always_inline]] inline void multiply(int rows, int n, T alpha, const T* a, int lda, X x,
                                            Y y) {
    const auto at = [](auto vector, int j) { return op == Op::n ? vector.from(j) : vector; };
    const auto across = [](auto vector, int j) { return op == Op::n ? vector : vector.from(j); };
    const auto step = [&]<int columns>(std::integral_constant<int, columns>, int j) {
        const auto part = Columns<columns, T>::spaced(a + j * lda, lda);
        if (prefetch == Prefetch::yes) prefetch_strip(part);
        using Factor = std::conditional_t<columns == group, F, wide_t<T>>;
        multiply_columns<op, Factor>(rows, alpha, part, at(x, j), across(y, j));
    };
    int j = 0;
    for (; j + group <= n; j += group) step(std::integral_constant<int, group>{}, j);
    if (group > 1)
        for (; j < n; ++j) step(std::integral_constant<int, 1>{}, j);
}

template <Op op, class F, class T>
void rest(int rows, int n, T alpha, const T* a, int lda, const T* x, int incx, T* y, int incy) {
    // Complex sums run singly: one fills the x87 stack.
    constexpr int kGroup = is_complex<T> && op != Op::n ? 1 : 4;
    if (incx == 1 && incy == 1)
        multiply<op, kGroup, Prefetch::no, F>(rows, n, alpha, a, lda, Vector<const T, Unit>{x, {}},
                                              Vector<T, Unit>{y, {}});
    else
        multiply<op, kGroup, Prefetch::no, F>(rows, n, alpha, a, lda, Vector<const T, int>{x, incx},
                                              Vector<T, int>{y, incy});
}

// Whether alpha x is a pair of doubles for every x: in triangular products and solves it always is.
template <class T>
bool makes_doubles(T alpha) {
    return alpha.im == 0 && (std::is_same_v<T, cfloat> || alpha.re == 1 || alpha.re == -1);
}

template <class T>
void rest(Op op, int rows, int n, T alpha, const T* a, int lda, const T* x, int incx, T* y,
          int incy) {
    using V = wide_t<T>;
    if (op == Op::t) return rest<Op::t, V>(rows, n, alpha, a, lda, x, incx, y, incy);
    if constexpr (is_complex<T>) {
        if (op == Op::c) return rest<Op::c, V>(rows, n, alpha, a, lda, x, incx, y, incy);
        if (makes_doubles(alpha))
            return rest<Op::n, Complex<double>>(rows, n, alpha, a, lda, x, incx, y, incy);
    }
    rest<Op::n, V>(rows, n, alpha, a, lda, x, incx, y, incy);
}

} // namespace

#define UNIT_KERNEL(name, T, op, group, prefetch)                                                  \
    VOR_ENGINE void name PARAMS_GEMV_OO(T) {                                                       \
        multiply<Op::op, group, Prefetch::prefetch, wide_t<T>>(kStripRows, *n, *alpha, a, *lda,    \
                                                               Vector<const T, Unit>{x, {}},       \
                                                               Vector<T, Unit>{y, {}});            \
    }
#define STEPPED_KERNEL(name, T, op, group)                                                         \
    VOR_ENGINE void name PARAMS_GEMV_AA(T) {                                                       \
        multiply<Op::op, group, Prefetch::yes, wide_t<T>>(kStripRows, *n, *alpha, a, *lda,         \
                                                          Vector<const T, int>{x, *incx},          \
                                                          Vector<T, int>{y, *incy});               \
    }
// n kernels round y after each group. The sums of t and c kernels are those of single columns: four of
// them side by side hide the latency of the addition, a complex one fills the x87 stack.
UNIT_KERNEL(vor_blas_sgemvnoo, float, n, 4, yes)
STEPPED_KERNEL(vor_blas_sgemvnaa, float, n, 4)
UNIT_KERNEL(vor_blas_sgemvtoo, float, t, 4, yes)
STEPPED_KERNEL(vor_blas_sgemvtaa, float, t, 4)
UNIT_KERNEL(vor_blas_dgemvnoo, double, n, 2, yes)
STEPPED_KERNEL(vor_blas_dgemvnaa, double, n, 2)
UNIT_KERNEL(vor_blas_dgemvtoo, double, t, 4, yes)
STEPPED_KERNEL(vor_blas_dgemvtaa, double, t, 4)
UNIT_KERNEL(vor_blas_cgemvnoo, cfloat, n, 2, yes)
STEPPED_KERNEL(vor_blas_cgemvnaa, cfloat, n, 2)
UNIT_KERNEL(vor_blas_cgemvtoo, cfloat, t, 1, yes)
STEPPED_KERNEL(vor_blas_cgemvtaa, cfloat, t, 1)
UNIT_KERNEL(vor_blas_cgemvcoo, cfloat, c, 1, yes)
STEPPED_KERNEL(vor_blas_cgemvcaa, cfloat, c, 1)
UNIT_KERNEL(vor_blas_zgemvnoo, cdouble, n, 2, yes)
STEPPED_KERNEL(vor_blas_zgemvnaa, cdouble, n, 1)
UNIT_KERNEL(vor_blas_zgemvtoo, cdouble, t, 1, yes)
STEPPED_KERNEL(vor_blas_zgemvtaa, cdouble, t, 1)
UNIT_KERNEL(vor_blas_zgemvcoo, cdouble, c, 1, yes)
STEPPED_KERNEL(vor_blas_zgemvcaa, cdouble, c, 1)
UNIT_KERNEL(vor_blas_dgemvnoo_def, double, n, 2, no)
UNIT_KERNEL(vor_blas_dgemvtoo_def, double, t, 4, no)

#define REST(name, T)                                                                              \
    VOR_ENGINE void name PARAMS_GEMV_AA(T) {                                                       \
        const Op op = is_letter(trans, 'N')                     ? Op::n                            \
                      : !is_complex<T> || is_letter(trans, 'T') ? Op::t                            \
                                                                : Op::c;                           \
        rest(op, *rows, *n, *alpha, a, *lda, x, *incx, y, *incy);                                  \
    }
REST(vor_blas_sgemvpst, float)
REST(vor_blas_dgemvpst, double)
REST(vor_blas_cgemvpst, cfloat)
REST(vor_blas_zgemvpst, cdouble)

} // namespace vor::blas
