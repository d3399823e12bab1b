// A beam of finite elements, clamped at one end and loaded at the other: the stiffness matrix is assembled
// element by element and factored by Cholesky's method on dtrsm and dsyrk.
//
// With two unknowns in each node, deflection and slope, the elements bend as the beam does: the nodes lie on the
// textbook's curve P x^2 (3L - x) / (6 E I), and the tip at P L^3 / (3 E I).
// (Przemieniecki: Theory of Matrix Structural Analysis, 1968, chapter 5.)
#include "tools/linear_system.h"
#include "tools/tour/chapters.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <sstream>

namespace vor::tool {

namespace {

// A steel beam of 4 m, 100 mm wide and 200 mm high, under 10 kN.
constexpr double kLength = 4, kWidth = 0.1, kHeight = 0.2, kModulus = 210e9, kLoad = 10e3;
constexpr double kInertia = kWidth * kHeight * kHeight * kHeight / 12;
constexpr int kElements = 150;

DenseMatrix stiffness() {
    constexpr double h = kLength / kElements, f = kModulus * kInertia / (h * h * h);
    constexpr double kElement[4][4] = {{12, 6 * h, -12, 6 * h},
                                       {6 * h, 4 * h * h, -6 * h, 2 * h * h},
                                       {-12, -6 * h, 12, -6 * h},
                                       {6 * h, 2 * h * h, -6 * h, 4 * h * h}};
    DenseMatrix k;
    k.rows = k.columns = 2 * kElements;
    k.values.resize(static_cast<size_t>(k.rows) * static_cast<size_t>(k.columns));
    for (int e = 0; e < kElements; ++e)
        for (int i = 0; i < 4; ++i)
            for (int j = 0; j < 4; ++j) {
                const int row = 2 * (e - 1) + i, column = 2 * (e - 1) + j; // node 0 is clamped
                if (row >= 0 && column >= 0) k.at(row, column) += f * kElement[i][j];
            }
    return k;
}

double textbook(double x) {
    return kLoad * x * x * (3 * kLength - x) / (6 * kModulus * kInertia);
}

std::string bending_plot(const Vector& x) {
    std::ostringstream script;
    script << "$nodes << END\n0 0\n";
    for (int e = 1; e <= kElements; e += 7)
        script << e * kLength / kElements << ' ' << -1000 * x[static_cast<size_t>(2 * (e - 1))]
               << '\n';
    script << "END\n$curve << END\n";
    for (int i = 0; i <= 100; ++i)
        script << i * kLength / 100 << ' ' << -1000 * textbook(i * kLength / 100) << '\n';
    script << "END\nset xlabel 'metres from the wall'\nset ylabel 'deflection in millimetres'\nset "
              "grid\n"
           << "set key bottom left\nplot $curve with lines lw 2 lc rgb '#0072b2' title 'textbook', "
           << "$nodes with points pt 7 ps 0.6 lc rgb '#d55e00' title 'nodes of the elements'\n";
    return script.str();
}

} // namespace

bool bent_beam(const Tour& tour) {
    const DenseMatrix k = stiffness();
    Vector load(static_cast<size_t>(k.rows));
    load[load.size() - 2] = kLoad;
    const Solution solution = solve(k, load, "beam");
    std::printf("%d elements between the wall and a load of %.0f kN, %.0f m away\n", kElements,
                kLoad / 1000, kLength);
    print_solution(k, solution, false);
    double worst = 0;
    for (int e = 1; e <= kElements; ++e)
        worst = std::max(worst, std::fabs(solution.x[static_cast<size_t>(2 * (e - 1))] -
                                          textbook(e * kLength / kElements)));
    const double tip = solution.x[load.size() - 2], expected = textbook(kLength);
    const bool agrees = solution.cholesky && worst < 1e-6 * expected;
    std::printf("the tip sinks by %.6f mm; P L^3 / (3 E I) is %.6f mm: %s\n\n", 1000 * tip,
                1000 * expected, agrees ? "agrees" : "DIFFERS");
    tour.draw("beam.svg", bending_plot(solution.x), 640, 420);
    return agrees;
}

} // namespace vor::tool
