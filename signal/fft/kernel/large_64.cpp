// 64-bit transforms above the kernel's limit, in place on bit-reversed data.
//
// Orders with a split s stand as S = 2^s rows of R points. Row i, which holds the decimated sequence of
// offset reverse(i), is transformed; then four columns at a time are multiplied by
// exp(-2 pi i reverse(i) c / N), gathered into lanes, transformed and put back: the product is part of the
// first radix-4 pass, the way back part of the last. Each element is touched twice for each level. Orders
// 10 and 11 run as kernels of 512 points and radix-2 passes.
//
// The scale happens once for each element, on the leaves.
#include "arith/prefetch.h"
#include "signal/fft/engine.h"
#include "signal/fft/kernel/radix4_64.h"

namespace vor::fft {
namespace {

using C = cdouble;
using Object = Context<double>;

constexpr int kLeafOrder = Traits<double>::kEngineLimit;
constexpr int kLeaf = 1 << kLeafOrder;
constexpr int kColumn = 64; // points of a pass whose twiddles stay in the cache across all blocks

template <bool inverse>
void leaf(const Object& object, C* data, int n) {
    using K = Routines<double>;
    K::kernel[inverse](data, n, object.tabTwd);
    if (signal::scales<kDirection<inverse>>(object)) K::scale(object.normFactor, &data->re, 2 * n);
}

// x[j], x[S+j] := x[j] +- W^j x[S+j] for one column.
template <bool inverse, bool second_quarter>
void column(C* low, C* high, const C* w, int step) {
    for (int j = 0; j < kColumn; ++j, w += step) {
        C b = times<inverse>(high[j], *w);
        if (second_quarter) b = turned<inverse>(b);
        const C a = load(low + j);
        low[j] = a + b;
        high[j] = a - b;
    }
}

// The radix-2 passes from `span` up to n points. The table holds the first quarter circle of order n.
template <bool inverse>
void radix2_passes(C* data, int n, int span, const C* table) {
    for (; span < n; span *= 2) {
        const int step = n / (2 * span);
        for (int j = 0; j < span / 2; j += kColumn)
            for (C* block = data; block < data + n; block += 2 * span) {
                C *low = block + j, *high = low + span;
                column<inverse, false>(low, high, table + j * step, step);
                column<inverse, true>(low + span / 2, high + span / 2, table + j * step, step);
            }
    }
}

template <bool inverse>
void halves(const Object& object, C* data, int n) {
    for (C* block = data + n - kLeaf; block >= data; block -= kLeaf)
        leaf<inverse>(object, block, kLeaf);
    radix2_passes<inverse>(data, n, kLeaf, object.tabTwdL2);
}

// ---- Columns of a block level: four, the elements of one line, in four lanes of `rows` elements.

constexpr int kLanes = 4;
constexpr int kAhead = 16; // rows of prefetch: the rows of a column lie far apart

// Columns times their products into lanes, through the transforms of 4 points.
template <bool inverse>
void merge(const C* row, int width, C* lanes, int rows, const C* products) {
    for (int i = 0; i < rows; i += 4, row += 4 * width, products += 4 * kLanes) {
        for (int j = 0; j < 4; ++j) prefetch(row + (kAhead + j) * width);
        for (int t = 0; t < kLanes; ++t)
            butterfly_of_products<inverse>(row + t, width, products + t, lanes + t * rows + i);
    }
}

// The last pass over the lanes, back into the columns.
template <bool inverse>
void split_lanes(const C* lanes, int rows, C* row, int width, const C* table) {
    const int quarter = rows / 4;
    const size_t stride = size_t(quarter) * width;
    for (int t = 0; t < kLanes; ++t)
        plain_butterfly<inverse>(lanes + t * rows, quarter, row + t, stride);
    for (int k = 1; k < quarter; ++k) {
        row += width;
        table += 3;
        for (int q = 0; q < 4; ++q) prefetch(row + kAhead * width + q * stride);
        for (int t = 0; t < kLanes; ++t)
            butterfly<inverse>(lanes + t * rows + k, quarter, table, row + t, stride);
    }
}

template <bool inverse>
void columns(C* data, int s, int r, const C* table, const C* products, C* lanes) {
    const int rows = 1 << s, width = 1 << r;
    for (int c = 0; c < width; c += kLanes, products += kLanes * rows) {
        merge<inverse>(data + c, width, lanes, rows, products);
        int span = 4;
        if (s % 2) {
            radix2_pass<inverse>(lanes, kLanes * rows, table[3 * (rows / 8)]);
            span = 8;
        }
        for (span *= 4; span < rows; span *= 4)
            radix4_pass<inverse>(lanes, kLanes * rows, span, table, rows);
        split_lanes<inverse>(lanes, rows, data + c, width, table);
    }
}

template <bool inverse>
void blocks(const Object& object, C* data, int m, int level, C* lanes) {
    const int s = split<double>(m), r = m - s;
    for (C* row = data; row < data + (1 << m); row += 1 << r) {
        if (r <= kLeafOrder)
            leaf<inverse>(object, row, 1 << r);
        else if (split<double>(r))
            blocks<inverse>(object, row, r, level + 1, lanes);
        else
            halves<inverse>(object, row, 1 << r);
    }
    columns<inverse>(data, s, r, object.tabTwdBlk[level], object.tabMulBlk[level], lanes);
}

template <bool inverse>
void large(const Object& object, C* data, int order, void* buffer) {
    if (split<double>(order))
        blocks<inverse>(object, data, order, 0, static_cast<C*>(buffer));
    else
        halves<inverse>(object, data, 1 << order);
}

} // namespace
} // namespace vor::fft

#define LARGE(name, inverse)                                                                       \
    extern "C" void name(const FftCtx* object, VOR_DCOMPLEX* data, int order, void* buffer) {      \
        using namespace vor::fft;                                                                  \
        large<inverse>(context_of<double>(object), data, order, buffer);                           \
    }
LARGE(tavs_cFftFwd_Large_64fc, false)
LARGE(tavs_cFftInv_Large_64fc, true)
