// Transforms of 2^n points by the FFT objects; convolutions and correlations on both sides of the switches
// between their routes.
#include "bench/common/families.h"
#include "bench/signal/fftw.h"
#include "bench/signal/transform.h"
#include "signal/spectral.h"

#include <cmath>
#include <type_traits>

namespace vor::bench {

namespace {

template <class T>
constexpr bool kSingle = std::is_same_v<real_t<T>, float>;

template <class T>
Binder fft(int order) {
    const std::string width = kSingle<T> ? "32f" : "64f";
    const auto names = is_complex<T>
                           ? names_of("tavsFFT", "C_" + width + "c", "Fwd_CToC_" + width + "c")
                           : names_of("tavsFFT", "R_" + width, "Fwd_RToPerm_" + width);
    return transform<T, FftCtx>(names, order, 1 << order);
}

template <class T>
Case transform_case(int order, double goal) {
    const double n = std::ldexp(1, order);
    const std::string width = kSingle<T> ? "32" : "64";
    return {.name = "FFT " + width + (is_complex<T> ? "fc" : "f") + " n=" + std::to_string(int(n)),
            .formula = is_complex<T> ? "5 n log2 n" : "2.5 n log2 n",
            .work = (is_complex<T> ? 5 : 2.5) * n * order,
            .limit = kSingle<T> ? Limit::vector : Limit::x87,
            .bind = fft<T>(order),
            .goal = goal,
            .rivals = {}};
}

// A real transform takes at most this part of the time of the complex one of the same length.
constexpr double kRealTime = 0.62;
constexpr int kCachedOrder = 14; // the highest for which the goals of the caches hold

template <class R, class C>
void add_orders(Suite& suite, int lowest, double cached_goal, double large_goal) {
    for (int order = lowest; order <= 20; order += 2) {
        suite.push_back(transform_case<C>(order, order <= kCachedOrder ? cached_goal : large_goal));
        suite.back().rivals.push_back(fftw_rival<C>(1 << order));
        suite.push_back(transform_case<R>(order, 0));
        suite.back().rivals.push_back(
            {.name = "complex", .bind = fft<C>(order), .goal = 1 / kRealTime});
    }
}

// ---- Convolution and correlation on both sides of the switches between their routes

template <class R>
using Convolve = TavStatus(const R*, int, const R*, int, R*);
template <class R>
using Correlate = TavStatus(const R*, int, const R*, int, R*, int, int);

template <class R>
struct Routes;
template <>
struct Routes<float> {
    static constexpr Limit limit = Limit::vector;
    static constexpr const char* width = "32f";
    static constexpr auto convolve = tavsConv_32f;
    static constexpr auto correlate = tavsCrossCorr_32f;
    static constexpr int most_direct_lags = 383; // of vectors of one length
};
template <>
struct Routes<double> {
    static constexpr Limit limit = Limit::x87;
    static constexpr const char* width = "64f";
    static constexpr auto convolve = tavsConv_64f;
    static constexpr auto correlate = tavsCrossCorr_64f;
    static constexpr int most_direct_lags = 511;
};

// The chosen route is to be at most 20 % slower than another.
constexpr double kLeastRatio = 1 / 1.2;

// The routes that the lengths do not choose. Direct: the sum over pieces of the shorter vector, each of
// them too short for spectra.
template <class R>
TavStatus direct(const R* longer, int n, const R* shorter, int m, R* dst) {
    constexpr int kPiece = 31;
    static std::vector<R> part;
    part.resize(size_t(n) + kPiece);
    std::fill(dst, dst + n + m - 1, R(0));
    for (int j = 0; j < m; j += kPiece) {
        const int taps = std::min(kPiece, m - j);
        Routes<R>::convolve(longer, n, shorter + j, taps, part.data());
        for (int k = 0; k < n + taps - 1; ++k) dst[j + k] += part[size_t(k)];
    }
    return tavStsNoErr;
}

// One product of spectra, object and memory of its own in each call.
template <class R>
TavStatus spectra(const R* longer, int n, const R* shorter, int m, R* dst) {
    using F = signal::Routines<R>;
    const signal::RealFft<R> fft(signal::order_of(n + m - 1, 2));
    const signal::Block<R> block(2 * fft.n());
    R *const a = block.get(), *const b = a + fft.n();
    signal::copy_padded(longer, n, a, fft.n());
    signal::copy_padded(shorter, m, b, fft.n());
    F::perm[0](a, a, fft.object(), nullptr);
    F::perm[0](b, b, fft.object(), nullptr);
    F::multiply_perm(a, b, fft.n());
    F::perm[1](b, b, fft.object(), nullptr);
    return F::copy(b, dst, n + m - 1);
}

template <class R>
Binder convolve(int longer, int shorter, Convolve<R>* other = nullptr) {
    return [=](const Library& library) -> Call {
        const std::string name = std::string("tavsConv_") + Routes<R>::width;
        auto* const f = other ? other : library.function<Convolve<R>>(name.c_str());
        if (!f) return {};
        const auto a = falling_data<R>(size_t(longer)), b = falling_data<R>(size_t(shorter));
        const auto sum = falling_data<R>(size_t(longer) + size_t(shorter));
        return [=] { f(a->data(), longer, b->data(), shorter, sum->data()); };
    };
}

template <class R>
Case products_case(const std::string& what, double work, Binder bind) {
    return {.name =
                what.substr(0, what.find(' ') + 1) + Routes<R>::width + what.substr(what.find(' ')),
            .formula = "2 operations a product",
            .work = 2 * work,
            .limit = Routes<R>::limit,
            .bind = std::move(bind),
            .rivals = {}};
}

template <class R>
void add_convolutions(Suite& suite) {
    enum Route { kDirect, kProduct, kBlocks };
    const struct {
        int longer, shorter;
        Route route;
    } rows[] = {{128, 128, kDirect},    {129, 128, kProduct},  {200, 56, kDirect},
                {201, 56, kBlocks},     {224, 32, kDirect},    {225, 32, kBlocks},
                {1000, 31, kDirect},    {1000, 32, kBlocks},   {299, 100, kProduct},
                {300, 100, kBlocks},    {4096, 31, kDirect},   {4096, 64, kBlocks},
                {4096, 1366, kProduct}, {65536, 1024, kBlocks}};
    for (const auto& [longer, shorter, route] : rows) {
        suite.push_back(products_case<R>("convolution " + std::to_string(longer) + " x " +
                                             std::to_string(shorter),
                                         1.0 * longer * shorter, convolve<R>(longer, shorter)));
        if (route != kDirect)
            suite.back().rivals.push_back({.name = "direct",
                                           .bind = convolve<R>(longer, shorter, direct<R>),
                                           .goal = kLeastRatio});
        if (route != kProduct)
            suite.back().rivals.push_back({.name = "one product",
                                           .bind = convolve<R>(longer, shorter, spectra<R>),
                                           .goal = kLeastRatio});
    }
}

// `lags` of a correlation of vectors of n elements in calls of at most `most`.
template <class R>
Binder correlate(int n, int lags, int most) {
    return [=](const Library& library) -> Call {
        const std::string name = std::string("tavsCrossCorr_") + Routes<R>::width;
        auto* const f = library.function<Correlate<R>>(name.c_str());
        if (!f) return {};
        const auto a = falling_data<R>(size_t(n)), sum = falling_data<R>(size_t(lags));
        return [=] {
            for (int k = 0; k < lags; k += most)
                f(a->data(), n, a->data(), n, sum->data() + k, std::min(most, lags - k),
                  k - lags / 2);
        };
    };
}

// Around the switch the other route is that of half the lags twice, or of one lag more.
template <class R>
void add_correlations(Suite& suite) {
    constexpr int most = Routes<R>::most_direct_lags;
    for (int n : {400, 2000})
        for (int lags : {most, most + 1}) {
            suite.push_back(products_case<R>("correlation " + std::to_string(n) + " x " +
                                                 std::to_string(n) + ", " + std::to_string(lags) +
                                                 " lags",
                                             1.0 * n * lags, correlate<R>(n, lags, lags)));
            if (lags == most)
                suite.back().rivals.push_back({.name = "one product",
                                               .bind = correlate<R>(n, lags + 1, lags + 1),
                                               .goal = kLeastRatio});
            else
                suite.back().rivals.push_back({.name = "direct",
                                               .bind = correlate<R>(n, lags, lags / 2),
                                               .goal = kLeastRatio});
        }
}

} // namespace

Suite fft_cases() {
    Suite suite;
    add_orders<double, cdouble>(suite, 6, 1.10, 0.90);
    add_orders<float, cfloat>(suite, 8, 0.45, 0.30);
    add_convolutions<float>(suite);
    add_convolutions<double>(suite);
    add_correlations<float>(suite);
    add_correlations<double>(suite);
    return suite;
}

} // namespace vor::bench
