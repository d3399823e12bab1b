// A sparse system from C++: the equations of a chain of springs are assembled from triples, multiplied, and
// solved with two triangles. Build it with
//
//     g++ -std=c++17 -m32 sparse.cpp $(pkg-config --cflags --libs vor)
#include <cmath>
#include <cstdio>
#include <vector>
#include <vor_spblas.h>

int main() {
    const int n = 50;
    // Triples in any order, rows and columns counted from 1: each spring between two masses adds to four places.
    std::vector<double> val;
    std::vector<int> row, col;
    const auto add = [&](int i, int j, double stiffness) {
        if (i < 1 || j < 1 || i > n || j > n) return; // a wall
        val.push_back(stiffness);
        row.push_back(i);
        col.push_back(j);
    };
    for (int spring = 0; spring <= n; ++spring) {
        add(spring, spring, 1);
        add(spring, spring + 1, -1);
        add(spring + 1, spring, -1);
        add(spring + 1, spring + 1, 1);
    }
    const int nnz = static_cast<int>(val.size());

    // The forces that hold the masses displaced by x: entries at one place add up.
    std::vector<double> x(n), force(n);
    for (int i = 0; i < n; ++i) x[i] = std::sin(0.3 * i);
    vor_dcoogemv("N", &n, val.data(), row.data(), col.data(), &nnz, x.data(), force.data());

    // The matrix is tridiagonal, (-1, 2, -1), and is the product of the lower triangle with 1 on the diagonal and
    // -k / (k + 1) below it, and an upper one with (k + 1) / k on the diagonal and -1 above it. Both go into one
    // set of compressed rows: the solves read their own side of the diagonal.
    std::vector<double> lu;
    std::vector<int> ia{1}, ja;
    for (int k = 1; k <= n; ++k) {
        if (k > 1) lu.push_back(-(k - 1.0) / k), ja.push_back(k - 1);
        lu.push_back((k + 1.0) / k), ja.push_back(k);
        if (k < n) lu.push_back(-1), ja.push_back(k + 1);
        ia.push_back(static_cast<int>(ja.size()) + 1);
    }
    std::vector<double> between(n), found(n);
    vor_dcsrtrsv("L", "N", "U", &n, lu.data(), ia.data(), ja.data(), force.data(), between.data());
    vor_dcsrtrsv("U", "N", "N", &n, lu.data(), ia.data(), ja.data(), between.data(), found.data());

    double worst = 0;
    for (int i = 0; i < n; ++i) worst = std::fmax(worst, std::fabs(found[i] - x[i]));
    std::printf("%d triples, order %d: largest error of the displacements %.1e\n", nnz, n, worst);
    return worst < 1e-12 ? 0 : 1;
}
