// What the library says of itself: a record, and a line of text for Fortran and for C callers.
//
// State: none but constants.
#include "serv/version.h"
#include "serv/entry.h"

#include <stdio.h>
#include <string.h>

namespace {

constexpr int kMajor = 8, kMinor = 1, kUpdate = 0;
constexpr char kStatus[] = "Product";
constexpr char kBuild[] = "032106.09";
constexpr char stamp[] = "Orbel(R) Baseline processor"; // this kernel level
constexpr char stamp1[] = "32-bit";                     // the platform

constexpr size_t kLine = 512; // room for the version line, which takes less than 100

// Writes the line, terminated, and returns its length.
int write_line(char (&line)[kLine]) {
    return snprintf(line, kLine,
                    "Orbel(R) Numeric Library Version %d.%d.%d %s Build %s for %s applications ",
                    kMajor, kMinor, kUpdate, kStatus, kBuild, stamp1);
}

// Copies `from` to to[at] and on, as far as the room goes; returns where it ends. No terminator.
int append(char* to, int at, int room, const char* from, int length) {
    const int count = length < room - at ? length : room - at;
    if (count <= 0) return at;
    memcpy(to + at, from, static_cast<size_t>(count));
    return at + count;
}

void fill_with_blanks(char* to, int at, int room) {
    if (at < room) memset(to + at, ' ', static_cast<size_t>(room - at));
}

} // namespace

extern "C" const char* vor_serv_gettargetprocessor() {
    return stamp;
}

extern "C" const char* vor_serv_gettargetplatform() {
    return stamp1;
}

extern "C" void vor_serv_m_itoa(int digit, char* text) {
    text[0] = static_cast<char>('0' + digit);
    text[1] = '\0';
}

extern "C" void vor_serv_strcpy(char* to, const char* from, int to_length, int from_length) {
    fill_with_blanks(to, append(to, 0, to_length, from, from_length), to_length);
}

extern "C" void vor_serv_strcat2(char* to, const char* a, const char* b, int to_length,
                                 int a_length, int b_length) {
    const int end = append(to, 0, to_length, a, a_length);
    fill_with_blanks(to, append(to, end, to_length, b, b_length), to_length);
}

VOR_ENGINE void vor_serv_getversion(vor_version* version) {
    *version = {kMajor, kMinor, kUpdate, kStatus, kBuild, vor_serv_gettargetprocessor()};
}

VOR_ENGINE void vor_serv_getversionstring(char* buffer, int length) {
    char line[kLine];
    vor_serv_strcpy(buffer, line, length, write_line(line));
}

VOR_ENGINE void vor_serv_getversionstring_c(char* buffer, int length) {
    if (length < 1) return;
    char line[kLine];
    write_line(line);
    strncpy(buffer, line, static_cast<size_t>(length - 1)); // fills up with NULs
    buffer[length - 1] = '\0';
}

VOR_MIXED_ENTRY(void, VORGetVersion, vorgetversion, VORGETVERSION, vor_serv_getversion,
                (vor_version * version), (version))
VOR_MIXED_ENTRY(void, VORGetVersionString, vorgetversionstring, VORGETVERSIONSTRING,
                vor_serv_getversionstring, (char* buffer, int length), (buffer, length))
VOR_MIXED_ENTRY(void, VORGetVersionString_c, vorgetversionstring_c, VORGETVERSIONSTRING_C,
                vor_serv_getversionstring_c, (char* buffer, int length), (buffer, length))
