// A program that carries out the commands of its command line, one after the other, and prints what
// they answer, separated by blanks. The tests run it as a child process for everything that a
// process decides once.
//
// Its fopen stands in front of the C library's: PROBE_CPUINFO names the file that is opened in place
// of /proc/cpuinfo. A probe that hangs ends itself.
#include "serv/memory.h"
#include "tests/common/allocations.h"
#include "vor.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <initializer_list>
#include <sys/auxv.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>
#include <xmmintrin.h>

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

// errno behind a first call that finds no file.
void errno_kept(char**) {
    errno = 77;
    LSAME("a", "A", 1, 1);
    print({errno});
}

// How many of many threads, in their first calls one shortly after the other, see checks on or a serial
// library.
void first_calls(char**) {
    constexpr int kThreads = 32;
    std::atomic<int> wrong = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&wrong, i] {
            usleep(500u * static_cast<unsigned>(i));
            LSAME("a", "A", 1, 1);
            wrong += get_cfg_check() != 0 || get_cfg_serial() != 0 || vor_in_serial_() != 0;
        });
    for (std::thread& thread : threads) thread.join();
    print({wrong});
}

// Threads that never stop taking and giving back blocks.
void hammer(char**) {
    for (int i = 0; i < 3; ++i)
        std::thread([] {
            for (;;) vor_serv_deallocate(vor_serv_allocate(1000));
        }).detach();
}

int status_of(pid_t child) {
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

// How many of that many children, one after the other, take a block and end.
void forks(char** arguments) {
    int ended = 0;
    for (int i = std::atoi(arguments[0]); i > 0; --i) {
        const pid_t child = fork();
        if (child == 0) {
            alarm(5);
            vor_serv_deallocate(vor_serv_allocate(1000));
            _exit(0);
        }
        const int status = status_of(child);
        if (status != 0) break;
        ++ended;
    }
    print({ended});
}

// The child goes on with the commands; the parent waits, and ends as it does.
void go_on_in_a_child(char**) {
    std::fflush(stdout);
    if (const pid_t child = fork()) _exit(status_of(child));
}

// A hash of products whose elements are rounded, and partly underflow, computed under the given x87
// control word and MXCSR.
template <class T>
using Gemm = void(const char*, const char*, const int*, const int*, const int*, const T*, const T*,
                  const int*, const T*, const int*, const T*, T*, const int*);

template <class T>
unsigned product(Gemm<T>* gemm) {
    const int n = 120;
    const T tiny = static_cast<T>(1e-20), one = 1,
            zero = 0; // the square of tiny is no normal float
    std::vector<T> a(n * n), b(n * n), c(n * n);
    for (int i = 0; i < n * n; ++i) {
        a[static_cast<size_t>(i)] = one / static_cast<T>(i % 71 + 3);
        b[static_cast<size_t>(i)] = (i / n % 2 ? one : tiny) / static_cast<T>(i % 59 + 3);
    }
    gemm("N", "N", &n, &n, &n, &tiny, a.data(), &n, b.data(), &n, &zero, c.data(), &n);
    unsigned hash = 0;
    for (const T& element : c) {
        unsigned char bytes[sizeof element];
        std::memcpy(bytes, &element, sizeof element);
        for (const unsigned char byte : bytes) hash = hash * 16777619u + byte;
    }
    return hash;
}

void products(char** arguments) {
    const auto word = [&](int i) {
        return static_cast<unsigned>(std::strtoul(arguments[i], nullptr, 16));
    };
    const unsigned short control = static_cast<unsigned short>(word(0));
    unsigned short own;
    asm volatile("fnstcw %0" : "=m"(own));
    const unsigned own_mxcsr = _mm_getcsr();
    _mm_setcsr(word(1));
    asm volatile("fldcw %0" : : "m"(control));
    const unsigned singles = product(sgemm), doubles = product(dgemm);
    asm volatile("fldcw %0" : : "m"(own));
    _mm_setcsr(own_mxcsr);
    std::printf("%08x %08x ", singles, doubles);
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
    {"errno_kept", 0, errno_kept},
    {"secure", 0, [](char**) { print({static_cast<long>(getauxval(AT_SECURE))}); }},
    {"first_calls", 0, first_calls},
    {"hammer", 0, hammer},
    {"forks", 1, forks},
    {"fork", 0, go_on_in_a_child},
    {"products", 2, products},
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
    alarm(60);
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
