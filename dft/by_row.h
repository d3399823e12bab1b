// Complex transforms along dimension 1 of the columns of a plane behind real rows.
#pragma once

#include "dft/plane.h"

namespace vor::dfti {

// Columns of a group.
template <class R>
inline constexpr int kPairGroup = sizeof(R) == sizeof(float) ? 16 : 8;

// Transforms `count` complex columns from `in` to `out`, which may be the same. On a side of reals column
// t is the pair of columns first + 2t and first + 2t + 1, on a complex one it is column first + t.
template <class R, class In, class Out>
int transform_pairs(const PlaneSide<const In>& in, int first_in, const PlaneSide<Out>& out,
                    int first_out, int count, const VectorTransform& transform,
                    const VectorGroup<R>& group);

} // namespace vor::dfti
