// The families of bench cases: one function each, in a file of bench/<folder>/, called by
// bench/suites.cpp.
#pragma once

#include "bench/common/suite.h"

namespace vor::bench {

Suite service_cases();
Suite level1_cases();
Suite level2_cases();
Suite gemm_cases();
Suite level3_cases();
Suite cblas_cases();
Suite sparse_cases();
Suite fft_cases();
Suite dft_cases();
Suite dfti_cases();
Suite onecall_cases();
Suite gmp_cases();
Suite number_cases();

} // namespace vor::bench
