#include "tests/blas/reports.h"

#include <cstdio>

extern "C" void xerbla_(const char* name, const int* code, int name_length) {
    const std::string text(name, static_cast<size_t>(name_length));
    if (auto* kept = vor::test::Reports::kept)
        kept->push_back({text, *code});
    else
        std::fprintf(stderr, "report: %s parameter %d\n", text.c_str(), *code);
}
