// The serial engines: one or more transforms of a descriptor on the calling thread.
#include "dft/serial.h"
#include "dft/array.h"
#include "dft/interleaved.h"
#include "serv/memory.h"

namespace vor::dfti {

namespace {

template <class M>
int transform_copy(DftiRecord* head, const typename M::In* in, typename M::Out* out,
                   void* workspace) {
    using R = typename M::R;
    using Routine = Routines<R>;
    constexpr size_t kSlack = 32;
    const Scratch<R> copy(2 * static_cast<size_t>(head->length) + kSlack);
    if (!copy) return DFTI_MEMORY_ERROR;
    auto* vector_in = reinterpret_cast<typename M::In*>(copy.get());
    auto* vector_out = reinterpret_cast<typename M::Out*>(copy.get());
    Routine::copy(M::values_in(*head), in, head->*M::kIn.stride, vector_in, 1);
    const int status = M::function(*head)(copy.get(), copy.get(), head, workspace);
    if (status == DFTI_NO_ERROR)
        Routine::copy(M::values_out(*head), vector_out, 1, out, head->*M::kOut.stride);
    return status;
}

template <class M>
int transform_vector(DftiRecord* head, typename M::In* in, typename M::Out* out, void* workspace) {
    const int in_stride = head->*M::kIn.stride, out_stride = head->*M::kOut.stride;
    const bool direct = in_stride == 1 && out_stride == 1;
    if (direct && (M::kInPlace || head->ordering != DFTI_BACKWARD_SCRAMBLED))
        return M::function(*head)(in, out, head, workspace);
    if (M::kInPlace || out_stride != 1 || !M::fits_output(*head))
        return transform_copy<M>(head, in, out, workspace);
    Routines<typename M::R>::copy(M::values_in(*head), in, in_stride,
                                  reinterpret_cast<typename M::In*>(out), 1);
    return M::function(*head)(out, out, head, workspace);
}

template <class M>
bool is_interleaved(const DftiRecord& head) {
    return head.*M::kIn.distance == 1 && head.*M::kOut.distance == 1 && head.dimension == 1 &&
           head.length != 1;
}

} // namespace

template <class M>
int serial(DftiRecord* head, typename M::In* in, typename M::Out* out, int n, void* workspace) {
    in += head->*M::kIn.offset;
    out += head->*M::kOut.offset;
    if (is_interleaved<M>(*head) && n > 0)
        return transform_interleaved<typename M::R, typename M::In, typename M::Out>(
            {in, head->*M::kIn.stride, 1, M::values_in(*head)},
            {out, head->*M::kOut.stride, 1, M::values_out(*head)}, n,
            {M::function(*head), head, workspace});
    int status = DFTI_NO_ERROR;
    for (int i = 0; i < n && status == DFTI_NO_ERROR; ++i) {
        status = head->dimension == 1 ? transform_vector<M>(head, in, out, workspace)
                                      : transform_array<M>(head, in, out, workspace, false);
        in += head->*M::kIn.distance;
        out += head->*M::kOut.distance;
    }
    return status;
}

} // namespace vor::dfti

using namespace vor::dfti;
using vor::Direction;

#define IN_PLACE(entry, ENTRY, engine, on_team, serial_engine, R, data, direction)                 \
    template int vor::dfti::serial<Member<R, Data::data, Direction::direction, true>>(             \
        DftiRecord*, Member<R, Data::data, Direction::direction, true>::In*,                       \
        Member<R, Data::data, Direction::direction, true>::Out*, int, void*);                      \
    extern "C" int serial_engine(DftiRecord* head, void* vectors, int n, void* workspace) {        \
        using M = Member<R, Data::data, Direction::direction, true>;                               \
        return serial<M>(head, static_cast<M::In*>(vectors), static_cast<M::Out*>(vectors), n,     \
                         workspace);                                                               \
    }
#define OUT_OF_PLACE(entry, ENTRY, engine, on_team, serial_engine, R, data, direction)             \
    template int vor::dfti::serial<Member<R, Data::data, Direction::direction, false>>(            \
        DftiRecord*, Member<R, Data::data, Direction::direction, false>::In*,                      \
        Member<R, Data::data, Direction::direction, false>::Out*, int, void*);                     \
    extern "C" int serial_engine(DftiRecord* head, void* input, void* output, int n,               \
                                 void* workspace) {                                                \
        using M = Member<R, Data::data, Direction::direction, false>;                              \
        return serial<M>(head, static_cast<M::In*>(input), static_cast<M::Out*>(output), n,        \
                         workspace);                                                               \
    }
VOR_DFTI_MEMBERS_IN_PLACE(IN_PLACE)
VOR_DFTI_MEMBERS_OUT(OUT_OF_PLACE)
