// The transforms of a call on the calling thread.
#pragma once

#include "dft/members.h"

namespace vor::dfti {

// n transforms, one after the other; the first failure ends the walk. `in` and `out` are the data of
// the call: the offsets are added here.
template <class M>
int serial(DftiRecord* head, typename M::In* in, typename M::Out* out, int n, void* workspace);

} // namespace vor::dfti
