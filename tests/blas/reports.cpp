#include "tests/blas/reports.h"

#include <cstdio>
#include <mutex>
#include <utility>

namespace {

std::mutex mutex;
bool catching = false;
std::vector<vor::test::Report> reports;

} // namespace

extern "C" void xerbla_(const char* name, const int* code, int name_length) {
    const std::string text(name, static_cast<size_t>(name_length));
    const std::lock_guard lock(mutex);
    if (catching)
        reports.push_back({text, *code});
    else
        std::fprintf(stderr, "report: %s parameter %d\n", text.c_str(), *code);
}

namespace vor::test {

Reports::Reports() {
    const std::lock_guard lock(mutex);
    catching = true;
    reports.clear();
}

Reports::~Reports() {
    const std::lock_guard lock(mutex);
    catching = false;
}

std::vector<Report> Reports::take() {
    const std::lock_guard lock(mutex);
    return std::exchange(reports, {});
}

} // namespace vor::test
