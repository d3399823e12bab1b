// Real transforms of three dimensions, the spectrum stored as half of a complex volume.
#pragma once

#include "dft/members.h"

namespace vor::dfti {

// From `in` to `out` with the strides of the records. The input stays what it is: backward the columns
// of dimension 2 are transformed first, into a complex volume of the call's own.
template <class R, Direction direction>
int transform_real_volume(DftiRecord* head,
                          const typename Member<R, Data::half, direction, false>::In* in,
                          typename Member<R, Data::half, direction, false>::Out* out,
                          void* workspace);
// The same on head->threads threads, each with its region of the workspace.
template <class R, Direction direction>
int transform_real_volume_on_team(DftiRecord* head,
                                  const typename Member<R, Data::half, direction, false>::In* in,
                                  typename Member<R, Data::half, direction, false>::Out* out);

} // namespace vor::dfti
