// Argument checks of the sparse routines: rows of tests, in the order in which they are reported.
#include "serv/check.h"
#include "serv/lsame.h"
#include "spblas/checks.h"

namespace vor::spblas {
namespace {

constexpr char kTrans[] = "NTC", kUplo[] = "UL", kDiag[] = "UN";

char letter_at(Arguments a, int number, int position) {
    return upper(static_cast<const char*>(a[number - 1])[position]);
}
bool names_triangle(Arguments a, int number) {
    const char c = letter_at(a, number, 1);
    return c == 'L' || c == 'U';
}
bool names_diagonal(Arguments a, int number) {
    const char c = letter_at(a, number, 2);
    return c == 'N' || c == 'U';
}

// matdescra of a product, argument `number`.
template <int number>
bool fits_product(Arguments a) {
    switch (letter_at(a, number, 0)) {
    case 'G':
        return true;
    case 'T':
    case 'S':
    case 'H':
        return names_triangle(a, number) && names_diagonal(a, number);
    case 'D':
        return names_diagonal(a, number);
    case 'A':
        return names_triangle(a, number);
    default:
        return false;
    }
}
// The same for skyline storage, which has no general matrix; the profiles of a triangle lie inside the
// m by k matrix. m is argument 2, k argument `columns`.
template <int number, int columns>
bool fits_skyline(Arguments a) {
    switch (letter_at(a, number, 0)) {
    case 'T': {
        const int m = integer(a, 2), k = integer(a, columns);
        return names_triangle(a, number) && (letter_at(a, number, 1) == 'L' ? m <= k : k <= m);
    }
    case 'S':
    case 'H':
    case 'D':
    case 'A':
        return names_triangle(a, number);
    default:
        return false;
    }
}
// matdescra of a solve.
template <int number>
bool fits_solve(Arguments a) {
    const char structure = letter_at(a, number, 0);
    return (structure == 'T' || structure == 'D') && names_triangle(a, number) &&
           names_diagonal(a, number);
}

// An argument of at least another one; of the smaller of two others; of one of two others, by transa.
template <int number, int bound>
bool reaches(Arguments a) {
    return integer(a, number) >= integer(a, bound);
}
template <int number, int bound, int other>
bool reaches_smaller(Arguments a) {
    return integer(a, number) >= integer(a, bound) || integer(a, number) >= integer(a, other);
}
template <int number, int plain, int transposed>
bool reaches_by_op(Arguments a) {
    return integer(a, number) >= integer(a, option(a, 1) == 'N' ? plain : transposed);
}
// A matrix that is not unit has entries on its diagonal. matdescra is argument `letters`.
template <int number, int letters>
bool has_entries(Arguments a) {
    return integer(a, number) != 0 || letter_at(a, letters, 2) == 'U';
}

// The tests in front of the matrix.
#define VOR_MM_HEAD letter(1, kTrans), count(2), count(3), count(4), predicate(6, fits_product<6>)
#define VOR_MV_HEAD letter(1, kTrans), count(2), count(3), predicate(5, fits_product<5>)
#define VOR_SM_HEAD letter(1, kTrans), count(2), count(3), predicate(5, fits_solve<5>)
#define VOR_SV_HEAD letter(1, kTrans), count(2), predicate(4, fits_solve<4>)
#define VOR_TRSV_HEAD letter(1, kUplo), letter(2, kTrans), letter(3, kDiag), count(4)
// The leading dimensions behind it.
#define VOR_MM_TAIL(ldb, ldc)                                                                      \
    predicate(ldb, reaches_by_op<ldb, 4, 2>), predicate(ldc, reaches_by_op<ldc, 2, 4>)
#define VOR_SM_TAIL(ldb, ldc) predicate(ldb, reaches<ldb, 2>), predicate(ldc, reaches<ldc, 2>)

constexpr Test csr_mm[] = {VOR_MM_HEAD, VOR_MM_TAIL(12, 15)};
constexpr Test coo_mm[] = {VOR_MM_HEAD, count(10), VOR_MM_TAIL(12, 15)};
constexpr Test dia_mm[] = {VOR_MM_HEAD, predicate(8, reaches_smaller<8, 2, 4>), count(10),
                           VOR_MM_TAIL(12, 15)};
constexpr Test sky_mm[] = {
    letter(1, kTrans),  count(2), count(3), count(4), predicate(6, fits_skyline<6, 4>),
    VOR_MM_TAIL(10, 13)};
constexpr Test csr_mv[] = {VOR_MV_HEAD};
constexpr Test dia_mv[] = {VOR_MV_HEAD, predicate(7, reaches_smaller<7, 2, 3>), count(9)};
constexpr Test sky_mv[] = {letter(1, kTrans), count(2), count(3), predicate(5, fits_skyline<5, 3>)};
constexpr Test csr_sv[] = {VOR_SV_HEAD};
constexpr Test coo_sv[] = {VOR_SV_HEAD, count(8), predicate(8, has_entries<8, 4>)};
constexpr Test dia_sv[] = {VOR_SV_HEAD, predicate(6, reaches<6, 2>), count(8)};
constexpr Test csr_sm[] = {VOR_SM_HEAD, VOR_SM_TAIL(11, 13)};
constexpr Test coo_sm[] = {VOR_SM_HEAD, count(9), predicate(9, has_entries<9, 5>),
                           VOR_SM_TAIL(11, 13)};
constexpr Test dia_sm[] = {VOR_SM_HEAD, predicate(7, reaches<7, 2>), count(9), VOR_SM_TAIL(11, 13)};
constexpr Test sky_sm[] = {VOR_SM_HEAD, VOR_SM_TAIL(9, 11)};
constexpr Test csr_gemv[] = {letter(1, kTrans), count(2)};
constexpr Test coo_gemv[] = {letter(1, kTrans), count(2), count(6)};
constexpr Test dia_gemv[] = {letter(1, kTrans), count(2), predicate(4, reaches<4, 2>), count(6)};
constexpr Test csr_symv[] = {letter(1, kUplo), count(2)};
constexpr Test coo_symv[] = {letter(1, kUplo), count(2), count(6)};
constexpr Test dia_symv[] = {letter(1, kUplo), count(2), predicate(4, reaches<4, 2>), count(6)};
constexpr Test csr_trsv[] = {VOR_TRSV_HEAD};
constexpr Test coo_trsv[] = {VOR_TRSV_HEAD, count(8)};
constexpr Test dia_trsv[] = {VOR_TRSV_HEAD, predicate(6, reaches<6, 4>), count(8)};

} // namespace
} // namespace vor::spblas

#define CHECK(errchk, NAME, row, PARAMS, ARGS)                                                     \
    VOR_ENGINE int errchk PARAMS {                                                                 \
        return vor::Check{vor::spblas::row, NAME} ARGS;                                            \
    }
#define CHECK_MM(errchk, NAME, row, M)                                                             \
    CHECK(errchk, NAME, row, PARAMS_SPARSE_MM(LIST_##M), ARGS_SPARSE_MM(NAMES_##M))
#define CHECK_MV(errchk, NAME, row, M)                                                             \
    CHECK(errchk, NAME, row, PARAMS_SPARSE_MV(LIST_##M), ARGS_SPARSE_MV(NAMES_##M))
#define CHECK_SV(errchk, NAME, row, M)                                                             \
    CHECK(errchk, NAME, row, PARAMS_SPARSE_SV(LIST_##M), ARGS_SPARSE_SV(NAMES_##M))
#define CHECK_SM(errchk, NAME, row, M)                                                             \
    CHECK(errchk, NAME, row, PARAMS_SPARSE_SM(LIST_##M), ARGS_SPARSE_SM(NAMES_##M))
#define CHECK_GEMV(errchk, NAME, row, M)                                                           \
    CHECK(errchk, NAME, row, PARAMS_SPARSE_GEMV(LIST_##M), ARGS_SPARSE_GEMV(NAMES_##M))
#define CHECK_SYMV(errchk, NAME, row, M)                                                           \
    CHECK(errchk, NAME, row, PARAMS_SPARSE_SYMV(LIST_##M), ARGS_SPARSE_SYMV(NAMES_##M))
#define CHECK_TRSV(errchk, NAME, row, M)                                                           \
    CHECK(errchk, NAME, row, PARAMS_SPARSE_TRSV(LIST_##M), ARGS_SPARSE_TRSV(NAMES_##M))
CHECK_MM(vor_spblas_errchk_dcsrmm, "VOR_DCSRMM", csr_mm, CSR)
CHECK_MM(vor_spblas_errchk_dcscmm, "VOR_DCSCMM", csr_mm, CSR)
CHECK_MM(vor_spblas_errchk_dcoomm, "VOR_DCOOMM", coo_mm, COO)
CHECK_MM(vor_spblas_errchk_ddiamm, "VOR_DDIAMM", dia_mm, DIA)
CHECK_MM(vor_spblas_errchk_dskymm, "VOR_DSKYMM", sky_mm, SKY)
CHECK_MV(vor_spblas_errchk_dcsrmv, "VOR_DCSRMV", csr_mv, CSR)
CHECK_MV(vor_spblas_errchk_dcscmv, "VOR_DCSCMV", csr_mv, CSR)
CHECK_MV(vor_spblas_errchk_dcoomv, "VOR_DCOOMV", csr_mv, COO)
CHECK_MV(vor_spblas_errchk_ddiamv, "VOR_DDIAMV", dia_mv, DIA)
CHECK_MV(vor_spblas_errchk_dskymv, "VOR_DSKYMV", sky_mv, SKY)
CHECK_SV(vor_spblas_errchk_dcsrsv, "VOR_DCSRSV", csr_sv, CSR)
CHECK_SV(vor_spblas_errchk_dcscsv, "VOR_DCSCSV", csr_sv, CSR)
CHECK_SV(vor_spblas_errchk_dcoosv, "VOR_DCOOSV", coo_sv, COO)
CHECK_SV(vor_spblas_errchk_ddiasv, "VOR_DDIASV", dia_sv, DIA)
CHECK_SV(vor_spblas_errchk_dskysv, "VOR_DSKYSV", csr_sv, SKY)
CHECK_SM(vor_spblas_errchk_dcsrsm, "VOR_DCSRSM", csr_sm, CSR)
CHECK_SM(vor_spblas_errchk_dcscsm, "VOR_DCSCSM", csr_sm, CSR)
CHECK_SM(vor_spblas_errchk_dcoosm, "VOR_DCOOSM", coo_sm, COO)
CHECK_SM(vor_spblas_errchk_ddiasm, "VOR_DDIASM", dia_sm, DIA)
CHECK_SM(vor_spblas_errchk_dskysm, "VOR_DSKYSM", sky_sm, SKY)
CHECK_GEMV(vor_spblas_errchk_dcsrgemv, "VOR_DCSRGEMV", csr_gemv, CSR3)
CHECK_GEMV(vor_spblas_errchk_dcoogemv, "VOR_DCOOGEMV", coo_gemv, COO)
CHECK_GEMV(vor_spblas_errchk_ddiagemv, "VOR_DDIAGEMV", dia_gemv, DIA)
CHECK_SYMV(vor_spblas_errchk_dcsrsymv, "VOR_DCSRSYMV", csr_symv, CSR3)
CHECK_SYMV(vor_spblas_errchk_dcoosymv, "VOR_DCOOSYMV", coo_symv, COO)
CHECK_SYMV(vor_spblas_errchk_ddiasymv, "VOR_DDIASYMV", dia_symv, DIA)
CHECK_TRSV(vor_spblas_errchk_dcsrtrsv, "VOR_DCSRTRSV", csr_trsv, CSR3)
CHECK_TRSV(vor_spblas_errchk_dcootrsv, "VOR_DCOOTRSV", coo_trsv, COO)
CHECK_TRSV(vor_spblas_errchk_ddiatrsv, "VOR_DDIATRSV", dia_trsv, DIA)
