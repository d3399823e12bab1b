// Matrices in Matrix Market files (Boisvert, Pozo, Remington: The Matrix Market Exchange Formats, NISTIR
// 5935, 1996).
#pragma once

#include <string>
#include <vector>

namespace vor::tool {

struct DenseMatrix {
    double& at(int i, int j) { return values[static_cast<size_t>(j) * rows + i]; }
    double at(int i, int j) const { return values[static_cast<size_t>(j) * rows + i]; }

    int rows = 0, columns = 0;
    std::vector<double> values; // by columns
};

// Coordinate or array form, real or integer, general or symmetric (of which the file holds the lower
// triangle). Coordinates that come twice add up. Throws Failure, with file and line, on anything else,
// and on matrices whose dense form is over half a gigabyte.
DenseMatrix read_matrix_market(const std::string& file);

} // namespace vor::tool
