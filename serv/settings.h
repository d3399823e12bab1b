// Settings that the call frame consults, and the gate that fills them once.
#pragma once

namespace vor {
inline namespace serv {

struct Settings {
    int check = 1;  // 1: check arguments, 0: do not
    int serial = 2; // 1: force serial, 0: force parallel, 2: leave it to the environment
};

// Owned by settings.cpp, changed only inside vor_cfg_file. No lock: two threads in a first call both
// parse the file, each for itself, and store the same values once; the flag is set last.
#pragma GCC visibility push(hidden)
extern int cfg_file_readed; // 1 once the gate has finished, whether or not a file was found
extern int cfg_check;
extern int cfg_serial;
extern int cfg_fpu; // no key sets it

// Finds the configuration file and puts what its keys say into `settings`; 0, or -1 if there is none.
// keep_defaults 0 takes the library-name keys too.
int read_config_file(int keep_defaults, Settings& settings);

// The frame's steps in full: the gate, then the mode switch that cfg_serial asks for.
void apply_settings();
#pragma GCC visibility pop

} // namespace serv
} // namespace vor

extern "C" {
// The engines of the mode switches: the result of setenv.
int vor_serv_set_serial();
int vor_serv_set_parallel();
}
