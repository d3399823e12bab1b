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

// `lda` is the leading dimension of a full triangle, and nothing for a packed one.
template <class T, class Entry, class... Ld>
void trmv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans,
          CBLAS_DIAG diag, int n, Array<T>* x, int incx, const Array<T>* a, Ld... lda) {
    if (unfit(name, {{is_order(order), 1},
                     {is_uplo(uplo), 2},
                     {is_transpose(trans), 3},
                     {is_diag(diag), 4},
                     {n >= 0, 5},
                     {(leads(lda, n) && ...), 7},
                     {incx != 0, 8 + sizeof...(lda)}}))
        return;
    apply<T>(order, uplo, trans, diag, n, x, incx,
             [&](const char* half, const char* op, const char* diagonal) {
                 call(entry, half, op, diagonal, n, a, lda..., x, incx);
             });
}

template <class T, class Entry>
void tbmv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans,
          CBLAS_DIAG diag, int n, int k, const Array<T>* a, int lda, Array<T>* x, int incx) {
    if (unfit(name, {{is_order(order), 1},
                     {is_uplo(uplo), 2},
                     {is_transpose(trans), 3},
                     {is_diag(diag), 4},
                     {n >= 0, 5},
                     {k >= 0, 6},
                     {leads_band(lda, k), 8},
                     {incx != 0, 10}}))
        return;
    apply<T>(order, uplo, trans, diag, n, x, incx,
             [&](const char* half, const char* op, const char* diagonal) {
                 call(entry, half, op, diagonal, n, k, a, lda, x, incx);
             });
}

} // namespace

extern "C" {

// Solves have the arguments of products.
#define TRIANGULAR(T, full, band, packed)                                                          \
    void cblas_##full(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag,  \
                      int n, const Array<T>* a, int lda, Array<T>* x, int incx) {                  \
        trmv<T>("cblas_" #full, full, order, uplo, trans, diag, n, x, incx, a, lda);               \
    }                                                                                              \
    void cblas_##band(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, CBLAS_DIAG diag,  \
                      int n, int k, const Array<T>* a, int lda, Array<T>* x, int incx) {           \
        tbmv<T>("cblas_" #band, band, order, uplo, trans, diag, n, k, a, lda, x, incx);            \
    }                                                                                              \
    void cblas_##packed(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans,                 \
                        CBLAS_DIAG diag, int n, const Array<T>* ap, Array<T>* x, int incx) {       \
        trmv<T>("cblas_" #packed, packed, order, uplo, trans, diag, n, x, incx, ap);               \
    }
TRIANGULAR(float, strmv, stbmv, stpmv)
TRIANGULAR(double, dtrmv, dtbmv, dtpmv)
TRIANGULAR(cfloat, ctrmv, ctbmv, ctpmv)
TRIANGULAR(cdouble, ztrmv, ztbmv, ztpmv)
TRIANGULAR(float, strsv, stbsv, stpsv)
TRIANGULAR(double, dtrsv, dtbsv, dtpsv)
TRIANGULAR(cfloat, ctrsv, ctbsv, ctpsv)
TRIANGULAR(cdouble, ztrsv, ztbsv, ztpsv)
}
