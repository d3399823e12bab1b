// Matrix and vector at n = 300: a matrix of d lies in the second cache.
#include "bench/common/families.h"
#include "serv/element.h"

#include <memory>

namespace vor::bench {

namespace {

constexpr int kOrder = 300;

// A matrix whose triangles have small elements beside ones on the diagonal, so that a solve can be
// repeated on its own result for ever; scalars that keep the data where they are.
template <class T>
struct Operands {
    Operands() : a(size_t(n) * size_t(n)), x(size_t(n)), y(size_t(n)) {
        for (size_t i = 0; i < a.size(); ++i) part(a[i]) = real_t<T>(1e-3) / real_t<T>(1 + i % 97);
        for (size_t i = 0; i < x.size(); ++i) {
            part(x[i]) = real_t<T>(1) / real_t<T>(1 + i % 89);
            part(y[i]) = real_t<T>(1) / real_t<T>(1 + i % 83);
            part(a[i * (x.size() + 1)]) = 1;
        }
        part(alpha) = real_t<T>(1e-6);
        part(one) = 1;
    }
    static real_t<T>& part(T& z) { return reinterpret_cast<real_t<T>&>(z); }

    int n = kOrder, step = 1;
    T alpha{}, one{};
    std::vector<T> a, x, y;
};

// run(f, operands) calls the function f of type F behind `symbol`.
template <class F, class T, class Run>
Binder bind(std::string symbol, Run run) {
    return [=](const Library& library) -> Call {
        F* const f = library.function<F>((symbol + "_").c_str());
        if (!f) return {};
        const auto operands = std::make_shared<Operands<T>>();
        return [=] { run(f, *operands); };
    };
}

template <class T>
Binder gemv(std::string symbol, std::string letter) {
    using F = void(const char*, const int*, const int*, const T*, const T*, const int*, const T*,
                   const int*, const T*, T*, const int*, int);
    return bind<F, T>(symbol, [letter](F* f, Operands<T>& o) {
        f(letter.data(), &o.n, &o.n, &o.alpha, o.a.data(), &o.n, o.x.data(), &o.step, &o.one,
          o.y.data(), &o.step, 1);
    });
}
template <class T>
Binder symv(std::string symbol, std::string letter) {
    using F = void(const char*, const int*, const T*, const T*, const int*, const T*, const int*,
                   const T*, T*, const int*, int);
    return bind<F, T>(symbol, [letter](F* f, Operands<T>& o) {
        f(letter.data(), &o.n, &o.alpha, o.a.data(), &o.n, o.x.data(), &o.step, &o.one, o.y.data(),
          &o.step, 1);
    });
}
template <class T>
Binder ger(std::string symbol, std::string) {
    using F = void(const int*, const int*, const T*, const T*, const int*, const T*, const int*, T*,
                   const int*);
    return bind<F, T>(symbol, [](F* f, Operands<T>& o) {
        Operands<T>::part(o.alpha) = -Operands<T>::part(o.alpha);
        f(&o.n, &o.n, &o.alpha, o.x.data(), &o.step, o.y.data(), &o.step, o.a.data(), &o.n);
    });
}
// trsv and trmv; `letters` are uplo, trans, diag.
template <class T>
Binder triangle(std::string symbol, std::string letters) {
    using F = void(const char*, const char*, const char*, const int*, const T*, const int*, T*,
                   const int*, int, int, int);
    return bind<F, T>(symbol, [letters](F* f, Operands<T>& o) {
        f(&letters[0], &letters[1], &letters[2], &o.n, o.a.data(), &o.n, o.x.data(), &o.step, 1, 1,
          1);
    });
}

void add(Suite& suite, std::string symbol, std::string letters, std::string formula,
         double operations, Limit limit, Binder (*binder)(std::string, std::string), double goal) {
    const std::string letter = letters.empty() ? "" : " " + letters;
    suite.push_back({.name = symbol + letter + " n=" + std::to_string(kOrder),
                     .formula = formula,
                     .work = operations * kOrder * kOrder,
                     .limit = limit,
                     .bind = binder(symbol, letters),
                     .goal = goal,
                     .rivals = {},
                     .against_goal = goal > 0 ? 1.0 : 0.0});
}

} // namespace

Suite level2_cases() {
    Suite suite;
    const std::string real = "2n^2 operations", complex = "8n^2 operations";
    for (const char* letter : {"N", "T"}) {
        add(suite, "dgemv", letter, real, 2, Limit::x87, gemv<double>, 0.9);
        add(suite, "sgemv", letter, real, 2, Limit::x87, gemv<float>, 0.9);
        add(suite, "zgemv", letter, complex, 8, Limit::x87, gemv<cdouble>, 0);
        add(suite, "cgemv", letter, complex, 8, Limit::x87, gemv<cfloat>, 0);
    }
    for (const char* letter : {"U", "L"}) {
        add(suite, "dsymv", letter, real, 2, Limit::x87, symv<double>, 0.75);
        add(suite, "ssymv", letter, real, 2, Limit::vector, symv<float>, 0);
        add(suite, "zhemv", letter, complex, 8, Limit::x87, symv<cdouble>, 0);
    }
    for (const char* letters : {"UNN", "UTN", "LNN", "LTN"})
        add(suite, "dtrsv", letters, "n^2 operations", 1, Limit::x87, triangle<double>, 0.75);
    for (const char* letters : {"UNU", "UTU"})
        add(suite, "dtrmv", letters, "n^2 operations", 1, Limit::x87, triangle<double>, 0);
    add(suite, "dger", "", real, 2, Limit::x87, ger<double>, 0.75);
    add(suite, "sger", "", real, 2, Limit::x87, ger<float>, 0);
    return suite;
}

} // namespace vor::bench
