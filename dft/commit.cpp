// Commit: from a configured descriptor to a runnable one.
//
// It settles the number of threads and the direct flags, chooses the engine of each dimension, builds
// its objects and sizes the work buffer. A commit starts from nothing: what an earlier one built is
// released first. A failed commit leaves an uncommitted descriptor that holds no table.
#include "dft/adapters.h"
#include "dft/pending.h"
#include "dft/precision.h"
#include "dft/signatures.h"
#include "serv/entry.h"
#include "serv/memory.h"
#include "serv/threads.h"

#include <initializer_list>
#include <omp.h>
#include <string.h>

using vor::Directed;
using vor::Direction;
using vor::Precision;

namespace {

// Powers of two above these lengths belong to the radix engine where commit has the choice.
template <class R>
constexpr int kLongestObject = sizeof(R) == sizeof(float) ? 32768 : 8192;
// Longest vectors that may be transformed by one direct call.
template <class R>
constexpr int kDirectComplex = sizeof(R) == sizeof(float) ? 1023 : 511;
template <class R>
constexpr int kDirectCcs = sizeof(R) == sizeof(float) ? 8192 : 4096;
// Elements of two dimensions from which on they are no job for one direct call.
constexpr int kDirectTwoD = 2048;

bool is_single(const DftiRecord& record) {
    return record.precision == DFTI_SINGLE;
}

bool is_power_of_two(const DftiRecord& record) {
    return record.length == 1 << record.log2_length;
}

bool unit_strides(const DftiRecord& record) {
    return record.input_stride == 1 && record.output_stride == 1;
}

int settle_threads(DftiRecord& head) {
    if (head.user_threads > 1) {
        head.threads = 1;
        unsigned bytes;
        if (!vor::byte_count(static_cast<size_t>(head.user_threads), sizeof(int), 0, &bytes))
            return DFTI_MEMORY_ERROR;
        head.thread_slots = static_cast<int*>(vor_serv_allocate(bytes));
        if (!head.thread_slots) return DFTI_MEMORY_ERROR;
        memset(head.thread_slots, 0, bytes);
    } else {
        const bool serial = vor_serv_in_serial() == 1 || omp_in_parallel();
        head.threads = serial ? 1 : omp_get_max_threads();
    }
    return DFTI_NO_ERROR;
}

// How many transforms of this descriptor are single vectors short enough for direct calls.
template <class R>
int count_single_vectors(const DftiRecord& head) {
    if (head.dimension != 1 || !unit_strides(head)) return 0;
    if (head.forward_domain == DFTI_COMPLEX)
        return head.number_of_transforms == 1 && head.length <= kDirectComplex<R>;
    if (head.packed_format == DFTI_CCS_FORMAT && head.length > kDirectCcs<R>) return 0;
    return head.number_of_transforms;
}

void settle_direct_flags(DftiRecord& head) {
    head.single_vector =
        is_single(head) ? count_single_vectors<float>(head) : count_single_vectors<double>(head);
    const bool direct = head.user_threads <= 1;
    head.direct_vector = direct && head.single_vector == 1;
    head.direct_two_d = direct && head.number_of_transforms == 1 && head.dimension == 2 &&
                        head.size_so_far < kDirectTwoD;
}

// The settings of the head, in each record.
void copy_settings(const DftiRecord& head, DftiRecord& record, int index) {
    for (int DftiRecord::*field :
         {&DftiRecord::input_offset, &DftiRecord::output_offset, &DftiRecord::input_distance,
          &DftiRecord::output_distance, &DftiRecord::precision, &DftiRecord::forward_domain,
          &DftiRecord::ordering, &DftiRecord::complex_storage, &DftiRecord::real_storage,
          &DftiRecord::conjugate_even_storage, &DftiRecord::packed_format,
          &DftiRecord::number_of_transforms, &DftiRecord::placement, &DftiRecord::transpose})
        record.*field = head.*field;
    record.dimension_index = index;
    record.commit_status = DFTI_COMMITTED;
}

// Objects are built without scaling: the adapters scale.
template <class Init, class Size>
int build_object(DftiRecord& record, DftCtx* DftiRecord::*spec, Init init, Size size) {
    TavStatus status = init(&(record.*spec), record.length, TAV_FFT_NODIV_BY_ANY, 0);
    if (status == tavStsNoErr) status = size(record.*spec, &record.buffer_size);
    return vor_dft_transfer_tav_vor_error(status);
}

// Clears the object and table fields of a record before its engine is built.
void clear_engine(DftiRecord& record) {
    record.dft_spec_c = record.dft_spec_z = nullptr;
    record.out_ord_spec_c = record.out_ord_spec_z = nullptr;
    record.dft_spec_real_s = record.dft_spec_real_d = nullptr;
    record.table_c = record.table_z = nullptr;
    record.buffer_size = 0;
}

template <class R>
int init_complex(DftiRecord& record, const DftiRecord& head) {
    using P = Precision<R>;
    clear_engine(record);
    const bool scrambled =
        head.forward_domain == DFTI_COMPLEX && head.ordering == DFTI_BACKWARD_SCRAMBLED;
    return scrambled ? build_object(record, P::out_ord_spec, P::out_ord_init, P::out_ord_size)
                     : build_object(record, P::spec, P::init, P::size);
}

int init_radix(DftiRecord& record) {
    clear_engine(record);
    return vor::engine_pending();
}

// The complex object that a dimension above 0 has by then stays.
template <class R>
int init_real(DftiRecord& record, int index) {
    using P = Precision<R>;
    if (index == 0) clear_engine(record);
    return build_object(record, P::real_spec, P::real_init, P::real_size);
}

template <class R>
void set_complex_functions(DftiRecord& record) {
    constexpr bool single = sizeof(R) == sizeof(float);
    record.*Directed<R, Direction::forward>::function =
        record.ordering == DFTI_ORDERED
            ? (single ? vor_dft_xtavs_fwd_32fc : vor_dft_xtavs_fwd_64fc)
            : (single ? vor_dft_xtavs_fwd_rev_32fc : vor_dft_xtavs_fwd_rev_64fc);
    record.*Directed<R, Direction::backward>::function =
        record.ordering == DFTI_ORDERED
            ? (single ? vor_dft_xtavs_inv_32fc : vor_dft_xtavs_inv_64fc)
            : (single ? vor_dft_xtavs_inv_rev_32fc : vor_dft_xtavs_inv_rev_64fc);
}

template <class R>
int commit_complex(DftiRecord& record, const DftiRecord& head) {
    const bool scrambled = record.ordering == DFTI_BACKWARD_SCRAMBLED;
    const bool longer = is_power_of_two(record) && record.length > kLongestObject<R>;
    if (longer && scrambled) return vor::engine_pending();
    // One long ordered double transform on several threads: the object serves a direction of scale 1,
    // the radix engine's team the other one.
    const bool team = longer && sizeof(R) == sizeof(double) && head.threads > 1 &&
                      head.dimension == 1 &&
                      !(record.placement == DFTI_NOT_INPLACE && unit_strides(record));
    const bool scaled = record.forward_scale_d != 1 || record.backward_scale_d != 1;
    if (team && scaled) return vor::engine_pending();
    record.on_primitives = 1;
    set_complex_functions<R>(record);
    return init_complex<R>(record, head);
}

template <class R, Direction D>
bool choose_primitive(DftiRecord& record) {
    using Call = Directed<R, D>;
    auto& primitive = record.*vor::real_primitive<R>(D);
    if (vor::has_half_spectrum(record))
        primitive = Call::ccs;
    else if (record.packed_format == DFTI_PACK_FORMAT)
        primitive = Call::pack;
    else if (record.packed_format == DFTI_PERM_FORMAT)
        primitive = Call::perm;
    else
        return false;
    return true;
}

template <class R>
int commit_real(DftiRecord& record, const DftiRecord& head) {
    constexpr bool single = sizeof(R) == sizeof(float);
    const bool as_complex = record.conjugate_even_storage == DFTI_COMPLEX_COMPLEX;
    if (as_complex ? record.placement == DFTI_INPLACE : head.dimension == 3)
        return DFTI_UNIMPLEMENTED;
    record.*Directed<R, Direction::backward>::real_function =
        single ? vor_dft_xtavs_inv_complextor_32f : vor_dft_xtavs_inv_complextor_64f;
    record.*Directed<R, Direction::forward>::real_function =
        single ? vor_dft_xtavs_fwd_rtocomplex_32f : vor_dft_xtavs_fwd_rtocomplex_64f;
    if (!choose_primitive<R, Direction::forward>(record) ||
        !choose_primitive<R, Direction::backward>(record))
        return DFTI_UNIMPLEMENTED;
    record.on_primitives = !is_power_of_two(record);
    return init_real<R>(record, record.dimension_index);
}

int commit_record(DftiRecord& record, const DftiRecord& head) {
    if (head.forward_domain == DFTI_REAL)
        return is_single(head) ? commit_real<float>(record, head)
                               : commit_real<double>(record, head);
    return is_single(head) ? commit_complex<float>(record, head)
                           : commit_complex<double>(record, head);
}

int allocate_workspace(DftiRecord& head) {
    if (head.max_buffer_size < 1) return DFTI_NO_ERROR;
    const int regions = head.user_threads > 1 ? head.user_threads : head.threads;
    unsigned bytes;
    if (!vor::byte_count(static_cast<size_t>(head.max_buffer_size), static_cast<size_t>(regions), 0,
                         &bytes))
        return DFTI_MEMORY_ERROR;
    head.workspace = vor_serv_allocate(bytes);
    return head.workspace ? DFTI_NO_ERROR : DFTI_MEMORY_ERROR;
}

int build(DftiRecord* head) {
    if (const int status = settle_threads(*head)) return status;
    settle_direct_flags(*head);
    if (head->dimension > 1) return vor::engine_pending();
    head->max_buffer_size = 0;
    for (DftiRecord* record = head; record; record = record->next) {
        copy_settings(*head, *record, static_cast<int>(record - head));
        if (const int status = commit_record(*record, *head)) return status;
        if (record->buffer_size > head->max_buffer_size)
            head->max_buffer_size = record->buffer_size;
    }
    return allocate_workspace(*head);
}

} // namespace

// The initialisers by name: of a record, given the head. The fft ones fill the radix engine's table.
#define INITIALISERS(R, c)                                                                         \
    extern "C" int vor_dft_##c##_tav_init(DftiRecord* record, DftiRecord* head) {                  \
        return init_complex<R>(*record, *head);                                                    \
    }                                                                                              \
    extern "C" int vor_dft_##c##_tav_real_init(DftiRecord* record, DftiRecord*, int index) {       \
        return init_real<R>(*record, index);                                                       \
    }                                                                                              \
    extern "C" int vor_dft_##c##_fft_init(DftiRecord* record, DftiRecord*) {                       \
        return init_radix(*record);                                                                \
    }
INITIALISERS(float, c)
INITIALISERS(double, z)

// Both engines on one record, double precision.
extern "C" int vor_dft_z_tav_fft_init(DftiRecord* record, DftiRecord* head) {
    const int status = init_complex<double>(*record, *head);
    return status == DFTI_NO_ERROR ? vor::engine_pending() : status;
}

VOR_ENGINE int vor_dft_commit_descriptor_external PARAMS_DFTI_HANDLE {
    int status = handle ? vor::check_handle(*handle) : DFTI_INCONSISTENT_CONFIGURATION;
    if (status != DFTI_NO_ERROR) return status;
    DftiRecord* head = *handle;
    vor_dft_free_allocated_buffers(head);
    status = build(head);
    if (status == DFTI_NO_ERROR) return status;
    vor_dft_free_allocated_buffers(head);
    for (DftiRecord* record = head; record; record = record->next)
        record->commit_status = DFTI_UNCOMMITTED;
    return status;
}

VOR_ENTRY(int, dfti_commit_descriptor_external, DFTI_COMMIT_DESCRIPTOR_EXTERNAL,
          vor_dft_commit_descriptor_external, PARAMS_DFTI_HANDLE, ARGS_DFTI_HANDLE)

extern "C" int DftiCommitDescriptor(DftiRecord* handle) {
    return dfti_commit_descriptor_external(&handle);
}
