// The equations of a structure: a stiffness matrix of the Harwell-Boeing collection, factored by
// Cholesky's method on dtrsm and dsyrk.
//
// (Duff, Grimes, Lewis: Sparse matrix test problems, ACM TOMS 15 (1989) 1-14.)
#include "tools/linear_system.h"
#include "tools/tour/chapters.h"

#include <cstdio>
#include <filesystem>
#include <sstream>

namespace vor::tool {

namespace {

// The matrix belongs to a package of the distribution.
constexpr char kMatrix[] = "/usr/lib/R/library/Matrix/external/lund_a.mtx";

// As the collection describes it: symmetric, positive definite.
constexpr int kOrder = 147, kEntries = 2449;
constexpr double kGoodResidual = 16; // the customary limit of benchmarks that solve systems

std::string pattern_plot(const DenseMatrix& a) {
    std::ostringstream script;
    script << "$entries << END\n";
    for (int j = 0; j < a.columns; ++j)
        for (int i = 0; i < a.rows; ++i)
            if (a.at(i, j) != 0) script << j + 1 << ' ' << i + 1 << '\n';
    script << "END\nset xrange [0:" << a.columns + 1 << "]\nset yrange [" << a.rows + 1
           << ":0]\nset size ratio -1\nunset key\nset xlabel 'column'\nset ylabel 'row'\n"
           << "plot $entries with points pt 5 ps 0.15\n";
    return script.str();
}

} // namespace

bool stiff_structure(const Tour& tour) {
    if (!std::filesystem::exists(kMatrix)) {
        std::printf("left out: %s is not there (Debian package r-cran-matrix)\n", kMatrix);
        return true;
    }
    const DenseMatrix a = read_matrix_market(kMatrix);
    int entries = 0;
    for (double v : a.values) entries += v != 0;
    std::printf("%s: stiffness of a structure, of which %d elements are not 0\n", kMatrix, entries);
    const Vector b = product(a, Vector(static_cast<size_t>(a.columns), 1.0));
    const Solution solution = solve(a, b, kMatrix);
    print_solution(a, solution, true);
    const bool agrees = a.rows == kOrder && entries == kEntries && solution.cholesky &&
                        solution.residual < kGoodResidual;
    std::printf("published: order %d, %d elements, positive definite: %s\n\n", kOrder, kEntries,
                agrees ? "agrees" : "DIFFERS");
    tour.draw("structure.svg", pattern_plot(a), 520, 520);
    return agrees;
}

} // namespace vor::tool
