// 32-bit transforms above the kernel's limit, in place on bit-reversed data: the plan of the 64-bit
// ones, with the rows in four-lane form from the leaf to the end of the last step, which writes
// interleaved data.
//
// Orders without a split halve the data down to kernels of 1024 points; radix-2 steps join the halves.
#include "signal/fft/large_32.h"
#include "signal/fft/kernels.h"
#include "signal/fft/lanes.h"

namespace {

using namespace vor::fft;
using C = vor::cfloat;

constexpr int kLeafOrder = Traits<float>::kEngineLimit;
constexpr int kLeaf = 1 << kLeafOrder;

struct AnyLoad {
    static Four load(const float* p) { return load_lanes_anywhere(p); }
};
struct AlignedLoad {
    static Four load(const float* p) { return load_lanes(p); }
};

template <bool inverse>
void kernel(C* data, int n, const void* table, void* buffer) {
    (inverse ? tavs_cRadix4Inv_32fc : tavs_cRadix4Fwd_32fc)(data, n, static_cast<const C*>(table),
                                                            buffer, 0);
}

template <bool inverse>
void leaf(const FftCtx& object, C* data, int n, void* buffer) {
    kernel<inverse>(data, n, object.tabTwd, buffer);
    if (inverse ? object.doScaleInv : object.doScaleFwd)
        tavs_rbMpy1_32f(object.normFactor.single, &data->re, 2 * n);
}

// ---- The radix-2 step: x[j], x[N/2+j] := x[j] +- W^j x[N/2+j], with W^(j+N/4) = -i W^j.

template <bool inverse, class Load, class Form>
void radix2_step(float* data, int n, const float* w) {
    const int half = n, quarter = n / 2; // floats
    for (float *x = data, *end = data + quarter; x < end; x += 8, w += 8) {
        const Four twiddle = load_lanes(w);
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
        interleave ? radix2_step<inverse, AlignedLoad, Interleaved>(x, n, w)
                   : radix2_step<inverse, AlignedLoad, Lanes>(x, n, w);
    else
        interleave ? radix2_step<inverse, AnyLoad, Interleaved>(x, n, w)
                   : radix2_step<inverse, AnyLoad, LanesAnywhere>(x, n, w);
}

template <bool inverse>
void step(C* data, int n, const C* table, int interleave) {
    (inverse ? tavs_cFftInv_Step_R2_32fc : tavs_cFftFwd_Step_R2_32fc)(data, n, table, interleave);
}

// Transform of n points, 2048 and up, by halves. The table begins with the section of n points.
template <bool inverse>
void halves(const FftCtx& object, C* data, int n, const C* table, int interleave, void* buffer) {
    const int half = n / 2;
    for (C* part = data; part < data + n; part += half) {
        if (half == kLeaf)
            leaf<inverse>(object, part, half, buffer);
        else
            halves<inverse>(object, part, half, table + n / 4, 0, buffer);
    }
    step<inverse>(data, n, table, interleave);
}

// ---- Columns of a block level

// Row i of four columns times its products, interleaved, to element i of four lanes.
template <bool inverse, class Load>
void merge(const float* row, int width, float* lanes, int rows, const float* products) {
    const auto low = [](float* p, __m128 x) { _mm_storel_pi(reinterpret_cast<__m64*>(p), x); };
    const auto high = [](float* p, __m128 x) { _mm_storeh_pi(reinterpret_cast<__m64*>(p), x); };
    for (int i = 0; i < rows; ++i, row += 2 * width, lanes += 2, products += 8) {
        const Four x = times<inverse>(Load::load(row), load_lanes(products));
        const __m128 first = _mm_unpacklo_ps(x.re, x.im), second = _mm_unpackhi_ps(x.re, x.im);
        low(lanes, first);
        high(lanes + 2 * rows, first);
        low(lanes + 4 * rows, second);
        high(lanes + 6 * rows, second);
    }
}

// Element i of four lanes in four-lane form back to row i.
template <class Form>
void split_lanes(const float* lanes, int rows, float* row, int width) {
    for (int i = 0; i < rows; i += 4, lanes += 8) {
        Four a = load_lanes(lanes), b = load_lanes(lanes + 2 * rows),
             c = load_lanes(lanes + 4 * rows), d = load_lanes(lanes + 6 * rows);
        transpose(a, b, c, d);
        Form::store(row, a);
        Form::store(row + 2 * width, b);
        Form::store(row + 4 * width, c);
        Form::store(row + 6 * width, d);
        row += 8 * width;
    }
}

template <bool inverse>
void columns(C* data, int s, int r, const void* kernel_table, const C* products, int interleave,
             C* lanes) {
    const int rows = 1 << s, width = 1 << r;
    for (int c = 0; c < width; c += 4, products += 4 * rows) {
        tavs_cFftBlkMergeMpy_32fc(data + c, width, lanes, rows, products, !inverse);
        for (int t = 0; t < 4; ++t) kernel<inverse>(lanes + t * rows, rows, kernel_table, nullptr);
        tavs_cFftBlkSplit_32fc(lanes, rows, data + c, width, interleave);
    }
}

template <bool inverse>
void blocks(const FftCtx& object, C* data, int m, int level, void* buffer) {
    const int s = split<float>(m), r = m - s;
    for (C* row = data; row < data + (1 << m); row += 1 << r) {
        if (r <= kLeafOrder)
            leaf<inverse>(object, row, 1 << r, buffer);
        else if (split<float>(r))
            blocks<inverse>(object, row, r, level + 1, buffer);
        else
            halves<inverse>(object, row, 1 << r, static_cast<const C*>(object.tabTwdL2), 0, buffer);
    }
    columns<inverse>(data, s, r, object.tabTwdBlk[level],
                     static_cast<const C*>(object.tabMulBlk[level]), level == 0,
                     static_cast<C*>(buffer));
}

template <bool inverse>
void large(const FftCtx& object, C* data, int order, void* buffer) {
    if (split<float>(order))
        blocks<inverse>(object, data, order, 0, buffer);
    else
        halves<inverse>(object, data, 1 << order, static_cast<const C*>(object.tabTwdL2), 1,
                        buffer);
}

} // namespace

extern "C" {

void tavs_cFftFwd_Step_R2_32fc(C* data, int n, const C* table, int interleave) {
    radix2<false>(data, n, table, interleave);
}
void tavs_cFftInv_Step_R2_32fc(C* data, int n, const C* table, int interleave) {
    radix2<true>(data, n, table, interleave);
}

void tavs_cFftBlkMergeMpy_32fc(const C* row, int width, C* lanes, int rows, const C* products,
                               int forward) {
    const float *x = &row->re, *w = &products->re;
    float* out = &lanes->re;
    if (aligned(x))
        forward ? merge<false, AlignedLoad>(x, width, out, rows, w)
                : merge<true, AlignedLoad>(x, width, out, rows, w);
    else
        forward ? merge<false, AnyLoad>(x, width, out, rows, w)
                : merge<true, AnyLoad>(x, width, out, rows, w);
}

void tavs_cFftBlkSplit_32fc(const C* lanes, int rows, C* row, int width, int interleave) {
    float* out = &row->re;
    if (interleave)
        split_lanes<Interleaved>(&lanes->re, rows, out, width);
    else if (aligned(out))
        split_lanes<Lanes>(&lanes->re, rows, out, width);
    else
        split_lanes<LanesAnywhere>(&lanes->re, rows, out, width);
}

void tavs_cFftFwd_Large_32fc(const FftCtx* object, C* data, int order, void* buffer) {
    large<false>(*object, data, order, buffer);
}
void tavs_cFftInv_Large_32fc(const FftCtx* object, C* data, int order, void* buffer) {
    large<true>(*object, data, order, buffer);
}

} // extern "C"
