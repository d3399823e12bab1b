// What the routines of the C interface share: the types of their arguments, tests, the letters of
// their options, the call of an entry. To be included first: it decides how vor_blas.h declares the
// entries.
#pragma once

// The entries are called without the lengths of character arguments, which nobody reads.
#undef VOR_HIDDEN_LENGTHS
#include "vor_blas.h"
#include "vor_cblas.h"
#include "vor_service.h"

#include "arith/element.h"

extern "C" {
// Option letters of the entries, by enumeration value minus its first value.
extern const char* const vor_serv_ftrans[3];
extern const char* const vor_serv_fside[2];
extern const char* const vor_serv_fuplo[2];
extern const char* const vor_serv_fdiag[2];
// A stored row-major matrix is the transpose of what the entry sees: the letters for op(A) of that,
// where the conjugate of a real matrix counts as the matrix (r), and of Hermitian updates (c).
extern const char* const vor_serv_ftrans_r[3];
extern const char* const vor_serv_ftrans_c[3];
}

namespace vor::cblas {

// An array and a scalar of type T in the argument list of a C-level routine.
template <class T>
using Array = std::conditional_t<is_complex<T>, void, T>;
template <class T>
using Scalar = std::conditional_t<is_complex<T>, const void*, T>;

// ---- Tests of arguments

inline bool is_order(int order) {
    return order == CblasRowMajor || order == CblasColMajor;
}
inline bool is_transpose(int trans) {
    return trans >= CblasNoTrans && trans <= CblasConjTrans;
}
inline bool is_uplo(int uplo) {
    return uplo == CblasUpper || uplo == CblasLower;
}
inline bool is_diag(int diag) {
    return diag == CblasNonUnit || diag == CblasUnit;
}
inline bool is_side(int side) {
    return side == CblasLeft || side == CblasRight;
}
// Whether ld fits an array whose columns, or rows if it is row-major, have `length` elements.
inline bool leads(int ld, int length) {
    return ld >= 1 && ld >= length;
}
// The same for a band of the diagonal and those on both sides.
inline bool leads_band(int ld, int lower, int upper = 0) {
    return ld > static_cast<long long>(lower) + upper;
}

// Whether the argument of this number, counted from 1, is fit for use.
struct Test {
    bool passed;
    int number;
};

// True if a test failed: the first that did has been reported then.
inline bool unfit(const char* name, const Test* tests, int count) {
    for (const Test* test = tests; test < tests + count; ++test) {
        if (test->passed) continue;
        cblas_xerbla(name, test->number);
        return true;
    }
    return false;
}
template <int count>
bool unfit(const char* name, const Test (&tests)[count]) {
    return unfit(name, tests, count);
}

// ---- Letters of options; the other one of a side or triangle is that of the transposed problem.

inline const char* letter(CBLAS_TRANSPOSE trans) {
    return vor_serv_ftrans[trans - CblasNoTrans];
}
inline const char* transposed(CBLAS_TRANSPOSE trans) {
    return vor_serv_ftrans_r[trans - CblasNoTrans];
}
inline const char* letter(CBLAS_UPLO uplo) {
    return vor_serv_fuplo[uplo - CblasUpper];
}
inline const char* other(CBLAS_UPLO uplo) {
    return vor_serv_fuplo[CblasLower - uplo];
}
inline const char* letter(CBLAS_SIDE side) {
    return vor_serv_fside[side - CblasLeft];
}
inline const char* other(CBLAS_SIDE side) {
    return vor_serv_fside[CblasRight - side];
}
inline const char* letter(CBLAS_DIAG diag) {
    return vor_serv_fdiag[diag - CblasNonUnit];
}

// ---- The call of an entry

// A pointer as it is, void* as a pointer to elements; a value by its address.
template <class Parameter, class Argument>
Parameter reference(const Argument& argument) {
    if constexpr (std::is_pointer_v<Argument>)
        return static_cast<Parameter>(argument);
    else
        return &argument;
}

// entry(arguments...), values by reference.
template <class Result, class... Parameters, class... Arguments>
[[gnu::always_inline]] inline Result call(Result (*entry)(Parameters...),
                                          const Arguments&... arguments) {
    return entry(reference<Parameters>(arguments)...);
}

} // namespace vor::cblas
