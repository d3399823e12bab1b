// Tables of an FFT object of N = 2^n points with a complex engine of order m (n, or n - 1 for a real
// kind). W is exp(-2 pi i / (points of the table)).
//
// base, for the time of the build   sin(2 pi k / N), k = 0 .. N/4
// radix-4 table, 64 bits            W^k, W^2k, W^3k side by side, k = 0 .. M/4
// staged table, 32 bits             the same for each pass of the kernel, as register images of four
//                                   lanes: four real parts, four imaginary parts
// radix-2 table                     W^k of the first quarter circle; 32 bits: for each stage
// product table of a block level    W^(reverse(i) c) for row i and column c, four columns at a time
#include "signal/fft/tables.h"

#include <limits.h>
#include <math.h>
#include <stdint.h>

namespace vor::fft {
namespace {

template <class R>
R* allocate(uint64_t count) {
    if (count > INT_MAX / sizeof(R)) return nullptr;
    if constexpr (sizeof(R) == 4)
        return tavsMalloc_32f(static_cast<int>(count));
    else
        return tavsMalloc_64f(static_cast<int>(count));
}

constexpr double kTurn = 6.283185307179586;

// sin(2 pi k / 2^order), each value from the half of the quadrant where its function is well conditioned.
constexpr double sine_of(unsigned k, int order) {
    const unsigned quarter = 1u << order >> 2;
    const double step = kTurn / (1u << order);
    return k <= quarter / 2 ? __builtin_sin(k * step) : __builtin_cos((quarter - k) * step);
}

// The sines of small circles, which are most of the time of an object of few points, stand ready.
constexpr int kReadyOrder = 12;
struct ReadySines {
    double value[(1 << kReadyOrder >> 2) + 1] = {};
    constexpr ReadySines() {
        for (unsigned k = 0; k <= 1u << kReadyOrder >> 2; ++k) value[k] = sine_of(k, kReadyOrder);
    }
};
constexpr ReadySines kReady;

// The circle in 2^order steps.
template <class R>
class Circle {
public:
    // Takes the memory; fill() computes the sines.
    explicit Circle(int order) : order_(order), quarter_(1u << order >> 2) {
        sine_ = allocate<R>(quarter_ + 1);
    }
    void fill() {
        const int order = order_;
        for (unsigned k = 0; k <= quarter_; ++k)
            sine_[k] =
                static_cast<R>(order <= kReadyOrder ? kReady.value[k << (kReadyOrder - order)]
                                                    : sine_of(k, order));
    }
    ~Circle() { tavsFree(sine_); }
    Circle(const Circle&) = delete;
    Circle& operator=(const Circle&) = delete;

    explicit operator bool() const { return sine_; }
    unsigned quarter() const { return quarter_; }
    R sine(unsigned k) const { return sine_[k]; }

    // exp(-2 pi i exponent / 2^order); the exponent is below 2^order.
    complex_t<R> twiddle(unsigned exponent, int order) const {
        const unsigned k = exponent << (order_ - order), within = k & (quarter_ - 1);
        const R c = sine_[quarter_ - within], s = sine_[within];
        switch (k >> (order_ - 2)) {
        case 0:
            return {c, -s};
        case 1:
            return {-s, -c};
        case 2:
            return {-c, s};
        default:
            return {s, c};
        }
    }

private:
    int order_;
    unsigned quarter_;
    R* sine_;
};

// Twiddle j of a group of four as the kernels read it: 64 bits as it is, 32 bits as four real parts,
// then four imaginary parts.
inline void put(cfloat* group, unsigned j, cfloat value) {
    float* const part = &group->re;
    part[j] = value.re;
    part[j + 4] = value.im;
}
inline void put(cdouble* group, unsigned j, cdouble value) {
    group[j] = value;
}

// Places the tables of the engine one behind the other, each on a 16-byte boundary. Without a block
// it only measures them.
template <class R>
class EngineTables {
    using C = complex_t<R>;

public:
    EngineTables(Context<R>& object, const Circle<R>* circle, void* block)
        : object_(object), circle_(circle), block_(static_cast<char*>(block)) {}

    void place(int m) {
        if (m <= Traits<R>::kEngineLimit) {
            object_.tabTwd = kernel_table(m);
            object_.bufSize = sizeof(R) == 4 ? kernel_buffer(m) : 0;
            // The block of a whole transform has room for one complex value per point and one more.
            if (sizeof(R) == 8) used_ = ((1u << m) + 1) * sizeof(C);
        } else {
            place_blocks(m, 0);
        }
    }
    uint64_t bytes() const { return used_; }

private:
    void place_blocks(int m, int level) {
        constexpr int limit = Traits<R>::kEngineLimit;
        if (m <= limit) {
            object_.tabTwd = kernel_table(m);
            object_.bufSize = sizeof(R) == 4 ? kernel_buffer(m) : 0;
            return;
        }
        const int s = split<R>(m);
        if (s == 0) {
            object_.tabTwd = kernel_table(limit);
            object_.tabTwdL2 = radix2_table(m);
            object_.bufSize = sizeof(R) == 4 ? kernel_buffer(limit) : 0;
            return;
        }
        place_blocks(m - s, level + 1);
        object_.tabTwdBlk[level] = kernel_table(s);
        object_.tabMulBlk[level] = product_table(m, s);
        const int columns = 4 * static_cast<int>(sizeof(C)) << s; // four columns of the short side
        if (object_.bufSize < columns) object_.bufSize = columns;
    }

    C* take(uint64_t count) {
        C* table = block_ && count ? reinterpret_cast<C*>(block_ + used_) : nullptr;
        used_ += (count * sizeof(C) + 15) & ~uint64_t{15};
        return table;
    }

    C* kernel_table(int m) { return sizeof(R) == 4 ? staged_table(m) : radix4_table(m); }

    C* radix4_table(int m) {
        const unsigned quarter = 1u << m >> 2;
        C* table = take(3 * uint64_t{quarter + 1});
        if (!table) return nullptr;
        C* out = table;
        for (unsigned k = 0; k <= quarter; ++k)
            for (unsigned power = 1; power <= 3; ++power) *out++ = circle_->twiddle(power * k, m);
        return table;
    }

    C* staged_table(int m) {
        const int first = 4 + m % 2;
        uint64_t count = 0;
        for (int order = first; order <= m; order += 2) count += 3 * (1u << order >> 2);
        C* table = take(count);
        if (!table) return nullptr;
        C* out = table;
        for (int order = first; order <= m; order += 2)
            for (unsigned k = 0; k < 1u << order >> 2; k += 4)
                for (unsigned power = 1; power <= 3; ++power) out = run(out, k, power, order);
        return table;
    }

    C* radix2_table(int m) {
        const int last = sizeof(R) == 4 ? Traits<R>::kEngineLimit + 1 : m;
        uint64_t count = 0;
        for (int order = m; order >= last; --order) count += 1u << order >> 2;
        C* table = take(count);
        if (!table) return nullptr;
        C* out = table;
        for (int order = m; order >= last; --order)
            for (unsigned k = 0; k < 1u << order >> 2; k += 4) out = run(out, k, 1, order);
        return table;
    }

    // W^(power (k + j)), j from 0 to 3.
    C* run(C* out, unsigned k, unsigned power, int order) {
        for (unsigned j = 0; j < 4; ++j) put(out, j, circle_->twiddle(power * (k + j), order));
        return out + 4;
    }

    C* product_table(int m, int s) {
        C* table = take(uint64_t{1} << m);
        if (!table) return nullptr;
        C* out = table;
        for (unsigned column = 0; column < 1u << (m - s); column += 4)
            for (unsigned row = 0; row < 1u << s; ++row) {
                const unsigned offset = reverse_bits(row, s);
                for (unsigned j = 0; j < 4; ++j)
                    put(out, j, circle_->twiddle(offset * (column + j), m));
                out += 4;
            }
        return table;
    }

    Context<R>& object_;
    const Circle<R>* circle_;
    char* block_;
    uint64_t used_ = 0;
};

// Word k is twice the reverse of k: the offset in reals of the input of the k-th group of four.
void fill_read_form(unsigned* table, int m) {
    const unsigned q = 1u << m >> 2;
    for (unsigned k = 0; k < q; ++k) table[k] = 2 * reverse_bits(k, m - 2);
    table[q] = 0;
}

// The middle bits i and j = reverse(i) of all pairs to be exchanged, i below j, as 4i, 4j; zero; then
// 4i of those that are their own reverse, downwards, i = 0 left out; zero.
void fill_swap_form(unsigned* table, int m) {
    const unsigned q = 1u << m >> 2;
    unsigned* out = table;
    for (unsigned i = 0; i < q; ++i) {
        const unsigned j = reverse_bits(i, m - 2);
        if (i >= j) continue;
        *out++ = 4 * i;
        *out++ = 4 * j;
    }
    *out++ = 0;
    for (unsigned i = q - 1; i > 0; --i)
        if (i == reverse_bits(i, m - 2)) *out++ = 4 * i;
    table[q] = 0;
}

template <class R>
bool build_bit_reversal(Context<R>& object, int m) {
    const uint64_t words = (1u << m >> 2) + 1;
    auto* table = static_cast<unsigned*>(tavsMalloc_8u(static_cast<int>(words * sizeof(unsigned))));
    object.tabBitRev = table;
    if (!table) return false;
    if (m <= Traits<R>::kReadFormLimit)
        fill_read_form(table, m);
    else
        fill_swap_form(table, m);
    return true;
}

template <class R>
complex_t<R>* recombination_table(unsigned quarter) {
    return reinterpret_cast<complex_t<R>*>(allocate<R>(2 * uint64_t{quarter}));
}

template <class R>
void fill_recombination(Context<R>& object, const Circle<R>& circle) {
    const unsigned quarter = circle.quarter();
    const R half = static_cast<R>(0.5);
    for (unsigned k = 0; k < quarter; ++k) {
        const R c = circle.sine(quarter - k), s = circle.sine(k);
        object.tabRealRec[k] = {half * c, half - half * s};
        object.tabCcsRec[k] = {c, -s};
    }
}

} // namespace

template <class R>
bool build_tables(Context<R>& object, int m, bool real) {
    constexpr uint64_t kLargestBlock = INT_MAX - 64; // what tavsMalloc_8u can be asked for
    EngineTables<R> measure(object, nullptr, nullptr);
    measure.place(m);
    if (measure.bytes() > kLargestBlock) return false;
    // All memory is taken before the time goes into the sines. The engine's block belongs to the object
    // from the first table in it on.
    Circle<R> circle(object.order);
    if (real) {
        object.tabRealRec = recombination_table<R>(circle.quarter());
        object.tabCcsRec = recombination_table<R>(circle.quarter());
        if (!object.tabRealRec || !object.tabCcsRec) return false;
    }
    if (!circle || !build_bit_reversal(object, m)) return false;
    void* const block = tavsMalloc_8u(static_cast<int>(measure.bytes()));
    if (!block && measure.bytes() > 0) return false;
    circle.fill();
    EngineTables<R>(object, &circle, block).place(m);
    if (real) fill_recombination(object, circle);
    return true;
}

template bool build_tables(Context<float>&, int, bool);
template bool build_tables(Context<double>&, int, bool);

} // namespace vor::fft
