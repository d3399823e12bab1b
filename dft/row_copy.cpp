// The row copies, one function for each number of columns: the loop over the columns is unrolled by
// the compiler and four rows go to a pass, so that no index arithmetic on N is left inside.
#include "dft/row_copy.h"
#include "arith/prefetch.h"

#include <utility>

namespace vor::dfti {

namespace {

constexpr int kRowsAhead = 16, kLine = 64;

template <int N, class Unit, class Step>
void gather(const Step* source, int stride, int length, Unit* buffer, int distance) {
    const auto row = [&](int i) __attribute__((always_inline)) {
        const Unit* from =
            reinterpret_cast<const Unit*>(source + static_cast<ptrdiff_t>(i) * stride);
#pragma GCC unroll 16
        for (int j = 0; j < N; ++j) buffer[static_cast<ptrdiff_t>(j) * distance + i] = from[j];
    };
    // Rows far apart lie in pages of their own, which the processor does not fetch ahead by itself.
    const auto fetch_ahead = [&](int i) {
        const Step* ahead = source + static_cast<ptrdiff_t>(i + kRowsAhead) * stride;
        for (int bytes = 0; bytes < N * static_cast<int>(sizeof(Unit)); bytes += kLine)
            prefetch(ahead, bytes);
    };
    int i = 0;
    for (; i + 4 <= length; i += 4) {
        fetch_ahead(i);
        row(i);
        fetch_ahead(i + 1);
        row(i + 1);
        fetch_ahead(i + 2);
        row(i + 2);
        fetch_ahead(i + 3);
        row(i + 3);
    }
    for (; i < length; ++i) row(i);
}

template <int N, class Unit, class Step>
void scatter(Step* destination, int stride, int length, const Unit* buffer, int distance) {
    const auto row = [&](int i) __attribute__((always_inline)) {
        Unit* to = reinterpret_cast<Unit*>(destination + static_cast<ptrdiff_t>(i) * stride);
#pragma GCC unroll 16
        for (int j = 0; j < N; ++j) to[j] = buffer[static_cast<ptrdiff_t>(j) * distance + i];
    };
    int i = 0;
    for (; i + 4 <= length; i += 4) {
        row(i);
        row(i + 1);
        row(i + 2);
        row(i + 3);
    }
    for (; i < length; ++i) row(i);
}

template <class Unit, class Step, int... n>
Gather<Unit, Step>* pick_gather(int columns, std::integer_sequence<int, n...>) {
    static constexpr Gather<Unit, Step>* table[] = {gather<n + 1, Unit, Step>...};
    return table[columns - 1];
}

template <class Unit, class Step, int... n>
Scatter<Unit, Step>* pick_scatter(int columns, std::integer_sequence<int, n...>) {
    static constexpr Scatter<Unit, Step>* table[] = {scatter<n + 1, Unit, Step>...};
    return table[columns - 1];
}

constexpr int kMostColumns = 16;
using Columns = std::make_integer_sequence<int, kMostColumns>;

} // namespace

template <class Unit, class Step>
Gather<Unit, Step>* gather_for(int n) {
    return pick_gather<Unit, Step>(n, Columns{});
}

template <class Unit, class Step>
Scatter<Unit, Step>* scatter_for(int n) {
    return pick_scatter<Unit, Step>(n, Columns{});
}

#define INSTANTIATE(Unit, Step)                                                                    \
    template Gather<Unit, Step>* gather_for<Unit, Step>(int);                                      \
    template Scatter<Unit, Step>* scatter_for<Unit, Step>(int);
INSTANTIATE(cfloat, cfloat)
INSTANTIATE(cdouble, cdouble)
INSTANTIATE(float, float)
INSTANTIATE(double, double)
INSTANTIATE(cfloat, float)
INSTANTIATE(cdouble, double)

} // namespace vor::dfti

using namespace vor;
using namespace vor::dfti;

// The same by name. Complex columns and pairs of reals lie without gaps in the buffer; for columns of
// reals the last argument is the distance of the buffer's vectors. A column of one element needs no
// transform: the copies into the buffer do nothing below two rows, but for cscopy and zdcopy.
#define COPY(name, N, Unit, Step, least)                                                           \
    extern "C" void name(const Step* source, int stride, int length, Unit* buffer) {               \
        if (length >= least) gather<N>(source, stride, length, buffer, length);                    \
    }
#define BACK(name, N, Unit, Step)                                                                  \
    extern "C" void name(Step* destination, int stride, int length, const Unit* buffer) {          \
        scatter<N>(destination, stride, length, buffer, length);                                   \
    }
#define REALS(name, name_back, N, Real)                                                            \
    extern "C" void name(const Real* source, int stride, int length, Real* buffer, int distance) { \
        if (length >= 2) gather<N>(source, stride, length, buffer, distance);                      \
    }                                                                                              \
    extern "C" void name_back(Real* destination, int stride, int length, const Real* buffer,       \
                              int distance) {                                                      \
        scatter<N>(destination, stride, length, buffer, distance);                                 \
    }
// One column is copied by name only as a pair of reals, and on the way back.
#define ONE(pairs, pairs_back, columns_back, C, R)                                                 \
    COPY(pairs, 1, C, R, 2)                                                                        \
    BACK(pairs_back, 1, C, R)                                                                      \
    BACK(columns_back, 1, C, C)
#define COLUMNS(N, C, R, columns, columns_back, pairs, pairs_back, always, reals, reals_back)      \
    COPY(columns, N, C, C, 2)                                                                      \
    BACK(columns_back, N, C, C)                                                                    \
    COPY(pairs, N, C, R, 2)                                                                        \
    BACK(pairs_back, N, C, R)                                                                      \
    COPY(always, N, C, C, 0)                                                                       \
    REALS(reals, reals_back, N, R)

ONE(vor_dft_row_scopy_1, vor_dft_row_scopy_back_1, vor_dft_row_ccopy_back_1, cfloat, float)
ONE(vor_dft_row_dcopy_1, vor_dft_row_dcopy_back_1, vor_dft_row_zcopy_back_1, cdouble, double)
COLUMNS(2, cfloat, float, vor_dft_row_ccopy_2, vor_dft_row_ccopy_back_2, vor_dft_row_scopy_2,
        vor_dft_row_scopy_back_2, vor_dft_row_cscopy_2, vor_dft_row_sscopy_2,
        vor_dft_row_sscopy_back_2)
COLUMNS(3, cfloat, float, vor_dft_row_ccopy_3, vor_dft_row_ccopy_back_3, vor_dft_row_scopy_3,
        vor_dft_row_scopy_back_3, vor_dft_row_cscopy_3, vor_dft_row_sscopy_3,
        vor_dft_row_sscopy_back_3)
COLUMNS(4, cfloat, float, vor_dft_row_ccopy_4, vor_dft_row_ccopy_back_4, vor_dft_row_scopy_4,
        vor_dft_row_scopy_back_4, vor_dft_row_cscopy_4, vor_dft_row_sscopy_4,
        vor_dft_row_sscopy_back_4)
COLUMNS(5, cfloat, float, vor_dft_row_ccopy_5, vor_dft_row_ccopy_back_5, vor_dft_row_scopy_5,
        vor_dft_row_scopy_back_5, vor_dft_row_cscopy_5, vor_dft_row_sscopy_5,
        vor_dft_row_sscopy_back_5)
COLUMNS(6, cfloat, float, vor_dft_row_ccopy_6, vor_dft_row_ccopy_back_6, vor_dft_row_scopy_6,
        vor_dft_row_scopy_back_6, vor_dft_row_cscopy_6, vor_dft_row_sscopy_6,
        vor_dft_row_sscopy_back_6)
COLUMNS(7, cfloat, float, vor_dft_row_ccopy_7, vor_dft_row_ccopy_back_7, vor_dft_row_scopy_7,
        vor_dft_row_scopy_back_7, vor_dft_row_cscopy_7, vor_dft_row_sscopy_7,
        vor_dft_row_sscopy_back_7)
COLUMNS(8, cfloat, float, vor_dft_row_ccopy_8, vor_dft_row_ccopy_back_8, vor_dft_row_scopy_8,
        vor_dft_row_scopy_back_8, vor_dft_row_cscopy_8, vor_dft_row_sscopy_8,
        vor_dft_row_sscopy_back_8)
COLUMNS(9, cfloat, float, vor_dft_row_ccopy_9, vor_dft_row_ccopy_back_9, vor_dft_row_scopy_9,
        vor_dft_row_scopy_back_9, vor_dft_row_cscopy_9, vor_dft_row_sscopy_9,
        vor_dft_row_sscopy_back_9)
COLUMNS(10, cfloat, float, vor_dft_row_ccopy_10, vor_dft_row_ccopy_back_10, vor_dft_row_scopy_10,
        vor_dft_row_scopy_back_10, vor_dft_row_cscopy_10, vor_dft_row_sscopy_10,
        vor_dft_row_sscopy_back_10)
COLUMNS(11, cfloat, float, vor_dft_row_ccopy_11, vor_dft_row_ccopy_back_11, vor_dft_row_scopy_11,
        vor_dft_row_scopy_back_11, vor_dft_row_cscopy_11, vor_dft_row_sscopy_11,
        vor_dft_row_sscopy_back_11)
COLUMNS(12, cfloat, float, vor_dft_row_ccopy_12, vor_dft_row_ccopy_back_12, vor_dft_row_scopy_12,
        vor_dft_row_scopy_back_12, vor_dft_row_cscopy_12, vor_dft_row_sscopy_12,
        vor_dft_row_sscopy_back_12)
COLUMNS(13, cfloat, float, vor_dft_row_ccopy_13, vor_dft_row_ccopy_back_13, vor_dft_row_scopy_13,
        vor_dft_row_scopy_back_13, vor_dft_row_cscopy_13, vor_dft_row_sscopy_13,
        vor_dft_row_sscopy_back_13)
COLUMNS(14, cfloat, float, vor_dft_row_ccopy_14, vor_dft_row_ccopy_back_14, vor_dft_row_scopy_14,
        vor_dft_row_scopy_back_14, vor_dft_row_cscopy_14, vor_dft_row_sscopy_14,
        vor_dft_row_sscopy_back_14)
COLUMNS(15, cfloat, float, vor_dft_row_ccopy_15, vor_dft_row_ccopy_back_15, vor_dft_row_scopy_15,
        vor_dft_row_scopy_back_15, vor_dft_row_cscopy_15, vor_dft_row_sscopy_15,
        vor_dft_row_sscopy_back_15)
COLUMNS(16, cfloat, float, vor_dft_row_ccopy_16, vor_dft_row_ccopy_back_16, vor_dft_row_scopy_16,
        vor_dft_row_scopy_back_16, vor_dft_row_cscopy_16, vor_dft_row_sscopy_16,
        vor_dft_row_sscopy_back_16)
COLUMNS(2, cdouble, double, vor_dft_row_zcopy_2, vor_dft_row_zcopy_back_2, vor_dft_row_dcopy_2,
        vor_dft_row_dcopy_back_2, vor_dft_row_zdcopy_2, vor_dft_row_ddcopy_2,
        vor_dft_row_ddcopy_back_2)
COLUMNS(3, cdouble, double, vor_dft_row_zcopy_3, vor_dft_row_zcopy_back_3, vor_dft_row_dcopy_3,
        vor_dft_row_dcopy_back_3, vor_dft_row_zdcopy_3, vor_dft_row_ddcopy_3,
        vor_dft_row_ddcopy_back_3)
COLUMNS(4, cdouble, double, vor_dft_row_zcopy_4, vor_dft_row_zcopy_back_4, vor_dft_row_dcopy_4,
        vor_dft_row_dcopy_back_4, vor_dft_row_zdcopy_4, vor_dft_row_ddcopy_4,
        vor_dft_row_ddcopy_back_4)
COLUMNS(5, cdouble, double, vor_dft_row_zcopy_5, vor_dft_row_zcopy_back_5, vor_dft_row_dcopy_5,
        vor_dft_row_dcopy_back_5, vor_dft_row_zdcopy_5, vor_dft_row_ddcopy_5,
        vor_dft_row_ddcopy_back_5)
COLUMNS(6, cdouble, double, vor_dft_row_zcopy_6, vor_dft_row_zcopy_back_6, vor_dft_row_dcopy_6,
        vor_dft_row_dcopy_back_6, vor_dft_row_zdcopy_6, vor_dft_row_ddcopy_6,
        vor_dft_row_ddcopy_back_6)
COLUMNS(7, cdouble, double, vor_dft_row_zcopy_7, vor_dft_row_zcopy_back_7, vor_dft_row_dcopy_7,
        vor_dft_row_dcopy_back_7, vor_dft_row_zdcopy_7, vor_dft_row_ddcopy_7,
        vor_dft_row_ddcopy_back_7)
COLUMNS(8, cdouble, double, vor_dft_row_zcopy_8, vor_dft_row_zcopy_back_8, vor_dft_row_dcopy_8,
        vor_dft_row_dcopy_back_8, vor_dft_row_zdcopy_8, vor_dft_row_ddcopy_8,
        vor_dft_row_ddcopy_back_8)
