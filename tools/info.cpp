// vor info: what the library is, what it knows of this machine, which settings are in force and why.
#include "tools/commands.h"
#include "vor_service.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <omp.h>
#include <set>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace vor::tool {

namespace {

std::string environment(const char* name) {
    const char* value = std::getenv(name);
    return value ? value : "";
}

void row(const char* name, const std::string& text) {
    std::printf("%-16s %s\n", name, text.c_str());
}

std::string processor() {
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);)
        if (line.rfind("model name", 0) == 0 && line.find(": ") != std::string::npos)
            return line.substr(line.find(": ") + 2);
    return "not told by /proc/cpuinfo";
}

std::string cache_class() {
    static constexpr const char* kSizes[] = {"none",    "128 KiB", "256 KiB",
                                             "512 KiB", "1 MiB",   "2 MiB"};
    const int number = vor_serv_l2cache();
    if (number < 0) return "not told by the processor's cache descriptors (class -1)";
    return std::string("second level ") + kSizes[number] + " (class " + std::to_string(number) +
           ")";
}

std::string frequency() {
    double hertz = GETCPUFREQUENCY_CPUINFO();
    const bool told = hertz != -1.0;
    if (!told) hertz = vor_serv_getcpufrequency_clock(); // takes a second
    char text[32];
    std::snprintf(text, sizeof text, "%.0f MHz, ", hertz * 1e-6);
    return std::string(text) + (told ? "from /proc/cpuinfo" : "measured");
}

bool is_file(const std::string& path) {
    struct stat status;
    std::ifstream file(path);
    return file && stat(path.c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

// The file that the library's search finds; `tried` collects the places before it.
std::string find_configuration(std::string* tried) {
    const std::string given = environment("VOR_CFG_FILE");
    const std::string base = given.empty() ? "vor.cfg" : given;
    for (const std::string& path : {base, base + "/vor.cfg"}) {
        if (is_file(path)) return path;
        *tried += path + ", ";
    }
    *tried += "vor.cfg in the folders of PATH and in the current one";
    char found[4096];
    return SearchPath(nullptr, "vor.cfg", nullptr, sizeof found, found, nullptr) ? found : "";
}

// What the library makes of a line: blanks and case do not count.
std::string cleaned(const std::string& line) {
    std::string text;
    for (const unsigned char c : line)
        if (!std::isspace(c)) text += static_cast<char>(std::tolower(c));
    return text;
}

// Lines of the file that set nothing: an unknown key, or a value with something behind it. Printable, and not
// too long.
std::vector<std::string> void_lines(const std::string& file) {
    static const std::set<std::string> kKnown = {"",
                                                 "vor_input_check=on",
                                                 "vor_input_check=off",
                                                 "vor_serial=yes",
                                                 "vor_serial=no",
                                                 "vor_serial=omp"};
    constexpr size_t kMost = 60;
    std::vector<std::string> lines;
    std::ifstream in(file);
    int number = 0;
    for (std::string line; lines.size() < 10 && std::getline(in, line);) {
        ++number;
        if (kKnown.contains(cleaned(line))) continue;
        line.resize(std::min(line.size(), kMost));
        for (char& c : line)
            if (!std::isprint(static_cast<unsigned char>(c))) c = '?';
        lines.push_back("line " + std::to_string(number) + ": " + line);
    }
    return lines;
}

void show_configuration() {
    std::string tried;
    const std::string found = find_configuration(&tried);
    row("configuration", found.empty() ? "no file" : found);
    if (found.empty()) row("  looked for", tried);
    for (const std::string& line : void_lines(found)) row("  without effect", line);
}

void show_settings() {
    static constexpr const char* kModes[] = {"no", "yes", "omp"};
    row("argument checks", get_cfg_check() == 1 ? "on" : "off");
    row("vor_serial", std::string(kModes[get_cfg_serial()]) +
                          (get_cfg_serial() == 2 ? " (the environment decides)" : ""));
    const char* bypass = std::getenv("VOR_DISABLE_FAST_MM") ? "VOR_DISABLE_FAST_MM"
                         : std::getenv("VOR_MM_DISABLE")    ? "VOR_MM_DISABLE"
                                                            : nullptr;
    row("scratch memory",
        bypass ? std::string("not kept: ") + bypass + " is set" : "kept for reuse");
}

// What the decision was taken from, after the configuration file has had its say.
std::string reason() {
    const std::string serial = environment("VOR_SERIAL");
    if (!serial.empty())
        return "VOR_SERIAL is " + serial +
               (get_cfg_serial() == 2 ? "" : ", set by the configuration file");
    const char* name = std::getenv("OMP_NUM_THREADS") ? "OMP_NUM_THREADS" : "omp_num_threads";
    const std::string threads = environment(name);
    if (!threads.empty()) return std::string(name) + " is " + threads;
    return "neither VOR_SERIAL nor OMP_NUM_THREADS is set";
}

void show_threads() {
    if (vor_in_serial() == 1) return row("threads", "serial: " + reason());
    row("threads", "parallel, up to " + std::to_string(omp_get_max_threads()) + ": " + reason());
}

void run() {
    std::printf("%s\n", version_line().c_str()); // the first framed call: it reads the file
    row("kernels", vor_serv_gettargetprocessor());
    row("processor", processor());
    row("hardware threads", vor_serv_verifyht() ? "several" : "one");
    row("cache class", cache_class());
    row("frequency", frequency());
    show_configuration();
    show_settings();
    show_threads();
}

} // namespace

std::string version_line() {
    char line[100];
    VORGetVersionString_c(line, sizeof line);
    std::string text(line);
    return text.erase(text.find_last_not_of(' ') + 1);
}

void add_info(CLI::App& app) {
    app.add_subcommand("info", "the library, the machine, the settings in force")->callback(run);
}

} // namespace vor::tool
