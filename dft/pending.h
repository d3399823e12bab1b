// Engines that are not part of the library yet: transforms of several dimensions, and the radix
// engine (long scrambled powers of two, its coefficient tables, one long transform by a team of
// threads). Commit refuses a descriptor that needs one of them, and this is the one place that says so.
#pragma once

#include "dft/record.h"

namespace vor::dfti {

inline int engine_pending() {
    return DFTI_UNIMPLEMENTED;
}

} // namespace vor::dfti
