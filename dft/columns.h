// The column-group engine: transforms many columns of an array by gathering groups of adjacent ones
// into contiguous vectors.
#pragma once

#include "dft/precision.h"

namespace vor {

// One side of a set of columns: element i of column j at i * stride + j * step, in units of T.
template <class T>
struct ColumnSide {
    T* data;
    int stride;
    int step;  // between columns
    int count; // elements of one column that are read, or written
};

// Columns of a group.
template <class R>
constexpr int group_size(int e) {
    if (sizeof(R) == sizeof(float)) return e == 3 ? 8 : 16;
    return e == 2 ? 4 : 8;
}

// Transforms `columns` columns from one side to the other: `function` of `record` on each, in place
// on a vector in the buffer. The buffer's vectors lie `distance` reals apart, and distance holds the
// longer of the two sides. Adjacent columns go in groups of 2^e, others one by one. The first failure
// ends the call, its group not written back.
template <class R, class In, class Out>
int transform_columns(const ColumnSide<const In>& in, const ColumnSide<Out>& out,
                      Transform* function, DftiRecord* record, int columns, R* buffer, int distance,
                      int e, void* workspace);

} // namespace vor

extern "C" {
int vor_dft_xcdft1d_copy(vor::cfloat* data, int stride, vor::Transform* function,
                         DftiRecord* record, int columns, int step, vor::cfloat* buffer, int e,
                         void* workspace);
int vor_dft_xzdft1d_copy(vor::cdouble* data, int stride, vor::Transform* function,
                         DftiRecord* record, int columns, int step, vor::cdouble* buffer, int e,
                         void* workspace);
// From input to output, adjacent columns.
int vor_dft_xcdft1d_out_copy(const vor::cfloat* input, int input_stride, vor::cfloat* output,
                             int output_stride, vor::Transform* function, DftiRecord* record,
                             int columns, vor::cfloat* buffer, int e, void* workspace);
int vor_dft_xzdft1d_out_copy(const vor::cdouble* input, int input_stride, vor::cdouble* output,
                             int output_stride, vor::Transform* function, DftiRecord* record,
                             int columns, vor::cdouble* buffer, int e, void* workspace);
// Real columns, adjacent, storage 40: input_count reals of each are read and output_count written.
int vor_dft_xsdft1d_out_copy(const float* input, int input_stride, int input_count, float* output,
                             int output_stride, int output_count, vor::Transform* function,
                             DftiRecord* record, int columns, float* buffer, int e,
                             void* workspace);
int vor_dft_xddft1d_out_copy(const double* input, int input_stride, int input_count, double* output,
                             int output_stride, int output_count, vor::Transform* function,
                             DftiRecord* record, int columns, double* buffer, int e,
                             void* workspace);
}
