// The libraries whose symbols are timed.
#include "bench/common/suite.h"

#include <cstdlib>
#include <omp.h>
#include <stdexcept>

namespace vor::bench {

namespace {

void* open(const char* file, int how) {
    void* handle = dlopen(file, RTLD_NOW | RTLD_LOCAL | how);
    if (!handle) throw std::runtime_error(dlerror());
    return handle;
}

} // namespace

Library own_library() {
    // The library may use threads, a case says how many; without a word it is one.
    setenv("VOR_SERIAL", "NO", 1);
    omp_set_num_threads(1);
    return {"vor", open("libvor_k1.so", 0)};
}

Library other_library(const std::string& file) {
    // Read by a library at load: one thread against one thread, unless the user says otherwise.
    setenv("OPENBLAS_NUM_THREADS", "1", 0);
    // It has names in common with the library that this program is linked with: it shall find its
    // own first.
    void* handle = open(file.c_str(), RTLD_DEEPBIND);
    std::string name = file.substr(file.rfind('/') + 1);
    return {name.substr(0, name.find(".so")), handle};
}

} // namespace vor::bench
