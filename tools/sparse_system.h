// Sparse systems of linear equations by iteration: conjugate gradients for symmetric positive definite
// matrices, BiCGStab for others, each with an incomplete factor of the matrix.
#pragma once

#include "tools/matrix_market.h"

#include <string>

namespace vor::tool {

// Square, by rows: row i at the positions ia[i] to ia[i+1] - 1, counted from 1, columns ascending and counted
// from 1.
struct SparseMatrix {
    int n = 0;
    bool symmetric = false;
    std::vector<int> ia, ja;
    std::vector<double> a;
};

// Triples that name one place add up.
SparseMatrix by_rows(const Triples& triples);

struct IterativeSolution {
    std::vector<double> x;
    std::string method;
    std::vector<double>
        residuals; // norm(b - A x) / norm(b) at the start and after each step, as updated
    bool converged;
    double seconds, true_residual;
};

// A x = b to a residual of `tolerance` norm(b), in at most `most` steps. `name` begins the messages of a
// Failure. The progress is told on a terminal.
IterativeSolution solve_sparse(const SparseMatrix& a, const std::vector<double>& b,
                               double tolerance, int most, const std::string& name);

// The fall of the residual, as a gnuplot script.
std::string residual_plot(const IterativeSolution& solution);

} // namespace vor::tool
