// Pictures: a gnuplot script is collected and run.
#pragma once

#include <string>

namespace vor::tool {

// Runs `script`, whose plots go to the SVG file `output` of the given size. Throws Failure if gnuplot
// is not there or refuses, or the file cannot be written.
void run_gnuplot(const std::string& script, const std::string& output, int width, int height);

// In quotes, for gnuplot: nothing in the text is taken as markup.
std::string gnuplot_text(const std::string& text);

} // namespace vor::tool
