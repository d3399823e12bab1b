#include "bench/blas/square.h"

#include <omp.h>

namespace vor::bench {

Binder on_threads(Binder bind, int threads) {
    return [=](const Library& library) -> Call {
        const Call call = bind(library);
        if (!call) return {};
        return [=] {
            omp_set_num_threads(threads);
            call();
            omp_set_num_threads(1);
        };
    };
}

Case on_two_threads(const Case& single, double gain) {
    return {.name = single.name + ", 2 threads",
            .formula = single.formula,
            .work = single.work,
            .limit = Limit::none,
            .bind = on_threads(single.bind, 2),
            .comparable = false,
            .rivals = {{.name = "1 thread", .bind = single.bind, .goal = gain}}};
}

} // namespace vor::bench
