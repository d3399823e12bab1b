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
#include "serv/check.h"

#include <iterator>

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

// ---- Tests of arguments, by their numbers in the list for C, where the order is number 1. A row is made
// for each order: what decides a leading dimension turns round with it.

template <size_t count>
struct Row {
    Test tests[count];
};
template <class... Tests>
Row(Tests...) -> Row<sizeof...(Tests)>;

inline constexpr Test kOrder = value(1, CblasRowMajor, CblasColMajor);
constexpr Test any_transpose(char argument) {
    return value(argument, CblasNoTrans, CblasTrans, CblasConjTrans);
}
constexpr Test triangle(char argument) {
    return value(argument, CblasUpper, CblasLower);
}
constexpr Test diagonal(char argument) {
    return value(argument, CblasNonUnit, CblasUnit);
}

// The rows that make(row_major) gives.
template <auto make>
inline constexpr auto kColumnMajor = make(false);
template <auto make>
inline constexpr auto kRowMajor = make(true);

// True if an argument of the call `name` is unfit: the first in the order of the row has been reported
// then. The words are those of the whole list; arrays and scalars are not read.
template <auto make, class... Words>
[[gnu::always_inline]] inline bool unfit(const char* name, CBLAS_ORDER order,
                                         const Words&... words) {
    const void* const arguments[] = {&order, &words...};
    const auto& row = order == CblasRowMajor ? kRowMajor<make> : kColumnMajor<make>;
    const int number = first_unfit(row.tests, std::size(row.tests), arguments);
    if (number == 0) return false;
    cblas_xerbla(name, number);
    return true;
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
// The triangle as the entry sees it.
inline const char* seen(CBLAS_ORDER order, CBLAS_UPLO uplo) {
    return order == CblasRowMajor ? other(uplo) : letter(uplo);
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
