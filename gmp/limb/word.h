// A limb and two of them.
#pragma once

#include <stdint.h>

namespace vor::limb {

using word = uint32_t;
using dword = uint64_t;

} // namespace vor::limb
