// Sums over the entries of a row, in their order: sum += factor(val) * x[column].
//
// A sum waits for the latency of each of its additions, and a row of twenty entries fills what the processor
// looks ahead. Four rows take turns, so that four sums are under way; that changes no bit of any of them.
#pragma once

#include "arith/x87.h"
#include "spblas/csr.h"

namespace vor::spblas {

// factor(val) of a product without alpha, and with it.
struct Plain {
    extended operator()(const double& val) const { return loaded(val); }
};
struct Scaled {
    extended alpha;
    extended operator()(const double& val) const { return loaded(val) * alpha; }
};

// Entries `from` on.
template <class Factor>
[[gnu::always_inline]] inline extended add_entries(const CsrRow& row, int from, Factor factor,
                                                   const double* x, extended sum) {
    --x;
    for (int p = from; p < row.count; ++p) sum += factor(row.val[p]) * x[row.column[p]];
    return sum;
}

constexpr int kRowsTogether = 4;

// Entries 0 to count - 1 of four rows.
template <class Factor>
[[gnu::always_inline]] inline void add_together(const CsrRow* row, int count, Factor factor,
                                                const double* x, extended& s0, extended& s1,
                                                extended& s2, extended& s3) {
    --x;
    for (int p = 0; p < count; ++p) {
        s0 += factor(row[0].val[p]) * x[row[0].column[p]];
        s1 += factor(row[1].val[p]) * x[row[1].column[p]];
        s2 += factor(row[2].val[p]) * x[row[2].column[p]];
        s3 += factor(row[3].val[p]) * x[row[3].column[p]];
    }
}

// Whole groups of four rows of `length` entries each, from row i on as long as there are such: straight-line
// code from one address. The rows follow one another in the arrays, row i begins at pntr[i]. The first row
// left.
template <int length, class Factor, class Start, class End>
[[gnu::noinline]] int sum_alike_rows(int i, int behind, const int* pntr, CsrRow row, Factor factor,
                                     const double* x, Start start, End end) {
    --x;
    const auto term = [&](int at) __attribute__((always_inline)) {
        return factor(row.val[at]) * x[row.column[at]];
    };
    for (; i + kRowsTogether <= behind; i += kRowsTogether) {
        const int first = pntr[i];
        if (pntr[i + 1] != first + length || pntr[i + 2] != first + 2 * length ||
            pntr[i + 3] != first + 3 * length || pntr[i + 4] != first + 4 * length)
            break;
        extended s0 = start(i), s1 = start(i + 1), s2 = start(i + 2), s3 = start(i + 3);
#pragma GCC unroll 8
        for (int p = 0; p < length; ++p) {
            s0 += term(p);
            s1 += term(length + p);
            s2 += term(2 * length + p);
            s3 += term(3 * length + p);
        }
        end(i, s0);
        end(i + 1, s1);
        end(i + 2, s2);
        end(i + 3, s3);
        row.val += kRowsTogether * length;
        row.column += kRowsTogether * length;
    }
    return i;
}

// Four rows of any lengths.
template <class Factor, class Start, class End>
[[gnu::always_inline]] inline void sum_four_rows(const CsrMatrix& a, int i, Factor factor,
                                                 const double* x, Start start, End end) {
    const CsrRow r[] = {a.row(i), a.row(i + 1), a.row(i + 2), a.row(i + 3)};
    extended s0 = start(i), s1 = start(i + 1), s2 = start(i + 2), s3 = start(i + 3);
    const int low = r[0].count < r[1].count ? r[0].count : r[1].count;
    const int high = r[2].count < r[3].count ? r[2].count : r[3].count;
    const int least = low < high ? low : high, together = least > 0 ? least : 0;
    add_together(r, together, factor, x, s0, s1, s2, s3);
    end(i, add_entries(r[0], together, factor, x, s0));
    end(i + 1, add_entries(r[1], together, factor, x, s1));
    end(i + 2, add_entries(r[2], together, factor, x, s2));
    end(i + 3, add_entries(r[3], together, factor, x, s3));
}

// Row i for `count` of them from `first` on, each summed from start(i), the sum handed to end(i, sum). Grids and
// meshes have most of their rows of one short length.
template <class Factor, class Start, class End>
[[gnu::always_inline]] inline void sum_rows(const CsrMatrix& a, int first, int count, Factor factor,
                                            const double* x, Start start, End end) {
    const bool in_sequence = a.pntre == a.pntrb + 1;
    const int behind = first + count;
    int i = first;
    while (i + kRowsTogether <= behind) {
        const CsrRow row = a.row(i);
        const int from = i;
        if (in_sequence && row.count == 5)
            i = sum_alike_rows<5>(i, behind, a.pntrb, row, factor, x, start, end);
        else if (in_sequence && row.count == 7)
            i = sum_alike_rows<7>(i, behind, a.pntrb, row, factor, x, start, end);
        if (i > from) continue;
        sum_four_rows(a, i, factor, x, start, end);
        i += kRowsTogether;
    }
    for (; i < behind; ++i) end(i, add_entries(a.row(i), 0, factor, x, start(i)));
}

} // namespace vor::spblas
