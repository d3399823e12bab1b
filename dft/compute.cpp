// Compute: from a committed descriptor and its data to calls of 1-D functions.
//
// One direct call if commit said so; else the transforms of the call are walked on this thread or, if
// the gate below says so, on a team. A descriptor with user threads hands each caller a slot and the
// part of the workspace that belongs to it.
//
// Shared state: thread_slots, claimed and released under vor_serv_dft_lock. Everything else of a
// committed descriptor is only read; each chunk of a team has its own region of the workspace.
#include "dft/members.h"
#include "dft/signatures.h"
#include "serv/entry.h"
#include "serv/memory.h"
#include "serv/threads.h"

#include <omp.h>
#include <stdarg.h>

using vor::Data;
using vor::Direction;
using vor::Member;

namespace {

int check_compute(const DftiRecord* head, const void* in, const void* out) {
    if (!head || !in || !out) return DFTI_INCONSISTENT_CONFIGURATION;
    if (head->tag[0] != vor::kTag[0]) return DFTI_BAD_DESCRIPTOR;
    return head->commit_status == DFTI_UNCOMMITTED ? DFTI_INVALID_CONFIGURATION : DFTI_NO_ERROR;
}

// Where the sides of a call stand and how they are stepped, in elements. In place both are the input's.
template <class M>
struct Layout {
    explicit Layout(const DftiRecord& head)
        : in_offset(head.input_offset), in_stride(head.input_stride),
          in_distance(head.input_distance),
          out_offset(M::kInPlace ? head.input_offset : head.output_offset),
          out_stride(M::kInPlace ? head.input_stride : head.output_stride),
          out_distance(M::kInPlace ? head.input_distance : head.output_distance) {}
    int in_offset, in_stride, in_distance;
    int out_offset, out_stride, out_distance;
};

// ---- Serial engine -------------------------------------------------------------------------------

// The group exponent of interleaved vectors: small groups for few or short ones.
template <class R>
int group_exponent(int length, int n) {
    if (sizeof(R) == sizeof(double)) return n <= 16384 && length < 33 ? 2 : 3;
    return n < 64 || (n <= 32768 && length < 33) ? 3 : 4;
}

// n interleaved vectors: element i of vector j at i * stride + j.
template <class M>
int transform_interleaved(DftiRecord* head, typename M::In* in, typename M::Out* out,
                          vor::Transform* function, int n, void* workspace) {
    using R = typename M::R;
    const Layout<M> layout(*head);
    const int e = group_exponent<R>(head->length, n);
    const int group = vor::group_size<R>(e) < n ? vor::group_size<R>(e) : n;
    // A cache line between the vectors: at distances of a power of two the vectors of a group would
    // contend for one set of the cache.
    constexpr int kLine = 64 / sizeof(R);
    const int distance =
        (M::kComplex ? 2 * head->length : vor::half_spectrum(head->length)) + kLine;
    constexpr size_t kSlack = 320; // reals, so that the sizes follow from the group alone
    const vor::Scratch<R> buffer(static_cast<size_t>(distance) * static_cast<size_t>(group) +
                                 kSlack);
    if (!buffer) return DFTI_MEMORY_ERROR;
    return vor::transform_columns<R, typename M::In, typename M::Out>(
        {in, layout.in_stride, 1, M::values_in(*head)},
        {out, layout.out_stride, 1, M::values_out(*head)}, function, head, n, buffer.get(),
        distance, e, workspace);
}

// One vector through a copy of unit stride.
template <class M>
int transform_copy(DftiRecord* head, const typename M::In* in, int in_stride, typename M::Out* out,
                   int out_stride, void* workspace) {
    using R = typename M::R;
    using P = vor::Precision<R>;
    constexpr size_t kSlack = 32;
    const vor::Scratch<R> copy(2 * static_cast<size_t>(head->length) + kSlack);
    if (!copy) return DFTI_MEMORY_ERROR;
    auto* vector_in = reinterpret_cast<typename M::In*>(copy.get());
    auto* vector_out = reinterpret_cast<typename M::Out*>(copy.get());
    P::copy(M::values_in(*head), in, in_stride, vector_in, 1);
    const int status = M::function(*head)(copy.get(), copy.get(), head, workspace);
    if (status == DFTI_NO_ERROR) P::copy(M::values_out(*head), vector_out, 1, out, out_stride);
    return status;
}

template <class M>
int transform_vector(DftiRecord* head, typename M::In* in, typename M::Out* out, void* workspace) {
    const Layout<M> layout(*head);
    const bool direct = layout.in_stride == 1 && layout.out_stride == 1;
    if (direct && (M::kInPlace || head->ordering != DFTI_BACKWARD_SCRAMBLED))
        return M::function(*head)(in, out, head, workspace);
    if (M::kInPlace || layout.out_stride != 1 || !M::fits_output(*head))
        return transform_copy<M>(head, in, layout.in_stride, out, layout.out_stride, workspace);
    vor::Precision<typename M::R>::copy(M::values_in(*head), in, layout.in_stride,
                                        reinterpret_cast<typename M::In*>(out), 1);
    return M::function(*head)(out, out, head, workspace);
}

// n transforms, one after the other; the first failure ends the walk.
template <class M>
int serial(DftiRecord* head, typename M::In* in, typename M::Out* out, int n, void* workspace) {
    const Layout<M> layout(*head);
    in += layout.in_offset;
    out += layout.out_offset;
    if (layout.in_distance == 1 && layout.out_distance == 1 && head->dimension == 1 &&
        head->length != 1 && n > 0)
        return transform_interleaved<M>(head, in, out, M::function(*head), n, workspace);
    int status = DFTI_NO_ERROR;
    for (int i = 0; i < n && status == DFTI_NO_ERROR; ++i) {
        status = transform_vector<M>(head, in, out, workspace);
        in += layout.in_distance;
        out += layout.out_distance;
    }
    return status;
}

// ---- Threads -------------------------------------------------------------------------------------

void* workspace_region(const DftiRecord& head, int i) {
    return static_cast<char*>(head.workspace) + static_cast<ptrdiff_t>(i) * head.max_buffer_size;
}

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
    const Layout<M> layout(*head);
    const int status =
        head->single_vector == 1
            ? M::function(*head)(in + layout.in_offset, out + layout.out_offset, head, workspace)
            : serial<M>(head, in, out, head->number_of_transforms, workspace);
    release_slot(head, slot);
    return status;
}

// Several transforms, in chunks. The first failure to arrive is the result; the others go on.
template <class M>
int in_chunks(DftiRecord* head, typename M::In* in, typename M::Out* out) {
    const Layout<M> layout(*head);
    const int n = head->number_of_transforms;
    const int chunks = head->threads < n ? head->threads : n;
    const int chunk = (n - 1) / chunks + 1;
    int shared_status = DFTI_NO_ERROR;
#pragma omp parallel for schedule(static) num_threads(head->threads)
    for (int i = 0; i < chunks; ++i) {
        const ptrdiff_t first = static_cast<ptrdiff_t>(i) * chunk;
        const int count = n - static_cast<int>(first) < chunk ? n - static_cast<int>(first) : chunk;
        const int status =
            serial<M>(head, in + first * layout.in_distance, out + first * layout.out_distance,
                      count, workspace_region(*head, i));
        if (status != DFTI_NO_ERROR) {
#pragma omp critical(vor_dft_status)
            if (shared_status == DFTI_NO_ERROR) shared_status = status;
        }
    }
    return shared_status;
}

// One long complex vector by the team of the radix engine, which works in place.
template <class M>
int by_team(DftiRecord* head, typename M::In* in, typename M::Out* out) {
    using P = vor::Precision<typename M::R>;
    const Layout<M> layout(*head);
    constexpr int kShort = 1024; // for which two threads are enough
    const int threads = head->threads > 2 && head->length <= kShort ? 2 : head->threads;
    in += layout.in_offset;
    out += layout.out_offset;
    const auto* source = in;
    auto* vector = out;
    const vor::Scratch<typename M::C> copy(
        layout.out_stride == 1 ? 0 : static_cast<size_t>(head->length));
    if (layout.out_stride != 1) {
        if (!copy) return DFTI_MEMORY_ERROR;
        vector = copy.get();
    }
    if (vector != source) P::copy(head->length, source, layout.in_stride, vector, 1);
    const int status = M::team_function(*head)(vector, threads, head);
    if (vector != out && status == DFTI_NO_ERROR)
        P::copy(head->length, vector, 1, out, layout.out_stride);
    return status;
}

template <class M>
int parallel(DftiRecord* head, typename M::In* in, typename M::Out* out) {
    if (head->user_threads > 1) return on_user_thread<M>(head, in, out);
    const int n = head->number_of_transforms;
    if (vor_serv_in_serial() == 1 || omp_in_parallel())
        return serial<M>(head, in, out, n, head->workspace);
    if (n > 1) return in_chunks<M>(head, in, out);
    if constexpr (M::kComplex)
        if (head->dimension == 1 && head->on_primitives == 0) return by_team<M>(head, in, out);
    return serial<M>(head, in, out, n, head->workspace);
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
    const bool small = head.length * head.next->length < kSmallPlane;
    if (M::kComplex) return small ? Way::serial : Way::parallel;
    const bool one_row = !M::kForward && head.next->length == 1;
    const bool rows_count = M::kKind == Data::half || sizeof(typename M::R) == sizeof(float);
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
    if (head.dimension > 1) return way_of_many_dimensions<M>(head);
    if (!M::kComplex || head.length <= kShort || head.on_primitives == 1) return Way::serial;
    return Way::parallel;
}

template <class M>
int compute(DftiRecord** handle, void* input, void* output) {
    DftiRecord* head = handle ? *handle : nullptr;
    if (const int status = check_compute(head, input, output)) return status;
    auto* in = static_cast<typename M::In*>(input);
    auto* out = static_cast<typename M::Out*>(output);
    const Layout<M> layout(*head);
    if (head->direct_vector)
        return M::function(*head)(in + layout.in_offset, out + layout.out_offset, head,
                                  head->workspace);
    if (M::kComplex && M::kInPlace && head->direct_two_d)
        return M::two_d(head, in + layout.in_offset, out + layout.out_offset);
    if (head->user_threads > 1) return parallel<M>(head, in, out);
    const Way way = head->threads < 2 ? Way::serial : way_of<M>(*head);
    if (way == Way::serial)
        return serial<M>(head, in, out, head->number_of_transforms, head->workspace);
    if (way == Way::parallel) return parallel<M>(head, in, out);
    return M::two_d(head, in + layout.in_offset, out + layout.out_offset);
}

} // namespace

// The engines, entries and threaded forms of one member. The stem names direction and data.
#define NAMES_IN_PLACE(stem, STEM, serial_name, ...)                                               \
    extern "C" int serial_name(DftiRecord* head, void* data, int n, void* workspace) {             \
        using M = __VA_ARGS__;                                                                     \
        return serial<M>(head, static_cast<M::In*>(data), static_cast<M::Out*>(data), n,           \
                         workspace);                                                               \
    }                                                                                              \
    extern "C" int vor_dft_compute_##stem##_par(DftiRecord* head, void* data) {                    \
        using M = __VA_ARGS__;                                                                     \
        return parallel<M>(head, static_cast<M::In*>(data), static_cast<M::Out*>(data));           \
    }                                                                                              \
    VOR_ENGINE int vor_dft_compute_##stem PARAMS_DFTI_IN_PLACE {                                   \
        return compute<__VA_ARGS__>(handle, data, data);                                           \
    }                                                                                              \
    VOR_ENTRY(int, dfti_compute_##stem, DFTI_COMPUTE_##STEM, vor_dft_compute_##stem,               \
              PARAMS_DFTI_IN_PLACE, ARGS_DFTI_IN_PLACE)
#define NAMES_OUT(stem, STEM, serial_name, ...)                                                    \
    extern "C" int serial_name(DftiRecord* head, void* input, void* output, int n,                 \
                               void* workspace) {                                                  \
        using M = __VA_ARGS__;                                                                     \
        return serial<M>(head, static_cast<M::In*>(input), static_cast<M::Out*>(output), n,        \
                         workspace);                                                               \
    }                                                                                              \
    extern "C" int vor_dft_compute_##stem##_par(DftiRecord* head, void* input, void* output) {     \
        using M = __VA_ARGS__;                                                                     \
        return parallel<M>(head, static_cast<M::In*>(input), static_cast<M::Out*>(output));        \
    }                                                                                              \
    VOR_ENGINE int vor_dft_compute_##stem PARAMS_DFTI_OUT {                                        \
        return compute<__VA_ARGS__>(handle, input, output);                                        \
    }                                                                                              \
    VOR_ENTRY(int, dfti_compute_##stem, DFTI_COMPUTE_##STEM, vor_dft_compute_##stem,               \
              PARAMS_DFTI_OUT, ARGS_DFTI_OUT)

// A data letter in place and out of place, in both directions.
#define BOTH_WAYS(t, T, R, kind)                                                                   \
    NAMES_IN_PLACE(forward_##t, FORWARD_##T, vor_dft_x##t##forward,                                \
                   Member<R, kind, Direction::forward, true>)                                      \
    NAMES_IN_PLACE(backward_##t, BACKWARD_##T, vor_dft_x##t##backward,                             \
                   Member<R, kind, Direction::backward, true>)                                     \
    NAMES_OUT(forward_##t##_out, FORWARD_##T##_OUT, vor_dft_x##t##forward_out,                     \
              Member<R, kind, Direction::forward, false>)                                          \
    NAMES_OUT(backward_##t##_out, BACKWARD_##T##_OUT, vor_dft_x##t##backward_out,                  \
              Member<R, kind, Direction::backward, false>)
BOTH_WAYS(c, C, float, Data::complex)
BOTH_WAYS(z, Z, double, Data::complex)
BOTH_WAYS(s, S, float, Data::packed)
BOTH_WAYS(d, D, double, Data::packed)
NAMES_OUT(forward_sc_out, FORWARD_SC_OUT, vor_dft_xscforward_out,
          Member<float, Data::half, Direction::forward, false>)
NAMES_OUT(forward_dz_out, FORWARD_DZ_OUT, vor_dft_xdzforward_out,
          Member<double, Data::half, Direction::forward, false>)
NAMES_OUT(backward_cs_out, BACKWARD_CS_OUT, vor_dft_xcsbackward_out,
          Member<float, Data::half, Direction::backward, false>)
NAMES_OUT(backward_zd_out, BACKWARD_ZD_OUT, vor_dft_xzdbackward_out,
          Member<double, Data::half, Direction::backward, false>)

// n interleaved complex vectors in place, by the function given.
#define INTERLEAVED(c, R)                                                                          \
    extern "C" int vor_dft_x##c##dft_mult(DftiRecord* head, void* data, vor::Transform* function,  \
                                          int n, void* workspace) {                                \
        using M = Member<R, Data::complex, Direction::forward, true>;                              \
        return transform_interleaved<M>(head, static_cast<M::In*>(data),                           \
                                        static_cast<M::Out*>(data), function, n, workspace);       \
    }
INTERLEAVED(c, float)
INTERLEAVED(z, double)

namespace {

// The typed entry of each member, for the C entries.
#define TYPED_IN_PLACE(stem, ...)                                                                  \
    inline int typed(DftiRecord* head, void* data, void*, __VA_ARGS__) {                           \
        return dfti_compute_##stem(&head, data);                                                   \
    }
#define TYPED_OUT(stem, ...)                                                                       \
    inline int typed(DftiRecord* head, void* input, void* output, __VA_ARGS__) {                   \
        return dfti_compute_##stem(&head, input, output);                                          \
    }
#define TYPED_BOTH_WAYS(t, R, kind)                                                                \
    TYPED_IN_PLACE(forward_##t, Member<R, kind, Direction::forward, true>)                         \
    TYPED_IN_PLACE(backward_##t, Member<R, kind, Direction::backward, true>)                       \
    TYPED_OUT(forward_##t##_out, Member<R, kind, Direction::forward, false>)                       \
    TYPED_OUT(backward_##t##_out, Member<R, kind, Direction::backward, false>)
TYPED_BOTH_WAYS(c, float, Data::complex)
TYPED_BOTH_WAYS(z, double, Data::complex)
TYPED_BOTH_WAYS(s, float, Data::packed)
TYPED_BOTH_WAYS(d, double, Data::packed)
TYPED_OUT(forward_sc_out, Member<float, Data::half, Direction::forward, false>)
TYPED_OUT(forward_dz_out, Member<double, Data::half, Direction::forward, false>)
TYPED_OUT(backward_cs_out, Member<float, Data::half, Direction::backward, false>)
TYPED_OUT(backward_zd_out, Member<double, Data::half, Direction::backward, false>)

// A member of a C entry: the direct paths at once, without frame, otherwise the typed entry.
template <class M>
int compute_member(DftiRecord* head, void* input, void* output) {
    const bool two_d = head->direct_two_d && !(M::kComplex && !M::kInPlace);
    if (head->commit_status == DFTI_UNCOMMITTED || !(head->direct_vector || two_d))
        return typed(head, input, output, M{});
    const Layout<M> layout(*head);
    auto* in = static_cast<typename M::In*>(input) + layout.in_offset;
    auto* out = static_cast<typename M::Out*>(output) + layout.out_offset;
    if (head->direct_vector) return M::function(*head)(in, out, head, head->workspace);
    return M::two_d(head, in, out);
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

// The C entries. The third argument is there only for a descriptor that is not in place.
#define C_ENTRY(Name, direction)                                                                   \
    extern "C" int Name(DftiRecord* handle, void* data, ...) {                                     \
        if (!handle || !data) return DFTI_INCONSISTENT_CONFIGURATION;                              \
        if (handle->tag[0] != vor::kTag[0]) return DFTI_BAD_DESCRIPTOR;                            \
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
