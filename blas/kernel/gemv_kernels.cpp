// The gemv kernels: see gemv_kernels.h.
#include "blas/kernel/gemv_kernels.h"
#include "blas/letters.h"
#include "blas/level2/columns.h"
#include "serv/entry.h"

namespace {

using vor::Columns;
using vor::kStripRows;
using vor::number;
using vor::Numbers;

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
        for (int q = 0; q < columns; ++q)
            _mm_prefetch(reinterpret_cast<const char*>(a.first[q]) + at, _MM_HINT_T0);
}

template <Op op, int columns, class T, class X, class Y>
[[gnu::always_inline]] inline void multiply_columns(int rows, T alpha, const Columns<columns, T>& a,
                                                    X x, Y y) {
    using V = vor::wide_t<T>;
    Numbers<columns, V> t;
    if constexpr (op == Op::n) {
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q) t.of[q] = number<V>(alpha) * number<V>(x[q]);
        vor::add_columns(rows, a, t, y);
    } else {
        vor::dot_columns<op == Op::c>(rows, a, x, t);
#pragma GCC unroll 4
        for (int q = 0; q < columns; ++q)
            y[q] = vor::element<T>(number<V>(y[q]) + number<V>(alpha) * t.of[q]);
    }
}

// Columns in groups, then singly.
template <Op op, int group, Prefetch prefetch, class T, class X, class Y>
[[gnu::always_inline]] inline void multiply(int rows, int n, T alpha, const T* a, int lda, X x,
                                            Y y) {
    const auto at = [](auto vector, int j) { return op == Op::n ? vector.from(j) : vector; };
    const auto across = [](auto vector, int j) { return op == Op::n ? vector : vector.from(j); };
    const auto step = [&]<int columns>(std::integral_constant<int, columns>, int j) {
        const auto part = Columns<columns, T>::spaced(a + j * lda, lda);
        if (prefetch == Prefetch::yes) prefetch_strip(part);
        multiply_columns<op>(rows, alpha, part, at(x, j), across(y, j));
    };
    int j = 0;
    for (; j + group <= n; j += group) step(std::integral_constant<int, group>{}, j);
    if (group > 1)
        for (; j < n; ++j) step(std::integral_constant<int, 1>{}, j);
}

template <Op op, class T>
void rest(int rows, int n, T alpha, const T* a, int lda, const T* x, int incx, T* y, int incy) {
    // Complex sums run singly: one fills the x87 stack.
    constexpr int kGroup = vor::is_complex<T> && op != Op::n ? 1 : 4;
    if (incx == 1 && incy == 1)
        multiply<op, kGroup, Prefetch::no>(rows, n, alpha, a, lda,
                                           vor::Vector<const T, vor::Unit>{x, {}},
                                           vor::Vector<T, vor::Unit>{y, {}});
    else
        multiply<op, kGroup, Prefetch::no>(rows, n, alpha, a, lda,
                                           vor::Vector<const T, int>{x, incx},
                                           vor::Vector<T, int>{y, incy});
}

} // namespace

#define UNIT_KERNEL(name, T, op, group, prefetch)                                                  \
    VOR_ENGINE void vor_blas_##name PARAMS_GEMV_OO(T) {                                            \
        multiply<Op::op, group, Prefetch::prefetch>(kStripRows, *n, *alpha, a, *lda,               \
                                                    vor::Vector<const T, vor::Unit>{x, {}},        \
                                                    vor::Vector<T, vor::Unit>{y, {}});             \
    }
#define STEPPED_KERNEL(name, T, op, group)                                                         \
    VOR_ENGINE void vor_blas_##name PARAMS_GEMV_AA(T) {                                            \
        multiply<Op::op, group, Prefetch::yes>(kStripRows, *n, *alpha, a, *lda,                    \
                                               vor::Vector<const T, int>{x, *incx},                \
                                               vor::Vector<T, int>{y, *incy});                     \
    }
// n kernels round y after each group. The sums of t and c kernels are those of single columns: four of
// them side by side hide the latency of the addition, a complex one fills the x87 stack.
#define KERNELS(p, T, op, unit_group, stepped_group)                                               \
    UNIT_KERNEL(p##gemv##op##oo, T, op, unit_group, yes)                                           \
    STEPPED_KERNEL(p##gemv##op##aa, T, op, stepped_group)
KERNELS(s, float, n, 4, 4)
KERNELS(s, float, t, 4, 4)
KERNELS(d, double, n, 2, 2)
KERNELS(d, double, t, 4, 4)
KERNELS(c, vor::cfloat, n, 2, 2)
KERNELS(c, vor::cfloat, t, 1, 1)
KERNELS(c, vor::cfloat, c, 1, 1)
KERNELS(z, vor::cdouble, n, 2, 1)
KERNELS(z, vor::cdouble, t, 1, 1)
KERNELS(z, vor::cdouble, c, 1, 1)
UNIT_KERNEL(dgemvnoo_def, double, n, 2, no)
UNIT_KERNEL(dgemvtoo_def, double, t, 4, no)

#define REST(p, T)                                                                                 \
    VOR_ENGINE void vor_blas_##p##gemvpst PARAMS_GEMV_AA(T) {                                      \
        const auto body = vor::is_letter(trans, 'N')                          ? rest<Op::n, T>     \
                          : !vor::is_complex<T> || vor::is_letter(trans, 'T') ? rest<Op::t, T>     \
                                                                              : rest<Op::c, T>;    \
        body(*rows, *n, *alpha, a, *lda, x, *incx, y, *incy);                                      \
    }
REST(s, float)
REST(d, double)
REST(c, vor::cfloat)
REST(z, vor::cdouble)
