// Storage of a triangle, by columns: full, packed, band. In each of them the stored elements of a
// column are neighbours: the diagonal, and `reach` elements on its one side, above it (upper) or
// below. Whoever walks a triangle by its columns knows no more of its storage.
#pragma once

#include "blas/kernel/columns_s.h"
#include "blas/letters.h"

namespace vor::blas {

template <class T>
struct FullTriangle {
    static constexpr bool kBand = false;
    bool upper;
    int n;
    T* a;
    int lda;

    T* diagonal(int j) const { return a + j * lda + j; }
    int reach(int j) const { return upper ? j : n - 1 - j; }
};

template <class T>
struct PackedTriangle {
    static constexpr bool kBand = false;
    bool upper;
    int n;
    T* a;

    T* diagonal(int j) const {
        const unsigned k = static_cast<unsigned>(j), order = static_cast<unsigned>(n);
        return a + (upper ? k * (k + 1) / 2 + k : k * order - k * (k - 1) / 2);
    }
    int reach(int j) const { return upper ? j : n - 1 - j; }
};

// k diagonals beside the main one.
template <class T>
struct BandTriangle {
    static constexpr bool kBand = true;
    bool upper;
    int n, k;
    T* a;
    int lda;

    T* diagonal(int j) const { return a + j * lda + (upper ? k : 0); }
    int reach(int j) const {
        const int whole = upper ? j : n - 1 - j;
        return whole < k ? whole : k;
    }
};

struct Rows {
    int first, count;
};

// The rows beside the diagonal that column j stores.
template <class Triangle>
[[gnu::always_inline]] inline Rows stored_rows(const Triangle& a, int j) {
    const int reach = a.reach(j);
    return {a.upper ? j - reach : j + 1, reach};
}

// The rows that `columns` columns from j on share: those beyond the corner that these columns have on
// the diagonal. A band can be too narrow to hold the corner; the count is negative then.
template <int columns, class Triangle>
Rows shared_rows(const Triangle& a, int j) {
    if (!a.upper) return {j + columns, a.reach(j) - columns + 1};
    const int first = stored_rows(a, j + columns - 1).first;
    return {first, j - first};
}

// The other rows beyond the corner that column j of a band stores.
template <class Triangle>
Rows rows_alone(const Triangle& a, int j, Rows shared) {
    const Rows stored = stored_rows(a, j);
    if (a.upper) return {stored.first, shared.first - stored.first};
    const int behind = shared.first + shared.count;
    return {behind, stored.first + stored.count - behind};
}

// Element (i, j), which is stored.
template <class Triangle>
auto* at(const Triangle& a, int i, int j) {
    return a.diagonal(j) + (i - j);
}

template <int columns, class Triangle>
auto columns_from(const Triangle& a, int row, int j) {
    Columns<columns, std::remove_cvref_t<decltype(*a.a)>> result;
#pragma GCC unroll 4
    for (int q = 0; q < columns; ++q) result.first[q] = at(a, row, j + q);
    return result;
}

} // namespace vor::blas
