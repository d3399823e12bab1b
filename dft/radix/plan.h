// Transforms of 2^k points in place, without bit reversal: forward from natural to bit-reversed order,
// inverse from bit-reversed to natural order, multiplied by a scale in the last sweep.
//
//                        single precision                  double precision
//   leaf                 k up to 10                        k up to 9
//   plain                k up to 15: top stages over all,
//                        then leaves of 2^10
//   twisted              k above 15: top stages over all,  the same with groups of up to 2^13: k from 10 on
//                        then groups of 2^15, each: six
//                        stages, then leaves of 2^9
//
// A group is finished before the next is touched. The inverse is the mirror image. A part of a transform that
// has done its top stages is a transform of its own at a position: so one plan serves one thread and a team.
#pragma once

#include "dft/radix/kernel/leaf.h"

namespace vor::dfti::radix {

// A transform of 2^order points with the tables of an area's data.
template <class R>
struct Tables {
    const R* data;
    int order;

    int n() const { return 1 << order; }
    const int* list() const { return list_of(data, n()); }
    // Not more than a leaf: served by the tables of the program.
    bool is_leaf() const { return order <= kLeafOrder<R>; }
    bool is_plain() const { return kSingle<R> && order <= kGroupOrder<R>; }
    const R* twisted() const {
        if constexpr (!kSingle<R>)
            if (is_leaf()) return program_twisted();
        return data;
    }
};

// ---- Straight lines: up to eight points.

inline constexpr int kShortOrder = 3;

template <Direction D, class Form, class Out>
void transform_short(Form x, Out y, int k, const typename Form::Real* data) {
    using R = typename Form::Real;
    const R c = k == kShortOrder ? data[4] : 0;
    run_stages<D>(singly(x), singly(x), singly(y), 1 << k, k, Eighths<R>{c});
}

// ---- Blocks at a position of the twisted table.

// 2^k points, at most a group.
template <Direction D, class In, class Out, class R>
void transform_group(In x, Out y, int k, Twisted<R> at) {
    const int top = k > kGroupLeafOrder ? k - kGroupLeafOrder : 0, n = 1 << k, size = n >> top;
    const auto leaves = [&](auto from, auto to) {
        for (int i = 0; i < 1 << top; ++i) {
            const Twisted<R> block{at.table, (at.position << top) + i};
            const auto p = from.from(i * size);
            const auto q = to.from(i * size);
            if constexpr (kSingle<R>)
                if (block.position == 0) {
                    leaf<D>(p, q, k - top, Staged{});
                    continue;
                }
            leaf<D>(p, q, k - top, block);
        }
    };
    if (top == 0) return leaves(x, y);
    if constexpr (D == Direction::forward) {
        const auto between = in_flight(x);
        run_stages<D>(x, between, between, n, top, at);
        leaves(between, y);
    } else {
        const auto between = in_flight(x);
        leaves(x, between);
        run_stages<D>(between, between, y, n, top, at);
    }
}

template <Direction D, class In, class Out, class R>
void transform_twisted(In x, Out y, int k, Twisted<R> at) {
    const int top = k - kGroupOrder<R>, size = 1 << kGroupOrder<R>;
    if (top <= 0) return transform_group<D>(x, y, k, at);
    const auto groups = [&](auto from, auto to) {
        for (int i = 0; i < 1 << top; ++i)
            transform_group<D>(from.from(i * size), to.from(i * size), kGroupOrder<R>,
                               Twisted<R>{at.table, (at.position << top) + i});
    };
    const auto between = in_flight(x);
    if constexpr (D == Direction::forward) {
        run_stages<D>(x, between, between, 1 << k, top, at);
        groups(between, y);
    } else {
        groups(x, between);
        run_stages<D>(between, between, y, 1 << k, top, at);
    }
}

// ---- Plain transforms of single precision.

template <Direction D, class In, class Out>
void transform_plain(In x, Out y, int k, Sections sections) {
    constexpr int order = kLeafOrder<float>;
    const int top = k - order, size = 1 << order;
    if (top <= 0) return leaf<D>(x, y, k, Staged{});
    const auto leaves = [&](auto from, auto to) {
        for (int i = 0; i < 1 << top; ++i)
            leaf<D>(from.from(i * size), to.from(i * size), order, Staged{});
    };
    const auto between = in_flight(x);
    if constexpr (D == Direction::forward) {
        run_stages<D>(x, between, between, 1 << k, top, sections);
        leaves(between, y);
    } else {
        leaves(x, between);
        run_stages<D>(between, between, y, 1 << k, top, sections);
    }
}

// ---- Part `position` of a transform whose parts have 2^k points: all of it if k is its order.

template <Direction D, class In, class Out, class R>
void transform_part(In x, Out y, int k, int position, Tables<R> tables) {
    if constexpr (kSingle<R>)
        if (tables.is_plain())
            return transform_plain<D>(x, y, k, Sections{tables.data, tables.n()});
    transform_twisted<D>(x, y, k, Twisted<R>{tables.twisted(), position});
}

} // namespace vor::dfti::radix
