// 32-bit transforms above the kernel's limit, in place on bit-reversed data: the plan of the 64-bit
// ones, with the rows in four-lane form from the leaf to the end of the last step, which writes
// interleaved data.
//
// Orders without a split halve the data down to kernels of 1024 points; radix-2 steps join the halves.
#include "signal/fft/kernel/large_32.h"
#include "arith/prefetch.h"
#include "signal/fft/engine.h"
#include "signal/fft/kernel/lanes.h"

namespace vor::fft {
namespace {

using C = cfloat;
using Object = Context<float>;

constexpr int kLeafOrder = Traits<float>::kEngineLimit;
constexpr int kLeaf = 1 << kLeafOrder;

template <bool inverse>
void leaf(const Object& object, C* data, int n, void* buffer) {
    using K = Routines<float>;
    K::kernel[inverse](data, n, object.tabTwd, buffer, 0);
    if (signal::scales<kDirection<inverse>>(object)) K::scale(object.normFactor, &data->re, 2 * n);
}

// ---- The radix-2 step: x[j], x[N/2+j] := x[j] +- W^j x[N/2+j], with W^(j+N/4) = -i W^j.

template <bool inverse, class Load, class Form>
void radix2_step(float* data, int n, const float* w) {
    const int half = n, quarter = n / 2; // floats
    for (float *x = data, *end = data + quarter; x < end; x += 8, w += 8) {
        const Four twiddle = Lanes::load(w);
        const Four a = Load::load(x), b = times<inverse>(Load::load(x + half), twiddle);
        Form::store(x, a + b);
        Form::store(x + half, a - b);
        float* y = x + quarter;
        const Four c = Load::load(y), d = times<inverse>(Load::load(y + half), twiddle);
        Form::store(y, plus_turned<inverse>(c, d));
        Form::store(y + half, minus_turned<inverse>(c, d));
    }
}

template <bool inverse>
void radix2(C* data, int n, const C* table, int interleave) {
    float* x = &data->re;
    const float* w = &table->re;
    if (aligned(x))
        interleave ? radix2_step<inverse, Lanes, Interleaved>(x, n, w)
                   : radix2_step<inverse, Lanes, Lanes>(x, n, w);
    else
        interleave ? radix2_step<inverse, LanesAnywhere, Interleaved>(x, n, w)
                   : radix2_step<inverse, LanesAnywhere, LanesAnywhere>(x, n, w);
}

// Transform of n points, 2048 and up, by halves. The table begins with the section of n points.
template <bool inverse>
void halves(const Object& object, C* data, int n, const C* table, int interleave, void* buffer) {
    const int half = n / 2;
    for (C* part = data; part < data + n; part += half) {
        if (half == kLeaf)
            leaf<inverse>(object, part, half, buffer);
        else
            halves<inverse>(object, part, half, table + n / 4, 0, buffer);
    }
    radix2<inverse>(data, n, table, interleave);
}

// ---- Columns of a block level: groups of four, one in each lane of the registers, so that the butterflies
// combine whole rows. The buffer holds a row of a group in 8 floats: four real parts, four imaginary parts.

constexpr int kRow = 8;
constexpr int kGroups = 2; // at a time: the columns of one line
constexpr int kAhead = 16; // rows of prefetch: the rows of a column lie far apart

// Rows 0 to 3 times their products, and the transform of 4 points of each column.
template <bool inverse, class Load, class Store>
inline void merge_four(const float* row, int stride, const float* product, Store store) {
    const auto multiplied = [=](int i) {
        return times<inverse>(held(Load::load(row + i * stride)), Lanes::load(product + i * kRow));
    };
    butterfly<inverse>(multiplied, store);
}

// The radix-2 step that makes a transform of 8 points out of that of 4 at `x` and result k, z, of another.
template <bool inverse>
inline void join(float* x, int k, Four z) {
    x += k * kRow;
    if (k & 1) { // by exp(-+ i pi / 4)
        const __m128 root = _mm_set1_ps(0.7071068f);
        z = plus_turned<inverse>(z, z);
        z = {_mm_mul_ps(z.re, root), _mm_mul_ps(z.im, root)};
    }
    const Four a = Lanes::load(x);
    Lanes::store(x, k < 2 ? a + z : plus_turned<inverse>(a, z));
    Lanes::store(x + 4 * kRow, k < 2 ? a - z : minus_turned<inverse>(a, z));
}

// The groups of four columns stand `rows` rows apart in the buffer, their products `apart` floats.
template <bool inverse, class Load>
void merge(const float* row, int width, float* lanes, int rows, const float* products, int apart) {
    const int stride = 2 * width; // floats
    const bool odd = rows & 0xAAAAAAAA;
    for (int i = 0; i < rows; i += 4) {
        // Behind the last row the columns of the next line begin.
        const float* const ahead =
            row + (i + kAhead < rows ? kAhead * stride : (kAhead - rows) * stride + kGroups * kRow);
        for (int j = 0; j < 4; ++j) prefetch(ahead + j * stride);
        for (int g = 0; g < kGroups; ++g) {
            float* const out = lanes + (g * rows + i) * kRow;
            const float* const product = products + g * apart;
            if (odd && i & 4)
                merge_four<inverse, Load>(row + g * kRow, stride, product, [=](int k, Four z) {
                    join<inverse>(out - 4 * kRow, k, z);
                });
            else
                merge_four<inverse, Load>(row + g * kRow, stride, product,
                                          [=](int k, Four x) { Lanes::store(out + k * kRow, x); });
        }
        row += 4 * stride;
        products += 4 * kRow;
    }
}

template <bool inverse>
void merge_columns(const C* row, int width, C* lanes, int rows, const C* products, int apart) {
    const auto run = aligned(row) ? merge<inverse, Lanes> : merge<inverse, LanesAnywhere>;
    run(&row->re, width, &lanes->re, rows, &products->re, 2 * apart);
}

// The twiddles W^k, W^2k, W^3k of one butterfly in all lanes, out of the staged table of a span.
struct Twiddles {
    Four w1, w2, w3;
    Twiddles(const float* table, int k) {
        const float* w = table + k / 4 * 24 + k % 4;
        w1 = spread(w);
        w2 = spread(w + 8);
        w3 = spread(w + 16);
    }
    static Four spread(const float* w) { return {_mm_set1_ps(w[0]), _mm_set1_ps(w[4])}; }
};

template <bool inverse, class Load, class Form>
inline void column_butterfly(const float* in, int quarter, const Twiddles& w, float* out,
                             int stride) {
    const auto multiplied = [&](int i) {
        const Four x = held(Load::load(in + i * quarter));
        return i == 0 ? x : times<inverse>(x, i == 1 ? w.w2 : i == 2 ? w.w1 : w.w3);
    };
    butterfly<inverse>(multiplied, [=](int i, Four x) { Form::store(out + i * stride, x); });
}

constexpr int section(int span) { // floats of the staged table for the pass of a span
    return span / 16 * 24;
}

// The passes between the first and the last; the table of the last.
template <bool inverse>
const float* middle_passes(float* lanes, int rows, int first, const float* table) {
    for (int span = first; span < rows; span *= 4) {
        const int quarter = span / 4 * kRow;
        for (int k = 0; k < span / 4; ++k) {
            const Twiddles w(table, k);
            for (float *x = lanes + k * kRow, *end = lanes + kGroups * rows * kRow; x < end;
                 x += span * kRow)
                column_butterfly<inverse, Lanes, Lanes>(x, quarter, w, x, quarter);
        }
        table += section(span);
    }
    return table;
}

// The last pass, back into the rows. Flattened: as a call the butterfly passes its twiddles by memory.
template <bool inverse, class Form>
[[gnu::flatten]] void split_lanes(const float* lanes, int rows, float* row, int width,
                                  const float* table) {
    const int stride = 2 * width, quarter = rows / 4;
    for (int k = 0; k < quarter; ++k, row += stride, lanes += kRow) {
        const Twiddles w(table, k);
        for (int g = 0; g < kGroups; ++g)
            column_butterfly<inverse, Lanes, Form>(lanes + g * rows * kRow, quarter * kRow, w,
                                                   row + g * kRow, quarter * stride);
    }
}

template <bool inverse>
void split_to_rows(const float* lanes, int rows, float* row, int width, const float* table,
                   int interleave) {
    if (interleave)
        split_lanes<inverse, Interleaved>(lanes, rows, row, width, table);
    else if (aligned(row))
        split_lanes<inverse, Lanes>(lanes, rows, row, width, table);
    else
        split_lanes<inverse, LanesAnywhere>(lanes, rows, row, width, table);
}

// A radix-4 pass of `span` over all columns, in the rows themselves.
template <bool inverse, class Load, class Form>
void row_pass(float* data, int rows, int width, int span, const float* table) {
    const int stride = 2 * width, quarter = span / 4 * stride;
    for (int k = 0; k < span / 4; ++k) {
        const Twiddles w(table, k);
        for (int i = k; i < rows; i += span) {
            float* const row = data + i * stride;
            for (float* x = row; x < row + stride; x += 8)
                column_butterfly<inverse, Load, Form>(x, quarter, w, x, quarter);
        }
    }
}

template <bool inverse>
void row_passes(float* data, int rows, int width, int span, const float* table, int interleave) {
    for (; span <= rows; span *= 4) {
        const bool last = span == rows && interleave;
        if (aligned(data))
            last ? row_pass<inverse, Lanes, Interleaved>(data, rows, width, span, table)
                 : row_pass<inverse, Lanes, Lanes>(data, rows, width, span, table);
        else
            last ? row_pass<inverse, LanesAnywhere, Interleaved>(data, rows, width, span, table)
                 : row_pass<inverse, LanesAnywhere, LanesAnywhere>(data, rows, width, span, table);
        table += section(span);
    }
}

// Rows of one block: their lines, which share few sets of the caches because the rows lie a power of two
// apart, stay in the second level until they are written, and eight columns of them fit the buffer of
// `floats`, which has room for four whole columns.
int block_rows(int s, int floats) {
    int rows = s % 2 ? 32 : 64;
    while (rows > 1 << s || kGroups * rows * kRow > floats) rows /= 4;
    return rows;
}

// Columns of 2^s rows of 2^r points: blocks of rows through the buffer, then the passes of longer span
// over whole rows.
template <bool inverse>
void columns(C* data, int s, int r, const C* kernel_table, const C* products, int interleave,
             C* lanes, int floats) {
    const int rows = 1 << s, width = 1 << r, first = 16 << s % 2;
    const int block = block_rows(s, floats);
    const float* table = &kernel_table->re;
    const float* last_table = table;
    for (int row = 0; row < rows; row += block) {
        C* x = data + row * width;
        const C* product = products + 4 * row;
        for (int c = 0; c < width; c += 4 * kGroups, product += 4 * kGroups * rows) {
            merge_columns<inverse>(x + c, width, lanes, block, product, 4 * rows);
            last_table = middle_passes<inverse>(&lanes->re, block, first, table);
            split_to_rows<inverse>(&lanes->re, block, &x[c].re, width, last_table,
                                   interleave && block == rows);
        }
    }
    row_passes<inverse>(&data->re, rows, width, 4 * block, last_table + section(block), interleave);
}

template <bool inverse>
void blocks(const Object& object, C* data, int m, int level, void* buffer) {
    const int s = split<float>(m), r = m - s;
    for (C* row = data; row < data + (1 << m); row += 1 << r) {
        if (r <= kLeafOrder)
            leaf<inverse>(object, row, 1 << r, buffer);
        else if (split<float>(r))
            blocks<inverse>(object, row, r, level + 1, buffer);
        else
            halves<inverse>(object, row, 1 << r, object.tabTwdL2, 0, buffer);
    }
    columns<inverse>(data, s, r, object.tabTwdBlk[level], object.tabMulBlk[level], level == 0,
                     static_cast<C*>(buffer), object.bufSize / static_cast<int>(sizeof(float)));
}

template <bool inverse>
void large(const Object& object, C* data, int order, void* buffer) {
    if (split<float>(order))
        blocks<inverse>(object, data, order, 0, buffer);
    else
        halves<inverse>(object, data, 1 << order, object.tabTwdL2, 1, buffer);
}

} // namespace
} // namespace vor::fft

#define RADIX2(name, inverse)                                                                      \
    extern "C" void name(VOR_SCOMPLEX* data, int n, const VOR_SCOMPLEX* table, int interleave) {   \
        vor::fft::radix2<inverse>(data, n, table, interleave);                                     \
    }
RADIX2(tavs_cFftFwd_Step_R2_32fc, false)
RADIX2(tavs_cFftInv_Step_R2_32fc, true)

#define LARGE(name, inverse)                                                                       \
    extern "C" void name(const FftCtx* object, VOR_SCOMPLEX* data, int order, void* buffer) {      \
        using namespace vor::fft;                                                                  \
        large<inverse>(context_of<float>(object), data, order, buffer);                            \
    }
LARGE(tavs_cFftFwd_Large_32fc, false)
LARGE(tavs_cFftInv_Large_32fc, true)

extern "C" void tavs_cFftBlkMergeMpy_32fc(const VOR_SCOMPLEX* row, int width, VOR_SCOMPLEX* lanes,
                                          int rows, const VOR_SCOMPLEX* products, int apart,
                                          int forward) {
    using namespace vor::fft;
    (forward ? merge_columns<false> : merge_columns<true>)(row, width, lanes, rows, products,
                                                           apart);
}

extern "C" void tavs_cFftBlkSplit_32fc(const VOR_SCOMPLEX* lanes, int rows, VOR_SCOMPLEX* row,
                                       int width, const VOR_SCOMPLEX* table, int forward,
                                       int interleave) {
    using namespace vor::fft;
    (forward ? split_to_rows<false> : split_to_rows<true>)(&lanes->re, rows, &row->re, width,
                                                           &table->re, interleave);
}
