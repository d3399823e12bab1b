// Real transforms of two dimensions.
//
// Dimension 0 runs real transforms. Behind them only two columns hold real sequences, those of frequency
// 0 and, with an even length, of the Nyquist frequency; all others are pairs of columns that form complex
// vectors along dimension 1, or complex columns if the spectrum is stored as half of a complex plane.
#pragma once

#include "dft/members.h"
#include "dft/plane.h"

namespace vor::dfti {

template <class R, Data data, Direction direction>
using RealIn = typename Member<R, data, direction, false>::In;
template <class R, Data data, Direction direction>
using RealOut = typename Member<R, data, direction, false>::Out;

// Transforms the plane of records 0 and 1 of `head` from `in` to `out`, which may be the same. An
// allocation that fails leaves the data as they were.
template <class R, Data data, Direction direction>
int transform_real_plane(const PlaneSide<const RealIn<R, data, direction>>& in,
                         const PlaneSide<RealOut<R, data, direction>>& out, DftiRecord* head,
                         void* workspace);
// The same on head->threads threads, each with its region of the workspace.
template <class R, Data data, Direction direction>
int transform_real_plane_on_team(const PlaneSide<const RealIn<R, data, direction>>& in,
                                 const PlaneSide<RealOut<R, data, direction>>& out,
                                 DftiRecord* head);

} // namespace vor::dfti

extern "C" {
// Packed formats: forward and backward, double and single. Half of a complex plane: the second line.
vor::dfti::TwoDReal vor_dft_xdzdft2d, vor_dft_xzddft2d, vor_dft_xscdft2d, vor_dft_xcsdft2d;
vor::dfti::TwoDReal vor_dft_xdzzdft2d, vor_dft_xzzddft2d, vor_dft_xsccdft2d, vor_dft_xccsdft2d;
}
