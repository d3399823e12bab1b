// A transform with its bit reversal and scale, on one thread or by a team: 2^cut parts, each of them a part of
// the plan. The top stages, which belong to all parts, and the bit reversal run on the calling thread.
#pragma once

#include "dft/radix/bit_reverse.h"
#include "dft/radix/plan.h"
#include "serv/team.h"

namespace vor::dfti::radix {

// A thread for each of 2^cut parts.
struct Team {
    int cut = 0;
};
// As many parts as there are threads for, none of them below 2^least points.
inline Team team_of(int threads, int order, int least) {
    int cut = 0;
    while (threads >> (cut + 1) && order - (cut + 1) >= least) ++cut;
    return {cut};
}

// All parts, and the stages above them, from `x` to `y`, which are views of the same memory.
template <Direction D, class In, class Out, class R>
void transform_by_parts(In x, Out y, Tables<R> tables, Team team) {
    const int k = tables.order, part = k - team.cut, size = 1 << part;
    const auto between = in_flight(x);
    const auto top = [&](auto from, auto to) {
        if constexpr (kSingle<R>) {
            if (tables.is_leaf())
                return run_stages<D>(from, between, to, 1 << k, team.cut, Staged{});
            if (tables.is_plain())
                return run_stages<D>(from, between, to, 1 << k, team.cut,
                                     Sections{tables.data, tables.n()});
        }
        run_stages<D>(from, between, to, 1 << k, team.cut, Twisted<R>{tables.twisted(), 0});
    };
    const auto parts = [&](auto from, auto to) {
        team_loop(1 << team.cut, 1 << team.cut, [&](int i) {
            transform_part<D>(from.from(i * size), to.from(i * size), part, i, tables);
        });
    };
    if constexpr (D == Direction::forward) {
        top(x, between);
        parts(between, y);
    } else {
        parts(x, between);
        top(between, y);
    }
}

template <Direction D, class Form, class Out>
void transform_unordered(Form x, Out y, Tables<typename Form::Real> tables, Team team) {
    if (tables.order <= kShortOrder)
        transform_short<D>(x, y, tables.order, tables.data);
    else if (team.cut == 0)
        transform_part<D>(x, y, tables.order, 0, tables);
    else
        transform_by_parts<D>(x, y, tables, team);
}

enum class Order { natural, reversed }; // of the spectrum

// Interleaved single precision up to this order goes through a buffer of its own, so that the sweep that reads
// or writes the spectrum puts it in order as well.
inline constexpr int kBufferedOrder = 9;

template <class Form>
constexpr bool is_buffered(Form, int) {
    return false;
}
inline bool is_buffered(Pairs<float>, int order) {
    return order > kShortOrder && order <= kBufferedOrder;
}

inline Reversed reversed(Pairs<float> x, Tables<float> tables) {
    constexpr int kListHead = 2;
    return {x.x, tables.n(), tables.list() + kListHead};
}
template <Direction D, class In, class Out>
void transform_buffered(In x, Out y, int order) {
    alignas(16) float buffer[2 << kBufferedOrder];
    leaf<D>(x, InLanes{buffer}, y, order, Staged{});
}

// `y` is x, or x scaled.
template <class Form, class Out>
void forward(Form x, Out y, Tables<typename Form::Real> tables, Order order, Team team = {}) {
    if constexpr (std::is_same_v<Form, Pairs<float>>)
        if (order == Order::natural && is_buffered(x, tables.order))
            return transform_buffered<Direction::forward>(x, reversed(x, tables), tables.order);
    transform_unordered<Direction::forward>(x, y, tables, team);
    if (order == Order::natural) reverse(x, tables.n(), tables.list());
}
template <class Form>
void forward(Form x, Tables<typename Form::Real> tables, Order order, Team team = {}) {
    forward(x, x, tables, order, team);
}
template <class Form>
void backward(Form x, Tables<typename Form::Real> tables, Order order, typename Form::Real scale,
              Team team = {}) {
    if constexpr (std::is_same_v<Form, Pairs<float>>)
        if (order == Order::natural && is_buffered(x, tables.order))
            return transform_buffered<Direction::backward>(reversed(x, tables), scaled(x, scale),
                                                           tables.order);
    if (order == Order::natural) reverse(x, tables.n(), tables.list());
    transform_unordered<Direction::backward>(x, scaled(x, scale), tables, team);
}

} // namespace vor::dfti::radix
