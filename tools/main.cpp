// vor: what the library is and does on this machine. Exit status: 0 done, 1 failed, with one line on
// stderr, 2 wrong command line.
#include "tools/commands.h"
#include "tools/output.h"
#include "vor_service.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

CLI::Validator vor::tool::a_number() {
    const auto fault = [](const std::string& text) {
        const bool finite = std::isfinite(std::strtod(text.c_str(), nullptr));
        return finite ? std::string() : text + " is not a number";
    };
    return {fault, "NUMBER"};
}

int main(int argc, char** argv) {
    using namespace vor::tool;
    CLI::App app("Orbel Numeric Library: information, tour, benches", "vor");
    app.require_subcommand(1);
    app.set_version_flag("--version", version_line(), "print the version of the library");
    add_info(app);
    add_tour(app);
    add_bench(app);
    add_spectrum(app);
    add_solve(app);
    try {
        try {
            app.parse(argc, argv);
        } catch (const CLI::ParseError& e) {
            if (app.exit(e) != 0) return 2;
        }
        check_standard_output();
    } catch (const std::exception& e) {
        std::fflush(stdout);
        std::fprintf(stderr, "vor: %s\n", e.what());
        return 1;
    }
    return 0;
}
