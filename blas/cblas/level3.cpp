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

template <class T, class Entry>
void gemm(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_TRANSPOSE transa,
          CBLAS_TRANSPOSE transb, int m, int n, int k, Scalar<T> alpha, const Array<T>* a, int lda,
          const Array<T>* b, int ldb, Scalar<T> beta, Array<T>* c, int ldc) {
    const bool row_major = order == CblasRowMajor;
    const bool a_stands =
        (transa == CblasNoTrans) != row_major; // its columns in memory are op(A)'s
    const bool b_stands = (transb == CblasNoTrans) != row_major;
    if (unfit(name, {{is_transpose(transa), 2},
                     {is_transpose(transb), 3},
                     {m >= 0, 4},
                     {n >= 0, 5},
                     {k >= 0, 6},
                     {is_order(order), 1},
                     {leads(lda, a_stands ? m : k), 9},
                     {leads(ldb, b_stands ? k : n), 11},
                     {leads(ldc, row_major ? n : m), 14}}))
        return;
    if (row_major)
        call(entry, letter(transb), letter(transa), n, m, k, alpha, b, ldb, a, lda, beta, c, ldc);
    else
        call(entry, letter(transa), letter(transb), m, n, k, alpha, a, lda, b, ldb, beta, c, ldc);
}

template <class T, class Entry>
void symm(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo,
          int m, int n, Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* b, int ldb,
          Scalar<T> beta, Array<T>* c, int ldc) {
    const bool row_major = order == CblasRowMajor;
    if (unfit(name, {{is_side(side), 2},
                     {is_uplo(uplo), 3},
                     {m >= 0, 4},
                     {n >= 0, 5},
                     {is_order(order), 1},
                     {leads(lda, side == CblasLeft ? m : n), 8},
                     {leads(ldb, row_major ? n : m), 10},
                     {leads(ldc, row_major ? n : m), 13}}))
        return;
    if (row_major)
        call(entry, other(side), other(uplo), n, m, alpha, a, lda, b, ldb, beta, c, ldc);
    else
        call(entry, letter(side), letter(uplo), m, n, alpha, a, lda, b, ldb, beta, c, ldc);
}

template <class T, class Entry>
void trmm(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo,
          CBLAS_TRANSPOSE trans, CBLAS_DIAG diag, int m, int n, Scalar<T> alpha, const Array<T>* a,
          int lda, Array<T>* b, int ldb) {
    const bool row_major = order == CblasRowMajor;
    if (unfit(name, {{is_side(side), 2},
                     {is_uplo(uplo), 3},
                     {is_transpose(trans), 4},
                     {is_diag(diag), 5},
                     {m >= 0, 6},
                     {n >= 0, 7},
                     {is_order(order), 1},
                     {leads(lda, side == CblasLeft ? m : n), 10},
                     {leads(ldb, row_major ? n : m), 12}}))
        return;
    if (row_major)
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
    static bool takes(int trans) {
        return trans == CblasNoTrans || trans == CblasTrans ||
               (trans == CblasConjTrans && !is_complex<T>);
    }
    static constexpr const char* const* turned = vor_serv_ftrans_r;
};
template <class T>
struct Hermitian {
    using Beta = real_t<T>;
    static bool takes(int trans) { return trans == CblasNoTrans || trans == CblasConjTrans; }
    static constexpr const char* const* turned = vor_serv_ftrans_c;
};

// The tests of an update of rank k. ldb, which a row without B passes over, stands before ldc.
template <class Kind>
bool unfit_update(const char* name, CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans,
                  int n, int k, int lda, const int* ldb, int ldc) {
    const int columns = (trans == CblasNoTrans) != (order == CblasRowMajor) ? n : k;
    return unfit(name, {{is_uplo(uplo), 2},
                        {Kind::takes(trans), 3},
                        {n >= 0, 4},
                        {k >= 0, 5},
                        {is_order(order), 1},
                        {leads(lda, columns), 8},
                        {!ldb || leads(*ldb, columns), 10},
                        {leads(ldc, n), ldb ? 13 : 11}});
}

// The triangle and the letter as the entry sees them.
const char* seen(CBLAS_ORDER order, CBLAS_UPLO uplo) {
    return order == CblasRowMajor ? other(uplo) : letter(uplo);
}
template <class Kind>
const char* seen(CBLAS_ORDER order, CBLAS_TRANSPOSE trans) {
    return order == CblasRowMajor ? Kind::turned[trans - CblasNoTrans] : letter(trans);
}

template <class T, class Kind, class Entry>
void rank_k(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo,
            CBLAS_TRANSPOSE trans, int n, int k, typename Kind::Beta alpha, const Array<T>* a,
            int lda, typename Kind::Beta beta, Array<T>* c, int ldc) {
    if (unfit_update<Kind>(name, order, uplo, trans, n, k, lda, nullptr, ldc)) return;
    call(entry, seen(order, uplo), seen<Kind>(order, trans), n, k, alpha, a, lda, beta, c, ldc);
}

// conj(alpha op(A) op(B)^H + conj(alpha) op(B) op(A)^H) has conj(alpha) in front of op(A).
template <class T, class Kind, class Entry>
void rank_2k(const char* name, Entry* entry, CBLAS_ORDER order, CBLAS_UPLO uplo,
             CBLAS_TRANSPOSE trans, int n, int k, Scalar<T> alpha, const Array<T>* a, int lda,
             const Array<T>* b, int ldb, typename Kind::Beta beta, Array<T>* c, int ldc) {
    if (unfit_update<Kind>(name, order, uplo, trans, n, k, lda, &ldb, ldc)) return;
    T factor = *reference<const T*>(alpha);
    if (std::is_same_v<Kind, Hermitian<T>> && order == CblasRowMajor) factor = conjugated(factor);
    call(entry, seen(order, uplo), seen<Kind>(order, trans), n, k, factor, a, lda, b, ldb, beta, c,
         ldc);
}

} // namespace

extern "C" {

#define FOR_ALL_TYPES(X, ...)                                                                      \
    X(s, float, __VA_ARGS__) X(d, double, __VA_ARGS__) FOR_COMPLEX_TYPES(X, __VA_ARGS__)
#define FOR_COMPLEX_TYPES(X, ...) X(c, cfloat, __VA_ARGS__) X(z, cdouble, __VA_ARGS__)

#define GEMM(p, T, op)                                                                             \
    void cblas_##p##op(CBLAS_ORDER order, CBLAS_TRANSPOSE transa, CBLAS_TRANSPOSE transb, int m,   \
                       int n, int k, Scalar<T> alpha, const Array<T>* a, int lda,                  \
                       const Array<T>* b, int ldb, Scalar<T> beta, Array<T>* c, int ldc) {         \
        gemm<T>("cblas_" #p #op, p##op, order, transa, transb, m, n, k, alpha, a, lda, b, ldb,     \
                beta, c, ldc);                                                                     \
    }
FOR_ALL_TYPES(GEMM, gemm)

#define SYMM(p, T, op)                                                                             \
    void cblas_##p##op(CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo, int m, int n,          \
                       Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* b, int ldb,    \
                       Scalar<T> beta, Array<T>* c, int ldc) {                                     \
        symm<T>("cblas_" #p #op, p##op, order, side, uplo, m, n, alpha, a, lda, b, ldb, beta, c,   \
                ldc);                                                                              \
    }
FOR_ALL_TYPES(SYMM, symm)
FOR_COMPLEX_TYPES(SYMM, hemm)

#define TRMM(p, T, op)                                                                             \
    void cblas_##p##op(CBLAS_ORDER order, CBLAS_SIDE side, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, \
                       CBLAS_DIAG diag, int m, int n, Scalar<T> alpha, const Array<T>* a, int lda, \
                       Array<T>* b, int ldb) {                                                     \
        trmm<T>("cblas_" #p #op, p##op, order, side, uplo, trans, diag, m, n, alpha, a, lda, b,    \
                ldb);                                                                              \
    }
FOR_ALL_TYPES(TRMM, trmm)
FOR_ALL_TYPES(TRMM, trsm)

#define RANK_K(p, T, op, Kind)                                                                     \
    void cblas_##p##op(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,    \
                       Kind<T>::Beta alpha, const Array<T>* a, int lda, Kind<T>::Beta beta,        \
                       Array<T>* c, int ldc) {                                                     \
        rank_k<T, Kind<T>>("cblas_" #p #op, p##op, order, uplo, trans, n, k, alpha, a, lda, beta,  \
                           c, ldc);                                                                \
    }
FOR_ALL_TYPES(RANK_K, syrk, Symmetric)
FOR_COMPLEX_TYPES(RANK_K, herk, Hermitian)

#define RANK_2K(p, T, op, Kind)                                                                    \
    void cblas_##p##op(CBLAS_ORDER order, CBLAS_UPLO uplo, CBLAS_TRANSPOSE trans, int n, int k,    \
                       Scalar<T> alpha, const Array<T>* a, int lda, const Array<T>* b, int ldb,    \
                       Kind<T>::Beta beta, Array<T>* c, int ldc) {                                 \
        rank_2k<T, Kind<T>>("cblas_" #p #op, p##op, order, uplo, trans, n, k, alpha, a, lda, b,    \
                            ldb, beta, c, ldc);                                                    \
    }
FOR_ALL_TYPES(RANK_2K, syr2k, Symmetric)
FOR_COMPLEX_TYPES(RANK_2K, her2k, Hermitian)
}
