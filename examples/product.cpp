// A matrix product from C++: rotations of a cloud of points, and how far the library's product is from
// the identity when a rotation meets its transpose. Build it with
//
//     g++ -m32 product.cpp $(pkg-config --cflags --libs vor)
#include <algorithm>
#include <cmath>
#include <iostream>
#include <vector>
#include <vor_blas.h>

// A column-major matrix and the product of two, each as it is ('N') or transposed ('T').
struct Matrix {
    Matrix(int r, int c)
        : rows(r), columns(c), data(static_cast<size_t>(r) * static_cast<size_t>(c)) {}
    double& operator()(int i, int j) { return data[static_cast<size_t>(i + j * rows)]; }
    int rows, columns;
    std::vector<double> data;
};

static Matrix product(const Matrix& a, char op_a, const Matrix& b, char op_b) {
    const int m = op_a == 'N' ? a.rows : a.columns, k = op_a == 'N' ? a.columns : a.rows;
    const int n = op_b == 'N' ? b.columns : b.rows;
    const double one = 1, zero = 0;
    Matrix c(m, n);
    dgemm(&op_a, &op_b, &m, &n, &k, &one, a.data.data(), &a.rows, b.data.data(), &b.rows, &zero,
          c.data.data(), &c.rows);
    return c;
}

int main() {
    const int n = 3, points = 1000;
    Matrix turn(n, n), cloud(n, points);
    const double angle = 0.3;
    turn(0, 0) = turn(1, 1) = std::cos(angle);
    turn(1, 0) = std::sin(angle);
    turn(0, 1) = -turn(1, 0);
    turn(2, 2) = 1;
    for (int j = 0; j < points; ++j)
        for (int i = 0; i < n; ++i) cloud(i, j) = std::sin(1.0 + i + 7.0 * j);

    Matrix there = product(turn, 'N', cloud, 'N');
    Matrix back = product(turn, 'T', there, 'N');
    Matrix identity = product(turn, 'N', turn, 'T');

    double moved = 0, missed = 0, off = 0;
    for (int j = 0; j < points; ++j)
        for (int i = 0; i < n; ++i) {
            moved = std::max(moved, std::abs(there(i, j) - cloud(i, j)));
            missed = std::max(missed, std::abs(back(i, j) - cloud(i, j)));
        }
    for (int j = 0; j < n; ++j)
        for (int i = 0; i < n; ++i) off = std::max(off, std::abs(identity(i, j) - (i == j)));
    std::cout << "farthest move      " << moved << "\nleft after return  " << missed
              << "\nR R^T - I          " << off << '\n';
    return moved > 0.1 && missed < 1e-15 && off < 1e-15 ? 0 : 1;
}
