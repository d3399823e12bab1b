// second, dsecnd: seconds on the time-stamp counter, whose frequency is found at the first call.
//
// State: freq, then first, filled by the first timer call. No lock: two threads in a first call both
// find the frequency and store it.
#include "serv/entry.h"
#include "serv/kernel/processor.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

static int first = 1; // until freq is set
static double freq = 0;

constexpr double kNotTold = -1.0; // the system does not tell the frequency

extern "C" double vor_serv_tclock() {
    return static_cast<double>(vor::time_stamp());
}

// Ticks of the counter over at least a second of processor time; clock() ticks in microseconds.
extern "C" double vor_serv_getcpufrequency_clock() {
    constexpr unsigned long kSecond = 1000000;
    const clock_t start = clock();
    const double start_ticks = vor_serv_tclock();
    unsigned long elapsed; // unsigned: clock() may wrap in between
    do elapsed = static_cast<unsigned long>(clock()) - static_cast<unsigned long>(start);
    while (elapsed < kSecond);
    const double ticks = vor_serv_tclock() - start_ticks;
    return ticks / (static_cast<double>(elapsed) / kSecond);
}

extern "C" double GETCPUFREQUENCY_CPUINFO() {
    constexpr int kLine = 110; // with terminator; the rest of a longer line is a line of its own
    FILE* file = fopen("/proc/cpuinfo", "r");
    if (!file) return kNotTold;
    double frequency = kNotTold;
    char line[kLine];
    while (fgets(line, kLine, file)) {
        if (strncmp(line, "cpu MHz", 7) != 0) continue;
        if (const char* colon = strchr(line, ':')) frequency = atof(colon + 1) * 1e6;
        break;
    }
    fclose(file);
    return frequency;
}

extern "C" double vor_serv_getcpufrequency() {
    const double measured = vor_serv_getcpufrequency_clock();
    const double told = GETCPUFREQUENCY_CPUINFO();
    return told == kNotTold ? measured : told;
}

VOR_ENGINE double vor_serv_dsecnd() {
    if (__atomic_load_n(&first, __ATOMIC_ACQUIRE)) {
        freq = vor_serv_getcpufrequency();
        __atomic_store_n(&first, 0, __ATOMIC_RELEASE);
    }
    return vor_serv_tclock() / freq;
}

VOR_ENGINE float vor_serv_second() {
    return static_cast<float>(vor_serv_dsecnd());
}

VOR_ENTRY(double, dsecnd, DSECND, vor_serv_dsecnd, (), ())
VOR_ENTRY(float, second, SECOND, vor_serv_second, (), ())
