// Coordinate storage: entry e is at row row[e], column col[e], both counted from 1, in any order; entries at
// one place add up.
//
// Products go through the entries in the order of the array, for up to four columns of B at once; each term is
// rounded into C. Solves sort the entries of the triangle by rows first. All of it on the calling thread.
#include "spblas/coo.h"
#include "arith/x87.h"
#include "serv/memory.h"
#include "spblas/checks.h"
#include "spblas/driver.h"
#include "vor_service.h"
#include "vor_spblas.h"

#include <stdlib.h>
#include <string.h>

namespace vor::spblas {
namespace {

struct Entries {
    int count;
    const double* val;
    const int *row, *col;
};

// Up to four columns of B and C.
struct Columns {
    const double* b;
    int ldb;
    double* c;
    int ldc;
};

// C(to, j) += (B(from, j) * val) * alpha; rows are counted from 1. An alpha of 1 may be left out.
template <int columns, bool scaled = true>
[[gnu::always_inline]] inline void add_entry(const Columns& x, int to, int from, const double& val,
                                             extended alpha) {
    const double* const b = x.b + from - 1;
    double* const c = x.c + to - 1;
#pragma GCC unroll 4
    for (int j = 0; j < columns; ++j) {
        const extended term = loaded(b[j * x.ldb]) * val;
        double& sum = c[j * x.ldc];
        sum = static_cast<double>(sum + (scaled ? term * alpha : term));
    }
}
// The same with the product (alpha * val) * B.
template <int columns, int sign = 1>
[[gnu::always_inline]] inline void add_mirrored(const Columns& x, int to, int from, double val,
                                                extended alpha) {
    const extended factor = alpha * val;
    const double* const b = x.b + from - 1;
    double* const c = x.c + to - 1;
#pragma GCC unroll 4
    for (int j = 0; j < columns; ++j) {
        const extended term = factor * b[j * x.ldb];
        double& sum = c[j * x.ldc];
        sum = static_cast<double>(sign > 0 ? sum + term : sum - term);
    }
}

// visit.operator()<columns>(x, row, column, val) for all entries, over all n columns.
template <class Visit>
void for_entries(const Entries& a, int n, const double* b, int ldb, double* c, int ldc,
                 Visit visit) {
    const auto pass = [&]<int columns>(std::integral_constant<int, columns>, int j) {
        const Columns x{column(b, ldb, j), ldb, column(c, ldc, j), ldc};
        for (int e = 0; e < a.count; ++e)
            visit.template operator()<columns>(x, a.row[e], a.col[e], a.val[e]);
    };
    int j = 0;
    for (; j + 4 <= n; j += 4) pass(std::integral_constant<int, 4>{}, j);
    for (; j < n; ++j) pass(std::integral_constant<int, 1>{}, j);
}

bool on_named_side(bool lower, int row, int col) {
    return lower ? row > col : row < col;
}

struct Transposition {
    const int *row, *col;
    Transposition(bool plain, const int* rowind, const int* colind)
        : row(plain ? rowind : colind), col(plain ? colind : rowind) {}
};

struct CooMatrix {
    static constexpr bool kKernelsApplyBeta = false;
    static constexpr bool unit_diagonal_apart(char structure) { return structure != 'G'; }

    const double* val;
    const int *rowind, *colind, *nnz;

    void multiply_general(const Product& p) const {
        const Transposition t(p.plain, rowind, colind);
        vor_spblas_dcoommgen(&p.n, nnz, &p.alpha, val, t.row, t.col, p.b, &p.ldb, p.c, &p.ldc);
    }
    void multiply_triangle(const Product& p, const Descriptor& d) const {
        const Transposition t(p.plain, rowind, colind);
        const int lower = d.lower == p.plain, nonunit = d.nonunit;
        vor_spblas_dcoommtr(&lower, &nonunit, &p.n, nnz, &p.alpha, val, t.row, t.col, p.b, &p.ldb,
                            p.c, &p.ldc);
    }
    // Transposed too, the named side is that of the exchanged rows and columns.
    void multiply_symmetric(const Product& p, const Descriptor& d) const {
        const Transposition t(p.plain, rowind, colind);
        const int lower = d.lower, nonunit = d.nonunit;
        vor_spblas_dcoommsym(&lower, &nonunit, &p.n, nnz, &p.alpha, val, t.row, t.col, p.b, &p.ldb,
                             p.c, &p.ldc);
    }
    void multiply_skew(const Product& p, const Descriptor& d) const {
        const Transposition t(p.plain, rowind, colind);
        const int lower = d.lower == p.plain;
        vor_spblas_dcoommskew(&lower, &p.n, nnz, &p.alpha, val, t.row, t.col, p.b, &p.ldb, p.c,
                              &p.ldc);
    }
    void multiply_diagonal(const Product& p, const Descriptor& d) const {
        if (d.nonunit)
            vor_spblas_dcoommdiag(&p.n, nnz, &p.alpha, val, rowind, colind, p.b, &p.ldb, p.c,
                                  &p.ldc);
    }
};

bool solve_triangle(const int* descriptor, int m, int n, const CooMatrix& a, const double* b,
                    int ldb, double* c, int ldc);

// Right sides are solved first and scaled afterwards.
void solve(const CooMatrix& a, const Descriptor& d, const Solve& s) {
    if (s.m == 0) return;
    const auto for_columns = [&](auto f) {
        for (int j = 0; j < s.n; ++j) f(column(s.b, s.ldb, j), column(s.c, s.ldc, j));
    };
    if (s.alpha == 0) return for_columns([&](const double*, double* c) { clear(s.m, c); });
    const int descriptor[] = {0, d.lower == s.plain ? 1 : 2, !d.nonunit};
    const Transposition t(s.plain, a.rowind, a.colind);
    if (*a.nnz == 0)
        for_columns([&](const double* b, double* c) { copy(s.m, b, c); });
    else if (d.structure == 'D')
        for_columns([&](const double* b, double* c) {
            vor_spblas_coo_diag(&s.m, a.nnz, a.val, a.rowind, a.colind, descriptor, b, c);
        });
    else if (!solve_triangle(descriptor, s.m, s.n, {a.val, t.row, t.col, a.nnz}, s.b, s.ldb, s.c,
                             s.ldc))
        return;
    if (s.alpha != 1) for_columns([&](const double*, double* c) { scale(s.m, s.alpha, c); });
}

// count integers from malloc, freed at the end of the scope; 0 take none.
class Integers {
public:
    explicit Integers(int count) : wanted_(count > 0) {
        unsigned bytes;
        if (wanted_ && byte_count(static_cast<size_t>(count), sizeof(int), 0, &bytes))
            integers_ = static_cast<int*>(malloc(bytes));
    }
    ~Integers() { free(integers_); }
    Integers(const Integers&) = delete;
    Integers& operator=(const Integers&) = delete;
    operator int*() const { return integers_; }
    bool missing() const { return wanted_ && !integers_; }

private:
    bool wanted_;
    int* integers_ = nullptr;
};

bool report(int code) {
    constexpr char kName[] = "COO_GAUSS";
    xerbla_(kName, &code, sizeof kName - 1);
    return false;
}

// The triangle, by rows.
struct SortedTriangle {
    const double* val;
    const int* col;
    bool nonunit;
    const int *diag_pos, *row_count, *off_list;

    // y[i] from x[i] and the unknowns that the entries of row i name, listed at [first, first + count).
    // `step` 1 takes them in their order, -1 from the last one.
    double unknown(int i, const int* first, int step, double x, const double* y) const {
        extended sum = 0;
        for (int k = row_count[i]; k > 0; --k, first += step) {
            const int e = *first - 1;
            sum += loaded(val[e]) * y[col[e] - 1];
        }
        const extended rest = x - sum;
        return static_cast<double>(nonunit ? rest / val[diag_pos[i] - 1] : rest);
    }
    void solve_down(int m, const double* x, double* y) const {
        const int* entry = off_list;
        for (int i = 0; i < m; entry += row_count[i++]) y[i] = unknown(i, entry, 1, x[i], y);
    }
    void solve_up(int m, int off_count, const double* x, double* y) const {
        const int* entry = off_list + off_count - 1;
        for (int i = m - 1; i >= 0; entry -= row_count[i--]) y[i] = unknown(i, entry, -1, x[i], y);
    }
};

// False after a report: nothing is written then.
bool solve_triangle(const int* descriptor, int m, int n, const CooMatrix& a, const double* b,
                    int ldb, double* c, int ldc) {
    const bool nonunit = descriptor[2] != 1;
    const Integers diag_pos(nonunit ? m : 0), row_count(m), off_list(*a.nnz);
    int off_count = -1;
    if (!diag_pos.missing() && !row_count.missing() && !off_list.missing()) {
        memset(row_count, 0, sizeof(int) * static_cast<size_t>(m));
        if (nonunit) memset(diag_pos, 0, sizeof(int) * static_cast<size_t>(m));
        vor_spblas_selection(descriptor, &m, a.rowind, a.colind, a.nnz, diag_pos, row_count,
                             &off_count, off_list);
    }
    if (off_count < 0) return report(0);
    if (nonunit)
        for (int i = 0; i < m; ++i)
            if (diag_pos[i] == 0) return report(-(i + 1));
    const SortedTriangle triangle{a.val, a.colind, nonunit, diag_pos, row_count, off_list};
    for (int j = 0; j < n; ++j) {
        if (descriptor[1] == 1)
            triangle.solve_down(m, column(b, ldb, j), column(c, ldc, j));
        else
            triangle.solve_up(m, off_count, column(b, ldb, j), column(c, ldc, j));
    }
    return true;
}

} // namespace
} // namespace vor::spblas

using namespace vor;
using namespace vor::spblas;

#define ENTRIES                                                                                    \
    Entries {                                                                                      \
        *nnz, val, row, col                                                                        \
    }
#define OPERANDS ENTRIES, *n, b, *ldb, c, *ldc

VOR_ENGINE void vor_spblas_dcoommgen(LIST_COO_KERNEL) {
    const extended factor = *alpha;
    if (factor == 1)
        return for_entries(OPERANDS,
                           [&]<int columns>(const Columns& x, int i, int k, const double& v) {
                               add_entry<columns, false>(x, i, k, v, factor);
                           });
    for_entries(OPERANDS, [&]<int columns>(const Columns& x, int i, int k, const double& v) {
        add_entry<columns>(x, i, k, v, factor);
    });
}

VOR_ENGINE void vor_spblas_dcoommtr(const int* lower, const int* nonunit, LIST_COO_KERNEL) {
    const extended factor = *alpha;
    const bool is_lower = is_set(lower), diagonal = is_set(nonunit);
    for_entries(OPERANDS, [&]<int columns>(const Columns& x, int i, int k, const double& v) {
        if (on_named_side(is_lower, i, k) || (i == k && diagonal))
            add_entry<columns>(x, i, k, v, factor);
    });
}

VOR_ENGINE void vor_spblas_dcoommsym(const int* lower, const int* nonunit, LIST_COO_KERNEL) {
    const extended factor = *alpha;
    const bool is_lower = is_set(lower), diagonal = is_set(nonunit);
    for_entries(OPERANDS, [&]<int columns>(const Columns& x, int i, int k, const double& v) {
        if (i == k) {
            if (diagonal) add_entry<columns>(x, i, k, v, factor);
        } else if (on_named_side(is_lower, i, k)) {
            add_mirrored<columns>(x, i, k, v, factor);
            add_mirrored<columns>(x, k, i, v, factor);
        }
    });
}

VOR_ENGINE void vor_spblas_dcoommskew(const int* lower, LIST_COO_KERNEL) {
    const extended factor = *alpha;
    const bool is_lower = is_set(lower);
    for_entries(OPERANDS, [&]<int columns>(const Columns& x, int i, int k, const double& v) {
        if (!on_named_side(is_lower, i, k)) return;
        add_mirrored<columns>(x, i, k, v, factor);
        add_mirrored<columns, -1>(x, k, i, v, factor);
    });
}

VOR_ENGINE void vor_spblas_dcoommdiag(LIST_COO_KERNEL) {
    const extended factor = *alpha;
    for_entries(OPERANDS, [&]<int columns>(const Columns& x, int i, int k, const double& v) {
        if (i == k) add_entry<columns>(x, i, k, v, factor);
    });
}

VOR_ENGINE void vor_spblas_coo_diag(const int* m, const int* nnz, const double* val, const int* row,
                                    const int* col, const int* descriptor, const double* x,
                                    double* y) {
    if (descriptor[2] == 1) return copy(*m, x, y);
    for (int e = 0; e < *nnz; ++e)
        if (row[e] == col[e]) y[row[e] - 1] = static_cast<double>(extended{x[row[e] - 1]} / val[e]);
}

VOR_ENGINE void vor_spblas_selection(const int* descriptor, const int* m, const int* row,
                                     const int* col, const int* nnz, int* diag_pos, int* row_count,
                                     int* off_count, int* off_list) {
    const bool lower = descriptor[1] == 1, unit = descriptor[2] == 1;
    const Integers list(*nnz), next(*m);
    *off_count = -1;
    if (list.missing() || next.missing()) return;
    int count = 0;
    for (int e = 1; e <= *nnz; ++e) {
        const int i = row[e - 1], k = col[e - 1];
        if (on_named_side(lower, i, k)) {
            ++row_count[i - 1];
            list[count++] = e;
        } else if (i == k && !unit) {
            diag_pos[i - 1] = e;
        }
    }
    for (int i = 0, sum = 0; i < *m; sum += row_count[i++]) next[i] = sum;
    for (int l = 0; l < count; ++l) off_list[next[row[list[l] - 1] - 1]++] = list[l];
    *off_count = count;
}

VOR_ENGINE void vor_spblas_coo_gauss(const int* m, const int* n, const int* nnz, const double* val,
                                     const int* row, const int* col, const int* descriptor,
                                     const double* b, const int* ldb, double* c, const int* ldc) {
    solve_triangle(descriptor, *m, *n, {val, row, col, nnz}, b, *ldb, c, *ldc);
}

#define MATRIX                                                                                     \
    CooMatrix {                                                                                    \
        val, rowind, colind, nnz                                                                   \
    }

VOR_ENGINE void vor_spblas_dcoomm PARAMS_SPARSE_MM(LIST_COO) {
    multiply(MATRIX, matdescra,
             {begins_with(transa, 'N'), *m, *n, *k, *alpha, b, *ldb, *beta, c, *ldc});
}
VOR_CHECKED_ENTRY(vor_dcoomm, VOR_DCOOMM, vor_spblas_dcoomm, vor_spblas_errchk_dcoomm,
                  PARAMS_SPARSE_MM(LIST_COO), ARGS_SPARSE_MM(NAMES_COO))

VOR_ENGINE void vor_spblas_dcoomv PARAMS_SPARSE_MV(LIST_COO) {
    multiply(MATRIX, matdescra, Product::of_vector(transa, *m, *k, *alpha, x, *beta, y));
}
VOR_CHECKED_ENTRY(vor_dcoomv, VOR_DCOOMV, vor_spblas_dcoomv, vor_spblas_errchk_dcoomv,
                  PARAMS_SPARSE_MV(LIST_COO), ARGS_SPARSE_MV(NAMES_COO))

VOR_ENGINE void vor_spblas_dcoosv PARAMS_SPARSE_SV(LIST_COO) {
    solve(MATRIX, descriptor_of(matdescra), Solve::of_vector(transa, *m, *alpha, x, y));
}
VOR_CHECKED_ENTRY(vor_dcoosv, VOR_DCOOSV, vor_spblas_dcoosv, vor_spblas_errchk_dcoosv,
                  PARAMS_SPARSE_SV(LIST_COO), ARGS_SPARSE_SV(NAMES_COO))

VOR_ENGINE void vor_spblas_dcoosm PARAMS_SPARSE_SM(LIST_COO) {
    solve(MATRIX, descriptor_of_many(matdescra),
          {begins_with(transa, 'N'), *m, *n, *alpha, b, *ldb, c, *ldc});
}
VOR_CHECKED_ENTRY(vor_dcoosm, VOR_DCOOSM, vor_spblas_dcoosm, vor_spblas_errchk_dcoosm,
                  PARAMS_SPARSE_SM(LIST_COO), ARGS_SPARSE_SM(NAMES_COO))

VOR_ENGINE void vor_spblas_dcoogemv PARAMS_SPARSE_GEMV(LIST_COO) {
    const int columns = 1;
    const double one = 1;
    const Transposition t(begins_with(transa, 'N'), rowind, colind);
    clear(*m, y);
    vor_spblas_dcoommgen(&columns, nnz, &one, val, t.row, t.col, x, m, y, m);
}
VOR_CHECKED_ENTRY(vor_dcoogemv, VOR_DCOOGEMV, vor_spblas_dcoogemv, vor_spblas_errchk_dcoogemv,
                  PARAMS_SPARSE_GEMV(LIST_COO), ARGS_SPARSE_GEMV(NAMES_COO))

VOR_ENGINE void vor_spblas_dcoosymv PARAMS_SPARSE_SYMV(LIST_COO) {
    const int columns = 1, lower = begins_with(uplo, 'L'), nonunit = 1;
    const double one = 1;
    clear(*m, y);
    vor_spblas_dcoommsym(&lower, &nonunit, &columns, nnz, &one, val, rowind, colind, x, m, y, m);
}
VOR_CHECKED_ENTRY(vor_dcoosymv, VOR_DCOOSYMV, vor_spblas_dcoosymv, vor_spblas_errchk_dcoosymv,
                  PARAMS_SPARSE_SYMV(LIST_COO), ARGS_SPARSE_SYMV(NAMES_COO))

VOR_ENGINE void vor_spblas_dcootrsv PARAMS_SPARSE_TRSV(LIST_COO) {
    solve(MATRIX, triangle_of(uplo, diag), Solve::of_vector(transa, *m, 1, x, y));
}
VOR_CHECKED_ENTRY(vor_dcootrsv, VOR_DCOOTRSV, vor_spblas_dcootrsv, vor_spblas_errchk_dcootrsv,
                  PARAMS_SPARSE_TRSV(LIST_COO), ARGS_SPARSE_TRSV(NAMES_COO))
