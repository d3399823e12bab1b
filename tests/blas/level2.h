// What the tests of Level 2 and Level 3 share: matrices and vectors in any layout, the plain matrices that
// they stand for, and what their products should be. Whatever is not to be read holds NaN; whatever is not
// to be written is compared afterwards.
#pragma once

#include "tests/common/matrix.h"
#include "vor_blas.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <functional>
#include <string>

namespace vor::test {

using Elements = testing::Types<float, double, cfloat, cdouble>;

struct StepPair {
    int x, y;
};
inline constexpr StepPair kSteps[] = {{1, 1}, {-1, 1}, {2, -3}, {-3, 2}, {1, 2}};
inline constexpr int kSingleSteps[] = {1, -1, 2, -3};

inline bool is_upper(char uplo) {
    return uplo == 'U' || uplo == 'u';
}

// How a matrix of given order lies in its array.
struct Layout {
    int rows, columns, ld;
    // Where element (i, j) is stored; below 0: nowhere.
    std::function<int(int i, int j)> place;

    // What the array holds up to the last element that is stored.
    size_t size() const {
        int last = -1;
        for (int j = 0; j < columns; ++j)
            for (int i = 0; i < rows; ++i) last = std::max(last, place(i, j));
        return static_cast<size_t>(last + 1);
    }
};

inline Layout full(int m, int n, int ld) {
    return {m, n, ld, [=](int i, int j) { return i + j * ld; }};
}
inline Layout band(int m, int n, int kl, int ku, int ld) {
    return {m, n, ld,
            [=](int i, int j) { return i - j <= kl && j - i <= ku ? ku + i - j + j * ld : -1; }};
}
inline Layout triangle(char uplo, int n, int ld) {
    return {n, n, ld,
            [=](int i, int j) { return (is_upper(uplo) ? i <= j : i >= j) ? i + j * ld : -1; }};
}
inline Layout band_triangle(char uplo, int n, int k, int ld) {
    return is_upper(uplo) ? band(n, n, 0, k, ld) : band(n, n, k, 0, ld);
}
inline Layout packed(char uplo, int n) {
    return {n, n, 0, [=](int i, int j) {
                if (is_upper(uplo)) return i <= j ? i + j * (j + 1) / 2 : -1;
                return i >= j ? i - j + j * n - j * (j - 1) / 2 : -1;
            }};
}
// n elements with a step.
inline Layout spaced(int n, int inc) {
    const int last = std::max(0, n - 1) * std::abs(inc);
    return {std::max(0, n), 1, 0, [=](int i, int) { return inc > 0 ? i * inc : last + i * inc; }};
}

// A matrix in its layout, random where something is stored.
template <class T>
class Stored {
public:
    explicit Stored(Layout layout)
        : layout_(std::move(layout)), store_(layout_.size(), next_offset()) {
        fill(not_a_number<T>());
    }
    Stored(Random& numbers, Layout layout) : Stored(std::move(layout)) {
        set([&](int, int) { return numbers.next<T>(); });
    }
    // value(i, j) into every stored element.
    template <class F>
    void set(F value) {
        for (int j = 0; j < columns(); ++j)
            for (int i = 0; i < rows(); ++i)
                if (has(i, j)) (*this)(i, j) = value(i, j);
        remember();
    }
    // x all over, also where nothing is stored.
    void fill(T x) {
        std::fill(store_.begin(), store_.end(), x);
        remember();
    }
    bool has(int i, int j) const { return layout_.place(i, j) >= 0; }
    T& operator()(int i, int j) { return store_[static_cast<size_t>(layout_.place(i, j))]; }
    const T& operator()(int i, int j) const {
        return store_[static_cast<size_t>(layout_.place(i, j))];
    }
    T* data() { return store_.data(); }
    size_t size() const { return store_.size(); }
    const int& ld() const { return layout_.ld; }
    int rows() const { return layout_.rows; }
    int columns() const { return layout_.columns; }
    void remember() { before_ = store_.copy(); }
    T before(int i, int j) const { return before_[static_cast<size_t>(layout_.place(i, j))]; }
    bool unchanged() const {
        return same_bits(store_.data(), before_.data(), before_.size()) && store_.intact();
    }
    bool same_as(const Stored& other) const {
        return same_bits(store_.data(), other.store_.data(), store_.size());
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
    // Three objects out of four end right before a page that cannot be touched; the fourth has an address
    // of its own against the boundaries of vectors.
    static size_t next_offset() {
        static unsigned count = 0;
        return ++count % 4 == 0 ? sizeof(T) % 16 : Guarded<T>::kAnyOffset;
    }

    Layout layout_;
    Guarded<T> store_;
    std::vector<T> before_;
};

// A vector with a step; what lies between its elements is not stored.
template <class T>
class Steps : public Stored<T> {
public:
    Steps(int n, int inc) : Stored<T>(spaced(n, inc)), inc_(inc) {}
    static Steps random(Random& numbers, int n, int inc) {
        Steps v(n, inc);
        v.set([&](int, int) { return numbers.next<T>(); });
        return v;
    }
    T& operator[](int i) { return (*this)(i, 0); }
    const T& operator[](int i) const { return (*this)(i, 0); }
    const int& inc() const { return inc_; }
    int size() const { return this->rows(); }

private:
    int inc_;
};

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

// A plain matrix.
class Dense {
public:
    template <class F>
    Dense(int rows, int columns, F value) : rows_(rows), columns_(columns) {
        values_.reserve(static_cast<size_t>(rows) * static_cast<size_t>(columns));
        for (int j = 0; j < columns; ++j)
            for (int i = 0; i < rows; ++i) values_.push_back(value(i, j));
    }
    const Wide& operator()(int i, int j) const {
        return values_[static_cast<size_t>(j) * static_cast<size_t>(rows_) +
                       static_cast<size_t>(i)];
    }
    int rows() const { return rows_; }
    int columns() const { return columns_; }
    // Seen through a transposition letter.
    Dense under(char trans) const {
        if (plain(trans)) return *this;
        return {columns_, rows_, [&](int i, int j) {
                    return conjugated(trans) ? std::conj((*this)(j, i)) : (*this)(j, i);
                }};
    }

private:
    int rows_, columns_;
    std::vector<Wide> values_;
};

// The matrices that a stored one may stand for.
template <class T>
Dense general(const Stored<T>& a) {
    return {a.rows(), a.columns(),
            [&](int i, int j) { return a.has(i, j) ? wide(a(i, j)) : Wide(); }};
}
// Of a Hermitian one the imaginary part of the diagonal is not looked at.
template <class T>
Dense symmetric(const Stored<T>& a, bool hermitian) {
    return {a.rows(), a.columns(), [&](int i, int j) {
                if (hermitian && i == j) return Wide(wide(a(i, i)).real());
                if (a.has(i, j)) return wide(a(i, j));
                const Wide mirrored = a.has(j, i) ? wide(a(j, i)) : Wide();
                return hermitian ? std::conj(mirrored) : mirrored;
            }};
}
template <class T>
Dense triangular(const Stored<T>& a, bool unit) {
    return {a.rows(), a.columns(), [&](int i, int j) {
                if (unit && i == j) return Wide(1);
                return a.has(i, j) ? wide(a(i, j)) : Wide();
            }};
}

// NaNs where a matrix is not to be looked at: the imaginary parts of the diagonal, or all of it.
template <class T>
void hide_imaginary_diagonal(Stored<T>& a) {
    if constexpr (is_complex<T>)
        for (int i = 0; i < a.rows(); ++i) a(i, i).im = not_a_number<T>().im;
    a.remember();
}
// A triangle whose solutions stay of the size of their right sides, in place of a random one.
template <class T>
void make_solvable(Stored<T>& a, bool unit) {
    a.set([&](int i, int j) {
        const Wide x = wide(a(i, j));
        const auto n = static_cast<long double>(a.rows());
        if (i != j) return element<T>(x.real() / n, x.imag() / n);
        return unit ? not_a_number<T>() : element<T>(1.5 + x.real() / 2, x.imag());
    });
}

// alpha * left * right: a part of what a routine has to deliver.
struct Term {
    Wide alpha;
    Dense left, right;
};

// Element (i, j) of a term. What is multiplied by a scalar of 0, or by an element of 0, is not looked
// at.
inline Expected term_element(const Term& term, int i, int j) {
    if (term.alpha == Wide()) return {};
    Expected sum;
    for (int l = 0; l < term.left.columns(); ++l) {
        const Wide &x = term.left(i, l), &y = term.right(l, j);
        if (x == Wide() || y == Wide()) continue;
        sum.value += times(x, y);
        sum.scale += magnitude(x) * magnitude(y);
    }
    return {times(term.alpha, sum.value), magnitude(term.alpha) * sum.scale};
}

// The worst error of the terms in `got`, which held the addend before; with a Hermitian result its
// diagonal counts as real and has to be. Infinite if anything else was written.
template <class T>
double error_of_sum(const Stored<T>& got, const std::vector<Term>& terms, T beta,
                    bool hermitian = false) {
    bool real_diagonal = true;
    const double worst = worst_error<Stored, T>(got, [&](int i, int j) {
        Wide old = wide(got.before(i, j));
        if (hermitian && i == j) {
            old = old.real();
            real_diagonal &= wide(got(i, i)).imag() == 0;
        }
        Expected sum;
        for (const Term& term : terms) {
            const Expected one = term_element(term, i, j);
            sum.value += one.value;
            sum.scale += one.scale;
        }
        if (!is_zero(beta)) sum.add(times(wide(beta), old));
        return sum;
    });
    return real_diagonal && got.intact() ? worst : HUGE_VAL;
}
// The worst error of what `product` makes of a solution against alpha times the right sides, which stood
// in its place.
template <class T>
double error_of_solution(const Stored<T>& solution, const Term& product, T alpha) {
    ErrorMeter<T> worst;
    for (int j = 0; j < solution.columns(); ++j)
        for (int i = 0; i < solution.rows(); ++i) {
            const Wide side = times(wide(alpha), wide(solution.before(i, j)));
            const Expected got = term_element(product, i, j);
            const long double scale = got.scale + magnitude(side);
            worst.add(got.value.real(), side.real(), scale);
            worst.add(got.value.imag(), side.imag(), scale);
        }
    return solution.intact() ? worst.worst() : HUGE_VAL;
}

template <class T>
void meter(ErrorMeter<T>& worst, const T& got, const Expected& want) {
    worst.add(wide(got).real(), want.value.real(), want.scale);
    worst.add(wide(got).imag(), want.value.imag(), want.scale);
}

// The worst error of a family of routines against its bound; said at the end.
class WorstShare {
public:
    explicit WorstShare(const char* family) : family_(family) {}
    ~WorstShare() {
        if (worst_ > 0) std::printf("    worst error of %s: %.2f of the bound\n", family_, worst_);
    }
    void expect(double error, double bound, const std::string& what) {
        EXPECT_LE(error, bound) << what;
#pragma omp critical(worst_share)
        worst_ = std::max(worst_, error / bound);
    }

private:
    const char* family_;
    double worst_ = 0;
};

} // namespace vor::test
