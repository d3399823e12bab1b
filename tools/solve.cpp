// vor solve: a linear system from a Matrix Market file.
#include "tools/commands.h"
#include "tools/failure.h"
#include "tools/linear_system.h"

#include <cstdio>
#include <memory>
#include <new>

namespace vor::tool {

namespace {

std::string shape(const DenseMatrix& a) {
    return std::to_string(a.rows) + " by " + std::to_string(a.columns);
}

void solve_file(const std::string& file, const std::string& right_side, bool print) {
    const DenseMatrix a = read_matrix_market(file);
    if (a.rows != a.columns) throw Failure(file + ": " + shape(a) + " is not square");
    Vector b;
    if (right_side.empty())
        b = product(a, Vector(static_cast<size_t>(a.columns), 1.0));
    else {
        const DenseMatrix column = read_matrix_market(right_side);
        if (column.rows != a.rows || column.columns != 1)
            throw Failure(right_side + ": " + shape(column) + " where " + std::to_string(a.rows) +
                          " by 1 is expected");
        b = column.values;
    }
    const Solution solution = solve(a, b, file);
    print_solution(a, solution, right_side.empty());
    if (print)
        for (double x : solution.x) std::printf("%.17g\n", x);
}

} // namespace

void add_solve(CLI::App& app) {
    auto file = std::make_shared<std::string>();
    auto right_side = std::make_shared<std::string>();
    auto print = std::make_shared<bool>(false);
    CLI::App* command = app.add_subcommand("solve", "solve a system of linear equations");
    command->add_option("FILE", *file, "a square matrix, Matrix Market format")->required();
    command
        ->add_option("--rhs", *right_side, "the right side; without it, A times a vector of ones")
        ->type_name("FILE.mtx");
    command->add_flag("--print", *print, "print the solution, one number a line");
    command->callback([=] {
        try {
            solve_file(*file, *right_side, *print);
        } catch (const std::bad_alloc&) {
            throw Failure(*file + ": no memory for a matrix of this size");
        }
    });
}

} // namespace vor::tool
