// The Level 3 routines for C.
//
// Row-major, the entry sees the transposes of all matrices, and the transposed equation is of the same
// form: factors change places (B^T A^T), sides and triangles turn round, sizes change places. The
// values and sizes are tested before the order, the leading dimensions behind it.
#include "blas/cblas/interface.h"

#include "arith/number.h"

using namespace vor;
using namespace vor::cblas;

namespace {

constexpr auto gemm_tests(bool row_major) {
    const char m = 4, n = 5, k = 6;
    return Row{any_transpose(2),
               any_transpose(3),
               count(m),
               count(n),
               count(k),
               kOrder,
               row_major ? leading_by_value(9, 2, CblasNoTrans, k, m)
                         : leading_by_value(9, 2, CblasNoTrans, m, k),
               row_major ? leading_by_value(11, 3, CblasNoTrans, n, k)
                         : leading_by_value(11, 3, CblasNoTrans, k, n),
               leading(14, row_major ? n : m)};
}

template <class T, class Entry>
void gemm(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_TRANSPOSE transa,
          CBLAS_TRANSPOSE transb, int m, int n, int k, Scalar<T> alpha, const Array<T>* a, int lda,
          const Array<T>* b, int ldb, Scalar<T> beta, Array<T>* c, int ldc) {
    if (unfit<gemm_tests>(name, order, transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c,
                          ldc))
        return;
    if (order == CblasRowMajor)
        call(entry, letter(transb), letter(transa), n, m, k, alpha, b, ldb, a, lda, beta, c, ldc);
    else
        call(entry, letter(transa), letter(transb), m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

constexpr Test side(char argument) {
    return value(argument, CblasLeft, CblasRight);
}

constexpr auto symm_tests(bool row_major) {
    const char m = 4, n = 5, rows = row_major ? n : m;
    return Row{side(2),           triangle(3),      count(m),
               count(n),          kOrder,           leading_by_value(8, 2, CblasLeft, m, n),
               leading(10, rows), leading(13, rows)};
}

template <class T, class Entry>
void symm(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo,
          int m, int n, Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* b, int ldb,
          Scalar<T> beta, Array<T>* c, int ldc) {
    if (unfit<symm_tests>(name, order, side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc))
        return;
    if (order == CblasRowMajor)
        call(entry, other(side), other(uplo), n, m, alpha, a, lda, b, ldb, beta, c, ldc);
    else
        call(entry, letter(side), letter(uplo), m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

constexpr auto trmm_tests(bool row_major) {
    const char m = 6, n = 7;
    return Row{side(2),
               triangle(3),
               any_transpose(4),
               diagonal(5),
               count(m),
               count(n),
               kOrder,
               leading_by_value(10, 2, CblasLeft, m, n),
               leading(12, row_major ? n : m)};
}

template <class T, class Entry>
void trmm(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo,
          CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int m, int n, Scalar<T> alpha, const Array<T>* a,
          int lda, Array<T>* b, int ldb) {
    if (unfit<trmm_tests>(name, order, side, uplo, trans, diag, m, n, alpha, a, lda, b, ldb))
        return;
    if (order == CblasRowMajor)
        call(entry, other(side), other(uplo), letter(trans), letter(diag), n, m, alpha, a, lda, b,
             ldb);
    else
        call(entry, letter(side), letter(uplo), letter(trans), letter(diag), m, n, alpha, a, lda, b,
             ldb);
}

// The updates C := alpha op(A) op(A)^T + beta C of a symmetric C and their Hermitian twins: the type of
// beta (and of alpha, with one factor), the transposes that they take, and the letters of these when
// the entry sees transposes.
template <class T>
struct Symmetric {
    using Beta = Scalar<T>;
    static constexpr Test kTrans =
        is_complex<T> ? value(3, CblasNoTrans, CblasTrans) : any_transpose(3);
    static constexpr const char* const* turned = vor_serv_ftrans_r;
};
template <class T>
struct Hermitian {
    using Beta = real_t<T>;
    static constexpr Test kTrans = value(3, CblasNoTrans, CblasConjTrans);
    static constexpr const char* const* turned = vor_serv_ftrans_c;
};

constexpr Test factor_leads(char argument, bool row_major) {
    const char n = 4, k = 5;
    return row_major ? leading_by_value(argument, 3, CblasNoTrans, k, n)
                     : leading_by_value(argument, 3, CblasNoTrans, n, k);
}
template <class Kind>
constexpr auto rank_k_tests(bool row_major) {
    return Row{triangle(2),   Kind::kTrans, count(4), count(5), kOrder, factor_leads(8, row_major),
               leading(11, 4)};
}
template <class Kind>
constexpr auto rank_2k_tests(bool row_major) {
    return Row{triangle(2),
               Kind::kTrans,
               count(4),
               count(5),
               kOrder,
               factor_leads(8, row_major),
               factor_leads(10, row_major),
               leading(13, 4)};
}

// The letter as the entry sees it.
template <class Kind>
const char* seen_by(CBLAS_ORDER order, CBLAS_TRANSPOSE trans) {
    return order == CblasRowMajor ? Kind::turned[trans - CblasNoTrans] : letter(trans);
}

template <class T, class Kind, class Entry>
void rank_k(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo,
            CBLAS_TRANSPOSE trans, int n, int k, typename Kind::Beta alpha, const Array<T>* a,
            int lda, typename Kind::Beta beta, Array<T>* c, int ldc) {
    if (unfit<rank_k_tests<Kind>>(name, order, uplo, trans, n, k, alpha, a, lda, beta, c, ldc))
        return;
    call(entry, seen(order, uplo), seen_by<Kind>(order, trans), n, k, alpha, a, lda, beta, c, ldc);
}

// conj(alpha op(A) op(B)^H + conj(alpha) op(B) op(A)^H) has conj(alpha) in front of op(A).
template <class T, class Kind, class Entry>
void rank_2k(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo,
             CBLAS_TRANSPOSE trans, int n, int k, Scalar<T> alpha, const Array<T>* a, int lda,
             const Array<T>* b, int ldb, typename Kind::Beta beta, Array<T>* c, int ldc) {
    if (unfit<rank_2k_tests<Kind>>(name, order, uplo, trans, n, k, alpha, a, lda, b, ldb, beta, c,
                                   ldc))
        return;
    T factor = *reference<const T*>(alpha);
    if (std::is_same_v<Kind, Hermitian<T>> && order == CblasRowMajor) factor = conjugated(factor);
    call(entry, seen(order, uplo), seen_by<Kind>(order, trans), n, k, factor, a, lda, b, ldb, beta,
         c, ldc);
}

} // namespace

extern "C" {

#define GEMM(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_TRANSPOSE transa, CBLAS_TRANSPOSE transb, int m, int n,     \
              int k, Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* b, int ldb,      \
              Scalar<T> beta, Array<T>* c, int ldc) {                                              \
        gemm<T>(#name, entry, order, transa, transb, m, n, k, alpha, a, lda, b, ldb, beta, c,      \
                ldc);                                                                              \
    }
GEMM(cblas_sgemm, sgemm, float)
GEMM(cblas_dgemm, dgemm, double)
GEMM(cblas_cgemm, cgemm, cfloat)
GEMM(cblas_zgemm, zgemm, cdouble)

#define SYMM(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n, Scalar<T> alpha,  \
              const Array<T>* a, int lda, const Array<T>* b, int ldb, Scalar<T> beta, Array<T>* c, \
              int ldc) {                                                                           \
        symm<T>(#name, entry, order, side, uplo, m, n, alpha, a, lda, b, ldb, beta, c, ldc);       \
    }
SYMM(cblas_ssymm, ssymm, float)
SYMM(cblas_dsymm, dsymm, double)
SYMM(cblas_csymm, csymm, cfloat)
SYMM(cblas_zsymm, zsymm, cdouble)
SYMM(cblas_chemm, chemm, cfloat)
SYMM(cblas_zhemm, zhemm, cdouble)

#define TRMM(name, entry, T)                                                                       \
    void name(CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans,          \
              CBLAS_DIAG diag, int m, int n, Scalar<T> alpha, const Array<T>* a, int lda,          \
              Array<T>* b, int ldb) {                                                              \
        trmm<T>(#name, entry, order, side, uplo, trans, diag, m, n, alpha, a, lda, b, ldb);        \
    }
TRMM(cblas_strmm, strmm, float)
TRMM(cblas_dtrmm, dtrmm, double)
TRMM(cblas_ctrmm, ctrmm, cfloat)
TRMM(cblas_ztrmm, ztrmm, cdouble)
TRMM(cblas_strsm, strsm, float)
TRMM(cblas_dtrsm, dtrsm, double)
TRMM(cblas_ctrsm, ctrsm, cfloat)
TRMM(cblas_ztrsm, ztrsm, cdouble)

#define RANK_K(name, entry, T, Kind)                                                               \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,             \
              Kind<T>::Beta alpha, const Array<T>* a, int lda, Kind<T>::Beta beta, Array<T>* c,    \
              int ldc) {                                                                           \
        rank_k<T, Kind<T>>(#name, entry, order, uplo, trans, n, k, alpha, a, lda, beta, c, ldc);   \
    }
RANK_K(cblas_ssyrk, ssyrk, float, Symmetric)
RANK_K(cblas_dsyrk, dsyrk, double, Symmetric)
RANK_K(cblas_csyrk, csyrk, cfloat, Symmetric)
RANK_K(cblas_zsyrk, zsyrk, cdouble, Symmetric)
RANK_K(cblas_cherk, cherk, cfloat, Hermitian)
RANK_K(cblas_zherk, zherk, cdouble, Hermitian)

#define RANK_2K(name, entry, T, Kind)                                                              \
    void name(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,             \
              Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* b, int ldb,             \
              Kind<T>::Beta beta, Array<T>* c, int ldc) {                                          \
        rank_2k<T, Kind<T>>(#name, entry, order, uplo, trans, n, k, alpha, a, lda, b, ldb, beta,   \
                            c, ldc);                                                               \
    }
RANK_2K(cblas_ssyr2k, ssyr2k, float, Symmetric)
RANK_2K(cblas_dsyr2k, dsyr2k, double, Symmetric)
RANK_2K(cblas_csyr2k, csyr2k, cfloat, Symmetric)
RANK_2K(cblas_zsyr2k, zsyr2k, cdouble, Symmetric)
RANK_2K(cblas_cher2k, cher2k, cfloat, Hermitian)
RANK_2K(cblas_zher2k, zher2k, cdouble, Hermitian)
}
