// The column-group engine. Reading K adjacent columns at once takes K elements of one cache line
// together, where one column at a time takes one.
#include "dft/columns.h"
#include "arith/walk.h"
#include "dft/row_copy.h"

namespace vor::dfti {

namespace {

// A group of n adjacent columns from `first` on: in, n transforms, out.
template <class R, class U, class S, class V, class T>
int transform_group(const ColumnSide<U, S>& in, const ColumnSide<V, T>& out, int first, int n,
                    const VectorTransform& transform, const VectorGroup<R>& group) {
    constexpr int in_reals = sizeof(U) / sizeof(R), out_reals = sizeof(V) / sizeof(R);
    gather_for<U, S>(n)(in.data + first * in.kSteps, in.stride, in.count,
                        reinterpret_cast<U*>(group.data), group.distance / in_reals);
    for (int j = 0; j < n; ++j)
        if (const int status = transform(group.vector(j), group.vector(j))) return status;
    scatter_for<V, T>(n)(out.data + first * out.kSteps, out.stride, out.count,
                         reinterpret_cast<const V*>(group.data), group.distance / out_reals);
    return DFTI_NO_ERROR;
}

// Column j alone, part by part if its elements are pairs of reals.
template <class R, class U, class S, class V, class T>
int transform_single(const ColumnSide<U, S>& in, const ColumnSide<V, T>& out, int j,
                     const VectorTransform& transform, R* vector) {
    using Routine = Routines<R>;
    const S* source = in.data + static_cast<ptrdiff_t>(j) * in.step;
    for (int part = 0; part < in.kSteps; ++part)
        Routine::copy(in.count, source + part * in.part(), in.stride,
                      reinterpret_cast<std::remove_const_t<S>*>(vector) + part, in.kSteps);
    if (const int status = transform(vector, vector)) return status;
    T* destination = out.data + static_cast<ptrdiff_t>(j) * out.step;
    for (int part = 0; part < out.kSteps; ++part)
        Routine::copy(out.count, reinterpret_cast<const T*>(vector) + part, out.kSteps,
                      destination + part * out.part(), out.stride);
    return DFTI_NO_ERROR;
}

// The columns in front of the first cache line that begins with a column, so that whole groups begin with
// one; a whole group if there is no such line.
template <class U, class S>
int first_group(const ColumnSide<U, S>& side, int size) {
    constexpr int kLine = 64;
    const int columns = steps_to<kLine>(reinterpret_cast<const U*>(side.data), size);
    return columns > 0 ? columns : size;
}

} // namespace

template <class R, class In, class Out>
int transform_columns(const In& in, const Out& out, int columns, const VectorTransform& transform,
                      const VectorGroup<R>& group) {
    const int size = in.adjacent() && out.adjacent() ? group.size : 1;
    int status = DFTI_NO_ERROR;
    int next = size > 1 ? first_group(out, size) : 1;
    for (int first = 0, n; first < columns && status == DFTI_NO_ERROR; first += n, next = size) {
        n = columns - first < next ? columns - first : next;
        status = n == 1 ? transform_single(in, out, first, transform, group.data)
                        : transform_group(in, out, first, n, transform, group);
    }
    return status;
}

#define INSTANTIATE(R, In, Out)                                                                    \
    template int transform_columns(const In&, const Out&, int, const VectorTransform&,             \
                                   const VectorGroup<R>&);
#define INSTANTIATE_ALL(R, C)                                                                      \
    INSTANTIATE(R, PlainColumns<const C>, PlainColumns<C>)                                         \
    INSTANTIATE(R, PlainColumns<const R>, PlainColumns<R>)                                         \
    INSTANTIATE(R, PlainColumns<const R>, PlainColumns<C>)                                         \
    INSTANTIATE(R, PlainColumns<const C>, PlainColumns<R>)                                         \
    INSTANTIATE(R, PairColumns<const R>, PairColumns<R>)                                           \
    INSTANTIATE(R, PlainColumns<const C>, PairColumns<R>)
INSTANTIATE_ALL(float, cfloat)
INSTANTIATE_ALL(double, cdouble)

namespace {

// Complex columns of a record, the vectors of the buffer one behind the other.
template <class C>
int complex_columns(const C* in, int in_stride, int in_step, C* out, int out_stride, int out_step,
                    int columns, const VectorTransform& transform, C* buffer, int e) {
    using R = real_t<C>;
    const int length = transform.record->length;
    return transform_columns(
        PlainColumns<const C>{in, in_stride, in_step, length},
        PlainColumns<C>{out, out_stride, out_step, length}, columns, transform,
        VectorGroup<R>{reinterpret_cast<R*>(buffer), 2 * length, group_size<R>(e)});
}

template <class R>
int real_columns(const PlainColumns<const R>& in, const PlainColumns<R>& out, int columns,
                 const VectorTransform& transform, R* buffer, int e) {
    const int distance = half_spectrum(transform.record->length);
    return transform_columns(in, out, columns, transform,
                             VectorGroup<R>{buffer, distance, group_size<R>(e)});
}

} // namespace

} // namespace vor::dfti

using namespace vor::dfti;

#define COMPLEX_COLUMNS(in_place, out_of_place, with_steps, C)                                     \
    extern "C" int in_place(C* data, int stride, Transform* function, DftiRecord* record,          \
                            int columns, int step, C* buffer, int e, void* workspace) {            \
        return complex_columns<C>(data, stride, step, data, stride, step, columns,                 \
                                  {function, record, workspace}, buffer, e);                       \
    }                                                                                              \
    extern "C" int out_of_place(const C* input, int input_stride, C* output, int output_stride,    \
                                Transform* function, DftiRecord* record, int columns, C* buffer,   \
                                int e, void* workspace) {                                          \
        return complex_columns<C>(input, input_stride, 1, output, output_stride, 1, columns,       \
                                  {function, record, workspace}, buffer, e);                       \
    }                                                                                              \
    extern "C" int with_steps(const C* input, int input_stride, int input_step, C* output,         \
                              int output_stride, int output_step, Transform* function,             \
                              DftiRecord* record, int columns, C* buffer, int e,                   \
                              void* workspace) {                                                   \
        return complex_columns<C>(input, input_stride, input_step, output, output_stride,          \
                                  output_step, columns, {function, record, workspace}, buffer, e); \
    }
COMPLEX_COLUMNS(vor_dft_xcdft1d_copy, vor_dft_xcdft1d_out_copy, vor_dft_xcsdft1d_copy, vor::cfloat)
COMPLEX_COLUMNS(vor_dft_xzdft1d_copy, vor_dft_xzdft1d_out_copy, vor_dft_xzddft1d_copy, vor::cdouble)

#define REAL_COLUMNS(name, R)                                                                      \
    extern "C" int name(const R* input, int input_stride, int input_count, R* output,              \
                        int output_stride, int output_count, Transform* function,                  \
                        DftiRecord* record, int columns, R* buffer, int e, void* workspace) {      \
        return real_columns<R>({input, input_stride, 1, input_count},                              \
                               {output, output_stride, 1, output_count}, columns,                  \
                               {function, record, workspace}, buffer, e);                          \
    }
REAL_COLUMNS(vor_dft_xsdft1d_out_copy, float)
REAL_COLUMNS(vor_dft_xddft1d_out_copy, double)
