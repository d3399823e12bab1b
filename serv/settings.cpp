// The frame's settings, the one-shot gate in front of the configuration file, the mode switches.
//
// The switches have no frame: they act through the environment variable VOR_SERIAL, which the thread
// decision reads once (serv/threads.cpp).
#include "serv/settings.h"
#include "serv/entry.h"

#include <errno.h>
#include <stdlib.h>
#include <string.h>

namespace vor {
inline namespace serv {

int cfg_file_readed = 0;
int cfg_check = 1;
int cfg_serial = 2;
int cfg_fpu = 0;

void apply_settings() {
    const int callers_errno = errno;
    vor_cfg_file(1);
    if (get_cfg_serial() == 1) VOR_SET_SERIAL();
    if (get_cfg_serial() == 0) VOR_SET_PARALLEL();
    errno = callers_errno;
}

// setenv, unless the variable has that value: then nothing is written that another thread may be reading.
static int set_mode(const char* value) {
    const char* mode = getenv("VOR_SERIAL");
    return mode && strcmp(mode, value) == 0 ? 0 : setenv("VOR_SERIAL", value, 1);
}

} // namespace serv
} // namespace vor

extern "C" int vor_cfg_file(int keep_defaults) {
    using namespace vor;
    if (__atomic_load_n(&cfg_file_readed, __ATOMIC_ACQUIRE) == 1) return 0;
    const int callers_errno = errno;
    Settings settings;
    const int result = read_config_file(keep_defaults, settings);
    __atomic_store_n(&cfg_check, settings.check, __ATOMIC_RELAXED);
    __atomic_store_n(&cfg_serial, settings.serial, __ATOMIC_RELAXED);
    __atomic_store_n(&cfg_file_readed, 1, __ATOMIC_RELEASE);
    errno = callers_errno;
    return result;
}

extern "C" int get_cfg_serial() {
    return __atomic_load_n(&vor::cfg_serial, __ATOMIC_RELAXED);
}

extern "C" int get_cfg_fpu() {
    return vor::cfg_fpu;
}

extern "C" int get_cfg_check() {
    return __atomic_load_n(&vor::cfg_check, __ATOMIC_RELAXED);
}

extern "C" int vor_serv_set_serial() {
    return vor::set_mode("YES");
}

extern "C" int vor_serv_set_parallel() {
    return vor::set_mode("NO");
}

extern "C" int vor_set_serial() {
    return vor_serv_set_serial();
}
VOR_ALIASES(int, vor_set_serial, VOR_SET_SERIAL, vor_set_serial, ())

extern "C" int vor_set_parallel() {
    return vor_serv_set_parallel();
}
VOR_ALIASES(int, vor_set_parallel, VOR_SET_PARALLEL, vor_set_parallel, ())
