// Three and more dimensions: the planes of dimensions 0 and 1, then the columns of each further one.
//
// An odometer walks the index tuples of the other dimensions. Dimensions of length 1 are passed over. A
// team shares out the last dimension, and the last but one for the columns of the last.
#include "dft/volume.h"
#include "serv/memory.h"

namespace vor::dfti {

namespace {

// A dimension of which a team works on a share at a time; of the others each share has all.
struct Cut {
    const DftiRecord* dimension;
    Share share;

    int first(const DftiRecord& record) const { return &record == dimension ? share.first : 0; }
    int count(const DftiRecord& record) const {
        return &record == dimension ? share.count : record.length;
    }
};

DftiRecord* last_record(DftiRecord* record) {
    while (record->next) record = record->next;
    return record;
}

// The planes of a share, of the last dimension, from input to output.
template <class C>
int planes(const Volume<C>& v, const Cut& cut, void* workspace) {
    DftiRecord *first = v.head, *second = v.head->next;
    const C* in = v.in;
    C* out = v.out;
    Tuples tuples;
    for (const DftiRecord* record = second->next; record; record = record->next) {
        const int in_step = record->*v.in_side.stride, out_step = record->*v.out_side.stride;
        in = ahead(in, cut.first(*record), in_step);
        out = ahead(out, cut.first(*record), out_step);
        tuples.add(cut.count(*record), in_step, out_step);
    }
    return tuples.walk([&](int in_offset, int out_offset) {
        return transform_plane<C>(
            {ahead(in, in_offset), first->*v.in_side.stride, second->*v.in_side.stride},
            {ahead(out, out_offset), first->*v.out_side.stride, second->*v.out_side.stride},
            first->*v.function, second->*v.function, first, workspace);
    });
}

// The columns of dimension `record` in the output, of a share.
template <class C>
int columns(const Volume<C>& v, DftiRecord* record, const Cut& cut, int group, void* workspace) {
    const auto stride = v.out_side.stride;
    if (record->length == 1) return DFTI_NO_ERROR;
    C* data = v.out;
    Tuples tuples;
    for (const DftiRecord* other = v.head->next; other; other = other->next) {
        if (other == record) continue;
        data = ahead(data, cut.first(*other), other->*stride);
        tuples.add(cut.count(*other), other->*stride, other->*stride);
    }
    return transform_columns_at<C>(tuples, {data, record->*stride, v.head->*stride, record->length},
                                   {data, record->*stride, v.head->*stride, record->length},
                                   v.head->length, {record->*v.function, record, workspace}, group);
}

} // namespace

template <class R>
int volume_group(int stride0, int length0, int length1, int length2) {
    constexpr bool single = sizeof(R) == sizeof(float);
    if (stride0 != 1) return 1;
    const bool flat = length1 <= 32 && length2 <= 32 && (single ? length0 < 129 : length0 >= 4096);
    const bool deep = length0 <= 16 && length1 <= 16 && length2 > (single ? 8192 : 2048);
    const int most = single ? (flat || deep ? 8 : 16) : (flat || deep ? 4 : 8);
    return length0 < most ? length0 : most;
}

template <class R>
int share_group(int stride0, int length0) {
    constexpr bool single = sizeof(R) == sizeof(float);
    if (stride0 != 1) return 1;
    const int most = length0 < 64 ? (single ? 8 : 4) : (single ? 16 : 8);
    return length0 < most ? length0 : most;
}

template <class C>
int transform_columns_at(const Tuples& others, const PlainColumns<const C>& in,
                         const PlainColumns<C>& out, int count, const VectorTransform& transform,
                         int group) {
    using R = real_t<C>;
    const int distance = vector_distance<R>(2 * in.count);
    const Scratch<R> buffer(static_cast<size_t>(distance) * static_cast<size_t>(group));
    if (!buffer) return DFTI_MEMORY_ERROR;
    return others.walk([&](int in_offset, int out_offset) {
        return transform_columns(
            PlainColumns<const C>{ahead(in.data, in_offset), in.stride, in.step, in.count},
            PlainColumns<C>{ahead(out.data, out_offset), out.stride, out.step, out.count}, count,
            transform, VectorGroup<R>{buffer.get(), distance, group});
    });
}

template <class C>
int transform_volume(const Volume<C>& v, void* workspace) {
    const Cut none{nullptr, Share(0)};
    if (const int status = planes(v, none, workspace)) return status;
    const int group = volume_group<real_t<C>>(v.head->*v.out_side.stride, v.head->length,
                                              v.head->next->length, v.head->next->next->length);
    int status = DFTI_NO_ERROR;
    for (DftiRecord* d = v.head->next->next; d && status == DFTI_NO_ERROR; d = d->next)
        status = columns(v, d, none, group, workspace);
    return status;
}

template <class C>
int transform_volume_on_team(const Volume<C>& v) {
    const DftiRecord& head = *v.head;
    const DftiRecord* last = last_record(v.head);
    const int group = share_group<real_t<C>>(head.*v.out_side.stride, head.length);
    int status = in_shares(last->length, head.threads, [&](Share share, int i) {
        return planes(v, {last, share}, workspace_region(head, i));
    });
    for (DftiRecord* d = head.next->next; d && status == DFTI_NO_ERROR; d = d->next) {
        const DftiRecord* divided = d == last ? d->previous : last;
        status = in_shares(divided->length, head.threads, [&](Share share, int i) {
            return columns(v, d, {divided, share}, group, workspace_region(head, i));
        });
    }
    return status;
}

#define INSTANTIATE(R, C)                                                                          \
    template int volume_group<R>(int, int, int, int);                                              \
    template int share_group<R>(int, int);                                                         \
    template int transform_columns_at<C>(const Tuples&, const PlainColumns<const C>&,              \
                                         const PlainColumns<C>&, int, const VectorTransform&,      \
                                         int);                                                     \
    template int transform_volume<C>(const Volume<C>&, void*);                                     \
    template int transform_volume_on_team<C>(const Volume<C>&);
INSTANTIATE(float, cfloat)
INSTANTIATE(double, cdouble)

namespace {

// A volume in place on the side of `side`, or from input to output.
template <class C>
Volume<C> volume_of(DftiRecord* head, const C* in, C* out, const Side& in_side,
                    const Side& out_side, int backward) {
    using R = real_t<C>;
    return {head,
            in,
            out,
            in_side,
            out_side,
            backward ? Directed<R, Direction::backward>::function
                     : Directed<R, Direction::forward>::function};
}

template <class C>
int share_of_planes(const Volume<C>& v, int first, int count, void* workspace) {
    Share share(count);
    share.first = first;
    return planes(v, {last_record(v.head), share}, workspace);
}

// Of dimension d: a share of the last dimension, or of the last but one if d is the last itself.
template <class C>
int share_of_columns(const Volume<C>& v, int d, int first, int count, void* workspace) {
    DftiRecord *record = v.head + d, *last = last_record(v.head);
    Share share(count);
    share.first = first;
    return columns(v, record, {record == last ? last->previous : last, share},
                   share_group<real_t<C>>(v.head->*v.out_side.stride, v.head->length), workspace);
}

} // namespace

} // namespace vor::dfti

using namespace vor::dfti;

// The shares by name: planes, and columns of dimension d, `count` of the divided dimension from `first`
// on, in place or out of place (the columns in the output).
#define SHARES(planes_in_place, planes_out, columns_in_place, columns_out, C)                      \
    extern "C" int planes_in_place(DftiRecord* head, C* data, int backward, int first, int count,  \
                                   void* workspace) {                                              \
        return share_of_planes(volume_of<C>(head, data, data, kInput, kInput, backward), first,    \
                               count, workspace);                                                  \
    }                                                                                              \
    extern "C" int planes_out(DftiRecord* head, const C* input, C* output, int backward,           \
                              int first, int count, void* workspace) {                             \
        return share_of_planes(volume_of<C>(head, input, output, kInput, kOutput, backward),       \
                               first, count, workspace);                                           \
    }                                                                                              \
    extern "C" int columns_in_place(DftiRecord* head, C* data, int backward, int d, int first,     \
                                    int count, void* workspace) {                                  \
        return share_of_columns(volume_of<C>(head, data, data, kInput, kInput, backward), d,       \
                                first, count, workspace);                                          \
    }                                                                                              \
    extern "C" int columns_out(DftiRecord* head, C* output, int backward, int d, int first,        \
                               int count, void* workspace) {                                       \
        return share_of_columns(volume_of<C>(head, output, output, kOutput, kOutput, backward), d, \
                                first, count, workspace);                                          \
    }
SHARES(vor_dft_c2_nd_par, vor_dft_c2_nd_out_par, vor_dft_c1_nd_par, vor_dft_c1_nd_out_par,
       vor::cfloat)
SHARES(vor_dft_z2_nd_par, vor_dft_z2_nd_out_par, vor_dft_z1_nd_par, vor_dft_z1_nd_out_par,
       vor::cdouble)
