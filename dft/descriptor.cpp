// Descriptors: creation, release, status codes and their texts.
#include "dft/record.h"
#include "dft/signatures.h"
#include "serv/entry.h"
#include "serv/memory.h"

#include <stdarg.h>
#include <string.h>

namespace vor::dfti {

namespace {

constexpr const char* kMessages[] = {
    "DFTI_NO_ERROR",
    "DFTI_MEMORY_ERROR",
    "DFTI_INVALID_CONFIGURATION",
    "DFTI_INCONSISTENT_CONFIGURATION",
    "DFTI_MULTITHREADED_ERROR",
    "DFTI_BAD_DESCRIPTOR",
    "DFTI_UNIMPLEMENTED",
    "DFTI_VOR_INTERNAL_ERROR",
    "DFTI_NUMBER_OF_THREADS_ERROR",
};

const char* message(int status) {
    const bool known = status >= DFTI_NO_ERROR && status <= DFTI_NUMBER_OF_THREADS_ERROR;
    return known ? kMessages[status] : " ";
}

bool legal_dimension(int dimension) {
    return dimension >= 1 && dimension <= kMaxDimension;
}

// The status of a domain and a precision.
int check_kind(int domain, int precision, int dimension) {
    constexpr int kMaxRealDimension = 3;
    if (domain == DFTI_REAL && dimension > kMaxRealDimension) return DFTI_UNIMPLEMENTED;
    const bool known = (domain == DFTI_COMPLEX || domain == DFTI_REAL) &&
                       (precision == DFTI_SINGLE || precision == DFTI_DOUBLE);
    return known ? DFTI_NO_ERROR : DFTI_INCONSISTENT_CONFIGURATION;
}

void set_head_defaults(DftiRecord& head, int domain, int precision) {
    head.forward_domain = domain;
    head.precision = precision;
    head.number_of_transforms = 1;
    head.complex_storage = DFTI_COMPLEX_COMPLEX;
    head.real_storage = DFTI_REAL_REAL;
    head.conjugate_even_storage = DFTI_COMPLEX_REAL;
    head.placement = DFTI_INPLACE;
    head.packed_format = DFTI_CCS_FORMAT;
    head.ordering = DFTI_ORDERED;
    head.transpose = DFTI_NONE;
    head.commit_status = DFTI_UNCOMMITTED;
    head.user_threads = 1;
    head.threads = 1;
}

// The chain: what each record holds of its own. The records come zeroed.
void set_records(DftiRecord* head, int dimension, const int* lengths) {
    int product = 1, longest = 1;
    for (int d = 0; d < dimension; ++d) {
        DftiRecord& record = head[d];
        const int length = lengths[d];
        memcpy(record.tag, kTag, kTagLength);
        record.forward_scale_s = record.backward_scale_s = 1;
        record.forward_scale_d = record.backward_scale_d = 1;
        record.input_stride = record.output_stride = product;
        product = static_cast<int>(static_cast<unsigned>(product) * static_cast<unsigned>(length));
        record.size_so_far = product;
        record.dimension = dimension;
        record.dimension_index = d;
        record.length = length;
        record.log2_length = 31 - __builtin_clz(static_cast<unsigned>(length));
        record.on_primitives = length != 1 << record.log2_length;
        record.previous = d ? &head[d - 1] : nullptr;
        record.next = d + 1 < dimension ? &head[d + 1] : nullptr;
        if (length > longest) longest = length;
    }
    head->size_so_far = product;
    for (int d = 0; d < dimension; ++d) head[d].max_length = longest;
}

template <class T>
void release(T*& object, TavStatus (*free)(T*)) {
    if (object) free(object);
    object = nullptr;
}

template <class T>
void release(T*& block) {
    if (block) vor_serv_deallocate(block);
    block = nullptr;
}

} // namespace

} // namespace vor::dfti

using namespace vor::dfti;

extern "C" int vor_dft_transfer_tav_vor_error(TavStatus status) {
    if (status == tavStsNoErr) return DFTI_NO_ERROR;
    return status == tavStsMemAllocErr ? DFTI_MEMORY_ERROR : DFTI_VOR_INTERNAL_ERROR;
}

extern "C" void vor_dft_free_allocated_buffers(DftiRecord* head) {
    release(head->thread_slots);
    release(head->workspace);
    DftiRecord* record = head;
    while (record->next) record = record->next;
    for (; record; record = record->previous) {
        release(record->dft_spec_z, tavsDFTFree_C_64fc);
        release(record->dft_spec_c, tavsDFTFree_C_32fc);
        release(record->out_ord_spec_z, tavsDFTOutOrdFree_C_64fc);
        release(record->out_ord_spec_c, tavsDFTOutOrdFree_C_32fc);
        release(record->table_c);
        release(record->table_z);
        release(record->dft_spec_real_d, tavsDFTFree_R_64f);
        release(record->dft_spec_real_s, tavsDFTFree_R_32f);
    }
}

VOR_ENGINE int vor_dft_create_descriptor_highd PARAMS_DFTI_CREATE {
    if (!handle || !legal_dimension(*dimension)) return DFTI_INCONSISTENT_CONFIGURATION;
    for (int d = 0; d < *dimension; ++d)
        if (lengths[d] < 1) return DFTI_INCONSISTENT_CONFIGURATION;
    *handle = nullptr;
    const unsigned bytes = static_cast<unsigned>(*dimension) * kRecordBytes;
    void* block = vor_serv_allocate(bytes);
    if (!block) return DFTI_MEMORY_ERROR;
    const int status = check_kind(*domain, *precision, *dimension);
    if (status != DFTI_NO_ERROR) {
        vor_serv_deallocate(block);
        return status;
    }
    memset(block, 0, bytes);
    DftiRecord* head = static_cast<DftiRecord*>(block);
    set_head_defaults(*head, *domain, *precision);
    set_records(head, *dimension, lengths);
    *handle = head;
    return DFTI_NO_ERROR;
}

VOR_ENGINE int vor_dft_create_descriptor_1d PARAMS_DFTI_CREATE {
    return vor_dft_create_descriptor_highd ARGS_DFTI_CREATE;
}

VOR_ENGINE int vor_dft_free_descriptor_external PARAMS_DFTI_HANDLE {
    const int status = handle ? check_handle(*handle) : DFTI_INCONSISTENT_CONFIGURATION;
    if (status != DFTI_NO_ERROR) return status;
    vor_dft_free_allocated_buffers(*handle);
    memset((*handle)->tag, 0, kTagLength); // a copy of the handle is no descriptor any more
    vor_serv_deallocate(*handle);
    *handle = nullptr;
    return DFTI_NO_ERROR;
}

VOR_ENGINE int vor_dft_error_class_external PARAMS_DFTI_ERROR_CLASS {
    return *status == *error_class;
}

VOR_ENGINE void vor_dft_error_message_external PARAMS_DFTI_ERROR_MESSAGE {
    (void)result_length;
    const char* text = message(*status);
    const size_t length = strlen(text);
    memset(result, ' ', DFTI_ERROR_MESSAGE_LENGTH);
    memcpy(result, text, length);
}

VOR_ENTRY(int, dfti_create_descriptor_1d, DFTI_CREATE_DESCRIPTOR_1D, vor_dft_create_descriptor_1d,
          PARAMS_DFTI_CREATE, ARGS_DFTI_CREATE)
VOR_ENTRY(int, dfti_create_descriptor_highd, DFTI_CREATE_DESCRIPTOR_HIGHD,
          vor_dft_create_descriptor_highd, PARAMS_DFTI_CREATE, ARGS_DFTI_CREATE)
VOR_ENTRY(int, dfti_free_descriptor_external, DFTI_FREE_DESCRIPTOR_EXTERNAL,
          vor_dft_free_descriptor_external, PARAMS_DFTI_HANDLE, ARGS_DFTI_HANDLE)
VOR_ENTRY(int, dfti_error_class_external, DFTI_ERROR_CLASS_EXTERNAL, vor_dft_error_class_external,
          PARAMS_DFTI_ERROR_CLASS, ARGS_DFTI_ERROR_CLASS)
VOR_ENTRY(void, dfti_error_message_external, DFTI_ERROR_MESSAGE_EXTERNAL,
          vor_dft_error_message_external, PARAMS_DFTI_ERROR_MESSAGE, ARGS_DFTI_ERROR_MESSAGE)

extern "C" int DftiCreateDescriptor(DftiRecord** handle, int precision, int domain, int dimension,
                                    ...) {
    if (!legal_dimension(dimension)) return DFTI_INCONSISTENT_CONFIGURATION;
    int lengths[kMaxDimension];
    va_list arguments;
    va_start(arguments, dimension);
    if (dimension == 1) {
        lengths[0] = va_arg(arguments, int);
    } else { // C callers give the slowest dimension first
        const int* given = va_arg(arguments, const int*);
        for (int d = 0; d < dimension; ++d) lengths[dimension - 1 - d] = given[d];
    }
    va_end(arguments);
    return dfti_create_descriptor_highd(handle, &precision, &domain, &dimension, lengths);
}

extern "C" int DftiFreeDescriptor(DftiRecord** handle) {
    return dfti_free_descriptor_external(handle);
}

extern "C" int DftiErrorClass(int status, int error_class) {
    return dfti_error_class_external(&status, &error_class);
}

extern "C" const char* DftiErrorMessage(int status) {
    return message(status);
}
