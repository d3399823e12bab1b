// Passes: the butterflies of one stage, or of two stages at once, over a block.
//
// Reading and writing forms may differ; they are views of the same memory.
#pragma once

#include "dft/radix/butterfly.h"
#include "dft/radix/coefficients.h"
#include "dft/radix/kernel/butterfly_64.h"
#include "dft/radix/kernel/data.h"
#include "serv/bits.h"

namespace vor::dfti::radix {

// ---- Runs of neighbouring butterflies; twiddles(j) are those of element j.

template <bool first, Direction D, class In, class Out, class Twiddles>
inline void run2(In x, Out y, int half, Twiddles twiddles) {
    for (int j = 0; j < half; j += In::kStep)
        butterfly2<first, D>(
            twiddles(j), [=](int i) { return x.load(j + i * half); },
            [=](int i, auto v) { y.store(j + i * half, v); });
}

// One triple of twiddles of double precision for all of them, in memory.
struct OneTriple {
    const double* p;

    template <int i>
    cdouble get() const {
        return {p[2 * i - 2], p[2 * i - 1]};
    }
};

template <bool first, Direction D, class In, class Out, class Twiddles>
inline void run4(In x, Out y, int quarter, Twiddles twiddles) {
    using W = decltype(twiddles(0));
    if constexpr (std::is_same_v<W, OneTriple> && std::is_same_v<In, Out>)
        return run_by_hand<D>(x, quarter, twiddles(0).p);
    for (int j = 0; j < quarter; j += In::kStep)
        butterfly4<first, D>(
            twiddles(j), [=](int i) { return x.load(j + i * quarter); },
            [=](int i, auto v) { y.store(j + i * quarter, v); });
}

// ---- Where twiddles come from. A source tells, for a block of a stage of some span, the twiddles of the
// butterflies of two (`single`) and of four elements (`pair`, for this stage and the next).

// Twisted: the table and the position of the first block.
template <class R>
struct Twisted {
    static constexpr auto kKind = Twiddling::twisted;
    const R* table;
    int position;

    // Block i of a stage with `count` blocks. Twiddle p of it for a portion of numbers N.
    template <class N>
    N twiddle(int b, int p) const {
        const R* const w = table + twisted_place<R>(b, p);
        if constexpr (std::is_same_v<N, Four>)
            return {_mm_set1_ps(w[0]), _mm_set1_ps(w[kImaginary<R>])};
        else
            return {w[0], w[kImaginary<R>]};
    }
    template <class N>
    Triple<N> triple(int b) const {
        return {twiddle<N>(b, 0), twiddle<N>(b, 1), twiddle<N>(b, 2)};
    }
    template <class N, class Run>
    void single(int, int count, int i, Run run) const {
        const int b = position * count + i;
        if (b == 0) return run([](int) { return One{}; });
        run([w = twiddle<N>(b, 1)](int) { return w; });
    }
    template <class N, class Run>
    void pair(int, int count, int i, Run run) const {
        const int b = position * count + i;
        if (b == 0) return run([](int) { return One{}; });
        if constexpr (kSingle<R>)
            run([w = triple<N>(b)](int) { return w; });
        else
            run([w = OneTriple{table + twisted_place<R>(b, 0)}](int) { return w; });
    }
};

// The same for up to eight points, which know no other twiddles than those of an eighth: c is cos(pi/4).
template <class R>
struct Eighths {
    static constexpr auto kKind = Twiddling::twisted;
    R c;

    template <class N, class Run>
    void single(int, int, int, Run run) const {
        run([](int) { return One{}; });
    }
    template <class N, class Run>
    void pair(int, int, int i, Run run) const {
        if (i == 0) return run([](int) { return One{}; });
        run([w = Triple<N>{{c, -c}, {0, -1}, {-c, -c}}](int) { return w; });
    }
};

// Plain, the constant tables of short transforms: a record of W^k, W^2k, W^3k, of which elements 1 and 2 take the
// second and the first.
using StagedTriple = Stored<1, 0>;
struct Staged {
    static constexpr auto kKind = Twiddling::plain;

    template <class N, class Run>
    void single(int span, int, int, Run run) const {
        const float* const w = section(span);
        run([=](int j) {
            const Four v = Lanes::load(w + 6 * (j < span / 4 ? j : j - span / 4));
            return j < span / 4 ? v : Four{v.im, negated(v.re)};
        });
    }
    template <class N, class Run>
    void pair(int span, int, int, Run run) const {
        const float* const w = section(span);
        run([=](int j) { return StagedTriple{w + 6 * j}; });
    }

private:
    static const float* section(int span) {
        return program_staged(trailing_zeros(static_cast<unsigned>(span)));
    }
    static __m128 negated(__m128 x) { return _mm_xor_ps(x, _mm_set1_ps(-0.0f)); }
};

// Plain, the sections of an area of n points.
struct SectionTriple {
    const float *w1, *w2;

    template <int i>
    Four get() const {
        if constexpr (i == 3) return get<1>() * get<2>();
        return Lanes::load(i == 1 ? w1 : w2);
    }
};
struct Sections {
    static constexpr auto kKind = Twiddling::plain;
    const float* data;
    int n;

    template <class N, class Run>
    void single(int span, int, int, Run run) const {
        run([w = section(span)](int j) { return Lanes::load(w + 2 * j); });
    }
    template <class N, class Run>
    void pair(int span, int, int, Run run) const {
        run([w = section(span), next = section(span / 2)](int j) {
            return SectionTriple{next + 2 * j, w + 2 * j};
        });
    }

private:
    const float* section(int span) const { return data + 2 * (n - span); }
};

// `stages` stages of a block of n points: forward down, beginning with a single stage if their number is odd,
// two at a time from there on; inverse the mirror image. The first pass reads `x`, the last one writes `y`,
// and what is between stands in `between`.
template <Direction D, class In, class Between, class Out, class Source>
void run_stages(In x, Between between, Out y, int n, int stages, Source source) {
    constexpr bool forward = D == Direction::forward, first = kFirst<Source::kKind, D>;
    const int odd = stages % 2;
    // The pass that has `above` stages above it.
    const auto pass = [&](auto from, auto to, int above, bool single) {
        using N = typename decltype(from)::Number;
        const int count = 1 << above, span = n >> above;
        for (int i = 0; i < count; ++i) {
            const auto p = from.from(i * span);
            const auto q = to.from(i * span);
            if (single)
                source.template single<N>(span, count, i,
                                          [&](auto w) { run2<first, D>(p, q, span / 2, w); });
            else
                source.template pair<N>(span, count, i,
                                        [&](auto w) { run4<first, D>(p, q, span / 4, w); });
        }
    };
    const auto formed = [&](int above, bool single) {
        const bool top = above == 0 && single == (odd != 0);
        const bool bottom = above + (single ? 1 : 2) == stages;
        const bool reads = forward ? top : bottom, writes = forward ? bottom : top;
        if (reads && writes) return pass(x, y, above, single);
        if (reads) return pass(x, between, above, single);
        if (writes) return pass(between, y, above, single);
        pass(between, between, above, single);
    };
    if (forward && odd) formed(0, true);
    for (int i = odd; i < stages; i += 2) formed(forward ? i : stages - 2 - (i - odd), false);
    if (!forward && odd) formed(0, true);
}

} // namespace vor::dfti::radix
