// tbsv: x := op(A)^-1 * x, A a triangular band.
//
// a      column j of the upper triangle: A(i, j) at row k + i - j; of the lower one: at row i - j
// A zero on the diagonal gives the infinities and NaNs of the division.
#include "blas/level2/entry.h"
#include "blas/level2/triangular.h"

namespace {

template <class Triangle, class T>
void tbsv(const Triangle& a, const char* trans, const char* diag, T* x, int incx) {
    vor::on_triangle(a, trans, diag, [&](auto op) {
        vor::on_vector(a.n, x, incx,
                       [&](auto v) { vor::triangular_solve<vor::PlainDivision, 1>(op, v); });
    });
}

} // namespace

#define MEMBER(p, P, T)                                                                            \
    LEVEL2(p, P, T, tbsv, TBSV, TBMV,                                                              \
           tbsv(vor::BandTriangle<const T>{vor::is_letter(uplo, 'U'), *n, *k, a, *lda}, trans,     \
                diag, x, *incx))
MEMBER(s, S, float)
MEMBER(d, D, double)
MEMBER(c, C, vor::cfloat)
MEMBER(z, Z, vor::cdouble)
