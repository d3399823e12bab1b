// Processor inquiries and timers.
#include "serv/cache_class.h"
#include "tests/serv/probe.h"
#include "vor_service.h"

#include <cpuid.h>
#include <gtest/gtest.h>

using vor::test::Folder;
using vor::test::probe;

TEST(Processor, CacheClassOfDescriptorWords) {
    const struct {
        unsigned words[4];
        int answer;
    } cases[] = {
        {{0, 0, 0, 0}, -1},
        {{0x41, 0, 0, 0}, -1}, // a count, not a descriptor
        {{0x4001, 0, 0, 0}, 0},
        {{0x410001, 0, 0, 0}, 1},
        {{0x79000001, 0, 0, 0}, 1},
        {{1, 0x42, 0, 0}, 2},
        {{1, 0, 0x7a00, 0}, 2},
        {{1, 0, 0, 0x820000}, 2},
        {{1, 0, 0, 0x43000000}, 3},
        {{1, 0x7b, 0, 0}, 3},
        {{1, 0x44, 0, 0}, 4},
        {{1, 0x7c, 0, 0}, 4},
        {{1, 0x84, 0, 0}, 4},
        {{1, 0x45, 0, 0}, 5},
        {{1, 0x85, 0, 0}, 5},
        {{0x66605001, 0x3f464778, 0x78838600, 0x7d7f3e}, -1}, // none of these is listed
        {{0x80004501, 0, 0, 0}, -1},                          // bit 31: holds no descriptors
        {{0x80004501, 0x41, 0x80000085, 0}, 1},
        {{1, 0x43, 0x82, 0x80000044}, 2}, // the last one wins, over words and within one
        {{1, 0x00428541, 0, 0}, 2},
    };
    for (const auto& c : cases)
        EXPECT_EQ(vor::cache_class(c.words), c.answer) << testing::PrintToString(c.words);
}

TEST(Processor, AnswersOfThisMachine) {
    unsigned eax, ebx, ecx, edx, words[4];
    ASSERT_TRUE(__get_cpuid(1, &eax, &ebx, &ecx, &edx));
    const int threads = (edx & 1u << 28) && (ebx >> 16 & 0xff) > 1;
    EXPECT_EQ(VOR_getCPUHT(), threads);
    EXPECT_EQ(vor_serv_verifyht(), threads);
    EXPECT_EQ(vor_serv_verifyht(), threads);
    __cpuid(2, eax, ebx, ecx, edx);
    EXPECT_EQ(static_cast<unsigned>(VOR_getCPUTLBcache(words)), eax & 0xff);
    EXPECT_EQ(testing::PrintToString(words),
              testing::PrintToString((unsigned[]){eax, ebx, ecx, edx}));
    EXPECT_EQ(vor_serv_l2cache(), vor::cache_class(words));
    EXPECT_EQ(vor_serv_l2cache(), vor::cache_class(words));
}

TEST(Processor, FrequencyThatTheSystemTells) {
    const Folder folder;
    const struct {
        std::string text, answer;
    } cases[] = {
        {"processor\t: 0\ncpu MHz\t\t: 1000.000\ncpu MHz\t\t: 3000.0\n", "1e+09"},
        {"cpu MHz:2500", "2.5e+09"},
        {"CPU MHz : 1\n cpu MHz : 2\ncpu MH : 3\n", "-1"},
        {"", "-1"},
        {"cpu MHz\n", "-1"},
        // Lines are read in pieces of 109 characters.
        {std::string(109, 'x') + "cpu MHz : 1500\n", "1.5e+09"},
        {std::string(108, 'x') + "cpu MHz : 1500\n", "-1"},
    };
    for (const auto& c : cases) {
        const std::string file = "PROBE_CPUINFO=" + folder.write("cpuinfo", c.text);
        EXPECT_EQ(probe("told_frequency", {file}), c.answer) << c.text;
    }
    EXPECT_EQ(probe("told_frequency", {"PROBE_CPUINFO=/missing"}), "-1");
}

TEST(Processor, FrequencyIsTheToldOneElseTheMeasuredOne) {
    const Folder folder;
    const std::string told = folder.write("told", "cpu MHz : 1000.000\n");
    EXPECT_EQ(probe("frequency", {"PROBE_CPUINFO=" + told}), "1e+09");
    EXPECT_GT(std::stod(probe("frequency", {"PROBE_CPUINFO=/missing"})), 1e8);
}

TEST(Timers, GoForward) {
    const double ticks = vor_serv_tclock();
    EXPECT_LT(ticks, vor_serv_tclock());
    const double before = dsecnd_();
    const float single = SECOND_();
    const double after = vor_serv_dsecnd();
    EXPECT_LT(before, after);
    EXPECT_LE(static_cast<float>(before), single);
    EXPECT_LE(single, static_cast<float>(after));
    // The time is the counter's: a call between two readings lies between their ticks.
    const double low = vor_serv_tclock(), seconds = dsecnd(), high = vor_serv_tclock();
    const double frequency = low / before;
    EXPECT_NEAR(seconds, low / frequency, 1e-2 * seconds);
    EXPECT_LT(low, high);
}
