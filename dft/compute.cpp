// Compute: from a committed descriptor and its data to the engine that transforms them.
//
// One direct call if commit said so; else the transforms of the call are walked on this thread or, if
// the gate below says so, on a team. A compute call only reads the descriptor, its workspace and the
// slots of user threads excepted.
#include "dft/engines.h"
#include "dft/serial.h"
#include "dft/team.h"
#include "serv/entry.h"

#include <stdarg.h>

namespace vor::dfti {

namespace {

// Whether a committed descriptor is for data of this kind. In one dimension both storages of real data
// have the same values.
template <class M>
bool serves(const DftiRecord& head) {
    if (!M::function(head)) return false; // of another domain or precision
    const bool half = head.conjugate_even_storage == DFTI_COMPLEX_COMPLEX;
    return M::kComplex || head.dimension == 1 || half == (M::kData == Data::half);
}

int check_compute(const DftiRecord* head, const void* in, const void* out) {
    if (!head || !in || !out) return DFTI_INCONSISTENT_CONFIGURATION;
    if (head->tag[0] != kTag[0]) return DFTI_BAD_DESCRIPTOR;
    return head->commit_status == DFTI_UNCOMMITTED ? DFTI_INVALID_CONFIGURATION : DFTI_NO_ERROR;
}

// ---- The gate ------------------------------------------------------------------------------------

enum class Way { serial, parallel, two_d };

constexpr int kSmallPlane = 2048;   // elements of two dimensions not worth a team
constexpr int kSmallVolume = 32000; // elements of three or more

// One transform of several dimensions.
template <class M>
Way way_of_many_dimensions(const DftiRecord& head) {
    if (head.dimension > 2) return head.size_so_far < kSmallVolume ? Way::serial : Way::parallel;
    if (M::kComplex && M::kInPlace) return Way::parallel;
    const bool small = static_cast<long long>(head.length) * head.next->length < kSmallPlane;
    if (M::kComplex) return small ? Way::serial : Way::parallel;
    const bool one_row = !M::kForward && head.next->length == 1;
    const bool rows_count = M::kData == Data::half || sizeof(typename M::R) == sizeof(float);
    return small || (one_row && rows_count) ? Way::two_d : Way::parallel;
}

// Which way a call goes on more than one thread of the library.
template <class M>
Way way_of(const DftiRecord& head) {
    constexpr int kShort = sizeof(typename M::R) == sizeof(float) ? 1024 : 512;
    const int n = head.number_of_transforms;
    if (n > 1) {
        if (M::kComplex) return Way::parallel;
        const long long work = static_cast<long long>(head.length) * n;
        const int shift = head.threads + 1 < 62 ? head.threads + 1 : 62;
        return work < 1LL << shift ? Way::serial : Way::parallel;
    }
    if (n < 1) return Way::serial;
    if (head.dimension > 1) return way_of_many_dimensions<M>(head);
    if (!M::kComplex || head.length <= kShort || head.on_primitives == 1) return Way::serial;
    return Way::parallel;
}

// The whole transform as one call of a function, without any decision.
template <class M>
int transform_directly(DftiRecord* head, typename M::In* in, typename M::Out* out) {
    in += head->*M::kIn.offset;
    out += head->*M::kOut.offset;
    return head->direct_vector ? M::function(*head)(in, out, head, head->workspace)
                               : M::two_d(head, in, out);
}

template <class M>
int compute(DftiRecord** handle, void* input, void* output) {
    DftiRecord* head = handle ? *handle : nullptr;
    if (const int status = check_compute(head, input, output)) return status;
    if (!serves<M>(*head)) return DFTI_INCONSISTENT_CONFIGURATION;
    auto* in = static_cast<typename M::In*>(input);
    auto* out = static_cast<typename M::Out*>(output);
    if (head->direct_vector || (M::kComplex && M::kInPlace && head->direct_two_d))
        return transform_directly<M>(head, in, out);
    if (head->user_threads > 1) return parallel<M>(head, in, out);
    const Way way = head->threads < 2 ? Way::serial : way_of<M>(*head);
    if (way == Way::serial)
        return serial<M>(head, in, out, head->number_of_transforms, head->workspace);
    if (way == Way::parallel) return parallel<M>(head, in, out);
    return M::two_d(head, in + head->*M::kIn.offset, out + head->*M::kOut.offset);
}

} // namespace

} // namespace vor::dfti

using namespace vor::dfti;
using vor::Direction;

#define IN_PLACE(entry, ENTRY, engine, on_team, serial_engine, R, data, direction)                 \
    VOR_ENGINE int engine PARAMS_DFTI_IN_PLACE {                                                   \
        return compute<Member<R, Data::data, Direction::direction, true>>(handle, vectors,         \
                                                                          vectors);                \
    }                                                                                              \
    VOR_ENTRY(int, entry, ENTRY, engine, PARAMS_DFTI_IN_PLACE, ARGS_DFTI_IN_PLACE)
#define OUT_OF_PLACE(entry, ENTRY, engine, on_team, serial_engine, R, data, direction)             \
    VOR_ENGINE int engine PARAMS_DFTI_OUT {                                                        \
        return compute<Member<R, Data::data, Direction::direction, false>>(handle, input, output); \
    }                                                                                              \
    VOR_ENTRY(int, entry, ENTRY, engine, PARAMS_DFTI_OUT, ARGS_DFTI_OUT)
VOR_DFTI_MEMBERS_IN_PLACE(IN_PLACE)
VOR_DFTI_MEMBERS_OUT(OUT_OF_PLACE)
#undef IN_PLACE
#undef OUT_OF_PLACE

// ---- C entries -----------------------------------------------------------------------------------

namespace vor::dfti {

namespace {

// The typed entry of each member.
template <class M>
int typed(DftiRecord* head, void* input, void* output);

#define IN_PLACE(entry, ENTRY, engine, on_team, serial_engine, R, data, direction)                 \
    template <>                                                                                    \
    inline int typed<Member<R, Data::data, Direction::direction, true>>(DftiRecord * head,         \
                                                                        void* vectors, void*) {    \
        return entry(&head, vectors);                                                              \
    }
#define OUT_OF_PLACE(entry, ENTRY, engine, on_team, serial_engine, R, data, direction)             \
    template <>                                                                                    \
    inline int typed<Member<R, Data::data, Direction::direction, false>>(                          \
        DftiRecord * head, void* input, void* output) {                                            \
        return entry(&head, input, output);                                                        \
    }
VOR_DFTI_MEMBERS_IN_PLACE(IN_PLACE)
VOR_DFTI_MEMBERS_OUT(OUT_OF_PLACE)

// A member of a C entry: the direct paths at once, without frame, otherwise the typed entry.
template <class M>
int compute_member(DftiRecord* head, void* input, void* output) {
    const bool two_d = head->direct_two_d && !(M::kComplex && !M::kInPlace);
    if (head->commit_status == DFTI_UNCOMMITTED || !(head->direct_vector || two_d))
        return typed<M>(head, input, output);
    return transform_directly<M>(head, static_cast<typename M::In*>(input),
                                 static_cast<typename M::Out*>(output));
}

template <class R, Direction D, bool in_place>
int compute_kind(DftiRecord* head, void* input, void* output) {
    if (head->forward_domain == DFTI_COMPLEX)
        return compute_member<Member<R, Data::complex, D, in_place>>(head, input, output);
    if constexpr (!in_place)
        if (head->conjugate_even_storage != DFTI_COMPLEX_REAL)
            return compute_member<Member<R, Data::half, D, false>>(head, input, output);
    return compute_member<Member<R, Data::packed, D, in_place>>(head, input, output);
}

template <Direction D, bool in_place>
int compute_placed(DftiRecord* head, void* input, void* output) {
    if (!output) return DFTI_INCONSISTENT_CONFIGURATION;
    return head->precision == DFTI_SINGLE ? compute_kind<float, D, in_place>(head, input, output)
                                          : compute_kind<double, D, in_place>(head, input, output);
}

} // namespace

} // namespace vor::dfti

// The third argument is there only for a descriptor that is not in place.
#define C_ENTRY(Name, direction)                                                                   \
    extern "C" int Name(DftiRecord* handle, void* data, ...) {                                     \
        if (!handle || !data) return DFTI_INCONSISTENT_CONFIGURATION;                              \
        if (handle->tag[0] != kTag[0]) return DFTI_BAD_DESCRIPTOR;                                 \
        if (handle->placement == DFTI_INPLACE)                                                     \
            return compute_placed<direction, true>(handle, data, data);                            \
        va_list arguments;                                                                         \
        va_start(arguments, data);                                                                 \
        void* output = va_arg(arguments, void*);                                                   \
        va_end(arguments);                                                                         \
        return compute_placed<direction, false>(handle, data, output);                             \
    }
C_ENTRY(DftiComputeForward, Direction::forward)
C_ENTRY(DftiComputeBackward, Direction::backward)
