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

// Entries by place, counted from 0. Of a symmetric matrix only those on and below the diagonal are there.
struct Triples {
    int rows = 0, columns = 0;
    bool symmetric = false;
    std::vector<int> row, column;
    std::vector<double> value;
};

// Coordinate or array form, real or integer, general or symmetric (of which the file holds the lower
// triangle). Coordinates that come twice add up. Throws Failure, with file and line, on anything else,
// and on matrices whose dense form is over half a gigabyte.
DenseMatrix read_matrix_market(const std::string& file);
// The same as triples, of any size; and such triples as a dense matrix.
Triples read_triples(const std::string& file);
DenseMatrix as_dense(const Triples& triples, const std::string& file);

} // namespace vor::tool
