// The products of compressed rows: C += alpha * op(A) * B.
//
// A structured matrix is not filtered on the way into the product. A first sweep adds all entries of a row,
// with no test in its loop; a second one takes back what lies on the wrong side of the diagonal and adds what
// the structure implies. A term is (val * alpha) * b in extended precision; sums of a row run in the order of
// its entries and are rounded where they reach C.
//
// Threads share out the rows of A where each row writes its own row of C, and the columns of C otherwise.
#include "serv/team.h"
#include "spblas/csr_rows.h"
#include "spblas/driver.h"

#include <stdlib.h>

namespace vor::spblas {
namespace {

struct Operands {
    int m, n;
    CsrMatrix a;
    extended alpha;
    const double* b;
    int ldb;
    double* c;
    int ldc;

    const double* b_column(int j) const { return column(b, ldb, j); }
    double* c_column(int j) const { return column(c, ldc, j); }
};

#define OPERANDS                                                                                   \
    Operands {                                                                                     \
        *m, *n, {val, indx, pntrb, pntre}, *alpha, b, *ldb, c, *ldc                                \
    }

// f(i) for i from 0 to n - 1, on a team if `threads` are more than one.
template <class F>
void for_all(int n, int threads, F f) {
    if (threads > 1) return team_loop(n, threads, f);
    for (int i = 0; i < n; ++i) f(i);
}

// ---- The first sweep

// Four elements of row i of C at once: each entry is loaded once for all of them.
constexpr int kColumnsTogether = 4;
template <class Factor>
[[gnu::always_inline]] inline void add_row_to_four(const CsrRow& row, Factor factor,
                                                   const double* b, int ldb, double* c, int ldc) {
    extended s0 = c[0], s1 = c[ldc], s2 = c[2 * ldc], s3 = c[3 * ldc];
    --b;
    for (int p = 0; p < row.count; ++p) {
        const extended f = factor(row.val[p]);
        const double* const x = b + row.column[p];
        s0 += f * x[0];
        s1 += f * x[ldb];
        s2 += f * x[2 * ldb];
        s3 += f * x[3 * ldb];
    }
    c[0] = static_cast<double>(s0);
    c[ldc] = static_cast<double>(s1);
    c[2 * ldc] = static_cast<double>(s2);
    c[3 * ldc] = static_cast<double>(s3);
}

// Whether the rows of B that one row of A meets lie close together in several columns, to judge by some rows:
// far apart, one column at a time has more of B in the second cache.
bool columns_fit_cache(const Operands& o) {
    constexpr int kSamples = 8;
    constexpr ptrdiff_t kCache = 256 * 1024 / sizeof(double) / kColumnsTogether;
    ptrdiff_t reach = 0;
    for (int k = 0; k < kSamples; ++k) {
        const CsrRow row = o.a.row(static_cast<int>(static_cast<long long>(o.m) * k / kSamples));
        if (row.count > 0) reach += abs(row.column[row.count - 1] - row.column[0]);
    }
    return reach / kSamples < kCache;
}

// Rows `first` to first + count - 1 of C, all columns.
template <class Factor>
void add_rows(const Operands& o, Factor factor, int first, int count) {
    int j = 0;
    if (o.n >= kColumnsTogether && columns_fit_cache(o))
        for (; j + kColumnsTogether <= o.n; j += kColumnsTogether) {
            const double* const b = o.b_column(j);
            double* const c = o.c_column(j);
            for (int i = first; i < first + count; ++i)
                add_row_to_four(o.a.row(i), factor, b, o.ldb, c + i, o.ldc);
        }
    for (; j < o.n; ++j) {
        double* const c = o.c_column(j);
        sum_rows(
            o.a, first, count, factor, o.b_column(j), [=](int i) { return extended{c[i]}; },
            [=](int i, extended sum) { c[i] = static_cast<double>(sum); });
    }
}

void add_rows(const Operands& o, int first, int count) {
    if (o.alpha == 1) return add_rows(o, Plain{}, first, count);
    add_rows(o, Scaled{o.alpha}, first, count);
}

// All rows, shared out over the threads.
void add_all_rows(const Operands& o, int threads) {
    if (threads < 2) return add_rows(o, 0, o.m);
    team_loop(threads, threads, [&](int part) {
        const Strip strip(o.m, threads, part);
        add_rows(o, strip.offset, strip.length);
    });
}

// What row i scatters over column j of C, each term rounded there.
template <int sign = 1>
[[gnu::always_inline]] inline void scatter_row(const CsrRow& row, extended alpha, double t,
                                               double* c) {
    --c;
#pragma GCC unroll 2
    for (int p = 0; p < row.count; ++p) {
        const extended term = row.val[p] * alpha * t;
        double& to = c[row.column[p]];
        to = static_cast<double>(sign > 0 ? to + term : to - term);
    }
}

// ---- The second sweep of a triangle

// Whether an entry lies on the side of the diagonal that is not wanted.
inline bool on_wrong_side(bool lower, int entry_column, int row_number) {
    return lower ? entry_column > row_number : entry_column < row_number;
}

// The sum over the entries of row i that `unwanted` names, of their products with column j of B.
template <class Unwanted>
[[gnu::always_inline]] inline extended sum_of(const CsrRow& row, extended alpha, const double* b,
                                              Unwanted unwanted) {
    extended sum = 0;
    for (int p = 0; p < row.count; ++p)
        if (unwanted(row.column[p])) sum += row.val[p] * alpha * b[row.column[p] - 1];
    return sum;
}

// Takes back what the diagonal of row i brought: one entry, or none, as a rule. A row below the last column of
// the matrix has no place in C, nor in B.
void take_back_diagonal(const CsrRow& row, int i, extended alpha, const double* b, double* c) {
    extended term = 0;
    bool stored = false;
    for (int p = 0; p < row.count; ++p)
        if (row.column[p] == i + 1) {
            term += row.val[p] * alpha * b[i];
            stored = true;
        }
    if (stored) c[i] = static_cast<double>(c[i] - term);
}

struct Triangle {
    bool lower, nonunit;
};

// No transpose: row i of C loses what its wrong side brought, and a diagonal that counts as ones.
void take_back_row(const Operands& o, Triangle t, int i) {
    const CsrRow row = o.a.row(i);
    for (int j = 0; j < o.n; ++j) {
        const double* const b = o.b_column(j);
        double* const c = o.c_column(j);
        const extended sum = sum_of(
            row, o.alpha, b, [&](int column) { return on_wrong_side(t.lower, column, i + 1); });
        c[i] = static_cast<double>(c[i] - sum);
        if (!t.nonunit) take_back_diagonal(row, i, o.alpha, b, c);
    }
}

// Transposed: the same for what row i scattered over column j.
void take_back_scattered(const Operands& o, Triangle t, int i, const double* b, double* c) {
    const CsrRow row = o.a.row(i);
    for (int p = 0; p < row.count; ++p)
        if (on_wrong_side(t.lower, row.column[p], i + 1)) {
            double& to = c[row.column[p] - 1];
            to = static_cast<double>(to - row.val[p] * o.alpha * b[i]);
        }
    if (!t.nonunit) take_back_diagonal(row, i, o.alpha, b, c);
}

// ---- The second stage of a symmetric or skew matrix

// Row i over column j: entries of the named triangle are mirrored, with `sign`; all others are taken back,
// but for the diagonal of a symmetric matrix that is not unit.
template <int sign>
void mirror_row(const Operands& o, Triangle t, int i, int j) {
    const CsrRow row = o.a.row(i);
    const double* const b = o.b_column(j);
    double* const c = o.c_column(j);
    if (sign > 0 && !t.nonunit) c[i] = static_cast<double>(c[i] + o.alpha * b[i]);
    extended taken = 0;
    for (int p = 0; p < row.count; ++p) {
        const int k = row.column[p] - 1;
        const extended factor = row.val[p] * o.alpha;
        if (t.lower ? k < i : k > i)
            c[k] = static_cast<double>(sign > 0 ? c[k] + factor * b[i] : c[k] - factor * b[i]);
        else if (k != i || sign < 0 || !t.nonunit)
            taken += factor * b[k];
    }
    c[i] = static_cast<double>(c[i] - taken);
}

// Both stages; row by row for a single column.
template <int sign>
void multiply_mirrored(const Operands& o, Triangle t, int threads) {
    if (o.n == 1) {
        for (int i = 0; i < o.m; ++i) {
            add_rows(o, i, 1);
            mirror_row<sign>(o, t, i, 0);
        }
        return;
    }
    add_all_rows(o, threads);
    for_all(o.n, threads, [&](int j) {
        for (int i = 0; i < o.m; ++i) mirror_row<sign>(o, t, i, j);
    });
}

} // namespace
} // namespace vor::spblas

using namespace vor;
using namespace vor::spblas;

VOR_ENGINE void vor_spblas_dcsrmmgen(const int* notrans, LIST_CSR_KERNEL) {
    const Operands o = OPERANDS;
    const int threads = team_size();
    if (is_set(notrans)) return add_all_rows(o, threads);
    for_all(o.n, threads, [&](int j) {
        for (int i = 0; i < o.m; ++i)
            scatter_row(o.a.row(i), o.alpha, o.b_column(j)[i], o.c_column(j));
    });
}

VOR_ENGINE void vor_spblas_dcsrmmtr(const int* notrans, const int* lower, const int* nonunit,
                                    LIST_CSR_KERNEL) {
    const Operands o = OPERANDS;
    const Triangle t{is_set(lower), is_set(nonunit)};
    const int threads = team_size();
    if (is_set(notrans))
        return for_all(o.m, threads, [&](int i) {
            add_rows(o, i, 1);
            take_back_row(o, t, i);
        });
    for_all(o.n, o.n < 2 ? 1 : threads, [&](int j) {
        const double* const x = o.b_column(j);
        double* const y = o.c_column(j);
        for (int i = 0; i < o.m; ++i) {
            scatter_row(o.a.row(i), o.alpha, x[i], y);
            take_back_scattered(o, t, i, x, y);
        }
    });
}

VOR_ENGINE void vor_spblas_dcsrmmsym(const int* lower, const int* nonunit, LIST_CSR_KERNEL) {
    multiply_mirrored<1>(OPERANDS, {is_set(lower), is_set(nonunit)}, team_size());
}

VOR_ENGINE void vor_spblas_dcsrmmskew(const int* lower, LIST_CSR_KERNEL) {
    multiply_mirrored<-1>(OPERANDS, {is_set(lower), true}, team_size());
}

VOR_ENGINE void vor_spblas_dcsrmmdiag(const int* nonunit, LIST_CSR_KERNEL) {
    const Operands o = OPERANDS;
    for (int j = 0; j < o.n; ++j) {
        const double* const x = o.b_column(j);
        double* const y = o.c_column(j);
        if (!is_set(nonunit)) {
            add_scaled(o.m, *alpha, x, y);
            continue;
        }
        for (int i = 0; i < o.m; ++i) {
            const CsrRow row = o.a.row(i);
            for (int p = 0; p < row.count; ++p)
                if (row.column[p] == i + 1)
                    y[i] = static_cast<double>(y[i] + row.val[p] * o.alpha * x[i]);
        }
    }
}
