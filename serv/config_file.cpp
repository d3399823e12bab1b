// The configuration file: where it is looked for, and its keys.
//
// One key a line, `key = value`. Blanks, tabs and case do not matter, a line that matches no key is
// passed over, a later line overrides an earlier one. The search order is $VOR_CFG_FILE (a file, or a
// directory that holds vor.cfg), else "vor.cfg" in the same way, then the elements of $PATH.
#include "serv/config_file.h"
#include "serv/settings.h"
#include "vor_service.h"

#include <ctype.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/stat.h>

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

constexpr size_t kText = 4096; // paths, names and one piece of a line, terminator included

// The names in force. Filled while the file is read (under the gate's one-shot flag), read by nobody.
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

// The stream of a file; null for a directory and for what cannot be opened.
FILE* open_file(const char* path) {
    FILE* file = fopen(path, "rt");
    struct stat status;
    if (file && stat(path, &status) == 0 && S_ISDIR(status.st_mode)) {
        fclose(file);
        return nullptr;
    }
    return file;
}

// Text that the reader works on; too much for the stack of a small thread.
struct Texts {
    char path[kText], clean[kText], raw[kText];
};

FILE* open_config(char (&path)[kText]) {
    const char* from_environment = getenv("VOR_CFG_FILE");
    const bool given = from_environment && *from_environment;
    const char* start = given ? from_environment : "vor.cfg";
    static constexpr char kInside[] = "/vor.cfg";
    if (strlen(start) + sizeof kInside <= kText) { // a longer value is passed over
        strcpy(path, start);
        if (FILE* file = open_file(path)) return file;
        strcat(path, kInside);
        if (FILE* file = open_file(path)) return file;
    }
    if (!SearchPath(nullptr, "vor.cfg", nullptr, kText, path, nullptr)) return nullptr;
    return fopen(path, "rt");
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

void take_settings(const char* clean) {
    if (const char* value = value_of(clean, "vor_input_check=")) {
        if (!strcmp(value, "on")) vor::cfg_check = 1;
        if (!strcmp(value, "off")) vor::cfg_check = 0;
    }
    if (const char* value = value_of(clean, "vor_serial=")) {
        if (!strcmp(value, "yes")) vor::cfg_serial = 1;
        if (!strcmp(value, "no")) vor::cfg_serial = 0;
        if (!strcmp(value, "omp")) vor::cfg_serial = 2;
    }
}

void read_lines(FILE* file, int keep_defaults, Texts& texts) {
    char *clean = texts.clean, *raw = texts.raw;
    while (fgets(clean, kText, file)) {
        strcpy(raw, clean);
        remove_cr(raw);
        remove_trailing_space(raw);
        // LF, then the blanks, then the CR that a CR LF line end leaves behind. The raw copy keeps it.
        remove_cr(clean);
        remove_space(clean);
        remove_cr(clean);
        strlwr_vor(clean);
        if (keep_defaults == 0) take_names(clean, raw);
        take_settings(clean);
    }
}

} // namespace

int vor::read_config_file(int keep_defaults) {
    copy_names(dll_cfg_names, dll_def_names);
    copy_names(dll_cfg_names_v, dll_def_names_v);
    copy_names(dll_cfg_names_l, dll_def_names_l);
    copy_names(dll_cfg_names_ias, dll_def_names_ias);
    Texts* texts = static_cast<Texts*>(malloc(sizeof(Texts)));
    if (!texts) return -1;
    FILE* file = open_config(texts->path);
    if (file) {
        read_lines(file, keep_defaults, *texts);
        fclose(file);
    }
    free(texts);
    return file ? 0 : -1;
}

extern "C" int dll_cpu_version() {
    return 1;
}

extern "C" unsigned SearchPath(const char*, const char* name, const char*, unsigned, char* buffer,
                               char**) {
    const char* path = getenv("PATH");
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
        if (FILE* file = open_file(tried)) {
            fclose(file);
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
    for (; *text; ++text) *text = static_cast<char>(tolower(static_cast<unsigned char>(*text)));
}
