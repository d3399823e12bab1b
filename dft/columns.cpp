// The column-group engine. Reading K adjacent columns at once takes K elements of one cache line
// together, where one column at a time takes one.
#include "dft/columns.h"
#include "dft/row_copy.h"

namespace {

// A group of n adjacent columns from `first` on: in, n transforms, out.
template <class R, class In, class Out>
int transform_group(const vor::ColumnSide<const In>& in, const vor::ColumnSide<Out>& out,
                    vor::Transform* function, DftiRecord* record, int first, int n, R* buffer,
                    int distance, void* workspace) {
    constexpr int in_reals = sizeof(In) / sizeof(R), out_reals = sizeof(Out) / sizeof(R);
    vor::gather_for<In, In>(n)(in.data + first, in.stride, in.count, reinterpret_cast<In*>(buffer),
                               distance / in_reals);
    for (int j = 0; j < n; ++j) {
        R* vector = buffer + static_cast<ptrdiff_t>(j) * distance;
        if (const int status = function(vector, vector, record, workspace)) return status;
    }
    vor::scatter_for<Out, Out>(n)(out.data + first, out.stride, out.count,
                                  reinterpret_cast<const Out*>(buffer), distance / out_reals);
    return DFTI_NO_ERROR;
}

template <class R, class In, class Out>
int transform_single(const vor::ColumnSide<const In>& in, const vor::ColumnSide<Out>& out,
                     vor::Transform* function, DftiRecord* record, int column, R* buffer,
                     void* workspace) {
    using P = vor::Precision<R>;
    const ptrdiff_t j = column;
    P::copy(in.count, in.data + j * in.step, in.stride, reinterpret_cast<In*>(buffer), 1);
    if (const int status = function(buffer, buffer, record, workspace)) return status;
    P::copy(out.count, reinterpret_cast<const Out*>(buffer), 1, out.data + j * out.step,
            out.stride);
    return DFTI_NO_ERROR;
}

} // namespace

template <class R, class In, class Out>
int vor::transform_columns(const ColumnSide<const In>& in, const ColumnSide<Out>& out,
                           Transform* function, DftiRecord* record, int columns, R* buffer,
                           int distance, int e, void* workspace) {
    const bool adjacent = in.step == 1 && out.step == 1;
    const int group = adjacent ? group_size<R>(e) : 1;
    int status = DFTI_NO_ERROR;
    for (int first = 0; first < columns && status == DFTI_NO_ERROR; first += group) {
        const int n = columns - first < group ? columns - first : group;
        status = n == 1 ? transform_single(in, out, function, record, first, buffer, workspace)
                        : transform_group(in, out, function, record, first, n, buffer, distance,
                                          workspace);
    }
    return status;
}

#define INSTANTIATE(R, In, Out)                                                                    \
    template int vor::transform_columns(const ColumnSide<const In>&, const ColumnSide<Out>&,       \
                                        Transform*, DftiRecord*, int, R*, int, int, void*);
INSTANTIATE(float, float, vor::cfloat)
INSTANTIATE(float, vor::cfloat, float)
INSTANTIATE(double, double, vor::cdouble)
INSTANTIATE(double, vor::cdouble, double)

#define COMPLEX_COLUMNS(c, R, C)                                                                   \
    INSTANTIATE(R, C, C)                                                                           \
    extern "C" int vor_dft_x##c##dft1d_copy(C* data, int stride, vor::Transform* function,         \
                                            DftiRecord* record, int columns, int step, C* buffer,  \
                                            int e, void* workspace) {                              \
        const int length = record->length;                                                         \
        return vor::transform_columns<R, C, C>(                                                    \
            {data, stride, step, length}, {data, stride, step, length}, function, record, columns, \
            reinterpret_cast<R*>(buffer), 2 * length, e, workspace);                               \
    }                                                                                              \
    extern "C" int vor_dft_x##c##dft1d_out_copy(                                                   \
        const C* input, int input_stride, C* output, int output_stride, vor::Transform* function,  \
        DftiRecord* record, int columns, C* buffer, int e, void* workspace) {                      \
        const int length = record->length;                                                         \
        return vor::transform_columns<R, C, C>(                                                    \
            {input, input_stride, 1, length}, {output, output_stride, 1, length}, function,        \
            record, columns, reinterpret_cast<R*>(buffer), 2 * length, e, workspace);              \
    }
COMPLEX_COLUMNS(c, float, vor::cfloat)
COMPLEX_COLUMNS(z, double, vor::cdouble)

#define REAL_COLUMNS(s, R)                                                                         \
    INSTANTIATE(R, R, R)                                                                           \
    extern "C" int vor_dft_x##s##dft1d_out_copy(const R* input, int input_stride, int input_count, \
                                                R* output, int output_stride, int output_count,    \
                                                vor::Transform* function, DftiRecord* record,      \
                                                int columns, R* buffer, int e, void* workspace) {  \
        return vor::transform_columns<R, R, R>(                                                    \
            {input, input_stride, 1, input_count}, {output, output_stride, 1, output_count},       \
            function, record, columns, buffer, vor::half_spectrum(record->length), e, workspace);  \
    }
REAL_COLUMNS(s, float)
REAL_COLUMNS(d, double)
