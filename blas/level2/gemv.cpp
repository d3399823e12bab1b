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

namespace vor::blas {
namespace {

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
    if (m < 1 || *n < 1 || (is_zero(*alpha) && is_one(*beta))) return;
    const bool plain = is_letter(trans, 'N');
    const int lenx = plain ? *n : m, leny = plain ? m : *n;
    scale(leny, *beta, y, *incy);
    if (is_zero(*alpha)) return;

    const bool unit = *incx == 1 && *incy == 1;
    x = walk_start(x, lenx, *incx);
    y = walk_start(y, leny, *incy);
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

// The kernels of an operation, and for complex types those of the conjugate.
template <class T>
Kernels<T> kernels_for(const char* trans, int m, int n);
template <>
Kernels<float> kernels_for(const char* trans, int, int) {
    if (is_letter(trans, 'N')) return {vor_blas_sgemvnoo, vor_blas_sgemvnaa, vor_blas_sgemvpst};
    return {vor_blas_sgemvtoo, vor_blas_sgemvtaa, vor_blas_sgemvpst};
}
template <>
Kernels<double> kernels_for(const char* trans, int m, int n) {
    if (is_letter(trans, 'N'))
        return {without_prefetch(kPlainN, m, n) ? vor_blas_dgemvnoo_def : vor_blas_dgemvnoo,
                vor_blas_dgemvnaa, vor_blas_dgemvpst};
    return {without_prefetch(kPlainT, m, n) ? vor_blas_dgemvtoo_def : vor_blas_dgemvtoo,
            vor_blas_dgemvtaa, vor_blas_dgemvpst};
}
template <>
Kernels<cfloat> kernels_for(const char* trans, int, int) {
    if (is_letter(trans, 'N')) return {vor_blas_cgemvnoo, vor_blas_cgemvnaa, vor_blas_cgemvpst};
    if (is_letter(trans, 'T')) return {vor_blas_cgemvtoo, vor_blas_cgemvtaa, vor_blas_cgemvpst};
    return {vor_blas_cgemvcoo, vor_blas_cgemvcaa, vor_blas_cgemvpst};
}
template <>
Kernels<cdouble> kernels_for(const char* trans, int, int) {
    if (is_letter(trans, 'N')) return {vor_blas_zgemvnoo, vor_blas_zgemvnaa, vor_blas_zgemvpst};
    if (is_letter(trans, 'T')) return {vor_blas_zgemvtoo, vor_blas_zgemvtaa, vor_blas_zgemvpst};
    return {vor_blas_zgemvcoo, vor_blas_zgemvcaa, vor_blas_zgemvpst};
}

} // namespace

#define GEMV(name, NAME, engine, check, T)                                                         \
    LEVEL2(                                                                                        \
        name, NAME, engine, check, PARAMS_GEMV(T), ARGS_GEMV,                                      \
        gemv(kernels_for<T>(trans, *m, *n), trans, *m, n, alpha, a, lda, x, incx, beta, y, incy))
GEMV(sgemv, SGEMV, vor_blas_sgemv, vor_blas_errchk_sgemv, float)
GEMV(dgemv, DGEMV, vor_blas_dgemv, vor_blas_errchk_dgemv, double)
GEMV(cgemv, CGEMV, vor_blas_cgemv, vor_blas_errchk_cgemv, cfloat)
GEMV(zgemv, ZGEMV, vor_blas_zgemv, vor_blas_errchk_zgemv, cdouble)

} // namespace vor::blas
