// What `vor bench` shows of its measurements: lines on stdout, CSV, a picture.
#pragma once

#include "bench/common/runner.h"

#include <string>
#include <vector>

namespace vor::tool {

void print_heading();
void print_row(const bench::Measurement& m);
// How many goals were met and missed; nothing if none was set.
void print_summary(const std::vector<bench::Measurement>& all);

// The heading; then, as the measurements come, one row for each case and one for each of its ratios. Both
// throw Failure if the file cannot be written.
void begin_csv(const std::string& file);
void append_csv(const std::string& file, const bench::Measurement& m);

// Shares and ratios by case; rates or times over n, beside those of the rivals, where names have a
// part "n=". Throws Failure.
void write_plot(const std::string& file, const std::vector<bench::Measurement>& all);

} // namespace vor::tool
