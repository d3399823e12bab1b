// Transforms of one vector with the tables of a filled wsave.
#pragma once

#include "dft/radix/engine.h"
#include "serv/team.h"

namespace vor::dfti::onecall {

using radix::Pairs;
using radix::Split;
using radix::Team;

inline int order_of(int n) {
    return 31 - __builtin_clz(static_cast<unsigned>(n));
}

// Complex data of 2^k points, k at least 1. Not forward: divided by n.
template <class Form>
void transform(Form x, int k, int isign, const typename Form::Real* wsave, Team team = {}) {
    using R = typename Form::Real;
    const radix::Tables<R> tables{radix::data_of(wsave), k};
    const auto order = isign == -2 || isign == 2 ? radix::Order::reversed : radix::Order::natural;
    if (isign < 1) return radix::forward(x, tables, order, team);
    radix::backward(x, tables, order, static_cast<R>(1.0f / static_cast<float>(1 << k)), team);
}

} // namespace vor::dfti::onecall
