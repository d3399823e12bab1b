// Transforms of 2^n points by the FFT objects, and convolutions on both sides of the switches between
// their routes.
#include "bench/common/families.h"
#include "bench/signal/fftw.h"
#include "vor_signal.h"

#include <cmath>
#include <type_traits>

namespace vor::bench {

namespace {

template <class T>
constexpr bool kSingle = std::is_same_v<real_t<T>, float>;

template <class T>
std::string kind() {
    return is_complex<T> ? kSingle<T> ? "C_32fc" : "C_64fc" : kSingle<T> ? "R_32f" : "R_64f";
}

template <class T>
std::string forward_name() {
    const std::string width = kSingle<T> ? "32f" : "64f";
    return is_complex<T> ? "tavsFFTFwd_CToC_" + width + "c" : "tavsFFTFwd_RToPerm_" + width;
}

template <class T>
std::shared_ptr<std::vector<T>> data(size_t n) {
    const auto x = std::make_shared<std::vector<T>>(n);
    for (size_t i = 0; i < n; ++i)
        reinterpret_cast<real_t<T>&>((*x)[i]) = real_t<T>(1) / real_t<T>(1 + i % 97);
    return x;
}

// A forward transform out of place, with the buffer that the object asks for.
template <class T>
Binder transform(int order) {
    using Init = TavStatus(FftCtx**, int, int, int);
    using Free = TavStatus(FftCtx*);
    using BufferSize = TavStatus(const FftCtx*, int*);
    using Transform = TavStatus(const T*, T*, const FftCtx*, void*);
    return [=](const Library& library) -> Call {
        auto* const init = library.function<Init>(("tavsFFTInitAlloc_" + kind<T>()).c_str());
        auto* const free = library.function<Free>(("tavsFFTFree_" + kind<T>()).c_str());
        auto* const size = library.function<BufferSize>(("tavsFFTGetBufSize_" + kind<T>()).c_str());
        auto* const forward = library.function<Transform>(forward_name<T>().c_str());
        FftCtx* built = nullptr;
        if (!init || !free || !size || !forward) return {};
        if (init(&built, order, TAV_FFT_NODIV_BY_ANY, 0) != tavStsNoErr) return {};
        const std::shared_ptr<FftCtx> object(built, free);
        int bytes = 0;
        size(built, &bytes);
        const auto buffer = std::make_shared<std::vector<char>>(size_t(bytes));
        const auto x = data<T>(size_t(1) << order), result = data<T>(size_t(1) << order);
        return [=] { forward(x->data(), result->data(), object.get(), buffer->data()); };
    };
}

template <class T>
Case transform_case(int order, double goal) {
    const double n = std::ldexp(1, order);
    const std::string width = kSingle<T> ? "32" : "64";
    return {.name = "FFT " + width + (is_complex<T> ? "fc" : "f") + " n=" + std::to_string(int(n)),
            .formula = is_complex<T> ? "5 n log2 n" : "2.5 n log2 n",
            .work = (is_complex<T> ? 5 : 2.5) * n * order,
            .limit = kSingle<T> ? Limit::vector : Limit::x87,
            .bind = transform<T>(order),
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
            {.name = "complex", .bind = transform<C>(order), .goal = 1 / kRealTime});
    }
}

template <class R>
using Convolve = TavStatus(const R*, int, const R*, int, R*);

template <class R>
struct Calls;
template <>
struct Calls<float> {
    static constexpr auto convolve = tavsConv_32f;
    static constexpr auto build = tavsFFTInitAlloc_R_32f;
    static constexpr auto release = tavsFFTFree_R_32f;
    static constexpr auto forward = tavsFFTFwd_RToPerm_32f;
    static constexpr auto inverse = tavsFFTInv_PermToR_32f;
    static constexpr auto multiply = tavsMulPerm_32f_I;
};
template <>
struct Calls<double> {
    static constexpr auto convolve = tavsConv_64f;
    static constexpr auto build = tavsFFTInitAlloc_R_64f;
    static constexpr auto release = tavsFFTFree_R_64f;
    static constexpr auto forward = tavsFFTFwd_RToPerm_64f;
    static constexpr auto inverse = tavsFFTInv_PermToR_64f;
    static constexpr auto multiply = tavsMulPerm_64f_I;
};

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
        Calls<R>::convolve(longer, n, shorter + j, taps, part.data());
        for (int k = 0; k < n + taps - 1; ++k) dst[j + k] += part[size_t(k)];
    }
    return tavStsNoErr;
}

// Spectra: one product, object and memory of its own in each call.
template <class R>
TavStatus spectra(const R* longer, int n, const R* shorter, int m, R* dst) {
    int order = 2;
    while (1 << order < n + m - 1) ++order;
    FftCtx* object = nullptr;
    if (const TavStatus status = Calls<R>::build(&object, order, TAV_FFT_DIV_INV_BY_N, 0))
        return status;
    std::vector<R> a(size_t(1) << order), b(a.size());
    std::copy(longer, longer + n, a.begin());
    std::copy(shorter, shorter + m, b.begin());
    Calls<R>::forward(a.data(), a.data(), object, nullptr);
    Calls<R>::forward(b.data(), b.data(), object, nullptr);
    Calls<R>::multiply(a.data(), b.data(), 1 << order);
    Calls<R>::inverse(b.data(), b.data(), object, nullptr);
    std::copy(b.begin(), b.begin() + n + m - 1, dst);
    return Calls<R>::release(object);
}

template <class R>
Binder convolve(int longer, int shorter, Convolve<R>* other = nullptr) {
    return [=](const Library& library) -> Call {
        const char* const name = kSingle<R> ? "tavsConv_32f" : "tavsConv_64f";
        auto* const f = other ? other : library.function<Convolve<R>>(name);
        if (!f) return {};
        const auto a = data<R>(size_t(longer)), b = data<R>(size_t(shorter));
        const auto sum = data<R>(size_t(longer) + size_t(shorter));
        return [=] { f(a->data(), longer, b->data(), shorter, sum->data()); };
    };
}

// The chosen route is to be at most 20 % slower than the other.
template <class R>
void add_convolutions(Suite& suite) {
    const struct {
        int longer, shorter;
        bool by_spectra;
    } rows[] = {{128, 128, false}, {129, 128, true},  {224, 32, false},   {225, 32, true},
                {400, 31, false},  {1000, 31, false}, {1000, 32, true},   {4096, 31, false},
                {4096, 64, true},  {4096, 256, true}, {4096, 1366, true}, {65536, 1024, true}};
    for (const auto& row : rows) {
        suite.push_back({.name = std::string("convolution ") + (kSingle<R> ? "32f " : "64f ") +
                                 std::to_string(row.longer) + " x " + std::to_string(row.shorter),
                         .formula = "2 len1 len2",
                         .work = 2.0 * row.longer * row.shorter,
                         .limit = kSingle<R> ? Limit::vector : Limit::x87,
                         .bind = convolve<R>(row.longer, row.shorter),
                         .rivals = {}});
        suite.back().rivals.push_back(
            {.name = row.by_spectra ? "direct" : "spectra",
             .bind = convolve<R>(row.longer, row.shorter, row.by_spectra ? direct<R> : spectra<R>),
             .goal = 1 / 1.2});
    }
}

} // namespace

Suite fft_cases() {
    Suite suite;
    add_orders<double, cdouble>(suite, 6, 1.10, 0.90);
    add_orders<float, cfloat>(suite, 8, 0.45, 0.30);
    add_convolutions<float>(suite);
    add_convolutions<double>(suite);
    return suite;
}

} // namespace vor::bench
