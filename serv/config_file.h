// Pieces of the configuration reader that are exported for whoever reads the same format.
#pragma once

extern "C" {
// Each edits a terminated string in place.
void remove_cr(char* text);             // one LF or CR at the end
void remove_trailing_space(char* text); // blanks and tabs at the end
void remove_space(char* text);          // every blank and tab
void strlwr_vor(char* text);            // ASCII letters to lower case
}
