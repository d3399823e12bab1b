#include "bench/common/runner.h"

#include <algorithm>
#include <chrono>
#include <limits>

namespace vor::bench {

namespace {

using Clock = std::chrono::steady_clock;

// A batch is long against the clock's own cost and short against the scheduler's slices.
constexpr double kLeastBatch = 50e-6, kBatch = 100e-6;
constexpr int kLeastRounds = 3;
constexpr int kMostRepeats = 1 << 24;

// AVX code of a rival may leave the upper halves of the vector registers dirty, which halves the speed of
// the SSE code that is timed after it.
void clear_upper_halves() {
    static const bool kAvx = __builtin_cpu_supports("avx");
    if (kAvx)
        asm volatile("vzeroupper" ::
                         : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7");
}

class Contestant {
public:
    explicit Contestant(Call call) : call_(std::move(call)) {
        // The first call has page faults and first decisions in it: it counts for nothing.
        double seconds = batch();
        for (seconds = batch(); seconds < kLeastBatch && repeats_ < kMostRepeats; seconds = batch())
            repeats_ = std::clamp(static_cast<int>(repeats_ * kBatch / std::max(seconds, 1e-9)),
                                  repeats_ + 1, repeats_ * 16);
    }
    void time_once() { best_ = std::min(best_, batch() / repeats_); }
    double seconds() const { return best_; }

private:
    double batch() {
        clear_upper_halves();
        const auto start = Clock::now();
        for (int i = 0; i < repeats_; ++i) call_();
        return std::chrono::duration<double>(Clock::now() - start).count();
    }

    Call call_;
    int repeats_ = 1;
    double best_ = std::numeric_limits<double>::infinity();
};

void run_rounds(std::vector<Contestant>& contestants, const Effort& effort) {
    const auto end = Clock::now() + std::chrono::duration<double>(effort.seconds);
    for (int round = 0; round < std::max(effort.rounds, kLeastRounds); ++round) {
        if (round >= kLeastRounds && Clock::now() >= end) return;
        for (Contestant& c : contestants) c.time_once();
    }
}

} // namespace

std::optional<Measurement> measure(const Case& c, const Library& own, const Library* peer,
                                   const Effort& effort) {
    Call call = c.bind(own);
    if (!call) return std::nullopt;
    std::vector<Contestant> contestants;
    contestants.emplace_back(std::move(call));
    Measurement result{c.name, c.formula, c.work, c.limit, 0, 0, 0, c.goal, c.most_seconds, {}};

    const auto enter = [&](const Rival& rival, const Library& library) {
        Call other = rival.bind(library);
        if (!other) return;
        contestants.emplace_back(std::move(other));
        result.ratios.push_back({rival.name, 0, 0, rival.goal, rival.most_extra});
    };
    for (const Rival& rival : c.rivals) enter(rival, own);
    if (peer && c.comparable) enter({peer->name(), c.bind, c.against_goal}, *peer);
    const std::vector<Probe> probes = probes_of(c.limit);
    for (const Probe& probe : probes) contestants.emplace_back(probe.call);

    run_rounds(contestants, effort);

    auto contestant = contestants.begin();
    result.seconds = contestant++->seconds();
    for (Ratio& r : result.ratios) {
        r.seconds = contestant++->seconds();
        r.ratio = r.seconds / result.seconds;
    }
    std::vector<double> rates;
    for (const Probe& probe : probes) rates.push_back(probe.work / contestant++->seconds());
    result.limit_rate = limit_rate(c.limit, rates);
    if (result.limit_rate > 0) result.share = c.work / result.seconds / result.limit_rate;
    return result;
}

std::vector<double> measure_rates(const std::vector<Probe>& probes, const Effort& effort) {
    std::vector<Contestant> contestants;
    for (const Probe& probe : probes) contestants.emplace_back(probe.call);
    run_rounds(contestants, effort);
    std::vector<double> rates;
    for (size_t i = 0; i < probes.size(); ++i)
        rates.push_back(probes[i].work / contestants[i].seconds());
    return rates;
}

} // namespace vor::bench
