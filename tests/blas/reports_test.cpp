// Reports of Level 2 and Level 3 through both interfaces: every routine, every argument, pairs of faults
// in the order of the tests, all letters and values of the options, leading dimensions at their edge.
// What is expected follows from the names of the arguments, which are taken from the argument list
// itself, and from the published meaning of those names.
#include "blas/check/routines.h"
#include "tests/blas/reports.h"
#include "tests/blas/routine.h"
#include "vor_cblas.h"

#include <gtest/gtest.h>

#include <functional>

namespace {

using namespace vor::test;

struct Tested : Routine {
    // The call: true if it goes on behind the tests, as far as that can be seen.
    std::function<bool(const Names& arguments, const Values& values)> call;

    std::string reported_name() const {
        std::string name = type + op;
        if (for_c) return "cblas_" + name;
        for (char& c : name) c = static_cast<char>(std::toupper(c));
        name.resize(6, ' ');
        return name;
    }
};

// A check function, given addresses: those of arrays and scalars are null, and reading one ends the test.
template <class... A>
auto caller(int (*check)(A...)) {
    return [check](const Names& arguments, const Values& values) {
        const auto word = [&]<class P>(size_t i) -> P {
            if constexpr (!std::is_pointer_v<P>)
                return -7; // a hidden length, which nobody reads
            else if (!values.contains(arguments[i]))
                return nullptr;
            else
                return reinterpret_cast<P>(const_cast<int*>(&values.at(arguments[i])));
        };
        return [&]<size_t... i>(std::index_sequence<i...>) {
            return check(word.template operator()<A>(i)...) == 0;
        }
        (std::index_sequence_for<A...>{});
    };
}

// A routine for C, whose arrays and scalars lie in one memory. It is all zeros, so that a call without
// fault leaves zeros (or NaNs) behind; a call with a fault leaves everything as it was.
alignas(64) char memory[1 << 14];
constexpr char kUntouched = 0x11;

template <class... A>
auto caller(void (*routine)(A...)) {
    return [routine](const Names& arguments, const Values& values) {
        const auto word = [&]<class P>(size_t i) -> P {
            if constexpr (std::is_pointer_v<P>)
                return reinterpret_cast<P>(memory);
            else
                return static_cast<P>(values.contains(arguments[i]) ? values.at(arguments[i]) : 0);
        };
        [&]<size_t... i>(std::index_sequence<i...>) {
            routine(word.template operator()<A>(i)...);
        }
        (std::index_sequence_for<A...>{});
        return std::any_of(memory, std::end(memory), [](char c) { return c != kUntouched; });
    };
}

const std::vector<Tested>& routines(bool for_c) {
#define CHECK(letter, op, check, T, tests, LIST, report)                                           \
    {{#letter, #op, false, VOR_NAMES(ARGS_##LIST, false)}, caller(check)},
#define FOR_C(letter, op, check, T, tests, LIST, report)                                           \
    {{#letter, #op, true, VOR_NAMES(ARGS_##LIST, true)}, caller(cblas_##letter##op)},
    static const std::vector<Tested> checks = {VOR_CHECKED_ROUTINES(CHECK)};
    static const std::vector<Tested> all_for_c = {VOR_CHECKED_ROUTINES(FOR_C)};
    return for_c ? all_for_c : checks;
}

// The arguments that are tested, in the order of the tests: in that of the list, but for C by kinds,
// with the order in front of all or, in Level 3, in front of the leading dimensions.
Names tests_of(const Routine& routine, int order) {
    const auto rank = [&](const std::string& name) {
        if (!routine.for_c) return 0;
        if (name == "order") return routine.is_level2() ? 0 : 3;
        // Complex row-major products of a general matrix with a vector look at the transpose last.
        const bool product = routine.op == "gemv" || routine.op == "gbmv";
        if (option_of(name)) return product && routine.is_complex() && order == kRowMajor ? 6 : 1;
        return is_count(name) ? 2 : is_leading(name) ? 4 : 5;
    };
    Names tests;
    for (const std::string& name : routine.arguments)
        if (name == "order" || option_of(name) || is_count(name) || is_leading(name) ||
            is_step(name))
            tests.push_back(name);
    std::stable_sort(tests.begin(), tests.end(),
                     [&](const auto& a, const auto& b) { return rank(a) < rank(b); });
    return tests;
}

void fit_leading(const Routine& routine, Values& v) {
    for (const std::string& name : routine.arguments)
        if (is_leading(name)) v[name] = routine.least(name, v);
}

// Arguments without fault, the leading dimensions as small as they may be.
Values fit(const Routine& routine, int order) {
    Values v;
    int next = 1;
    for (const std::string& name : routine.arguments) {
        if (is_count(name)) v[name] = next += 2;
        if (is_step(name)) v[name] = -1;
        if (const auto values = routine.choices(name); !values.empty()) v[name] = values[0];
    }
    if (routine.for_c) v["order"] = order;
    fit_leading(routine, v);
    return v;
}

int unfit(const Routine& routine, const std::string& name, const Values& v) {
    if (is_count(name)) return -1;
    if (is_step(name)) return 0;
    if (is_leading(name)) return routine.least(name, v) - 1;
    return 'X';
}

// On the check functions and on the routines for C.
class ArgumentReports : public testing::TestWithParam<bool> {
protected:
    // The call stays silent (number 0) and goes on, or reports this number and ends.
    void expect(const Tested& routine, const Values& v, int number, const std::string& what) {
        std::memset(memory, number ? kUntouched : 0, sizeof memory);
        const bool goes_on = routine.call(routine.arguments, v);
        const auto want =
            number ? std::vector<Report>{{routine.reported_name(), number}} : std::vector<Report>{};
        const auto got = reports_.take();
        EXPECT_TRUE(got == want && goes_on == (number == 0))
            << routine.reported_name() << ": " << what << ": report "
            << (got.empty() ? 0 : got[0].number) << ", want " << number;
    }
    // check(routine, order) for all; the check functions know no order.
    template <class Check>
    void each_routine(Check check) {
        for (const Tested& routine : routines(GetParam())) {
            check(routine, 102);
            if (routine.for_c) check(routine, 101);
        }
    }
    Reports reports_;
};
INSTANTIATE_TEST_SUITE_P(Checks, ArgumentReports, testing::Values(false));
INSTANTIATE_TEST_SUITE_P(Cblas, ArgumentReports, testing::Values(true));

TEST_P(ArgumentReports, NameTheFirstOfTwoFaults) {
    EXPECT_EQ(routines(GetParam()).size(), 96u);
    each_routine([&](const Tested& routine, int order) {
        const Values fine = fit(routine, order);
        const Names tests = tests_of(routine, order);
        expect(routine, fine, 0, "no fault");
        for (auto first = tests.begin(); first != tests.end(); ++first)
            for (auto second = first; second != tests.end(); ++second) {
                Values v = fine;
                v[*first] = unfit(routine, *first, fine);
                v[*second] = unfit(routine, *second, fine);
                expect(routine, v, routine.number(*first), *first + " and " + *second);
            }
    });
}

// Those that are allowed are used below.
TEST_P(ArgumentReports, RefuseOtherValuesOfTheirOptions) {
    for (const Tested& routine : routines(GetParam()))
        for (const std::string& name : routine.arguments) {
            const auto allowed = routine.choices(name);
            for (int value = 0; value < 256 && !allowed.empty(); ++value) {
                if (std::count(allowed.begin(), allowed.end(), value)) continue;
                Values v = fit(routine, 102);
                v[name] = value;
                expect(routine, v, routine.number(name), name + " " + std::to_string(value));
            }
        }
}

// Each leading dimension at its edge, under each value of each option and with each count at 0. Diagonals
// whose number passes the range of an integer must not wrap to a small leading dimension.
TEST_P(ArgumentReports, MeasureLeadingDimensions) {
    each_routine([&](const Tested& routine, int order) {
        const Values base = fit(routine, order);
        std::vector<Values> calls = {base};
        for (const std::string& name : routine.arguments) {
            std::vector<int> values = routine.choices(name);
            if (is_count(name)) values = {0};
            for (const int value : values) calls.push_back(base), calls.back()[name] = value;
        }
        for (Values& v : calls) {
            fit_leading(routine, v);
            expect(routine, v, 0, "tight");
            for (const std::string& name : routine.arguments)
                for (const int value : {v[name] - 1, -1000}) {
                    if (!is_leading(name)) continue;
                    Values less = v;
                    less[name] = value;
                    expect(routine, less, routine.number(name), name + " too small");
                }
        }
        Values huge = base;
        for (const char* width : {"k", "kl", "ku"})
            if (routine.has(width)) huge[width] = 0x7fffffff;
        if (routine.is_level2() && huge != base)
            expect(routine, huge, routine.number("lda"), "huge band");
    });
}

} // namespace
