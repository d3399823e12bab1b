// The vector routines: n = 4000, where the data lie in the first cache, and copies of large vectors.
#include "arith/element.h"
#include "bench/common/families.h"

#include <cstring>
#include <map>
#include <memory>

namespace vor::bench {

namespace {

constexpr int kShort = 4000;
constexpr int kLong = 8'000'000;

// Two vectors, and scalars that keep the data from growing or vanishing however often they are used.
template <class T>
struct Vectors {
    explicit Vectors(int length) : n(length), x(size_t(length)), y(size_t(length)) {
        for (auto* v : {&x, &y})
            for (size_t i = 0; i < v->size(); ++i)
                reinterpret_cast<real_t<T>&>((*v)[i]) = real_t<T>(1) / real_t<T>(1 + i % 97);
        reinterpret_cast<real_t<T>&>(tiny) = real_t<T>(1e-10);
        reinterpret_cast<real_t<T>&>(minus_one) = -1;
    }
    int n, step = 1;
    T tiny{}, minus_one{};
    real_t<T> c = real_t<T>(0.6), s = real_t<T>(0.8);
    std::vector<T> x, y;
};

// Calls that are alive at the same time share their vectors: what is compared works on the same pages.
template <class T>
std::shared_ptr<Vectors<T>> vectors_of(int n) {
    static std::map<int, std::weak_ptr<Vectors<T>>> alive;
    auto vectors = alive[n].lock();
    if (!vectors) alive[n] = vectors = std::make_shared<Vectors<T>>(n);
    return vectors;
}

// run(f, vectors) calls the function f of type F behind `symbol`.
template <class F, class T, class Run>
Binder bind(std::string symbol, int n, Run run) {
    return [=](const Library& library) -> Call {
        F* const f = library.function<F>(symbol.c_str());
        if (!f) return {};
        const auto vectors = vectors_of<T>(n);
        return [=] { run(f, *vectors); };
    };
}

template <class T>
Binder axpy(std::string symbol, int n) {
    using F = void(const int*, const T*, const T*, const int*, T*, const int*);
    return bind<F, T>(symbol, n, [](F* f, Vectors<T>& v) {
        f(&v.n, &v.tiny, v.x.data(), &v.step, v.y.data(), &v.step);
    });
}
template <class T>
Binder scal(std::string symbol, int n) {
    using F = void(const int*, const T*, T*, const int*);
    return bind<F, T>(symbol, n,
                      [](F* f, Vectors<T>& v) { f(&v.n, &v.minus_one, v.x.data(), &v.step); });
}
// copy and swap
template <class T>
Binder exchange(std::string symbol, int n) {
    using F = void(const int*, T*, const int*, T*, const int*);
    return bind<F, T>(
        symbol, n, [](F* f, Vectors<T>& v) { f(&v.n, v.x.data(), &v.step, v.y.data(), &v.step); });
}
template <class T>
Binder rot(std::string symbol, int n) {
    using R = real_t<T>;
    using F = void(const int*, T*, const int*, T*, const int*, const R*, const R*);
    return bind<F, T>(symbol, n, [](F* f, Vectors<T>& v) {
        f(&v.n, v.x.data(), &v.step, v.y.data(), &v.step, &v.c, &v.s);
    });
}
template <class T>
Binder dot(std::string symbol, int n) {
    using F = T(const int*, const T*, const int*, const T*, const int*);
    return bind<F, T>(
        symbol, n, [](F* f, Vectors<T>& v) { f(&v.n, v.x.data(), &v.step, v.y.data(), &v.step); });
}
template <class T>
Binder complex_dot(std::string symbol, int n) {
    using F = void(T*, const int*, const T*, const int*, const T*, const int*);
    return bind<F, T>(symbol, n, [](F* f, Vectors<T>& v) {
        T result;
        f(&result, &v.n, v.x.data(), &v.step, v.y.data(), &v.step);
    });
}
// nrm2, asum; amax, whose result is an R of int
template <class T, class R = real_t<T>>
Binder value(std::string symbol, int n) {
    using F = R(const int*, const T*, const int*);
    return bind<F, T>(symbol, n, [](F* f, Vectors<T>& v) { f(&v.n, v.x.data(), &v.step); });
}
// The C library's function: called by its address, or the compiler puts its own loop in place of it.
template <class T>
Binder memory_copy(int n) {
    return [n](const Library&) -> Call {
        const auto vectors = vectors_of<T>(n);
        void* (*volatile copy)(void*, const void*, size_t) = std::memcpy;
        return [vectors, n, copy] {
            copy(vectors->y.data(), vectors->x.data(), size_t(n) * sizeof(T));
        };
    };
}

// An operation in single and double precision: the double one against the x87 unit, the single one
// against the vector unit and against the double one.
template <class OfFloat, class OfDouble>
void add_pair(Suite& suite, std::string name, int operations, OfFloat of_float,
              OfDouble of_double) {
    const std::string size = " n=" + std::to_string(kShort);
    const std::string formula = operations == 1 ? "n operations" : "2n operations";
    const Binder double_member = of_double("d" + name + "_", kShort);
    suite.push_back({.name = "d" + name + size,
                     .formula = formula,
                     .work = double(operations) * kShort,
                     .limit = Limit::x87,
                     .bind = double_member,
                     .goal = 0.9,
                     .rivals = {},
                     .against_goal = 1});
    suite.push_back({.name = "s" + name + size,
                     .formula = formula,
                     .work = double(operations) * kShort,
                     .limit = Limit::vector,
                     .bind = of_float("s" + name + "_", kShort),
                     .rivals = {{.name = "d" + name, .bind = double_member, .goal = 2}},
                     .against_goal = 2});
}

void add(Suite& suite, std::string name, std::string formula, int operations, Limit limit,
         Binder binder, bool comparable = true) {
    suite.push_back({.name = name + " n=" + std::to_string(kShort),
                     .formula = formula,
                     .work = double(operations) * kShort,
                     .limit = limit,
                     .bind = binder,
                     .comparable = comparable,
                     .rivals = {}});
}

template <class T>
void add_large_copy(Suite& suite, std::string symbol) {
    suite.push_back({.name = symbol.substr(0, 5) + " n=" + std::to_string(kLong),
                     .formula = "bytes read and written",
                     .work = 2.0 * kLong * sizeof(T),
                     .limit = Limit::copy,
                     .bind = exchange<T>(symbol, kLong),
                     .rivals = {{.name = "memcpy", .bind = memory_copy<T>(kLong), .goal = 1}}});
}

} // namespace

Suite level1_cases() {
    Suite suite;
    add_pair(suite, "dot", 2, dot<float>, dot<double>);
    add_pair(suite, "axpy", 2, axpy<float>, axpy<double>);
    add_pair(suite, "nrm2", 2, value<float>, value<double>);
    add_pair(suite, "asum", 1, value<float>, value<double>);
    add_pair(suite, "scal", 1, scal<float>, scal<double>);

    add(suite, "zaxpy", "8n operations", 8, Limit::x87, axpy<cdouble>("zaxpy_", kShort));
    add(suite, "caxpy", "8n operations", 8, Limit::vector, axpy<cfloat>("caxpy_", kShort));
    // Libraries differ in the way a complex result is returned.
    add(suite, "zdotu", "8n operations", 8, Limit::x87, complex_dot<cdouble>("zdotu_", kShort),
        false);
    add(suite, "cdotu", "8n operations", 8, Limit::vector, complex_dot<cfloat>("cdotu_", kShort),
        false);
    add(suite, "zscal", "6n operations", 6, Limit::x87, scal<cdouble>("zscal_", kShort));
    add(suite, "cscal", "6n operations", 6, Limit::vector, scal<cfloat>("cscal_", kShort));
    add(suite, "drot", "6n operations", 6, Limit::x87, rot<double>("drot_", kShort));
    add(suite, "srot", "6n operations", 6, Limit::vector, rot<float>("srot_", kShort));
    add(suite, "idamax", "n comparisons", 1, Limit::x87, value<double, int>("idamax_", kShort));
    add(suite, "isamax", "n comparisons", 1, Limit::vector, value<float, int>("isamax_", kShort));
    add(suite, "dswap", "bytes", 32, Limit::copy, exchange<double>("dswap_", kShort));
    add(suite, "sswap", "bytes", 16, Limit::copy, exchange<float>("sswap_", kShort));

    add_large_copy<float>(suite, "scopy_");
    add_large_copy<double>(suite, "dcopy_");
    add_large_copy<cfloat>(suite, "ccopy_");
    add_large_copy<cdouble>(suite, "zcopy_");

    suite.push_back(
        {.name = "ddot n=1",
         .formula = "one call through the entry",
         .work = 1,
         .limit = Limit::none,
         .bind = dot<double>("ddot_", 1),
         .rivals = {
             {.name = "engine", .bind = dot<double>("vor_blas_ddot", 1), .most_extra = 6e-9}}});
    return suite;
}

} // namespace vor::bench
