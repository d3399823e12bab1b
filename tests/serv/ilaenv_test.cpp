// ilaenv: every row of its tables, both sides of every limit, and all names that stand in no row.
#include "vor_service.h"

#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

namespace {

struct Sizes {
    int n1 = 1000, n2 = 1000, n3 = 1000, n4 = 1000;
};

int ask(int ispec, const std::string& name, Sizes n = {}, const char* opts = "") {
    return ilaenv_(&ispec, name.data(), opts, &n.n1, &n.n2, &n.n3, &n.n4, 6, 1);
}

// Names that share an answer, when all sizes are 1000. In front of each: r for S and D, c for C and Z,
// a for all four.
using Names = std::vector<std::string>;
using Answers = std::map<std::string, int>;

Answers spelled_out(const std::vector<std::pair<int, Names>>& rows) {
    const std::map<char, std::string> types = {{'r', "SD"}, {'c', "CZ"}, {'a', "SDCZ"}};
    Answers answers;
    for (const auto& [value, names] : rows)
        for (const std::string& name : names)
            for (const char type : types.at(name[0])) answers[type + name.substr(1)] = value;
    return answers;
}

const Names generate_real = {"rORGQR", "rORGRQ", "rORGLQ", "rORGQL", "rORGHR", "rORGTR", "rORGBR"};
const Names generate_complex = {"cUNGQR", "cUNGRQ", "cUNGLQ", "cUNGQL",
                                "cUNGHR", "cUNGTR", "cUNGBR"};
const Names multiply_real = {"rORMQR", "rORMRQ", "rORMLQ", "rORMQL", "rORMHR", "rORMTR", "rORMBR"};
const Names multiply_complex = {"cUNMQR", "cUNMRQ", "cUNMLQ", "cUNMQL",
                                "cUNMHR", "cUNMTR", "cUNMBR"};
const Names reductions = {"aGERQF", "aGELQF", "aGEQLF", "aGEHRD", "aGEBRD"};
const Names iterations = {"aBDSQR", "aBDEQR", "aBD?QR", "aBDGQR", "aBDMQR",
                          "aSTSQR", "aSTEQR", "aST?QR", "aSTGQR", "aSTMQR"};
const Names factors = {"aGETRI", "aGETRF", "aPOTRF", "aSYTRF", "rSYTRD", "rSYGST",
                       "cHETRF", "cHETRD", "cHEGST", "aTRTRI", "aLAUUM", "aGEQRF"};

std::string folded(std::string name, int (*fold)(int)) {
    for (char& c : name) c = static_cast<char>(fold(c));
    return name;
}

} // namespace

TEST(Ilaenv, Names) {
    const struct {
        int ispec, otherwise;
        Answers answers;
    } questions[] = {
        {1, 1,
         spelled_out({{64, factors},
                      {32, reductions},
                      {32, generate_real},
                      {32, generate_complex},
                      {32, multiply_real},
                      {32, multiply_complex},
                      {32, {"aGBTRF", "aPBTRF"}},
                      {16, {"aLAQRF"}},
                      {140, iterations}})},
        {2, 2, spelled_out({{8, {"aSYTRF"}}})},
        {3, 0,
         spelled_out({{8, {"aGEQRF"}},
                      {32, reductions},
                      {32, {"rSYTRD", "cHETRD"}},
                      {32, generate_real},
                      {32, generate_complex},
                      {210, iterations}})},
    };
    const char* const kinds[] = {"GE", "PO", "SY", "HE", "OR", "UN", "GB",
                                 "PB", "TR", "LA", "BD", "ST", "GG", "G "};
    const char* const operations[] = {"QRF", "RQF", "LQF", "QLF", "HRD", "BRD", "TRI", "TRF",
                                      "TRD", "GST", "GQR", "GRQ", "GLQ", "GQL", "GHR", "GTR",
                                      "GBR", "MQR", "MRQ", "MLQ", "MQL", "MHR", "MTR", "MBR",
                                      "UUM", "SQR", "EQR", "?QR", "QRT", "TRX", "   "};
    for (const auto& q : questions)
        for (const char type : std::string("SDCZI?"))
            for (const std::string kind : kinds)
                for (const std::string operation : operations) {
                    const std::string name = type + kind + operation;
                    const auto answer = q.answers.find(name);
                    const int known = answer == q.answers.end() ? q.otherwise : answer->second;
                    const int want = type == 'I' || type == '?' ? 1 : known;
                    EXPECT_EQ(ask(q.ispec, name), want) << q.ispec << " " << name;
                    EXPECT_EQ(ask(q.ispec, folded(name, tolower)), want) << q.ispec << " " << name;
                }
}

TEST(Ilaenv, Steps) {
    const struct {
        const char *name, *opts;
        Sizes below; // the other sizes
        int Sizes::*size;
        std::vector<std::pair<int, int>> steps; // limit, value up to it
        int above;
    } cases[] = {
        {"DGEQRF",
         "P",
         {},
         &Sizes::n2,
         {{200, 8}, {400, 16}, {550, 32}, {800, 48}, {1350, 64}},
         96},
        {"CGEQRF",
         "p",
         {},
         &Sizes::n2,
         {{300, 16}, {350, 24}, {800, 48}, {1150, 64}, {3400, 96}},
         128},
        {"SBDSQR",
         "",
         {0, 1, 0, 0},
         &Sizes::n1,
         {{210, 4}, {260, 100}, {450, 120}, {1000, 140}, {2200, 160}, {4000, 180}},
         200},
        {"ZSTEQR",
         "",
         {0, 2, 0, 0},
         &Sizes::n1,
         {{210, 4}, {630, 100}, {1100, 140}, {2500, 160}, {6200, 180}},
         200},
        {"SGBTRF", "", {1000, 1000, 1000, 0}, &Sizes::n4, {{64, 1}}, 32},
        {"ZGBTRF", "", {1, 1, 1, 0}, &Sizes::n4, {{64, 1}}, 32},
        {"CPBTRF", "", {1000, 0, 1000, 1000}, &Sizes::n2, {{64, 1}}, 32},
        {"DLAQRF", "", {0, 77, 0, 0}, &Sizes::n1, {{350, 77}}, 16},
    };
    for (const auto& c : cases) {
        const auto at = [&](int size) {
            Sizes sizes = c.below;
            sizes.*c.size = size;
            return ask(1, c.name, sizes, c.opts);
        };
        for (size_t i = 0; i < c.steps.size(); ++i) {
            EXPECT_EQ(at(c.steps[i].first), c.steps[i].second) << c.name << c.steps[i].first;
            const int next = i + 1 < c.steps.size() ? c.steps[i + 1].second : c.above;
            EXPECT_EQ(at(c.steps[i].first + 1), next) << c.name << c.steps[i].first + 1;
        }
        EXPECT_EQ(at(-1), c.steps[0].second);
        EXPECT_EQ(at(2147483647), c.above);
    }
}

TEST(Ilaenv, CrossoverOfTheQrFactorisation) {
    const struct {
        int n1, n2, single, others;
    } cases[] = {
        {100, 200, 256, 8},     {100, 8, 128, 128},   {5000, 8, 128, 128}, {5000, 9, 8, 8},
        {4000, 9, 8, 8},        {4001, 9, 8, 8},      {0, 9, 256, 128},    {4001, -1, 128, 128},
        {125, 200, 256, 8},     {25001, 1, 128, 128}, {1, 25000, 256, 8},  {1, 25001, 8, 8},
        {1, 12500, 256, 128},   {1, 12501, 256, 8},   {2500, 10, 256, 8},  {2501, 10, 8, 8},
        {1250, 10, 256, 128},   {1251, 10, 256, 8},   {-1, 100, 256, 128}, {4, 1 << 30, 256, 128},
        {3, 1 << 30, 256, 128}, {2, 1 << 29, 8, 8}, // wraps to 0, below 0, not
    };
    for (const auto& c : cases)
        for (const char type : std::string("SDCZ"))
            EXPECT_EQ(ask(3, type + std::string("GEQRF"), {c.n1, c.n2, 0, 0}),
                      type == 'S' ? c.single : c.others)
                << type << " " << c.n1 << " " << c.n2;
}

TEST(Ilaenv, QuestionsWithoutAName) {
    const struct {
        int ispec, n1, n2;
        const char* opts;
        int answer;
    } cases[] = {
        {0, 1, 1, "P", -1},
        {13, 1, 1, "P", -1},
        {-1, 1, 1, "P", -1},
        {4, 9, 9, "", 6},
        {5, 9, 9, "", 2},
        {7, 9, 9, "", 1},
        {8, 9, 9, "", 50},
        {9, 9, 9, "", 25},
        {10, 9, 9, "", 0},
        {11, 9, 9, "", 0},
        {6, 5, 9, "", 8},
        {6, 9, 5, "", 8},
        {6, 4, 4, "", 6},
        {6, 10, 1000, "", 16},
        {6, 0, 3, "", 0},
        {6, -5, 3, "", -8},
        {6, 1000000, 2000000, "", 1600000},
        {6, 100000000, 200000000, "", 160000002}, // 1.6f is 1.60000002384
        {12, 0, 400, "P", 24},
        {12, 0, 401, "P", 32},
        {12, 0, 550, "PX", 32},
        {12, 0, 551, "P", 48},
        {12, 0, 800, "P", 48},
        {12, 0, 801, "P", 64},
        {12, 0, 1350, "P", 64},
        {12, 0, 1351, "P", 96},
        {12, 0, 19000, "P", 96},
        {12, 0, 19001, "P", 128},
        {12, 0, 400, "p", 16},
        {12, 0, 19001, " P", 16},
    };
    for (const auto& c : cases)
        EXPECT_EQ(ask(c.ispec, "DGETRF", {c.n1, c.n2, 1, 1}, c.opts), c.answer)
            << c.ispec << " " << c.n1 << " " << c.n2 << " " << c.opts;
}
