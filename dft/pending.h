// Engines that are not part of the library yet: transforms of several dimensions. Commit refuses a descriptor
// that needs them, and this is the one place that says so.
#pragma once

#include "dft/record.h"

namespace vor::dfti {

inline int engine_pending() {
    return DFTI_UNIMPLEMENTED;
}

} // namespace vor::dfti
