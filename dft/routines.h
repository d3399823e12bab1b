// The routines of a precision: record fields, objects, copies, scales.
#pragma once

#include "arith/element.h"
#include "blas/level1/engines.h"
#include "dft/adapters.h"
#include "dft/radix/adapters.h"
#include "signal/direction.h"

namespace vor::dfti {

template <class R>
struct Routines;
// Fields and calls that come in a forward and a backward form.
template <class R, Direction D>
struct Directed;

// The precisions and the directions differ in names only.
//   R, C  element types   c, s  letters of the complex and the real type   bits  of a real
#define VOR_DFT_ROUTINES(R, C, c, s, bits, table_suffix)                                           \
    template <>                                                                                    \
    struct Routines<R> {                                                                           \
                                                                                                   \
        static constexpr auto spec = &DftiRecord::dft_spec_##c;                                    \
        static constexpr auto out_ord_spec = &DftiRecord::out_ord_spec_##c;                        \
        static constexpr auto real_spec = &DftiRecord::dft_spec_real_##s;                          \
        static constexpr auto table = &DftiRecord::table_##c;                                      \
        static constexpr auto two_d = &DftiRecord::two_d_##c;                                      \
        static constexpr auto init = tavsDFTInitAlloc_C_##bits##fc;                                \
        static constexpr auto out_ord_init = tavsDFTOutOrdInitAlloc_C_##bits##fc;                  \
        static constexpr auto real_init = tavsDFTInitAlloc_R_##bits##f;                            \
        static constexpr auto size = tavsDFTGetBufSize_C_##bits##fc;                               \
        static constexpr auto out_ord_size = tavsDFTOutOrdGetBufSize_C_##bits##fc;                 \
        static constexpr auto real_size = tavsDFTGetBufSize_R_##bits##f;                           \
        static constexpr auto fill_table = vor_dft_coef4r22##table_suffix;                         \
        static void copy(int n, const C* x, int incx, C* y, int incy) {                            \
            vor_blas_##c##copy(&n, x, &incx, y, &incy);                                            \
        }                                                                                          \
        static void copy(int n, const R* x, int incx, R* y, int incy) {                            \
            vor_blas_##s##copy(&n, x, &incx, y, &incy);                                            \
        }                                                                                          \
    };                                                                                             \
    VOR_DFT_DIRECTED(R, c, s, bits, forward, Fwd, RToCCS, RToPack, RToPerm, fwd, rtocomplex, f,    \
                     forw)                                                                         \
    VOR_DFT_DIRECTED(R, c, s, bits, backward, Inv, CCSToR, PackToR, PermToR, inv, complextor, b,   \
                     back)

#define VOR_DFT_DIRECTED(R, c, s, bits, direction, Fwd, Ccs, Pack, Perm, fwd, toother, end, forw)  \
    template <>                                                                                    \
    struct Directed<R, Direction::direction> {                                                     \
        static constexpr auto function = &DftiRecord::direction##_##c;                             \
        static constexpr auto real_function = &DftiRecord::direction##_real_##s;                   \
        static constexpr auto parallel = &DftiRecord::parallel_##direction##_##c;                  \
        static constexpr auto two_d_real = &DftiRecord::two_d_##direction##_real_##s;              \
        static constexpr auto scale = &DftiRecord::direction##_scale_##s;                          \
        static constexpr auto ctoc = tavsDFT##Fwd##_CToC_##bits##fc;                               \
        static constexpr auto out_ord_ctoc = tavsDFTOutOrd##Fwd##_CToC_##bits##fc;                 \
        static constexpr auto ccs = tavsDFT##Fwd##_##Ccs##_##bits##f;                              \
        static constexpr auto pack = tavsDFT##Fwd##_##Pack##_##bits##f;                            \
        static constexpr auto perm = tavsDFT##Fwd##_##Perm##_##bits##f;                            \
        static constexpr auto adapter = vor_dft_xtavs_##fwd##_##bits##fc;                          \
        static constexpr auto scrambled_adapter = vor_dft_xtavs_##fwd##_rev_##bits##fc;            \
        static constexpr auto real_adapter = vor_dft_xtavs_##fwd##_##toother##_##bits##f;          \
        static constexpr auto radix_adapter = vor_dft_x##c##dft1d##end;                            \
        static constexpr auto radix_team = vor_dft_##c##1d_##forw##_dft;                           \
    };

VOR_DFT_ROUTINES(float, cfloat, c, s, 32, )
VOR_DFT_ROUTINES(double, cdouble, z, d, 64, _z)
#undef VOR_DFT_DIRECTED
#undef VOR_DFT_ROUTINES

// The real primitive has one name for each direction in the record.
template <class R>
constexpr auto real_primitive(Direction direction) {
    if constexpr (sizeof(R) == sizeof(float))
        return direction == Direction::forward ? &DftiRecord::primitive_forward_real_s
                                               : &DftiRecord::primitive_inverse_real_s;
    else
        return direction == Direction::forward ? &DftiRecord::primitive_forward_real_d
                                               : &DftiRecord::primitive_inverse_real_d;
}

// Reals that the spectrum of `length` reals takes as complex numbers: both parts of X[0] .. X[N/2].
constexpr int half_spectrum(int length) {
    return 2 * (length / 2 + 1);
}

// The spectrum stands as complex numbers, its parts counted as above: storage 39, or the CCS format.
inline bool has_half_spectrum(const DftiRecord& record) {
    return record.conjugate_even_storage == DFTI_COMPLEX_COMPLEX ||
           record.packed_format == DFTI_CCS_FORMAT;
}

} // namespace vor::dfti
