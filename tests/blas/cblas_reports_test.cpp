// Reports of the routines for C: every argument, pairs of faults in the order of the tests, leading
// dimensions at their edge in both orders. Expected numbers are positions in the argument list, least
// leading dimensions follow from the shape of the stored matrix.
#include "blas/check/routines.h"
#include "tests/blas/reports.h"
#include "vor_cblas.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <iterator>
#include <map>
#include <sstream>

namespace {

using vor::test::Report;
using vor::test::Reports;
using Names = std::vector<std::string>;
using Values = std::map<std::string, int>; // by argument; arrays and scalars are left out

Names split(const std::string& text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

// The argument lists, and the arguments that are tested in the order of the tests.
struct List {
    const char *arguments, *tests;
};
const std::map<std::string, List> kLists = {
    {"gemm",
     {"order transa transb m n k alpha a lda b ldb beta c ldc",
      "transa transb m n k order lda ldb ldc"}},
    {"symm",
     {"order side uplo m n alpha a lda b ldb beta c ldc", "side uplo m n order lda ldb ldc"}},
    {"syrk", {"order uplo trans n k alpha a lda beta c ldc", "uplo trans n k order lda ldc"}},
    {"syr2k",
     {"order uplo trans n k alpha a lda b ldb beta c ldc", "uplo trans n k order lda ldb ldc"}},
    {"trmm",
     {"order side uplo trans diag m n alpha a lda b ldb",
      "side uplo trans diag m n order lda ldb"}},
    {"gemv", {"order trans m n alpha a lda x incx beta y incy", "order trans m n lda incx incy"}},
    {"gbmv",
     {"order trans m n kl ku alpha a lda x incx beta y incy",
      "order trans m n kl ku lda incx incy"}},
    {"ger", {"order m n alpha x incx y incy a lda", "order m n lda incx incy"}},
    {"symv", {"order uplo n alpha a lda x incx beta y incy", "order uplo n lda incx incy"}},
    {"sbmv", {"order uplo n k alpha a lda x incx beta y incy", "order uplo n k lda incx incy"}},
    {"spmv", {"order uplo n alpha ap x incx beta y incy", "order uplo n incx incy"}},
    {"syr", {"order uplo n alpha x incx a lda", "order uplo n lda incx"}},
    {"syr2", {"order uplo n alpha x incx y incy a lda", "order uplo n lda incx incy"}},
    {"spr", {"order uplo n alpha x incx ap", "order uplo n incx"}},
    {"spr2", {"order uplo n alpha x incx y incy ap", "order uplo n incx incy"}},
    {"trmv", {"order uplo trans diag n a lda x incx", "order uplo trans diag n lda incx"}},
    {"tbmv", {"order uplo trans diag n k a lda x incx", "order uplo trans diag n k lda incx"}},
    {"tpmv", {"order uplo trans diag n ap x incx", "order uplo trans diag n incx"}},
};

// Memory for every array and scalar of a call, all zeros: what a call writes is zero, or not a number.
alignas(64) char memory[1 << 14];

template <class A>
A word(int value) {
    if constexpr (std::is_pointer_v<A>)
        return reinterpret_cast<A>(memory);
    else
        return static_cast<A>(value);
}

struct Routine {
    std::string type, op;
    Names arguments, tests;
    std::function<void(const std::vector<int>&)> call; // values of the arguments in their order

    std::string name() const { return "cblas_" + type + op; }
    bool has(const std::string& argument) const {
        return std::find(arguments.begin(), arguments.end(), argument) != arguments.end();
    }
    int number(const std::string& argument) const {
        return static_cast<int>(std::find(arguments.begin(), arguments.end(), argument) -
                                arguments.begin()) +
               1;
    }
    bool is_complex() const { return type == "c" || type == "z"; }
};

template <class... A>
auto caller(void (*routine)(A...)) {
    return [routine](const std::vector<int>& values) {
        [&]<size_t... i>(std::index_sequence<i...>) {
            routine(word<A>(values[i])...);
        }
        (std::index_sequence_for<A...>{});
    };
}

Routine make(const char* type, const char* op, std::string list,
             std::function<void(const std::vector<int>&)> call) {
    if (list == "herk" || list == "her2k") list = "sy" + list.substr(2);
    const List& row = kLists.at(list);
    return {type, op, split(row.arguments), split(row.tests), std::move(call)};
}

const std::vector<Routine>& routines() {
#define ROUTINE(p, P, T, op, OP, list, LIST) make(#p, #op, #list, caller(cblas_##p##op)),
    static const std::vector<Routine> all = {VOR_CHECKED_ROUTINES(ROUTINE)};
    return all;
}

bool is_step(const std::string& name) {
    return name.starts_with("inc");
}
bool is_leading(const std::string& name) {
    return name.starts_with("ld");
}
bool is_count(const std::string& name) {
    return !is_leading(name) && name.size() <= 2 && std::strchr("mnk", name[0]);
}

// The values that an enumeration may have; empty for any other argument.
std::vector<int> choices(const Routine& routine, const std::string& name) {
    if (name == "order") return {101, 102};
    if (name == "side") return {141, 142};
    if (name == "uplo") return {121, 122};
    if (name == "diag") return {131, 132};
    if (!name.starts_with("trans")) return {};
    if (routine.op == "herk" || routine.op == "her2k") return {111, 113};
    if (routine.is_complex() && (routine.op == "syrk" || routine.op == "syr2k")) return {111, 112};
    return {111, 112, 113};
}

// The least leading dimension: the length of a column, row-major of a row, of the stored matrix.
int least(const Routine& routine, const std::string& leading, const Values& v) {
    const auto at = [&](const char* name) { return v.at(name); };
    const bool row_major = at("order") == 101;
    const auto of = [&](int rows, int columns, const char* trans = nullptr) {
        const bool transposed = trans && at(trans) != 111;
        return std::max(1, transposed != row_major ? columns : rows);
    };
    const auto n = at("n");
    if (routine.has("kl")) return at("kl") + at("ku") + 1;
    if (routine.has("k") && routine.has("incx")) return at("k") + 1;
    if (routine.has("transb"))
        return leading == "lda"   ? of(at("m"), at("k"), "transa")
               : leading == "ldb" ? of(at("k"), n, "transb")
                                  : of(at("m"), n);
    if (routine.has("side") && leading == "lda")
        return std::max(1, at("side") == 141 ? at("m") : n);
    if (routine.has("k")) return leading == "ldc" ? of(n, n) : of(n, at("k"), "trans");
    return of(routine.has("m") ? at("m") : n, n);
}

void fit_leading(const Routine& routine, Values& v) {
    for (const std::string& name : routine.arguments)
        if (is_leading(name)) v[name] = least(routine, name, v);
}

// Arguments without fault, the leading dimensions as small as they may be.
Values fit(const Routine& routine, int order) {
    Values v;
    int next = 1;
    for (const std::string& name : routine.arguments) {
        if (is_count(name)) v[name] = next += 2;
        if (is_step(name)) v[name] = -1;
        const auto values = choices(routine, name);
        if (!values.empty()) v[name] = values[0];
    }
    v["order"] = order;
    fit_leading(routine, v);
    return v;
}

int unfit(const Routine& routine, const std::string& name, const Values& v) {
    if (is_count(name)) return -1;
    if (is_step(name)) return 0;
    if (is_leading(name)) return least(routine, name, v) - 1;
    return name == "order" ? 100 : 7;
}

class CblasReports : public testing::Test {
protected:
    // The call stays silent (number 0), or reports this number and writes nothing.
    void expect(const Routine& routine, const Values& v, int number, const std::string& what) {
        std::vector<int> values;
        for (const std::string& name : routine.arguments)
            values.push_back(v.contains(name) ? v.at(name) : 0);
        std::memset(memory, 0, sizeof memory);
        if (number) std::memset(memory, 0x11, sizeof memory);
        routine.call(values);
        const auto want =
            number ? std::vector<Report>{{routine.name(), number}} : std::vector<Report>{};
        EXPECT_EQ(reports_.take(), want) << routine.name() << ": " << what;
        const auto untouched = [](char c) { return c == 0x11; };
        EXPECT_TRUE(!number || std::all_of(memory, std::end(memory), untouched))
            << routine.name() << ": " << what;
    }
    Reports reports_;
};

TEST_F(CblasReports, ComeInTheOrderOfTheTests) {
    EXPECT_EQ(routines().size(), 96u);
    for (const Routine& routine : routines())
        for (const int order : {101, 102}) {
            const Values fine = fit(routine, order);
            expect(routine, fine, 0, "no fault");
            Names tests = routine.tests;
            // Complex row-major products with a vector look at the transpose last.
            if (routine.is_complex() && order == 101 &&
                (routine.op == "gemv" || routine.op == "gbmv"))
                std::rotate(tests.begin() + 1, tests.begin() + 2, tests.end());
            for (auto first = tests.begin(); first != tests.end(); ++first)
                for (auto second = first; second != tests.end(); ++second) {
                    Values v = fine;
                    v[*first] = unfit(routine, *first, fine);
                    v[*second] = unfit(routine, *second, fine);
                    expect(routine, v, routine.number(*first), *first + " and " + *second);
                }
        }
}

TEST_F(CblasReports, KnowTheValuesOfTheirEnumerations) {
    for (const Routine& routine : routines())
        for (const std::string& name : routine.arguments) {
            const auto values = choices(routine, name);
            for (int value = 0; value < 150 && !values.empty(); ++value) {
                Values v = fit(routine, 102);
                v[name] = value;
                const bool allowed = std::find(values.begin(), values.end(), value) != values.end();
                if (allowed) fit_leading(routine, v);
                expect(routine, v, allowed ? 0 : routine.number(name),
                       name + " " + std::to_string(value));
            }
        }
}

// Each leading dimension at its edge, in both orders, under each value of each enumeration and with
// each count at 0.
TEST_F(CblasReports, MeasureLeadingDimensions) {
    for (const Routine& routine : routines())
        for (const int order : {101, 102}) {
            const Values base = fit(routine, order);
            std::vector<Values> calls = {base};
            for (const std::string& name : routine.arguments) {
                for (const int value : choices(routine, name))
                    calls.push_back(base), calls.back()[name] = value;
                if (is_count(name)) calls.push_back(base), calls.back()[name] = 0;
            }
            for (Values& v : calls) {
                fit_leading(routine, v);
                expect(routine, v, 0, "tight");
                for (const std::string& name : routine.arguments) {
                    if (!is_leading(name)) continue;
                    Values less = v;
                    --less[name];
                    expect(routine, less, routine.number(name), name + " one too small");
                }
            }
        }
}

// Diagonals whose number passes the range of an integer must not wrap to a small leading dimension.
TEST_F(CblasReports, BandsOfHugeWidth) {
    for (const Routine& routine : routines()) {
        if (!routine.has("incx") || !(routine.has("k") || routine.has("kl"))) continue;
        Values v = fit(routine, 101);
        for (const char* width : {"k", "kl", "ku"})
            if (routine.has(width)) v[width] = 0x7fffffff;
        expect(routine, v, routine.number("lda"), "huge band");
    }
}

} // namespace
