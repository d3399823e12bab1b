// Complex transforms of two dimensions.
#pragma once

#include "dft/columns.h"
#include "dft/walk.h"

namespace vor::dfti {

// An array of two dimensions: element (i, j) at i * stride0 + j * stride1.
template <class T>
struct PlaneSide {
    T* data;
    int stride0, stride1;

    T* row(int j) const { return ahead(data, j, stride1); }
    T* column(int i) const { return ahead(data, i, stride0); }
};

// The plane of records 0 and 1 of `head` on a side.
template <class T>
PlaneSide<T> plane_of(const DftiRecord* head, T* data, const Side& side) {
    return {data, head->*side.stride, head->next->*side.stride};
}

// Transforms the plane of records 0 and 1 of `head` from `in` to `out`, which may be the same, by the
// functions of the two records. An allocation that fails leaves the data as they were.
template <class C>
int transform_plane(const PlaneSide<const C>& in, const PlaneSide<C>& out, Transform* function0,
                    Transform* function1, DftiRecord* head, void* workspace);
// The same on head->threads threads, each with its region of the workspace.
template <class C>
int transform_plane_on_team(const PlaneSide<const C>& in, const PlaneSide<C>& out,
                            Transform* function0, Transform* function1, DftiRecord* head);

// Columns of record `second` in place, of a plane whose rows are `width` long: those of a share, through
// a buffer of its own.
template <class C>
int transform_share_of_columns(const PlaneSide<C>& side, Share columns, int width,
                               const VectorTransform& second);

} // namespace vor::dfti

extern "C" {
// In place. The strides are those of records 0 and 1.
vor::dfti::TwoDComplex vor_dft_xcdft2d, vor_dft_xzdft2d;
}
