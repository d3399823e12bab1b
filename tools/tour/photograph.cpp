// A photograph in a fraction of its numbers: the nearest matrix of low rank, by block power iteration,
// that is by matrix products.
//
// With A the pixels (rows by columns, the colours side by side) and Q an orthonormal basis of k columns,
// Q := orthonormalised A (A^T Q) turns towards the k directions in which A is largest, and Q (Q^T A) is
// what they hold of A.
// (Stewart: Simultaneous iteration for computing invariant subspaces of non-Hermitian matrices, Numer.
// Math. 25 (1976) 123-136. Nearest matrix: Eckart, Young, Psychometrika 1 (1936) 211-218.)
#include "tools/picture.h"
#include "tools/tour/chapters.h"
#include "vor_blas.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>

namespace vor::tool {

namespace {

constexpr int kRank = 40, kSteps = 12;
constexpr int kColours = 3;

// Column-major.
struct Matrix {
    Matrix(int m, int n)
        : rows(m), columns(n), values(static_cast<size_t>(m) * static_cast<size_t>(n)) {}
    double* column(int j) { return values.data() + static_cast<ptrdiff_t>(j) * rows; }
    double& operator()(int i, int j) { return column(j)[i]; }
    int rows, columns;
    std::vector<double> values;
};

// Products, timed together.
class Products {
public:
    // c := op(a) * op(b)
    void multiply(const char* op_a, const char* op_b, const Matrix& a, const Matrix& b, Matrix& c) {
        const int k = *op_a == 'N' ? a.columns : a.rows;
        const double one = 1, zero = 0;
        const auto start = std::chrono::steady_clock::now();
        dgemm(op_a, op_b, &c.rows, &c.columns, &k, &one, a.values.data(), &a.rows, b.values.data(),
              &b.rows, &zero, c.values.data(), &c.rows);
        const std::chrono::duration<double> time = std::chrono::steady_clock::now() - start;
        seconds_ += time.count();
        operations_ += 2.0 * c.rows * c.columns * k;
    }
    double seconds() const { return seconds_; }
    double rate() const { return operations_ / seconds_; }

private:
    double seconds_ = 0, operations_ = 0;
};

// Gram-Schmidt, twice over each column: once more is enough.
void orthonormalise(Matrix& q) {
    const int n = q.rows, step = 1;
    for (int j = 0; j < q.columns; ++j) {
        for (int pass = 0; pass < 2; ++pass)
            for (int i = 0; i < j; ++i) {
                const double minus = -ddot(&n, q.column(i), &step, q.column(j), &step);
                daxpy(&n, &minus, q.column(i), &step, q.column(j), &step);
            }
        const double scale = 1 / dnrm2(&n, q.column(j), &step);
        dscal(&n, &scale, q.column(j), &step);
    }
}

Matrix pixels(const Picture& picture) {
    Matrix a(picture.height, picture.width * kColours);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            for (int c = 0; c < kColours; ++c)
                a(y, c * picture.width + x) = picture.at(x, y)[static_cast<size_t>(c)];
    return a;
}

Picture as_picture(Matrix& a) {
    Picture picture(a.columns / kColours, a.rows);
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            for (int c = 0; c < kColours; ++c)
                picture.at(x, y)[static_cast<size_t>(c)] = static_cast<unsigned char>(
                    std::clamp(a(y, c * picture.width + x) + 0.5, 0.0, 255.0));
    return picture;
}

// The nearest matrix of rank kRank.
Matrix approximate(const Matrix& a, Products& products) {
    Matrix q(a.rows, kRank), mirrored(a.columns, kRank), nearest(a.rows, a.columns);
    unsigned state = 1;
    for (double& value : q.values) value = (state = state * 1664525u + 1013904223u) * 0x1p-32 - 0.5;
    for (int step = 0; step < kSteps; ++step) {
        orthonormalise(q);
        products.multiply("T", "N", a, q, mirrored);
        products.multiply("N", "N", a, mirrored, q);
    }
    orthonormalise(q);
    products.multiply("T", "N", a, q, mirrored);
    products.multiply("N", "T", q, mirrored, nearest);
    return nearest;
}

double norm(const std::vector<double>& x) {
    const int n = static_cast<int>(x.size()), step = 1;
    return dnrm2(&n, x.data(), &step);
}

} // namespace

bool compressed_photograph(const Tour& tour) {
    const Picture picture = read_picture(tour.data("china.jpg"));
    const Matrix a = pixels(picture);
    Products products;
    Matrix nearest = approximate(a, products);
    std::vector<double> difference = nearest.values;
    const int n = static_cast<int>(difference.size()), step = 1;
    const double minus_one = -1;
    daxpy(&n, &minus_one, a.values.data(), &step, difference.data(), &step);
    const double left = norm(difference) / norm(a.values);
    const double kept = static_cast<double>(kRank) * (a.rows + a.columns) / n;
    std::printf("%d by %d pixels in three colours: a matrix of %d by %d\n", picture.width,
                picture.height, a.rows, a.columns);
    std::printf("rank %d keeps %.1f%% of the numbers and all but %.1f%% of their size\n", kRank,
                100 * kept, 100 * left);
    std::printf("%d products by dgemm: %.0f ms, %.2f GFLOP/s\n\n", 2 * kSteps + 2,
                1000 * products.seconds(), products.rate() * 1e-9);
    for (const auto& [name, image] : {std::pair("photograph-before.png", picture),
                                      {"photograph-after.png", as_picture(nearest)}}) {
        write_png(tour.output + "/" + name, image);
        std::printf("picture: %s/%s\n", tour.output.c_str(), name);
    }
    return left < 0.2; // a picture that does not resemble the photograph is a fault of the products
}

} // namespace vor::tool
