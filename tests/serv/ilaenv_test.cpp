// ilaenv: every row of its tables, both sides of every limit, and all names that stand in no row.
#include "vor_service.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

struct Sizes {
    int n1 = 1000, n2 = 1000, n3 = 1000, n4 = 1000;
};

int ask(int ispec, const std::string& name, Sizes n = {}, const char* opts = "") {
    return ilaenv_(&ispec, name.data(), opts, &n.n1, &n.n2, &n.n3, &n.n4, 6, 1);
}

bool holds(const std::string& list, const std::string& word) {
    return (' ' + list + ' ').find(' ' + word + ' ') != std::string::npos;
}

std::string folded(std::string name, int (*fold)(int)) {
    for (char& c : name) c = static_cast<char>(fold(c));
    return name;
}

} // namespace

TEST(Ilaenv, Names) {
    const std::string all = "SDCZ", real = "SD", complex = "CZ";
    const std::string reductions = "RQF LQF QLF HRD BRD", iterations = "SQR EQR ?QR GQR MQR";
    const std::string generate = "GQR GRQ GLQ GQL GHR GTR GBR",
                      multiply = "MQR MRQ MLQ MQL MHR MTR MBR";
    // Names that share an answer, when all sizes are 1000.
    const struct {
        int ispec, value;
        std::string types, kinds, operations;
    } rows[] = {{1, 64, all, "GE", "QRF TRI TRF"},
                {1, 64, all, "PO SY", "TRF"},
                {1, 64, real, "SY", "TRD GST"},
                {1, 64, complex, "HE", "TRF TRD GST"},
                {1, 64, all, "TR", "TRI"},
                {1, 64, all, "LA", "UUM"},
                {1, 32, all, "GE", reductions},
                {1, 32, real, "OR", generate + ' ' + multiply},
                {1, 32, complex, "UN", generate + ' ' + multiply},
                {1, 32, all, "GB PB", "TRF"},
                {1, 16, all, "LA", "QRF"},
                {1, 140, all, "BD ST", iterations},
                {2, 8, all, "SY", "TRF"},
                {3, 8, all, "GE", "QRF"},
                {3, 32, all, "GE", reductions},
                {3, 32, real, "SY", "TRD"},
                {3, 32, complex, "HE", "TRD"},
                {3, 32, real, "OR", generate},
                {3, 32, complex, "UN", generate},
                {3, 210, all, "BD ST", iterations}};
    const int otherwise[] = {0, 1, 2, 0};
    std::istringstream kinds("GE PO SY HE OR UN GB PB TR LA BD ST GG G?");
    for (std::string kind; kinds >> kind;) {
        std::istringstream operations(reductions + ' ' + iterations + ' ' + generate + ' ' +
                                      multiply + " QRF TRI TRF TRD GST UUM QRT TRX ???");
        for (std::string operation; operations >> operation;)
            for (const char type : std::string("SDCZI?"))
                for (const int ispec : {1, 2, 3}) {
                    const std::string name = type + kind + operation;
                    int want = all.find(type) == all.npos ? 1 : otherwise[ispec];
                    for (const auto& row : rows)
                        if (row.ispec == ispec && row.types.find(type) != row.types.npos &&
                            holds(row.kinds, kind) && holds(row.operations, operation))
                            want = row.value;
                    EXPECT_EQ(ask(ispec, name), want) << ispec << " " << name;
                    EXPECT_EQ(ask(ispec, folded(name, tolower)), want) << ispec << " " << name;
                }
    }
}

// The answer by one size: values and the limits up to which they hold, in turn.
TEST(Ilaenv, Steps) {
    const struct {
        int ispec;
        const char *name, *opts;
        Sizes others;
        int Sizes::*size;
        std::string steps;
    } cases[] = {
        {1, "DGEQRF", "P", {}, &Sizes::n2, "8 200 16 400 32 550 48 800 64 1350 96"},
        {1, "CGEQRF", "p", {}, &Sizes::n2, "16 300 24 350 48 800 64 1150 96 3400 128"},
        {1,
         "SBDSQR",
         "",
         {0, 1, 0, 0},
         &Sizes::n1,
         "4 210 100 260 120 450 140 1000 160 2200 180 4000 200"},
        {1, "ZSTEQR", "", {0, 2, 0, 0}, &Sizes::n1, "4 210 100 630 140 1100 160 2500 180 6200 200"},
        {1, "SGBTRF", "", {1000, 1000, 1000, 0}, &Sizes::n4, "1 64 32"},
        {1, "ZGBTRF", "", {1, 1, 1, 0}, &Sizes::n4, "1 64 32"},
        {1, "CPBTRF", "", {1000, 0, 1000, 1000}, &Sizes::n2, "1 64 32"},
        {1, "DLAQRF", "", {0, 77, 0, 0}, &Sizes::n1, "77 350 16"},
        {12, "DGETRF", "PX", {}, &Sizes::n2, "24 400 32 550 48 800 64 1350 96 19000 128"},
        {12, "DGETRF", "p", {}, &Sizes::n2, "16"},
        {12, "DGETRF", " P", {}, &Sizes::n2, "16"}};
    for (const auto& c : cases) {
        const auto at = [&](int size) {
            Sizes sizes = c.others;
            sizes.*c.size = size;
            return ask(c.ispec, c.name, sizes, c.opts);
        };
        std::istringstream steps(c.steps);
        int value, limit;
        steps >> value;
        EXPECT_EQ(at(-1), value) << c.name;
        while (steps >> limit) {
            EXPECT_EQ(at(limit), value) << c.name << limit;
            steps >> value;
            EXPECT_EQ(at(limit + 1), value) << c.name << limit;
        }
        EXPECT_EQ(at(2147483647), value) << c.name;
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
        int ispec, n1, n2, answer;
    } cases[] = {{0, 1, 1, -1},
                 {13, 1, 1, -1},
                 {-1, 1, 1, -1},
                 {4, 9, 9, 6},
                 {5, 9, 9, 2},
                 {7, 9, 9, 1},
                 {8, 9, 9, 50},
                 {9, 9, 9, 25},
                 {10, 9, 9, 0},
                 {11, 9, 9, 0},
                 {6, 5, 9, 8},
                 {6, 9, 5, 8},
                 {6, 4, 4, 6},
                 {6, 0, 3, 0},
                 {6, -5, 3, -8},
                 {6, 10, 1000, 16},
                 {6, 100000000, 200000000, 160000002}}; // 1.6f is 1.60000002384
    for (const auto& c : cases)
        EXPECT_EQ(ask(c.ispec, "DGETRF", {c.n1, c.n2, 1, 1}, "P"), c.answer)
            << c.ispec << " " << c.n1 << " " << c.n2;
}
