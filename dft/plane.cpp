// Two dimensions: the rows of dimension 0, then the columns of dimension 1 in groups.
//
// Rows of unit stride need no copy; other rows, and all rows of a team that runs on the objects, go
// through a buffer. Dimension 1 of length 1 is passed over.
#include "dft/plane.h"
#include "serv/memory.h"

namespace vor::dfti {

namespace {

// Columns that go through the buffer together. Beyond some size of the plane a larger group pays.
template <class R>
int plane_group(int stride0, int length0, int length1) {
    constexpr bool single = sizeof(R) == sizeof(float);
    if (stride0 != 1) return 1;
    const bool large = length0 >= 64 && (length0 > 32768 || length1 > 32);
    return group_size<R>(large ? (single ? 4 : 3) : (single ? 3 : 2));
}

template <class R>
size_t group_reals(int vectors, int length) {
    return static_cast<size_t>(vectors) * static_cast<size_t>(vector_distance<R>(2 * length));
}

// Rows of a share. With a buffer they go through it; without one each is copied to its place in the
// output, if it is not there already, and transformed there.
template <class C>
int rows(const PlaneSide<const C>& in, const PlaneSide<C>& out, Share share,
         const VectorTransform& first, C* buffer) {
    using Routine = Routines<real_t<C>>;
    const int length = first.record->length;
    for (int j = share.first; j < share.first + share.count; ++j) {
        C* vector = buffer ? buffer : out.row(j);
        if (vector != in.row(j)) Routine::copy(length, in.row(j), in.stride0, vector, 1);
        if (const int status = first(vector, vector)) return status;
        if (buffer) Routine::copy(length, buffer, 1, out.row(j), out.stride0);
    }
    return DFTI_NO_ERROR;
}

template <class C>
int columns(const PlaneSide<C>& side, Share share, const VectorTransform& second,
            const VectorGroup<real_t<C>>& group) {
    const int length = second.record->length;
    C* data = side.column(share.first);
    return transform_columns(PlainColumns<const C>{data, side.stride1, side.stride0, length},
                             PlainColumns<C>{data, side.stride1, side.stride0, length}, share.count,
                             second, group);
}

// Rows of a share of a team, through a buffer of its own unless they can stay where they are.
template <class C>
int share_of_rows(const PlaneSide<const C>& in, const PlaneSide<C>& out, Share share,
                  const VectorTransform& first) {
    constexpr size_t kSlack = 32;
    if (out.stride0 == 1 && first.record->on_primitives == 0)
        return rows<C>(in, out, share, first, nullptr);
    const Scratch<C> buffer(static_cast<size_t>(first.record->length) + kSlack);
    return buffer ? rows<C>(in, out, share, first, buffer.get()) : DFTI_MEMORY_ERROR;
}

} // namespace

template <class C>
int transform_share_of_columns(const PlaneSide<C>& side, Share share, int width,
                               const VectorTransform& second) {
    using R = real_t<C>;
    const int length = second.record->length;
    const int size = plane_group<R>(side.stride0, width, length);
    const Scratch<R> buffer(group_reals<R>(size, length));
    if (!buffer) return DFTI_MEMORY_ERROR;
    return columns<C>(side, share, second, {buffer.get(), vector_distance<R>(2 * length), size});
}

template <class C>
int transform_plane(const PlaneSide<const C>& in, const PlaneSide<C>& out, Transform* function0,
                    Transform* function1, DftiRecord* head, void* workspace) {
    using R = real_t<C>;
    const int length0 = head->length, length1 = head->next->length;
    const int size = plane_group<R>(out.stride0, length0, length1);
    const size_t row_reals = group_reals<R>(1, length0);
    const size_t column_reals = group_reals<R>(size, length1);
    const Scratch<R> buffer(row_reals > column_reals ? row_reals : column_reals);
    if (!buffer) return DFTI_MEMORY_ERROR;
    C* row = out.stride0 == 1 ? nullptr : reinterpret_cast<C*>(buffer.get());
    const int status = rows<C>(in, out, Share(length1), {function0, head, workspace}, row);
    if (status != DFTI_NO_ERROR || length1 == 1) return status;
    return columns<C>(out, Share(length0), {function1, head->next, workspace},
                      {buffer.get(), vector_distance<R>(2 * length1), size});
}

template <class C>
int transform_plane_on_team(const PlaneSide<const C>& in, const PlaneSide<C>& out,
                            Transform* function0, Transform* function1, DftiRecord* head) {
    const int length0 = head->length, length1 = head->next->length;
    const int status = in_shares(length1, head->threads, [&](Share share, int i) {
        return share_of_rows<C>(in, out, share, {function0, head, workspace_region(*head, i)});
    });
    if (status != DFTI_NO_ERROR || length1 == 1) return status;
    return in_shares(length0, head->threads, [&](Share share, int i) {
        return transform_share_of_columns<C>(out, share, length0,
                                             {function1, head->next, workspace_region(*head, i)});
    });
}

#define INSTANTIATE(C)                                                                             \
    template int transform_plane<C>(const PlaneSide<const C>&, const PlaneSide<C>&, Transform*,    \
                                    Transform*, DftiRecord*, void*);                               \
    template int transform_plane_on_team<C>(const PlaneSide<const C>&, const PlaneSide<C>&,        \
                                            Transform*, Transform*, DftiRecord*);                  \
    template int transform_share_of_columns<C>(const PlaneSide<C>&, Share, int,                    \
                                               const VectorTransform&);
INSTANTIATE(cfloat)
INSTANTIATE(cdouble)

} // namespace vor::dfti

using namespace vor::dfti;

// By name: a plane in place; `count` rows of record `head` from input to output, and `count` columns of
// record `second` in place, of a plane whose rows are `width` long.
#define PLANE(plane, share_of_rows_, share_of_columns_, C)                                         \
    extern "C" int plane(void* data, const int* stride0, const int* stride1, Transform* function0, \
                         Transform* function1, DftiRecord* head, void* workspace) {                \
        C* elements = static_cast<C*>(data);                                                       \
        return transform_plane<C>({elements, *stride0, *stride1}, {elements, *stride0, *stride1},  \
                                  function0, function1, head, workspace);                          \
    }                                                                                              \
    extern "C" int share_of_rows_(const C* input, int input_stride0, int input_stride1, C* output, \
                                  int output_stride0, int output_stride1, int count,               \
                                  Transform* function, DftiRecord* head, void* workspace) {        \
        return share_of_rows<C>({input, input_stride0, input_stride1},                             \
                                {output, output_stride0, output_stride1}, Share(count),            \
                                {function, head, workspace});                                      \
    }                                                                                              \
    extern "C" int share_of_columns_(C* data, int stride0, int stride1, int count, int width,      \
                                     Transform* function, DftiRecord* second, void* workspace) {   \
        return transform_share_of_columns<C>({data, stride0, stride1}, Share(count), width,        \
                                             {function, second, workspace});                       \
    }
PLANE(vor_dft_xcdft2d, vor_dft_c2_c_dft, vor_dft_c2_r_dft, vor::cfloat)
PLANE(vor_dft_xzdft2d, vor_dft_z2_c_dft, vor_dft_z2_r_dft, vor::cdouble)
