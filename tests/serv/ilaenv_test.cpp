// ilaenv: every row of its tables, both sides of every limit, and all names that stand in no row.
#include "vor_service.h"

#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <regex>
#include <sstream>

namespace {

struct Sizes {
    int n1 = 1000, n2 = 1000, n3 = 1000, n4 = 1000;
};

int ask(int ispec, const std::string& name, Sizes n = {}, const char* opts = "") {
    return ilaenv_(&ispec, name.data(), opts, &n.n1, &n.n2, &n.n3, &n.n4, 6, 1);
}

} // namespace

// The names that share an answer when all sizes are 1000; a dot is any element type.
TEST(Ilaenv, Names) {
    const struct {
        int ispec, value;
        const char* names;
    } rows[] = {
        {1, 64, ".GE(QRF|TRI|TRF)|.(PO|SY)TRF|[SD]SY(TRD|GST)|[CZ]HE(TRF|TRD|GST)|.TRTRI|.LAUUM"},
        {1, 32, ".GE(RQF|LQF|QLF|HRD|BRD)|([SD]OR|[CZ]UN)[GM](QR|RQ|LQ|QL|HR|TR|BR)|.(GB|PB)TRF"},
        {1, 16, ".LAQRF"},
        {1, 140, ".(BD|ST).QR"},
        {2, 8, ".SYTRF"},
        {3, 8, ".GEQRF"},
        {3, 32, ".GE(RQF|LQF|QLF|HRD|BRD)|[SD]SYTRD|[CZ]HETRD"},
        {3, 32, "([SD]OR|[CZ]UN)G(QR|RQ|LQ|QL|HR|TR|BR)"},
        {3, 210, ".(BD|ST).QR"},
    };
    const int otherwise[] = {0, 1, 2, 0};
    std::map<std::string, int> wanted[4]; // by question
    for (const std::string kind :
         {"GE", "PO", "SY", "HE", "OR", "UN", "GB", "PB", "TR", "LA", "BD", "ST", "GG", "G?"}) {
        std::istringstream operations(
            "QRF TRI TRF TRD GST UUM RQF LQF QLF HRD BRD GQR GRQ GLQ GQL GHR GTR GBR MQR MRQ MLQ "
            "MQL MHR MTR MBR SQR EQR ?QR QRT TRX ???");
        for (std::string operation; operations >> operation;)
            for (const char type : std::string("SDCZI?"))
                for (const int ispec : {1, 2, 3})
                    wanted[ispec][type + kind + operation] =
                        type == 'I' || type == '?' ? 1 : otherwise[ispec];
    }
    for (const auto& row : rows) {
        const std::regex names(row.names);
        for (auto& [name, value] : wanted[row.ispec])
            if (std::strchr("SDCZ", name[0]) && std::regex_match(name, names)) value = row.value;
    }
    for (const int ispec : {1, 2, 3})
        for (const auto& [name, value] : wanted[ispec]) {
            std::string lower = name;
            for (char& c : lower) c = static_cast<char>(tolower(c));
            EXPECT_EQ(ask(ispec, name), value) << ispec << " " << name;
            EXPECT_EQ(ask(ispec, lower), value) << ispec << " " << lower;
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
         {0, 1},
         &Sizes::n1,
         "4 210 100 260 120 450 140 1000 160 2200 180 4000 200"},
        {1, "ZSTEQR", "", {0, 2}, &Sizes::n1, "4 210 100 630 140 1100 160 2500 180 6200 200"},
        {1, "SGBTRF", "", {1000, 1000, 1000, 0}, &Sizes::n4, "1 64 32"},
        {1, "ZGBTRF", "", {1, 1, 1, 0}, &Sizes::n4, "1 64 32"},
        {1, "CPBTRF", "", {1000, 0, 1000, 1000}, &Sizes::n2, "1 64 32"},
        {1, "DLAQRF", "", {0, 77, 0, 0}, &Sizes::n1, "77 350 16"},
        {12, "DGETRF", "PX", {}, &Sizes::n2, "24 400 32 550 48 800 64 1350 96 19000 128"},
        {12, "DGETRF", "p", {}, &Sizes::n2, "16"},
        {12, "DGETRF", " P", {}, &Sizes::n2, "16"},
    };
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
        {0, 9, 256, 128},     {5000, 8, 128, 128},    {5000, 9, 8, 8},
        {4001, -1, 128, 128}, {1, 12500, 256, 128},   {1, 12501, 256, 8},
        {1, 25000, 256, 8},   {1, 25001, 8, 8},       {1250, 10, 256, 128},
        {1251, 10, 256, 8},   {2500, 10, 256, 8},     {2501, 10, 8, 8},
        {-1, 100, 256, 128},  {4, 1 << 30, 256, 128}, {3, 1 << 30, 256, 128},
        {2, 1 << 29, 8, 8}, // wraps to 0, below 0, not
    };
    for (const auto& c : cases)
        for (const char type : std::string("SDCZ"))
            EXPECT_EQ(ask(3, type + std::string("GEQRF"), {c.n1, c.n2, 0, 0}),
                      type == 'S' ? c.single : c.others)
                << type << " " << c.n1 << " " << c.n2;
}

TEST(Ilaenv, QuestionsWithoutAName) {
    const std::pair<int, int> answers[] = {{-1, -1}, {0, -1}, {4, 6},  {5, 2},  {7, 1},
                                           {8, 50},  {9, 25}, {10, 0}, {11, 0}, {13, -1}};
    for (const auto& [ispec, answer] : answers) EXPECT_EQ(ask(ispec, "DGETRF"), answer) << ispec;
    const int crossovers[][3] = {
        {5, 9, 8}, {9, 5, 8},   {4, 4, 6},
        {0, 3, 0}, {-5, 3, -8}, {100000000, 200000000, 160000002}}; // 1.6f is 1.60000002384
    for (const auto& [n1, n2, answer] : crossovers)
        EXPECT_EQ(ask(6, "DGETRF", {n1, n2}), answer) << n1 << " " << n2;
}
