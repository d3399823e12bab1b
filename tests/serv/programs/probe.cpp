// A program that carries out the commands of its command line, one after the other, and prints what
// they answer, separated by blanks. The tests run it as a child process for everything that a
// process decides once.
//
// Its fopen stands in front of the C library's: PROBE_CPUINFO names the file that is opened in place
// of /proc/cpuinfo.
#include "serv/memory.h"
#include "tests/common/allocations.h"
#include "vor.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <initializer_list>
#include <unistd.h>
#include <vector>

extern "C" FILE* fopen(const char* path, const char*) {
    const char* substitute = std::getenv("PROBE_CPUINFO");
    if (substitute && std::strcmp(path, "/proc/cpuinfo") == 0) path = substitute;
    const int descriptor = open(path, O_RDONLY);
    return descriptor < 0 ? nullptr : fdopen(descriptor, "r");
}

namespace {

void print(std::initializer_list<long> values) {
    for (const long value : values) std::printf("%ld ", value);
}

void print(const char* text) {
    std::printf("%s ", text);
}

void search(char** arguments) {
    char found[4096] = "untouched";
    print({static_cast<long>(SearchPath(nullptr, arguments[0], nullptr, 4096, found, nullptr))});
    print(found);
}

// How many blocks are kept, before and after the next allocation, of `count` that were held at once.
void keep(char** arguments) {
    const unsigned size = static_cast<unsigned>(std::atol(arguments[0]));
    std::vector<void*> blocks(static_cast<size_t>(std::atol(arguments[1])));
    vor::test::Allocations allocations;
    for (void*& block : blocks) block = vor_serv_allocate(size);
    const long asked = static_cast<long>(allocations.last_size());
    for (void* block : blocks) vor_serv_deallocate(block);
    const long kept = allocations.live();
    void* next = vor_serv_allocate(1);
    print({asked, kept, allocations.live()});
    vor_serv_deallocate(next);
}

// How many of two held blocks are left when the buffers are freed below them.
void free_held(char**) {
    vor::test::Allocations allocations;
    for (int i = 0; i < 2; ++i)
        if (!vor_serv_allocate(1000)) std::abort();
    VOR_FreeBuffers();
    print({allocations.live()});
}

struct Command {
    const char* name;
    int arguments;
    void (*run)(char** arguments);
};

const int three = 3;
char text[200];

const Command commands[] = {
    {"gate", 1, [](char** a) { print({vor_cfg_file(std::atoi(a[0]))}); }},
    {"settings", 0,
     [](char**) {
         print({get_cfg_check(), get_cfg_serial(), get_cfg_fpu()});
     }},
    {"set_serial", 0, [](char**) { print({VOR_SET_SERIAL_()}); }},
    {"set_parallel", 0, [](char**) { print({vor_set_parallel()}); }},
    {"in_serial", 0, [](char**) { print({vor_in_serial_()}); }},
    {"getenv", 1, [](char** a) { print(std::getenv(a[0]) ? std::getenv(a[0]) : "unset"); }},
    {"setenv", 2, [](char** a) { setenv(a[0], a[1], 1); }},
    {"search", 1, search},
    {"keep", 2, keep},
    {"free_held", 0, free_held},
    {"xerbla", 3,
     [](char** a) {
         const int code = std::atoi(a[2]);
         xerbla_(a[0], &code, std::atoi(a[1]));
     }},
    {"cblas_xerbla", 2, [](char** a) { cblas_xerbla(a[0], std::atoi(a[1])); }},
    {"told_frequency", 0, [](char**) { std::printf("%g ", GETCPUFREQUENCY_CPUINFO()); }},
    {"frequency", 0, [](char**) { std::printf("%g ", vor_serv_getcpufrequency()); }},
    // The entries with a frame: their answers are not printed.
    {"lsame", 0, [](char**) { LSAME("a", "A", 1, 1); }},
    {"lsamen", 0, [](char**) { lsamen_(&three, "abc", "ABC", 3, 3); }},
    {"ilaenv", 0,
     [](char**) { ilaenv(&three, "DGETRF", "", &three, &three, &three, &three, 6, 0); }},
    {"version", 0,
     [](char**) {
         vor_version version;
         vorgetversion_(&version);
     }},
    {"version_string", 0, [](char**) { VORGetVersionString(text, sizeof text); }},
    {"version_string_c", 0, [](char**) { VORGETVERSIONSTRING_C_(text, sizeof text); }},
    {"free_buffers", 0, [](char**) { vor_freebuffers(); }},
    {"dsecnd", 0, [](char**) { DSECND(); }},
    {"second", 0, [](char**) { second_(); }},
};

} // namespace

int main(int count, char** words) {
    for (int i = 1; i < count;) {
        const Command* command = nullptr;
        for (const Command& c : commands)
            if (std::strcmp(c.name, words[i]) == 0) command = &c;
        if (!command || i + command->arguments >= count) {
            std::fprintf(stderr, "probe: %s?\n", words[i]);
            return 2;
        }
        command->run(words + i + 1);
        i += 1 + command->arguments;
    }
}
