// The parallel engines. A descriptor with user threads hands each caller a slot and the part of the
// workspace that belongs to it; any other one divides its work over a team of the library.
//
// Shared state: thread_slots, claimed and released under vor_serv_dft_lock. Everything else of a
// committed descriptor is only read; each share of a team has its own region of the workspace.
#include "dft/team.h"
#include "dft/array.h"
#include "dft/serial.h"
#include "serv/memory.h"

namespace vor::dfti {

namespace {

// The first free slot, now taken; -1 if there is none.
int claim_slot(DftiRecord* head) {
    int slot = -1;
    vor_serv_dft_lock();
    for (int i = 0; i < head->user_threads && slot < 0; ++i)
        if (head->thread_slots[i] != 1) slot = i;
    if (slot >= 0) head->thread_slots[slot] = 1;
    vor_serv_dft_unlock();
    return slot;
}

void release_slot(DftiRecord* head, int slot) {
    vor_serv_dft_lock();
    head->thread_slots[slot] = 0;
    vor_serv_dft_unlock();
}

// The call of one of the caller's own threads.
template <class M>
int on_user_thread(DftiRecord* head, typename M::In* in, typename M::Out* out) {
    const int slot = claim_slot(head);
    if (slot < 0) return DFTI_NUMBER_OF_THREADS_ERROR;
    void* workspace = workspace_region(*head, slot);
    const int status = head->single_vector == 1
                           ? M::function(*head)(in + head->*M::kIn.offset,
                                                out + head->*M::kOut.offset, head, workspace)
                           : serial<M>(head, in, out, head->number_of_transforms, workspace);
    release_slot(head, slot);
    return status;
}

// Several transforms, in shares.
template <class M>
int in_chunks(DftiRecord* head, typename M::In* in, typename M::Out* out) {
    const int n = head->number_of_transforms;
    const int threads = head->threads < n ? head->threads : n;
    return in_shares(n, threads, [=](Share share, int i) {
        return serial<M>(head, ahead(in, share.first, head->*M::kIn.distance),
                         ahead(out, share.first, head->*M::kOut.distance), share.count,
                         workspace_region(*head, i));
    });
}

// One long complex vector by the team of the radix engine, which works in place.
template <class M>
int long_vector(DftiRecord* head, const typename M::In* in, typename M::Out* out) {
    using Routine = Routines<typename M::R>;
    constexpr int kShort = 1024; // for which two threads are enough
    const int threads = head->threads > 2 && head->length <= kShort ? 2 : head->threads;
    const int out_stride = head->*M::kOut.stride;
    in += head->*M::kIn.offset;
    out += head->*M::kOut.offset;
    auto* vector = out;
    const Scratch<typename M::C> copy(out_stride == 1 ? 0 : static_cast<size_t>(head->length));
    if (out_stride != 1) {
        if (!copy) return DFTI_MEMORY_ERROR;
        vector = copy.get();
    }
    if (vector != in) Routine::copy(head->length, in, head->*M::kIn.stride, vector, 1);
    const int status = M::team_function(*head)(vector, threads, head);
    if (vector != out && status == DFTI_NO_ERROR)
        Routine::copy(head->length, vector, 1, out, out_stride);
    return status;
}

} // namespace

template <class M>
int parallel(DftiRecord* head, typename M::In* in, typename M::Out* out) {
    if (head->user_threads > 1) return on_user_thread<M>(head, in, out);
    const int n = head->number_of_transforms;
    if (vor_serv_in_serial() == 1 || omp_in_parallel())
        return serial<M>(head, in, out, n, head->workspace);
    if (n > 1) return in_chunks<M>(head, in, out);
    if (n == 1 && head->dimension > 1)
        return transform_array<M>(head, in + head->*M::kIn.offset, out + head->*M::kOut.offset,
                                  nullptr, true);
    if constexpr (M::kComplex)
        if (n == 1 && head->dimension == 1 && head->on_primitives == 0)
            return long_vector<M>(head, in, out);
    return serial<M>(head, in, out, n, head->workspace);
}

} // namespace vor::dfti

using namespace vor::dfti;
using vor::Direction;

#define IN_PLACE(entry, ENTRY, engine, on_team, serial_engine, R, data, direction)                 \
    template int vor::dfti::parallel<Member<R, Data::data, Direction::direction, true>>(           \
        DftiRecord*, Member<R, Data::data, Direction::direction, true>::In*,                       \
        Member<R, Data::data, Direction::direction, true>::Out*);                                  \
    extern "C" int on_team(DftiRecord* head, void* vectors) {                                      \
        using M = Member<R, Data::data, Direction::direction, true>;                               \
        return parallel<M>(head, static_cast<M::In*>(vectors), static_cast<M::Out*>(vectors));     \
    }
#define OUT_OF_PLACE(entry, ENTRY, engine, on_team, serial_engine, R, data, direction)             \
    template int vor::dfti::parallel<Member<R, Data::data, Direction::direction, false>>(          \
        DftiRecord*, Member<R, Data::data, Direction::direction, false>::In*,                      \
        Member<R, Data::data, Direction::direction, false>::Out*);                                 \
    extern "C" int on_team(DftiRecord* head, void* input, void* output) {                          \
        using M = Member<R, Data::data, Direction::direction, false>;                              \
        return parallel<M>(head, static_cast<M::In*>(input), static_cast<M::Out*>(output));        \
    }
VOR_DFTI_MEMBERS_IN_PLACE(IN_PLACE)
VOR_DFTI_MEMBERS_OUT(OUT_OF_PLACE)
