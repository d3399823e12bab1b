// gemv: y := alpha * op(A) * x + beta * y, A m by n.
//
// m = 0 or n = 0         y is left alone, whatever beta is
// alpha = 0 and beta = 1 likewise
// alpha = 0              A and x are not read
//
// A is walked in strips of 64 rows, each by a kernel, so that the strip's piece of y (or of x, when A
// is transposed) stays in the first-level cache over all columns; the last rows go to a plain routine.
#include "blas/kernel/gemv_kernels.h"
#include "blas/letters.h"
#include "blas/level2/entry.h"
#include "blas/level2/gemv_engine.h"
#include "blas/level2/vector.h"

namespace {

using vor::kStripRows;

template <class T>
using UnitKernel = void PARAMS_GEMV_OO(T);
template <class T>
using SteppedKernel = void PARAMS_GEMV_AA(T);

// The kernels that serve one call.
template <class T>
struct Kernels {
    UnitKernel<T>* unit;
    SteppedKernel<T>* stepped;
    SteppedKernel<T>* rest;
};

// The shapes of A, in double precision, for which the kernels without prefetch serve: up to this many
// columns, rows in this range. They lie where the matrix stays in the second-level cache from one
// strip to the next, as the processors had it for which the tables were measured.
struct Shape {
    int columns, least_rows, most_rows;
};
constexpr int kAny = 0x7fffffff;
constexpr Shape kPlainN[] = {{60, 250, kAny}, {70, 250, 700},  {90, 250, 600},
                             {110, 250, 500}, {130, 250, 400}, {149, 250, 300}};
constexpr Shape kPlainT[] = {
    {60, 275, kAny}, {75, 275, 800}, {90, 275, 650}, {105, 275, 550}, {124, 275, 450}};

template <int count>
bool without_prefetch(const Shape (&shapes)[count], int m, int n) {
    for (const Shape& shape : shapes)
        if (n <= shape.columns) return m >= shape.least_rows && m <= shape.most_rows;
    return false;
}

template <class T>
void gemv(const Kernels<T>& kernels, const char* trans, int m, const int* n, const T* alpha,
          const T* a, const int* lda, const T* x, const int* incx, const T* beta, T* y,
          const int* incy) {
    if (m < 1 || *n < 1 || (vor::is_zero(*alpha) && vor::is_one(*beta))) return;
    const bool plain = vor::is_letter(trans, 'N');
    const int lenx = plain ? *n : m, leny = plain ? m : *n;
    vor::scale(leny, *beta, y, *incy);
    if (vor::is_zero(*alpha)) return;

    const bool unit = *incx == 1 && *incy == 1;
    x = vor::walk_start(x, lenx, *incx);
    y = vor::walk_start(y, leny, *incy);
    int row = 0;
    const auto strip = [&](int rows) {
        const T* const from = plain ? x : x + row * *incx;
        T* const to = plain ? y + row * *incy : y;
        if (rows < kStripRows)
            kernels.rest(trans, &rows, n, alpha, a + row, lda, from, incx, beta, to, incy);
        else if (unit)
            kernels.unit(trans, &rows, n, alpha, a + row, lda, from, incx, beta, to);
        else
            kernels.stepped(trans, &rows, n, alpha, a + row, lda, from, incx, beta, to, incy);
    };
    for (; m - row >= kStripRows; row += kStripRows) strip(kStripRows);
    if (row < m) strip(m - row);
}

} // namespace

#define KERNELS(p, op) vor_blas_##p##gemv##op##oo, vor_blas_##p##gemv##op##aa, vor_blas_##p##gemvpst
// The choice among two kernels for d, and among three operations for complex types.
template <class T>
static Kernels<T> kernels_for(const char* trans, int m, int n);

template <>
Kernels<float> kernels_for(const char* trans, int, int) {
    if (vor::is_letter(trans, 'N')) return {KERNELS(s, n)};
    return {KERNELS(s, t)};
}
template <>
Kernels<double> kernels_for(const char* trans, int m, int n) {
    Kernels<double> kernels = {KERNELS(d, t)};
    if (vor::is_letter(trans, 'N')) {
        kernels = {KERNELS(d, n)};
        if (without_prefetch(kPlainN, m, n)) kernels.unit = vor_blas_dgemvnoo_def;
    } else if (without_prefetch(kPlainT, m, n)) {
        kernels.unit = vor_blas_dgemvtoo_def;
    }
    return kernels;
}
template <>
Kernels<vor::cfloat> kernels_for(const char* trans, int, int) {
    if (vor::is_letter(trans, 'N')) return {KERNELS(c, n)};
    if (vor::is_letter(trans, 'T')) return {KERNELS(c, t)};
    return {KERNELS(c, c)};
}
template <>
Kernels<vor::cdouble> kernels_for(const char* trans, int, int) {
    if (vor::is_letter(trans, 'N')) return {KERNELS(z, n)};
    if (vor::is_letter(trans, 'T')) return {KERNELS(z, t)};
    return {KERNELS(z, c)};
}

#define MEMBER(p, P, T)                                                                            \
    LEVEL2(                                                                                        \
        p, P, T, gemv, GEMV, GEMV,                                                                 \
        gemv(kernels_for<T>(trans, *m, *n), trans, *m, n, alpha, a, lda, x, incx, beta, y, incy))
MEMBER(s, S, float)
MEMBER(d, D, double)
MEMBER(c, C, vor::cfloat)
MEMBER(z, Z, vor::cdouble)
