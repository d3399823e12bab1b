// Dense systems of linear equations: Cholesky and LU factors by halves, so that nearly all work is
// matrix products. (Toledo: Locality of reference in LU decomposition with partial pivoting, SIAM J.
// Matrix Anal. Appl. 18 (1997) 1065-1081.)
#pragma once

#include "tools/matrix_market.h"

#include <string>

namespace vor::tool {

using Vector = std::vector<double>;

struct Solution {
    Vector x;
    bool cholesky;   // else LU with partial pivoting
    double seconds;  // factors and substitution
    double flops;    // of the factors, to their leading term
    double residual; // max|b - A x| / (2^-53 (||A|| max|x| + max|b|)), of order 1 for a good solver
};

// A x = b, A square: by Cholesky's method if A is symmetric and positive definite, else by LU. Throws
// Failure, beginning with `name`, if A is singular to working precision.
Solution solve(const DenseMatrix& a, const Vector& b, const std::string& name);

Vector product(const DenseMatrix& a, const Vector& x);

// Prints a solution. `known`: x should be all ones.
void print_solution(const DenseMatrix& a, const Solution& solution, bool known);

} // namespace vor::tool
