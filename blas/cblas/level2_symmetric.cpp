// Products and updates of symmetric and Hermitian matrices for C: full, band and packed triangles.
//
// Row-major, the entry sees A^T, whose other triangle is stored. A symmetric A is its transpose; of a
// Hermitian one the transpose is conj(A): products conjugate the vectors, updates take conjugated copies,
//   conj(x x^H) = conj(x) conj(x)^H,
//   conj(alpha x y^H + conj(alpha) y x^H) = alpha conj(y) conj(x)^H + conj(alpha) conj(x) conj(y)^H.
//
// `Ld... lda` is the leading dimension of a full triangle, and nothing for a packed one.
#include "blas/cblas/conjugation.h"

using namespace vor;
using namespace vor::cblas;

namespace {

// The letter of the triangle as the entry sees it.
const char* seen(CBLAS_ORDER order, CBLAS_UPLO uplo) {
    return order == CblasRowMajor ? other(uplo) : letter(uplo);
}

// y := alpha * A * x + beta * y: entry(letter, alpha, x, incx, beta) calls it.
template <class T, class Entry>
void product(const char* name, CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha,
             const Array<T>* x, int incx, Scalar<T> beta, Array<T>* y, int incy, Entry entry) {
    if constexpr (is_complex<T>)
        if (order == CblasRowMajor)
            return conjugated_product<T>(name, alpha, n, x, incx, beta, n, y, incy,
                                         [&](const auto&... rest) { entry(other(uplo), rest...); });
    entry(seen(order, uplo), alpha, x, incx, beta);
}

template <class T, class Entry, class... Ld>
void symv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, int n,
          Scalar<T> alpha, const Array<T>* x, int incx, Scalar<T> beta, Array<T>* y, int incy,
          const Array<T>* a, Ld... lda) {
    if (unfit(name, {{is_order(order), 1},
                     {is_uplo(uplo), 2},
                     {n >= 0, 3},
                     {(leads(lda, n) && ...), 6},
                     {incx != 0, 7 + sizeof...(lda)},
                     {incy != 0, 10 + sizeof...(lda)}}))
        return;
    product<T>(name, order, uplo, n, alpha, x, incx, beta, y, incy,
               [&](const char* half, const auto& alpha_, auto x_, int incx_, const auto& beta_) {
                   call(entry, half, n, alpha_, a, lda..., x_, incx_, beta_, y, incy);
               });
}

template <class T, class Entry>
void sbmv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, int n, int k,
          Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,
          Array<T>* y, int incy) {
    if (unfit(name, {{is_order(order), 1},
                     {is_uplo(uplo), 2},
                     {n >= 0, 3},
                     {k >= 0, 4},
                     {leads_band(lda, k), 7},
                     {incx != 0, 9},
                     {incy != 0, 12}}))
        return;
    product<T>(name, order, uplo, n, alpha, x, incx, beta, y, incy,
               [&](const char* half, const auto& alpha_, auto x_, int incx_, const auto& beta_) {
                   call(entry, half, n, k, alpha_, a, lda, x_, incx_, beta_, y, incy);
               });
}

// A := A + alpha * x * x^H: entry(letter, x, incx) calls it.
template <class T, class Entry>
void update(const char* name, CBLAS_ORDER order, CBLAS_UPLO uplo, int n, const Array<T>* x,
            int incx, Entry entry) {
    if constexpr (is_complex<T>)
        if (order == CblasRowMajor) {
            const ConjugatedCopy<T> copy(name, n, x, incx);
            if (copy) entry(other(uplo), copy.data(), copy.inc());
            return;
        }
    entry(seen(order, uplo), x, incx);
}

template <class T, class Entry, class... Ld>
void syr(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, int n, real_t<T> alpha,
         const Array<T>* x, int incx, Array<T>* a, Ld... lda) {
    if (unfit(name, {{is_order(order), 1},
                     {is_uplo(uplo), 2},
                     {n >= 0, 3},
                     {(leads(lda, n) && ...), 8},
                     {incx != 0, 6}}))
        return;
    update<T>(name, order, uplo, n, x, incx, [&](const char* half, auto x_, int incx_) {
        call(entry, half, n, alpha, x_, incx_, a, lda...);
    });
}

// A := A + alpha * x * y^H + conj(alpha) * y * x^H: entry(letter, x, incx, y, incy) calls it.
template <class T, class Entry>
void update2(const char* name, CBLAS_ORDER order, CBLAS_UPLO uplo, int n, const Array<T>* x,
             int incx, const Array<T>* y, int incy, Entry entry) {
    if constexpr (is_complex<T>)
        if (order == CblasRowMajor) {
            const ConjugatedCopy<T> first(name, n, y, incy);
            if (!first) return;
            const ConjugatedCopy<T> second(name, n, x, incx);
            if (second) entry(other(uplo), first.data(), first.inc(), second.data(), second.inc());
            return;
        }
    entry(seen(order, uplo), x, incx, y, incy);
}

template <class T, class Entry, class... Ld>
void syr2(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, int n,
          Scalar<T> alpha, const Array<T>* x, int incx, const Array<T>* y, int incy, Array<T>* a,
          Ld... lda) {
    if (unfit(name, {{is_order(order), 1},
                     {is_uplo(uplo), 2},
                     {n >= 0, 3},
                     {(leads(lda, n) && ...), 10},
                     {incx != 0, 6},
                     {incy != 0, 8}}))
        return;
    update2<T>(name, order, uplo, n, x, incx, y, incy,
               [&](const char* half, auto x_, int incx_, auto y_, int incy_) {
                   call(entry, half, n, alpha, x_, incx_, y_, incy_, a, lda...);
               });
}

} // namespace

extern "C" {

#define PRODUCTS(T, full, band, packed)                                                            \
    void cblas_##full(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha,                  \
                      const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,     \
                      Array<T>* y, int incy) {                                                     \
        symv<T>("cblas_" #full, full, order, uplo, n, alpha, x, incx, beta, y, incy, a, lda);      \
    }                                                                                              \
    void cblas_##band(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, int k, Scalar<T> alpha,           \
                      const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,     \
                      Array<T>* y, int incy) {                                                     \
        sbmv<T>("cblas_" #band, band, order, uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);   \
    }                                                                                              \
    void cblas_##packed(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha,                \
                        const Array<T>* ap, const Array<T>* x, int incx, Scalar<T> beta,           \
                        Array<T>* y, int incy) {                                                   \
        symv<T>("cblas_" #packed, packed, order, uplo, n, alpha, x, incx, beta, y, incy, ap);      \
    }
PRODUCTS(float, ssymv, ssbmv, sspmv)
PRODUCTS(double, dsymv, dsbmv, dspmv)
PRODUCTS(cfloat, chemv, chbmv, chpmv)
PRODUCTS(cdouble, zhemv, zhbmv, zhpmv)

#define UPDATES(T, full, packed)                                                                   \
    void cblas_##full(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, real_t<T> alpha,                  \
                      const Array<T>* x, int incx, Array<T>* a, int lda) {                         \
        syr<T>("cblas_" #full, full, order, uplo, n, alpha, x, incx, a, lda);                      \
    }                                                                                              \
    void cblas_##packed(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, real_t<T> alpha,                \
                        const Array<T>* x, int incx, Array<T>* ap) {                               \
        syr<T>("cblas_" #packed, packed, order, uplo, n, alpha, x, incx, ap);                      \
    }                                                                                              \
    void cblas_##full##2(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha,               \
                         const Array<T>* x, int incx, const Array<T>* y, int incy, Array<T>* a,    \
                         int lda) {                                                                \
        syr2<T>("cblas_" #full "2", full##2, order, uplo, n, alpha, x, incx, y, incy, a, lda);     \
    }                                                                                              \
    void cblas_##packed##2(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha,             \
                           const Array<T>* x, int incx, const Array<T>* y, int incy,               \
                           Array<T>* ap) {                                                         \
        syr2<T>("cblas_" #packed "2", packed##2, order, uplo, n, alpha, x, incx, y, incy, ap);     \
    }
UPDATES(float, ssyr, sspr)
UPDATES(double, dsyr, dspr)
UPDATES(cfloat, cher, chpr)
UPDATES(cdouble, zher, zhpr)
}
