// The structured Level 3 routines on square problems: shares of the unit that bounds them, and their
// rates beside the matrix product of the same size.
#include "bench/common/families.h"
#include "serv/element.h"

#include <memory>

namespace vor::bench {

namespace {

// A triangle near the identity: however often it is solved with or multiplied by, nothing grows.
template <class T>
struct Matrices {
    explicit Matrices(int order)
        : n(order), a(size_t(order) * size_t(order)), b(a.size()), c(a.size()) {
        for (size_t i = 0; i < a.size(); ++i) {
            const bool diagonal = i % size_t(order + 1) == 0;
            real_part(a[i]) = diagonal ? 1 : real_t<T>(1e-6) / real_t<T>(1 + i % 97);
            real_part(b[i]) = real_part(c[i]) = real_t<T>(1) / real_t<T>(1 + i % 89);
        }
        real_part(one) = 1;
    }
    static real_t<T>& real_part(T& x) { return reinterpret_cast<real_t<T>&>(x); }
    int n;
    T one{}, zero{};
    std::vector<T> a, b, c;
};

// One routine by the shape of its argument list.
enum class Shape { product, triangular, symmetric, rank_k, rank_2k };

struct Operation {
    std::string name; // without the type letter
    std::string letters;
    Shape shape;
    double work; // real operations in n^3; complex ones are four of them
    bool hermitian = false;
};

template <class T>
Call bind(const Library& library, char type, const Operation& op, int n) {
    using Letter = const char*;
    using Size = const int*;
    using In = const T*;
    const std::string symbol = type + op.name + "_";
    const auto x = std::make_shared<Matrices<T>>(n);
    const std::string s = op.letters;
    const auto with = [&]<class F>(F* f, auto call) -> Call {
        if (!f) return {};
        return [=] { call(f, *x); };
    };
    switch (op.shape) {
    case Shape::product:
        return with(library.function<void(Letter, Letter, Size, Size, Size, In, In, Size, In, Size,
                                          In, T*, Size, int, int)>(symbol.c_str()),
                    [s](auto f, Matrices<T>& m) {
                        f(&s[0], &s[1], &m.n, &m.n, &m.n, &m.one, m.a.data(), &m.n, m.b.data(),
                          &m.n, &m.zero, m.c.data(), &m.n, 1, 1);
                    });
    case Shape::triangular:
        return with(library.function<void(Letter, Letter, Letter, Letter, Size, Size, In, In, Size,
                                          T*, Size, int, int, int, int)>(symbol.c_str()),
                    [s](auto f, Matrices<T>& m) {
                        f(&s[0], &s[1], &s[2], &s[3], &m.n, &m.n, &m.one, m.a.data(), &m.n,
                          m.b.data(), &m.n, 1, 1, 1, 1);
                    });
    case Shape::symmetric:
        return with(library.function<void(Letter, Letter, Size, Size, In, In, Size, In, Size, In,
                                          T*, Size, int, int)>(symbol.c_str()),
                    [s](auto f, Matrices<T>& m) {
                        f(&s[0], &s[1], &m.n, &m.n, &m.one, m.a.data(), &m.n, m.b.data(), &m.n,
                          &m.zero, m.c.data(), &m.n, 1, 1);
                    });
    // The real scalars of herk and her2k are the real parts of the complex ones.
    case Shape::rank_k:
        return with(library.function<void(Letter, Letter, Size, Size, In, In, Size, In, T*, Size,
                                          int, int)>(symbol.c_str()),
                    [s](auto f, Matrices<T>& m) {
                        f(&s[0], &s[1], &m.n, &m.n, &m.one, m.b.data(), &m.n, &m.zero, m.c.data(),
                          &m.n, 1, 1);
                    });
    case Shape::rank_2k:
        return with(library.function<void(Letter, Letter, Size, Size, In, In, Size, In, Size, In,
                                          T*, Size, int, int)>(symbol.c_str()),
                    [s](auto f, Matrices<T>& m) {
                        f(&s[0], &s[1], &m.n, &m.n, &m.one, m.a.data(), &m.n, m.b.data(), &m.n,
                          &m.zero, m.c.data(), &m.n, 1, 1);
                    });
    }
    return {};
}

const Operation kGemm = {"gemm", "NN", Shape::product, 2};
const Operation kOperations[] = {
    {"trsm", "LLNN", Shape::triangular, 1},    {"trsm", "LUTN", Shape::triangular, 1},
    {"trsm", "RUNN", Shape::triangular, 1},    {"trmm", "LUNN", Shape::triangular, 1},
    {"trmm", "LLTN", Shape::triangular, 1},    {"trmm", "RLNN", Shape::triangular, 1},
    {"symm", "LU", Shape::symmetric, 2},       {"symm", "RL", Shape::symmetric, 2},
    {"syrk", "UN", Shape::rank_k, 1},          {"syrk", "LT", Shape::rank_k, 1},
    {"syr2k", "UN", Shape::rank_2k, 2},        {"syr2k", "LT", Shape::rank_2k, 2},
    {"hemm", "LU", Shape::symmetric, 2, true}, {"herk", "UN", Shape::rank_k, 1, true},
    {"her2k", "UN", Shape::rank_2k, 2, true},
};

constexpr double kExtendedShare = 0.92; // of the x87 rate, d and z
constexpr double kProductShare = 0.85;  // of the product's rate, s and c

template <class T>
void add_type(Suite& suite, char type) {
    const bool extended = sizeof(real_t<T>) == 8;
    const int complex_factor = is_complex<T> ? 4 : 1;
    const auto binder = [type](const Operation& op, int n) -> Binder {
        return [=](const Library& library) { return bind<T>(library, type, op, n); };
    };
    for (const Operation& op : kOperations)
        for (const int n : {512, 1000}) {
            if (op.hermitian && !is_complex<T>) continue;
            const double operations = op.work * complex_factor;
            Case one{.name = type + op.name + " " + op.letters + " n=" + std::to_string(n),
                     .formula = std::to_string(int(operations)) + "n^3 operations",
                     .work = operations * n * n * n,
                     .limit = extended ? Limit::x87 : Limit::vector,
                     .bind = binder(op, n),
                     .goal = extended ? kExtendedShare : 0,
                     .rivals = {},
                     .against_goal = 1};
            // Rates are compared: a routine with half the work is to take half the time.
            if (!extended)
                one.rivals.push_back({.name = "gemm",
                                      .bind = binder(kGemm, n),
                                      .goal = kProductShare * kGemm.work / op.work});
            suite.push_back(one);
        }
}

} // namespace

Suite level3_cases() {
    Suite suite;
    add_type<float>(suite, 's');
    add_type<double>(suite, 'd');
    add_type<cfloat>(suite, 'c');
    add_type<cdouble>(suite, 'z');
    return suite;
}

} // namespace vor::bench
