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

template <class T, class Entry>
void gemv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n,
          Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,
          Array<T>* y, int incy) {
    const bool row_major = order == CblasRowMajor;
    const bool letter_last = is_complex<T> && row_major;
    if (unfit(name, {{is_order(order), 1},
                     {is_transpose(trans) || letter_last, 2},
                     {m >= 0, 3},
                     {n >= 0, 4},
                     {leads(lda, row_major ? n : m), 7},
                     {incx != 0, 9},
                     {incy != 0, 12},
                     {is_transpose(trans), 2}}))
        return;
    if (row_major) swap(m, n);
    product<T>(name, order, trans, m, n, alpha, x, incx, beta, y, incy,
               [&](const char* op, const auto& alpha_, auto x_, int incx_, const auto& beta_) {
                   call(entry, op, m, n, alpha_, a, lda, x_, incx_, beta_, y, incy);
               });
}

template <class T, class Entry>
void gbmv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n,
          int kl, int ku, Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* x, int incx,
          Scalar<T> beta, Array<T>* y, int incy) {
    const bool row_major = order == CblasRowMajor;
    const bool letter_last = is_complex<T> && row_major;
    if (unfit(name, {{is_order(order), 1},
                     {is_transpose(trans) || letter_last, 2},
                     {m >= 0, 3},
                     {n >= 0, 4},
                     {kl >= 0, 5},
                     {ku >= 0, 6},
                     {leads_band(lda, kl, ku), 9},
                     {incx != 0, 11},
                     {incy != 0, 14},
                     {is_transpose(trans), 2}}))
        return;
    if (row_major) swap(m, n), swap(kl, ku);
    product<T>(name, order, trans, m, n, alpha, x, incx, beta, y, incy,
               [&](const char* op, const auto& alpha_, auto x_, int incx_, const auto& beta_) {
                   call(entry, op, m, n, kl, ku, alpha_, a, lda, x_, incx_, beta_, y, incy);
               });
}

// The tests of an update A := A + alpha * x * op(y).
bool unfit_update(const char* name, CBLAS_ORDER order, int m, int n, int incx, int incy, int lda) {
    return unfit(name, {{is_order(order), 1},
                        {m >= 0, 2},
                        {n >= 0, 3},
                        {leads(lda, order == CblasRowMajor ? n : m), 10},
                        {incx != 0, 6},
                        {incy != 0, 8}});
}

template <class T, class Entry>
void ger(const char* name, Entry* entry, CBLAS_ORDER order, int m, int n, Scalar<T> alpha,
         const Array<T>* x, int incx, const Array<T>* y, int incy, Array<T>* a, int lda) {
    if (unfit_update(name, order, m, n, incx, incy, lda)) return;
    if (order == CblasRowMajor)
        call(entry, n, m, alpha, y, incy, x, incx, a, lda);
    else
        call(entry, m, n, alpha, x, incx, y, incy, a, lda);
}

// `plain` is the entry that does not conjugate.
template <class T, class Entry>
void gerc(const char* name, Entry* entry, Entry* plain, CBLAS_ORDER order, int m, int n,
          const void* alpha, const void* x, int incx, const void* y, int incy, void* a, int lda) {
    if (unfit_update(name, order, m, n, incx, incy, lda)) return;
    if (order == CblasColMajor) return call(entry, m, n, alpha, x, incx, y, incy, a, lda);
    const ConjugatedCopy<T> copy(name, n, y, incy);
    if (copy) call(plain, n, m, alpha, copy.data(), copy.inc(), x, incx, a, lda);
}

} // namespace

extern "C" {

#define PRODUCTS(p, T)                                                                             \
    void cblas_##p##gemv(CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n, Scalar<T> alpha,  \
                         const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,  \
                         Array<T>* y, int incy) {                                                  \
        gemv<T>("cblas_" #p "gemv", p##gemv, order, trans, m, n, alpha, a, lda, x, incx, beta, y,  \
                incy);                                                                             \
    }                                                                                              \
    void cblas_##p##gbmv(CBLAS_ORDER order, CBLAS_TRANSPOSE trans, int m, int n, int kl, int ku,   \
                         Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* x, int incx, \
                         Scalar<T> beta, Array<T>* y, int incy) {                                  \
        gbmv<T>("cblas_" #p "gbmv", p##gbmv, order, trans, m, n, kl, ku, alpha, a, lda, x, incx,   \
                beta, y, incy);                                                                    \
    }
PRODUCTS(s, float)
PRODUCTS(d, double)
PRODUCTS(c, cfloat)
PRODUCTS(z, cdouble)

#define UPDATE(name, T, update, ...)                                                               \
    void cblas_##name(CBLAS_ORDER order, int m, int n, Scalar<T> alpha, const Array<T>* x,         \
                      int incx, const Array<T>* y, int incy, Array<T>* a, int lda) {               \
        update<T>("cblas_" #name, __VA_ARGS__, order, m, n, alpha, x, incx, y, incy, a, lda);      \
    }
UPDATE(sger, float, ger, sger)
UPDATE(dger, double, ger, dger)
UPDATE(cgeru, cfloat, ger, cgeru)
UPDATE(zgeru, cdouble, ger, zgeru)
UPDATE(cgerc, cfloat, gerc, cgerc, cgeru)
UPDATE(zgerc, cdouble, gerc, zgerc, zgeru)
}
