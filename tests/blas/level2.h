// The Level 2 harness: routines by element type, vectors with steps, stored matrices of any layout and
// the plain matrices that they stand for. Whatever is not to be read holds NaN; whatever is not to be
// written is compared afterwards.
#pragma once

#include "tests/blas/level2_errors.h"
#include "tests/common/matrix.h"
#include "vor_blas.h"

#include <gtest/gtest.h>

#include <functional>

namespace vor::test {

// The routines of one type; on complex types the Hermitian twins stand for the symmetric ones.
template <class T>
struct Level2;
#define ROUTINES(p, T, ger_, symv_, sbmv_, spmv_, syr_, spr_, syr2_, spr2_)                        \
    template <>                                                                                    \
    struct Level2<T> {                                                                             \
        static constexpr auto gemv = p##gemv_, gbmv = p##gbmv_;                                    \
        static constexpr auto symv = p##symv_##_, sbmv = p##sbmv_##_, spmv = p##spmv_##_;          \
        static constexpr auto ger = p##ger_##_, syr = p##syr_##_, spr = p##spr_##_;                \
        static constexpr auto syr2 = p##syr2_##_, spr2 = p##spr2_##_;                              \
        static constexpr auto trmv = p##trmv_, tbmv = p##tbmv_, tpmv = p##tpmv_;                   \
        static constexpr auto trsv = p##trsv_, tbsv = p##tbsv_, tpsv = p##tpsv_;                   \
    };
#define REAL_ROUTINES(p, T) ROUTINES(p, T, ger, symv, sbmv, spmv, syr, spr, syr2, spr2)
#define COMPLEX_ROUTINES(p, T) ROUTINES(p, T, gerc, hemv, hbmv, hpmv, her, hpr, her2, hpr2)
REAL_ROUTINES(s, float)
REAL_ROUTINES(d, double)
COMPLEX_ROUTINES(c, vor::cfloat)
COMPLEX_ROUTINES(z, vor::cdouble)
#undef ROUTINES
#undef REAL_ROUTINES
#undef COMPLEX_ROUTINES

using Elements = testing::Types<float, double, vor::cfloat, vor::cdouble>;

struct StepPair {
    int x, y;
};
inline constexpr StepPair kSteps[] = {{1, 1}, {-1, 1}, {2, -3}, {-3, 2}, {1, 2}};
inline constexpr int kSingleSteps[] = {1, -1, 2, -3};

// n elements with a step; the gaps hold NaN.
template <class T>
class Steps {
public:
    Steps(int n, int inc)
        : n_(n), inc_(inc),
          store_(n < 1 ? 0 : static_cast<size_t>(n - 1) * static_cast<size_t>(std::abs(inc)) + 1,
                 sizeof(T)) {
        std::fill(store_.begin(), store_.end(), not_a_number<T>());
    }
    static Steps random(Random& numbers, int n, int inc) {
        Steps v(n, inc);
        for (int i = 0; i < n; ++i) v[i] = numbers.next<T>();
        return v;
    }
    Steps(const Steps& other) : Steps(other.n_, other.inc_) {
        std::copy(other.store_.data(), other.store_.data() + other.store_.size(), store_.begin());
    }
    T& operator[](int i) { return store_[position(i)]; }
    const T& operator[](int i) const { return store_[position(i)]; }
    T* data() { return store_.data(); }
    const int& inc() const { return inc_; }
    int size() const { return n_; }
    void fill(T x) {
        for (int i = 0; i < n_; ++i) (*this)[i] = x;
    }
    bool same_as(const Steps& other) const {
        return same_bits(store_.data(), other.store_.data(), store_.size());
    }
    // Nothing written but elements.
    bool intact() const {
        Steps blank(n_, inc_);
        for (int i = 0; i < n_; ++i) blank[i] = (*this)[i];
        return same_as(blank) && store_.intact();
    }

private:
    size_t position(int i) const {
        return static_cast<size_t>(inc_ > 0 ? i * inc_ : (i - n_ + 1) * inc_);
    }
    int n_, inc_;
    Guarded<T> store_;
};

// How a matrix of given order lies in its array.
struct Layout {
    int rows, columns, ld;
    size_t size;
    // Where element (i, j) is stored; below 0: nowhere.
    std::function<int(int i, int j)> place;
};

inline Layout full(int m, int n, int ld) {
    return {m, n, ld, static_cast<size_t>(ld) * static_cast<size_t>(n),
            [=](int i, int j) { return i + j * ld; }};
}
inline Layout band(int m, int n, int kl, int ku, int ld) {
    return {m, n, ld, static_cast<size_t>(ld) * static_cast<size_t>(n),
            [=](int i, int j) { return i - j <= kl && j - i <= ku ? ku + i - j + j * ld : -1; }};
}
inline Layout triangle(char uplo, int n, int ld) {
    return {n, n, ld, static_cast<size_t>(ld) * static_cast<size_t>(n),
            [=](int i, int j) { return (uplo == 'U' ? i <= j : i >= j) ? i + j * ld : -1; }};
}
inline Layout band_triangle(char uplo, int n, int k, int ld) {
    return uplo == 'U' ? band(n, n, 0, k, ld) : band(n, n, k, 0, ld);
}
inline Layout packed(char uplo, int n) {
    return {n, n, 0, static_cast<size_t>(n) * static_cast<size_t>(n + 1) / 2, [=](int i, int j) {
                if (uplo == 'U') return i <= j ? i + j * (j + 1) / 2 : -1;
                return i >= j ? i - j + j * n - j * (j - 1) / 2 : -1;
            }};
}

// The three layouts of a triangle of order n.
enum class Kind { full, packed, band };
struct Triangle {
    Kind kind;
    char uplo;
    int n, k; // k: diagonals of the band
    Layout layout;
};
inline std::vector<Triangle> triangles(int n) {
    std::vector<Triangle> all;
    for (const char uplo : {'U', 'L'}) {
        all.push_back({Kind::full, uplo, n, n, triangle(uplo, n, n + 2)});
        all.push_back({Kind::packed, uplo, n, n, packed(uplo, n)});
        for (const int k : {0, 1, 2, 3, n / 2, n + 1})
            all.push_back({Kind::band, uplo, n, k, band_triangle(uplo, n, k, k + 2)});
    }
    return all;
}
// A matrix in its layout, random where something is stored.
template <class T>
class Stored {
public:
    Stored(Random& numbers, Layout layout)
        : layout_(std::move(layout)), store_(layout_.size, sizeof(T)) {
        std::fill(store_.begin(), store_.end(), not_a_number<T>());
        for (int j = 0; j < layout_.columns; ++j)
            for (int i = 0; i < layout_.rows; ++i)
                if (has(i, j)) (*this)(i, j) = numbers.next<T>();
        remember();
    }
    bool has(int i, int j) const { return layout_.place(i, j) >= 0; }
    T& operator()(int i, int j) { return store_[static_cast<size_t>(layout_.place(i, j))]; }
    const T& operator()(int i, int j) const {
        return store_[static_cast<size_t>(layout_.place(i, j))];
    }
    T* data() { return store_.data(); }
    const int& ld() const { return layout_.ld; }
    int rows() const { return layout_.rows; }
    int columns() const { return layout_.columns; }
    void fill(T x) { std::fill(store_.begin(), store_.end(), x); }
    void remember() { before_ = store_.copy(); }
    T before(int i, int j) const { return before_[static_cast<size_t>(layout_.place(i, j))]; }
    bool unchanged() const {
        return same_bits(store_.data(), before_.data(), before_.size()) && store_.intact();
    }
    // Only stored elements were written.
    bool intact() const {
        std::vector<T> expected = before_;
        for (int j = 0; j < columns(); ++j)
            for (int i = 0; i < rows(); ++i)
                if (has(i, j)) expected[static_cast<size_t>(layout_.place(i, j))] = (*this)(i, j);
        return same_bits(store_.data(), expected.data(), expected.size()) && store_.intact();
    }

private:
    Layout layout_;
    Guarded<T> store_;
    std::vector<T> before_;
};

// The matrix that a stored one stands for.
using Dense = std::function<Wide(int i, int j)>;

template <class T>
Dense general(const Stored<T>& a) {
    return [&a](int i, int j) { return a.has(i, j) ? wide(a(i, j)) : Wide(); };
}
template <class T>
Dense hermitian(const Stored<T>& a) {
    return [&a](int i, int j) {
        if (i == j) return Wide(wide(a(i, i)).real());
        return a.has(i, j) ? wide(a(i, j)) : a.has(j, i) ? std::conj(wide(a(j, i))) : Wide();
    };
}
template <class T>
Dense triangular(const Stored<T>& a, char diag) {
    return [&a, diag](int i, int j) {
        if (i == j && diag == 'U') return Wide(1);
        return a.has(i, j) ? wide(a(i, j)) : Wide();
    };
}
inline Dense under(char trans, const Dense& a) {
    if (plain(trans)) return a;
    const bool conjugate = conjugated(trans);
    return [=](int i, int j) { return conjugate ? std::conj(a(j, i)) : a(j, i); };
}

// alpha * A(i, :) * x + beta * y(i), the terms with a scalar of 0 left out.
template <class T>
Expected product_row(T alpha, const Dense& a, int i, const Steps<T>& x, T beta, const T& y) {
    Expected sum;
    if (!is_zero(alpha))
        for (int j = 0; j < x.size(); ++j) {
            const Wide entry = a(i, j);
            if (entry == Wide()) continue;
            sum.value += times(entry, wide(x[j]));
            sum.scale += magnitude(entry) * magnitude(wide(x[j]));
        }
    Expected result{times(wide(alpha), sum.value), magnitude(wide(alpha)) * sum.scale};
    if (!is_zero(beta)) result.add(times(wide(beta), wide(y)));
    return result;
}

template <class T>
void meter(ErrorMeter<T>& worst, const T& got, const Expected& want) {
    worst.add(wide(got).real(), want.value.real(), want.scale);
    worst.add(wide(got).imag(), want.value.imag(), want.scale);
}

// The units of eps that a sum of so many terms may be off: half a unit for each rounding, and a
// complex product takes three.
template <class T>
double sum_bound(int terms) {
    return 0.5 * (is_complex<T> ? 3 : 2) * terms + 3;
}

} // namespace vor::test
