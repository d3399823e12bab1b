// Processor inquiries and timers.
#include "serv/cache_class.h"
#include "tests/serv/probe.h"
#include "vor_service.h"

#include <cpuid.h>
#include <gtest/gtest.h>

using vor::test::expect_answers;
using vor::test::Folder;
using vor::test::probe;

TEST(Processor, CacheClassOfDescriptorWords) {
    const std::pair<unsigned, int> listed[] = {
        {0x40, 0}, {0x41, 1}, {0x79, 1}, {0x42, 2}, {0x7a, 2}, {0x82, 2}, {0x43, 3},
        {0x7b, 3}, {0x44, 4}, {0x7c, 4}, {0x84, 4}, {0x45, 5}, {0x85, 5}};
    for (const auto& [descriptor, answer] : listed)
        for (int place = 0; place < 16; ++place)
            for (const unsigned top : {0u, 0x80000000u}) { // the word holds no descriptors
                unsigned words[4] = {1, 0, 0, 0};
                unsigned& word = words[place / 4];
                word |= descriptor << 8 * (place % 4) | top;
                const bool counts = place > 0 && !(word & 0x80000000u); // the first byte is a count
                EXPECT_EQ(vor::cache_class(words), counts ? answer : -1)
                    << descriptor << " " << place;
            }
    EXPECT_EQ(vor::cache_class({0x66605001, 0x3f464778, 0x78838600, 0x7d7f3e}), -1); // none listed
    EXPECT_EQ(vor::cache_class({1, 0x43, 0x82, 0x80000044}), 2); // the last one wins
    EXPECT_EQ(vor::cache_class({1, 0x00428541, 0, 0}), 2);
}

TEST(Processor, AnswersOfThisMachine) {
    unsigned eax, ebx, ecx, edx, words[4];
    ASSERT_TRUE(__get_cpuid(1, &eax, &ebx, &ecx, &edx));
    const int threads = (edx & 1u << 28) && (ebx >> 16 & 0xff) > 1;
    EXPECT_EQ(VOR_getCPUHT(), threads);
    for (int call = 0; call < 2; ++call) EXPECT_EQ(vor_serv_verifyht(), threads);
    __cpuid(2, eax, ebx, ecx, edx);
    EXPECT_EQ(static_cast<unsigned>(VOR_getCPUTLBcache(words)), eax & 0xff);
    EXPECT_EQ((std::vector{words[0], words[1], words[2], words[3]}),
              (std::vector{eax, ebx, ecx, edx}));
    for (int call = 0; call < 2; ++call) EXPECT_EQ(vor_serv_l2cache(), vor::cache_class(words));
}

TEST(Processor, FrequencyIsTheToldOneElseTheMeasuredOne) {
    const Folder folder;
    const std::pair<std::string, std::string> cases[] = {
        {"processor\t: 0\ncpu MHz\t\t: 1000.000\ncpu MHz\t\t: 3000.0\n", "1e+09"},
        {"cpu MHz:2500", "2.5e+09"},
        {"CPU MHz : 1\n cpu MHz : 2\ncpu MH : 3\n", "-1"},
        {"cpu MHz\n", "-1"},
        // Lines are read in pieces of 109 characters.
        {std::string(109, 'x') + "cpu MHz : 1500\n", "1.5e+09"},
        {std::string(108, 'x') + "cpu MHz : 1500\n", "-1"},
    };
    for (const auto& [text, answer] : cases) {
        folder.write("cpuinfo", text);
        expect_answers(folder, {{"PROBE_CPUINFO=@/cpuinfo", "told_frequency", answer}});
    }
    folder.write("cpuinfo", "cpu MHz : 1000.000\n");
    expect_answers(folder, {{"PROBE_CPUINFO=@/missing", "told_frequency", "-1"},
                            {"PROBE_CPUINFO=@/cpuinfo", "frequency", "1e+09"}});
    EXPECT_GT(std::stod(probe("frequency", {"PROBE_CPUINFO=/missing"})), 1e8);
}

TEST(Timers, GoForward) {
    const double before = dsecnd_(), ticks = vor_serv_tclock();
    const float single = SECOND_();
    const double after = vor_serv_dsecnd();
    EXPECT_LT(before, after);
    EXPECT_LE(static_cast<float>(before), single);
    EXPECT_LE(single, static_cast<float>(after));
    // The time is the counter's.
    EXPECT_NEAR(ticks / before, vor_serv_tclock() / dsecnd(), 1e-2 * ticks / before);
}
