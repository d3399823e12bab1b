// Serial or parallel: decided once, from the environment, at the first question.
//
//   OMP_NUM_THREADS *   VOR_SERIAL      decision
//   not empty           empty           parallel
//   any                 "YES", "yes"    serial
//   any                 other text      parallel
//   empty               empty           serial
//
// (* where it is unset altogether, omp_num_threads; only the length of the value matters.)
//
// A process with more rights than its caller (AT_SECURE) obeys no variable and is serial. So is the child
// of a fork, whose OpenMP runtime knows of threads that are not there.
//
// State: vor_serial. No lock: two threads that ask first find the same answer and store it twice.
#include "serv/threads.h"
#include "serv/entry.h"
#include "serv/fork.h"

#include <pthread.h>
#include <stdlib.h>
#include <string.h>

extern "C" {
extern int vor_serial;
int vor_serial = -1; // -1 not decided, then 0 or 1 for the life of the process
}

static int decide() {
    const char* threads = secure_getenv("OMP_NUM_THREADS");
    if (!threads) threads = secure_getenv("omp_num_threads");
    const char* serial = secure_getenv("VOR_SERIAL");
    if (serial && *serial) return !strcmp(serial, "YES") || !strcmp(serial, "yes");
    return !(threads && *threads);
}

extern "C" int vor_serv_in_serial() {
    int serial = __atomic_load_n(&vor_serial, __ATOMIC_RELAXED);
    if (__builtin_expect(serial != -1, 1)) return serial;
    vor::survive_fork();
    serial = decide();
    __atomic_store_n(&vor_serial, serial, __ATOMIC_RELAXED);
    return serial;
}

void vor::stay_serial() {
    vor_serial = 1;
}

extern "C" int vor_in_serial() {
    return vor_serv_in_serial();
}
VOR_ALIASES(int, vor_in_serial, VOR_IN_SERIAL, vor_in_serial, ())

extern "C" unsigned VOR_ThreadID() {
    return static_cast<unsigned>(pthread_self());
}
