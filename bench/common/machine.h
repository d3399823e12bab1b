// The machine's own limits, measured by probes: short loops of one kind of operation on independent
// operands, in registers.
#pragma once

#include "bench/common/suite.h"

namespace vor::bench {

struct Probe {
    std::string name;
    double work; // operations, bytes or products of one call
    Call call;
};

// The probes that bound a kind of work; none for Limit::none.
std::vector<Probe> probes_of(Limit limit);

// The limit in units per second, from the rates of its probes in their order.
double limit_rate(Limit limit, const std::vector<double>& probe_rates);

// One call takes `work` processor cycles: a chain of dependent additions.
Probe clock_probe();

// "G op/s", "GB/s": the unit of a limit's rate times 1e9; empty for Limit::none.
const char* unit_of(Limit limit);
const char* name_of(Limit limit);

} // namespace vor::bench
