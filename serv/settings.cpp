// The frame's settings, the one-shot gate in front of the configuration file, the mode switches.
//
// The switches have no frame: they act through the environment variable VOR_SERIAL, which the thread
// decision reads once (serv/threads.cpp).
#include "serv/settings.h"
#include "serv/entry.h"

#include <stdlib.h>

namespace vor {
inline namespace serv {

int cfg_file_readed = 0;
int cfg_check = 1;
int cfg_serial = 2;
int cfg_fpu = 0;

void apply_settings() {
    vor_cfg_file(1);
    if (get_cfg_serial() == 1) VOR_SET_SERIAL();
    if (get_cfg_serial() == 0) VOR_SET_PARALLEL();
}

} // namespace serv
} // namespace vor

extern "C" int vor_cfg_file(int keep_defaults) {
    using namespace vor;
    if (cfg_file_readed == 1) return 0;
    cfg_check = 1;
    cfg_fpu = 0;
    cfg_serial = 2;
    const int result = read_config_file(keep_defaults);
    cfg_file_readed = 1;
    return result;
}

extern "C" int get_cfg_serial() {
    return vor::cfg_serial;
}

extern "C" int get_cfg_fpu() {
    return vor::cfg_fpu;
}

extern "C" int get_cfg_check() {
    return vor::cfg_check;
}

extern "C" int vor_serv_set_serial() {
    return setenv("VOR_SERIAL", "YES", 1);
}

extern "C" int vor_serv_set_parallel() {
    return setenv("VOR_SERIAL", "NO", 1);
}

extern "C" int vor_set_serial() {
    return vor_serv_set_serial();
}
VOR_ALIASES(int, vor_set_serial, VOR_SET_SERIAL, vor_set_serial, ())

extern "C" int vor_set_parallel() {
    return vor_serv_set_parallel();
}
VOR_ALIASES(int, vor_set_parallel, VOR_SET_PARALLEL, vor_set_parallel, ())
