// The transforms of the four forms.
#include "dft/radix/engine.h"
#include "dft/radix/kernel/bit_reverse.h"
#include "serv/team.h"

namespace vor::dfti::radix {
namespace {

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

// Interleaved single precision up to this order goes through a buffer of its own, so that the sweep that reads
// or writes the spectrum puts it in order as well.
constexpr int kBufferedOrder = 9;

bool is_buffered(int order) {
    return order > kShortOrder && order <= kBufferedOrder;
}

Reversed reversed(Pairs<float> x, Tables<float> tables) {
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
void forward_to(Form x, Out y, Tables<typename Form::Real> tables, Order order, Team team) {
    transform_unordered<Direction::forward>(x, y, tables, team);
    if (order == Order::natural) reverse(x, tables.n(), tables.list());
}

} // namespace

template <class Form>
void forward(Form x, Tables<typename Form::Real> tables, Order order, Team team) {
    if constexpr (std::is_same_v<Form, Pairs<float>>)
        if (order == Order::natural && is_buffered(tables.order))
            return transform_buffered<Direction::forward>(x, reversed(x, tables), tables.order);
    forward_to(x, x, tables, order, team);
}

template <class Form>
void backward(Form x, Tables<typename Form::Real> tables, Order order, typename Form::Real scale,
              Team team) {
    const auto y = scaled(x, scale);
    if constexpr (std::is_same_v<Form, Pairs<float>>)
        if (order == Order::natural && is_buffered(tables.order))
            return transform_buffered<Direction::backward>(reversed(x, tables), y, tables.order);
    if (order == Order::natural) reverse(x, tables.n(), tables.list());
    transform_unordered<Direction::backward>(x, y, tables, team);
}

void forward_scaled(Pairs<double> x, Tables<double> tables, Order order, double scale, Team team) {
    forward_to(x, scaled(x, scale), tables, order, team);
}

#define INSTANTIATE(Form, R)                                                                       \
    template void forward(Form<R>, Tables<R>, Order, Team);                                        \
    template void backward(Form<R>, Tables<R>, Order, R, Team);
INSTANTIATE(Pairs, float)
INSTANTIATE(Split, float)
INSTANTIATE(Pairs, double)
INSTANTIATE(Split, double)

} // namespace vor::dfti::radix
