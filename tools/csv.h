// Tables of numbers in comma-separated text.
#pragma once

#include <string>
#include <vector>

namespace vor::tool {

// Numbers by columns, with what a file says about them. Format:
//   - Cells are separated by commas; blanks around a cell do not count. A cell in double quotes may
//     hold commas; a doubled quote in it stands for one. Lines end in LF or CR LF; empty lines are
//     passed over.
//   - The first line is a heading if none of its cells is a number; it names the columns.
//   - The last column holds labels if its cell in the first row of data is not a number. All other
//     cells are finite decimal numbers.
struct Table {
    std::vector<std::string> names; // of the columns of numbers: from the heading, or "column 1"
    std::vector<std::vector<double>> columns;
    std::vector<std::string> labels; // one for each row; empty without a column of labels
    std::string label_name;          // heading of that column, "" if there is none
    int rows = 0;
};

// Throws Failure, with file and line, on anything else; a file without a row of numbers included.
Table read_csv(const std::string& file);

} // namespace vor::tool
