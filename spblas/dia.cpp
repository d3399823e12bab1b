// Diagonal storage: A(i, i + idiag[l]) stands in row i of column l of val. Places outside of A are not read.
//
// A product adds one diagonal after the other, in the order of idiag, as updates of vectors in which each
// element of C is rounded. Blocks of rows and columns keep a section of B and C in the cache while all
// diagonals pass over it; threads share out the blocks of rows.
#include "spblas/dia.h"
#include "arith/x87.h"
#include "serv/team.h"
#include "spblas/checks.h"
#include "spblas/driver.h"
#include "vor_spblas.h"

#include <stdlib.h>

namespace vor::spblas {
namespace {

struct DiaMatrix {
    static constexpr bool kKernelsApplyBeta = true;
    static constexpr bool unit_diagonal_apart(char structure) {
        return structure == 'T' || structure == 'D';
    }

    const double* val;
    const int *lval, *idiag, *ndiag;

    const double* diagonal(int l) const { return column(val, *lval, l); }

    void multiply_general(const Product& p) const;
    void multiply_triangle(const Product& p, const Descriptor& d) const;
    void multiply_symmetric(const Product& p, const Descriptor& d) const;
    void multiply_skew(const Product& p, const Descriptor& d) const;
    void multiply_diagonal(const Product& p, const Descriptor& d) const { multiply_triangle(p, d); }
    void solve_triangle(const Solve& s, const Descriptor& d) const;
    void solve_diagonal(const Solve& s, const Descriptor& d) const;
};

// ---- One run of a diagonal

// c[i] += (alpha * val[i]) * b[i] in one or two columns. `scaled`: alpha is not 1.
template <int columns, bool scaled>
void add_run(int count, extended alpha, const double* val, const double* b, int ldb, double* c,
             int ldc) {
    const double* const b1 = b + (columns - 1) * ldb;
    double* const c1 = c + (columns - 1) * ldc;
#pragma GCC unroll 4
    for (int i = 0; i < count; ++i) {
        const extended factor = scaled ? loaded(val[i]) * alpha : loaded(val[i]);
        c[i] = static_cast<double>(factor * b[i] + c[i]);
        if (columns == 2) c1[i] = static_cast<double>(factor * b1[i] + c1[i]);
    }
}

// The same in all n columns of B and C.
void add_diagonal(int count, int n, double alpha, const double* val, const double* b, int ldb,
                  double* c, int ldc) {
    const bool scaled = alpha != 1;
    const auto two = scaled ? add_run<2, true> : add_run<2, false>;
    const auto one = scaled ? add_run<1, true> : add_run<1, false>;
    int j = 0;
    for (; j + 2 <= n; j += 2)
        two(count, alpha, val, column(b, ldb, j), ldb, column(c, ldc, j), ldc);
    if (j < n) one(count, alpha, val, column(b, ldb, j), ldb, column(c, ldc, j), ldc);
}

// ---- Which diagonals

// The diagonals of one triangle, by their numbers from 0; all of them are asked one by one where there is no
// memory for a table.
class Triangle {
public:
    Triangle(const DiaMatrix& a, bool lower, bool main) : a_(a), lower_(lower), main_(main) {
        numbers_ = static_cast<int*>(malloc(sizeof(int) * static_cast<size_t>(*a.ndiag) + 1));
        if (!numbers_) return;
        for (int l = 0; l < *a.ndiag; ++l)
            if (holds(l)) numbers_[count_++] = l;
    }
    ~Triangle() { free(numbers_); }
    Triangle(const Triangle&) = delete;
    Triangle& operator=(const Triangle&) = delete;

    bool has_table() const { return numbers_ != nullptr; }
    template <class F>
    void for_each(F f) const {
        if (numbers_)
            for (int k = 0; k < count_; ++k) f(numbers_[k]);
        else
            for (int l = 0; l < *a_.ndiag; ++l)
                if (holds(l)) f(l);
    }

private:
    bool holds(int l) const {
        const int d = a_.idiag[l];
        return d == 0 ? main_ : lower_ ? d < 0 : d > 0;
    }

    const DiaMatrix& a_;
    bool lower_, main_;
    int* numbers_;
    int count_ = 0;
};

struct All {
    int ndiag;
    template <class F>
    void for_each(F f) const {
        for (int l = 0; l < ndiag; ++l) f(l);
    }
};

// ---- Blocks

// Blocks of `most` elements at the most of a dimension; the last one runs to the end.
struct Blocks {
    int dimension, size, count;

    Blocks(int n, int most) : dimension(n), size(n < most ? n : most), count(n / size) {}
    int first(int block) const { return block * size; }
    int last(int block) const { return block == count - 1 ? dimension - 1 : first(block + 1) - 1; }
};

// Rows `first` to `last` of C, and columns of op(A) likewise, counted from 0.
struct Range {
    int first, last;
};

// What diagonal l adds to the part of C: op(A) sees it at distance e, its rows are i with i + e inside
// `columns`.
void add_part(const DiaMatrix& a, int l, const Product& p, Range rows, Range columns) {
    const int e = p.plain ? a.idiag[l] : -a.idiag[l];
    if (e < columns.first - rows.last || e > columns.last - rows.first) return;
    const int first = columns.first - e > rows.first ? columns.first - e : rows.first;
    const int last = columns.last - e < rows.last ? columns.last - e : rows.last;
    add_diagonal(last - first + 1, p.n, p.alpha, a.diagonal(l) + (p.plain ? first : first + e),
                 p.b + first + e, p.ldb, p.c + first, p.ldc);
}

void scale_rows(const Product& p, Range rows) {
    for (int j = 0; j < p.n; ++j)
        apply_beta(rows.last - rows.first + 1, p.beta, column(p.c, p.ldc, j) + rows.first);
}

// C := alpha * op(A) * B + beta * C over the given diagonals.
template <class Diagonals>
void multiply_blocks(const DiaMatrix& a, const Diagonals& diagonals, const Product& p) {
    constexpr int kRows = 20000, kColumns = 5000;
    const int m = p.rows(), k = p.plain ? p.k : p.m;
    if (m < 1 || k < 1) return;
    const Blocks row_blocks(m, kRows), column_blocks(k, kColumns);
    const auto block_of_rows = [&](int block) {
        const Range rows{row_blocks.first(block), row_blocks.last(block)};
        scale_rows(p, rows);
        for (int other = 0; other < column_blocks.count; ++other) {
            const Range columns{column_blocks.first(other), column_blocks.last(other)};
            diagonals.for_each([&](int l) { add_part(a, l, p, rows, columns); });
        }
    };
    const int threads = team_size();
    if (threads > 1) return team_loop(row_blocks.count, threads, block_of_rows);
    for (int block = 0; block < row_blocks.count; ++block) block_of_rows(block);
}

void multiply_main(const DiaMatrix& a, const Product& p) {
    const int order = p.m < p.k ? p.m : p.k;
    for (int l = 0; l < *a.ndiag; ++l)
        if (a.idiag[l] == 0) {
            add_diagonal(order, p.n, p.alpha, a.diagonal(l), p.b, p.ldb, p.c, p.ldc);
            return;
        }
}

// A symmetric or skew matrix of order m: each diagonal of the triangle adds to C where it stands, and where
// its mirror image stands `mirrored` times.
void multiply_mirrored(const DiaMatrix& a, const Triangle& triangle, const Product& p,
                       double mirrored) {
    constexpr int kRows = 10000;
    const int m = p.m;
    if (m < 1) return;
    const Blocks blocks(m, triangle.has_table() ? kRows : m);
    for (int block = 0; block < blocks.count; ++block)
        triangle.for_each([&](int l) {
            const int d = a.idiag[l];
            const int first = blocks.first(block) > -d ? blocks.first(block) : -d;
            const int end = m - d < blocks.last(block) + 1 ? m - d : blocks.last(block) + 1;
            const double* const val = a.diagonal(l) + first;
            if (end <= first) return;
            add_diagonal(end - first, p.n, p.alpha, val, p.b + first + d, p.ldb, p.c + first,
                         p.ldc);
            if (d == 0) return;
            add_diagonal(end - first, p.n, mirrored, val, p.b + first, p.ldb, p.c + first + d,
                         p.ldc);
        });
}

// ---- Substitution

// The unknowns row by row, upwards or downwards. The diagonals first to last stand beside the main one; those
// that reach a row are a run that begins at the main diagonal and grows with each row.
void substitute(const DiaMatrix& a, int m, bool plain, bool lower, bool nonunit, int first,
                int last, int main, double* x) {
    const bool upwards = plain == lower;
    const double* const main_diagonal = nonunit ? a.diagonal(main) : nullptr;
    int from = lower ? last + 1 : first, to = lower ? last : first - 1;
    const auto reaches = [&](int l, int i) {
        const int other = plain ? i + a.idiag[l] : i - a.idiag[l];
        return other >= 0 && other < m;
    };
    for (int step = 0; step < m; ++step) {
        const int i = upwards ? step : m - 1 - step;
        while (lower && from > first && reaches(from - 1, i)) --from;
        while (!lower && to < last && reaches(to + 1, i)) ++to;
        extended sum = x[i];
        for (int l = from; l <= to; ++l) {
            const int other = plain ? i + a.idiag[l] : i - a.idiag[l];
            sum -= loaded(a.diagonal(l)[plain ? i : other]) * x[other];
        }
        x[i] = static_cast<double>(nonunit ? sum / main_diagonal[i] : sum);
    }
}

} // namespace
} // namespace vor::spblas

using namespace vor;
using namespace vor::spblas;

#define MATRIX                                                                                     \
    DiaMatrix {                                                                                    \
        val, lval, idiag, ndiag                                                                    \
    }

VOR_ENGINE void vor_spblas_ddiammgk(const int* notrans, const int* m, const int* n, const int* k,
                                    const double* alpha, LIST_DIA, LIST_DIA_OPERANDS) {
    multiply_blocks(MATRIX, All{*ndiag},
                    {is_set(notrans), *m, *n, *k, *alpha, b, *ldb, *beta, c, *ldc});
}

VOR_ENGINE void vor_spblas_ddiammtd(const int* notrans, const int* diagonal, const int* lower,
                                    const int* nonunit, const int* m, const int* n, const int* k,
                                    const double* alpha, LIST_DIA, LIST_DIA_OPERANDS) {
    const DiaMatrix a = MATRIX;
    const Product p{is_set(notrans), *m, *n, *k, *alpha, b, *ldb, *beta, c, *ldc};
    const Range rows{0, p.rows() - 1}, columns{0, (p.plain ? p.k : p.m) - 1};
    if (is_set(diagonal)) {
        scale_rows(p, rows);
        if (is_set(nonunit)) multiply_main(a, p);
        return;
    }
    const Triangle triangle(a, is_set(lower), is_set(nonunit));
    if (triangle.has_table()) return multiply_blocks(a, triangle, p);
    scale_rows(p, rows);
    triangle.for_each([&](int l) { add_part(a, l, p, rows, columns); });
}

VOR_ENGINE void vor_spblas_ddiammsk(const int* lower, const int* nonunit, const int* m,
                                    const int* n, const double* alpha, LIST_DIA,
                                    LIST_DIA_OPERANDS) {
    const DiaMatrix a = MATRIX;
    const Product p{true, *m, *n, *m, *alpha, b, *ldb, *beta, c, *ldc};
    scale_rows(p, {0, p.m - 1});
    if (!is_set(nonunit)) add_unit_diagonal(p);
    multiply_mirrored(a, Triangle(a, is_set(lower), is_set(nonunit)), p, p.alpha);
}

VOR_ENGINE void vor_spblas_ddiammkk(const int* notrans, const int* lower, const int* m,
                                    const int* n, const double* alpha, LIST_DIA,
                                    LIST_DIA_OPERANDS) {
    const DiaMatrix a = MATRIX;
    const double factor = is_set(notrans) ? *alpha : -*alpha;
    const Product p{true, *m, *n, *m, factor, b, *ldb, *beta, c, *ldc};
    scale_rows(p, {0, p.m - 1});
    multiply_mirrored(a, Triangle(a, is_set(lower), false), p, -factor);
}

VOR_ENGINE void vor_spblas_gdiagpar(const int* lower, const int* nonunit, const int* idiag,
                                    const int* ndiag, int* first, int* last, int* low, int* high,
                                    int* status) {
    int p = 1;
    while (p <= *ndiag && idiag[p - 1] < 0) ++p;
    const bool has_main = p <= *ndiag && idiag[p - 1] == 0;
    if (is_set(lower)) {
        *first = *low = 1;
        *last = p - 1;
        *high = p;
    } else {
        *first = has_main ? p + 1 : p;
        *last = *high = *ndiag;
        *low = p;
    }
    *status = is_set(nonunit) && !has_main ? -1 : 0;
}

VOR_ENGINE void vor_spblas_ddiasvk(const int* m, const int* notrans, const int* lower,
                                   const int* nonunit, const double* val, const int* lval,
                                   const int* idiag, double* x, const int* first, const int* last,
                                   const int* low, const int* high) {
    const bool is_lower = is_set(lower);
    substitute({val, lval, idiag, nullptr}, *m, is_set(notrans), is_lower, is_set(nonunit),
               *first - 1, *last - 1, (is_lower ? *high : *low) - 1, x);
}

namespace vor::spblas {
namespace {

void DiaMatrix::multiply_general(const Product& p) const {
    const int plain = p.plain;
    vor_spblas_ddiammgk(&plain, &p.m, &p.n, &p.k, &p.alpha, val, lval, idiag, ndiag, p.b, &p.ldb,
                        &p.beta, p.c, &p.ldc);
}

void DiaMatrix::multiply_triangle(const Product& p, const Descriptor& d) const {
    const int plain = p.plain, diagonal = d.structure == 'D', lower = d.lower, nonunit = d.nonunit;
    vor_spblas_ddiammtd(&plain, &diagonal, &lower, &nonunit, &p.m, &p.n, &p.k, &p.alpha, val, lval,
                        idiag, ndiag, p.b, &p.ldb, &p.beta, p.c, &p.ldc);
}

void DiaMatrix::multiply_symmetric(const Product& p, const Descriptor& d) const {
    const int lower = d.lower, nonunit = d.nonunit;
    vor_spblas_ddiammsk(&lower, &nonunit, &p.m, &p.n, &p.alpha, val, lval, idiag, ndiag, p.b,
                        &p.ldb, &p.beta, p.c, &p.ldc);
}

void DiaMatrix::multiply_skew(const Product& p, const Descriptor& d) const {
    const int plain = p.plain, lower = d.lower;
    vor_spblas_ddiammkk(&plain, &lower, &p.m, &p.n, &p.alpha, val, lval, idiag, ndiag, p.b, &p.ldb,
                        &p.beta, p.c, &p.ldc);
}

void DiaMatrix::solve_triangle(const Solve& s, const Descriptor& d) const {
    if (*ndiag == 0) return;
    const int plain = s.plain, lower = d.lower, nonunit = d.nonunit;
    int first, last, low, high, status;
    vor_spblas_gdiagpar(&lower, &nonunit, idiag, ndiag, &first, &last, &low, &high, &status);
    if (status != 0) return;
    for (int j = 0; j < s.n; ++j)
        vor_spblas_ddiasvk(&s.m, &plain, &lower, &nonunit, val, lval, idiag, column(s.c, s.ldc, j),
                           &first, &last, &low, &high);
}

void DiaMatrix::solve_diagonal(const Solve& s, const Descriptor& d) const {
    for (int l = 0; l < *ndiag; ++l) {
        if (idiag[l] != 0) continue;
        for (int j = 0; j < s.n; ++j) {
            double* const c = column(s.c, s.ldc, j);
            for (int i = 0; i < s.m; ++i)
                c[i] = static_cast<double>(extended{c[i]} / diagonal(l)[i]);
        }
        return;
    }
    solve_triangle(s, d);
}

} // namespace
} // namespace vor::spblas

VOR_ENGINE void vor_spblas_ddiamm PARAMS_SPARSE_MM(LIST_DIA) {
    multiply(MATRIX, matdescra,
             {begins_with(transa, 'N'), *m, *n, *k, *alpha, b, *ldb, *beta, c, *ldc});
}
VOR_CHECKED_ENTRY(vor_ddiamm, VOR_DDIAMM, vor_spblas_ddiamm, vor_spblas_errchk_ddiamm,
                  PARAMS_SPARSE_MM(LIST_DIA), ARGS_SPARSE_MM(NAMES_DIA))

VOR_ENGINE void vor_spblas_ddiamv PARAMS_SPARSE_MV(LIST_DIA) {
    multiply(MATRIX, matdescra, Product::of_vector(transa, *m, *k, *alpha, x, *beta, y));
}
VOR_CHECKED_ENTRY(vor_ddiamv, VOR_DDIAMV, vor_spblas_ddiamv, vor_spblas_errchk_ddiamv,
                  PARAMS_SPARSE_MV(LIST_DIA), ARGS_SPARSE_MV(NAMES_DIA))

VOR_ENGINE void vor_spblas_ddiasv PARAMS_SPARSE_SV(LIST_DIA) {
    solve(MATRIX, descriptor_of(matdescra), Solve::of_vector(transa, *m, *alpha, x, y));
}
VOR_CHECKED_ENTRY(vor_ddiasv, VOR_DDIASV, vor_spblas_ddiasv, vor_spblas_errchk_ddiasv,
                  PARAMS_SPARSE_SV(LIST_DIA), ARGS_SPARSE_SV(NAMES_DIA))

VOR_ENGINE void vor_spblas_ddiasm PARAMS_SPARSE_SM(LIST_DIA) {
    solve(MATRIX, descriptor_of_many(matdescra),
          {begins_with(transa, 'N'), *m, *n, *alpha, b, *ldb, c, *ldc});
}
VOR_CHECKED_ENTRY(vor_ddiasm, VOR_DDIASM, vor_spblas_ddiasm, vor_spblas_errchk_ddiasm,
                  PARAMS_SPARSE_SM(LIST_DIA), ARGS_SPARSE_SM(NAMES_DIA))

VOR_ENGINE void vor_spblas_ddiagemv PARAMS_SPARSE_GEMV(LIST_DIA) {
    const int plain = begins_with(transa, 'N'), columns = 1;
    const double one = 1, zero = 0;
    vor_spblas_ddiammgk(&plain, m, &columns, m, &one, val, lval, idiag, ndiag, x, m, &zero, y, m);
}
VOR_CHECKED_ENTRY(vor_ddiagemv, VOR_DDIAGEMV, vor_spblas_ddiagemv, vor_spblas_errchk_ddiagemv,
                  PARAMS_SPARSE_GEMV(LIST_DIA), ARGS_SPARSE_GEMV(NAMES_DIA))

VOR_ENGINE void vor_spblas_ddiasymv PARAMS_SPARSE_SYMV(LIST_DIA) {
    const int lower = begins_with(uplo, 'L'), nonunit = 1, columns = 1;
    const double one = 1, zero = 0;
    vor_spblas_ddiammsk(&lower, &nonunit, m, &columns, &one, val, lval, idiag, ndiag, x, m, &zero,
                        y, m);
}
VOR_CHECKED_ENTRY(vor_ddiasymv, VOR_DDIASYMV, vor_spblas_ddiasymv, vor_spblas_errchk_ddiasymv,
                  PARAMS_SPARSE_SYMV(LIST_DIA), ARGS_SPARSE_SYMV(NAMES_DIA))

VOR_ENGINE void vor_spblas_ddiatrsv PARAMS_SPARSE_TRSV(LIST_DIA) {
    solve(MATRIX, triangle_of(uplo, diag), Solve::of_vector(transa, *m, 1, x, y));
}
VOR_CHECKED_ENTRY(vor_ddiatrsv, VOR_DDIATRSV, vor_spblas_ddiatrsv, vor_spblas_errchk_ddiatrsv,
                  PARAMS_SPARSE_TRSV(LIST_DIA), ARGS_SPARSE_TRSV(NAMES_DIA))
