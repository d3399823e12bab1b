// gemv, gbmv and the rank-one updates of a general matrix for C.
//
// Row-major, A lies there as A^T: sizes and diagonals change places and the letter turns round. The
// conjugate transpose of a complex A is conj(A^T), which the entries have no letter for: the vectors are
// conjugated. An update takes its vectors in the other order, and conj(y), which now comes first, as a
// copy.
#include "blas/cblas/conjugation.h"

using namespace vor;
using namespace vor::cblas;

namespace {

void swap(int& a, int& b) {
    const int old = a;
    a = b;
    b = old;
}

// y := alpha * op(A) * x + beta * y, where the entry sees m rows and n columns:
// entry(letter, alpha, x, incx, beta) calls it.
template <class T, class Entry>
void product(const char* name, CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n,
             Scalar<T> alpha, const Array<T>* x, int incx, Scalar<T> beta, Array<T>* y, int incy,
             Entry entry) {
    if (order == CblasColMajor) return entry(letter(trans), alpha, x, incx, beta);
    if constexpr (is_complex<T>)
        if (trans == CblasConjTrans)
            return conjugated_product<T>(
                name, alpha, n, x, incx, beta, m, y, incy,
                [&](const auto&... rest) { entry(letter(CblasNoTrans), rest...); });
    entry(transposed(trans), alpha, x, incx, beta);
}

// Complex row-major products look at the letter last.
template <bool is_complex>
constexpr auto gemv_tests(bool row_major) {
    const Test trans = any_transpose(2), m = count(3), n = count(4),
               lda = leading(7, row_major ? 4 : 3), incx = step(9), incy = step(12);
    return is_complex && row_major ? Row{kOrder, m, n, lda, incx, incy, trans}
                                   : Row{kOrder, trans, m, n, lda, incx, incy};
}

template <class T, class Entry>
void gemv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n,
          Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,
          Array<T>* y, int incy) {
    if (unfit<gemv_tests<is_complex<T>>>(name, order, trans, m, n, alpha, a, lda, x, incx, beta, y,
                                         incy))
        return;
    if (order == CblasRowMajor) swap(m, n);
    product<T>(name, order, trans, m, n, alpha, x, incx, beta, y, incy,
               [&](const char* op, const auto& alpha_, auto x_, int incx_, const auto& beta_) {
                   call(entry, op, m, n, alpha_, a, lda, x_, incx_, beta_, y, incy);
               });
}

template <bool is_complex>
constexpr auto gbmv_tests(bool row_major) {
    const Test trans = any_transpose(2), m = count(3), n = count(4), kl = count(5), ku = count(6),
               lda = leading_band(9, 5, 6), incx = step(11), incy = step(14);
    return is_complex && row_major ? Row{kOrder, m, n, kl, ku, lda, incx, incy, trans}
                                   : Row{kOrder, trans, m, n, kl, ku, lda, incx, incy};
}

template <class T, class Entry>
void gbmv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n,
          int kl, int ku, Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* x, int incx,
          Scalar<T> beta, Array<T>* y, int incy) {
    if (unfit<gbmv_tests<is_complex<T>>>(name, order, trans, m, n, kl, ku, alpha, a, lda, x, incx,
                                         beta, y, incy))
        return;
    if (order == CblasRowMajor) swap(m, n), swap(kl, ku);
    product<T>(name, order, trans, m, n, alpha, x, incx, beta, y, incy,
               [&](const char* op, const auto& alpha_, auto x_, int incx_, const auto& beta_) {
                   call(entry, op, m, n, kl, ku, alpha_, a, lda, x_, incx_, beta_, y, incy);
               });
}

// Updates A := A + alpha * x * op(y).
constexpr auto ger_tests(bool row_major) {
    return Row{kOrder, count(2), count(3), leading(10, row_major ? 3 : 2), step(6), step(8)};
}

template <class T, class Entry>
void ger(const char* name, Entry* entry, CBLAS_ORDER order, int m, int n, Scalar<T> alpha,
         const Array<T>* x, int incx, const Array<T>* y, int incy, Array<T>* a, int lda) {
    if (unfit<ger_tests>(name, order, m, n, alpha, x, incx, y, incy, a, lda)) return;
    if (order == CblasRowMajor)
        call(entry, n, m, alpha, y, incy, x, incx, a, lda);
    else
        call(entry, m, n, alpha, x, incx, y, incy, a, lda);
}

// `plain` is the entry that does not conjugate.
template <class T, class Entry>
void gerc(const char* name, Entry* entry, Entry* plain, CBLAS_ORDER order, int m, int n,
          const void* alpha, const void* x, int incx, const void* y, int incy, void* a, int lda) {
    if (unfit<ger_tests>(name, order, m, n, alpha, x, incx, y, incy, a, lda)) return;
    if (order == CblasColMajor) return call(entry, m, n, alpha, x, incx, y, incy, a, lda);
    const ConjugatedCopy<T> copy(name, n, y, incy);
    if (copy) call(plain, n, m, alpha, copy.data(), copy.inc(), x, incx, a, lda);
}

} // namespace

extern "C" {

#define GEMV(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n, Scalar<T> alpha,             \
              const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,             \
              Array<T>* y, int incy) {                                                             \
        gemv<T>(#name, entry, order, trans, m, n, alpha, a, lda, x, incx, beta, y, incy);          \
    }
GEMV(cblas_sgemv, sgemv, float)
GEMV(cblas_dgemv, dgemv, double)
GEMV(cblas_cgemv, cgemv, cfloat)
GEMV(cblas_zgemv, zgemv, cdouble)

#define GBMV(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n, int kl, int ku,              \
              Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* x, int incx,            \
              Scalar<T> beta, Array<T>* y, int incy) {                                             \
        gbmv<T>(#name, entry, order, trans, m, n, kl, ku, alpha, a, lda, x, incx, beta, y, incy);  \
    }
GBMV(cblas_sgbmv, sgbmv, float)
GBMV(cblas_dgbmv, dgbmv, double)
GBMV(cblas_cgbmv, cgbmv, cfloat)
GBMV(cblas_zgbmv, zgbmv, cdouble)

#define UPDATE(name, T, update, ...)                                                               \
    void name(CBLAS_ORDER order, int m, int n, Scalar<T> alpha, const Array<T>* x, int incx,       \
              const Array<T>* y, int incy, Array<T>* a, int lda) {                                 \
        update<T>(#name, __VA_ARGS__, order, m, n, alpha, x, incx, y, incy, a, lda);               \
    }
UPDATE(cblas_sger, float, ger, sger)
UPDATE(cblas_dger, double, ger, dger)
UPDATE(cblas_cgeru, cfloat, ger, cgeru)
UPDATE(cblas_zgeru, cdouble, ger, zgeru)
UPDATE(cblas_cgerc, cfloat, gerc, cgerc, cgeru)
UPDATE(cblas_zgerc, cdouble, gerc, zgerc, zgeru)
}
