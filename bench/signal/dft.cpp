// Transforms of any length by the DFT objects: lengths of small factors, of larger ones, primes.
#include "bench/common/families.h"
#include "bench/signal/fftw.h"
#include "bench/signal/transform.h"

#include <cmath>

namespace vor::bench {

namespace {

const TransformNames kComplex32 = names_of("tavsDFT", "C_32fc", "Fwd_CToC_32fc");
const TransformNames kComplex64 = names_of("tavsDFT", "C_64fc", "Fwd_CToC_64fc");
const TransformNames kReal32 = names_of("tavsDFT", "R_32f", "Fwd_RToPerm_32f");
const TransformNames kReal64 = names_of("tavsDFT", "R_64f", "Fwd_RToPerm_64f");
const TransformNames kOutOfOrder32 = names_of("tavsDFTOutOrd", "C_32fc", "Fwd_CToC_32fc");
const TransformNames kOutOfOrder64 = names_of("tavsDFTOutOrd", "C_64fc", "Fwd_CToC_64fc");

template <class T>
Binder dft(const TransformNames& names, int n) {
    return transform<T, DftCtx>(names, n, n);
}

Case case_of(std::string what, int n, bool is_real, Limit limit, Binder bind, double goal = 0) {
    return {.name = what + " n=" + std::to_string(n),
            .formula = is_real ? "2.5 n log2 n" : "5 n log2 n",
            .work = (is_real ? 2.5 : 5) * n * std::log2(n),
            .limit = limit,
            .bind = std::move(bind),
            .goal = goal,
            .rivals = {}};
}

} // namespace

Suite dft_cases() {
    Suite suite;
    struct Row {
        int n;
        double goal64;     // share of the x87 rate
        double least_gain; // of single over double precision
    };
    for (auto [n, goal64, least_gain] :
         {Row{1000, 0.9, 2.5}, Row{3600, 0, 2.5}, Row{100000, 0, 2.5}, Row{15015, 0.7, 2.5},
          Row{1009, 0.2, 0}, Row{1021 * 2, 0, 0}}) {
        const Binder complex64 = dft<cdouble>(kComplex64, n);
        suite.push_back(case_of("DFT 64fc", n, false, Limit::x87, complex64, goal64));
        suite.back().rivals.push_back(fftw_rival<cdouble>(n));
        suite.push_back(case_of("DFT 32fc", n, false, Limit::vector, dft<cfloat>(kComplex32, n)));
        suite.back().rivals.push_back({.name = "64fc", .bind = complex64, .goal = least_gain});
        suite.back().rivals.push_back(fftw_rival<cfloat>(n));
    }
    for (int n : {1000, 15015}) {
        suite.push_back(case_of("DFT 64f", n, true, Limit::x87, dft<double>(kReal64, n)));
        suite.push_back(case_of("DFT 32f", n, true, Limit::vector, dft<float>(kReal32, n)));
    }
    constexpr int n = 100000;
    suite.push_back(
        case_of("DFT out of order 64fc", n, false, Limit::x87, dft<cdouble>(kOutOfOrder64, n)));
    suite.back().rivals.push_back({.name = "in order", .bind = dft<cdouble>(kComplex64, n)});
    suite.push_back(
        case_of("DFT out of order 32fc", n, false, Limit::vector, dft<cfloat>(kOutOfOrder32, n)));
    suite.back().rivals.push_back({.name = "in order", .bind = dft<cfloat>(kComplex32, n)});
    return suite;
}

} // namespace vor::bench
