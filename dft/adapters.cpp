// The adapters between a record and its tavs objects. A scale of exactly 1 costs nothing; any other,
// 0 included, is multiplied.
#include "dft/adapters.h"
#include "dft/routines.h"

namespace vor::dfti {

namespace {

void scale(int n, float factor, cfloat* x) {
    const int step = 1;
    vor_blas_csscal(&n, &factor, x, &step);
}

void scale(int n, double factor, cdouble* x) {
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
    const R factor = record.*Directed<R, D>::scale;
    if (status == tavStsNoErr && factor != 1) scale(n, factor, output);
    return vor_dft_transfer_tav_vor_error(status);
}

template <class R, Direction D, bool scrambled>
int complex_adapter(void* input, void* output, const DftiRecord& record, void* workspace) {
    using P = Routines<R>;
    using Call = Directed<R, D>;
    const auto* in = static_cast<const complex_t<R>*>(input);
    auto* out = static_cast<complex_t<R>*>(output);
    const TavStatus status = scrambled
                                 ? Call::out_ord_ctoc(in, out, record.*P::out_ord_spec, workspace)
                                 : Call::ctoc(in, out, record.*P::spec, workspace);
    return finish<R, D>(status, record, record.length, out);
}

template <class R>
int real_forward(void* input, void* output, const DftiRecord& record, void* workspace) {
    auto* out = static_cast<R*>(output);
    const auto call = record.*real_primitive<R>(Direction::forward);
    const TavStatus status =
        call(static_cast<const R*>(input), out, record.*Routines<R>::real_spec, workspace);
    const int values = record.length + (has_half_spectrum(record) ? 1 : 0);
    return finish<R, Direction::forward>(status, record, values, out);
}

template <class R>
int real_backward(void* input, void* output, const DftiRecord& record, void* workspace) {
    auto* out = static_cast<R*>(output);
    // Out of place, the engines of several dimensions leave rows in Perm order, which needs no room
    // beyond the row.
    const bool perm_row = (record.dimension == 2 || record.dimension == 3) &&
                          record.placement == DFTI_NOT_INPLACE && has_half_spectrum(record);
    const auto call = perm_row ? Directed<R, Direction::backward>::perm
                               : record.*real_primitive<R>(Direction::backward);
    const TavStatus status =
        call(static_cast<const R*>(input), out, record.*Routines<R>::real_spec, workspace);
    // In place, the first value behind the result held a part of the spectrum: cleared.
    if (record.packed_format == DFTI_CCS_FORMAT && record.placement == DFTI_INPLACE)
        out[record.length] = 0;
    return finish<R, Direction::backward>(status, record, record.length, out);
}

} // namespace

} // namespace vor::dfti

using namespace vor::dfti;
using vor::Direction;

#define ADAPTER(name, function)                                                                    \
    extern "C" int name(void* input, void* output, DftiRecord* record, void* workspace) {          \
        return function(input, output, *record, workspace);                                        \
    }
ADAPTER(vor_dft_xtavs_fwd_32fc, (complex_adapter<float, Direction::forward, false>))
ADAPTER(vor_dft_xtavs_inv_32fc, (complex_adapter<float, Direction::backward, false>))
ADAPTER(vor_dft_xtavs_fwd_rev_32fc, (complex_adapter<float, Direction::forward, true>))
ADAPTER(vor_dft_xtavs_inv_rev_32fc, (complex_adapter<float, Direction::backward, true>))
ADAPTER(vor_dft_xtavs_fwd_rtocomplex_32f, real_forward<float>)
ADAPTER(vor_dft_xtavs_inv_complextor_32f, real_backward<float>)
ADAPTER(vor_dft_xtavs_fwd_64fc, (complex_adapter<double, Direction::forward, false>))
ADAPTER(vor_dft_xtavs_inv_64fc, (complex_adapter<double, Direction::backward, false>))
ADAPTER(vor_dft_xtavs_fwd_rev_64fc, (complex_adapter<double, Direction::forward, true>))
ADAPTER(vor_dft_xtavs_inv_rev_64fc, (complex_adapter<double, Direction::backward, true>))
ADAPTER(vor_dft_xtavs_fwd_rtocomplex_64f, real_forward<double>)
ADAPTER(vor_dft_xtavs_inv_complextor_64f, real_backward<double>)
