// The column-group engine: transforms many columns of an array by gathering groups of adjacent ones
// into contiguous vectors.
#pragma once

#include "dft/routines.h"

namespace vor::dfti {

// One side of a set of columns: element i of column j is the Unit that begins i * stride + j * step
// elements of type Step behind `data`. A Unit is a Step, or a pair of reals taken as one complex number,
// whose parts lie half a step apart.
template <class Unit, class Step>
struct ColumnSide {
    using Element = Unit;
    static constexpr int kSteps = sizeof(Unit) / sizeof(Step);

    Step* data;
    int stride;
    int step;  // between columns
    int count; // units of one column that are read, or written

    bool adjacent() const { return step == kSteps; }
    int part() const { return step / kSteps; }
};
template <class Unit>
using PlainColumns = ColumnSide<std::remove_const_t<Unit>, Unit>;
template <class R>
using PairColumns = ColumnSide<complex_t<std::remove_const_t<R>>, R>;

// Room for a group of vectors that lie `distance` reals apart, which holds the longer of two sides.
template <class R>
struct VectorGroup {
    R* data;
    int distance;
    int size; // vectors

    R* vector(int j) const { return data + static_cast<ptrdiff_t>(j) * distance; }
};

// The distance of vectors of `reals` in a group: whole cache lines, so that one is aligned as the other,
// and a line more, which keeps vectors of a power of two out of one set of the cache.
template <class R>
constexpr int vector_distance(int reals) {
    constexpr int line = 64 / sizeof(R);
    return (reals + line - 1) / line * line + line;
}

// Columns of a group of exponent e.
template <class R>
constexpr int group_size(int e) {
    if (sizeof(R) == sizeof(float)) return e == 3 ? 8 : 16;
    return e == 2 ? 4 : 8;
}

// Transforms `columns` columns from one side to the other, each in place on a vector of the group. The
// columns go in groups if they are adjacent on both sides, else one by one. The first failure ends the
// call, its group not written back.
template <class R, class In, class Out>
int transform_columns(const In& in, const Out& out, int columns, const VectorTransform& transform,
                      const VectorGroup<R>& group);

} // namespace vor::dfti

extern "C" {
int vor_dft_xcdft1d_copy(vor::cfloat* data, int stride, vor::dfti::Transform* function,
                         DftiRecord* record, int columns, int step, vor::cfloat* buffer, int e,
                         void* workspace);
int vor_dft_xzdft1d_copy(vor::cdouble* data, int stride, vor::dfti::Transform* function,
                         DftiRecord* record, int columns, int step, vor::cdouble* buffer, int e,
                         void* workspace);
// From input to output, adjacent columns.
int vor_dft_xcdft1d_out_copy(const vor::cfloat* input, int input_stride, vor::cfloat* output,
                             int output_stride, vor::dfti::Transform* function, DftiRecord* record,
                             int columns, vor::cfloat* buffer, int e, void* workspace);
int vor_dft_xzdft1d_out_copy(const vor::cdouble* input, int input_stride, vor::cdouble* output,
                             int output_stride, vor::dfti::Transform* function, DftiRecord* record,
                             int columns, vor::cdouble* buffer, int e, void* workspace);
// Real columns, adjacent, storage 40: input_count reals of each are read and output_count written.
int vor_dft_xsdft1d_out_copy(const float* input, int input_stride, int input_count, float* output,
                             int output_stride, int output_count, vor::dfti::Transform* function,
                             DftiRecord* record, int columns, float* buffer, int e,
                             void* workspace);
int vor_dft_xddft1d_out_copy(const double* input, int input_stride, int input_count, double* output,
                             int output_stride, int output_count, vor::dfti::Transform* function,
                             DftiRecord* record, int columns, double* buffer, int e,
                             void* workspace);
}
