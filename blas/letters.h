// Option letters: only the first character counts, in either case.
#pragma once

#include "serv/lsame.h"

namespace vor::blas {

inline bool is_letter(const char* argument, char upper) {
    return vor_serv_lsame(argument, &upper, 1, 1) != 0;
}

} // namespace vor::blas
