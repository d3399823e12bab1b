// vor solve: a linear system from a Matrix Market file.
#include "tools/commands.h"
#include "tools/failure.h"
#include "tools/gnuplot.h"
#include "tools/linear_system.h"
#include "tools/sparse_system.h"
#include "vor_spblas.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
#include <new>

namespace vor::tool {

namespace {

std::string shape(const DenseMatrix& a) {
    return std::to_string(a.rows) + " by " + std::to_string(a.columns);
}

struct Options {
    std::string file, right_side, plot;
    bool print = false, sparse = false;
    double tolerance = 1e-10;
    int steps = 20000;
};

constexpr int kDenseOrder = 2000; // above, a system goes to the iterations by itself

Vector read_right_side(const std::string& file, int rows) {
    const DenseMatrix column = read_matrix_market(file);
    if (column.rows != rows || column.columns != 1)
        throw Failure(file + ": " + shape(column) + " where " + std::to_string(rows) +
                      " by 1 is expected");
    return column.values;
}

void print_numbers(const Vector& x) {
    for (double value : x) std::printf("%.17g\n", value);
}

void solve_iteratively(const Triples& triples, const Options& options) {
    const SparseMatrix a = by_rows(triples);
    Vector b(static_cast<size_t>(a.n));
    if (options.right_side.empty()) {
        const Vector ones(b.size(), 1.0);
        vor_dcsrgemv("N", &a.n, a.a.data(), a.ia.data(), a.ja.data(), ones.data(), b.data());
    } else {
        b = read_right_side(options.right_side, a.n);
    }
    const IterativeSolution s = solve_sparse(a, b, options.tolerance, options.steps, options.file);
    std::printf("%d equations, %zu entries: %s\n", a.n, a.a.size(), s.method.c_str());
    std::printf("%zu steps, %.3g seconds\n", s.residuals.size() - 1, s.seconds);
    std::printf("residual %.2g of the right side\n", s.true_residual);
    if (!options.plot.empty()) {
        run_gnuplot(residual_plot(s), options.plot, 640, 420);
        std::printf("picture: %s\n", options.plot.c_str());
    }
    if (!s.converged)
        throw Failure(options.file + ": the iteration does not converge: residual " +
                      std::to_string(s.residuals.back()) + " after " +
                      std::to_string(s.residuals.size() - 1) + " steps");
    if (options.right_side.empty()) {
        double worst = 0;
        for (double x : s.x) worst = std::max(worst, std::fabs(x - 1));
        std::printf("largest error %.1e, of a solution that is all ones\n", worst);
    }
    if (options.print) print_numbers(s.x);
}

void solve_directly(const Triples& triples, const Options& options) {
    const DenseMatrix a = as_dense(triples, options.file);
    const Vector b = options.right_side.empty()
                         ? product(a, Vector(static_cast<size_t>(a.columns), 1.0))
                         : read_right_side(options.right_side, a.rows);
    const Solution solution = solve(a, b, options.file);
    print_solution(a, solution, options.right_side.empty());
    if (options.print) print_numbers(solution.x);
}

void solve_file(const Options& options) {
    if (!options.plot.empty()) require_gnuplot();
    const Triples triples = read_triples(options.file);
    if (triples.rows != triples.columns)
        throw Failure(options.file + ": " + std::to_string(triples.rows) + " by " +
                      std::to_string(triples.columns) + " is not square");
    if (options.sparse || triples.rows > kDenseOrder) return solve_iteratively(triples, options);
    solve_directly(triples, options);
}

} // namespace

void add_solve(CLI::App& app) {
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand("solve", "solve a system of linear equations");
    command->add_option("FILE", options->file, "a square matrix, Matrix Market format")->required();
    command
        ->add_option("--rhs", options->right_side,
                     "the right side; without it, A times a vector of ones")
        ->type_name("FILE.mtx");
    command->add_flag("--print", options->print, "print the solution, one number a line");
    command->add_flag("--sparse", options->sparse,
                      "by iteration, as every system of more than 2000 equations");
    command->add_option("--tolerance", options->tolerance, "residual at which the iteration ends")
        ->check(CLI::Range(1e-15, 1.0) & a_number())
        ->capture_default_str();
    command->add_option("--steps", options->steps, "steps of the iteration, at most")
        ->check(CLI::Range(1, 1000000000))
        ->capture_default_str();
    command->add_option("--plot", options->plot, "draw the fall of the residual (iteration only)")
        ->type_name("FILE.svg");
    command->callback([options] {
        try {
            solve_file(*options);
        } catch (const std::bad_alloc&) {
            throw Failure(options->file + ": no memory for a matrix of this size");
        }
    });
}

} // namespace vor::tool
