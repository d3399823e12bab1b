// Commit: from a configured descriptor to a runnable one.
//
// It settles the number of threads and the direct flags, chooses the engine of each dimension, builds
// its objects and sizes the work buffer. A commit starts from nothing: what an earlier one built is
// released first. A failed commit leaves an uncommitted descriptor that holds no table.
#include "dft/engines.h"
#include "dft/real_plane.h"
#include "dft/routines.h"
#include "serv/entry.h"
#include "serv/memory.h"
#include "serv/team.h"

#include <initializer_list>
#include <string.h>

namespace vor::dfti {

namespace {

bool is_single(const DftiRecord& record) {
    return record.precision == DFTI_SINGLE;
}

bool is_power_of_two(const DftiRecord& record) {
    return record.length == 1 << record.log2_length;
}

bool unit_strides(const DftiRecord& record) {
    return record.input_stride == 1 && record.output_stride == 1;
}

// ---- The engine of a dimension -------------------------------------------------------------------

enum class Engine { objects, radix, both };

// Powers of two above these lengths belong to the radix engine where commit has the choice.
constexpr int kLongestSingleObject = 32768, kLongestDoubleObject = 8192;

// Where such lengths do not run on the objects. Of real data this concerns the dimensions behind the
// first, where the data are complex.
struct Rule {
    int domain, precision, ordering;
    bool also_contiguous; // out of place with unit strides as well
    bool also_alone;      // on one thread, or as one of several dimensions as well
    Engine engine;
};
constexpr Rule kRules[] = {
    {DFTI_REAL, DFTI_SINGLE, DFTI_ORDERED, false, true, Engine::radix},
    {DFTI_COMPLEX, DFTI_SINGLE, DFTI_BACKWARD_SCRAMBLED, true, true, Engine::radix},
    {DFTI_COMPLEX, DFTI_DOUBLE, DFTI_BACKWARD_SCRAMBLED, true, true, Engine::radix},
    {DFTI_COMPLEX, DFTI_DOUBLE, DFTI_ORDERED, false, false, Engine::both},
};

Engine choose_engine(const DftiRecord& record, const DftiRecord& head) {
    const int longest = is_single(head) ? kLongestSingleObject : kLongestDoubleObject;
    if (!is_power_of_two(record) || record.length <= longest) return Engine::objects;
    const bool contiguous = head.placement == DFTI_NOT_INPLACE && unit_strides(head);
    const bool alone = head.threads < 2 || head.dimension > 1;
    for (const Rule& rule : kRules)
        if (rule.domain == head.forward_domain && rule.precision == head.precision &&
            rule.ordering == head.ordering && (rule.also_contiguous || !contiguous) &&
            (rule.also_alone || !alone))
            return rule.engine;
    return Engine::objects;
}

// Clears the object and table fields of a record before its engine is built.
void clear_engine(DftiRecord& record) {
    record.dft_spec_c = record.dft_spec_z = nullptr;
    record.out_ord_spec_c = record.out_ord_spec_z = nullptr;
    record.dft_spec_real_s = record.dft_spec_real_d = nullptr;
    record.table_c = record.table_z = nullptr;
    record.buffer_size = 0;
}

// Objects are built without scaling: the adapters scale. The record's work buffer serves all of its
// objects.
template <class Init, class Size>
int build_object(DftiRecord& record, DftCtx* DftiRecord::*spec, Init init, Size size) {
    int bytes = 0;
    TavStatus status = init(&(record.*spec), record.length, TAV_FFT_NODIV_BY_ANY, 0);
    if (status == tavStsNoErr) status = size(record.*spec, &bytes);
    if (bytes > record.buffer_size) record.buffer_size = bytes;
    return vor_dft_transfer_tav_vor_error(status);
}

template <class R>
int init_complex(DftiRecord& record, const DftiRecord& head) {
    using Routine = Routines<R>;
    clear_engine(record);
    const bool scrambled =
        head.forward_domain == DFTI_COMPLEX && head.ordering == DFTI_BACKWARD_SCRAMBLED;
    return scrambled ? build_object(record, Routine::out_ord_spec, Routine::out_ord_init,
                                    Routine::out_ord_size)
                     : build_object(record, Routine::spec, Routine::init, Routine::size);
}

template <class R>
int build_table(DftiRecord& record) {
    unsigned bytes;
    constexpr size_t kMargin = 256;
    if (!byte_count(3 * static_cast<size_t>(record.length), sizeof(R), kMargin, &bytes))
        return DFTI_MEMORY_ERROR;
    void* table = vor_serv_allocate(bytes);
    record.*Routines<R>::table = table;
    if (!table) return DFTI_MEMORY_ERROR;
    Routines<R>::fill_table(&record.log2_length, static_cast<R*>(table));
    return DFTI_NO_ERROR;
}

template <class R>
int init_radix(DftiRecord& record) {
    clear_engine(record);
    return build_table<R>(record);
}

template <class R>
int init_both(DftiRecord& record, const DftiRecord& head) {
    const int status = init_complex<R>(record, head);
    return status == DFTI_NO_ERROR ? build_table<R>(record) : status;
}

// The complex object that a dimension above 0 has by then stays.
template <class R>
int init_real(DftiRecord& record, int index) {
    using Routine = Routines<R>;
    if (index == 0) clear_engine(record);
    return build_object(record, Routine::real_spec, Routine::real_init, Routine::real_size);
}

template <class R, Direction D>
void set_adapter(DftiRecord& record) {
    using Call = Directed<R, D>;
    record.*Call::function =
        record.ordering == DFTI_ORDERED ? Call::adapter : Call::scrambled_adapter;
}

template <class R, Direction D>
void set_radix(DftiRecord& record) {
    using Call = Directed<R, D>;
    record.*Call::function = Call::radix_adapter;
    record.*Call::parallel = Call::radix_team;
}

// With both engines the object serves a direction of scale 1, the radix engine the other one; its team works
// only if it serves both.
template <class R, Direction D>
void set_either(DftiRecord& record) {
    set_radix<R, D>(record);
    if (record.*Directed<R, D>::scale != 1) return;
    record.on_primitives = 1;
    set_adapter<R, D>(record);
}

template <class R>
int commit_complex(DftiRecord& record, const DftiRecord& head) {
    const Engine engine = choose_engine(record, head);
    record.on_primitives = engine == Engine::objects;
    if (engine == Engine::objects) {
        set_adapter<R, Direction::forward>(record);
        set_adapter<R, Direction::backward>(record);
        return init_complex<R>(record, head);
    }
    if (engine == Engine::both) {
        set_either<R, Direction::forward>(record);
        set_either<R, Direction::backward>(record);
        return init_both<R>(record, head);
    }
    set_radix<R, Direction::forward>(record);
    set_radix<R, Direction::backward>(record);
    return init_radix<R>(record);
}

// ---- Real data -----------------------------------------------------------------------------------

template <class R, Direction D>
bool set_real_functions(DftiRecord& record) {
    using Call = Directed<R, D>;
    record.*Call::real_function = Call::real_adapter;
    auto& primitive = record.*real_primitive<R>(D);
    if (has_half_spectrum(record))
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
    const bool as_complex = record.conjugate_even_storage == DFTI_COMPLEX_COMPLEX;
    if (as_complex ? record.placement == DFTI_INPLACE : head.dimension == 3)
        return DFTI_UNIMPLEMENTED;
    if (record.dimension_index > 0)
        if (const int status = commit_complex<R>(record, head)) return status;
    if (!set_real_functions<R, Direction::forward>(record) ||
        !set_real_functions<R, Direction::backward>(record))
        return DFTI_UNIMPLEMENTED;
    record.on_primitives = !is_power_of_two(record);
    return init_real<R>(record, record.dimension_index);
}

// ---- The whole descriptor ------------------------------------------------------------------------

int settle_threads(DftiRecord& head) {
    head.threads = 1;
    if (head.user_threads <= 1) {
        const int threads = team_size();
        if (threads > 1) head.threads = threads;
        return DFTI_NO_ERROR;
    }
    unsigned bytes;
    if (!byte_count(static_cast<size_t>(head.user_threads), sizeof(int), 0, &bytes))
        return DFTI_MEMORY_ERROR;
    head.thread_slots = static_cast<int*>(vor_serv_allocate(bytes));
    if (!head.thread_slots) return DFTI_MEMORY_ERROR;
    memset(head.thread_slots, 0, bytes);
    return DFTI_NO_ERROR;
}

// How many transforms of this descriptor are single vectors short enough for direct calls.
int count_single_vectors(const DftiRecord& head) {
    const int longest_complex = is_single(head) ? 1023 : 511;
    const int longest_ccs = is_single(head) ? 8192 : 4096;
    if (head.dimension != 1 || !unit_strides(head)) return 0;
    if (head.forward_domain == DFTI_COMPLEX)
        return head.number_of_transforms == 1 && head.length <= longest_complex;
    if (head.packed_format == DFTI_CCS_FORMAT && head.length > longest_ccs) return 0;
    return head.number_of_transforms;
}

void settle_direct_flags(DftiRecord& head) {
    constexpr int kLargePlane = 2048; // elements that are no job for one direct call
    head.single_vector = count_single_vectors(head);
    const bool direct = head.user_threads <= 1;
    head.direct_vector = direct && head.single_vector == 1;
    head.direct_two_d = direct && head.number_of_transforms == 1 && head.dimension == 2 &&
                        head.size_so_far < kLargePlane;
}

// The engines of a whole plane.
void set_two_d(DftiRecord& head) {
    const bool half = head.conjugate_even_storage == DFTI_COMPLEX_COMPLEX;
    head.two_d_c = vor_dft_xcdft2d;
    head.two_d_z = vor_dft_xzdft2d;
    head.two_d_forward_real_s = half ? vor_dft_xsccdft2d : vor_dft_xscdft2d;
    head.two_d_backward_real_s = half ? vor_dft_xccsdft2d : vor_dft_xcsdft2d;
    head.two_d_forward_real_d = half ? vor_dft_xdzzdft2d : vor_dft_xdzdft2d;
    head.two_d_backward_real_d = half ? vor_dft_xzzddft2d : vor_dft_xzddft2d;
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

template <class R>
int commit_record(DftiRecord& record, const DftiRecord& head) {
    return head.forward_domain == DFTI_REAL ? commit_real<R>(record, head)
                                            : commit_complex<R>(record, head);
}

int allocate_workspace(DftiRecord& head) {
    if (head.max_buffer_size < 1) return DFTI_NO_ERROR;
    // Of a team as many threads may compute at once as there are shares.
    const int shares = head.number_of_transforms > 1 ? head.number_of_transforms
                       : head.dimension > 1          ? head.max_length
                                                     : 1;
    const int team = head.threads < shares ? head.threads : shares;
    const int regions = head.user_threads > 1 ? head.user_threads : team;
    unsigned bytes;
    if (!byte_count(static_cast<size_t>(head.max_buffer_size), static_cast<size_t>(regions), 0,
                    &bytes))
        return DFTI_MEMORY_ERROR;
    head.workspace = vor_serv_allocate(bytes);
    return head.workspace ? DFTI_NO_ERROR : DFTI_MEMORY_ERROR;
}

int build(DftiRecord* head) {
    if (const int status = settle_threads(*head)) return status;
    settle_direct_flags(*head);
    if (head->dimension == 2) set_two_d(*head);
    head->max_buffer_size = 0;
    for (DftiRecord* record = head; record; record = record->next) {
        copy_settings(*head, *record, static_cast<int>(record - head));
        const int status = is_single(*head) ? commit_record<float>(*record, *head)
                                            : commit_record<double>(*record, *head);
        if (status != DFTI_NO_ERROR) return status;
        if (record->buffer_size > head->max_buffer_size)
            head->max_buffer_size = record->buffer_size;
    }
    return allocate_workspace(*head);
}

} // namespace

} // namespace vor::dfti

using namespace vor::dfti;

// The initialisers by name: of a record, given the head. The fft ones fill the radix engine's table.
#define INITIALISERS(complex, real, radix, R)                                                      \
    extern "C" int complex(DftiRecord* record, DftiRecord* head) {                                 \
        return init_complex<R>(*record, *head);                                                    \
    }                                                                                              \
    extern "C" int real(DftiRecord* record, DftiRecord*, int index) {                              \
        return init_real<R>(*record, index);                                                       \
    }                                                                                              \
    extern "C" int radix(DftiRecord* record, DftiRecord*) {                                        \
        return init_radix<R>(*record);                                                             \
    }
INITIALISERS(vor_dft_c_tav_init, vor_dft_c_tav_real_init, vor_dft_c_fft_init, float)
INITIALISERS(vor_dft_z_tav_init, vor_dft_z_tav_real_init, vor_dft_z_fft_init, double)

// Both engines on one record, double precision.
extern "C" int vor_dft_z_tav_fft_init(DftiRecord* record, DftiRecord* head) {
    return init_both<double>(*record, *head);
}

// The complex engine of a dimension above 0 of real data.
#define COMPLEX_FOR_REAL(name, R)                                                                  \
    extern "C" int name(DftiRecord* record, DftiRecord* head) {                                    \
        const int status = commit_complex<R>(*record, *head);                                      \
        if (status == DFTI_NO_ERROR && record->buffer_size > head->buffer_size)                    \
            head->buffer_size = record->buffer_size;                                               \
        return status;                                                                             \
    }
COMPLEX_FOR_REAL(vor_dft_complex_for_real_dft_c, float)
COMPLEX_FOR_REAL(vor_dft_complex_for_real_dft_d, double)

VOR_ENGINE int vor_dft_commit_descriptor_external PARAMS_DFTI_HANDLE {
    int status = handle ? check_handle(*handle) : DFTI_INCONSISTENT_CONFIGURATION;
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
