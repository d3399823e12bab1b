#include "tools/bench_report.h"
#include "tools/failure.h"

#include <cstdio>
#include <memory>

namespace vor::tool {

using bench::Limit;
using bench::Measurement;

namespace {

std::string text(const char* format, double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

std::string time_text(double seconds) {
    if (seconds < 1e-6) return text("%.1f ns", seconds * 1e9);
    if (seconds < 1e-3) return text("%.2f us", seconds * 1e6);
    return text("%.2f ms", seconds * 1e3);
}

struct Goal {
    std::string text; // "goal 0.90"; empty: none was set
    bool met;
    std::string verdict() const { return text.empty() ? "" : met ? "met" : "missed"; }
};

// Goals are printed with two digits and judged to the last of them: two runs of one loop differ by as
// much.
constexpr double kResolution = 0.005;

Goal at_least(double value, double goal) {
    return {goal == 0 ? "" : text("goal %.2f", goal), value >= goal - kResolution};
}

Goal at_most(double seconds, double most) {
    return {most == 0 ? "" : "at most " + time_text(most), seconds <= most};
}

// A case and a ratio have one kind of goal each.
Goal goal_of(const Measurement& m) {
    return m.most_seconds != 0 ? at_most(m.seconds, m.most_seconds) : at_least(m.share, m.goal);
}

Goal goal_of(const bench::Ratio& r) {
    const double own = r.seconds / r.ratio;
    return r.most_extra != 0 ? at_most(own - r.seconds, r.most_extra) : at_least(r.ratio, r.goal);
}

std::string quoted(const std::string& cell) {
    return '"' + cell + '"'; // names and formulas hold no quotes
}

} // namespace

void print_heading() {
    std::printf("%-32s %11s %17s %7s %-16s %s\n", "case", "time", "rate", "share", "of limit",
                "ratios (others' time / own)");
}

void print_row(const Measurement& m) {
    std::printf("%-32s %11s ", m.name.c_str(), time_text(m.seconds).c_str());
    if (m.limit == Limit::none)
        std::printf("%17s %7s %-16s", "", "", "");
    else
        std::printf("%9.3f %-7s %7.3f %-16s", m.work / m.seconds * 1e-9, bench::unit_of(m.limit),
                    m.share, bench::name_of(m.limit));
    const Goal goal = goal_of(m);
    if (!goal.text.empty()) std::printf(" %s %s", goal.text.c_str(), goal.verdict().c_str());
    for (const bench::Ratio& r : m.ratios) {
        const Goal least = goal_of(r);
        std::printf("  %s %.3f", r.name.c_str(), r.ratio);
        if (!least.text.empty())
            std::printf(" (%s %s)", least.text.c_str(), least.verdict().c_str());
    }
    std::printf("\n");
    std::fflush(stdout);
}

void print_summary(const std::vector<Measurement>& all) {
    int met = 0, missed = 0;
    const auto count = [&](const Goal& goal) {
        if (!goal.text.empty()) ++(goal.met ? met : missed);
    };
    for (const Measurement& m : all) {
        count(goal_of(m));
        for (const bench::Ratio& r : m.ratios) count(goal_of(r));
    }
    if (met + missed > 0) std::printf("goals: %d met, %d missed\n", met, missed);
}

namespace {

using File = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

File open_csv(const std::string& file, const char* mode) {
    File out(std::fopen(file.c_str(), mode), std::fclose);
    if (!out) throw Failure(file + ": cannot be written");
    return out;
}

void finish_csv(const std::string& file, const File& out) {
    if (std::fflush(out.get()) != 0 || std::ferror(out.get()))
        throw Failure(file + ": cannot be written");
}

} // namespace

void begin_csv(const std::string& file) {
    const File out = open_csv(file, "w");
    std::fprintf(out.get(), "case,against,seconds,work,formula,limit,limit_per_second,share,ratio,"
                            "goal,verdict\n");
    finish_csv(file, out);
}

void append_csv(const std::string& file, const Measurement& m) {
    const File out = open_csv(file, "a");
    const std::string name = quoted(m.name);
    const Goal goal = goal_of(m);
    std::fprintf(out.get(), "%s,,%.6g,%.17g,%s,%s,%.6g,%.4f,,%s,%s\n", name.c_str(), m.seconds,
                 m.work, quoted(m.formula).c_str(), bench::name_of(m.limit), m.limit_rate, m.share,
                 goal.text.c_str(), goal.verdict().c_str());
    for (const bench::Ratio& r : m.ratios) {
        const Goal least = goal_of(r);
        std::fprintf(out.get(), "%s,%s,%.6g,,,,,,%.4f,%s,%s\n", name.c_str(),
                     quoted(r.name).c_str(), r.seconds, r.ratio, least.text.c_str(),
                     least.verdict().c_str());
    }
    finish_csv(file, out);
}

} // namespace vor::tool
