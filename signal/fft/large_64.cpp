// 64-bit transforms above the kernel's limit, in place on bit-reversed data.
//
// Orders with a split s stand as S = 2^s rows of R points. Row i, which holds the decimated sequence of
// offset reverse(i), is transformed; then four columns at a time are multiplied by
// exp(-2 pi i reverse(i) c / N), gathered into lanes, transformed and put back. Each element is touched
// twice for each level. Orders 10 and 11 run as kernels of 512 points and radix-2 passes.
//
// The scale happens once for each element, on the leaves.
#include "signal/fft/kernels.h"

namespace {

using C = vor::cdouble;
using vor::fft::split;

constexpr int kLeafOrder = vor::fft::Traits<double>::kEngineLimit;
constexpr int kLeaf = 1 << kLeafOrder;
constexpr int kColumn = 64; // points of a pass whose twiddles stay in the cache across all blocks

template <bool inverse>
C times(C x, C w) {
    if constexpr (inverse)
        return {x.re * w.re + x.im * w.im, x.im * w.re - x.re * w.im};
    else
        return {x.re * w.re - x.im * w.im, x.re * w.im + x.im * w.re};
}

template <bool inverse>
void kernel(C* data, int n, const void* table) {
    (inverse ? tavs_cRadix4Inv_64fc : tavs_cRadix4Fwd_64fc)(data, n, static_cast<const C*>(table));
}

template <bool inverse>
void leaf(const FftCtx& object, C* data, int n) {
    kernel<inverse>(data, n, object.tabTwd);
    if (inverse ? object.doScaleInv : object.doScaleFwd)
        tavs_rbMpy1_64f(object.normFactor.wide, &data->re, 2 * n);
}

// x[j], x[S+j] := x[j] +- W^j x[S+j] for one column.
template <bool inverse, bool second_quarter>
void column(C* low, C* high, const C* w, int step) {
    for (int j = 0; j < kColumn; ++j, w += step) {
        C b = times<inverse>(high[j], *w);
        if (second_quarter) b = inverse ? C{-b.im, b.re} : C{b.im, -b.re};
        const C a = low[j];
        low[j] = {a.re + b.re, a.im + b.im};
        high[j] = {a.re - b.re, a.im - b.im};
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
void halves(const FftCtx& object, C* data, int n) {
    for (C* block = data + n - kLeaf; block >= data; block -= kLeaf)
        leaf<inverse>(object, block, kLeaf);
    radix2_passes<inverse>(data, n, kLeaf, static_cast<const C*>(object.tabTwdL2));
}

template <bool inverse>
void columns(C* data, int s, int r, const C* kernel_table, const C* products, C* lanes) {
    const int rows = 1 << s, width = 1 << r;
    for (int c = 0; c < width; c += 4) {
        C* x = data + c;
        for (int i = 0; i < rows; ++i, x += width, products += 4)
            for (int t = 0; t < 4; ++t) lanes[t * rows + i] = times<inverse>(x[t], products[t]);
        for (int t = 0; t < 4; ++t) kernel<inverse>(lanes + t * rows, rows, kernel_table);
        x = data + c;
        for (int i = 0; i < rows; ++i, x += width)
            for (int t = 0; t < 4; ++t) x[t] = lanes[t * rows + i];
    }
}

template <bool inverse>
void blocks(const FftCtx& object, C* data, int m, int level, C* lanes) {
    const int s = split<double>(m), r = m - s;
    for (C* row = data; row < data + (1 << m); row += 1 << r) {
        if (r <= kLeafOrder)
            leaf<inverse>(object, row, 1 << r);
        else if (split<double>(r))
            blocks<inverse>(object, row, r, level + 1, lanes);
        else
            halves<inverse>(object, row, 1 << r);
    }
    columns<inverse>(data, s, r, static_cast<const C*>(object.tabTwdBlk[level]),
                     static_cast<const C*>(object.tabMulBlk[level]), lanes);
}

template <bool inverse>
void large(const FftCtx& object, C* data, int order, void* buffer) {
    if (split<double>(order))
        blocks<inverse>(object, data, order, 0, static_cast<C*>(buffer));
    else
        halves<inverse>(object, data, 1 << order);
}

} // namespace

extern "C" void tavs_cFftFwd_Large_64fc(const FftCtx* object, C* data, int order, void* buffer) {
    large<false>(*object, data, order, buffer);
}
extern "C" void tavs_cFftInv_Large_64fc(const FftCtx* object, C* data, int order, void* buffer) {
    large<true>(*object, data, order, buffer);
}
