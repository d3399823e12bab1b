// vor: what the library is and does on this machine. Exit status: 0 done, 1 failed, with one line on
// stderr, 2 wrong command line.
#include "tools/commands.h"

#include <cstdio>

int main(int argc, char** argv) {
    using namespace vor::tool;
    CLI::App app("Orbel Numeric Library: information, tour, benches", "vor");
    app.require_subcommand(1);
    add_info(app);
    add_tour(app);
    add_bench(app);
    add_spectrum(app);
    add_solve(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& e) {
        return app.exit(e) == 0 ? 0 : 2;
    } catch (const std::exception& e) {
        std::fflush(stdout);
        std::fprintf(stderr, "vor: %s\n", e.what());
        return 1;
    }
    return 0;
}
