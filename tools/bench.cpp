// vor bench: the machine's limits, then the operations as shares of them, beside their rivals.
#include "bench/common/runner.h"
#include "tools/bench_report.h"
#include "tools/commands.h"
#include "tools/failure.h"
#include "tools/gnuplot.h"
#include "tools/output.h"

#include <cstdio>
#include <memory>
#include <regex>
#include <sys/stat.h>

namespace vor::tool {

namespace {

using namespace bench;

struct Options {
    std::string filter, against, csv, plot;
    bool list = false;
    Effort effort;
};

Suite chosen_cases(const std::string& filter) {
    Suite cases = all_cases();
    try {
        const std::regex wanted(filter);
        std::erase_if(cases, [&](const Case& c) { return !std::regex_search(c.name, wanted); });
    } catch (const std::regex_error&) {
        throw Failure("--filter: not a regular expression: " + filter);
    }
    if (cases.empty()) throw Failure("--filter: no case matches " + filter);
    return cases;
}

void print_machine(const Effort& effort) {
    const Probe clock = clock_probe();
    std::printf("%-46s %8.2f GHz\n", clock.name.c_str(), measure_rates({clock}, effort)[0] * 1e-9);
    for (const Limit limit : {Limit::x87, Limit::vector, Limit::copy, Limit::product32}) {
        const std::vector<Probe> probes = probes_of(limit);
        const std::vector<double> rates = measure_rates(probes, effort);
        for (size_t i = 0; i < probes.size(); ++i)
            std::printf("%-46s %8.2f G/s\n", probes[i].name.c_str(), rates[i] * 1e-9);
        std::printf("  limit %-38s %8.2f %s\n", name_of(limit), limit_rate(limit, rates) * 1e-9,
                    unit_of(limit));
    }
    std::printf("\n");
}

void list(const Suite& cases) {
    for (const Case& c : cases) std::printf("%-32s %s\n", c.name.c_str(), c.formula.c_str());
}

// Said before the measurements, not after them.
void require_writable(const std::string& file) {
    if (file.empty()) return;
    struct stat status;
    const bool existed = stat(file.c_str(), &status) == 0;
    std::FILE* out = std::fopen(file.c_str(), "a");
    if (!out) throw Failure(file + ": cannot be written");
    std::fclose(out);
    if (!existed) std::remove(file.c_str());
}

void run(const Options& options) {
    const Suite cases = chosen_cases(options.filter);
    if (options.list) return list(cases);
    for (const std::string& file : {options.csv, options.plot}) require_writable(file);
    if (!options.plot.empty()) require_gnuplot();
    if (!options.csv.empty()) begin_csv(options.csv);
    const Library own = own_library();
    std::unique_ptr<const Library> peer;
    if (!options.against.empty()) peer = std::make_unique<Library>(other_library(options.against));

    print_machine(options.effort);
    print_heading();
    StatusLine progress;
    std::vector<Measurement> all;
    for (size_t k = 0; k < cases.size(); ++k) {
        const Case& c = cases[k];
        progress.show("[" + std::to_string(k + 1) + "/" + std::to_string(cases.size()) + "] " +
                      c.name);
        const std::optional<Measurement> m = measure(c, own, peer.get(), options.effort);
        progress.clear();
        if (!m) {
            std::printf("%-32s not in the library\n", c.name.c_str());
            continue;
        }
        print_row(*m);
        if (!options.csv.empty()) append_csv(options.csv, *m);
        all.push_back(*m);
    }
    print_summary(all);
    if (!options.plot.empty()) write_plot(options.plot, all);
    if (all.size() < cases.size())
        throw Failure("cases are missing: the library lacks their symbols");
}

} // namespace

void add_bench(CLI::App& app) {
    auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand(
        "bench", "measure the machine's limits, and the operations as shares of them");
    command->add_option("--filter", options->filter, "only cases whose name matches")
        ->type_name("REGEX");
    command
        ->add_option("--against", options->against,
                     "time the same symbols of another shared object in the same rounds")
        ->type_name("FILE.so");
    command->add_option("--csv", options->csv, "write the measurements")->type_name("FILE");
    command->add_option("--plot", options->plot, "draw shares, ratios and rates (needs gnuplot)")
        ->type_name("FILE.svg");
    command->add_flag("--list", options->list, "list the cases, measure nothing");
    command->add_option("--rounds", options->effort.rounds, "rounds of each case, at most")
        ->check(CLI::Range(1, 1000000))
        ->capture_default_str();
    command->add_option("--seconds", options->effort.seconds, "time for each case, at most")
        ->check(CLI::Range(0.001, 3600.0) & a_number())
        ->capture_default_str();
    command->callback([options] { run(*options); });
}

} // namespace vor::tool
