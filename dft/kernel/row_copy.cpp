// The row copies, one function for each number of columns: the loop over the columns is unrolled by
// the compiler and four rows go to a pass. Tiles of as many rows and columns as a register of 16 bytes
// has units are turned in registers, so that every access to memory moves 16 bytes.
#include "dft/kernel/row_copy.h"
#include "arith/prefetch.h"

#include <string.h>
#include <utility>

namespace vor::dfti {

namespace {

// Rows far apart lie in pages of their own, which the processor does not fetch ahead by itself.
constexpr int kRowsAhead = 8, kLineBytes = 64;

template <int Bytes>
void fetch(const char* row) {
    for (int at = 0; at < Bytes; at += kLineBytes) prefetch(row, at);
}

__m128 load16(const char* p) {
    return _mm_loadu_ps(reinterpret_cast<const float*>(p));
}
void store16(char* p, __m128 x) {
    _mm_storeu_ps(reinterpret_cast<float*>(p), x);
}
const __m64* half(const char* p) {
    return reinterpret_cast<const __m64*>(p);
}
__m64* half(char* p) {
    return reinterpret_cast<__m64*>(p);
}

// Four rows of N columns from lines `from`, `from_step` apart, to lines `to`, `to_step` apart: unit j of line i
// becomes unit i of line j. Rows are the lines of the array, columns those of the buffer.
template <int N, int Bytes>
struct FourRows;

template <int N>
struct FourRows<N, 16> {
    static void gather(const char* row, unsigned stride, char* column, unsigned distance) {
#pragma GCC unroll 16
        for (int j = 0; j < N; ++j, row += 16, column += distance)
#pragma GCC unroll 4
            for (unsigned i = 0; i < 4; ++i) store16(column + 16 * i, load16(row + i * stride));
    }
    static void scatter(char* row, unsigned stride, const char* column, unsigned distance) {
#pragma GCC unroll 16
        for (int j = 0; j < N; ++j, row += 16, column += distance)
#pragma GCC unroll 4
            for (unsigned i = 0; i < 4; ++i) store16(row + i * stride, load16(column + 16 * i));
    }
};

template <int N>
struct FourRows<N, 8> {
    static void gather(const char* row, unsigned stride, char* column, unsigned distance) {
        const char* third = row + 2 * stride;
#pragma GCC unroll 16
        for (int j = 0; j + 2 <= N; j += 2, row += 16, third += 16, column += 2 * distance) {
            const __m128 a = load16(row), b = load16(row + stride);
            const __m128 c = load16(third), d = load16(third + stride);
            store16(column, _mm_movelh_ps(a, b));
            store16(column + 16, _mm_movelh_ps(c, d));
            store16(column + distance, _mm_movehl_ps(b, a));
            store16(column + distance + 16, _mm_movehl_ps(d, c));
        }
        if (N % 2 == 0) return;
        const __m128 a = _mm_loadl_pi(_mm_setzero_ps(), half(row));
        store16(column, _mm_loadh_pi(a, half(row + stride)));
        const __m128 c = _mm_loadl_pi(_mm_setzero_ps(), half(third));
        store16(column + 16, _mm_loadh_pi(c, half(third + stride)));
    }
    // Two rows at a time: four columns fill half a cache line of each.
    static void scatter(char* row, unsigned stride, const char* column, unsigned distance) {
        for (int pair = 0; pair < 2; ++pair, row += 2 * stride, column += 16) {
            char* to = row;
            const char* from = column;
            int j = 0;
#pragma GCC unroll 16
            for (; j + 4 <= N; j += 4, to += 32, from += 4 * distance) {
                const __m128 a = load16(from), b = load16(from + distance);
                const __m128 c = load16(from + 2 * distance), d = load16(from + 3 * distance);
                store16(to, _mm_movelh_ps(a, b));
                store16(to + 16, _mm_movelh_ps(c, d));
                store16(to + stride, _mm_movehl_ps(b, a));
                store16(to + stride + 16, _mm_movehl_ps(d, c));
            }
            if (j + 2 <= N) {
                const __m128 a = load16(from), b = load16(from + distance);
                store16(to, _mm_movelh_ps(a, b));
                store16(to + stride, _mm_movehl_ps(b, a));
                to += 16, from += 2 * distance;
            }
            if (N % 2 != 0) {
                const __m128 a = load16(from);
                _mm_storel_pi(half(to), a);
                _mm_storeh_pi(half(to + stride), a);
            }
        }
    }
};

template <int N>
struct FourRows<N, 4> {
    static void turn(const char* from, unsigned from_step, char* to, unsigned to_step) {
        __m128 a = load16(from), b = load16(from + from_step);
        __m128 c = load16(from + 2 * from_step), d = load16(from + 3 * from_step);
        _MM_TRANSPOSE4_PS(a, b, c, d);
        store16(to, a);
        store16(to + to_step, b);
        store16(to + 2 * to_step, c);
        store16(to + 3 * to_step, d);
    }
    static void gather(const char* row, unsigned stride, char* column, unsigned distance) {
        int j = 0;
        for (; j + 4 <= N; j += 4, row += 16, column += 4 * distance)
            turn(row, stride, column, distance);
        for (; j < N; ++j, row += 4, column += distance)
#pragma GCC unroll 4
            for (unsigned i = 0; i < 4; ++i) memcpy(column + 4 * i, row + i * stride, 4);
    }
    static void scatter(char* row, unsigned stride, const char* column, unsigned distance) {
        int j = 0;
        for (; j + 4 <= N; j += 4, row += 16, column += 4 * distance)
            turn(column, distance, row, stride);
        for (; j < N; ++j, row += 4, column += distance)
#pragma GCC unroll 4
            for (unsigned i = 0; i < 4; ++i) memcpy(row + i * stride, column + 4 * i, 4);
    }
};

template <int N, int Bytes>
void gather(const void* source, unsigned stride, int length, void* buffer, unsigned distance) {
    const auto* row = static_cast<const char*>(source);
    auto* column = static_cast<char*>(buffer);
    int i = 0;
    for (; i + 4 <= length; i += 4, row += 4 * stride, column += 4 * Bytes) {
#pragma GCC unroll 4
        for (unsigned k = 0; k < 4; ++k) fetch<N * Bytes>(row + (kRowsAhead + k) * stride);
        FourRows<N, Bytes>::gather(row, stride, column, distance);
    }
    for (; i < length; ++i, row += stride, column += Bytes)
        for (unsigned j = 0; j < N; ++j) memcpy(column + j * distance, row + j * Bytes, Bytes);
}

template <int N, int Bytes>
void scatter(void* destination, unsigned stride, int length, const void* buffer,
             unsigned distance) {
    auto* row = static_cast<char*>(destination);
    const auto* column = static_cast<const char*>(buffer);
    int i = 0;
    for (; i + 4 <= length; i += 4, row += 4 * stride, column += 4 * Bytes) {
#pragma GCC unroll 4
        for (unsigned k = 0; k < 4; ++k) fetch<N * Bytes>(row + (kRowsAhead + k) * stride);
        FourRows<N, Bytes>::scatter(row, stride, column, distance);
    }
    for (; i < length; ++i, row += stride, column += Bytes)
        for (unsigned j = 0; j < N; ++j) memcpy(row + j * Bytes, column + j * distance, Bytes);
}

template <int Bytes, int... n>
Gather* pick_gather(int columns, std::integer_sequence<int, n...>) {
    static constexpr Gather* table[] = {gather<n + 1, Bytes>...};
    return table[columns - 1];
}

template <int Bytes, int... n>
Scatter* pick_scatter(int columns, std::integer_sequence<int, n...>) {
    static constexpr Scatter* table[] = {scatter<n + 1, Bytes>...};
    return table[columns - 1];
}

constexpr int kMostColumns = 16;
using Columns = std::make_integer_sequence<int, kMostColumns>;

} // namespace

template <int Bytes>
Gather* gather_for(int n) {
    return pick_gather<Bytes>(n, Columns{});
}

template <int Bytes>
Scatter* scatter_for(int n) {
    return pick_scatter<Bytes>(n, Columns{});
}

#define INSTANTIATE(Bytes)                                                                         \
    template Gather* gather_for<Bytes>(int);                                                       \
    template Scatter* scatter_for<Bytes>(int);
INSTANTIATE(4)
INSTANTIATE(8)
INSTANTIATE(16)

} // namespace vor::dfti

using namespace vor;
using namespace vor::dfti;

// The same by name. Complex columns and pairs of reals lie without gaps in the buffer; for columns of
// reals the last argument is the distance of the buffer's vectors. A column of one element needs no
// transform: the copies into the buffer do nothing below two rows, but for cscopy and zdcopy.
#define COPY(name, N, Unit, Step, least)                                                           \
    extern "C" void name(const Step* source, int stride, int length, Unit* buffer) {               \
        if (length >= least)                                                                       \
            gather<N, sizeof(Unit)>(source, bytes_of<Step>(stride), length, buffer,                \
                                    bytes_of<Unit>(length));                                       \
    }
#define BACK(name, N, Unit, Step)                                                                  \
    extern "C" void name(Step* destination, int stride, int length, const Unit* buffer) {          \
        scatter<N, sizeof(Unit)>(destination, bytes_of<Step>(stride), length, buffer,              \
                                 bytes_of<Unit>(length));                                          \
    }
#define REALS(name, name_back, N, Real)                                                            \
    extern "C" void name(const Real* source, int stride, int length, Real* buffer, int distance) { \
        if (length >= 2)                                                                           \
            gather<N, sizeof(Real)>(source, bytes_of<Real>(stride), length, buffer,                \
                                    bytes_of<Real>(distance));                                     \
    }                                                                                              \
    extern "C" void name_back(Real* destination, int stride, int length, const Real* buffer,       \
                              int distance) {                                                      \
        scatter<N, sizeof(Real)>(destination, bytes_of<Real>(stride), length, buffer,              \
                                 bytes_of<Real>(distance));                                        \
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
