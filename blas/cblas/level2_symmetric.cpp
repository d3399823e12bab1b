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

template <bool packed>
constexpr auto symv_tests(bool) {
    if constexpr (packed)
        return Row{kOrder, triangle(2), count(3), step(7), step(10)};
    else
        return Row{kOrder, triangle(2), count(3), leading(6, 3), step(8), step(11)};
}

template <class T, class Entry, class... Ld>
void symv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, int n,
          Scalar<T> alpha, const Array<T>* x, int incx, Scalar<T> beta, Array<T>* y, int incy,
          const Array<T>* a, Ld... lda) {
    if (unfit<symv_tests<sizeof...(lda) == 0>>(name, order, uplo, n, alpha, a, lda..., x, incx,
                                               beta, y, incy))
        return;
    product<T>(name, order, uplo, n, alpha, x, incx, beta, y, incy,
               [&](const char* half, const auto& alpha_, auto x_, int incx_, const auto& beta_) {
                   call(entry, half, n, alpha_, a, lda..., x_, incx_, beta_, y, incy);
               });
}

constexpr auto sbmv_tests(bool) {
    return Row{kOrder, triangle(2), count(3), count(4), leading_band(7, 4), step(9), step(12)};
}

template <class T, class Entry>
void sbmv(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, int n, int k,
          Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,
          Array<T>* y, int incy) {
    if (unfit<sbmv_tests>(name, order, uplo, n, k, alpha, a, lda, x, incx, beta, y, incy)) return;
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

template <bool packed>
constexpr auto syr_tests(bool) {
    if constexpr (packed)
        return Row{kOrder, triangle(2), count(3), step(6)};
    else
        return Row{kOrder, triangle(2), count(3), leading(8, 3), step(6)};
}

template <class T, class Entry, class... Ld>
void syr(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, int n, real_t<T> alpha,
         const Array<T>* x, int incx, Array<T>* a, Ld... lda) {
    if (unfit<syr_tests<sizeof...(lda) == 0>>(name, order, uplo, n, alpha, x, incx, a, lda...))
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

template <bool packed>
constexpr auto syr2_tests(bool) {
    if constexpr (packed)
        return Row{kOrder, triangle(2), count(3), step(6), step(8)};
    else
        return Row{kOrder, triangle(2), count(3), leading(10, 3), step(6), step(8)};
}

template <class T, class Entry, class... Ld>
void syr2(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo, int n,
          Scalar<T> alpha, const Array<T>* x, int incx, const Array<T>* y, int incy, Array<T>* a,
          Ld... lda) {
    if (unfit<syr2_tests<sizeof...(lda) == 0>>(name, order, uplo, n, alpha, x, incx, y, incy, a,
                                               lda...))
        return;
    update2<T>(name, order, uplo, n, x, incx, y, incy,
               [&](const char* half, auto x_, int incx_, auto y_, int incy_) {
                   call(entry, half, n, alpha, x_, incx_, y_, incy_, a, lda...);
               });
}

} // namespace

extern "C" {

#define SYMV(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha, const Array<T>* a,       \
              int lda, const Array<T>* x, int incx, Scalar<T> beta, Array<T>* y, int incy) {       \
        symv<T>(#name, entry, order, uplo, n, alpha, x, incx, beta, y, incy, a, lda);              \
    }
SYMV(cblas_ssymv, ssymv, float)
SYMV(cblas_dsymv, dsymv, double)
SYMV(cblas_chemv, chemv, cfloat)
SYMV(cblas_zhemv, zhemv, cdouble)

#define SBMV(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, int k, Scalar<T> alpha,                   \
              const Array<T>* a, int lda, const Array<T>* x, int incx, Scalar<T> beta,             \
              Array<T>* y, int incy) {                                                             \
        sbmv<T>(#name, entry, order, uplo, n, k, alpha, a, lda, x, incx, beta, y, incy);           \
    }
SBMV(cblas_ssbmv, ssbmv, float)
SBMV(cblas_dsbmv, dsbmv, double)
SBMV(cblas_chbmv, chbmv, cfloat)
SBMV(cblas_zhbmv, zhbmv, cdouble)

#define SPMV(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha, const Array<T>* ap,      \
              const Array<T>* x, int incx, Scalar<T> beta, Array<T>* y, int incy) {                \
        symv<T>(#name, entry, order, uplo, n, alpha, x, incx, beta, y, incy, ap);                  \
    }
SPMV(cblas_sspmv, sspmv, float)
SPMV(cblas_dspmv, dspmv, double)
SPMV(cblas_chpmv, chpmv, cfloat)
SPMV(cblas_zhpmv, zhpmv, cdouble)

#define SYR(name, entry, T)                                                                        \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, real_t<T> alpha, const Array<T>* x,       \
              int incx, Array<T>* a, int lda) {                                                    \
        syr<T>(#name, entry, order, uplo, n, alpha, x, incx, a, lda);                              \
    }
SYR(cblas_ssyr, ssyr, float)
SYR(cblas_dsyr, dsyr, double)
SYR(cblas_cher, cher, cfloat)
SYR(cblas_zher, zher, cdouble)

#define SPR(name, entry, T)                                                                        \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, real_t<T> alpha, const Array<T>* x,       \
              int incx, Array<T>* ap) {                                                            \
        syr<T>(#name, entry, order, uplo, n, alpha, x, incx, ap);                                  \
    }
SPR(cblas_sspr, sspr, float)
SPR(cblas_dspr, dspr, double)
SPR(cblas_chpr, chpr, cfloat)
SPR(cblas_zhpr, zhpr, cdouble)

#define SYR2(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha, const Array<T>* x,       \
              int incx, const Array<T>* y, int incy, Array<T>* a, int lda) {                       \
        syr2<T>(#name, entry, order, uplo, n, alpha, x, incx, y, incy, a, lda);                    \
    }
SYR2(cblas_ssyr2, ssyr2, float)
SYR2(cblas_dsyr2, dsyr2, double)
SYR2(cblas_cher2, cher2, cfloat)
SYR2(cblas_zher2, zher2, cdouble)

#define SPR2(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, int n, Scalar<T> alpha, const Array<T>* x,       \
              int incx, const Array<T>* y, int incy, Array<T>* ap) {                               \
        syr2<T>(#name, entry, order, uplo, n, alpha, x, incx, y, incy, ap);                        \
    }
SPR2(cblas_sspr2, sspr2, float)
SPR2(cblas_dspr2, dspr2, double)
SPR2(cblas_chpr2, chpr2, cfloat)
SPR2(cblas_zhpr2, zhpr2, cdouble)
}
