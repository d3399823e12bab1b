#include "tools/bench_report.h"
#include "tools/failure.h"

#include <algorithm>
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

const char* verdict(double value, double goal) {
    return goal == 0 ? "" : value >= goal ? "met" : "missed";
}

// "goal 0.90 met"; empty without a goal.
std::string goal_text(double value, double goal) {
    return goal == 0 ? "" : text("goal %.2f ", goal) + verdict(value, goal);
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
    std::string notes;
    if (m.goal != 0) notes += goal_text(m.share, m.goal) + "  ";
    for (const bench::Ratio& r : m.ratios) {
        notes += r.name + text(" %.3f", r.ratio);
        if (r.goal != 0) notes += " (" + goal_text(r.ratio, r.goal) + ")";
        notes += "  ";
    }
    notes.erase(std::min(notes.find_last_not_of(' ') + 1, notes.size()));
    std::printf(" %s\n", notes.c_str());
    std::fflush(stdout);
}

void print_summary(const std::vector<Measurement>& all) {
    int met = 0, missed = 0;
    const auto count = [&](double value, double goal) {
        if (goal != 0) ++(value >= goal ? met : missed);
    };
    for (const Measurement& m : all) {
        count(m.share, m.goal);
        for (const bench::Ratio& r : m.ratios) count(r.ratio, r.goal);
    }
    if (met + missed > 0) std::printf("goals: %d met, %d missed\n", met, missed);
}

void write_csv(const std::string& file, const std::vector<Measurement>& all) {
    const std::unique_ptr<std::FILE, int (*)(std::FILE*)> out(std::fopen(file.c_str(), "w"),
                                                              std::fclose);
    if (!out) throw Failure(file + ": cannot be written");
    std::fprintf(out.get(), "case,against,seconds,work,formula,limit,limit_per_second,share,ratio,"
                            "goal,verdict\n");
    for (const Measurement& m : all) {
        std::fprintf(out.get(), "%s,,%.6g,%.17g,%s,%s,%.6g,%.4f,,%g,%s\n", quoted(m.name).c_str(),
                     m.seconds, m.work, quoted(m.formula).c_str(), bench::name_of(m.limit),
                     m.limit_rate, m.share, m.goal, verdict(m.share, m.goal));
        for (const bench::Ratio& r : m.ratios)
            std::fprintf(out.get(), "%s,%s,%.6g,,,,,,%.4f,%g,%s\n", quoted(m.name).c_str(),
                         quoted(r.name).c_str(), r.seconds, r.ratio, r.goal,
                         verdict(r.ratio, r.goal));
    }
    if (std::fflush(out.get()) != 0 || std::ferror(out.get()))
        throw Failure(file + ": cannot be written");
}

} // namespace vor::tool
