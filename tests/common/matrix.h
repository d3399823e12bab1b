// Matrices for tests: column-major storage whose padding is watched, operands seen through a
// transposition letter, products and their sums of magnitudes in extended precision.
#pragma once

#include "tests/common/numbers.h"

#include <complex>

namespace vor::test {

// The value of an element of any type, exactly.
using Wide = std::complex<long double>;

template <class T>
Wide wide(const T& x) {
    if constexpr (is_complex<T>)
        return {x.re, x.im};
    else
        return {x, 0};
}

// The element of type T with the given parts, rounded to it; the imaginary one counts only for a
// complex T.
template <class T>
T element(long double re, long double im = 0) {
    using Real = real_t<T>;
    if constexpr (is_complex<T>)
        return {static_cast<Real>(re), static_cast<Real>(im)};
    else
        return static_cast<Real>(re);
}

template <class T>
T not_a_number() {
    const auto nan = std::numeric_limits<long double>::quiet_NaN();
    return element<T>(nan, nan);
}

// A complex product without the special cases of the standard's operator.
inline Wide times(Wide x, Wide y) {
    return {x.real() * y.real() - x.imag() * y.imag(), x.real() * y.imag() + x.imag() * y.real()};
}

// |re| + |im|: within a factor of two of everything that an error of x may be measured by.
inline long double magnitude(Wide x) {
    return std::fabs(x.real()) + std::fabs(x.imag());
}

inline bool plain(char letter) {
    return letter == 'N' || letter == 'n';
}

inline bool conjugated(char letter) {
    return !plain(letter) && letter != 'T' && letter != 't';
}

// A rows by columns matrix with leading dimension rows + gap (at least 1), at an address `offset`
// bytes above a multiple of 16, or right before a page that cannot be touched. The gap below each column
// holds NaNs of one pattern; below the last one there is none, so that the last element ends the memory.
template <class T>
class Matrix {
public:
    static constexpr size_t kAnyOffset = Guarded<T>::kAnyOffset;

    Matrix(int rows, int columns, int gap = 0, size_t offset = kAnyOffset)
        : rows_(rows), columns_(columns), ld_(std::max(1, rows + gap)),
          store_(rows < 1 || columns < 1 ? 0 : position(rows - 1, columns - 1) + 1, offset) {
        std::memset(static_cast<void*>(store_.data()), 0xff, store_.size() * sizeof(T));
    }
    // The matrix that is stored when op(matrix) is rows by columns.
    static Matrix stored(char letter, int rows, int columns, int gap = 0,
                         size_t offset = kAnyOffset) {
        return plain(letter) ? Matrix(rows, columns, gap, offset)
                             : Matrix(columns, rows, gap, offset);
    }
    static Matrix random(Random& numbers, char letter, int rows, int columns, int gap = 0,
                         size_t offset = kAnyOffset) {
        Matrix result = stored(letter, rows, columns, gap, offset);
        result.fill([&](int, int) { return numbers.next<T>(); });
        return result;
    }
    Matrix(Matrix&&) = default;
    Matrix(const Matrix&) = default;

    // value(i, j) into every element, the gaps left alone.
    template <class F>
    void fill(F value) {
        for (int j = 0; j < columns_; ++j)
            for (int i = 0; i < rows_; ++i) (*this)(i, j) = value(i, j);
    }
    void fill(const T& x) {
        fill([&](int, int) { return x; });
    }

    int rows() const { return rows_; }
    int columns() const { return columns_; }
    const int& ld() const { return ld_; } // a place in memory: the routines take it by reference
    T* data() { return store_.data(); }
    const T* data() const { return store_.data(); }
    T& operator()(int i, int j) { return store_[position(i, j)]; }
    const T& operator()(int i, int j) const { return store_[position(i, j)]; }

    // Whether nothing was written around the matrix or into the gaps.
    bool intact() const {
        const T pattern = gap_pattern();
        for (int j = 0; rows_ > 0 && j < columns_ - 1; ++j)
            for (int i = rows_; i < ld_; ++i)
                if (!same_bits((*this)(i, j), pattern)) return false;
        return store_.intact();
    }
    bool has(int, int) const { return true; }
    bool same_as(const Matrix& other) const {
        return same_bits(data(), other.data(), store_.size());
    }

private:
    static T gap_pattern() {
        T pattern;
        std::memset(&pattern, 0xff, sizeof(T));
        return pattern;
    }
    size_t position(int i, int j) const {
        return static_cast<size_t>(j) * static_cast<size_t>(ld_) + static_cast<size_t>(i);
    }
    int rows_, columns_, ld_;
    Guarded<T> store_;
};

// op(matrix) for a transposition letter: N, T, or anything else for the conjugate transpose (of a
// real matrix: the transpose).
template <class T>
class Operand {
public:
    Operand(const Matrix<T>& matrix, char letter) : matrix_(matrix), letter_(letter) {}
    T operator()(int i, int j) const {
        T x = plain(letter_) ? matrix_(i, j) : matrix_(j, i);
        if constexpr (is_complex<T>)
            if (conjugated(letter_)) x.im = -x.im;
        return x;
    }

private:
    const Matrix<T>& matrix_;
    char letter_;
};

// What an element should be, and the sum of the magnitudes of the terms that make it.
struct Expected {
    Wide value;
    long double scale = 0;
    void add(Wide term) {
        value += term;
        scale += magnitude(term);
    }
};

// Element (i, j) of alpha * op(A) * op(B) + beta * C by a plain sum over k terms. With alpha = 0 the
// operands, with beta = 0 the old element are not looked at.
template <class T>
Expected product_element(T alpha, const Operand<T>& a, const Operand<T>& b, int k, T beta,
                         const Matrix<T>& c, int i, int j) {
    Expected sum;
    for (int l = 0; l < (is_zero(alpha) ? 0 : k); ++l) {
        const Wide x = wide(a(i, l)), y = wide(b(l, j));
        sum.value += times(x, y);
        sum.scale += magnitude(x) * magnitude(y);
    }
    Expected result{times(wide(alpha), sum.value), magnitude(wide(alpha)) * sum.scale};
    if (!is_zero(beta)) result.add(times(wide(beta), wide(c(i, j))));
    return result;
}

// The worst error of the elements that `got` has, against expected(i, j), in units of eps times the
// scale.
template <template <class> class M, class T, class F>
double worst_error(const M<T>& got, F expected) {
    ErrorMeter<T> meter;
    for (int j = 0; j < got.columns(); ++j)
        for (int i = 0; i < got.rows(); ++i) {
            if (!got.has(i, j)) continue;
            const Expected want = expected(i, j);
            const Wide value = wide(got(i, j));
            meter.add(value.real(), want.value.real(), want.scale);
            meter.add(value.imag(), want.value.imag(), want.scale);
        }
    return meter.worst();
}

} // namespace vor::test
