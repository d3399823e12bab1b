// The one-call transforms: against the FFT object of the same length, without and with the pass that puts the
// spectrum in order, split against interleaved, one thread against two. All of them work in place, on zeros: the
// result of a forward transform would grow from call to call.
#include "arith/element.h"
#include "bench/common/families.h"
#include "vor_fft.h"
#include "vor_signal.h"

#include <memory>
#include <omp.h>

namespace vor::bench {

namespace {

template <class R>
struct Calls;
template <>
struct Calls<float> {
    static constexpr const char *letter = "c", *bits = "32";
    static constexpr Limit limit = Limit::vector;
};
template <>
struct Calls<double> {
    static constexpr const char *letter = "z", *bits = "64";
    static constexpr Limit limit = Limit::x87;
};

enum class Form { pairs, split };

// A vector with its filled wsave.
template <class R>
struct Vector {
    explicit Vector(int order)
        : n(1 << order), wsave(3 * size_t(n) + 64), re(2 * size_t(n)), im(size_t(n)) {}
    int n;
    std::vector<R> wsave, re, im;
};

template <class R>
Binder one_call(int order, int isign, Form form = Form::pairs, int threads = 1) {
    using Pairs = void(complex_t<R>*, const int*, const int*, R*);
    using Split = void(R*, R*, int, int, R*);
    return [=](const Library& library) -> Call {
        const std::string name = std::string(Calls<R>::letter) + "fft1d";
        const auto v = std::make_shared<Vector<R>>(order);
        Call call;
        if (form == Form::pairs) {
            auto* const f = library.function<Pairs>(name.c_str());
            if (!f) return {};
            auto* const x = reinterpret_cast<complex_t<R>*>(v->re.data());
            const int fill = 0;
            f(x, &v->n, &fill, v->wsave.data());
            call = [=] { f(x, &v->n, &isign, v->wsave.data()); };
        } else {
            auto* const f = library.function<Split>((name + "c").c_str());
            if (!f) return {};
            f(v->re.data(), v->im.data(), v->n, 0, v->wsave.data());
            call = [=] { f(v->re.data(), v->im.data(), v->n, isign, v->wsave.data()); };
        }
        if (threads == 1) return call;
        return [=] {
            omp_set_num_threads(threads);
            call();
            omp_set_num_threads(1);
        };
    };
}

template <class R>
Binder object(int order) {
    using C = complex_t<R>;
    const std::string kind = std::string("C_") + Calls<R>::bits + "fc";
    return [=](const Library& library) -> Call {
        const auto named = [&]<class F>(const std::string& name) {
            return library.function<F>(name.c_str());
        };
        auto* const init = named.template operator()<TavStatus(FftCtx**, int, int, int)>(
            "tavsFFTInitAlloc_" + kind);
        auto* const free = named.template operator()<TavStatus(FftCtx*)>("tavsFFTFree_" + kind);
        auto* const size =
            named.template operator()<TavStatus(const FftCtx*, int*)>("tavsFFTGetBufSize_" + kind);
        auto* const forward =
            named.template operator()<TavStatus(const C*, C*, const FftCtx*, void*)>(
                "tavsFFTFwd_CToC_" + kind.substr(2));
        FftCtx* built = nullptr;
        if (!init || !free || !size || !forward) return {};
        if (init(&built, order, TAV_FFT_NODIV_BY_ANY, 0) != tavStsNoErr) return {};
        const std::shared_ptr<FftCtx> owned(built, free);
        int bytes = 0;
        size(built, &bytes);
        const auto buffer = std::make_shared<std::vector<char>>(size_t(bytes) + 1);
        const auto x = std::make_shared<std::vector<C>>(size_t{1} << order);
        return [=] { forward(x->data(), x->data(), owned.get(), buffer->data()); };
    };
}

template <class R>
Case vector_case(int order, const char* what, Binder bind) {
    const double n = 1 << order;
    return {.name = std::string(Calls<R>::letter) + "fft1d n=" + std::to_string(1 << order) + what,
            .formula = "5 n log2 n",
            .work = 5 * n * order,
            .limit = Calls<R>::limit,
            .bind = std::move(bind),
            .rivals = {}};
}

constexpr double kOfObject = 1.1;   // of its time, at most
constexpr double kUnordered = 0.9;  // of the ordered form's, at most
constexpr int kLongOrder = 14;      // from which on that is aimed at
constexpr double kOfPairs = 1.1;    // of the interleaved form's, at most
constexpr double kTwoThreads = 1.6; // times as fast, at least

template <class R>
void add_orders(Suite& suite) {
    for (int order = 6; order <= 20; order += 2) {
        const Rival ordered = {.name = "ordered",
                               .bind = one_call<R>(order, -1),
                               .goal = order < kLongOrder ? 0 : 1 / kUnordered};
        suite.push_back(vector_case<R>(order, "", one_call<R>(order, -1)));
        suite.back().rivals = {{.name = "object", .bind = object<R>(order), .goal = 1 / kOfObject}};
        suite.push_back(vector_case<R>(order, ", reversed", one_call<R>(order, -2)));
        suite.back().rivals = {ordered};
        suite.push_back(vector_case<R>(order, ", split", one_call<R>(order, -1, Form::split)));
        suite.back().rivals = {
            {.name = "pairs", .bind = one_call<R>(order, -1), .goal = 1 / kOfPairs}};
    }
    for (int order : {18, 20})
        for (int isign : {-1, -2}) {
            suite.push_back(vector_case<R>(order,
                                           isign == -1 ? ", 2 threads" : ", reversed, 2 threads",
                                           one_call<R>(order, isign, Form::pairs, 2)));
            suite.back().rivals = {
                {.name = "1 thread", .bind = one_call<R>(order, isign), .goal = kTwoThreads}};
        }
}

} // namespace

Suite onecall_cases() {
    Suite suite;
    add_orders<float>(suite);
    add_orders<double>(suite);
    return suite;
}

} // namespace vor::bench
