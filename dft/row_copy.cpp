// The row copies, one function for each number of columns: the loop over the columns is unrolled by
// the compiler and four rows go to a pass, so that no index arithmetic on N is left inside.
#include "dft/row_copy.h"
#include "serv/entry.h"

#include <utility>
#include <xmmintrin.h>

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
            _mm_prefetch(reinterpret_cast<const char*>(ahead) + bytes, _MM_HINT_T0);
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
vor::Gather<Unit, Step>* pick_gather(int columns, std::integer_sequence<int, n...>) {
    static constexpr vor::Gather<Unit, Step>* table[] = {gather<n + 1, Unit, Step>...};
    return table[columns - 1];
}

template <class Unit, class Step, int... n>
vor::Scatter<Unit, Step>* pick_scatter(int columns, std::integer_sequence<int, n...>) {
    static constexpr vor::Scatter<Unit, Step>* table[] = {scatter<n + 1, Unit, Step>...};
    return table[columns - 1];
}

constexpr int kMostColumns = 16;
using Columns = std::make_integer_sequence<int, kMostColumns>;

} // namespace

template <class Unit, class Step>
vor::Gather<Unit, Step>* vor::gather_for(int n) {
    return pick_gather<Unit, Step>(n, Columns{});
}

template <class Unit, class Step>
vor::Scatter<Unit, Step>* vor::scatter_for(int n) {
    return pick_scatter<Unit, Step>(n, Columns{});
}

#define INSTANTIATE(Unit)                                                                          \
    template vor::Gather<Unit, Unit>* vor::gather_for<Unit, Unit>(int);                            \
    template vor::Scatter<Unit, Unit>* vor::scatter_for<Unit, Unit>(int);
INSTANTIATE(vor::cfloat)
INSTANTIATE(vor::cdouble)
INSTANTIATE(float)
INSTANTIATE(double)

// The same by name. Complex columns and pairs of reals lie without gaps in the buffer; for columns of
// reals the last argument is the distance of the buffer's vectors. A column of one element needs no
// transform: the copies into the buffer do nothing below two rows, but for cscopy and zdcopy.
#define COPY(name, N, Unit, Step, least)                                                           \
    extern "C" void vor_dft_row_##name##_##N(const Step* source, int stride, int length,           \
                                             Unit* buffer) {                                       \
        if (length >= least) gather<N>(source, stride, length, buffer, length);                    \
    }
#define BACK(name, N, Unit, Step)                                                                  \
    extern "C" void vor_dft_row_##name##_back_##N(Step* destination, int stride, int length,       \
                                                  const Unit* buffer) {                            \
        scatter<N>(destination, stride, length, buffer, length);                                   \
    }
#define REAL_COPY(name, N, Real)                                                                   \
    extern "C" void vor_dft_row_##name##_##N(const Real* source, int stride, int length,           \
                                             Real* buffer, int distance) {                         \
        if (length >= 2) gather<N>(source, stride, length, buffer, distance);                      \
    }                                                                                              \
    extern "C" void vor_dft_row_##name##_back_##N(Real* destination, int stride, int length,       \
                                                  const Real* buffer, int distance) {              \
        scatter<N>(destination, stride, length, buffer, distance);                                 \
    }

#define SINGLE(N)                                                                                  \
    COPY(ccopy, N, vor::cfloat, vor::cfloat, 2)                                                    \
    COPY(scopy, N, vor::cfloat, float, 2)                                                          \
    COPY(cscopy, N, vor::cfloat, vor::cfloat, 0)                                                   \
    BACK(ccopy, N, vor::cfloat, vor::cfloat)                                                       \
    BACK(scopy, N, vor::cfloat, float)                                                             \
    REAL_COPY(sscopy, N, float)
#define DOUBLE(N)                                                                                  \
    COPY(zcopy, N, vor::cdouble, vor::cdouble, 2)                                                  \
    COPY(dcopy, N, vor::cdouble, double, 2)                                                        \
    COPY(zdcopy, N, vor::cdouble, vor::cdouble, 0)                                                 \
    BACK(zcopy, N, vor::cdouble, vor::cdouble)                                                     \
    BACK(dcopy, N, vor::cdouble, double)                                                           \
    REAL_COPY(ddcopy, N, double)
#define BOTH(N) SINGLE(N) DOUBLE(N)

// One column: no copy of columns by name is needed but for pairs of reals and the way back.
COPY(scopy, 1, vor::cfloat, float, 2)
COPY(dcopy, 1, vor::cdouble, double, 2)
BACK(ccopy, 1, vor::cfloat, vor::cfloat)
BACK(zcopy, 1, vor::cdouble, vor::cdouble)
BACK(scopy, 1, vor::cfloat, float)
BACK(dcopy, 1, vor::cdouble, double)
BOTH(2)
BOTH(3)
BOTH(4)
BOTH(5)
BOTH(6)
BOTH(7)
BOTH(8)
SINGLE(9)
SINGLE(10)
SINGLE(11)
SINGLE(12)
SINGLE(13)
SINGLE(14)
SINGLE(15)
SINGLE(16)
