// Pictures: a gnuplot script is collected and run.
#pragma once

#include "tools/failure.h"

#include <string>

namespace vor::tool {

struct GnuplotMissing : Failure {
    using Failure::Failure;
};

// Throws GnuplotMissing if there is no gnuplot: to be asked before the work whose result it shall draw.
void require_gnuplot();

// Runs `script`, whose plots go to the SVG file `output` of the given size. Throws Failure if the file
// cannot be written or gnuplot refuses, GnuplotMissing if it is not there; `output` is as it was then.
void run_gnuplot(const std::string& script, const std::string& output, int width, int height);

// In quotes, for gnuplot: nothing in the text is taken as markup.
std::string gnuplot_text(const std::string& text);

} // namespace vor::tool
