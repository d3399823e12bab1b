// A call of a descriptor on several threads: those of the library, or the caller's own.
#pragma once

#include "dft/members.h"

namespace vor::dfti {

// The transforms of a call, offsets not yet added. With user threads this is the call of one of them.
template <class M>
int parallel(DftiRecord* head, typename M::In* in, typename M::Out* out);

} // namespace vor::dfti
