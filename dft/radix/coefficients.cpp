// Tables of the radix engine. Cosines and sines are taken in extended precision, each from the half of the
// quadrant where it is well conditioned, and rounded once.
#include "dft/radix/coefficients.h"
#include "serv/bits.h"
#include "signal/fft/tables.h"

#include <math.h>

namespace vor::dfti::radix {
namespace {

using fft::reverse_bits;

// Position b of the twiddles of 2^k points has this numerator.
constexpr int numerator(int b, int k) {
    return static_cast<int>(reverse_bits(static_cast<unsigned>(b), k - 2));
}

template <class R, class Value>
constexpr void put(R* real_part, Value w) {
    real_part[0] = static_cast<R>(w.re);
    real_part[kImaginary<R>] = static_cast<R>(w.im);
}

// ---- Constants of the program.

constexpr extended kTurn = 6.283185307179586476925286766559L;

// exp(-2 pi i m / n), m below n.
constexpr cextended root(int m, int n) {
    const int quadrant = 4 * m / n, within = m - quadrant * (n / 4);
    const extended angle = kTurn * within / n, rest = kTurn * (n / 4 - within) / n;
    const bool low = 8 * within <= n;
    const extended c = low ? __builtin_cosl(angle) : __builtin_sinl(rest);
    const extended s = low ? __builtin_sinl(angle) : __builtin_cosl(rest);
    switch (quadrant) {
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

struct Twisted {
    double word[6 << kLeafOrder<double> >> 2] = {};
    constexpr Twisted() {
        constexpr int k = kLeafOrder<double>;
        for (int b = 0; b < 1 << k >> 2; ++b)
            for (int power = 1; power <= 3; ++power)
                put(word + twisted_place<double>(b, power - 1),
                    root(power * numerator(b, k), 1 << k));
    }
};
constexpr Twisted kTwisted;

constexpr int section_words(int order) {
    return 6 << order;
}
constexpr int section_start(int order) { // the longer ones stand in front
    return section_words(kLeafOrder<float> + 1) - section_words(order + 1);
}
struct Staged {
    float word[section_start(3)] = {};
    constexpr Staged() {
        for (int order = 4; order <= kLeafOrder<float>; ++order)
            for (int k = 0; k < 1 << order >> 2; ++k)
                for (int power = 1; power <= 3; ++power)
                    put(word + section_start(order) + 24 * (k / 4) + 8 * (power - 1) + k % 4,
                        root(power * k, 1 << order));
    }
};
constexpr Staged kStaged;

// ---- Tables of an area.

// put(m, exp(-2 pi i m / n)) for m from 0 to n/4 - 1, n at least 8. The arguments add up; the step has a part
// of few bits, whose sums are exact, and a small rest.
template <class Put>
void quarter_circle(int n, Put place) {
    const extended step = 8 * atanl(1.0L) / n;
    const extended upper = static_cast<float>(step), lower = step - upper;
    extended upper_sum = 0, lower_sum = 0;
    for (int m = 0; m <= n / 8; ++m, upper_sum += upper, lower_sum += lower) {
        const extended angle = upper_sum + lower_sum, c = cosl(angle), s = sinl(angle);
        place(m, cextended{c, -s});
        if (m > 0) place(n / 4 - m, cextended{s, -c});
    }
}

template <class R>
complex_t<R> at(const R* real_part) {
    return {real_part[0], real_part[kImaginary<R>]};
}

// V of all blocks first; V^2 of block b is V of block b/2, turned by a quarter if b is odd.
template <class R>
void fill_twisted(R* table, int k) {
    const int n = 1 << k;
    quarter_circle(n, [=](int m, cextended w) {
        put(table + twisted_place<R>(numerator(m, k), 0), w); // its own inverse
    });
    for (int b = 0; b < n / 4; ++b) {
        const auto v = at(table + twisted_place<R>(b, 0));
        auto square = at(table + twisted_place<R>(b / 2, 0));
        if (b % 2) square = {square.im, -square.re};
        put(table + twisted_place<R>(b, 1), square);
        put(table + twisted_place<R>(b, 2), widen(v) * widen(square));
    }
}

void fill_sections(float* section, int k) {
    for (int n = 1 << k; n >= 1 << kLeafOrder<float>; section += n, n /= 2)
        quarter_circle(n, [=](int m, cextended w) {
            const auto place = [=](int i) { return section + 8 * (i / 4) + i % 4; };
            put(place(m), w);
            put(place(m + n / 4), cextended{w.im, -w.re});
        });
}

} // namespace

const double* program_twisted() {
    return kTwisted.word;
}
const float* program_staged(int order) {
    return kStaged.word + section_start(order);
}

template <class R>
void fill_coefficients(R* area, int k) {
    area[0] = static_cast<R>(1 << k);
    area[1] = 0;
    R* const data = data_of(area);
    if (k == 3)
        for (int i = 4; i < 8; ++i) data[i] = static_cast<R>(M_SQRT1_2l);
    if (k > (kSingle<R> ? kGroupOrder<R> : kLeafOrder<R>))
        fill_twisted(data, k);
    else if constexpr (kSingle<R>)
        if (k > kLeafOrder<R>) fill_sections(data, k);
    if (k > 4) fill_reversal(list_of(data, 1 << k), 1 << k);
}

void fill_reversal(int* list, int n) {
    const auto reverse = [](int i, int span) { // of the bits of indices below span
        return static_cast<int>(
            reverse_bits(static_cast<unsigned>(i), trailing_zeros(static_cast<unsigned>(span))));
    };
    const int rounds = n / 16;
    list[0] = 0;
    list[1] = rounds;
    for (int i = 0; i < rounds; ++i) list[2 + i] = reverse(i, n / 4);
    int* const second = list + rounds + n / 8 + 2;
    int count = 0;
    for (int i = 0; i < rounds - 1; ++i)
        if (i < reverse(i, n / 16)) second[2 + count++] = i;
    second[0] = 0;
    second[1] = count;
    int* const third = second + 2 + count;
    count = 0;
    for (int i = n / 4 * 3; i < n; ++i) {
        if (i >= reverse(i, n)) continue;
        third[2 + 2 * count] = i;
        third[3 + 2 * count++] = reverse(i, n);
    }
    third[0] = 0;
    third[1] = count;
}

template <class R>
void fill_recombination(R* area, int n) {
    const int half = n / 2;
    // In single precision the step is rounded before it is multiplied by the number of the entry.
    const R step = static_cast<R>(8 * atanl(1.0L) / half) / 2;
    for (int i = 1; i < n / 4; ++i) {
        const extended angle = static_cast<extended>(step) * i;
        area[2 * i - 2] = static_cast<R>(cosl(angle) / 2);
        area[2 * i - 1] = static_cast<R>((1 - sinl(angle)) / 2);
    }
    area[half - 1] = static_cast<R>(half);
}

template void fill_coefficients(float*, int);
template void fill_coefficients(double*, int);
template void fill_recombination(float*, int);
template void fill_recombination(double*, int);

} // namespace vor::dfti::radix
