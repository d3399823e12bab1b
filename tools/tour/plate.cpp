// A square plate, one edge of which is kept at 1 and the others at 0: the steady temperature by the 5-point
// equation on 400 by 400 points, solved by conjugate gradients, against its known series
//
//     u(x, y) = sum over odd k of 4 / (k pi) sin(k pi x) sinh(k pi y) / sinh(k pi)
//
// (Carslaw, Jaeger: Conduction of Heat in Solids, 1959, section 5.3.)
#include "tools/picture.h"
#include "tools/sparse_system.h"
#include "tools/tour/chapters.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace vor::tool {

namespace {

constexpr int kSide = 400; // points inside
constexpr double kSpacing = 1.0 / (kSide + 1);

Triples laplace() {
    Triples t;
    t.rows = t.columns = kSide * kSide;
    t.symmetric = true;
    const auto add = [&](int i, int j, double value) {
        t.row.push_back(i);
        t.column.push_back(j);
        t.value.push_back(value);
    };
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const int i = y * kSide + x;
            if (y > 0) add(i, i - kSide, -1);
            if (x > 0) add(i, i - 1, -1);
            add(i, i, 4);
        }
    return t;
}

double series(double x, double y) {
    const double pi = std::acos(-1.0);
    double sum = 0;
    for (int k = 1; k < 400; k += 2) {
        // sinh(k pi y) / sinh(k pi) without numbers out of range
        const double rise =
            std::exp(k * pi * (y - 1)) * std::expm1(-2 * k * pi * y) / std::expm1(-2 * k * pi);
        sum += 4 / (k * pi) * std::sin(k * pi * x) * rise;
    }
    return sum;
}

// Blue, white, red, with a line at each tenth.
Pixel colour(double u) {
    const double tenth = std::fabs(u * 10 - std::round(u * 10));
    if (tenth < 0.02 && u > 0.05) return {60, 60, 60};
    const auto mixed = [](Pixel a, Pixel b, double part) {
        Pixel p;
        for (size_t i = 0; i < p.size(); ++i)
            p[i] = static_cast<unsigned char>(a[i] * (1 - part) + b[i] * part + 0.5);
        return p;
    };
    const Pixel cold = {0, 90, 178}, warm = {250, 245, 235}, hot = {190, 60, 0};
    u = std::clamp(u, 0.0, 1.0);
    return u < 0.5 ? mixed(cold, warm, 2 * u) : mixed(warm, hot, 2 * u - 1);
}

} // namespace

bool heated_plate(const Tour& tour) {
    const SparseMatrix a = by_rows(laplace());
    std::vector<double> b(static_cast<size_t>(a.n));
    for (int x = 0; x < kSide; ++x) b[static_cast<size_t>((kSide - 1) * kSide + x)] = 1;
    const IterativeSolution s = solve_sparse(a, b, 1e-10, 5000, "plate");
    std::printf("%d equations, %zu entries: %s\n%zu steps, %.3g seconds, residual %.1e\n", a.n,
                a.a.size(), s.method.c_str(), s.residuals.size() - 1, s.seconds, s.true_residual);
    // Away from the corners where 0 and 1 meet, which no series reaches.
    double worst = 0;
    Picture picture(kSide, kSide);
    for (int y = 0; y < kSide; ++y)
        for (int x = 0; x < kSide; ++x) {
            const double u = s.x[static_cast<size_t>(y * kSide + x)];
            picture.at(x, kSide - 1 - y) = colour(u);
            if (y < 3 * kSide / 4 && x % 20 == 0 && y % 20 == 0)
                worst =
                    std::max(worst, std::fabs(u - series((x + 1) * kSpacing, (y + 1) * kSpacing)));
        }
    const double centre = s.x[static_cast<size_t>((kSide / 2) * kSide + kSide / 2)];
    const double known = series((kSide / 2 + 1) * kSpacing, (kSide / 2 + 1) * kSpacing);
    const bool agrees = s.converged && worst < 2e-5;
    std::printf(
        "temperature near the centre %.6f, by the series %.6f; largest difference %.1e: %s\n\n",
        centre, known, worst, agrees ? "agrees" : "DIFFERS");
    write_png(tour.output + "/plate.png", picture);
    std::printf("picture: %s/plate.png\n", tour.output.c_str());
    tour.draw("plate-residual.svg", residual_plot(s), 640, 420);
    return agrees;
}

} // namespace vor::tool
