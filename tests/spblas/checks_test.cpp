// Reports of the sparse routines: what each test refuses, under which number, and in which order.
#include "spblas/checks.h"
#include "tests/blas/reports.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <map>
#include <sstream>

namespace {

using namespace vor::test;

struct Routine {
    std::string name; // as reported
    std::string list; // names of the arguments, in order
    std::function<int(const std::vector<const void*>&)> check;
};

template <class... A>
std::function<int(const std::vector<const void*>&)> caller(int (*check)(A...)) {
    return [check](const std::vector<const void*>& words) {
        const auto word = [&]<class P>(size_t i) -> P {
            if constexpr (std::is_pointer_v<P>)
                return static_cast<P>(const_cast<void*>(words[i]));
            else
                return -1; // a hidden length
        };
        return [&]<size_t... i>(std::index_sequence<i...>) {
            return check(word.template operator()<A>(i)...);
        }
        (std::index_sequence_for<A...>{});
    };
}

const std::string kMm = "transa m n k alpha matdescra", kMmEnd = " b ldb beta c ldc";
const std::string kMv = "transa m k alpha matdescra", kMvEnd = " x beta y";
const std::string kSm = "transa m n alpha matdescra", kSmEnd = " b ldb c ldc";
const std::string kSv = "transa m alpha matdescra", kSvEnd = " x y";
const std::string kCsr = " val indx pntrb pntre", kCsr3 = " a ia ja",
                  kCoo = " val rowind colind nnz", kDia = " val lval idiag ndiag",
                  kSky = " val pntr";

std::vector<Routine> all() {
    std::vector<Routine> list;
    const auto add = [&](const char* name, const std::string& words, auto check) {
        list.push_back({name, words, caller(check)});
    };
    add("VOR_DCSRMM", kMm + kCsr + kMmEnd, vor_spblas_errchk_dcsrmm);
    add("VOR_DCSCMM", kMm + kCsr + kMmEnd, vor_spblas_errchk_dcscmm);
    add("VOR_DCOOMM", kMm + kCoo + kMmEnd, vor_spblas_errchk_dcoomm);
    add("VOR_DDIAMM", kMm + kDia + kMmEnd, vor_spblas_errchk_ddiamm);
    add("VOR_DSKYMM", kMm + kSky + kMmEnd, vor_spblas_errchk_dskymm);
    add("VOR_DCSRMV", kMv + kCsr + kMvEnd, vor_spblas_errchk_dcsrmv);
    add("VOR_DCSCMV", kMv + kCsr + kMvEnd, vor_spblas_errchk_dcscmv);
    add("VOR_DCOOMV", kMv + kCoo + kMvEnd, vor_spblas_errchk_dcoomv);
    add("VOR_DDIAMV", kMv + kDia + kMvEnd, vor_spblas_errchk_ddiamv);
    add("VOR_DSKYMV", kMv + kSky + kMvEnd, vor_spblas_errchk_dskymv);
    add("VOR_DCSRSM", kSm + kCsr + kSmEnd, vor_spblas_errchk_dcsrsm);
    add("VOR_DCSCSM", kSm + kCsr + kSmEnd, vor_spblas_errchk_dcscsm);
    add("VOR_DCOOSM", kSm + kCoo + kSmEnd, vor_spblas_errchk_dcoosm);
    add("VOR_DDIASM", kSm + kDia + kSmEnd, vor_spblas_errchk_ddiasm);
    add("VOR_DSKYSM", kSm + kSky + kSmEnd, vor_spblas_errchk_dskysm);
    add("VOR_DCSRSV", kSv + kCsr + kSvEnd, vor_spblas_errchk_dcsrsv);
    add("VOR_DCSCSV", kSv + kCsr + kSvEnd, vor_spblas_errchk_dcscsv);
    add("VOR_DCOOSV", kSv + kCoo + kSvEnd, vor_spblas_errchk_dcoosv);
    add("VOR_DDIASV", kSv + kDia + kSvEnd, vor_spblas_errchk_ddiasv);
    add("VOR_DSKYSV", kSv + kSky + kSvEnd, vor_spblas_errchk_dskysv);
    add("VOR_DCSRGEMV", "transa m" + kCsr3 + kSvEnd, vor_spblas_errchk_dcsrgemv);
    add("VOR_DCOOGEMV", "transa m" + kCoo + kSvEnd, vor_spblas_errchk_dcoogemv);
    add("VOR_DDIAGEMV", "transa m" + kDia + kSvEnd, vor_spblas_errchk_ddiagemv);
    add("VOR_DCSRSYMV", "uplo m" + kCsr3 + kSvEnd, vor_spblas_errchk_dcsrsymv);
    add("VOR_DCOOSYMV", "uplo m" + kCoo + kSvEnd, vor_spblas_errchk_dcoosymv);
    add("VOR_DDIASYMV", "uplo m" + kDia + kSvEnd, vor_spblas_errchk_ddiasymv);
    add("VOR_DCSRTRSV", "uplo transa diag m" + kCsr3 + kSvEnd, vor_spblas_errchk_dcsrtrsv);
    add("VOR_DCOOTRSV", "uplo transa diag m" + kCoo + kSvEnd, vor_spblas_errchk_dcootrsv);
    add("VOR_DDIATRSV", "uplo transa diag m" + kDia + kSvEnd, vor_spblas_errchk_ddiatrsv);
    return list;
}

std::vector<std::string> split(const std::string& words) {
    std::istringstream stream(words);
    return {std::istream_iterator<std::string>(stream), {}};
}

// A call without fault.
struct Call {
    std::map<std::string, int> integers = {{"m", 5},   {"n", 2},    {"k", 5},   {"ldb", 5},
                                           {"ldc", 5}, {"lval", 5}, {"nnz", 3}, {"ndiag", 2}};
    std::map<std::string, std::string> letters = {
        {"transa", "n"}, {"matdescra", "tLn?"}, {"uplo", "u"}, {"diag", "N"}};
};

int number_of(const Routine& routine, const std::string& argument) {
    const auto names = split(routine.list);
    const auto at = std::find(names.begin(), names.end(), argument);
    return at == names.end() ? 0 : static_cast<int>(at - names.begin()) + 1;
}

// The number that is reported; 0 for a call that passes.
int reported(const Routine& routine, const Call& call) {
    std::vector<const void*> words;
    for (const std::string& name : split(routine.list))
        words.push_back(call.integers.contains(name)
                            ? static_cast<const void*>(&call.integers.at(name))
                        : call.letters.contains(name) ? call.letters.at(name).data()
                                                      : nullptr);
    words.resize(words.size() + 3, nullptr); // hidden lengths
    Reports reports;
    const int answer = routine.check(words);
    const auto got = reports.take();
    if (answer == 0) {
        EXPECT_TRUE(got.empty()) << routine.name;
        return 0;
    }
    EXPECT_EQ(got.size(), 1u) << routine.name;
    EXPECT_EQ(got[0].name, routine.name);
    return got[0].number;
}

TEST(SparseChecks, EachArgumentUnderItsNumber) {
    for (const Routine& routine : all()) {
        EXPECT_EQ(reported(routine, {}), 0) << routine.name;
        const auto refuse = [&](const std::string& argument, auto value) {
            Call call;
            if constexpr (std::is_same_v<decltype(value), int>)
                call.integers[argument] = value;
            else
                call.letters[argument] = value;
            EXPECT_EQ(reported(routine, call), number_of(routine, argument))
                << routine.name << argument;
        };
        for (const char* name : {"m", "n", "k", "ndiag"}) refuse(name, -1);
        if (routine.name != "VOR_DCOOMV") refuse("nnz", -1);
        for (const char* name : {"ldb", "ldc", "lval"}) refuse(name, 4);
        refuse("transa", "X");
        refuse("uplo", "N");
        refuse("diag", "L");
        for (const char* letters : {"XLN", "TXN", "TLX"}) {
            const bool sky_product = routine.name.starts_with("VOR_DSKYM");
            if (!(sky_product && letters[2] == 'X')) refuse("matdescra", letters);
        }
        // The first fault is the one reported.
        Call all_wrong;
        for (auto& [name, value] : all_wrong.integers) value = -1;
        for (auto& [name, value] : all_wrong.letters) value = "?";
        EXPECT_EQ(reported(routine, all_wrong), 1) << routine.name;
    }
}

TEST(SparseChecks, LettersByFamily) {
    for (const Routine& routine : all()) {
        const int number = number_of(routine, "matdescra");
        if (number == 0) continue;
        const char kind = routine.name[8]; // the letter behind the format
        const std::string family = kind == 'S'                             ? "solve"
                                   : routine.name.starts_with("VOR_DSKYM") ? "skyline"
                                                                           : "product";
        for (const char* letters : {"G??", "SLN", "HUU", "TLU", "D?N", "AL?", "SL?", "HU?", "TU?",
                                    "DL?", "AU?", "TLN", "TUU", "DLU", "DUN"}) {
            Call call;
            call.letters["matdescra"] = letters;
            const auto is = [&](int i, const char* allowed) {
                return std::string(allowed).find(letters[i]) != std::string::npos;
            };
            const char s = letters[0];
            const bool triangle = is(1, "LU"), diagonal = is(2, "NU");
            const bool want = family == "solve" ? is(0, "TD") && triangle && diagonal
                              : family == "skyline"
                                  ? s != 'G' && triangle
                                  : s == 'G' || ((s == 'D' || triangle) && (s == 'A' || diagonal));
            EXPECT_EQ(reported(routine, call), want ? 0 : number) << routine.name << ' ' << letters;
        }
    }
}

TEST(SparseChecks, DimensionsThatDependOnOthers) {
    for (const Routine& routine : all()) {
        const int ldb = number_of(routine, "ldb"), ldc = number_of(routine, "ldc");
        Call call;
        if (routine.name.ends_with("MM")) {
            const bool sky = routine.name == "VOR_DSKYMM";
            call.integers["m"] = 4; // B has 5 rows, C 4; transposed the other way round
            call.integers["ldc"] = 4;
            EXPECT_EQ(reported(routine, call), 0);
            call.letters["transa"] = "T";
            EXPECT_EQ(reported(routine, call), ldc);
            call.integers["ldb"] = 3;
            EXPECT_EQ(reported(routine, call), ldb); // both fail
            call.letters["matdescra"] = "TUN";
            EXPECT_EQ(reported(routine, call), sky ? 6 : ldb); // more columns than rows
        }
        if (number_of(routine, "nnz") && !routine.name.ends_with("SYMV")) {
            call = {};
            call.integers["nnz"] = 0;
            const bool solves = routine.name == "VOR_DCOOSV" || routine.name == "VOR_DCOOSM";
            EXPECT_EQ(reported(routine, call), solves ? number_of(routine, "nnz") : 0);
            call.letters["matdescra"] = "TLU";
            EXPECT_EQ(reported(routine, call), 0);
        }
        if (number_of(routine, "lval") && number_of(routine, "k")) {
            call = {};
            call.integers["k"] = 3; // lval reaches the smaller of m and k
            call.integers["lval"] = 3;
            EXPECT_EQ(reported(routine, call), 0);
        }
    }
}

} // namespace
