// Many interleaved vectors: element i of vector j at i * stride + j.
#pragma once

#include "dft/columns.h"

namespace vor::dfti {

// Transforms n vectors from one side to the other, in groups that go through a buffer of the call's own.
template <class R, class In, class Out>
int transform_interleaved(const PlainColumns<const In>& in, const PlainColumns<Out>& out, int n,
                          const VectorTransform& transform);

} // namespace vor::dfti
