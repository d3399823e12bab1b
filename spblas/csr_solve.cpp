// Triangular solves of compressed rows (csr_gauss) and of compressed columns (csc_gauss), in place, on the
// calling thread. The columns of a row, or the rows of a column, ascend. A zero on the diagonal is not looked
// for: it gives infinities.
//
// Sums run in extended precision over a row; an element is rounded when it is found. (Duff, Erisman, Reid:
// Direct Methods for Sparse Matrices, 1986, chapter 10.)
#include "spblas/csr_rows.h"
#include "spblas/driver.h"

#include <stdlib.h>

namespace vor::spblas {
namespace {

// The sum of count terms val[p] * x[column[p]].
[[gnu::always_inline]] inline extended dot(const double* val, const int* column, int count,
                                           const double* x) {
    return add_entries({val, column, count}, 0, Plain{}, x, 0);
}

// A unit diagonal may stand in the row or not; one that is not unit stands there.
template <bool nonunit>
void solve_lower(const CsrMatrix& a, int n, double* x) {
    for (int i = 0; i < n; ++i) {
        const CsrRow row = a.row(i);
        int count = row.count;
        while (count > 0 && row.column[count - 1] > i + 1) --count;
        if (nonunit || (count > 0 && row.column[count - 1] == i + 1)) --count;
        const extended sum = dot(row.val, row.column, count, x);
        x[i] = static_cast<double>(nonunit ? (x[i] - sum) / row.val[count] : x[i] - sum);
    }
}

// The entries of a row that are multiplied by unknowns of the row's own block.
struct Part {
    int start, length; // from the row's first entry
};

// The first entry behind the diagonal of row i. One that is not unit has its diagonal just before it.
template <bool nonunit>
int behind_diagonal(const CsrRow& row, int i) {
    int p = 0;
    while (p < row.count && row.column[p] < i + 1) ++p;
    if (nonunit || (p < row.count && row.column[p] == i + 1)) ++p;
    return p;
}

// Subtracts from x[i] what unknowns behind the block bring, which are final, and tells the rest. `end` is the
// first row behind the block, none for the last one.
template <bool nonunit>
Part split_row(const CsrMatrix& a, int i, int end, bool last, double* x) {
    const CsrRow row = a.row(i);
    const int start = behind_diagonal<nonunit>(row, i);
    if (last) return {start, row.count > start ? row.count - start : 0};
    int p = start;
    while (p < row.count && row.column[p] <= end) ++p;
    if (p < row.count)
        x[i] = static_cast<double>(x[i] - dot(row.val + p, row.column + p, row.count - p, x));
    return {start, p - start};
}

template <bool nonunit>
inline void finish_row(const CsrRow& row, Part part, int i, double* x) {
    const double* const val = row.val + part.start;
    const extended sum = dot(val, row.column + part.start, part.length, x);
    x[i] = static_cast<double>(nonunit ? (x[i] - sum) / val[-1] : x[i] - sum);
}

// Blocks of kBlock rows, the last one the largest, from the end; a table of their parts is made in a pass
// that reads the block's rows ascending. Without memory for it, each row is searched and summed at once.
template <bool nonunit>
void solve_upper(const CsrMatrix& a, int n, double* x) {
    constexpr int kBlock = 2000;
    const int size = n < kBlock ? n : kBlock;
    const int blocks = n / size;
    const int largest = size + n % size;
    auto* const parts = static_cast<Part*>(malloc(sizeof(Part) * static_cast<size_t>(largest)));
    for (int block = blocks - 1; block >= 0; --block) {
        const int first = block * size;
        const bool last = block == blocks - 1;
        const int end = last ? n : first + size;
        if (parts)
            for (int i = first; i < end; ++i)
                parts[i - first] = split_row<nonunit>(a, i, end, last, x);
        for (int i = end - 1; i >= first; --i) {
            const Part part = parts ? parts[i - first] : split_row<nonunit>(a, i, end, true, x);
            finish_row<nonunit>(a.row(i), part, i, x);
        }
    }
    free(parts);
}

// x[row[p]] -= val[p] * t for the p of [from, to), or from to - 1 down.
void subtract_column(const CsrRow& column, int from, int to, double t, double* x) {
    --x;
#pragma GCC unroll 2
    for (int p = from; p < to; ++p) {
        double& unknown = x[column.column[p]];
        unknown = static_cast<double>(unknown - loaded(column.val[p]) * t);
    }
}
void subtract_column_down(const CsrRow& column, int count, double t, double* x) {
    --x;
#pragma GCC unroll 2
    for (int p = count - 1; p >= 0; --p) {
        double& unknown = x[column.column[p]];
        unknown = static_cast<double>(unknown + loaded(column.val[p]) * -t);
    }
}

void solve_lower_by_columns(const CsrMatrix& a, int n, bool nonunit, double* x) {
    for (int j = 0; j < n; ++j) {
        const CsrRow column = a.row(j);
        int p = 0;
        while (p < column.count && column.column[p] < j + 1) ++p;
        if (nonunit)
            x[j] = static_cast<double>(extended{x[j]} / column.val[p++]);
        else if (p < column.count && column.column[p] == j + 1)
            ++p;
        subtract_column(column, p, column.count, x[j], x);
    }
}

void solve_upper_by_columns(const CsrMatrix& a, int n, bool nonunit, double* x) {
    for (int j = n - 1; j >= 0; --j) {
        const CsrRow column = a.row(j);
        int count = column.count;
        while (count > 0 && column.column[count - 1] > j + 1) --count;
        if (nonunit)
            x[j] = static_cast<double>(extended{x[j]} / column.val[--count]);
        else if (count > 0 && column.column[count - 1] == j + 1)
            --count;
        subtract_column_down(column, count, x[j], x);
    }
}

} // namespace
} // namespace vor::spblas

using namespace vor;
using namespace vor::spblas;

VOR_ENGINE void vor_spblas_csr_gauss(const int* lower, const int* nonunit, LIST_CSR_SOLVER) {
    if (*n < 1) return;
    const CsrMatrix a{val, indx, pntrb, pntre};
    const auto solve = is_set(nonunit) ? (is_set(lower) ? solve_lower<true> : solve_upper<true>)
                                       : (is_set(lower) ? solve_lower<false> : solve_upper<false>);
    solve(a, *n, x);
}

VOR_ENGINE void vor_spblas_csc_gauss(const int* lower, const int* nonunit, LIST_CSR_SOLVER) {
    const CsrMatrix a{val, indx, pntrb, pntre};
    (is_set(lower) ? solve_lower_by_columns : solve_upper_by_columns)(a, *n, is_set(nonunit), x);
}

VOR_ENGINE void vor_spblas_invdiag(const int* n, const int* count, LIST_CSR, double* c,
                                   const int* ldc) {
    const CsrMatrix a{val, indx, pntrb, pntre};
    for (int i = 0; i < *n; ++i) {
        const CsrRow row = a.row(i);
        int p = 0;
        while (p < row.count - 1 && row.column[p] < i + 1) ++p;
        const double inverse = 1 / row.val[p];
        vor_blas_dscal(count, &inverse, c + i, ldc);
    }
}
