// The structured Level 3 routines on square problems: shares of the unit that bounds them, and their
// rates beside the matrix product of the same size.
#include "bench/blas/square.h"
#include "bench/common/families.h"

namespace vor::bench {

namespace {

// One routine by the shape of its argument list.
enum class Shape { triangle, rank_k, two_operands };

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
    const auto x = std::make_shared<Square<T>>(n);
    const std::string s = op.letters;
    const auto with = [&]<class F>(F* f, auto call) -> Call {
        if (!f) return {};
        return [=] { call(f, *x); };
    };
    switch (op.shape) {
    case Shape::triangle:
        return with(library.function<void(Letter, Letter, Letter, Letter, Size, Size, In, In, Size,
                                          T*, Size, int, int, int, int)>(symbol.c_str()),
                    [s](auto f, Square<T>& m) {
                        f(&s[0], &s[1], &s[2], &s[3], &m.n, &m.n, &m.one, m.a.data(), &m.n,
                          m.b.data(), &m.n, 1, 1, 1, 1);
                    });
    case Shape::two_operands:
        return with(library.function<void(Letter, Letter, Size, Size, In, In, Size, In, Size, In,
                                          T*, Size, int, int)>(symbol.c_str()),
                    [s](auto f, Square<T>& m) {
                        f(&s[0], &s[1], &m.n, &m.n, &m.one, m.a.data(), &m.n, m.b.data(), &m.n,
                          &m.zero, m.c.data(), &m.n, 1, 1);
                    });
    // The real scalars of herk and her2k are the real parts of the complex ones.
    case Shape::rank_k:
        return with(library.function<void(Letter, Letter, Size, Size, In, In, Size, In, T*, Size,
                                          int, int)>(symbol.c_str()),
                    [s](auto f, Square<T>& m) {
                        f(&s[0], &s[1], &m.n, &m.n, &m.one, m.b.data(), &m.n, &m.zero, m.c.data(),
                          &m.n, 1, 1);
                    });
    }
    return {};
}

const Operation kOperations[] = {
    {"trsm", "LLNN", Shape::triangle, 1},
    {"trsm", "LUTN", Shape::triangle, 1},
    {"trsm", "RUNN", Shape::triangle, 1},
    {"trmm", "LUNN", Shape::triangle, 1},
    {"trmm", "LLTN", Shape::triangle, 1},
    {"trmm", "RLNN", Shape::triangle, 1},
    {"symm", "LU", Shape::two_operands, 2},
    {"symm", "RL", Shape::two_operands, 2},
    {"syrk", "UN", Shape::rank_k, 1},
    {"syrk", "LT", Shape::rank_k, 1},
    {"syr2k", "UN", Shape::two_operands, 2},
    {"syr2k", "LT", Shape::two_operands, 2},
    {"hemm", "LU", Shape::two_operands, 2, true},
    {"herk", "UN", Shape::rank_k, 1, true},
    {"her2k", "UN", Shape::two_operands, 2, true},
};

constexpr double kExtendedShare = 0.92; // of the x87 rate, d and z
constexpr double kProductShare = 0.85;  // of the product's rate, s and c
constexpr double kProductWork = 2;      // as Operation::work
constexpr int kSizes[] = {512, 1000};
constexpr int kThreadedSize = 1000;
constexpr double kThreadedGain = 1.8;

template <class T>
Case routine_case(char type, const Operation& op, int n) {
    const double operations = op.work * kComplexFactor<T>;
    Case one{.name = type + op.name + " " + op.letters + " n=" + std::to_string(n),
             .formula = std::to_string(int(operations)) + "n^3 operations",
             .work = operations * n * n * n,
             .limit = kUnit<T>,
             .bind = [=](const Library& library) { return bind<T>(library, type, op, n); },
             .goal = is_extended<T> ? kExtendedShare : 0,
             .rivals = {},
             .against_goal = 1};
    // Rates are compared: a routine with half the work is to take half the time.
    if (!is_extended<T>)
        one.rivals.push_back({.name = "gemm",
                              .bind = gemm<T>(type, "NN", n),
                              .goal = kProductShare * kProductWork / op.work});
    return one;
}

} // namespace

Suite level3_cases() {
    return all_types([]<class T>(Suite& suite, char type) {
        for (const Operation& op : kOperations) {
            if (op.hermitian && !is_complex<T>) continue;
            for (const int n : kSizes) suite.push_back(routine_case<T>(type, op, n));
            suite.push_back(
                on_two_threads(routine_case<T>(type, op, kThreadedSize), kThreadedGain));
        }
    });
}

} // namespace vor::bench
