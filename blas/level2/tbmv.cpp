// tbmv: x := op(A) * x, A a triangular band.
//
// a      column j of the upper triangle: A(i, j) at row k + i - j; of the lower one: at row i - j
#include "blas/level2/entry.h"
#include "blas/level2/triangular_operator.h"

namespace vor::blas {
namespace {

template <class Triangle, class T>
void tbmv(const Triangle& a, const char* trans, const char* diag, T* x, int incx) {
    on_triangle(a, trans, diag, [&](auto op) {
        on_vector(a.n, x, incx, [&](auto v) { triangular_product<1>(op, v); });
    });
}

} // namespace

#define TBMV(name, NAME, engine, check, T)                                                         \
    LEVEL2(                                                                                        \
        name, NAME, engine, check, PARAMS_TBMV(T), ARGS_TBMV,                                      \
        tbmv(BandTriangle<const T>{is_letter(uplo, 'U'), *n, *k, a, *lda}, trans, diag, x, *incx))
TBMV(stbmv, STBMV, vor_blas_stbmv, vor_blas_errchk_stbmv, float)
TBMV(dtbmv, DTBMV, vor_blas_dtbmv, vor_blas_errchk_dtbmv, double)
TBMV(ctbmv, CTBMV, vor_blas_ctbmv, vor_blas_errchk_ctbmv, cfloat)
TBMV(ztbmv, ZTBMV, vor_blas_ztbmv, vor_blas_errchk_ztbmv, cdouble)

} // namespace vor::blas
