// tbsv: x := op(A)^-1 * x, A a triangular band.
//
// a      column j of the upper triangle: A(i, j) at row k + i - j; of the lower one: at row i - j
// A zero on the diagonal gives the infinities and NaNs of the division.
#include "blas/level2/entry.h"
#include "blas/level2/triangular_operator.h"

namespace vor::blas {
namespace {

template <class Triangle, class T>
void tbsv(const Triangle& a, const char* trans, const char* diag, T* x, int incx) {
    on_triangle(a, trans, diag, [&](auto op) {
        on_vector(a.n, x, incx, [&](auto v) { triangular_solve<PlainDivision, 1>(op, v); });
    });
}

} // namespace

#define TBSV(name, NAME, engine, check, T)                                                         \
    LEVEL2(                                                                                        \
        name, NAME, engine, check, PARAMS_TBMV(T), ARGS_TBMV,                                      \
        tbsv(BandTriangle<const T>{is_letter(uplo, 'U'), *n, *k, a, *lda}, trans, diag, x, *incx))
TBSV(stbsv, STBSV, vor_blas_stbsv, vor_blas_errchk_stbsv, float)
TBSV(dtbsv, DTBSV, vor_blas_dtbsv, vor_blas_errchk_dtbsv, double)
TBSV(ctbsv, CTBSV, vor_blas_ctbsv, vor_blas_errchk_ctbsv, cfloat)
TBSV(ztbsv, ZTBSV, vor_blas_ztbsv, vor_blas_errchk_ztbsv, cdouble)

} // namespace vor::blas
