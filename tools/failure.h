// What ends a command: one line on stderr, exit status 1.
#pragma once

#include <stdexcept>

namespace vor::tool {

struct Failure : std::runtime_error {
    using std::runtime_error::runtime_error;
};

} // namespace vor::tool
