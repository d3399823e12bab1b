// The service layer: what an entry costs over its engine, and a block from the cache.
#include "bench/common/families.h"

namespace vor::bench {

namespace {

using Compare = int(const char*, const char*, int, int);
using Allocate = void*(unsigned);
using Deallocate = void(void*);

Binder comparison(const char* symbol) {
    return [symbol](const Library& library) -> Call {
        Compare* const compare = library.function<Compare>(symbol);
        if (!compare) return {};
        return [compare] { compare("N", "t", 1, 1); };
    };
}

Call block_pair(const Library& library) {
    Allocate* const allocate = library.function<Allocate>("vor_serv_allocate");
    Deallocate* const deallocate = library.function<Deallocate>("vor_serv_deallocate");
    if (!allocate || !deallocate) return {};
    constexpr unsigned kBytes = 65536;
    return [=] { deallocate(allocate(kBytes)); };
}

} // namespace

Suite service_cases() {
    return {
        {.name = "lsame",
         .formula = "one call through the entry",
         .work = 1,
         .limit = Limit::none,
         .bind = comparison("lsame"),
         .rivals = {{.name = "engine", .bind = comparison("vor_serv_lsame"), .most_extra = 6e-9}}},
        {.name = "allocate + deallocate",
         .formula = "one block of 64 KiB",
         .work = 1,
         .limit = Limit::none,
         .bind = block_pair,
         .rivals = {},
         .most_seconds = 40e-9},
    };
}

} // namespace vor::bench
