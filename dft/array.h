// One transform of several dimensions, by the engine of its kind of data and number of dimensions.
#pragma once

#include "dft/real_plane.h"
#include "dft/real_volume.h"
#include "dft/volume.h"

namespace vor::dfti {

// From `in` to `out`, offsets added; on head->threads threads, or with the workspace given on this one.
template <class M>
int transform_array(DftiRecord* head, typename M::In* in, typename M::Out* out, void* workspace,
                    bool on_team) {
    using R = typename M::R;
    const auto from = plane_of<const typename M::In>(head, in, M::kIn);
    const auto to = plane_of<typename M::Out>(head, out, M::kOut);
    if constexpr (M::kComplex) {
        const auto function = Directed<R, M::kDirection>::function;
        const Volume<typename M::C> volume{head, in, out, M::kIn, M::kOut, function};
        if (head->dimension > 2)
            return on_team ? transform_volume_on_team(volume) : transform_volume(volume, workspace);
        Transform *first = head->*function, *second = head->next->*function;
        return on_team ? transform_plane_on_team(from, to, first, second, head)
                       : transform_plane(from, to, first, second, head, workspace);
    } else {
        constexpr Direction direction = M::kDirection;
        if constexpr (M::kData == Data::half)
            if (head->dimension > 2)
                return on_team ? transform_real_volume_on_team<R, direction>(head, in, out)
                               : transform_real_volume<R, direction>(head, in, out, workspace);
        return on_team ? transform_real_plane_on_team<R, M::kData, direction>(from, to, head)
                       : transform_real_plane<R, M::kData, direction>(from, to, head, workspace);
    }
}

} // namespace vor::dfti
