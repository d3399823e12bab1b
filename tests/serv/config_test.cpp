// The configuration file, the settings that it changes, and the frame that reads it. Settings are
// printed as: checks, mode, 0.
#include "tests/serv/probe.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

using vor::test::expect_answers;
using vor::test::Folder;

namespace {

const std::string kDefaults = "1 2 0";
const std::string kSerial = "1 1 0";   // what a file with "vor_serial=yes" gives
const std::string kParallel = "1 0 0"; // "vor_serial=no"
const std::string yes = "vor_serial=yes\n", no = "vor_serial=no\n";

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
        {std::string(4081, ' ') + yes, kSerial},
        {std::string(4082, ' ') + yes, kDefaults},
    };
    const Folder folder;
    for (const auto& [text, settings] : cases) {
        folder.write("file", text);
        for (const std::string gate : {"gate 1", "gate 0"})
            expect_answers(folder, {{"VOR_CFG_FILE=@/file", gate + " settings", "0 " + settings}});
    }
}

TEST(Config, SearchOrder) {
    const struct {
        const char* what;
        std::vector<std::string> found, passed_over; // files
        std::string named, path;                     // @ stands for the folder; empty acts as unset
    } cases[] = {{"the file that is named", {"a"}, {"vor.cfg"}, "@/a", ""},
                 {"in the folder that is named", {"a/vor.cfg"}, {"vor.cfg"}, "a", ""},
                 {"the path before this folder", {"p/vor.cfg"}, {"vor.cfg"}, "@/missing", "@/p"},
                 {"this folder as the last element", {"vor.cfg"}, {}, "missing", "@/p"},
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
        const std::string answer = c.found.empty() ? "-1 " + kDefaults : "0 " + kSerial;
        expect_answers(
            folder, {{"VOR_CFG_FILE=" + c.named + ";PATH=" + c.path, "gate 1 settings", answer}});
    }
}

TEST(Config, ElementsOfThePath) {
    const Folder folder;
    for (const char* name : {"a/f", "b/f/inside", "x.f", ".f", "c d/f", "here"})
        folder.write(name, "");
    const std::pair<std::string, std::string> found[] = {
        {"PATH=a", "3 a/f"},
        {"PATH=a/", "3 a/f"},
        {"PATH=missing:b:a", "3 a/f"}, // b/f is a folder
        {"PATH=x.:a", "3 x.f"},        // no slash behind a dot
        {"PATH=a \t :x.", "3 a/f"},    // blanks at the end drop
        {"PATH=c d", "5 c d/f"},       // others do not
        {"PATH= a", "0 untouched"},
        {"PATH=::a", "3 a/f"},
        {"PATH=" + std::string(5000, 'p') + ":a", "3 a/f"}, // an element beyond the room
        {"PATH=" + std::string(4093, '/') + "a:a", "3 a/f"},
    };
    for (const auto& [path, answer] : found) expect_answers(folder, {{path, "search f", answer}});
    // This folder comes last.
    expect_answers(folder, {{"PATH=a", "search here", "6 ./here"},
                            {"PATH=", "search here", "6 ./here"},
                            {"", "search here", "6 ./here"}});
}

// What is no regular file is found, and nothing is read from it; of a large file the beginning counts.
TEST(Config, NoFileHoldsUpTheFirstCall) {
    const Folder folder;
    folder.write("vor.cfg", yes);
    ASSERT_EQ(mkfifo((folder.path() + "/pipe").c_str(), 0600), 0);
    for (const std::string file : {"@/pipe", "/dev/zero", "/dev/null", "/dev/tty0"})
        if (access(file[0] == '@' ? folder.path().c_str() : file.c_str(), R_OK) == 0)
            expect_answers(folder, {{"VOR_CFG_FILE=" + file, "gate 1 settings", "0 " + kDefaults}});
    const std::string lines(65536 - yes.size(), '\n');
    folder.write("fits", lines + yes + no);
    folder.write("ends", lines + "\n\n" + yes);
    expect_answers(folder, {{"VOR_CFG_FILE=@/fits", "gate 1 settings", "0 " + kSerial},
                            {"VOR_CFG_FILE=@/ends", "gate 1 settings", "0 " + kDefaults}});
}

TEST(Config, TheFirstCallKeepsErrno) {
    const Folder folder;
    expect_answers(folder, {{"VOR_CFG_FILE=missing", "errno_kept", "77"}});
}

// Threads in their first calls see the settings of the file, however many of them read it. The way to the
// file is long, and so is the file behind its keys: some threads search while others have done.
TEST(Config, FirstCallsOfManyThreadsAgree) {
    const Folder folder;
    folder.write("vor.cfg", no + "vor_input_check=off\n" + std::string(60000, '\n'));
    std::string path;
    for (int i = 0; i < 4000; ++i) path += "/none:";
    for (int round = 0; round < 20; ++round)
        expect_answers(folder, {{"VOR_CFG_FILE=missing;PATH=" + path + "@:", "first_calls", "0"}});
}

// A program with the rights of another user obeys neither file nor variables of its caller.
TEST(Config, NothingIsObeyedWithForeignRights) {
    constexpr unsigned kNobody = 65534;
    const Folder folder;
    const std::string program = folder.write("probe", "");
    std::filesystem::copy_file(VOR_PROBE, program,
                               std::filesystem::copy_options::overwrite_existing);
    if (geteuid() != 0 || chown(program.c_str(), kNobody, kNobody) != 0 ||
        chmod(program.c_str(), 04755) != 0 || chmod(folder.path().c_str(), 0755) != 0)
        GTEST_SKIP() << "no rights to give away";
    folder.write("vor.cfg", "vor_serial=no\nvor_input_check=off\n");
    const std::vector<std::string> environment = {"VOR_CFG_FILE=" + folder.path() + "/vor.cfg",
                                                  "PATH=" + folder.path(), "VOR_SERIAL=NO",
                                                  "OMP_NUM_THREADS=2", "VOR_DISABLE_FAST_MM="};
    const auto ask = [&](const char* question) {
        return vor::test::run(
                   {program, question, "gate", "1", "settings", "in_serial", "keep", "1000", "1"},
                   environment, folder.path())
            .out;
    };
    const std::string answer = ask("secure");
    if (answer.substr(0, 2) != "1 ") GTEST_SKIP() << "the file system gives no rights: " << answer;
    EXPECT_EQ(answer, "1 -1 " + kDefaults + " 1 1199 1 1 ");
}

TEST(Config, TheGateOpensOnce) {
    const Folder folder;
    folder.write("yes", yes);
    expect_answers(
        folder,
        {{"", "settings gate 1 settings gate 1 settings",
          kDefaults + " -1 " + kDefaults + " 0 " + kDefaults},
         {"", "gate 1 setenv VOR_CFG_FILE @/yes gate 1 settings", "-1 0 " + kDefaults},
         {"VOR_CFG_FILE=@/yes", "settings gate 1 gate 1 settings", kDefaults + " 0 0 " + kSerial}});
}

// The mode is pushed into the environment at every call, not only at the first.
TEST(Config, EveryEntryRunsTheFrame) {
    const Folder folder;
    folder.write("yes", yes);
    folder.write("no", no);
    folder.write("omp", "vor_serial=omp");
    const std::string mine = " getenv VOR_SERIAL setenv VOR_SERIAL mine ",
                      after = " getenv VOR_SERIAL";
    for (const std::string entry : {"lsame", "lsamen", "ilaenv", "dsecnd second", "version",
                                    "version_string", "version_string_c", "free_buffers"})
        expect_answers(folder, {{"VOR_CFG_FILE=@/yes", entry + " settings" + mine + entry + after,
                                 kSerial + " YES YES"}});
    expect_answers(folder,
                   {{"VOR_CFG_FILE=@/no", "lsame" + mine + "lsame" + after, "NO NO"},
                    {"VOR_CFG_FILE=@/omp", "lsame" + mine + "lsame" + after, "unset mine"}});
    // Others run none.
    expect_answers(folder, {{"VOR_CFG_FILE=@/yes",
                             "set_serial set_parallel in_serial search f keep 1 1 settings",
                             "0 0 0 0 untouched 1 1 1 " + kDefaults}});
}
