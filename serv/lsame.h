// The case-blind character tests that argument checks and engines use.
#pragma once

namespace vor {
inline namespace serv {

// ASCII letters only, whatever the locale.
constexpr char upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - ('a' - 'A')) : c;
}
constexpr char lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

} // namespace serv
} // namespace vor

extern "C" {
// All bits set if the first characters are the same letter in any case, or the same byte; else 0.
// The lengths are not read: callers inside the library pass 1.
int vor_serv_lsame(const char* ca, const char* cb, int ca_length, int cb_length);
int vor_serv_lsamen(const int* n, const char* ca, const char* cb, int ca_length, int cb_length);
}

namespace vor {
inline namespace serv {

// Whether an option begins with the letter `upper`, in either case.
inline bool begins_with(const char* option, char upper) {
    return vor_serv_lsame(option, &upper, 1, 1) != 0;
}

} // namespace serv
} // namespace vor
