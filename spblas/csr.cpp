// The routines of compressed rows (vor_dcsr...) and compressed columns (vor_dcsc...): see driver.h for what a
// product and a solve do, csr_product.cpp and csr_solve.cpp for the kernels.
//
// Compressed columns go to the same kernels as the compressed rows of the transpose: with both flags inverted.
#include "spblas/csr.h"
#include "serv/team.h"
#include "spblas/checks.h"
#include "spblas/csr_rows.h"
#include "spblas/driver.h"
#include "vor_spblas.h"

#include <omp.h>

namespace vor::spblas {
namespace {

// `by_columns`: the arrays hold compressed columns.
template <bool by_columns>
struct Compressed {
    static constexpr bool kKernelsApplyBeta = false;
    static constexpr bool unit_diagonal_apart(char structure) { return structure == 'T'; }

    const double* val;
    const int *indx, *pntrb, *pntre;

    void multiply_general(const Product& p) const {
        const int plain = p.plain != by_columns, m = stored(p);
        vor_spblas_dcsrmmgen(&plain, &m, &p.n, &p.alpha, val, indx, pntrb, pntre, p.b, &p.ldb, p.c,
                             &p.ldc);
    }
    void multiply_triangle(const Product& p, const Descriptor& d) const {
        const int plain = p.plain != by_columns, m = stored(p);
        const int lower = d.lower != by_columns, nonunit = d.nonunit;
        vor_spblas_dcsrmmtr(&plain, &lower, &nonunit, &m, &p.n, &p.alpha, val, indx, pntrb, pntre,
                            p.b, &p.ldb, p.c, &p.ldc);
    }
    void multiply_symmetric(const Product& p, const Descriptor& d) const {
        const int lower = d.lower != by_columns, nonunit = d.nonunit, m = stored(p);
        vor_spblas_dcsrmmsym(&lower, &nonunit, &m, &p.n, &p.alpha, val, indx, pntrb, pntre, p.b,
                             &p.ldb, p.c, &p.ldc);
    }
    void multiply_skew(const Product& p, const Descriptor& d) const {
        const int lower = d.lower != by_columns, m = stored(p);
        const double alpha = p.plain != by_columns ? p.alpha : -p.alpha;
        vor_spblas_dcsrmmskew(&lower, &m, &p.n, &alpha, val, indx, pntrb, pntre, p.b, &p.ldb, p.c,
                              &p.ldc);
    }
    // Rows that both B and C have.
    void multiply_diagonal(const Product& p, const Descriptor& d) const {
        const int nonunit = d.nonunit, m = p.m < p.k ? p.m : p.k;
        vor_spblas_dcsrmmdiag(&nonunit, &m, &p.n, &p.alpha, val, indx, pntrb, pntre, p.b, &p.ldb,
                              p.c, &p.ldc);
    }

    void solve_triangle(const Solve& s, const Descriptor& d) const {
        const bool by_rows = s.plain != by_columns;
        const int lower = d.lower == s.plain, nonunit = d.nonunit;
        for (int j = 0; j < s.n; ++j)
            (by_rows ? vor_spblas_csr_gauss : vor_spblas_csc_gauss)(
                &lower, &nonunit, &s.m, val, indx, pntrb, pntre, column(s.c, s.ldc, j));
    }
    void solve_diagonal(const Solve& s, const Descriptor&) const {
        vor_spblas_invdiag(&s.m, &s.n, val, indx, pntrb, pntre, s.c, &s.ldc);
    }

private:
    static int stored(const Product& p) { return by_columns ? p.k : p.m; }
};

// y := A x over rows `first` to first + count - 1, each summed from 0.
void multiply_rows(int first, int count, const double* a, const int* ia, const int* ja,
                   const double* x, double* y) {
    sum_rows(
        CsrMatrix{a, ja, ia, ia + 1}, first, count, Plain{}, x, [](int) { return extended{0}; },
        [=](int i, extended sum) { y[i] = static_cast<double>(sum); });
}

// y := A^T x: row i adds its entries times x[i], each rounded where it is added.
void multiply_transposed(int m, const double* a, const int* ia, const int* ja, const double* x,
                         double* y) {
    clear(m, y);
    for (int i = 0; i < m; ++i) {
        const extended t = x[i];
        for (int p = ia[i] - 1; p < ia[i + 1] - 1; ++p) {
            double& to = y[ja[p] - 1];
            to = static_cast<double>(to + loaded(a[p]) * t);
        }
    }
}

void gemv(bool plain, int m, const double* a, const int* ia, const int* ja, const double* x,
          double* y) {
    constexpr int kShort = 2000; // rows below which a team costs more than it brings
    if (!plain) return multiply_transposed(m, a, ia, ja, x, y);
    const bool alone = vor_serv_in_serial() == 1 || m < kShort;
    const int threads = alone ? 1 : omp_get_max_threads();
    if (threads < 2) return multiply_rows(0, m, a, ia, ja, x, y);
    team_loop(threads, threads, [&](int i) {
        const Strip strip(m, threads, i);
        multiply_rows(strip.offset, strip.length, a, ia, ja, x, y);
    });
}

} // namespace
} // namespace vor::spblas

using namespace vor;
using namespace vor::spblas;

#define VOR_COMPRESSED(by_columns)                                                                 \
    Compressed<by_columns> {                                                                       \
        val, indx, pntrb, pntre                                                                    \
    }
#define CSR_MM(name, NAME, engine, errchk, by_columns)                                             \
    VOR_ENGINE void engine PARAMS_SPARSE_MM(LIST_CSR) {                                            \
        multiply(VOR_COMPRESSED(by_columns), matdescra,                                            \
                 {begins_with(transa, 'N'), *m, *n, *k, *alpha, b, *ldb, *beta, c, *ldc});         \
    }                                                                                              \
    VOR_CHECKED_ENTRY(name, NAME, engine, errchk, PARAMS_SPARSE_MM(LIST_CSR),                      \
                      ARGS_SPARSE_MM(NAMES_CSR))
CSR_MM(vor_dcsrmm, VOR_DCSRMM, vor_spblas_dcsrmm, vor_spblas_errchk_dcsrmm, false)
CSR_MM(vor_dcscmm, VOR_DCSCMM, vor_spblas_dcscmm, vor_spblas_errchk_dcscmm, true)

#define CSR_MV(name, NAME, engine, errchk, by_columns)                                             \
    VOR_ENGINE void engine PARAMS_SPARSE_MV(LIST_CSR) {                                            \
        multiply(VOR_COMPRESSED(by_columns), matdescra,                                            \
                 Product::of_vector(transa, *m, *k, *alpha, x, *beta, y));                         \
    }                                                                                              \
    VOR_CHECKED_ENTRY(name, NAME, engine, errchk, PARAMS_SPARSE_MV(LIST_CSR),                      \
                      ARGS_SPARSE_MV(NAMES_CSR))
CSR_MV(vor_dcsrmv, VOR_DCSRMV, vor_spblas_dcsrmv, vor_spblas_errchk_dcsrmv, false)
CSR_MV(vor_dcscmv, VOR_DCSCMV, vor_spblas_dcscmv, vor_spblas_errchk_dcscmv, true)

#define CSR_SV(name, NAME, engine, errchk, by_columns)                                             \
    VOR_ENGINE void engine PARAMS_SPARSE_SV(LIST_CSR) {                                            \
        solve(VOR_COMPRESSED(by_columns), descriptor_of(matdescra),                                \
              Solve::of_vector(transa, *m, *alpha, x, y));                                         \
    }                                                                                              \
    VOR_CHECKED_ENTRY(name, NAME, engine, errchk, PARAMS_SPARSE_SV(LIST_CSR),                      \
                      ARGS_SPARSE_SV(NAMES_CSR))
CSR_SV(vor_dcsrsv, VOR_DCSRSV, vor_spblas_dcsrsv, vor_spblas_errchk_dcsrsv, false)
CSR_SV(vor_dcscsv, VOR_DCSCSV, vor_spblas_dcscsv, vor_spblas_errchk_dcscsv, true)

#define CSR_SM(name, NAME, engine, errchk, by_columns)                                             \
    VOR_ENGINE void engine PARAMS_SPARSE_SM(LIST_CSR) {                                            \
        solve(VOR_COMPRESSED(by_columns), descriptor_of_many(matdescra),                           \
              {begins_with(transa, 'N'), *m, *n, *alpha, b, *ldb, c, *ldc});                       \
    }                                                                                              \
    VOR_CHECKED_ENTRY(name, NAME, engine, errchk, PARAMS_SPARSE_SM(LIST_CSR),                      \
                      ARGS_SPARSE_SM(NAMES_CSR))
CSR_SM(vor_dcsrsm, VOR_DCSRSM, vor_spblas_dcsrsm, vor_spblas_errchk_dcsrsm, false)
CSR_SM(vor_dcscsm, VOR_DCSCSM, vor_spblas_dcscsm, vor_spblas_errchk_dcscsm, true)

VOR_ENGINE void vor_spblas_dcsrgemv PARAMS_SPARSE_GEMV(LIST_CSR3) {
    gemv(begins_with(transa, 'N'), *m, a, ia, ja, x, y);
}
VOR_CHECKED_ENTRY(vor_dcsrgemv, VOR_DCSRGEMV, vor_spblas_dcsrgemv, vor_spblas_errchk_dcsrgemv,
                  PARAMS_SPARSE_GEMV(LIST_CSR3), ARGS_SPARSE_GEMV(NAMES_CSR3))

VOR_ENGINE void vor_spblas_dcsrsymv PARAMS_SPARSE_SYMV(LIST_CSR3) {
    const int lower = begins_with(uplo, 'L'), nonunit = 1, columns = 1;
    const double one = 1;
    clear(*m, y);
    vor_spblas_dcsrmmsym(&lower, &nonunit, m, &columns, &one, a, ja, ia, ia + 1, x, m, y, m);
}
VOR_CHECKED_ENTRY(vor_dcsrsymv, VOR_DCSRSYMV, vor_spblas_dcsrsymv, vor_spblas_errchk_dcsrsymv,
                  PARAMS_SPARSE_SYMV(LIST_CSR3), ARGS_SPARSE_SYMV(NAMES_CSR3))

VOR_ENGINE void vor_spblas_dcsrtrsv PARAMS_SPARSE_TRSV(LIST_CSR3) {
    solve(Compressed<false>{a, ja, ia, ia + 1}, triangle_of(uplo, diag),
          Solve::of_vector(transa, *m, 1, x, y));
}
VOR_CHECKED_ENTRY(vor_dcsrtrsv, VOR_DCSRTRSV, vor_spblas_dcsrtrsv, vor_spblas_errchk_dcsrtrsv,
                  PARAMS_SPARSE_TRSV(LIST_CSR3), ARGS_SPARSE_TRSV(NAMES_CSR3))
