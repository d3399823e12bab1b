// The adapters between a record and its tavs objects. A scale of exactly 1 costs nothing; any other,
// 0 included, is multiplied.
#include "dft/adapters.h"
#include "dft/precision.h"

using vor::Direction;

namespace {

void scale(int n, float factor, vor::cfloat* x) {
    const int step = 1;
    vor_blas_csscal(&n, &factor, x, &step);
}

void scale(int n, double factor, vor::cdouble* x) {
    const int step = 1;
    vor_blas_zdscal(&n, &factor, x, &step);
}

void scale(int n, float factor, float* x) {
    const int step = 1;
    vor_blas_sscal(&n, &factor, x, &step);
}

void scale(int n, double factor, double* x) {
    const int step = 1;
    vor_blas_dscal(&n, &factor, x, &step);
}

// The end of an adapter: scales n elements of the output if the transform succeeded.
template <class R, Direction D, class T>
int finish(TavStatus status, const DftiRecord& record, int n, T* output) {
    const R factor = record.*vor::Directed<R, D>::scale;
    if (status == tavStsNoErr && factor != 1) scale(n, factor, output);
    return vor_dft_transfer_tav_vor_error(status);
}

template <class R, Direction D, bool scrambled>
int complex_adapter(void* input, void* output, const DftiRecord& record, void* workspace) {
    using P = vor::Precision<R>;
    using Call = vor::Directed<R, D>;
    const auto* in = static_cast<const typename P::Complex*>(input);
    auto* out = static_cast<typename P::Complex*>(output);
    const TavStatus status = scrambled
                                 ? Call::out_ord_ctoc(in, out, record.*P::out_ord_spec, workspace)
                                 : Call::ctoc(in, out, record.*P::spec, workspace);
    return finish<R, D>(status, record, record.length, out);
}

template <class R>
int real_forward(void* input, void* output, const DftiRecord& record, void* workspace) {
    auto* out = static_cast<R*>(output);
    const auto call = record.*vor::real_primitive<R>(Direction::forward);
    const TavStatus status =
        call(static_cast<const R*>(input), out, record.*vor::Precision<R>::real_spec, workspace);
    const int values = record.length + (vor::has_half_spectrum(record) ? 1 : 0);
    return finish<R, Direction::forward>(status, record, values, out);
}

template <class R>
int real_backward(void* input, void* output, const DftiRecord& record, void* workspace) {
    auto* out = static_cast<R*>(output);
    // Out of place, the engines of several dimensions leave rows in Perm order, which needs no room
    // beyond the row.
    const bool perm_row = (record.dimension == 2 || record.dimension == 3) &&
                          record.placement == DFTI_NOT_INPLACE && vor::has_half_spectrum(record);
    const auto call = perm_row ? vor::Directed<R, Direction::backward>::perm
                               : record.*vor::real_primitive<R>(Direction::backward);
    const TavStatus status =
        call(static_cast<const R*>(input), out, record.*vor::Precision<R>::real_spec, workspace);
    // In place, the first value behind the result held a part of the spectrum: cleared.
    if (record.packed_format == DFTI_CCS_FORMAT && record.placement == DFTI_INPLACE)
        out[record.length] = 0;
    return finish<R, Direction::backward>(status, record, record.length, out);
}

} // namespace

#define ADAPTER(name, function)                                                                    \
    extern "C" int name(void* input, void* output, DftiRecord* record, void* workspace) {          \
        return function(input, output, *record, workspace);                                        \
    }
#define ADAPTERS(R, bits)                                                                          \
    ADAPTER(vor_dft_xtavs_fwd_##bits##fc, (complex_adapter<R, Direction::forward, false>))         \
    ADAPTER(vor_dft_xtavs_inv_##bits##fc, (complex_adapter<R, Direction::backward, false>))        \
    ADAPTER(vor_dft_xtavs_fwd_rev_##bits##fc, (complex_adapter<R, Direction::forward, true>))      \
    ADAPTER(vor_dft_xtavs_inv_rev_##bits##fc, (complex_adapter<R, Direction::backward, true>))     \
    ADAPTER(vor_dft_xtavs_fwd_rtocomplex_##bits##f, real_forward<R>)                               \
    ADAPTER(vor_dft_xtavs_inv_complextor_##bits##f, real_backward<R>)
ADAPTERS(float, 32)
ADAPTERS(double, 64)
