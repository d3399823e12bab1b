// Argument checks: every routine, every argument, pairs of faults, all letters, the edges of leading
// dimensions. What is expected follows from the names of the arguments, which are taken from the
// argument list itself, and from the published meaning of those names.
#include "blas/check/routines.h"
#include "tests/blas/reports.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cstring>
#include <functional>
#include <map>
#include <sstream>

namespace {

using vor::test::Report;
using vor::test::Reports;

// One routine: how to call its check, and the names of its arguments.
struct Routine {
    std::string type, op;
    std::vector<std::string> arguments;                     // hidden lengths left out
    std::function<int(const void* const* addresses)> check; // addresses of the arguments, in order

    int number(const std::string& argument) const {
        const auto at = std::find(arguments.begin(), arguments.end(), argument);
        return at == arguments.end() ? 0 : static_cast<int>(at - arguments.begin()) + 1;
    }
    bool has(const std::string& argument) const { return number(argument) != 0; }
    std::string reported_name() const {
        std::string name = type + op;
        for (char& c : name) c = static_cast<char>(std::toupper(c));
        name.resize(6, ' ');
        return name;
    }
};

std::vector<std::string> names_of(std::string list) {
    std::vector<std::string> names;
    std::istringstream stream(list.substr(1, list.size() - 2));
    for (std::string one; std::getline(stream, one, ',');) {
        const std::string name = one.substr(one.find_first_not_of(' '));
        if (name.find("_length") == std::string::npos) names.push_back(name);
    }
    return names;
}

template <class A>
A word(const void* address) {
    if constexpr (std::is_pointer_v<A>)
        return static_cast<A>(const_cast<void*>(address));
    else
        return A{-7}; // a hidden length, which nobody reads
}

template <class... A>
auto caller(int (*check)(A...)) {
    return [check](const void* const* addresses) {
        return [&]<size_t... i>(std::index_sequence<i...>) {
            return check(word<A>(std::is_pointer_v<A> ? addresses[i] : nullptr)...);
        }
        (std::index_sequence_for<A...>{});
    };
}

const std::vector<Routine>& routines() {
#define TEXT(...) #__VA_ARGS__
#define NAMES(args) names_of(TEXT(args))
#define ROUTINE(p, P, T, op, OP, list, LIST)                                                       \
    {#p, #op, NAMES(ARGS_##LIST), caller(vor_blas_errchk_##p##op)},
    static const std::vector<Routine> all = {VOR_CHECKED_ROUTINES(ROUTINE)};
    return all;
}

// A call: values by argument name. Arrays and scalars stay null: reading one ends the test program.
using Values = std::map<std::string, int>;

bool is_option(const std::string& name) {
    return name == "side" || name == "uplo" || name == "diag" || name.starts_with("trans");
}
bool is_count(const std::string& name) {
    return name.size() <= 2 && std::strchr("mnk", name[0]);
}
bool is_step(const std::string& name) {
    return name.starts_with("inc");
}
bool is_leading(const std::string& name) {
    return name.starts_with("ld");
}

std::string letters_of(const Routine& routine, const std::string& option) {
    if (option == "side") return "LR";
    if (option == "uplo") return "UL";
    if (option == "diag") return "NU";
    const bool complex = routine.type == "c" || routine.type == "z";
    if (routine.op == "herk" || routine.op == "her2k") return "NC";
    if (complex && (routine.op == "syrk" || routine.op == "syr2k")) return "NT";
    return "NTC";
}

// The least leading dimension: the rows of the array as it is stored.
int rows_of(const Routine& routine, const std::string& leading, const Values& v) {
    const auto plain = [&](const char* option) { return std::toupper(v.at(option)) == 'N'; };
    int rows = 0;
    if (routine.has("ku"))
        rows = v.at("kl") + v.at("ku") + 1;
    else if (routine.has("k") && routine.has("incx"))
        rows = v.at("k") + 1;
    else if (routine.has("transb"))
        rows = leading == "ldc"   ? v.at("m")
               : leading == "lda" ? v.at(plain("transa") ? "m" : "k")
                                  : v.at(plain("transb") ? "k" : "n");
    else if (routine.has("side"))
        rows = v.at(leading != "lda" || std::toupper(v.at("side")) == 'L' ? "m" : "n");
    else if (routine.has("k"))
        rows = v.at(leading == "ldc" || plain("trans") ? "n" : "k");
    else
        rows = v.at(routine.has("m") ? "m" : "n");
    return std::max(1, rows);
}

void fit_leading(const Routine& routine, Values& v) {
    for (const std::string& name : routine.arguments)
        if (is_leading(name)) v[name] = rows_of(routine, name, v);
}

// Arguments without fault, the leading dimensions as small as they may be.
Values fit(const Routine& routine) {
    Values v;
    int next = 3;
    for (const std::string& name : routine.arguments) {
        if (is_option(name)) v[name] = letters_of(routine, name)[0];
        if (is_count(name)) v[name] = next += 2;
        if (is_step(name)) v[name] = -1;
    }
    fit_leading(routine, v);
    return v;
}

// The value that makes an argument unfit, every other being fit.
int unfit(const Routine& routine, const std::string& name, const Values& v) {
    if (is_option(name)) return 'X';
    if (is_count(name)) return -1;
    if (is_step(name)) return 0;
    return rows_of(routine, name, v) - 1;
}

int run(const Routine& routine, const Values& v) {
    std::vector<const void*> addresses;
    for (const std::string& name : routine.arguments)
        addresses.push_back(v.contains(name) ? &v.at(name) : nullptr);
    return routine.check(addresses.data());
}

class Checks : public testing::Test {
protected:
    // The check stays silent (number 0), or reports this number.
    void expect(const Routine& routine, const Values& v, int number, const std::string& what) {
        const int result = run(routine, v);
        const std::vector<Report> got = reports_.take();
        const std::vector<Report> want =
            number ? std::vector<Report>{{routine.reported_name(), number}} : std::vector<Report>{};
        EXPECT_EQ(result, number ? 1 : 0) << routine.type << routine.op << ": " << what;
        EXPECT_TRUE(got == want) << routine.type << routine.op << ": " << what << ": "
                                 << (got.empty() ? "no report" : got[0].name) << " "
                                 << (got.empty() ? 0 : got[0].number) << ", want " << number;
    }
    Reports reports_;
};

TEST_F(Checks, CoverEveryRoutine) {
    EXPECT_EQ(routines().size(), 96u);
}

TEST_F(Checks, ReportTheFirstOfTwoFaults) {
    for (const Routine& routine : routines()) {
        const Values fine = fit(routine);
        expect(routine, fine, 0, "no fault");
        for (const auto& [one, value] : fine)
            for (const auto& [other, unused] : fine) {
                Values v = fine;
                v[one] = unfit(routine, one, fine);
                v[other] = unfit(routine, other, fine);
                const int first = std::min(routine.number(one), routine.number(other));
                expect(routine, v, first, one + " and " + other);
            }
    }
}

TEST_F(Checks, KnowTheirLettersInBothCases) {
    for (const Routine& routine : routines())
        for (const std::string& option : routine.arguments) {
            if (!is_option(option)) continue;
            for (int c = 0; c < 256; ++c) {
                Values v = fit(routine);
                v[option] = c;
                fit_leading(routine, v);
                const bool allowed =
                    c < 128 && std::isalpha(c) &&
                    letters_of(routine, option).find(static_cast<char>(std::toupper(c))) !=
                        std::string::npos;
                expect(routine, v, allowed ? 0 : routine.number(option),
                       option + " " + std::to_string(c));
            }
        }
}

// Each leading dimension at its edge, under each letter of each option and with each count at 0: one
// less is a fault of that argument.
TEST_F(Checks, MeasureLeadingDimensions) {
    for (const Routine& routine : routines()) {
        const Values base = fit(routine);
        std::vector<Values> calls = {base};
        for (const std::string& name : routine.arguments) {
            if (is_option(name))
                for (const char letter : letters_of(routine, name)) {
                    calls.push_back(base);
                    calls.back()[name] = std::tolower(letter);
                }
            if (is_count(name)) {
                calls.push_back(base);
                calls.back()[name] = 0;
            }
        }
        for (Values& v : calls) {
            fit_leading(routine, v);
            expect(routine, v, 0, "tight");
            for (const std::string& name : routine.arguments) {
                if (!is_leading(name)) continue;
                Values less = v;
                --less[name];
                expect(routine, less, routine.number(name), name + " one too small");
                less[name] = -1000;
                expect(routine, less, routine.number(name), name + " negative");
            }
        }
    }
}

// Diagonals whose number passes the range of an integer must not wrap to a small leading dimension.
TEST_F(Checks, BandsOfHugeWidth) {
    for (const Routine& routine : routines()) {
        if (!routine.has("incx") || !routine.has("lda")) continue;
        Values v = fit(routine);
        if (routine.has("kl")) v["kl"] = v["ku"] = 0x7fffffff;
        if (routine.has("k")) v["k"] = 0x7fffffff;
        if (!routine.has("kl") && !routine.has("k")) continue;
        v["lda"] = 100;
        expect(routine, v, routine.number("lda"), "huge band");
    }
}

} // namespace
