// All families, in the order in which they are shown.
#include "bench/common/families.h"

#include <iterator>

namespace vor::bench {

Suite all_cases() {
    // clang-format off
    const std::vector<Suite (*)()> families = {
        service_cases,
        level1_cases,
        level2_cases,
        gemm_cases,
        level3_cases,
        cblas_cases,
        sparse_cases,
        fft_cases,
        dft_cases,
        dfti_cases,
        onecall_cases,
        gmp_cases,
        number_cases,
    };
    // clang-format on
    Suite all;
    for (const auto family : families) {
        Suite cases = family();
        all.insert(all.end(), std::make_move_iterator(cases.begin()),
                   std::make_move_iterator(cases.end()));
    }
    return all;
}

} // namespace vor::bench
