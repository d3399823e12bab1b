// xerbla_: the one line that the library prints about a faulty call.
//
// It holds no state and takes no lock. It stands alone in this file and is the one interposable name
// of the library: callers inside the library go through the symbol, so that a program's own xerbla_
// receives the reports.
#include "vor_service.h"

#include <stdio.h>
#include <string.h>

extern "C" {
extern const char* named_errors[2]; // by code - 1000
const char* named_errors[2] = {"VOR INTERNAL ERROR : Not enough work memory in function ",
                               "VOR ERROR : Incompatible optional parameters on entry to "};
}

extern "C" void xerbla_(const char* name, const int* code, int name_length) {
    constexpr int kName = 12; // the longest name printed
    char text[kName + 1];
    const int length = name_length > kName ? kName : name_length < 0 ? 0 : name_length;
    strncpy(text, name, static_cast<size_t>(length));
    text[length] = '\0';
    const int value = *code;
    if (value == 1000 || value == 1001)
        fprintf(stderr, "%s%s\n", named_errors[value - 1000], text);
    else if (value >= 1)
        fprintf(stderr, "%s%01d%s%s\n", "VOR ERROR : Parameter ", value,
                " was incorrect on entry to ", text);
    else
        fprintf(stderr, "%s%01d%s%s\n", "VOR INTERNAL ERROR : Condition ",
                static_cast<int>(0u - static_cast<unsigned>(value)), " detected in function ",
                text);
}
