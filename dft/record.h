// The descriptor: a block of one DftiRecord for each dimension, record 0 the head.
//
// Dimensions stand in internal order: record 0 is the fastest one. What concerns the whole transform
// is read from the head; commit copies it into the other records, so that an engine finds in a single
// record everything it needs. The records form a doubly linked chain in array order.
#pragma once

#include "vor_dfti.h"
#include "vor_signal.h"

#include <stddef.h>

namespace vor::dfti {

// The 1-D transform of a record: one vector of unit stride, the record's scale applied. In place if
// input and output are the same. The result is a status.
using Transform = int(void* input, void* output, DftiRecord* record, void* workspace);
// The same by a team of threads, in place.
using ParallelTransform = int(void* data, int threads, DftiRecord* record);
using TwoDComplex = int(void* data, const int* stride0, const int* stride1, Transform* first,
                        Transform* second, DftiRecord* head, void* workspace);
using TwoDReal = int(void* input, void* output, const int* input_stride0, const int* input_stride1,
                     const int* output_stride0, const int* output_stride1, DftiRecord* head,
                     void* workspace);
// A call of a real DFT object in one of its storage formats.
template <class R>
using RealPrimitive = TavStatus(const R* source, R* destination, const DftCtx* object,
                                void* buffer);

inline constexpr int kMaxDimension = 7;
inline constexpr char kTag[] = "DFT_Desc"; // its first three characters mark a record
inline constexpr size_t kTagLength = 3;
inline constexpr size_t kRecordBytes = 464; // of the block, for each dimension

} // namespace vor::dfti

struct DftiRecord {
    char tag[vor::dfti::kTagLength];
    char name[DFTI_MAX_NAME_LENGTH];
    char name_end; // the terminator of a name of full length
    int forward_domain;
    int precision;
    int number_of_transforms;
    int complex_storage;
    int real_storage;
    int conjugate_even_storage;
    int placement;
    int packed_format;
    int input_stride;
    int output_stride;
    int ordering;
    int transpose;
    int dimension;
    int dimension_index;
    int length;
    void* table_c; // coefficients of the radix engine, owned
    void* table_z;
    float forward_scale_s;
    double forward_scale_d;
    float backward_scale_s;
    double backward_scale_d;
    int log2_length; // floor
    int input_offset;
    int output_offset;
    int input_distance;
    int output_distance;
    int on_primitives; // 1: the 1-D transform runs on a tavs object, 0: on the radix engine
    int size_so_far;   // product of the lengths up to here; in the head of all of them
    DftiRecord* previous;
    DftiRecord* next;
    vor::dfti::Transform *backward_c, *forward_c;
    vor::dfti::Transform *backward_z, *forward_z;
    vor::dfti::Transform *backward_real_s, *forward_real_s;
    vor::dfti::Transform *backward_real_d, *forward_real_d;
    vor::dfti::ParallelTransform *parallel_backward_c, *parallel_forward_c;
    vor::dfti::ParallelTransform *parallel_backward_z, *parallel_forward_z;
    vor::dfti::TwoDComplex *two_d_c, *two_d_z;
    vor::dfti::TwoDReal *two_d_forward_real_s, *two_d_forward_real_d;
    vor::dfti::TwoDReal *two_d_backward_real_s, *two_d_backward_real_d;
    vor::dfti::RealPrimitive<float>*primitive_inverse_real_s, *primitive_forward_real_s;
    vor::dfti::RealPrimitive<double>*primitive_inverse_real_d, *primitive_forward_real_d;
    int max_length;
    int commit_status;
    DftCtx *dft_spec_c, *dft_spec_z; // objects, owned
    DftCtx *dft_spec_real_s, *dft_spec_real_d;
    DftCtx *out_ord_spec_c, *out_ord_spec_z;
    int buffer_size;     // bytes of work buffer that the object of this record asks for
    int max_buffer_size; // the largest of them
    void* workspace;     // max_buffer_size bytes for each thread that may compute, owned
    int user_threads;
    int threads;       // that a compute call may use, decided by commit
    int single_vector; // decided by commit, with the two flags below
    int direct_two_d;  // the whole transform is one call of a two_d_ engine
    int direct_vector; // the whole transform is one call of a 1-D function
    int* thread_slots; // one word for each user thread, 0 free and 1 taken, owned
};
static_assert(sizeof(DftiRecord) <= vor::dfti::kRecordBytes);

namespace vor::dfti {

// What the strides, offsets and distances of a side are called in a record.
struct Side {
    int DftiRecord::*offset;
    int DftiRecord::*stride;
    int DftiRecord::*distance;
};
inline constexpr Side kInput = {&DftiRecord::input_offset, &DftiRecord::input_stride,
                                &DftiRecord::input_distance};
inline constexpr Side kOutput = {&DftiRecord::output_offset, &DftiRecord::output_stride,
                                 &DftiRecord::output_distance};

// A 1-D transform of a record, ready to be called on vectors of unit stride.
struct VectorTransform {
    Transform* function;
    DftiRecord* record;
    void* workspace;

    int operator()(void* input, void* output) const {
        return function(input, output, record, workspace);
    }
};

// The status of a handle for the value, commit and free calls.
inline int check_handle(const DftiRecord* head) {
    if (!head) return DFTI_INCONSISTENT_CONFIGURATION;
    for (size_t i = 0; i < kTagLength; ++i)
        if (head->tag[i] != kTag[i]) return DFTI_BAD_DESCRIPTOR;
    return DFTI_NO_ERROR;
}

} // namespace vor::dfti

extern "C" {
// The DFTI status of a status of the signal primitives.
int vor_dft_transfer_tav_vor_error(TavStatus status);
// Releases every table, object and buffer of a descriptor and nulls their pointers.
void vor_dft_free_allocated_buffers(DftiRecord* head);
}
