// Two real columns of which one holds real parts and the other imaginary ones are a complex column: the
// column engine does the rest.
#include "dft/by_row.h"

namespace vor::dfti {

template <class R, class In, class Out>
int transform_pairs(const PlaneSide<const In>& in, int first_in, const PlaneSide<Out>& out,
                    int first_out, int count, const VectorTransform& transform,
                    const VectorGroup<R>& group) {
    using InColumns = ColumnSide<complex_t<R>, const In>;
    using OutColumns = ColumnSide<complex_t<R>, Out>;
    const int length = transform.record->length;
    return transform_columns(
        InColumns{in.column(first_in), in.stride1, InColumns::kSteps * in.stride0, length},
        OutColumns{out.column(first_out), out.stride1, OutColumns::kSteps * out.stride0, length},
        count, transform, group);
}

#define INSTANTIATE(R, In, Out)                                                                    \
    template int transform_pairs(const PlaneSide<const In>&, int, const PlaneSide<Out>&, int, int, \
                                 const VectorTransform&, const VectorGroup<R>&);
#define INSTANTIATE_ALL(R, C)                                                                      \
    INSTANTIATE(R, R, R)                                                                           \
    INSTANTIATE(R, C, R)                                                                           \
    INSTANTIATE(R, C, C)
INSTANTIATE_ALL(float, cfloat)
INSTANTIATE_ALL(double, cdouble)

} // namespace vor::dfti

using namespace vor::dfti;

// By name: `function` of record 1, the vectors of the buffer one behind the other.
#define BY_ROW(name, R, In)                                                                        \
    extern "C" int name(const In* in, R* out, int in_stride0, int in_stride1, int out_stride0,     \
                        int out_stride1, DftiRecord* head, Transform* function, R* buffer,         \
                        void* workspace, int first_in, int first_out, int count) {                 \
        return transform_pairs<R, In, R>({in, in_stride0, in_stride1}, first_in,                   \
                                         {out, out_stride0, out_stride1}, first_out, count,        \
                                         {function, head->next, workspace},                        \
                                         {buffer, 2 * head->next->length, kPairGroup<R>});         \
    }
BY_ROW(vor_dft_d_complex_for_real_by_row, double, double)
BY_ROW(vor_dft_c_complex_for_real_by_row, float, float)
BY_ROW(vor_dft_zd_complex_for_real_by_row, double, vor::cdouble)
BY_ROW(vor_dft_cs_complex_for_real_by_row, float, vor::cfloat)
