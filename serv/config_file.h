// Pieces of the configuration reader that are exported for whoever reads the same format.
#pragma once

extern "C" {
int dll_cpu_version(); // the processor level of this library in the product family: 1

// Finds the file `name` in the directories of $PATH, the current directory last, and writes its path
// to buffer, which has 4096 bytes. Returns the length of the path, 0 if there is none (the buffer
// then holds the last path tried). The argument list is that of the platform routine of this name;
// only name and buffer are used. Directories do not count as found; an element that ends in '.' or
// '/' gets no slash before the name; empty elements and paths beyond the buffer are passed over.
unsigned SearchPath(const char* path, const char* name, const char* extension,
                    unsigned buffer_length, char* buffer, char** file_part);

// Each edits a terminated string in place.
void remove_cr(char* text);             // one LF or CR at the end
void remove_trailing_space(char* text); // blanks and tabs at the end
void remove_space(char* text);          // every blank and tab
void strlwr_vor(char* text);            // tolower on each character
}
