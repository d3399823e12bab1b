// A transform with its bit reversal and scale, on one thread or by a team: 2^cut parts, each of them a part of
// the plan. The top stages, which belong to all parts, and the bit reversal run on the calling thread.
#pragma once

#include "dft/radix/plan.h"

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

enum class Order { natural, reversed }; // of the spectrum

// For interleaved and split data of both precisions.
template <class Form>
void forward(Form x, Tables<typename Form::Real> tables, Order order, Team team = {});
template <class Form>
void backward(Form x, Tables<typename Form::Real> tables, Order order, typename Form::Real scale,
              Team team = {});
// Forward in double precision, multiplied by a scale in the last sweep.
void forward_scaled(Pairs<double> x, Tables<double> tables, Order order, double scale, Team team);

} // namespace vor::dfti::radix
