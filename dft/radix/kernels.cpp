// The steps of the radix engine by name, out of the same passes as the plan. Names with a final c work on split
// data, those that begin with z in double precision. They take
//
//   data      the points, where they begin; split: real parts, imaginary parts
//   k         log2 of the number of points
//   stages    how many stages are done, from the top
//   table     the data of a coefficient area (coefficients.h) of 2^order points; of 2^k where there is no order
//   position  of the block in the twisted table
//   scale     a factor, applied with the last stage
//
// and assume all preconditions. Data stand in the form of the name before and after.
#include "dft/radix/kernel/bit_reverse.h"
#include "dft/radix/plan.h"

namespace vor::dfti::radix {
namespace {

constexpr auto kForward = Direction::forward, kBackward = Direction::backward;

// A transform that is one leaf.
template <Direction D, class Form, class Out>
void whole(Form x, Out y, int k, const typename Form::Real* table) {
    using R = typename Form::Real;
    if (k <= kShortOrder) return transform_short<D>(x, y, k, table);
    transform_part<D>(x, y, k, 0, Tables<R>{table, k});
}

// A block of a group.
template <Direction D, class Form>
void block(Form x, int k, const typename Form::Real* table, int position) {
    transform_group<D>(x, x, k, Twisted<typename Form::Real>{table, position});
}

// Stages of a block.
template <Direction D, class Form, class Out>
void stages_of(Form x, Out y, int k, int stages, const typename Form::Real* table, int position) {
    run_stages<D>(x, x, y, 1 << k, stages, Twisted<typename Form::Real>{table, position});
}

// Stages with the sections of an area.
template <Direction D, class Out>
void plain_stages(Pairs<float> x, Out y, int k, int stages, const float* table, int order) {
    run_stages<D>(x, x, y, 1 << k, stages, Sections{table, 1 << order});
}

template <Direction D, class R>
void part(complex_t<R>* data, const int* k, const R* table, const int* order, const int* position) {
    const Pairs<R> x{data};
    transform_part<D>(x, x, *k, *position, Tables<R>{table, *order});
}

} // namespace
} // namespace vor::dfti::radix

using namespace vor::dfti::radix;

// A step in one form, with the points as x, and in all four: interleaved and split, single and double.
#define ON_PAIRS(name, C, R, PARAMS, ...)                                                          \
    extern "C" void name(C* data, PARAMS(R)) {                                                     \
        const Pairs<R> x{data};                                                                    \
        __VA_ARGS__;                                                                               \
    }
#define ON_SPLIT(name, R, PARAMS, ...)                                                             \
    extern "C" void name(R* re, R* im, PARAMS(R)) {                                                \
        const Split<R> x{re, im};                                                                  \
        __VA_ARGS__;                                                                               \
    }
#define IN_ALL_FORMS(c, cc, z, zc, PARAMS, ...)                                                    \
    ON_PAIRS(c, vor::cfloat, float, PARAMS, __VA_ARGS__)                                           \
    ON_SPLIT(cc, float, PARAMS, __VA_ARGS__)                                                       \
    ON_PAIRS(z, vor::cdouble, double, PARAMS, __VA_ARGS__)                                         \
    ON_SPLIT(zc, double, PARAMS, __VA_ARGS__)
#define SINGLE(c, PARAMS, ...) ON_PAIRS(c, vor::cfloat, float, PARAMS, __VA_ARGS__)

#define WHOLE(R) const int *k, const R *table
#define WHOLE_SCALED(R) WHOLE(R), const R* scale
#define BLOCK(R) WHOLE(R), const int* position
#define TOP(R) const int *k, const int *stages, const R *table
#define TOP_SCALED(R) TOP(R), const R* scale
#define STAGES(R) TOP(R), const int* position
#define SECTIONS(R) TOP(R), const int* order
#define SECTIONS_SCALED(R) SECTIONS(R), const R* scale
#define REVERSAL(R) const int *n, const int *list
#define SHORT_REVERSAL(R) const int* n

// ---- Forward.

// A whole transform of one leaf; a plain block of a longer one.
IN_ALL_FORMS(vor_dft_cradix4, vor_dft_cradix4c, vor_dft_zradix4, vor_dft_zradix4c, WHOLE,
             whole<kForward>(x, x, *k, table))
SINGLE(vor_dft_cradix4b, WHOLE, whole<kForward>(x, x, *k, table))
// The first block of a group, and a later one.
IN_ALL_FORMS(vor_dft_cradix4h, vor_dft_crad4hc, vor_dft_zradix4h, vor_dft_zrad4hc, WHOLE,
             block<kForward>(x, *k, table, 0))
IN_ALL_FORMS(vor_dft_crad4blh, vor_dft_cr4blhc, vor_dft_zrad4blh, vor_dft_zr4blhc, BLOCK,
             block<kForward>(x, *k, table, *position))
// Top stages by sections, of a whole transform and of a part; twisted ones of a whole transform.
SINGLE(vor_dft_crad2bs, TOP, plain_stages<kForward>(x, x, *k, *stages, table, *k))
SINGLE(vor_dft_crad2bss, SECTIONS, plain_stages<kForward>(x, x, *k, *stages, table, *order))
SINGLE(vor_dft_cr22b0sh, TOP, stages_of<kForward>(x, x, *k, *stages, table, 0))
// Stages of the first group or block, and of a later one.
IN_ALL_FORMS(vor_dft_cr22b0h, vor_dft_cr22b0hc, vor_dft_zr22b0h, vor_dft_zr22b0hc, TOP,
             stages_of<kForward>(x, x, *k, *stages, table, 0))
IN_ALL_FORMS(vor_dft_cr22blh, vor_dft_cr22blhc, vor_dft_zr22blh, vor_dft_zr22blhc, STAGES,
             stages_of<kForward>(x, x, *k, *stages, table, *position))

// ---- Inverse.

IN_ALL_FORMS(vor_dft_cr4irev, vor_dft_cr4irevc, vor_dft_zr4irev, vor_dft_zr4irevc, WHOLE_SCALED,
             whole<kBackward>(x, scaled(x, *scale), *k, table))
IN_ALL_FORMS(vor_dft_crad4if, vor_dft_crad4ifc, vor_dft_zrad4if, vor_dft_zrad4ifc, WHOLE,
             block<kBackward>(x, *k, table, 0))
IN_ALL_FORMS(vor_dft_cr4iblf, vor_dft_cr4iblfc, vor_dft_zr4iblf, vor_dft_zr4iblfc, BLOCK,
             block<kBackward>(x, *k, table, *position))
IN_ALL_FORMS(vor_dft_cr22ib0f, vor_dft_cr2ib0fc, vor_dft_zr22ib0f, vor_dft_zr2ib0fc, TOP,
             stages_of<kBackward>(x, x, *k, *stages, table, 0))
IN_ALL_FORMS(vor_dft_cr22iblf, vor_dft_cr2iblfc, vor_dft_zr22iblf, vor_dft_zr2iblfc, STAGES,
             stages_of<kBackward>(x, x, *k, *stages, table, *position))
// The last stages of a whole transform: twisted; by sections, an odd and an even number of them.
IN_ALL_FORMS(vor_dft_cr22ibff, vor_dft_cr2ibrc, vor_dft_zr22ibff, vor_dft_zr2ibrc, TOP_SCALED,
             stages_of<kBackward>(x, scaled(x, *scale), *k, *stages, table, 0))
SINGLE(vor_dft_cr2ibrev, SECTIONS_SCALED,
       plain_stages<kBackward>(x, scaled(x, *scale), *k, *stages, table, *order))
SINGLE(vor_dft_cr4ibrev, SECTIONS_SCALED,
       plain_stages<kBackward>(x, scaled(x, *scale), *k, *stages, table, *order))

// ---- Bit reversal: by the list, from 32 points on, and of fewer points.

IN_ALL_FORMS(vor_dft_cbitrevh, vor_dft_cbitrevhc, vor_dft_zbitrevh, vor_dft_zbitrevhc, REVERSAL,
             reverse(x, *n, list))
IN_ALL_FORMS(vor_dft_cbitrevs, vor_dft_cbitrevc, vor_dft_zbitrevs, vor_dft_zbitrevc, SHORT_REVERSAL,
             reverse_short(x, *n))

// ---- Parts of a transform of 2^order points, transforms of their own at a position: forward and inverse, plain
// (up to the order of a group) and twisted.

#define PART(name, C, R, D)                                                                        \
    extern "C" void name(C* data, const int* k, const R* table, const int* order,                  \
                         const int* position) {                                                    \
        part<D>(data, k, table, order, position);                                                  \
    }
PART(vor_dft_c1d_par, vor::cfloat, float, kForward)
PART(vor_dft_c1d_parh, vor::cfloat, float, kForward)
PART(vor_dft_c1d_parf, vor::cfloat, float, kBackward)
PART(vor_dft_c1d_parfh, vor::cfloat, float, kBackward)
PART(vor_dft_z1d_par, vor::cdouble, double, kForward)
PART(vor_dft_z1d_parh, vor::cdouble, double, kForward)
PART(vor_dft_z1d_parf, vor::cdouble, double, kBackward)
PART(vor_dft_z1d_parfh, vor::cdouble, double, kBackward)

// ---- Tables: the coefficient area of 2^k points, the list of n points. Both forms have the same.

#define COEFFICIENTS(name, R)                                                                      \
    extern "C" void name(const int* k, R* area) {                                                  \
        fill_coefficients(area, *k);                                                               \
    }
COEFFICIENTS(vor_dft_coef4r22, float)
COEFFICIENTS(vor_dft_coef4r22c, float)
COEFFICIENTS(vor_dft_coef4r22_z, double)
COEFFICIENTS(vor_dft_coef4r22_zc, double)

#define REVERSAL_LIST(name)                                                                        \
    extern "C" void name(int* list, const int* n) {                                                \
        fill_reversal(list, *n);                                                                   \
    }
REVERSAL_LIST(vor_dft_bittab)
REVERSAL_LIST(vor_dft_bittabc)
REVERSAL_LIST(vor_dft_bittaz)
REVERSAL_LIST(vor_dft_bittazc)
