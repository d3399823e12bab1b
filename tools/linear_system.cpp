#include "tools/linear_system.h"
#include "tools/failure.h"
#include "vor_blas.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace vor::tool {

namespace {

constexpr double kOne = 1, kMinusOne = -1, kZero = 0;
constexpr double kUnit = 0x1p-53;
constexpr int kStep = 1;

// A pivot this small beside the largest element of its column in A is no larger than what the
// rounding errors of the factors may have put there.
double noise(int order) {
    return order * kUnit;
}

class Cholesky {
public:
    explicit Cholesky(DenseMatrix& a) : a_(a), n_(a.rows) {}
    // A = L L^T, L over the lower triangle; false if A is not positive definite.
    bool factor() {
        for (int j = 0; j < n_; ++j) diagonal_.push_back(a_.at(j, j));
        return factor(0, n_);
    }
    void substitute(Vector& x) const {
        dtrsm("L", "L", "N", "N", &n_, &kStep, &kOne, a_.values.data(), &n_, x.data(), &n_);
        dtrsm("L", "L", "T", "N", &n_, &kStep, &kOne, a_.values.data(), &n_, x.data(), &n_);
    }

private:
    bool factor(int first, int n) {
        if (n == 1) {
            double& pivot = a_.at(first, first);
            if (!(pivot > noise(n_) * diagonal_[static_cast<size_t>(first)])) return false;
            pivot = std::sqrt(pivot);
            return true;
        }
        const int half = n / 2, rest = n - half, middle = first + half;
        if (!factor(first, half)) return false;
        dtrsm("R", "L", "T", "N", &rest, &half, &kOne, &a_.at(first, first), &n_,
              &a_.at(middle, first), &n_);
        dsyrk("L", "N", &rest, &half, &kMinusOne, &a_.at(middle, first), &n_, &kOne,
              &a_.at(middle, middle), &n_);
        return factor(middle, rest);
    }

    DenseMatrix& a_;
    int n_;
    Vector diagonal_;
};

class Lu {
public:
    Lu(DenseMatrix& a, const std::string& name) : a_(a), n_(a.rows), name_(name) {}
    // P A = L U, both over A. Throws Failure if a pivot is lost in rounding errors.
    void factor() {
        for (int j = 0; j < n_; ++j) {
            const double* column = &a_.at(0, j);
            largest_.push_back(std::fabs(column[largest(column, n_)]));
        }
        factor(0, n_);
    }
    void substitute(Vector& x) const {
        for (size_t j = 0; j < pivots_.size(); ++j)
            std::swap(x[j], x[static_cast<size_t>(pivots_[j])]);
        dtrsm("L", "L", "N", "U", &n_, &kStep, &kOne, a_.values.data(), &n_, x.data(), &n_);
        dtrsm("L", "U", "N", "N", &n_, &kStep, &kOne, a_.values.data(), &n_, x.data(), &n_);
    }

private:
    static int largest(const double* column, int n) {
        return static_cast<int>(
            std::max_element(column, column + n,
                             [](double a, double b) { return std::fabs(a) < std::fabs(b); }) -
            column);
    }
    // Columns first to first + n - 1, which are up to date, from the diagonal down.
    void factor(int first, int n) {
        if (n == 1) return factor_column(first);
        const int half = n / 2, rest = n - half, middle = first + half, below = n_ - middle;
        factor(first, half);
        exchange(first, middle, middle, rest);
        dtrsm("L", "L", "N", "U", &half, &rest, &kOne, &a_.at(first, first), &n_,
              &a_.at(first, middle), &n_);
        dgemm("N", "N", &below, &rest, &half, &kMinusOne, &a_.at(middle, first), &n_,
              &a_.at(first, middle), &n_, &kOne, &a_.at(middle, middle), &n_);
        factor(middle, rest);
        exchange(middle, first + n, first, half);
    }
    void factor_column(int j) {
        double* column = &a_.at(j, j);
        const int down = largest(column, n_ - j);
        if (!(std::fabs(column[down]) > noise(n_) * largest_[static_cast<size_t>(j)]))
            throw Failure(name_ + ": singular: column " + std::to_string(j + 1) +
                          " depends on those before it");
        std::swap(column[0], column[down]);
        pivots_.push_back(j + down);
        for (int i = 1; i < n_ - j; ++i) column[i] /= column[0];
    }
    // The row exchanges of columns `from` to `to` - 1, in `count` columns from `first` on.
    void exchange(int from, int to, int first, int count) {
        for (int j = from; j < to; ++j)
            dswap(&count, &a_.at(j, first), &n_, &a_.at(pivots_[static_cast<size_t>(j)], first),
                  &n_);
    }

    DenseMatrix& a_;
    int n_;
    const std::string& name_;
    Vector largest_; // magnitude in each column of A
    std::vector<int> pivots_;
};

bool symmetric(const DenseMatrix& a) {
    for (int j = 0; j < a.columns; ++j)
        for (int i = j + 1; i < a.rows; ++i)
            if (a.at(i, j) != a.at(j, i)) return false;
    return true;
}

double largest(const Vector& x) {
    double most = 0;
    for (double v : x) {
        if (std::isnan(v)) return v;
        most = std::max(most, std::fabs(v));
    }
    return most;
}

double scaled_residual(const DenseMatrix& a, const Vector& b, const Vector& x) {
    Vector r = product(a, x), sums(b.size());
    for (size_t i = 0; i < b.size(); ++i) r[i] -= b[i];
    for (int j = 0; j < a.columns; ++j)
        for (int i = 0; i < a.rows; ++i) sums[static_cast<size_t>(i)] += std::fabs(a.at(i, j));
    const double scale = kUnit * (largest(sums) * largest(x) + largest(b));
    return scale > 0 ? largest(r) / scale : 0;
}

} // namespace

Vector product(const DenseMatrix& a, const Vector& x) {
    Vector y(static_cast<size_t>(a.rows));
    dgemv("N", &a.rows, &a.columns, &kOne, a.values.data(), &a.rows, x.data(), &kStep, &kZero,
          y.data(), &kStep);
    return y;
}

Solution solve(const DenseMatrix& a, const Vector& b, const std::string& name) {
    const auto timed = [](auto&& work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    };
    Solution s = {b, false, 0, 0, 0};
    const double cube = std::pow(a.rows, 3);
    DenseMatrix factors = a;
    if (symmetric(a)) {
        Cholesky cholesky(factors);
        s.seconds = timed([&] {
            s.cholesky = cholesky.factor();
            if (s.cholesky) cholesky.substitute(s.x);
        });
        s.flops = cube / 3;
    }
    if (!s.cholesky) {
        factors = a;
        Lu lu(factors, name);
        s.seconds = timed([&] {
            lu.factor();
            lu.substitute(s.x);
        });
        s.flops = 2 * cube / 3;
    }
    s.residual = scaled_residual(a, b, s.x);
    if (!std::isfinite(largest(s.x)))
        throw Failure(name + ": the solution leaves the range of double precision");
    return s;
}

void print_solution(const DenseMatrix& a, const Solution& s, bool known) {
    std::printf("%d equations, %s\n", a.rows,
                s.cholesky ? "symmetric and positive definite: Cholesky's method"
                           : "LU with partial pivoting");
    std::printf("%.3g seconds, %.2f GFLOP/s\n", s.seconds, s.flops / s.seconds * 1e-9);
    std::printf("residual %.2g roundings of ||A|| ||x|| + ||b||\n", s.residual);
    if (!known) return;
    Vector error = s.x;
    for (double& e : error) e -= 1;
    std::printf("largest error %.1e, of a solution that is all ones\n", largest(error));
}

} // namespace vor::tool
