// The commands of the tool. Each adds its subcommand, with its options, to the command line, and
// runs when that subcommand is chosen. A command that fails throws std::exception.
#pragma once

#include <CLI/CLI.hpp>

namespace vor::tool {

// The library's name, version and build.
std::string version_line();

// Beside a range, which lets pass what compares with nothing.
CLI::Validator a_number();

void add_info(CLI::App& app);
void add_tour(CLI::App& app);
void add_bench(CLI::App& app);
void add_spectrum(CLI::App& app);
void add_solve(CLI::App& app);

} // namespace vor::tool
