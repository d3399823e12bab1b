// Exported entries: the frame that every one of them runs, and the macros that give a routine its
// spellings. The macros make names; they never hold an algorithm.
#pragma once

#include "serv/settings.h"
#include "vor_service.h"

namespace vor {
inline namespace serv {

// The steps in front of every framed engine: read the configuration file (once), then push the mode
// that it sets, if it sets one, into the environment. With the file read and no mode set there is
// nothing to do, and that is all that is tested here.
[[gnu::always_inline]] inline void run_frame() {
    const bool read = __atomic_load_n(&cfg_file_readed, __ATOMIC_ACQUIRE) == 1;
    if (__builtin_expect(!read || __atomic_load_n(&cfg_serial, __ATOMIC_RELAXED) != 2, 0))
        apply_settings();
}

inline bool checks_on() {
    return __atomic_load_n(&cfg_check, __ATOMIC_RELAXED) == 1;
}

} // namespace serv
} // namespace vor

// The hidden length of a character argument: handed on, read by nobody.
#define VOR_HIDDEN(name) [[maybe_unused]] int name##_length

// An engine: exported under its own name, called directly by other engines. It is kept out of line
// so that an entry jumps to it with the caller's own argument words.
#define VOR_ENGINE extern "C" __attribute__((noinline))

// Three more spellings of the function `lower`, at its address.
#define VOR_ALIASES(R, lower, UPPER, target, PARAMS)                                               \
    extern "C" R lower##_ PARAMS __attribute__((alias(#target)));                                  \
    extern "C" R UPPER PARAMS __attribute__((alias(#target)));                                     \
    extern "C" R UPPER##_ PARAMS __attribute__((alias(#target)));

// An entry without argument check: frame, then engine.
//   R       result type           lower, UPPER   two of the four spellings
//   engine  function that works   PARAMS, ARGS   parenthesised declarations and names
#define VOR_ENTRY(R, lower, UPPER, engine, PARAMS, ARGS)                                           \
    extern "C" R lower PARAMS {                                                                    \
        ::vor::run_frame();                                                                        \
        return engine ARGS;                                                                        \
    }                                                                                              \
    VOR_ALIASES(R, lower, UPPER, lower, PARAMS)

// The same with a mixed-case spelling besides.
#define VOR_MIXED_ENTRY(R, Mixed, lower, UPPER, engine, PARAMS, ARGS)                              \
    VOR_ENTRY(R, lower, UPPER, engine, PARAMS, ARGS)                                               \
    extern "C" R Mixed PARAMS __attribute__((alias(#lower)));

// An entry whose engine hands back an extended-precision value that is not to be rounded on the way:
// the public prototypes say R, the code behind them leaves the engine's long double in st(0).
#define VOR_EXTENDED_ENTRY(R, lower, UPPER, engine, PARAMS, ARGS)                                  \
    extern "C" long double vor_extended_##lower PARAMS {                                           \
        ::vor::run_frame();                                                                        \
        return engine ARGS;                                                                        \
    }                                                                                              \
    _Pragma("GCC diagnostic push")                                                                 \
        _Pragma("GCC diagnostic ignored \"-Wattribute-alias\"") extern "C" R lower PARAMS          \
        __attribute__((alias("vor_extended_" #lower)));                                            \
    VOR_ALIASES(R, lower, UPPER, vor_extended_##lower, PARAMS)                                     \
    _Pragma("GCC diagnostic pop")

// An entry with argument check: unless the configuration switches checks off, a non-zero answer of
// the check function (which has reported already) ends the call.
#define VOR_CHECKED_ENTRY(lower, UPPER, engine, check, PARAMS, ARGS)                               \
    extern "C" void lower PARAMS {                                                                 \
        ::vor::run_frame();                                                                        \
        if (::vor::checks_on() && check ARGS != 0) return;                                         \
        engine ARGS;                                                                               \
    }                                                                                              \
    VOR_ALIASES(void, lower, UPPER, lower, PARAMS)
