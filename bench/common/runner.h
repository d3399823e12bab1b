// Times a case, its rivals, the same symbols of another library and the limit that bounds it, all by
// turns: what the machine does to one of them in a slow moment it does to the others.
#pragma once

#include "bench/common/machine.h"
#include "bench/common/suite.h"

#include <optional>

namespace vor::bench {

struct Effort {
    int rounds = 200;     // at most; every round times each contestant once
    double seconds = 0.5; // for the rounds of one case, at most; three rounds are always run
};

// How much slower something else was.
struct Ratio {
    std::string name;
    double seconds;    // for one call
    double ratio;      // to the case's own time: above 1 the case is the faster
    double goal;       // the least ratio aimed at; 0: none
    double most_extra; // the most by which the case may take longer, in seconds; 0: none
};

struct Measurement {
    std::string name, formula;
    double work;
    Limit limit;
    double seconds;    // for one call, the least that was seen
    double limit_rate; // measured in the same rounds; 0 without a limit
    double share;      // of the limit; 0 without a limit
    double goal;       // the least share aimed at; 0: none
    double most_seconds;
    std::vector<Ratio> ratios;
};

// Nothing if `own` lacks the case's symbols. `peer` may be null.
std::optional<Measurement> measure(const Case& c, const Library& own, const Library* peer,
                                   const Effort& effort);

// The rate of each probe, measured by turns.
std::vector<double> measure_rates(const std::vector<Probe>& probes, const Effort& effort);

} // namespace vor::bench
