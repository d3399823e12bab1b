// Processor inquiries. Nothing in the library depends on the answers.
//
// State: c_size and vor_ht_on, each filled once. No lock: two threads in a first call store the same.
#include "serv/kernel/processor.h"
#include "serv/cache_class.h"
#include "vor_service.h"

static int c_size = vor::kUnknownCache;
static int vor_ht_on = -1; // not asked yet

extern "C" int VOR_getCPUHT() {
    const vor::CpuidWords features = vor::cpuid(1);
    const bool capable = features.edx >> 28 & 1;
    const unsigned logical_processors = features.ebx >> 16 & 0xff;
    return capable && logical_processors > 1;
}

extern "C" int vor_serv_verifyht() {
    if (vor_ht_on == -1) vor_ht_on = VOR_getCPUHT();
    return vor_ht_on;
}

extern "C" int VOR_getCPUTLBcache(unsigned words[4]) {
    const vor::CpuidWords descriptors = vor::cpuid(2);
    words[0] = descriptors.eax;
    words[1] = descriptors.ebx;
    words[2] = descriptors.ecx;
    words[3] = descriptors.edx;
    return static_cast<int>(descriptors.eax & 0xff);
}

extern "C" int vor_serv_l2cache() {
    if (c_size != vor::kUnknownCache) return c_size;
    unsigned words[4];
    VOR_getCPUTLBcache(words);
    c_size = vor::cache_class(words);
    return c_size;
}
