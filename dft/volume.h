// Complex transforms of three and more dimensions.
#pragma once

#include "dft/plane.h"

namespace vor::dfti {

// The whole array of a descriptor, on its way from `in` to `out`, which may be the same. `function` is
// the field of the records that holds their 1-D function.
template <class C>
struct Volume {
    DftiRecord* head;
    const C* in;
    C* out;
    Side in_side, out_side;
    Transform* DftiRecord::*function;
};

template <class C>
int transform_volume(const Volume<C>& volume, void* workspace);
// The same on head->threads threads, each with its region of the workspace.
template <class C>
int transform_volume_on_team(const Volume<C>& volume);

// The columns of one dimension behind the first, at each tuple of `others`, from `in` to `out`. The
// columns of one tuple lie side by side, as many as a row is long, and go in groups of `group`.
template <class C>
int transform_columns_at(const Tuples& others, const PlainColumns<const C>& in,
                         const PlainColumns<C>& out, int columns, const VectorTransform& transform,
                         int group);

// Columns of a group where one thread walks a whole volume of these lengths, the columns `stride0` apart:
// small groups for small or flat ones.
template <class R>
int volume_group(int stride0, int length0, int length1, int length2);
// Columns of a group for a share of a team.
template <class R>
int share_group(int stride0, int length0);

} // namespace vor::dfti
