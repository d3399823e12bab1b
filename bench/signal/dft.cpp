// Transforms of any length by the DFT objects: lengths of small factors, of larger ones, primes.
#include "bench/common/families.h"
#include "bench/signal/fftw.h"
#include "vor_signal.h"

#include <cmath>

namespace vor::bench {

namespace {

// The names of one kind of object in a library.
struct Names {
    std::string init, free, buffer_size, forward;
};

Names names_of(const std::string& family, const std::string& kind, const std::string& transform) {
    return {family + "InitAlloc_" + kind, family + "Free_" + kind, family + "GetBufSize_" + kind,
            family + transform};
}

const Names kComplex32 = names_of("tavsDFT", "C_32fc", "Fwd_CToC_32fc");
const Names kComplex64 = names_of("tavsDFT", "C_64fc", "Fwd_CToC_64fc");
const Names kReal32 = names_of("tavsDFT", "R_32f", "Fwd_RToPerm_32f");
const Names kReal64 = names_of("tavsDFT", "R_64f", "Fwd_RToPerm_64f");
const Names kOutOfOrder32 = names_of("tavsDFTOutOrd", "C_32fc", "Fwd_CToC_32fc");
const Names kOutOfOrder64 = names_of("tavsDFTOutOrd", "C_64fc", "Fwd_CToC_64fc");

// A forward transform of n elements out of place, with the buffer that the object asks for.
template <class T>
Binder transform(Names names, int n) {
    using Init = TavStatus(DftCtx**, int, int, int);
    using Free = TavStatus(DftCtx*);
    using BufferSize = TavStatus(const DftCtx*, int*);
    using Transform = TavStatus(const T*, T*, const DftCtx*, void*);
    return [=](const Library& library) -> Call {
        auto* const init = library.function<Init>(names.init.c_str());
        auto* const free = library.function<Free>(names.free.c_str());
        auto* const buffer_size = library.function<BufferSize>(names.buffer_size.c_str());
        auto* const forward = library.function<Transform>(names.forward.c_str());
        DftCtx* built = nullptr;
        if (!init || !free || !buffer_size || !forward) return {};
        if (init(&built, n, TAV_FFT_NODIV_BY_ANY, 0) != tavStsNoErr) return {};
        const std::shared_ptr<DftCtx> object(built, free);
        int bytes = 0;
        buffer_size(built, &bytes);
        const auto buffer = std::make_shared<std::vector<char>>(size_t(bytes));
        const auto x = std::make_shared<std::vector<T>>(size_t(n));
        const auto result = std::make_shared<std::vector<T>>(size_t(n));
        for (size_t i = 0; i < x->size(); ++i)
            reinterpret_cast<real_t<T>&>((*x)[i]) = real_t<T>(1) / real_t<T>(1 + i % 97);
        return [=] { forward(x->data(), result->data(), object.get(), buffer->data()); };
    };
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
         {Row{1000, 0.9, 1.3}, Row{3600, 0, 1.3}, Row{100000, 0, 1.3}, Row{15015, 0.7, 0},
          Row{1009, 0.2, 0}, Row{1021 * 2, 0, 0}}) {
        const Binder complex64 = transform<cdouble>(kComplex64, n);
        suite.push_back(case_of("DFT 64fc", n, false, Limit::x87, complex64, goal64));
        suite.back().rivals.push_back(fftw_rival<cdouble>(n));
        suite.push_back(
            case_of("DFT 32fc", n, false, Limit::vector, transform<cfloat>(kComplex32, n)));
        suite.back().rivals.push_back({.name = "64fc", .bind = complex64, .goal = least_gain});
        suite.back().rivals.push_back(fftw_rival<cfloat>(n));
    }
    for (int n : {1000, 15015}) {
        suite.push_back(case_of("DFT 64f", n, true, Limit::x87, transform<double>(kReal64, n)));
        suite.push_back(case_of("DFT 32f", n, true, Limit::vector, transform<float>(kReal32, n)));
    }
    constexpr int n = 100000;
    suite.push_back(case_of("DFT out of order 64fc", n, false, Limit::x87,
                            transform<cdouble>(kOutOfOrder64, n)));
    suite.back().rivals.push_back({.name = "in order", .bind = transform<cdouble>(kComplex64, n)});
    suite.push_back(case_of("DFT out of order 32fc", n, false, Limit::vector,
                            transform<cfloat>(kOutOfOrder32, n)));
    suite.back().rivals.push_back({.name = "in order", .bind = transform<cfloat>(kComplex32, n)});
    return suite;
}

} // namespace vor::bench
