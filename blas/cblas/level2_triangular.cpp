// Products and solves with triangular matrices and a vector for C: full, band and packed triangles.
//
// Row-major, the entry sees A^T, whose other triangle is stored, and the letter turns round. The
// conjugate transpose of a complex A is conj(A^T): the vector is conjugated in place before and after.
#include "blas/cblas/conjugation.h"

using namespace vor;
using namespace vor::cblas;

namespace {

// x := op(A) * x or op(A)^-1 * x: entry(uplo, trans, diag) calls it.
template <class T, class Entry>
void apply(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,
           Array<T>* x, int incx, Entry entry) {
    if (order == CblasColMajor) return entry(letter(uplo), letter(trans), letter(diag));
    if constexpr (is_complex<T>)
        if (trans == CblasConjTrans) {
            const ConjugatedInPlace<T> turned(n, x, incx);
            return entry(other(uplo), letter(CblasNoTrans), letter(diag));
        }
    entry(other(uplo), transposed(trans), letter(diag));
}

template <bool packed>
constexpr auto trmv_tests(bool) {
    const Test uplo = triangle(2), trans = any_transpose(3), diag = diagonal(4), n = count(5);
    if constexpr (packed)
        return Row{kOrder, uplo, trans, diag, n, step(8)};
    else
        return Row{kOrder, uplo, trans, diag, n, leading(7, 5), step(9)};
}

// `lda` is the leading dimension of a full triangle, and nothing for a packed one.
template <class T, class Entry, class... Ld>
void trmv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans,
          CBLAS_DIAG diag, int n, Array<T>* x, int incx, const Array<T>* a, Ld... lda) {
    if (unfit<trmv_tests<sizeof...(lda) == 0>>(name, order, uplo, trans, diag, n, a, lda..., x,
                                               incx))
        return;
    apply<T>(order, uplo, trans, diag, n, x, incx,
             [&](const char* half, const char* op, const char* diagonal) {
                 call(entry, half, op, diagonal, n, a, lda..., x, incx);
             });
}

constexpr auto tbmv_tests(bool) {
    return Row{kOrder,   triangle(2), any_transpose(3),   diagonal(4),
               count(5), count(6),    leading_band(8, 6), step(10)};
}

template <class T, class Entry>
void tbmv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans,
          CBLAS_DIAG diag, int n, int k, const Array<T>* a, int lda, Array<T>* x, int incx) {
    if (unfit<tbmv_tests>(name, order, uplo, trans, diag, n, k, a, lda, x, incx)) return;
    apply<T>(order, uplo, trans, diag, n, x, incx,
             [&](const char* half, const char* op, const char* diagonal) {
                 call(entry, half, op, diagonal, n, k, a, lda, x, incx);
             });
}

} // namespace

extern "C" {

// Solves have the arguments of products.
#define TRMV(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,   \
              const Array<T>* a, int lda, Array<T>* x, int incx) {                                 \
        trmv<T>(#name, entry, order, uplo, trans, diag, n, x, incx, a, lda);                       \
    }
TRMV(cblas_strmv, strmv, float)
TRMV(cblas_dtrmv, dtrmv, double)
TRMV(cblas_ctrmv, ctrmv, cfloat)
TRMV(cblas_ztrmv, ztrmv, cdouble)
TRMV(cblas_strsv, strsv, float)
TRMV(cblas_dtrsv, dtrsv, double)
TRMV(cblas_ctrsv, ctrsv, cfloat)
TRMV(cblas_ztrsv, ztrsv, cdouble)

#define TBMV(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,   \
              int k, const Array<T>* a, int lda, Array<T>* x, int incx) {                          \
        tbmv<T>(#name, entry, order, uplo, trans, diag, n, k, a, lda, x, incx);                    \
    }
TBMV(cblas_stbmv, stbmv, float)
TBMV(cblas_dtbmv, dtbmv, double)
TBMV(cblas_ctbmv, ctbmv, cfloat)
TBMV(cblas_ztbmv, ztbmv, cdouble)
TBMV(cblas_stbsv, stbsv, float)
TBMV(cblas_dtbsv, dtbsv, double)
TBMV(cblas_ctbsv, ctbsv, cfloat)
TBMV(cblas_ztbsv, ztbsv, cdouble)

#define TPMV(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int n,   \
              const Array<T>* ap, Array<T>* x, int incx) {                                         \
        trmv<T>(#name, entry, order, uplo, trans, diag, n, x, incx, ap);                           \
    }
TPMV(cblas_stpmv, stpmv, float)
TPMV(cblas_dtpmv, dtpmv, double)
TPMV(cblas_ctpmv, ctpmv, cfloat)
TPMV(cblas_ztpmv, ztpmv, cdouble)
TPMV(cblas_stpsv, stpsv, float)
TPMV(cblas_dtpsv, dtpsv, double)
TPMV(cblas_ctpsv, ctpsv, cfloat)
TPMV(cblas_ztpsv, ztpsv, cdouble)
}
