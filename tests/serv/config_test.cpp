// The configuration file, the settings that it changes, and the frame that reads it. Settings are
// printed as: checks, mode, 0.
#include "tests/serv/probe.h"

#include <gtest/gtest.h>

using vor::test::Folder;
using vor::test::probe;

namespace {

const std::string kDefaults = "1 2 0";
const std::string kSerial = "1 1 0";   // what a file with "vor_serial=yes" gives
const std::string kParallel = "1 0 0"; // "vor_serial=no"
const std::string yes = "vor_serial=yes\n", no = "vor_serial=no\n";

std::string blanks(size_t n) {
    return std::string(n, ' ');
}

} // namespace

TEST(Config, Lines) {
    const struct {
        std::string text, settings;
    } cases[] = {
        {"", kDefaults},
        {yes, kSerial},
        {"vor_serial=no", kParallel}, // no line end
        {"  Vor_Serial \t =  YES  \n", kSerial},
        {"v o r_serial=y e s\n", kSerial},
        {"vor_serial=yes\r\nvor_input_check=OFF\r\n", "0 1 0"},
        {"vor_serial=yes \r\n", kSerial},
        {"vor_serial=yes\r\r\n", kDefaults},
        {"vor_input_check=off\n", "0 2 0"},
        {"vor_input_check=off\nvor_input_check=on\n", kDefaults},
        {"vor_input_check=off\nvor_input_check=maybe\n", "0 2 0"},
        {"vor_input_check=off\nvor_input_check=\n", "0 2 0"},
        {"vor_serial=no\nvor_serial=omp\n", kDefaults},
        {"vor_serial=no\nvor_serial=\nvor_serial=maybe\nvor_serial=yess\n", kParallel},
        {"vor_serial=omp\nvor_serial=no\n", kParallel},
        {"# comment\n[section]\n=\nvor_serial\nxvor_serial=yes\nvor_serial=#yes\n", kDefaults},
        {"vor_sse1so=libmine.so\nvor_lapack32so=\nvor_vec_x87so==\n", kDefaults},
        // A line is read in pieces of 4095 characters, each of which is a line.
        {std::string(4095, 'x') + yes, kSerial},
        {std::string(4094, 'x') + yes, kDefaults},
        {blanks(4081) + yes, kSerial},
        {blanks(4082) + yes, kDefaults},
        {blanks(4095) + blanks(4095) + yes, kSerial},
    };
    for (const auto& c : cases) {
        const Folder folder;
        const std::string file = "VOR_CFG_FILE=" + folder.write("settings", c.text);
        EXPECT_EQ(probe("gate 1 settings", {file}), "0 " + c.settings) << c.text;
        EXPECT_EQ(probe("gate 0 settings", {file}), "0 " + c.settings) << c.text;
    }
}

TEST(Config, LibraryNamesAreTakenWithoutHarm) {
    const Folder folder;
    std::string text;
    for (const char* key : {"x87so", "sse1so", "sse2so", "sse3so", "vec_x87so", "vec_sse1so",
                            "vec_sse2so", "vec_sse3so", "intervalso", "lapack32so", "lapack64so"}) {
        text += "VOR_" + std::string(key) + " = " + std::string(3000, 'N') + ".so \r\n";
        text += "vor_" + std::string(key) + "=" + std::string(4090, 'n') + "\n";
        text += "vor_" + std::string(key) + "=\n";
    }
    folder.write("vor.cfg", text + no);
    EXPECT_EQ(probe("gate 0 settings", {}, folder.path()), "0 " + kParallel);
}

TEST(Config, SearchOrder) {
    const struct {
        const char* why;
        std::vector<std::string> found, passed_over; // files
        std::string named, path;                     // @ stands for the folder; empty acts as unset
    } cases[] = {{"the file that is named", {"a"}, {"vor.cfg"}, "@/a", ""},
                 {"in the folder that is named", {"a/vor.cfg"}, {"vor.cfg"}, "a", ""},
                 {"the path before this folder", {"p/vor.cfg"}, {"vor.cfg"}, "@/missing", "@/p"},
                 {"this folder as the last element", {"vor.cfg"}, {}, "missing", "@/p"},
                 {"a folder without the file", {"p/vor.cfg"}, {"a/other"}, "a", "@/p"},
                 {"a file cannot be a folder", {"p/vor.cfg"}, {"a"}, "a/vor.cfg", "@/p"},
                 {"no name", {"vor.cfg"}, {"p/vor.cfg"}, "", "@/p"},
                 {"a folder of that name", {"vor.cfg/vor.cfg"}, {"p/vor.cfg"}, "", "@/p"},
                 {"folders all the way", {"p/vor.cfg"}, {"vor.cfg/vor.cfg/x"}, "", "@/p"},
                 {"beyond the room", {"p/vor.cfg"}, {"vor.cfg"}, std::string(20000, 'a'), "@/p"},
                 {"nothing", {}, {"a"}, "missing", "@/p:/"}};
    for (const auto& c : cases) {
        const Folder folder;
        for (const auto& name : c.found) folder.write(name, yes);
        for (const auto& name : c.passed_over) folder.write(name, no);
        std::vector<std::string> environment;
        for (std::string value : {"VOR_CFG_FILE=" + c.named, "PATH=" + c.path}) {
            if (const size_t at = value.find('@'); at != value.npos)
                value.replace(at, 1, folder.path());
            environment.push_back(value);
        }
        EXPECT_EQ(probe("gate 1 settings", environment, folder.path()),
                  c.found.empty() ? "-1 " + kDefaults : "0 " + kSerial)
            << c.why;
    }
}

TEST(Config, ElementsOfThePath) {
    const Folder folder;
    for (const char* name : {"a/f", "b/f/inside", "x.f", ".f", "c d/f", "here"})
        folder.write(name, "");
    const struct {
        std::string path, name, answer;
    } cases[] = {
        {"a", "f", "3 a/f"},
        {"a/", "f", "3 a/f"},
        {"missing:a", "f", "3 a/f"},
        {"b:a", "f", "3 a/f"},           // b/f is a folder
        {"x.:a", "f", "3 x.f"},          // no slash behind a dot
        {".:a", "f", "2 .f"},            //
        {"a \t :x.", "f", "3 a/f"},      // blanks at the end are dropped
        {"c d", "f", "5 c d/f"},         // others are not
        {" a", "f", "0 untouched"},      //
        {"a", "here", "6 ./here"},       // the current folder comes last
        {"", "here", "6 ./here"},        //
        {"a", "missing", "0 untouched"}, //
        {"::a", "f", "3 a/f"},           // empty elements and those beyond the room
        {std::string(5000, 'p') + ":a", "f", "3 a/f"},
        {std::string(4093, '/') + "a:a", "f", "3 a/f"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(probe("search " + c.name, {"PATH=" + c.path}, folder.path()), c.answer) << c.path;
    EXPECT_EQ(probe("search here", {}, folder.path()), "6 ./here");
}

TEST(Config, TheGateOpensOnce) {
    const Folder folder;
    EXPECT_EQ(probe("settings gate 1 settings gate 1 settings", {}, folder.path()),
              kDefaults + " -1 " + kDefaults + " 0 " + kDefaults);
    const std::string file = folder.write("settings", yes);
    EXPECT_EQ(probe("gate 1 setenv VOR_CFG_FILE " + file + " gate 1 settings"),
              "-1 0 " + kDefaults);
    EXPECT_EQ(probe("settings gate 1 gate 1 settings", {"VOR_CFG_FILE=" + file}),
              kDefaults + " 0 0 " + kSerial);
}

TEST(Config, EveryEntryRunsTheFrame) {
    const Folder folder;
    const std::string serial = "VOR_CFG_FILE=" + folder.write("yes", yes);
    const std::string parallel = "VOR_CFG_FILE=" + folder.write("no", no);
    const std::string neither = "VOR_CFG_FILE=" + folder.write("omp", "vor_serial=omp");
    const std::string entries[] = {"lsame",   "lsamen",         "ilaenv",           "dsecnd second",
                                   "version", "version_string", "version_string_c", "free_buffers"};
    for (const std::string& entry : entries) {
        // The mode is pushed into the environment at every call, not only at the first.
        const std::string line = entry + " settings getenv VOR_SERIAL setenv VOR_SERIAL mine " +
                                 entry + " getenv VOR_SERIAL";
        EXPECT_EQ(probe(line, {serial}), kSerial + " YES YES") << entry;
    }
    const std::string line =
        "lsame getenv VOR_SERIAL setenv VOR_SERIAL mine lsame getenv VOR_SERIAL";
    EXPECT_EQ(probe(line, {parallel}), "NO NO");
    EXPECT_EQ(probe(line, {neither}), "unset mine");
    EXPECT_EQ(probe(line, {}), "unset mine");
}

TEST(Config, OtherFunctionsRunNoFrame) {
    const Folder folder;
    const std::string serial = "VOR_CFG_FILE=" + folder.write("yes", yes);
    for (const char* call : {"set_serial", "set_parallel", "in_serial", "search f", "keep 1 1"}) {
        const std::string answers = probe(std::string(call) + " settings", {serial});
        EXPECT_TRUE(answers.ends_with(kDefaults)) << call << ": " << answers;
    }
}
