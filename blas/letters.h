// Option letters: only the first character counts, in either case.
#pragma once

namespace vor {

inline bool is_letter(const char* argument, char upper) {
    return *argument == upper || *argument == upper + ('a' - 'A');
}

} // namespace vor
