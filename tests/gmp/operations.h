// The operations of the library under the names that the oracle gives them. Each runs in every
// pattern of aliased arguments that it allows, expects the same result from all, and expects what
// surrounds the memory of an operand to stay as it was.
#pragma once

#include "tests/gmp/integer.h"

#include <functional>
#include <map>

namespace vor::test {

using Operation = std::function<Ints(const Ints&)>;

const std::map<std::string, Operation>& operations();

// Calls f with every line of the table that oracle.py writes when the tests are built.
void for_each_case(const std::function<void(const std::string&)>& f);

// Runs a line of oracle.py, "operation operand... = result...", and expects its results; the operation.
std::string run_case(const std::string& line);

} // namespace vor::test
