// The bench cases under Google Benchmark, for its statistics and its command line. Operation and
// sizes are joined by '/': "ddot/n=4000", its rivals "ddot/n=4000/engine".
#include "bench/common/suite.h"

#include <algorithm>
#include <benchmark/benchmark.h>

namespace {

using namespace vor::bench;

void run(benchmark::State& state, const Binder& bind, const Library& library, double work) {
    const Call call = bind(library);
    if (!call) {
        state.SkipWithError("the library lacks the symbol");
        return;
    }
    for (auto _ : state) call();
    if (work > 0)
        state.counters["rate"] =
            benchmark::Counter(work, benchmark::Counter::kIsIterationInvariantRate);
}

void enter(std::string name, Binder bind, const Library& library, double work) {
    std::replace(name.begin(), name.end(), ' ', '/');
    benchmark::RegisterBenchmark(name.c_str(),
                                 [=](benchmark::State& state) { run(state, bind, library, work); });
}

} // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    const Library library = own_library();
    for (const Case& c : all_cases()) {
        const double work = c.limit == Limit::none ? 0 : c.work;
        enter(c.name, c.bind, library, work);
        for (const Rival& rival : c.rivals)
            enter(c.name + ' ' + rival.name, rival.bind, library, work);
    }
    benchmark::RunSpecifiedBenchmarks();
}
