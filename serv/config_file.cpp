// The configuration file: where it is looked for, and its keys.
//
// One key a line, `key = value`. Blanks, tabs and case do not matter, a line that matches no key is
// passed over, a later line overrides an earlier one. The search order is $VOR_CFG_FILE (a file, or a
// directory that holds vor.cfg), else "vor.cfg" in the same way, then the elements of $PATH. The search
// ends at the first thing that can be opened and is no directory; nothing is read from a pipe, terminal
// or device, nor from beyond 64 KiB, so that no file can hold up the first call.
//
// A process with more rights than its caller (AT_SECURE) reads no file: it obeys nothing that the caller
// could have chosen.
#include "serv/config_file.h"
#include "serv/lsame.h"
#include "serv/settings.h"
#include "vor_service.h"

#include <fcntl.h>
#include <stdlib.h>
#include <string.h>
#include <sys/auxv.h>
#include <sys/stat.h>
#include <unistd.h>

// Kernel and sibling libraries of the product family, by processor level. The library loads none of
// them: the names are data for whoever asks.
extern "C" {
extern const char* dll_def_names[5];
extern const char* dll_def_names_v[5];
extern const char* dll_def_names_l[2];
extern const char* dll_def_names_ias[1];

const char* dll_def_names[5] = {"libvor_k0.so", "libvor_k1.so", "libvor_k2.so", "libvor_k3.so",
                                "libvor_k4.so"};
const char* dll_def_names_v[5] = {"libvor_vec_k0.so", "libvor_vec_k1.so", "libvor_vec_k2.so",
                                  "libvor_vec_k3.so", "libvor_vec_k4.so"};
const char* dll_def_names_l[2] = {"libvor_lapack32.so", "libvor_lapack64.so"};
const char* dll_def_names_ias[1] = {"libvor_ias.so"};
}

namespace {

constexpr size_t kText = 4096;  // paths, names and one piece of a line, terminator included
constexpr size_t kFile = 65536; // what is read of a file

// The names in force. Filled by a reading that asks for them, read by nobody.
char dll_cfg_names[5][kText];
char dll_cfg_names_v[5][kText];
char dll_cfg_names_l[2][kText];
char dll_cfg_names_ias[1][kText];

struct NameKey {
    const char* key;
    char* name;
};

const NameKey name_keys[] = {
    {"vor_x87so=", dll_cfg_names[0]},          {"vor_sse1so=", dll_cfg_names[1]},
    {"vor_sse2so=", dll_cfg_names[2]},         {"vor_sse3so=", dll_cfg_names[3]},
    {"vor_vec_x87so=", dll_cfg_names_v[0]},    {"vor_vec_sse1so=", dll_cfg_names_v[1]},
    {"vor_vec_sse2so=", dll_cfg_names_v[2]},   {"vor_vec_sse3so=", dll_cfg_names_v[3]},
    {"vor_intervalso=", dll_cfg_names_ias[0]}, {"vor_lapack32so=", dll_cfg_names_l[0]},
    {"vor_lapack64so=", dll_cfg_names_l[1]},
};

template <size_t n>
void copy_names(char (&to)[n][kText], const char* const (&from)[n]) {
    for (size_t i = 0; i < n; ++i) strcpy(to[i], from[i]);
}

constexpr int kNone = -1; // no file

// The descriptor of what is no directory; kNone for a directory and for what cannot be opened.
int open_file(const char* path) {
    const int file = open(path, O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    struct stat status;
    if (file < 0 || fstat(file, &status) != 0 || !S_ISDIR(status.st_mode)) return file;
    close(file);
    return kNone;
}

// Text that the reader works on; too much for the stack of a small thread.
struct Texts {
    char path[kText], clean[kText], raw[kText], file[kFile];
};

int open_config(char (&path)[kText]) {
    const char* from_environment = secure_getenv("VOR_CFG_FILE");
    const bool given = from_environment && *from_environment;
    const char* start = given ? from_environment : "vor.cfg";
    static constexpr char kInside[] = "/vor.cfg";
    if (strlen(start) + sizeof kInside <= kText) { // a longer value is passed over
        strcpy(path, start);
        if (const int file = open_file(path); file >= 0) return file;
        strcat(path, kInside);
        if (const int file = open_file(path); file >= 0) return file;
    }
    if (!SearchPath(nullptr, "vor.cfg", nullptr, kText, path, nullptr)) return kNone;
    return open_file(path);
}

// What a regular file holds, as far as there is room; the number of bytes.
size_t contents(int file, char (&text)[kFile]) {
    struct stat status;
    if (fstat(file, &status) != 0 || !S_ISREG(status.st_mode)) return 0;
    size_t length = 0;
    while (length < kFile) {
        const ssize_t count = read(file, text + length, kFile - length);
        if (count <= 0) break;
        length += static_cast<size_t>(count);
    }
    return length;
}

// Copies the next line, or as much of a longer one as there is room for, terminated; returns its end.
const char* take_line(const char* from, const char* end, char (&line)[kText]) {
    size_t length = 0;
    while (from < end && length < kText - 1) {
        line[length++] = *from;
        if (*from++ == '\n') break;
    }
    line[length] = '\0';
    return from;
}

// The text behind `key` at the start of the cleaned line; null if the line has another key.
const char* value_of(const char* line, const char* key) {
    const size_t length = strlen(key);
    return strncmp(line, key, length) == 0 ? line + length : nullptr;
}

void take_names(const char* clean, const char* raw) {
    for (const NameKey& k : name_keys) {
        if (!value_of(clean, k.key)) continue;
        const char* value = strchr(raw, '=') + 1; // the clean line has one, so the raw one has
        if (*value) strcpy(k.name, value);
        return;
    }
}

void take_settings(const char* clean, vor::Settings& settings) {
    if (const char* value = value_of(clean, "vor_input_check=")) {
        if (!strcmp(value, "on")) settings.check = 1;
        if (!strcmp(value, "off")) settings.check = 0;
    }
    if (const char* value = value_of(clean, "vor_serial=")) {
        if (!strcmp(value, "yes")) settings.serial = 1;
        if (!strcmp(value, "no")) settings.serial = 0;
        if (!strcmp(value, "omp")) settings.serial = 2;
    }
}

void read_lines(Texts& texts, size_t length, int keep_defaults, vor::Settings& settings) {
    char *clean = texts.clean, *raw = texts.raw;
    const char* const end = texts.file + length;
    for (const char* next = texts.file; next < end;) {
        next = take_line(next, end, texts.clean);
        strcpy(raw, clean);
        remove_cr(raw);
        remove_trailing_space(raw);
        // LF, then the blanks, then the CR that a CR LF line end leaves behind. The raw copy keeps it.
        remove_cr(clean);
        remove_space(clean);
        remove_cr(clean);
        strlwr_vor(clean);
        if (keep_defaults == 0) take_names(clean, raw);
        take_settings(clean, settings);
    }
}

void default_names() {
    copy_names(dll_cfg_names, dll_def_names);
    copy_names(dll_cfg_names_v, dll_def_names_v);
    copy_names(dll_cfg_names_l, dll_def_names_l);
    copy_names(dll_cfg_names_ias, dll_def_names_ias);
}

bool has_rights_of_its_own() {
    return getauxval(AT_SECURE) != 0;
}

} // namespace

int vor::read_config_file(int keep_defaults, Settings& settings) {
    if (keep_defaults == 0) default_names();
    if (has_rights_of_its_own()) return -1;
    Texts* texts = static_cast<Texts*>(malloc(sizeof(Texts)));
    if (!texts) return -1;
    const int file = open_config(texts->path);
    if (file >= 0) {
        read_lines(*texts, contents(file, texts->file), keep_defaults, settings);
        close(file);
    }
    free(texts);
    return file >= 0 ? 0 : -1;
}

extern "C" int dll_cpu_version() {
    return 1;
}

extern "C" unsigned SearchPath(const char*, const char* name, const char*, unsigned, char* buffer,
                               char**) {
    const char* path = secure_getenv("PATH");
    if (!path) path = "";
    static constexpr char kHere[] = ":./:"; // the current directory is the last element
    const size_t length_of_all = strlen(path) + sizeof kHere;
    char* elements = static_cast<char*>(malloc(length_of_all + kText));
    if (!elements) return 0;
    strcpy(elements, path);
    strcat(elements, kHere);
    char* const tried = elements + length_of_all; // kText bytes
    unsigned length = 0;
    char* next = elements;
    while (char* colon = strchr(next, ':')) {
        *colon = '\0';
        char* element = next;
        next = colon + 1;
        remove_trailing_space(element);
        const size_t end = strlen(element);
        if (end == 0 || end + 1 + strlen(name) >= kText) continue; // no element, or no room
        strcpy(tried, element);
        if (element[end - 1] != '.' && element[end - 1] != '/') strcat(tried, "/");
        strcat(tried, name);
        if (const int file = open_file(tried); file >= 0) {
            close(file);
            strcpy(buffer, tried);
            length = static_cast<unsigned>(strlen(buffer));
            break;
        }
    }
    free(elements);
    return length;
}

extern "C" void remove_cr(char* text) {
    const size_t length = strlen(text);
    if (length && (text[length - 1] == '\n' || text[length - 1] == '\r')) text[length - 1] = '\0';
}

extern "C" void remove_trailing_space(char* text) {
    size_t length = strlen(text);
    while (length && (text[length - 1] == ' ' || text[length - 1] == '\t')) --length;
    text[length] = '\0';
}

extern "C" void remove_space(char* text) {
    char* to = text;
    for (const char* from = text; *from; ++from)
        if (*from != ' ' && *from != '\t') *to++ = *from;
    *to = '\0';
}

extern "C" void strlwr_vor(char* text) {
    for (; *text; ++text) *text = vor::lower(*text);
}
