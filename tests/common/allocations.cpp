#include "tests/common/allocations.h"

#include <atomic>
#include <cstdint>
#include <cstring>
#include <link.h>

extern "C" {
void* __libc_malloc(size_t);
void* __libc_calloc(size_t, size_t);
void* __libc_realloc(void*, size_t);
void __libc_free(void*);
}

namespace {

std::atomic<bool> watching{false};
std::atomic<long> calls_{0}, live_{0}, fail_first{0}, fail_last{0};
std::atomic<size_t> last_size_{0};
std::atomic<bool> failed_{false};
uintptr_t library_begin, library_end;

int find_library(dl_phdr_info* info, size_t, void*) {
    if (!std::strstr(info->dlpi_name, "libvor_k1.so")) return 0;
    for (int i = 0; i < info->dlpi_phnum; ++i) {
        const auto& segment = info->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD || !(segment.p_flags & PF_X)) continue;
        library_begin = info->dlpi_addr + segment.p_vaddr;
        library_end = library_begin + segment.p_memsz;
    }
    return 1;
}

bool from_library(void* caller) {
    const auto address = reinterpret_cast<uintptr_t>(caller);
    return watching && address >= library_begin && address < library_end;
}

// Counts a call; true if it is to fail.
bool counted(size_t size) {
    const long k = ++calls_;
    last_size_ = size;
    if (k < fail_first || k > fail_last) return false;
    failed_ = true;
    return true;
}

} // namespace

extern "C" void* malloc(size_t size) {
    if (!from_library(__builtin_return_address(0))) return __libc_malloc(size);
    if (counted(size)) return nullptr;
    void* block = __libc_malloc(size);
    if (block) ++live_;
    return block;
}

extern "C" void* calloc(size_t count, size_t size) {
    if (!from_library(__builtin_return_address(0))) return __libc_calloc(count, size);
    if (counted(count * size)) return nullptr;
    void* block = __libc_calloc(count, size);
    if (block) ++live_;
    return block;
}

extern "C" void* realloc(void* old, size_t size) {
    if (!from_library(__builtin_return_address(0))) return __libc_realloc(old, size);
    if (counted(size)) return nullptr;
    void* block = __libc_realloc(old, size);
    if (block && !old) ++live_;
    return block;
}

extern "C" void free(void* block) {
    if (block && from_library(__builtin_return_address(0))) --live_;
    __libc_free(block);
}

namespace vor::test {

Allocations::Allocations() {
    if (!library_begin) dl_iterate_phdr(find_library, nullptr);
    calls_ = live_ = fail_first = fail_last = 0;
    last_size_ = 0;
    failed_ = false;
    watching = true;
}

Allocations::~Allocations() {
    watching = false;
}

void Allocations::fail_at(long k) {
    failed_ = false;
    fail_first = fail_last = k ? calls_ + k : 0;
}

void Allocations::fail_from(long k) {
    failed_ = false;
    fail_first = calls_ + k;
    fail_last = 0x7fffffff;
}

long Allocations::calls() const {
    return calls_;
}

long Allocations::live() const {
    return live_;
}

size_t Allocations::last_size() const {
    return last_size_;
}

bool Allocations::failed() const {
    return failed_;
}

} // namespace vor::test
