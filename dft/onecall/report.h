// Faults inside a one-call transform, told through xerbla_ in the form of a condition.
#pragma once

#include "vor_service.h"

namespace vor::dfti::onecall {

inline void report_condition(const char* name, int length, int condition) {
    xerbla_(name, &condition, length);
}
inline void report_no_memory(const char* name, int length) {
    report_condition(name, length, 0);
}

} // namespace vor::dfti::onecall
